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
#include <wx/stattext.h>

class GUI_BASE_EXPORT LaboratoryDialog : public wxDialog
{
public:
    /// `file` and `liquid` outlive the dialog, which begins with that reading of values below a limit of
    /// detection.
    LaboratoryDialog(wxWindow* parent, const laboratory::File& file, const DetailList& liquid,
                     laboratory::LimitReading limits);

    std::size_t GetSample() const;
    /// Whether what the file does not state is to be cleared.
    bool ClearsOthers() const { return m_clear->GetValue(); }
    laboratory::LimitReading GetLimitReading() const { return m_reading; }
    const std::vector<water::TakenValue>& GetValues() const { return m_values; }
    const wxListView& GetList() const { return *m_list; }

private:
    wxString FormText() const;
    void AddSampleRow(wxSizer& outer);
    void AddList(wxSizer& outer);
    /// Only for a file that has such values.
    void AddLimitRow(wxSizer& outer);
    void ShowSample();
    void ShowRow(std::size_t parameter, const water::TakenValue* taken);
    /// `taken` is null for what the water does not take.
    wxString Remark(std::size_t parameter, const water::TakenValue* taken) const;

    const laboratory::File& m_file;
    const DetailList& m_liquid;
    std::vector<water::TakenValue> m_values;
    laboratory::LimitReading m_reading;
    wxSpinCtrl* m_sample = nullptr;
    wxStaticText* m_sampleName = nullptr;
    wxListView* m_list = nullptr;
    wxCheckBox* m_clear = nullptr;
};
