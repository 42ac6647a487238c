// SPDX-License-Identifier: MIT
#pragma once

/// One named value of a project.
///
/// A detail has a fixed type. Reading it as another type converts where that loses no meaning and otherwise
/// gives the empty value of that type; writing converts in the same way, so that a detail never changes its
/// type. Numbers are kept in the ISO unit of the detail. A double that is not a number means "not known" and
/// prints as an empty text. Not thread-safe: details belong to the thread of their project.
///
/// What never changes (name, type, limits, ...) is shared by all copies, so that copying a project costs
/// little. A detail that belongs to an object of a project tells its watch before it changes.

#include "projectbase/details/detail_watch.h"
#include "projectbase/projectbase_export.h"

#include <wx/datetime.h>
#include <wx/string.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

enum class DetailType
{
    Double,
    Long,
    Bool,
    Date,
    String
};

/// Type of the name ("double", "long", "bool", "date", "string"); empty for any other name.
PROJECTBASE_EXPORT std::optional<DetailType> DetailTypeFromName(const std::string& name);

class PROJECTBASE_EXPORT DetailData
{
public:
    /// What a detail of each type holds, in the order of DetailType.
    using Value = std::variant<double, long, bool, wxDateTime, wxString>;

    /// A detail holding the empty value of its type: 0, false, no date or an empty text.
    explicit DetailData(std::string name, DetailType type = DetailType::Double, std::string unit = {});

    const std::string& GetName() const { return m_info->name; }
    DetailType GetType() const { return m_info->type; }
    /// "double", "long", "bool", "date" or "string".
    const std::string& GetTypeName() const;

    /// ISO unit as UTF-8; a unit that begins with "EUR" is a currency.
    const std::string& GetUnit() const { return m_info->unit; }
    void SetUnit(const std::string& unit);

    /// What the user calls the value, as English source text; empty where the catalogue gives no name.
    const std::string& GetLabel() const { return m_info->label; }
    void SetLabel(const std::string& label);

    double GetDoubleValue() const;
    long GetLongValue() const;
    bool GetBoolValue() const;
    wxDateTime GetDateValue() const;
    wxString GetStringValue() const;
    /// The text value as UTF-8.
    std::string GetStdStringValue() const;

    /// The value as text in a form that no locale changes: a double as "0.00000000000000E+000", a date as ISO
    /// 8601, a bool as "true" or "false".
    wxString GetValueAsString() const;

    void SetValue(double value);
    void SetValue(long value);
    void SetValue(int value) { SetValue(static_cast<long>(value)); }
    void SetValue(bool value);
    void SetValue(const wxDateTime& value);
    void SetValue(const wxString& value);
    void SetValue(const std::string& utf8) { SetValue(wxString::FromUTF8(utf8)); }
    void SetValue(const char* utf8) { SetValue(wxString::FromUTF8(utf8)); }
    /// Reads `text` as GetValueAsString writes it; a text that the type cannot hold leaves the value as it
    /// is. Returns whether the text was taken.
    bool SetValueFromString(const wxString& text);
    /// 0, false, no date or an empty text; unit and limits stay.
    void ClearValue();
    /// Takes the value of `other`, converted to this detail's type, and its unit; limits stay.
    void CopyValue(const DetailData& other);
    /// The value as it is kept, for what must bring it back bit by bit.
    const Value& GetStoredValue() const { return m_value; }
    /// Brings back a value that GetStoredValue gave; throws std::runtime_error when it is of another type.
    void RestoreValue(const Value& value);
    /// Whether both hold the same value, bit by bit for doubles (two unknown values are equal).
    bool HasSameValue(const DetailData& other) const;

    /// -1 below the minimum, 0 in range, +1 above the maximum, as found by the last check of an input.
    int GetRangeFlag() const { return m_rangeFlag; }
    void SetRangeFlag(int flag) { m_rangeFlag = flag; }

    bool HasMinValue() const { return m_info->min.has_value(); }
    bool HasMaxValue() const { return m_info->max.has_value(); }
    /// Limits in the detail's ISO unit; 0 where there is none.
    double GetMinValue() const { return m_info->min.value_or(0.0); }
    double GetMaxValue() const { return m_info->max.value_or(0.0); }
    const std::string& GetLimitUnit() const { return m_info->limitUnit; }
    void SetLimits(std::optional<double> min, std::optional<double> max, std::string limitUnit);

    /// What the text may be; empty where it may be anything. The check is that of who reads a value from
    /// outside.
    const std::vector<std::string>& GetChoices() const { return m_info->choices; }
    void SetChoices(std::vector<std::string> choices);
    bool IsChoice(const std::string& text) const;

    /// Computed by the project from other details, hence no input.
    bool IsDerived() const { return m_info->derived; }
    void SetDerived(bool derived);

    /// Who is told before the value or the unit changes; null for nobody. Not owned, and not copied with the
    /// detail.
    void SetWatch(DetailWatch* watch) { m_watched.by = watch; }
    DetailWatch* GetWatch() const { return m_watched.by; }
    /// Marks the detail as noted under `serial`. Returns whether it was not so before.
    bool NoteUnder(std::uint64_t serial) { return std::exchange(m_watched.noted, serial) != serial; }

    /// Set by the bindings: whether the last transfer from a window changed the stored value.
    bool changed = false;

private:
    struct Info
    {
        std::string name;
        DetailType type = DetailType::Double;
        std::string unit;
        std::optional<double> min;
        std::optional<double> max;
        std::string limitUnit;
        std::string label;
        std::vector<std::string> choices;
        bool derived = false;
    };
    /// Stays with the detail when values are copied.
    struct Watched
    {
        Watched() = default;
        Watched(const Watched&) noexcept {}
        Watched& operator=(const Watched&) noexcept { return *this; }

        DetailWatch* by = nullptr;
        std::uint64_t noted = 0;
    };

    static Value EmptyValue(DetailType type);
    /// Every change of the value goes through here.
    void Store(Value value);
    template <typename Change>
    void ChangeInfo(Change change);

    std::shared_ptr<const Info> m_info;
    Value m_value;
    int m_rangeFlag = 0;
    Watched m_watched;
};

/// Whether two values are of the same type and equal, bit by bit for doubles (two unknown ones are equal).
PROJECTBASE_EXPORT bool SameDetailValue(const DetailData::Value& a, const DetailData::Value& b);
