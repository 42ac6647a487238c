// SPDX-License-Identifier: MIT
#include "projectbase/project/project_image_values.h"

#include <fmt/compile.h>
#include <fmt/format.h>

#include <bit>
#include <cmath>

namespace {

std::string DateToText(const wxDateTime& date)
{
    return fmt::format("{}.{:03}", date.FormatISOCombined().utf8_string(), date.GetMillisecond());
}

wxDateTime DateFromText(std::string_view text)
{
    constexpr std::size_t kSeconds = 19;  // 2024-02-29T12:00:00
    wxDateTime date;
    if (text.size() != kSeconds + 4 || text[kSeconds] != '.')
        return date;
    unsigned long milliseconds = 0;
    const wxString fraction = wxString::FromUTF8(text.data() + kSeconds + 1, 3);
    if (date.ParseISOCombined(wxString::FromUTF8(text.data(), kSeconds)) && fraction.ToULong(&milliseconds))
        date.SetMillisecond(static_cast<wxDateTime::wxDateTime_t>(milliseconds));
    return date;
}

/// The calendar date as the user sees it, in whatever time zone the file is opened; where ISO 8601 has no
/// form for it (beyond the year 9999), milliseconds since 1970.
void BindDate(SqliteStatement& statement, int index, const wxDateTime& date)
{
    if (!date.IsValid()) {
        statement.BindNull(index);
        return;
    }
    const std::string text = DateToText(date);
    const wxDateTime back = DateFromText(text);
    if (back.IsValid() && back == date)
        statement.Bind(index, text);
    else
        statement.Bind(index, static_cast<std::int64_t>(date.GetValue().GetValue()));
}

wxDateTime ReadDate(const SqliteStatement& row, int column)
{
    return row.Type(column) == SQLITE_INTEGER ? wxDateTime(wxLongLong(row.Integer(column)))
                                              : DateFromText(row.Text(column));
}

/// Sets `detail` from a text; false for bytes that are no UTF-8.
bool TakeString(DetailData& detail, std::string_view utf8)
{
    const wxString text = wxString::FromUTF8(utf8.data(), utf8.size());
    if (text.empty() != utf8.empty())
        return false;
    detail.SetValue(text);
    return true;
}

/// Sets `detail` from column `column`; false when the column holds another kind of value.
bool TakeValue(DetailData& detail, const SqliteStatement& row, int column)
{
    const int stored = row.Type(column);
    switch (detail.GetType()) {
        case DetailType::Double:
            if (stored != SQLITE_FLOAT && stored != SQLITE_NULL)
                return false;
            detail.SetValue(stored == SQLITE_NULL ? std::nan("") : row.Double(column));
            return true;
        case DetailType::Long:
            detail.SetValue(static_cast<long>(row.Integer(column)));
            return stored == SQLITE_INTEGER;
        case DetailType::Bool:
            detail.SetValue(row.Integer(column) != 0);
            return stored == SQLITE_INTEGER;
        case DetailType::Date:
            if (stored == SQLITE_NULL)
                return true;
            detail.SetValue(ReadDate(row, column));
            return detail.GetDateValue().IsValid();
        case DetailType::String:
            break;
    }
    return stored == SQLITE_TEXT && TakeString(detail, row.Text(column));
}

}  // namespace

void BindValue(SqliteStatement& statement, int index, const DetailData& detail)
{
    switch (detail.GetType()) {
        case DetailType::Double:
            statement.Bind(index, detail.GetDoubleValue());  // a value that is no number is stored as nothing
            return;
        case DetailType::Long:
            statement.Bind(index, static_cast<std::int64_t>(detail.GetLongValue()));
            return;
        case DetailType::Bool:
            statement.Bind(index, std::int64_t{detail.GetBoolValue() ? 1 : 0});
            return;
        case DetailType::Date:
            BindDate(statement, index, detail.GetDateValue());
            return;
        case DetailType::String:
            break;
    }
    statement.Bind(index, detail.GetStdStringValue());
}

std::optional<DetailData> ReadDetail(const SqliteStatement& row, int column)
{
    const auto type = DetailTypeFromName(std::string(row.Text(column + 1)));
    if (!type)
        return std::nullopt;
    DetailData detail(std::string(row.Text(column)), *type, std::string(row.Text(column + 2)));
    return TakeValue(detail, row, column + 3) ? std::optional(detail) : std::nullopt;
}

void TakeColumnBytes(const SqliteStatement& row, int column, std::string& bytes)
{
    bytes.clear();
    const auto out = std::back_inserter(bytes);
    switch (row.Type(column)) {
        case SQLITE_INTEGER:
            fmt::format_to(out, FMT_COMPILE("i{}"), row.Integer(column));
            break;
        case SQLITE_FLOAT:
            fmt::format_to(out, FMT_COMPILE("f{:016x}"), std::bit_cast<std::uint64_t>(row.Double(column)));
            break;
        case SQLITE_NULL:
            bytes = "n";
            break;
        default:
            bytes = "t";
            bytes += row.Text(column);
    }
}
