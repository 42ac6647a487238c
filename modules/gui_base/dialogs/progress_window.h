// SPDX-License-Identifier: MIT
#pragma once

/// Long work before the user's eyes: how far it is, and a button to cancel it. GUI thread.

#include "core/work_watch.h"
#include "gui_base/gui_base_export.h"

#include <wx/string.h>
#include <wx/window.h>

#include <chrono>
#include <functional>
#include <memory>

class wxProgressDialog;

namespace dialogs {

/// Work that takes longer than a moment is shown; shorter work passes without a window.
inline constexpr std::chrono::milliseconds kProgressDelay{500};

/// A window with the share of the work that is done, as soon as the delay is over.
class GUI_BASE_EXPORT ProgressWindow
{
public:
    /// The texts are shown as they are; `parent` may be null.
    ProgressWindow(wxWindow* parent, const wxString& title, const wxString& text,
                   std::chrono::milliseconds delay = kProgressDelay);
    ~ProgressWindow();

    /// Works off what is pending for the window. False once the user cancelled.
    bool Update(double done);

private:
    wxWindow* m_parent;
    wxString m_title;
    wxString m_text;
    std::chrono::steady_clock::time_point m_showAt;
    std::unique_ptr<wxProgressDialog> m_dialog;
};

/// Does the work on a thread of its own, while the progress window tells of it. Returns whether it came to
/// its end: not after the user cancelled it. What the work throws is thrown here. The work touches nothing
/// of the window's thread; when this returns, it has ended.
GUI_BASE_EXPORT bool RunWithProgress(ProgressWindow& progress,
                                     const std::function<void(const WorkWatch&)>& work);

}  // namespace dialogs
