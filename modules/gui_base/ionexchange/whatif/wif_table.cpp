// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/whatif/wif_table.h"

#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/input/validation/number_cells.h"
#include "gui_base/input/validation/numeric_validator.h"
#include "gui_base/support/translation.h"
#include "projectbase/details/detail_display.h"
#include "projectbase/units/unit_system_manager.h"

#include <wx/settings.h>
#include <wx/translation.h>

#include <array>
#include <cmath>

namespace {

constexpr int kDigits = 6;
const std::array kColumnLabels{wxTRANSLATE("Name"), wxTRANSLATE("Found value"), wxTRANSLATE("Unit"),
                               wxTRANSLATE("Name"), wxTRANSLATE("Enter value"), wxTRANSLATE("Unit")};

/// Pale enough for a dark text, in every theme.
wxColour FailedColour()
{
    return {255, 110, 100};
}

}  // namespace

WifTable::WifTable(std::vector<WifPair> rows, const Project& project) : m_project(&project)
{
    for (WifPair& points : rows) {
        if (points.first.detail != nullptr && points.second.detail != nullptr)
            m_rows.push_back({std::move(points)});
    }
    TakeColours();
}

WifTable::~WifTable()
{
    ReleaseAttributes();
}

void WifTable::ShowProject(const Project& shown, Project& project)
{
    std::vector<Row> rows;
    for (Row& row : m_rows) {
        const auto move = [&](WifDataPoint& point) {
            const auto address = shown.AddressOf(*point.detail);
            point.detail = address ? project.FindDetail(*address) : nullptr;
            return point.detail != nullptr;
        };
        if (move(row.points.first) && move(row.points.second))
            rows.push_back(std::move(row));
    }
    m_rows = std::move(rows);
    m_project = &project;
}

const WifDataPoint& WifTable::PointOf(int row, int column) const
{
    const WifPair& points = GetRow(row);
    return SideOf(column) == Side::First ? points.first : points.second;
}

DetailData* WifTable::DetailOf(int row, int column) const
{
    const bool isThere = row >= 0 && row < static_cast<int>(m_rows.size());
    return isThere && IsValueColumn(column) ? PointOf(row, column).detail : nullptr;
}

bool WifTable::IsEntered(int row, int column) const
{
    return DetailOf(row, column) != nullptr && SideOf(column) != GetFoundSide(row);
}

wxString WifTable::GetValue(int row, int column)
{
    if (row < 0 || row >= GetNumberRows())
        return {};
    const WifDataPoint& point = PointOf(row, column);
    if (column == kFirstName || column == kSecondName)
        return point.name;
    if (column == kFirstUnit || column == kSecondUnit)
        return point.unit;
    if (point.detail->GetType() == DetailType::Double)
        return wxString::FromUTF8(
            numbertext::Format(GetValueAsDouble(row, column),
                               {.format = TvTextCtrlFormat::General, .precision = kDigits, .plain = true},
                               NumericValidator::LocaleSeparators()));
    return point.detail->GetStringValue();
}

void WifTable::SetValue(int row, int column, const wxString& text)
{
    DetailData* detail = DetailOf(row, column);
    if (!IsEntered(row, column))
        return;
    const bool isNumber = detail->GetType() == DetailType::Double || detail->GetType() == DetailType::Long;
    if (!isNumber)
        detail->SetValueFromString(text);
    else if (const auto value = cells::ParseNumber(*this, column, text))
        Enter(row, *detail, *value);
}

void WifTable::Enter(int row, DetailData& detail, double displayed)
{
    const double value =
        UnitSystemManager::ToISO(detail.GetUnit(), m_project->GetUnitSystemDisplay(), displayed);
    if (m_onEntered)
        m_onEntered(row, value);
    else if (detail.GetType() == DetailType::Long)
        detail.SetValue(std::lround(value));
    else
        detail.SetValue(value);
}

wxString WifTable::GetTypeName(int row, int column)
{
    return DetailOf(row, column) != nullptr ? wxString::FromUTF8(PointOf(row, column).type)
                                            : wxString(wxGRID_VALUE_STRING);
}

bool WifTable::CanGetValueAs(int row, int column, const wxString& type)
{
    const wxString own = GetTypeName(row, column);
    return type == own || (own == wxGRID_VALUE_FLOAT && type == wxGRID_VALUE_NUMBER);
}

bool WifTable::CanSetValueAs(int row, int column, const wxString& type)
{
    return type == GetTypeName(row, column);
}

double WifTable::GetValueAsDouble(int row, int column)
{
    const DetailData* detail = DetailOf(row, column);
    return detail == nullptr ? std::numeric_limits<double>::quiet_NaN()
                             : DisplayFromDetail().GetValue(*detail, m_project->GetUnitSystemDisplay());
}

long WifTable::GetValueAsLong(int row, int column)
{
    const DetailData* detail = DetailOf(row, column);
    if (detail == nullptr)
        return 0;
    if (detail->GetType() != DetailType::Double)
        return detail->GetLongValue();
    const double value = GetValueAsDouble(row, column);
    // What is not known, or too large for one, has no whole number.
    constexpr double kMost = 9e18;
    return std::abs(value) < kMost ? std::lround(value) : 0;
}

bool WifTable::GetValueAsBool(int row, int column)
{
    const DetailData* detail = DetailOf(row, column);
    return detail != nullptr && detail->GetBoolValue();
}

void WifTable::SetValueAsDouble(int row, int column, double value)
{
    if (IsEntered(row, column))
        Enter(row, *DetailOf(row, column), value);
}

void WifTable::SetValueAsLong(int row, int column, long value)
{
    SetValueAsDouble(row, column, static_cast<double>(value));
}

void WifTable::SetValueAsBool(int row, int column, bool value)
{
    if (IsEntered(row, column))
        DetailOf(row, column)->SetValue(value);
}

wxString WifTable::GetColLabelValue(int column)
{
    return i18n::Translated(kColumnLabels.at(static_cast<std::size_t>(column)));
}

wxGridCellAttr* WifTable::NewAttribute(const wxColour& background, bool isNumber, bool isInput) const
{
    auto* attribute = cells::NewAttribute(
        background,
        background == FailedColour() ? *wxBLACK : wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT),
        !isInput, isNumber ? wxALIGN_RIGHT : wxALIGN_LEFT);
    if (isNumber) {
        // Numbers are shown and typed as in every field, not as the toolkit would.
        attribute->SetRenderer(new wxGridCellStringRenderer);
        attribute->SetEditor(new wxGridCellTextEditor);
    }
    return attribute;
}

void WifTable::TakeColours()
{
    ReleaseAttributes();
    for (const bool failed : {false, true}) {
        for (const bool isNumber : {false, true}) {
            for (const bool isInput : {false, true}) {
                const wxColour normal = isInput ? TvTextCtrl::EditableColour() : TvTextCtrl::ReadOnlyColour();
                m_attributes[failed][isNumber][isInput] =
                    NewAttribute(failed ? FailedColour() : normal, isNumber, isInput);
            }
        }
    }
}

void WifTable::ReleaseAttributes()
{
    for (auto& byNumber : m_attributes) {
        for (auto& byInput : byNumber) {
            for (wxGridCellAttr*& attribute : byInput) {
                if (attribute != nullptr)
                    attribute->DecRef();
                attribute = nullptr;
            }
        }
    }
}

wxGridCellAttr* WifTable::GetAttr(int row, int column, wxGridCellAttr::wxAttrKind)
{
    if (row < 0 || row >= GetNumberRows())
        return nullptr;
    const wxString type = GetTypeName(row, column);
    const bool isNumber = type == wxGRID_VALUE_FLOAT || type == wxGRID_VALUE_NUMBER;
    wxGridCellAttr* attribute = m_attributes[HasFailed(row)][isNumber][IsEntered(row, column)];
    attribute->IncRef();
    return attribute;
}
