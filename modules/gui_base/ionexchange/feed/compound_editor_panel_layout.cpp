// SPDX-License-Identifier: MIT
// The controls of the compound editor.
#include "core/text_limits.h"
#include "gui_base/input/controls/text_length.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/input/controls/wheel.h"
#include "gui_base/input/validation/double_validator.h"
#include "gui_base/input/validation/integer_validator.h"
#include "gui_base/ionexchange/feed/compound_editor_panel.h"
#include "gui_base/ionexchange/feed/compound_element_listctrl.h"
#include "gui_base/ionexchange/feed/formula_textctrl.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <cmath>
#include <limits>

namespace {

constexpr long kMost = std::numeric_limits<std::int32_t>::max();

wxArrayString Entries(std::initializer_list<const char*> sources)
{
    wxArrayString entries;
    for (const char* source : sources)
        entries.Add(i18n::Translated(source));
    return entries;
}

wxStaticText* AddLabel(wxWindow* parent, wxFlexGridSizer& grid, const wxString& label)
{
    auto* text = new wxStaticText(parent, wxID_ANY, label);
    grid.Add(text, wxSizerFlags().CenterVertical());
    return text;
}

void KeepWheel(wxChoice& choice)
{
    choice.Bind(wxEVT_MOUSEWHEEL,
                [&choice](wxMouseEvent& event) { wheel::ScrollParentUnlessFocused(choice, event); });
}

}  // namespace

void CompoundEditorPanel::CreateControls()
{
    auto* outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(AddHeaderFields(), wxSizerFlags().Expand().Border(wxALL, FromDIP(8)));
    AddListControl(*outer);
    AddButtons(*outer);
    SetValidators();
    SetSizer(outer);
}

wxSizer* CompoundEditorPanel::AddHeaderFields()
{
    auto* columns = new wxBoxSizer(wxHORIZONTAL);
    const wxSize gap = FromDIP(wxSize(8, 4));
    auto* first = new wxFlexGridSizer(2, gap);
    auto* further = new wxFlexGridSizer(2, gap);
    first->AddGrowableCol(1);
    further->AddGrowableCol(1);
    AddFirstFields(*first);
    AddFurtherFields(*further);
    columns->Add(first, wxSizerFlags(1).Border(wxRIGHT, FromDIP(16)));
    columns->Add(further, wxSizerFlags(1));
    return columns;
}

void CompoundEditorPanel::AddFirstFields(wxFlexGridSizer& grid)
{
    m_nameField = AddLabelTextCombo(grid, i18n::Translated("Name"));
    m_categoryField = AddLabelTextCombo(grid, i18n::Translated("Category"));
    AddFormulaField(grid);
    m_valencyField = AddLabelTextCombo(grid, i18n::Translated("Valency"));
    m_pKaField = AddLabelTextCombo(grid, i18n::Translated("pKa"));
    m_acidBaseChoice = AddLabelSelectionBoxCombo(
        grid, i18n::Translated("Acid/Base"),
        Entries({wxTRANSLATE("Neutral"), wxTRANSLATE("Strong acid"), wxTRANSLATE("Weak acid"),
                 wxTRANSLATE("Strong base"), wxTRANSLATE("Weak base")}));
    AddChargeField(grid);
}

void CompoundEditorPanel::AddFurtherFields(wxFlexGridSizer& grid)
{
    m_oxidationField = AddLabelTextCombo(grid, i18n::Translated("Oxidation number"));
    m_molweightField = AddLabelTextCombo(grid, i18n::Translated("Molweight [g/mol]"), true);
    m_oxidationChoice = AddLabelSelectionBoxCombo(grid, i18n::Translated("E-1 Oxidation numbers"), {});
    m_kaField = AddLabelTextCombo(grid, i18n::Translated("Ka"), true);
    m_pKbField = AddLabelTextCombo(grid, i18n::Translated("pKb"), true);
    m_kbField = AddLabelTextCombo(grid, i18n::Translated("Kb"), true);
    m_fractionField =
        AddLabelTextCombo(grid, i18n::Translated("Molweight fraction base element") + " [%]", true);
}

wxTextCtrl* CompoundEditorPanel::AddLabelTextCombo(wxFlexGridSizer& grid, const wxString& label,
                                                   bool readOnly)
{
    AddLabel(this, grid, label);
    auto* field = new TvTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                 readOnly ? wxTE_READONLY : 0);
    accessibility::SetName(*field, label);
    text_length::Limit(*field, text_limits::kName);
    field->SetMinSize(FromDIP(wxSize(140, -1)));
    grid.Add(field, wxSizerFlags().Expand());
    return field;
}

wxChoice* CompoundEditorPanel::AddLabelSelectionBoxCombo(wxFlexGridSizer& grid, const wxString& label,
                                                         const wxArrayString& entries)
{
    AddLabel(this, grid, label);
    auto* choice = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, entries);
    accessibility::SetName(*choice, label);
    KeepWheel(*choice);
    grid.Add(choice, wxSizerFlags().Expand());
    return choice;
}

void CompoundEditorPanel::AddFormulaField(wxFlexGridSizer& grid)
{
    const wxString label = i18n::Translated("Formula");
    AddLabel(this, grid, label);
    m_formulaField = new FormulaTextCtrl(this);
    accessibility::SetName(*m_formulaField, label);
    grid.Add(m_formulaField, wxSizerFlags().Expand());
    grid.AddSpacer(0);
    m_formulaMessage = new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                        wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE);
    const bool dark = wxSystemSettings::GetAppearance().IsUsingDarkBackground();
    m_formulaMessage->SetForegroundColour(dark ? FormulaTextCtrl::FaultColour() : wxColour(0xC0, 0x39, 0x2B));
    grid.Add(m_formulaMessage, wxSizerFlags().Expand());
}

void CompoundEditorPanel::AddChargeField(wxFlexGridSizer& grid)
{
    const wxString label = i18n::Translated("Ionic charge");
    AddLabel(this, grid, label);
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    m_ionKindChoice = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                   Entries({wxTRANSLATE("Cation"), wxTRANSLATE("Anion")}));
    accessibility::SetName(*m_ionKindChoice, label);
    KeepWheel(*m_ionKindChoice);
    m_chargeField = new TvTextCtrl(this, wxID_ANY);
    accessibility::SetName(*m_chargeField, label);
    row->Add(m_ionKindChoice, wxSizerFlags(1).Border(wxRIGHT, FromDIP(4)));
    row->Add(m_chargeField, wxSizerFlags(1));
    grid.Add(row, wxSizerFlags().Expand());
}

void CompoundEditorPanel::AddListControl(wxSizer& sizer)
{
    m_elements = new CompoundElementListCtrl(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(760, 160)));
    sizer.Add(m_elements, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT, FromDIP(8)));
}

void CompoundEditorPanel::AddButtons(wxSizer& sizer)
{
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    m_saveButton = new wxButton(this, wxID_SAVE, i18n::Translated("Save"));
    m_clearButton = new wxButton(this, wxID_CLEAR, i18n::Translated("Clear"));
    row->AddStretchSpacer();
    row->Add(m_saveButton, wxSizerFlags().Border(wxRIGHT, FromDIP(8)));
    row->Add(m_clearButton);
    sizer.Add(row, wxSizerFlags().Expand().Border(wxALL, FromDIP(8)));
}

void CompoundEditorPanel::SetValidators()
{
    const auto integer = [](long* value, long least) {
        return IntegerValidator(value, TvTextCtrlFormat::Fixed, CheckMin | CheckMax | ClampToLimits, least,
                                kMost, 0);
    };
    m_valencyField->SetValidator(integer(&m_valency, 0));
    m_chargeField->SetValidator(integer(&m_charge, 0));
    m_oxidationField->SetValidator(integer(&m_oxidation, -kMost));
    m_pKaField->SetValidator(
        DoubleValidator(&m_pKa, TvTextCtrlFormat::General, 10, 0, 0.0, 0.0, std::nan("")));
}
