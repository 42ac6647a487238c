// SPDX-License-Identifier: MIT
#pragma once

/// The fields of one compound, what follows from them, and its elements.
///
/// The panel holds the model that it edits and knows no database. Every edit queues tvCOMPOUND_UPDATE on the
/// panel, upon which model and derived fields follow; the buttons queue tvCOMPOUND_CLEAR and
/// tvCOMPOUND_SAVE, which the owner handles. The events climb to the owner.

#include "gui_base/gui_base_export.h"
#include "projectbase/feed/compound.h"

#include <wx/event.h>
#include <wx/panel.h>

#include <vector>

class CompoundElementListCtrl;
class FormulaTextCtrl;
class wxButton;
class wxChoice;
class wxGridBagSizer;
class wxStaticText;
class wxTextCtrl;

wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvCOMPOUND_UPDATE, wxCommandEvent);
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvCOMPOUND_CLEAR, wxCommandEvent);
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvCOMPOUND_SAVE, wxCommandEvent);

class GUI_BASE_EXPORT CompoundEditorPanel : public wxPanel
{
public:
    struct Data
    {
        Compound compound;
    };

    explicit CompoundEditorPanel(wxWindow* parent, int id = wxID_ANY, const wxPoint& pos = wxDefaultPosition,
                                 const wxSize& size = wxDefaultSize,
                                 long style = wxTAB_TRAVERSAL | wxBORDER_NONE);

    /// The compound as the fields state it now, also what was typed last.
    Data GetData();
    void SetData(const Data& data);
    /// What the category field offers to complete.
    void SetCategories(const std::vector<std::string>& categories);

    /// Tells of an edit, upon which the model follows the fields, and what is derived the model.
    void PostUICallbackUpdateEvent();
    void OnModelUpdate(wxCommandEvent& event);
    void UpdateDisplay();
    void UpdateSelectionBoxes();
    void UpdateElementList();
    void UpdateButtons();
    /// Tells the owner to save; the user is told first what is missing.
    void OnSaveClick(wxCommandEvent& event);

private:
    void CreateControls();
    /// Labels and fields below each other in a grid, and the row of the next ones.
    struct FieldColumn
    {
        wxGridBagSizer& grid;
        int first;
        int row = 0;
    };

    wxSizer* AddHeaderFields();
    void AddFirstFields(FieldColumn& column);
    void AddFurtherFields(FieldColumn& column);
    /// A label and a text field.
    wxTextCtrl* AddLabelTextCombo(FieldColumn& column, const wxString& label, long style = 0);
    /// A label and a choice.
    wxChoice* AddLabelSelectionBoxCombo(FieldColumn& column, const wxString& label,
                                        const wxArrayString& entries);
    void AddFormulaField(FieldColumn& column);
    void AddChargeField(FieldColumn& column);
    void AddLabel(FieldColumn& column, const wxString& label);
    /// In the row of the column, which ends with them.
    void AddCells(FieldColumn& column, const wxString& label, wxWindow& field);
    void AddListControl(wxSizer& sizer);
    void AddButtons(wxSizer& sizer);
    void BindEvents();
    void SetValidators();

    void OnClearClick(wxCommandEvent& event);
    void OnOxidationChoice(wxCommandEvent& event);
    void OnElementActivated(long row);

    void ReadFields();
    void ShowFields();
    void UpdateFormulaMessage();

    Compound m_model;
    std::string m_filedName;  ///< of the compound that the fields were filled with
    // What the numeric fields are bound to.
    long m_valency = 0;
    long m_charge = 0;
    long m_oxidation = 0;
    double m_pKa = 0.0;

    wxTextCtrl* m_nameField = nullptr;
    wxTextCtrl* m_categoryField = nullptr;
    FormulaTextCtrl* m_formulaField = nullptr;
    wxTextCtrl* m_valencyField = nullptr;
    wxTextCtrl* m_pKaField = nullptr;
    wxChoice* m_acidBaseChoice = nullptr;
    wxChoice* m_ionKindChoice = nullptr;
    wxTextCtrl* m_chargeField = nullptr;
    wxTextCtrl* m_oxidationField = nullptr;
    wxTextCtrl* m_molweightField = nullptr;
    wxChoice* m_oxidationChoice = nullptr;
    wxTextCtrl* m_kaField = nullptr;
    wxTextCtrl* m_pKbField = nullptr;
    wxTextCtrl* m_kbField = nullptr;
    wxTextCtrl* m_fractionField = nullptr;
    wxStaticText* m_formulaMessage = nullptr;
    CompoundElementListCtrl* m_elements = nullptr;
    wxButton* m_saveButton = nullptr;
    wxButton* m_clearButton = nullptr;
};
