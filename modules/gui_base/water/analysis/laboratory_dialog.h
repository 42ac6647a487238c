// SPDX-License-Identifier: MIT
#pragma once

/// The preview of a laboratory's file: what each of its parameters would become in the water. Nothing changes
/// before the caller stores what was chosen.

#include "gui_base/gui_base_export.h"
#include "projectbase/water/laboratory_import.h"

#include <wx/checkbox.h>
#include <wx/dialog.h>
#include <wx/listctrl.h>
#include <wx/spinctrl.h>

class GUI_BASE_EXPORT LaboratoryDialog : public wxDialog
{
public:
    /// `file` and `liquid` outlive the dialog.
    LaboratoryDialog(wxWindow* parent, const laboratory::File& file, const DetailList& liquid);

    std::size_t GetSample() const;
    /// Whether what the file does not state is to be cleared.
    bool ClearsOthers() const { return m_clear->GetValue(); }
    const std::vector<water::TakenValue>& GetValues() const { return m_values; }
    const wxListView& GetList() const { return *m_list; }

private:
    wxString FormText() const;
    void ShowSample();
    wxString Remark(std::size_t parameter, bool isTaken) const;

    const laboratory::File& m_file;
    const DetailList& m_liquid;
    std::vector<water::TakenValue> m_values;
    wxSpinCtrl* m_sample = nullptr;
    wxListView* m_list;
    wxCheckBox* m_clear;
};
