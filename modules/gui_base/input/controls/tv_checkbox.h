// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"
#include "gui_base/input/binding/detail_container_window.h"
#include "projectbase/details/detail_data.h"

#include <wx/checkbox.h>

/// A check box with a translated label, optionally bound to a boolean detail. A click stores the new state in
/// the detail and passes on, so that the panel can recalculate.
class GUI_BASE_EXPORT TvCheckBox : public wxCheckBox, public DetailContainerWindow
{
public:
    /// `detail` is not owned and may be null.
    TvCheckBox(wxWindow* parent, int id, const wxString& label, const wxPoint& pos = wxDefaultPosition,
               const wxSize& size = wxDefaultSize, long style = 0,
               const wxValidator& validator = wxDefaultValidator,
               const wxString& name = wxASCII_STR(wxCheckBoxNameStr), DetailData* detail = nullptr,
               const wxString& suffix = {});

    /// Stores `value` in the detail; nothing without one.
    void SetDetailValue(bool value);
    void SetValueDetail(DetailData* detail) { m_detail = detail; }

    /// Takes the source text of the label and shows its translation.
    void SetLabel(const wxString& label) override;
    void TransferDetailToWindow() override;
    void UpdateUnit(const std::string&) override {}

    void Localize(const std::string& unitSystem);
    void Localize();
    void SetFontWeight(wxFontWeight weight);

protected:
    /// Binds the handler of clicks; runs once, in the constructor.
    virtual void DoBindEvents();
    void OnClicked(wxCommandEvent& event);

private:
    wxString m_label;
    DetailData* m_detail;
    wxString m_suffix;
};
