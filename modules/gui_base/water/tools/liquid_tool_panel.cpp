// SPDX-License-Identifier: MIT
#include "gui_base/water/tools/liquid_tool_panel.h"

#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/controls/tv_unitlabel.h"
#include "gui_base/input/validation/validator.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"

#include <algorithm>
#include <limits>

namespace {

constexpr int kFieldWidth = 90;
constexpr int kGap = 4;

}  // namespace

LiquidToolPanel::LiquidToolPanel(Project* project, int liquid, wxWindow* parent, int id, const wxPoint& pos,
                                 const wxSize& size, long style, const wxString& name)
    : ModulePanelBase(project, parent, id, pos, size, style, name),
      m_liquid(liquid),
      m_cell(wxSizerFlags().CenterVertical())
{}

DetailList& LiquidToolPanel::GetDetails() const
{
    return *GetProject()->GetLiquid(static_cast<std::size_t>(m_liquid)).GetDetails();
}

DetailData* LiquidToolPanel::GetLiquidDetail(const wxString& key) const
{
    return &GetDetails().At(key.utf8_string());
}

wxTextCtrl* LiquidToolPanel::FindField(const wxString& key) const
{
    const auto found = std::find_if(m_fields.begin(), m_fields.end(),
                                    [&key](const auto& field) { return field.first == key; });
    return found == m_fields.end() ? nullptr : found->second;
}

void LiquidToolPanel::CreateForm()
{
    m_form = new wxFlexGridSizer(3, FromDIP(wxSize(2 * kGap, kGap)));
    auto* outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(m_form, wxSizerFlags().Border(wxALL, FromDIP(3 * kGap)));
    SetSizer(outer);
}

void LiquidToolPanel::AddLabel(const wxString& label)
{
    m_form->Add(AddLocalizable(new TvStaticText(this, wxID_ANY, label, wxString())), m_cell);
}

TvValidatedDoubleTextCtrl* LiquidToolPanel::AddField(const wxString& label, const wxString& key,
                                                     ValidatedDoubleTextCtrlConfig config)
{
    config.parent = this;
    config.size = FromDIP(wxSize(kFieldWidth, -1));
    config.detail = GetLiquidDetail(key);
    auto* field = AddLocalizable(new TvValidatedDoubleTextCtrl(config));
    accessibility::SetName(*field, i18n::Translated(label));
    AddToDetailContainerWindows(field);
    m_form->Add(field, wxSizerFlags().Expand());
    m_fields.emplace_back(key, field);
    return field;
}

TvValidatedDoubleTextCtrl* LiquidToolPanel::AddInputField(const wxString& label, const wxString& key,
                                                          double min, double max)
{
    auto* field = AddField(label, key,
                           {.style = wxTE_RIGHT,
                            .minValue = min,
                            .maxValue = max,
                            .undefValue = std::numeric_limits<double>::quiet_NaN(),
                            .precision = 4,
                            .validatorFlags = CheckMin | CheckMax});
    // A commit is stored by the field itself, which tells only of a changed value: recalculating an unchanged
    // one would be idle work. The event ends here, as it would press the default button of a dialog.
    field->Bind(wxEVT_TEXT_ENTER, [field](wxCommandEvent&) { field->TransferDataFromWindow(); });
    m_edited.push_back(field->GetId());
    return field;
}

TvValidatedDoubleTextCtrl* LiquidToolPanel::AddInputCombinationControl(const wxString& label,
                                                                       const wxString& key, double min,
                                                                       double max)
{
    AddLabel(label);
    auto* field = AddInputField(label, key, min, max);
    m_form->AddSpacer(0);
    return field;
}

InputCombinationUnitChoice* LiquidToolPanel::AddInputCombinationUnitControl(
    const wxString& label, const wxString& key, const wxString& unitKey, double min, double max,
    const std::vector<wxString>& units)
{
    std::vector<std::pair<long, wxString>> items;
    for (const wxString& unit : units)
        items.emplace_back(static_cast<long>(items.size()), unit);
    m_combinations.push_back(std::make_unique<InputCombinationUnitChoice>(
        this, wxID_ANY, label, items, GetLiquidDetail(key), GetLiquidDetail(unitKey), m_form, min, max, 4,
        TvTextCtrlFormat::General, CheckMin | CheckMax, FromDIP(wxSize(kFieldWidth, -1)), wxNullColour,
        wxTE_RIGHT, wxNOT_FOUND, wxASCII_STR(wxTextCtrlNameStr), m_cell, m_cell, m_cell));
    InputCombinationUnitChoice* row = m_combinations.back().get();
    AddLocalizable(row);
    AddToDetailContainerWindows(row);
    m_edited.push_back(row->GetControlId());
    m_fields.emplace_back(key, row->GetTextCtrl());
    return row;
}

TvValidatedDoubleTextCtrl* LiquidToolPanel::AddDoubleOutputCombinationControl(const wxString& label,
                                                                              const wxString& key,
                                                                              int precision)
{
    AddLabel(label);
    auto* field = AddField(
        label, key, {.style = wxTE_RIGHT | wxTE_READONLY, .precision = precision, .validatorFlags = 0});
    const std::string& unit = field->GetDetail()->GetUnit();
    if (unit.empty())
        m_form->AddSpacer(0);
    else
        m_form->Add(AddLocalizable(new TvUnitLabel(this, wxString::FromUTF8(unit), true, true)), m_cell);
    return field;
}

void LiquidToolPanel::DoBindEvents()
{
    for (const int id : m_edited)
        BindControlToOnFieldUpdate(tvCHANGE_EVENT, id, wxID_ANY);
}

void LiquidToolPanel::DoUpdateValues()
{
    GetProject()->CalculateLiquid(static_cast<std::size_t>(m_liquid));
}
