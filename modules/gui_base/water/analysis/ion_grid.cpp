// SPDX-License-Identifier: MIT
#include "gui_base/water/analysis/ion_grid.h"

#include "core/ion_table.h"
#include "core/ion_units.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/validation/numeric_validator.h"
#include "gui_base/input/validation/validator.h"
#include "gui_base/support/text_font.h"

namespace wateranalysis {
namespace {

constexpr int kColumns = 5;
/// In DIP: of a number of six digits.
constexpr int kWidth = 66;
constexpr int kGap = 4;
/// Digits with which sea water and brines still stand in plain notation.
constexpr int kMeqlDigits = 5;
constexpr int kMglDigits = 6;
constexpr int kHeadHeight = 28;

const wxString kMeql("meq/l");
const wxString kMgl("mg/l");

wxSizerFlags Cell()
{
    return wxSizerFlags().CentreVertical();
}

}  // namespace

wxSizer* IonGrid::Create(wxWindow* parent, const wxString& title, std::span<const IonRow> rows,
                         const std::vector<wxString>& labels, std::span<const TotalRow> totals,
                         wxWindow* headTool)
{
    auto* grid = new AlignedGrid(kColumns, parent->FromDIP(wxSize(2 * kGap, kGap / 2)), m_group);
    AddHeads(parent, *grid, title, headTool);
    for (std::size_t i = 0; i < rows.size(); ++i)
        AddRow(parent, *grid, rows[i], i < labels.size() ? labels[i] : wxString::FromUTF8(rows[i].label));
    for (const TotalRow& total : totals)
        AddTotal(parent, *grid, total);
    return grid;
}

void IonGrid::AddHeads(wxWindow* parent, wxFlexGridSizer& grid, const wxString& title, wxWindow* headTool)
{
    const auto bold = [](wxStaticText* text) {
        text_font::Set(*text, text->GetFont().Bold());
        return text;
    };
    grid.Add(bold(m_fields.AddLabel(parent, title)), Cell());
    grid.Add(m_fields.AddLabel(parent, "Original"), Cell().Right());
    auto* unitHead = new wxBoxSizer(wxHORIZONTAL);
    // The same height with and without a tool, so that the rows of both grids stand in line.
    unitHead->SetMinSize(parent->FromDIP(wxSize(-1, kHeadHeight)));
    unitHead->Add(m_fields.AddLabel(parent, "Unit"), Cell());
    if (headTool != nullptr) {
        unitHead->AddStretchSpacer();
        unitHead->Add(headTool, Cell());
    }
    grid.Add(unitHead, wxSizerFlags().Expand());
    grid.Add(m_fields.AddLabel(parent, kMeql), Cell().Right());
    grid.Add(m_fields.AddLabel(parent, kMgl), Cell().Right());
}

void IonGrid::AddRow(wxWindow* parent, wxFlexGridSizer& grid, const IonRow& ion, const wxString& label)
{
    const std::string prefix = std::string("liquid/") + ion.key;
    Row row{.ion = &ion};
    if (ion.kind == IonRowKind::Named) {
        row.name = m_fields.AddText(parent, prefix + ".name", label);
        grid.Add(row.name, Cell());
    } else {
        grid.Add(m_fields.AddLabel(parent, label), Cell());
    }

    row.typed = m_fields.AddInput(
        parent, {.key = prefix + ".orig",
                 .label = label,
                 .unitKey = prefix + ".unit",
                 .validatorFlags = CheckMax | ZeroAsEmpty | ShowPreciseValue | DetectionLimits,
                 .precision = 6,
                 .width = kWidth,
                 .inIsoUnits = true});
    grid.Add(row.typed, Cell().Expand());

    row.unit = m_fields.AddUnitChoice(
        parent, prefix + ".unit", ion.kind == IonRowKind::Equivalent ? m_units.equivalent : m_units.ordinary,
        label);
    const ions::Ion* known = ions::FindIon(ion.key);
    m_fields.SetUnitLimits(prefix + ".orig",
                           {.max = m_fields.Details().At(prefix + ".meql").GetMaxValue(),
                            .unit = std::string(ions::kMeqPerLitre),
                            .equivalentWeight = known != nullptr ? known->equivalentWeight : 1.0});
    grid.Add(row.unit, Cell().Expand());
    for (const wxString& result : {kMeql, kMgl}) {
        const std::string key = prefix + (result == kMeql ? ".meql" : ".mgl");
        grid.Add(m_fields.AddResult(parent, {.key = key,
                                             .label = label,
                                             .unit = result,
                                             .validatorFlags = ZeroAsEmpty,
                                             .precision = result == kMeql ? kMeqlDigits : kMglDigits,
                                             .width = kWidth,
                                             .inIsoUnits = true}),
                 Cell().Expand());
    }
    m_rows.push_back(row);
}

void IonGrid::AddTotal(wxWindow* parent, wxFlexGridSizer& grid, const TotalRow& total)
{
    const wxString label = wxString::FromUTF8(total.label);
    wxStaticText* text = m_fields.AddLabel(parent, label);
    text_font::Set(*text, text->GetFont().Bold());
    grid.Add(text, Cell());
    grid.AddSpacer(0);
    grid.AddSpacer(0);
    grid.Add(m_fields.AddResult(parent, {.key = total.key,
                                         .label = label,
                                         .unit = kMeql,
                                         .precision = kMeqlDigits,
                                         .width = kWidth,
                                         .inIsoUnits = true}),
             Cell().Expand());
    grid.AddSpacer(0);
}

const IonGrid::Row* IonGrid::FindNamed(const wxObject* nameField) const
{
    for (const Row& row : m_rows) {
        if (row.name != nullptr && row.name == nameField)
            return &row;
    }
    return nullptr;
}

wxString IonGrid::StoredName(const Row& row) const
{
    return m_fields.Details().At(std::string("liquid/") + row.ion->key + ".name").GetStringValue();
}

bool IonGrid::HasNumberForName(const Row& row) const
{
    const wxString name = row.name->GetValue();
    return NumericValidator::ParseNumber(name).has_value() && name != StoredName(row);
}

bool IonGrid::TakeBackNumber(const Row& row)
{
    if (!HasNumberForName(row))
        return false;
    row.name->ChangeValue(StoredName(row));
    return true;
}

void IonGrid::EnableRow(const Row& row, bool enable)
{
    if (row.name != nullptr) {
        row.name->Enable(enable);
        wxString name = row.name->GetValue();
        enable = enable && !name.Trim().empty() && !HasNumberForName(row);
    }
    if (row.ion->kind == IonRowKind::Equivalent)
        enable = enable && m_fields.Details().At("liquid/balance.ph").GetBoolValue();
    row.typed->Enable(enable);
    row.unit->Enable(enable);
}

void IonGrid::EnableRows(bool enable)
{
    for (const Row& row : m_rows)
        EnableRow(row, enable);
}

int IonGrid::FocusedRow() const
{
    const wxWindow* focused = wxWindow::FindFocus();
    for (std::size_t i = 0; focused != nullptr && i < m_rows.size(); ++i) {
        const Row& row = m_rows[i];
        if (focused == row.typed || focused == row.unit || focused == row.name)
            return static_cast<int>(i);
    }
    return -1;
}

}  // namespace wateranalysis
