// SPDX-License-Identifier: MIT
#include "projectbase/details/detail_data.h"

#include "core/text_limits.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <stdexcept>

namespace {

const std::array<std::string, 5> kTypeNames{"double", "long", "bool", "date", "string"};

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

/// "0.00000000000000E+000": the exponent has three digits on every system.
std::string FormatScientific(double value)
{
    std::string text = fmt::format("{:.14E}", value);
    const auto exponent = text.find('E');
    if (exponent == std::string::npos)
        return text;
    const auto digits = exponent + 2;
    if (text.size() - digits < 3)
        text.insert(digits, 3 - (text.size() - digits), '0');
    return text;
}

bool ParseDouble(const wxString& text, double& value)
{
    wxString trimmed = text;
    trimmed.Trim(true).Trim(false);
    double parsed = 0.0;
    if (!trimmed.ToCDouble(&parsed) || !std::isfinite(parsed))
        return false;
    value = parsed;
    return true;
}

long TruncateToLong(double value)
{
    if (std::isnan(value))
        return 0;
    constexpr auto kMin = static_cast<double>(std::numeric_limits<long>::min());
    constexpr auto kMax = static_cast<double>(std::numeric_limits<long>::max());
    if (value <= kMin)
        return std::numeric_limits<long>::min();
    return value >= kMax ? std::numeric_limits<long>::max() : static_cast<long>(value);
}

}  // namespace

std::optional<DetailType> DetailTypeFromName(const std::string& name)
{
    for (std::size_t i = 0; i < kTypeNames.size(); ++i) {
        if (kTypeNames[i] == name)
            return static_cast<DetailType>(i);
    }
    return std::nullopt;
}

bool SameDetailValue(const DetailData::Value& a, const DetailData::Value& b)
{
    if (a.index() != b.index())
        return false;
    if (const double* number = std::get_if<double>(&a)) {
        const double other = std::get<double>(b);
        return std::bit_cast<std::uint64_t>(*number) == std::bit_cast<std::uint64_t>(other) ||
               (std::isnan(*number) && std::isnan(other));
    }
    if (const auto* date = std::get_if<wxDateTime>(&a)) {
        const auto& other = std::get<wxDateTime>(b);
        return date->IsValid() == other.IsValid() && (!date->IsValid() || *date == other);
    }
    return a == b;
}

DetailData::Value DetailData::EmptyValue(DetailType type)
{
    switch (type) {
        case DetailType::Double:
            return 0.0;
        case DetailType::Long:
            return 0L;
        case DetailType::Bool:
            return false;
        case DetailType::Date:
            return wxDateTime();
        case DetailType::String:
            break;
    }
    return wxString();
}

DetailData::DetailData(std::string name, DetailType type, std::string unit) : m_value(EmptyValue(type))
{
    auto info = std::make_shared<Info>();
    info->name = std::move(name);
    info->type = type;
    info->unit = std::move(unit);
    m_info = std::move(info);
}

namespace {

/// The life of one change, for the watch of the detail.
class WatchedWrite
{
public:
    explicit WatchedWrite(DetailData& detail) : m_watch(detail.GetWatch())
    {
        if (m_watch == nullptr)
            return;
        m_watch->BeginEdit();
        m_watch->BeforeWrite(detail);
    }
    ~WatchedWrite()
    {
        if (m_watch != nullptr)
            m_watch->EndEdit();
    }
    WatchedWrite(const WatchedWrite&) = delete;
    WatchedWrite& operator=(const WatchedWrite&) = delete;

private:
    DetailWatch* m_watch;
};

}  // namespace

void DetailData::Store(Value value)
{
    if (SameDetailValue(m_value, value))
        return;
    const WatchedWrite write(*this);
    m_value = std::move(value);
}

template <typename Change>
void DetailData::ChangeInfo(Change change)
{
    auto info = std::make_shared<Info>(*m_info);
    change(*info);
    m_info = std::move(info);
}

void DetailData::SetUnit(const std::string& unit)
{
    if (unit == m_info->unit)
        return;
    const WatchedWrite write(*this);
    ChangeInfo([&unit](Info& info) { info.unit = unit; });
}

void DetailData::SetLabel(const std::string& label)
{
    ChangeInfo([&label](Info& info) { info.label = label; });
}

void DetailData::SetDerived(bool derived)
{
    ChangeInfo([derived](Info& info) { info.derived = derived; });
}

const std::string& DetailData::GetTypeName() const
{
    return kTypeNames[static_cast<std::size_t>(m_info->type)];
}

double DetailData::GetDoubleValue() const
{
    switch (m_info->type) {
        case DetailType::Double:
            return std::get<double>(m_value);
        case DetailType::Long:
            return static_cast<double>(std::get<long>(m_value));
        case DetailType::Bool:
            return std::get<bool>(m_value) ? 1.0 : 0.0;
        case DetailType::String: {
            double value = 0.0;
            return ParseDouble(std::get<wxString>(m_value), value) ? value : 0.0;
        }
        case DetailType::Date:
            break;
    }
    return 0.0;
}

long DetailData::GetLongValue() const
{
    return m_info->type == DetailType::Long ? std::get<long>(m_value) : TruncateToLong(GetDoubleValue());
}

bool DetailData::GetBoolValue() const
{
    if (m_info->type == DetailType::Bool)
        return std::get<bool>(m_value);
    if (m_info->type == DetailType::String && std::get<wxString>(m_value).IsSameAs("true", false))
        return true;
    const double value = GetDoubleValue();
    return value != 0.0 && !std::isnan(value);
}

wxDateTime DetailData::GetDateValue() const
{
    if (m_info->type == DetailType::Date)
        return std::get<wxDateTime>(m_value);
    wxDateTime date;
    if (m_info->type == DetailType::String) {
        const wxString& text = std::get<wxString>(m_value);
        if (!date.ParseISOCombined(text) && !date.ParseISODate(text))
            return {};
    }
    return date;
}

wxString DetailData::GetStringValue() const
{
    return m_info->type == DetailType::String ? std::get<wxString>(m_value) : GetValueAsString();
}

std::string DetailData::GetStdStringValue() const
{
    return GetStringValue().utf8_string();
}

wxString DetailData::GetValueAsString() const
{
    switch (m_info->type) {
        case DetailType::Double: {
            const double value = std::get<double>(m_value);
            return std::isnan(value) ? wxString() : wxString::FromAscii(FormatScientific(value).c_str());
        }
        case DetailType::Long:
            return wxString::FromAscii(std::to_string(std::get<long>(m_value)).c_str());
        case DetailType::Bool:
            return std::get<bool>(m_value) ? wxString("true") : wxString("false");
        case DetailType::Date: {
            const wxDateTime& date = std::get<wxDateTime>(m_value);
            return date.IsValid() ? date.FormatISOCombined() : wxString();
        }
        case DetailType::String:
            break;
    }
    return std::get<wxString>(m_value);
}

void DetailData::SetValue(double value)
{
    switch (m_info->type) {
        case DetailType::Double:
            Store(value);
            break;
        case DetailType::Long:
            Store(TruncateToLong(value));
            break;
        case DetailType::Bool:
            Store(value != 0.0 && !std::isnan(value));
            break;
        case DetailType::String:
            Store(std::isnan(value) ? wxString() : wxString::FromAscii(FormatScientific(value).c_str()));
            break;
        case DetailType::Date:
            break;
    }
}

void DetailData::SetValue(long value)
{
    if (m_info->type == DetailType::Long)
        Store(value);
    else if (m_info->type == DetailType::String)
        Store(wxString::FromAscii(std::to_string(value).c_str()));
    else
        SetValue(static_cast<double>(value));
}

void DetailData::SetValue(bool value)
{
    if (m_info->type == DetailType::String)
        Store(value ? wxString("true") : wxString("false"));
    else
        SetValue(value ? 1.0 : 0.0);
}

void DetailData::SetValue(const wxDateTime& value)
{
    if (m_info->type == DetailType::Date)
        Store(value);
    else if (m_info->type == DetailType::String)
        Store(value.IsValid() ? value.FormatISOCombined() : wxString());
}

void DetailData::SetValue(const wxString& value)
{
    if (m_info->type == DetailType::String)
        Store(value);
    else
        SetValueFromString(value);
}

bool DetailData::SetValueFromString(const wxString& text)
{
    switch (m_info->type) {
        case DetailType::Double: {
            double value = 0.0;
            if (text.empty())
                Store(kUnknown);
            else if (ParseDouble(text, value))
                Store(value);
            else
                return false;
            return true;
        }
        case DetailType::Long: {
            wxLongLong_t value = 0;
            double asDouble = 0.0;
            if (text.ToLongLong(&value))
                Store(static_cast<long>(value));
            else if (ParseDouble(text, asDouble))
                Store(TruncateToLong(asDouble));
            else
                return false;
            return true;
        }
        case DetailType::Bool: {
            const wxString lower = text.Lower();
            if (lower != "true" && lower != "false" && lower != "1" && lower != "0")
                return false;
            Store(lower == "true" || lower == "1");
            return true;
        }
        case DetailType::Date: {
            wxDateTime date;
            if (!text.empty() && !date.ParseISOCombined(text) && !date.ParseISODate(text))
                return false;
            Store(date);
            return true;
        }
        case DetailType::String:
            break;
    }
    if (text.length() > text_limits::MostOf(GetName()))
        return false;
    Store(text);
    return true;
}

void DetailData::ClearValue()
{
    Store(EmptyValue(m_info->type));
}

void DetailData::CopyValue(const DetailData& other)
{
    if (m_info->type == other.m_info->type)
        Store(other.m_value);
    else
        SetValueFromString(other.GetValueAsString());
    SetUnit(other.GetUnit());
}

void DetailData::RestoreValue(const Value& value)
{
    if (value.index() != m_value.index())
        throw std::runtime_error("DetailData::RestoreValue: '" + GetName() + "' holds another type");
    Store(value);
}

bool DetailData::HasSameValue(const DetailData& other) const
{
    return SameDetailValue(m_value, other.m_value);
}

void DetailData::SetChoices(std::vector<std::string> choices)
{
    ChangeInfo([&](Info& info) { info.choices = std::move(choices); });
}

bool DetailData::IsChoice(const std::string& text) const
{
    const std::vector<std::string>& choices = GetChoices();
    return choices.empty() || std::ranges::find(choices, text) != choices.end();
}

void DetailData::SetLimits(std::optional<double> min, std::optional<double> max, std::string limitUnit)
{
    ChangeInfo([&](Info& info) {
        info.min = min;
        info.max = max;
        info.limitUnit = std::move(limitUnit);
    });
}
