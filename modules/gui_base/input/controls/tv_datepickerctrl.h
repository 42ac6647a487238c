// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"
#include "gui_base/input/binding/detail_container_window.h"
#include "projectbase/details/detail_data.h"

#include <wx/datectrl.h>
#include <wx/dateevt.h>

#include <string>

/// A date field bound to a date detail; an unknown date is an empty field. Another day is stored at once and
/// told to the parent by a queued tvCHANGE_EVENT; the same day leaves the detail, and its time of day, as it
/// is. The tooltip is translated; the date is written as the user's locale has it.
class GUI_BASE_EXPORT TvDatePickerCtrl : public wxDatePickerCtrl, public DetailContainerWindow
{
public:
    /// `detail` is not owned and may be null.
    TvDatePickerCtrl(wxWindow* parent, int id, DetailData* detail, const wxPoint& pos = wxDefaultPosition,
                     const wxSize& size = wxDefaultSize, long style = wxDP_DROPDOWN,
                     const wxString& name = wxDatePickerCtrlNameStr);

    void SetTranslatableToolTip(const wxString& tooltip);
    void Localize(const std::string& unitSystem);

    void TransferDetailToWindow() override;
    void UpdateUnit(const std::string&) override {}

private:
    void OnDate(wxDateEvent& event);

    DetailData* m_detail;
    wxString m_tooltip;
};
