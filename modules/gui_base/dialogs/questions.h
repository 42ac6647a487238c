// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"
#include "gui_base/messages/user_message.h"

#include <wx/string.h>
#include <wx/window.h>

namespace dialogs {

/// Asks a question that is answered by yes or no, "no" by default. The texts are shown as they are. Returns
/// wxID_YES or wxID_NO, or another identifier when the question was closed without an answer.
GUI_BASE_EXPORT int AskYesNo(wxWindow* parent, const wxString& question, const wxString& title, long icon,
                             const wxString& explanation = {});

/// Asks for one of two ways, the first by default, or neither: wxID_YES, wxID_NO or wxID_CANCEL.
GUI_BASE_EXPORT int AskChoice(wxWindow* parent, const wxString& question, const wxString& title,
                              const wxString& first, const wxString& second, const wxString& explanation);

/// Whether a file that exists, as it is shown, may be replaced; "no" by default.
GUI_BASE_EXPORT bool ConfirmReplacing(wxWindow* parent, const wxString& file, const wxString& title);

/// Shows a message with an OK button.
GUI_BASE_EXPORT void ShowMessage(wxWindow* parent, const wxString& message, const wxString& title, long icon,
                                 const wxString& explanation = {});

/// The same with the technical text below, folded up.
GUI_BASE_EXPORT void ShowMessage(wxWindow* parent, const UserMessage& message, const wxString& title,
                                 long icon);

/// What a message belongs to when nobody says so: the active window, or the main one.
GUI_BASE_EXPORT wxWindow* DefaultParent();

}  // namespace dialogs
