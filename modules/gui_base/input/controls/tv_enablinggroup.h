// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/checkbox.h>
#include <wx/weakref.h>
#include <wx/window.h>

#include <vector>

/// Windows that are enabled together, either by the program or by a check box. The group is no window and
/// owns none; a window that was destroyed is skipped, and so is one that was added twice.
class GUI_BASE_EXPORT TvEnablingGroup
{
public:
    TvEnablingGroup() = default;
    ~TvEnablingGroup();
    TvEnablingGroup(const TvEnablingGroup&) = delete;
    TvEnablingGroup& operator=(const TvEnablingGroup&) = delete;

    /// The window takes the state of the group at once; null is ignored.
    void Add(wxWindow* window);
    void Enable(bool enable);
    bool IsEnabled() const { return m_isEnabled; }

    /// From now on the group is enabled just while the box is checked; null ends that.
    void Follow(wxCheckBox* checkBox);
    /// Takes the state of the box that the program set, which sends no event.
    void Update();

private:
    void OnChecked(wxCommandEvent& event);

    std::vector<wxWeakRef<wxWindow>> m_windows;
    wxWeakRef<wxCheckBox> m_checkBox;
    bool m_isEnabled = true;
};
