// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"
#include "gui_base/input/binding/detail_container_window.h"
#include "gui_base/input/validation/commit.h"
#include "projectbase/details/detail_data.h"

#include <wx/combo.h>
#include <wx/datectrl.h>
#include <wx/dateevt.h>
#include <wx/weakref.h>

#include <string>

/// A date field bound to a date detail; an unknown date is an empty field. Another day is stored at once and
/// told to the parent by a queued tvCHANGE_EVENT; the same day leaves the detail, and its time of day, as it
/// is. The tooltip is translated. The date is written as the program writes all dates (see date_text.h); one
/// typed so, or as locales have it, is understood; another text leaves the date as it is.
class GUI_BASE_EXPORT TvDatePickerCtrl : public wxDatePickerCtrl,
                                         public DetailContainerWindow,
                                         public TextTaker
{
public:
    /// `detail` is not owned and may be null.
    TvDatePickerCtrl(wxWindow* parent, int id, DetailData* detail, const wxPoint& pos = wxDefaultPosition,
                     const wxSize& size = wxDefaultSize, long style = wxDP_DROPDOWN,
                     const wxString& name = wxDatePickerCtrlNameStr);

    ~TvDatePickerCtrl() override;

    void SetTranslatableToolTip(const wxString& tooltip);
    void Localize(const std::string& unitSystem);

    void SetValue(const wxDateTime& date) override;
    void CommitText() override;
    void TransferDetailToWindow() override;
    void UpdateUnit(const std::string&) override {}

private:
    void OnDate(wxDateEvent& event);
    void OnLeft(wxFocusEvent& event);
    void Store(const wxDateTime& date);
    void ShowText();

    DetailData* m_detail;
    /// Null where the toolkit has a field of its own kind, and once it is gone, which may be before this.
    wxWeakRef<wxComboCtrl> m_text;
    wxString m_tooltip;
};
