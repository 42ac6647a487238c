// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/regeneration/regseq_table.h"

#include "core/number_text.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/input/validation/double_validator.h"
#include "gui_base/input/validation/number_cells.h"
#include "gui_base/support/translation.h"
#include "projectbase/project/range_faults.h"
#include "projectbase/units/unit_system_manager.h"

#include <wx/settings.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {

constexpr int kDigits = 4;
constexpr double kMinutesPerHour = 60.0;

struct Column
{
    const char* label;
    const char* unit;      ///< ISO, empty for none
    const char* quantity;  ///< that the column shows of a row, empty for a choice
    double perHour = 1.0;  ///< what is shown of an hour
};
constexpr std::array<Column, kRegSeqColumnCount> kColumns{{
    {wxTRANSLATE("Type"), "", ""},
    {wxTRANSLATE("Medium"), "", ""},
    {wxTRANSLATE("Velocity"), "m/h", "v"},
    {wxTRANSLATE("Flow rate"), "m3/h", "q"},
    {wxTRANSLATE("Flow rate"), "BV/h", "q.bv"},
    {wxTRANSLATE("Time"), "h", "t"},
    {wxTRANSLATE("Time"), "min", "t", kMinutesPerHour},
    {wxTRANSLATE("Volume"), "m3", "vol"},
    {wxTRANSLATE("Volume"), "BV", "vol.bv"},
    {wxTRANSLATE("Flow direction"), "", ""},
}};

const Column& ColumnAt(int column)
{
    return kColumns.at(static_cast<std::size_t>(column));
}

bool IsNumber(int column)
{
    return column >= kRegSeqVelocity && column <= kRegSeqBedVolumes;
}

bool IsTime(int column)
{
    return column == kRegSeqHours || column == kRegSeqMinutes;
}

wxString NumberText(double value)
{
    return wxString::FromUTF8(numbertext::Format(value, {.precision = kDigits, .plain = true},
                                                 NumericValidator::LocaleSeparators()));
}

const std::string& KeyOf(const RegSeqStep& step, int column)
{
    if (column == kRegSeqType)
        return step.type;
    return column == kRegSeqMedium ? step.medium : step.direction;
}

std::string ClassOf(const std::string& type)
{
    const sequence::Type* const found = sequence::FindType(type);
    return found != nullptr ? found->rowClass : std::string();
}

}  // namespace

RegSeqTable::RegSeqTable(std::function<void()> onEdit) : m_onEdit(std::move(onEdit))
{
    m_limits.LoadGroup("regseqstep", "BASE");
    TakeColours();
}

RegSeqTable::~RegSeqTable()
{
    ReleaseAttributes();
}

void RegSeqTable::ReleaseAttributes()
{
    for (wxGridCellAttr** attribute : {&m_shownText, &m_shownNumber, &m_number, &m_below, &m_above}) {
        if (*attribute != nullptr)
            (*attribute)->DecRef();
        *attribute = nullptr;
    }
    for (auto& [what, attribute] : m_choices)
        attribute->DecRef();
    m_choices.clear();
}

void RegSeqTable::TakeColours()
{
    ReleaseAttributes();
    const wxColour text = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT);
    m_shownText = cells::NewAttribute(TvTextCtrl::ReadOnlyColour(), text, true, wxALIGN_LEFT);
    m_shownNumber = cells::NewAttribute(TvTextCtrl::ReadOnlyColour(), text, true, wxALIGN_RIGHT);
    m_number = cells::NewAttribute(TvTextCtrl::EditableColour(), text, false, wxALIGN_RIGHT);
    // The alarm colours are pale in every theme, so the text on them is dark.
    const DoubleValidator alarm(nullptr);
    m_below = cells::NewAttribute(alarm.GetBelowMinColour(), *wxBLACK, false, wxALIGN_RIGHT);
    m_above = cells::NewAttribute(alarm.GetAboveMaxColour(), *wxBLACK, false, wxALIGN_RIGHT);
}

void RegSeqTable::SetChoicesType(Choices choices)
{
    m_types = std::move(choices);
    TakeColours();
}

void RegSeqTable::SetChoicesMedium(Choices choices)
{
    m_media = std::move(choices);
    TakeColours();
}

void RegSeqTable::SetChoicesDirection(Choices choices)
{
    m_directions = std::move(choices);
    TakeColours();
}

const RegSeqTable::Choices* RegSeqTable::ChoicesOf(int column) const
{
    switch (column) {
        case kRegSeqType:
            return &m_types;
        case kRegSeqMedium:
            return &m_media;
        case kRegSeqDirection:
            return &m_directions;
        default:
            return nullptr;
    }
}

int RegSeqTable::ColumnOf(const std::string& key)
{
    for (int column = kRegSeqVelocity; column <= kRegSeqBedVolumes; ++column) {
        if (key == std::string("regseqstep/") + ColumnAt(column).quantity)
            return column;
    }
    if (key == "regseqstep/medium")
        return kRegSeqMedium;
    return key == "regseqstep/direction" ? kRegSeqDirection : kRegSeqType;
}

std::vector<wxString> RegSeqTable::TextsOf(int column) const
{
    std::vector<wxString> texts;
    if (const Choices* choices = ChoicesOf(column))
        std::ranges::transform(*choices, std::back_inserter(texts), &SelectionChoice::text);
    return texts;
}

RegSeqTable::Choices RegSeqTable::MediaFor(const std::string& type) const
{
    const sequence::Type* const row = sequence::FindType(type);
    Choices media;
    std::ranges::copy_if(m_media, std::back_inserter(media), [row](const SelectionChoice& choice) {
        const sequence::Medium* const medium = sequence::FindMedium(choice.id.utf8_string());
        return row == nullptr || medium == nullptr || sequence::CanHave(*row, *medium);
    });
    return media;
}

wxString RegSeqTable::GetValue(int row, int column)
{
    if (row < 0 || row >= GetNumberRows())
        return {};
    const RegSeqStep& step = m_steps[static_cast<std::size_t>(row)];
    if (const Choices* choices = ChoicesOf(column)) {
        const wxString key = wxString::FromUTF8(KeyOf(step, column));
        const auto found = std::ranges::find(*choices, key, &SelectionChoice::id);
        return found != choices->end() ? found->text : key;
    }
    const Column& shown = ColumnAt(column);
    const double value = step.Get(shown.quantity) * shown.perHour;
    return std::isnan(value) ? wxString()
                             : NumberText(UnitSystemManager::FromISO(shown.unit, m_unitSystem, value));
}

void RegSeqTable::SetValue(int row, int column, const wxString& text)
{
    if (row < 0 || row >= GetNumberRows() || text == GetValue(row, column))
        return;
    RegSeqStep& step = m_steps[static_cast<std::size_t>(row)];
    if (const Choices* choices = ChoicesOf(column)) {
        const auto found = std::ranges::find(*choices, text, &SelectionChoice::text);
        if (found == choices->end())
            return;
        const std::string key = found->id.utf8_string();
        (column == kRegSeqType ? step.type : column == kRegSeqMedium ? step.medium : step.direction) = key;
    } else {
        const Column& shown = ColumnAt(column);
        const auto number = cells::ParseNumber(*this, column, text);
        if (!number && !wxString(text).Trim().empty())
            return;
        const double value = number.value_or(std::numeric_limits<double>::quiet_NaN());
        step.Type(shown.quantity, UnitSystemManager::ToISO(shown.unit, m_unitSystem, value) / shown.perHour);
    }
    m_onEdit();
}

void RegSeqTable::SetFlag(const std::vector<int>& rows, bool RegSeqStep::*flag, bool value)
{
    for (const int row : rows)
        m_steps.at(static_cast<std::size_t>(row)).*flag = value;
    m_onEdit();
}

wxString RegSeqTable::GetColLabelValue(int column)
{
    const Column& shown = ColumnAt(column);
    const wxString label = i18n::Translated(shown.label);
    if (*shown.unit == '\0')
        return label;
    return label + "\n" + UnitSystemManager::GetUnit(shown.unit, m_unitSystem, true);
}

bool RegSeqTable::IsEditable(int row, int column) const
{
    if (row < 0 || static_cast<std::size_t>(row) >= m_steps.size())
        return false;
    const RegSeqStep& step = m_steps[static_cast<std::size_t>(row)];
    const std::string rowClass = ClassOf(step.type);
    if (column == kRegSeqType)
        return step.removable;
    if (rowClass == "still")
        return !IsNumber(column) || IsTime(column);
    const bool isVolume = column == kRegSeqVolume || column == kRegSeqBedVolumes;
    return !isVolume || rowClass != "chemical";
}

wxGridCellAttr* RegSeqTable::ChoiceAttribute(int row, int column)
{
    const RegSeqStep& step = m_steps[static_cast<std::size_t>(row)];
    std::string what = column == kRegSeqType ? "type" : "direction";
    Choices choices = column == kRegSeqType ? m_types : m_directions;
    if (column == kRegSeqMedium) {
        what = "medium of " + ClassOf(step.type);
        choices = m_choices.contains(what) ? Choices() : MediaFor(step.type);
    }
    wxGridCellAttr*& attribute = m_choices[what];
    if (attribute == nullptr) {
        attribute =
            cells::NewAttribute(TvTextCtrl::EditableColour(),
                                wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT), false, wxALIGN_LEFT);
        attribute->SetEditor(new TvGridCellChoiceEditor(choices, false));
    }
    return attribute;
}

int RegSeqTable::SideOfLimits(int row, int column) const
{
    const char* const quantity = ColumnAt(column).quantity;
    return ::SideOfLimits(m_limits.At(std::string("regseqstep/") + quantity),
                          m_steps[static_cast<std::size_t>(row)].Get(quantity));
}

wxGridCellAttr* RegSeqTable::GetAttr(int row, int column, wxGridCellAttr::wxAttrKind)
{
    wxGridCellAttr* attribute = IsNumber(column) ? m_shownNumber : m_shownText;
    if (IsEditable(row, column)) {
        if (!IsNumber(column))
            attribute = ChoiceAttribute(row, column);
        else
            attribute = std::array{m_below, m_number, m_above}.at(
                static_cast<std::size_t>(SideOfLimits(row, column) + 1));
    }
    attribute->IncRef();
    return attribute;
}
