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
#include "gui_base/support/button_label.h"
#include "gui_base/support/translation.h"

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/gbsizer.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <cmath>
#include <limits>

namespace {

constexpr long kResult = wxTE_RIGHT | wxTE_READONLY;
constexpr long kMost = std::numeric_limits<std::int32_t>::max();

wxArrayString Entries(std::initializer_list<const char*> sources)
{
    wxArrayString entries;
    for (const char* source : sources)
        entries.Add(i18n::Translated(source));
    return entries;
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
    // One grid, so that the rows of both sides stand at one height.
    auto* grid = new wxGridBagSizer(FromDIP(4), FromDIP(8));
    FieldColumn first{*grid, 0};
    AddFirstFields(first);
    FieldColumn further{*grid, 2};
    AddFurtherFields(further);
    for (int column : {1, 3})
        grid->AddGrowableCol(column, 1);
    return grid;
}

void CompoundEditorPanel::AddLabel(FieldColumn& column, const wxString& label)
{
    // The further side stands apart from the first one.
    const int apart = column.first > 0 ? FromDIP(16) : 0;
    column.grid.Add(new wxStaticText(this, wxID_ANY, label), wxGBPosition(column.row, column.first),
                    wxDefaultSpan, wxALIGN_CENTRE_VERTICAL | wxLEFT, apart);
}

void CompoundEditorPanel::AddCells(FieldColumn& column, const wxString& label, wxWindow& field)
{
    AddLabel(column, label);
    column.grid.Add(&field, wxGBPosition(column.row++, column.first + 1), wxDefaultSpan, wxEXPAND);
}

void CompoundEditorPanel::AddFirstFields(FieldColumn& column)
{
    m_nameField = AddLabelTextCombo(column, i18n::Translated("Name"));
    m_categoryField = AddLabelTextCombo(column, i18n::Translated("Category"));
    AddFormulaField(column);
    m_valencyField = AddLabelTextCombo(column, i18n::Translated("Valency"), wxTE_RIGHT);
    m_pKaField = AddLabelTextCombo(column, i18n::Translated("pKa"), wxTE_RIGHT);
    m_acidBaseChoice = AddLabelSelectionBoxCombo(
        column, i18n::Translated("Acid/Base"),
        Entries({wxTRANSLATE("Neutral"), wxTRANSLATE("Strong acid"), wxTRANSLATE("Weak acid"),
                 wxTRANSLATE("Strong base"), wxTRANSLATE("Weak base")}));
    AddChargeField(column);
}

void CompoundEditorPanel::AddFurtherFields(FieldColumn& column)
{
    m_oxidationField = AddLabelTextCombo(column, i18n::Translated("Oxidation number"), wxTE_RIGHT);
    m_molweightField = AddLabelTextCombo(column, i18n::Translated("Molweight [g/mol]"), kResult);
    m_oxidationChoice = AddLabelSelectionBoxCombo(column, i18n::Translated("E-1 Oxidation numbers"), {});
    // Beside what is wrong with the formula.
    ++column.row;
    m_kaField = AddLabelTextCombo(column, i18n::Translated("Ka"), kResult);
    m_pKbField = AddLabelTextCombo(column, i18n::Translated("pKb"), kResult);
    m_kbField = AddLabelTextCombo(column, i18n::Translated("Kb"), kResult);
    m_fractionField =
        AddLabelTextCombo(column, i18n::Translated("Molweight fraction base element") + " [%]", kResult);
}

wxTextCtrl* CompoundEditorPanel::AddLabelTextCombo(FieldColumn& column, const wxString& label, long style)
{
    auto* field = new TvTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, style);
    accessibility::SetName(*field, label);
    text_length::Limit(*field, text_limits::kName);
    field->SetMinSize(wxSize(FromDIP(140), field->GetMinSize().y));
    AddCells(column, label, *field);
    return field;
}

wxChoice* CompoundEditorPanel::AddLabelSelectionBoxCombo(FieldColumn& column, const wxString& label,
                                                         const wxArrayString& entries)
{
    auto* choice = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, entries);
    accessibility::SetName(*choice, label);
    KeepWheel(*choice);
    AddCells(column, label, *choice);
    return choice;
}

void CompoundEditorPanel::AddFormulaField(FieldColumn& column)
{
    const wxString label = i18n::Translated("Formula");
    m_formulaField = new FormulaTextCtrl(this);
    accessibility::SetName(*m_formulaField, label);
    AddCells(column, label, *m_formulaField);
    m_formulaMessage = new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                        wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE);
    const bool dark = wxSystemSettings::GetAppearance().IsUsingDarkBackground();
    m_formulaMessage->SetForegroundColour(dark ? FormulaTextCtrl::FaultColour() : wxColour(0xC0, 0x39, 0x2B));
    column.grid.Add(m_formulaMessage, wxGBPosition(column.row++, column.first + 1), wxDefaultSpan, wxEXPAND);
}

void CompoundEditorPanel::AddChargeField(FieldColumn& column)
{
    const wxString label = i18n::Translated("Ionic charge");
    AddLabel(column, label);
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    m_ionKindChoice = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                   Entries({wxTRANSLATE("Cation"), wxTRANSLATE("Anion")}));
    accessibility::SetName(*m_ionKindChoice, label);
    KeepWheel(*m_ionKindChoice);
    m_chargeField = new TvTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, wxTE_RIGHT);
    accessibility::SetName(*m_chargeField, label);
    row->Add(m_ionKindChoice, wxSizerFlags(1).Border(wxRIGHT, FromDIP(4)));
    row->Add(m_chargeField, wxSizerFlags(1));
    column.grid.Add(row, wxGBPosition(column.row++, column.first + 1), wxDefaultSpan, wxEXPAND);
}

void CompoundEditorPanel::AddListControl(wxSizer& sizer)
{
    m_elements = new CompoundElementListCtrl(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(760, 160)));
    sizer.Add(m_elements, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT, FromDIP(8)));
}

void CompoundEditorPanel::AddButtons(wxSizer& sizer)
{
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    m_saveButton = button_label::NewButton(this, wxID_SAVE, i18n::Translated("Save"));
    m_clearButton = button_label::NewButton(this, wxID_CLEAR, i18n::Translated("Clear"));
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
