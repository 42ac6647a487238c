// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/feed/compound_editor_panel.h"

#include "gui_base/dialogs/questions.h"
#include "gui_base/input/validation/numeric_validator.h"
#include "gui_base/ionexchange/feed/compound_element_listctrl.h"
#include "gui_base/ionexchange/feed/formula_textctrl.h"
#include "gui_base/support/compound_name.h"
#include "gui_base/support/translation.h"

#include <wx/arrstr.h>
#include <wx/button.h>
#include <wx/choice.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <cstdlib>

wxDEFINE_EVENT(tvCOMPOUND_UPDATE, wxCommandEvent);
wxDEFINE_EVENT(tvCOMPOUND_CLEAR, wxCommandEvent);
wxDEFINE_EVENT(tvCOMPOUND_SAVE, wxCommandEvent);

namespace {

wxString Number(double value, TvTextCtrlFormat format, int precision)
{
    return wxString::FromUTF8(numbertext::Format(value, {.format = format, .precision = precision},
                                                 NumericValidator::LocaleSeparators()));
}

/// What is wrong with a part of a formula; %s is that part.
const char* MessageOf(FormulaFault::Kind kind)
{
    switch (kind) {
        case FormulaFault::Kind::UnknownElement:
            return wxTRANSLATE("\"%s\" is no element");
        case FormulaFault::Kind::Count:
            return wxTRANSLATE("\"%s\" is no count");
        case FormulaFault::Kind::Group:
            return wxTRANSLATE("\"%s\" has no partner or nothing to enclose");
        case FormulaFault::Kind::Charge:
            return wxTRANSLATE("\"%s\": the charge has a field of its own");
        case FormulaFault::Kind::Text:
            break;
    }
    return wxTRANSLATE("\"%s\" cannot be read");
}

std::string Utf8(const wxTextCtrl& field)
{
    return field.GetValue().Trim(true).Trim(false).utf8_string();
}

}  // namespace

CompoundEditorPanel::CompoundEditorPanel(wxWindow* parent, int id, const wxPoint& pos, const wxSize& size,
                                         long style)
    : wxPanel(parent, id, pos, size, style)
{
    CreateControls();
    SetData({});
    BindEvents();
}

void CompoundEditorPanel::BindEvents()
{
    const auto update = [this](wxCommandEvent& event) {
        event.Skip();
        PostUICallbackUpdateEvent();
    };
    for (wxTextCtrl* field : {m_nameField, m_categoryField, static_cast<wxTextCtrl*>(m_formulaField)})
        field->Bind(wxEVT_TEXT, update);
    // The numbers commit when they are left; their key is not to press a default button.
    for (wxTextCtrl* field : {m_valencyField, m_pKaField, m_chargeField, m_oxidationField})
        field->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) { PostUICallbackUpdateEvent(); });
    for (wxChoice* choice : {m_acidBaseChoice, m_ionKindChoice})
        choice->Bind(wxEVT_CHOICE, update);
    m_oxidationChoice->Bind(wxEVT_CHOICE, &CompoundEditorPanel::OnOxidationChoice, this);
    m_elements->Bind(wxEVT_LIST_ITEM_ACTIVATED,
                     [this](wxListEvent& event) { OnElementActivated(event.GetIndex()); });
    m_saveButton->Bind(wxEVT_BUTTON, &CompoundEditorPanel::OnSaveClick, this);
    m_clearButton->Bind(wxEVT_BUTTON, &CompoundEditorPanel::OnClearClick, this);
    Bind(tvCOMPOUND_UPDATE, &CompoundEditorPanel::OnModelUpdate, this);
}

CompoundEditorPanel::Data CompoundEditorPanel::GetData()
{
    ReadFields();
    return {m_model};
}

void CompoundEditorPanel::SetData(const Data& data)
{
    m_model = data.compound;
    ShowFields();
    UpdateDisplay();
}

void CompoundEditorPanel::SetCategories(const std::vector<std::string>& categories)
{
    wxArrayString texts;
    for (const std::string& category : categories)
        texts.Add(wxString::FromUTF8(category));
    m_categoryField->AutoComplete(texts);
}

void CompoundEditorPanel::PostUICallbackUpdateEvent()
{
    wxCommandEvent event(tvCOMPOUND_UPDATE, GetId());
    event.SetEventObject(this);
    wxPostEvent(this, event);
}

void CompoundEditorPanel::OnModelUpdate(wxCommandEvent& event)
{
    event.Skip();
    ReadFields();
    UpdateDisplay();
}

void CompoundEditorPanel::OnSaveClick(wxCommandEvent&)
{
    ReadFields();
    const auto refuse = [this](const char* message, wxWindow& field) {
        dialogs::ShowMessage(this, i18n::Translated(message), i18n::Translated("Error"), wxICON_ERROR);
        field.SetFocus();
    };
    if (m_model.name.empty()) {
        refuse(wxTRANSLATE("Please enter a name"), *m_nameField);
    } else if (m_model.GetFormula().empty()) {
        refuse(wxTRANSLATE("Please enter a formula"), *m_formulaField);
    } else {
        wxCommandEvent save(tvCOMPOUND_SAVE, GetId());
        save.SetEventObject(this);
        wxPostEvent(this, save);
    }
}

void CompoundEditorPanel::OnClearClick(wxCommandEvent&)
{
    wxCommandEvent clear(tvCOMPOUND_CLEAR, GetId());
    clear.SetEventObject(this);
    wxPostEvent(this, clear);
}

void CompoundEditorPanel::OnOxidationChoice(wxCommandEvent&)
{
    long number = 0;
    if (!m_oxidationChoice->GetStringSelection().ToCLong(&number))
        return;
    m_oxidation = number;
    m_oxidationField->GetValidator()->TransferToWindow();
    PostUICallbackUpdateEvent();
}

void CompoundEditorPanel::OnElementActivated(long row)
{
    ReadFields();
    m_model.SetBaseElement(m_elements->GetItem(row).symbol);
    PostUICallbackUpdateEvent();
}

void CompoundEditorPanel::ReadFields()
{
    for (wxTextCtrl* field : {m_valencyField, m_pKaField, m_chargeField, m_oxidationField})
        field->GetValidator()->TransferFromWindow();
    m_model.category = Utf8(*m_categoryField);
    if (const std::string formula = m_formulaField->GetFormula(); formula != m_model.GetFormula())
        m_model.SetFormula(formula);
    // A compound that the user filed under a name of the present language keeps it.
    const std::string name = Utf8(*m_nameField);
    m_model.name = name == m_filedName ? name : i18n::FiledCompoundName(name, m_model.GetFormula());
    m_model.valency = static_cast<std::int32_t>(m_valency);
    m_model.pKa = m_pKa;
    // A kind that the choice does not offer stays as it was stored.
    if (const int kind = m_acidBaseChoice->GetSelection(); kind != wxNOT_FOUND)
        m_model.acidBase = static_cast<AcidBase>(kind);
    m_model.SetIonicCharge(static_cast<std::int32_t>(m_charge));
    m_model.SetIonKind(static_cast<Compound::IonKind>(m_ionKindChoice->GetSelection()));
    m_model.oxidationNrCommon = static_cast<std::int32_t>(m_oxidation);
}

void CompoundEditorPanel::ShowFields()
{
    m_valency = m_model.valency;
    m_pKa = m_model.pKa;
    m_charge = std::labs(m_model.GetIonicCharge());
    m_oxidation = m_model.oxidationNrCommon;
    for (wxTextCtrl* field : {m_valencyField, m_pKaField, m_chargeField, m_oxidationField})
        field->GetValidator()->TransferToWindow();
    m_filedName = m_model.name;
    m_nameField->ChangeValue(i18n::CompoundName(m_model.name, m_model.GetFormula()));
    m_categoryField->ChangeValue(wxString::FromUTF8(m_model.category));
    m_formulaField->ChangeValue(wxString::FromUTF8(m_model.GetFormula()));
    const auto kind = static_cast<int>(m_model.acidBase);
    m_acidBaseChoice->SetSelection(kind >= 0 && kind < kAcidBaseCount ? kind : wxNOT_FOUND);
    m_ionKindChoice->SetSelection(static_cast<int>(m_model.GetIonKind()));
}

void CompoundEditorPanel::UpdateDisplay()
{
    const formula::AcidConstants constants = m_model.GetAcidConstants();
    m_molweightField->ChangeValue(Number(m_model.GetMolweight(), TvTextCtrlFormat::Fixed, 3));
    m_kaField->ChangeValue(Number(constants.ka, TvTextCtrlFormat::Scientific, 3));
    m_pKbField->ChangeValue(Number(constants.pKb, TvTextCtrlFormat::General, 4));
    m_kbField->ChangeValue(Number(constants.kb, TvTextCtrlFormat::Scientific, 3));
    m_fractionField->ChangeValue(Number(m_model.GetBaseElementPercent(), TvTextCtrlFormat::Fixed, 2));
    m_formulaField->ShowFaults(m_model.GetFormulaFaults());
    UpdateFormulaMessage();
    UpdateSelectionBoxes();
    UpdateElementList();
    UpdateButtons();
}

void CompoundEditorPanel::UpdateFormulaMessage()
{
    wxString message;
    if (!m_model.GetFormulaFaults().empty()) {
        const FormulaFault& fault = m_model.GetFormulaFaults().front();
        const std::string part = m_model.GetFormula().substr(fault.position, fault.length);
        message = i18n::Translated(MessageOf(fault.kind));
        message.Replace("%s", wxString::FromUTF8(part));
    }
    if (m_formulaMessage->GetLabelText() != message)
        m_formulaMessage->SetLabelText(message);
}

void CompoundEditorPanel::UpdateSelectionBoxes()
{
    const wxArrayString numbers =
        wxSplit(wxString::FromUTF8(m_model.GetBaseOxidationNumbers()), ' ', wxUniChar('\0'));
    if (m_oxidationChoice->GetStrings() != numbers)
        m_oxidationChoice->Set(numbers);
    int selection = wxNOT_FOUND;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        long number = 0;
        if (numbers[i].ToCLong(&number) && number == m_model.oxidationNrCommon)
            selection = static_cast<int>(i);
    }
    m_oxidationChoice->SetSelection(selection);
}

void CompoundEditorPanel::UpdateElementList()
{
    std::vector<CompoundElement> elements = m_model.GetElements();
    // What is no element has no data; the field says so.
    std::erase_if(elements, [](const CompoundElement& element) { return element.symbol.empty(); });
    for (CompoundElement& element : elements) {
        if (element.symbol == m_model.GetBaseElement())
            element.oxidationNumber = std::to_string(m_model.oxidationNrCommon);
    }
    m_elements->ClearList();
    m_elements->InsertRows(elements);
}

void CompoundEditorPanel::UpdateButtons()
{
    Compound empty;
    empty.id = m_model.id;
    m_clearButton->Enable(!(m_model == empty));
}
