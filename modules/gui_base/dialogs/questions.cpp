// SPDX-License-Identifier: MIT
#include "gui_base/dialogs/questions.h"

#include "gui_base/support/translation.h"

#include <wx/app.h>
#include <wx/msgdlg.h>
#include <wx/richmsgdlg.h>

namespace dialogs {

int AskYesNo(wxWindow* parent, const wxString& question, const wxString& title, long icon,
             const wxString& explanation)
{
    wxMessageDialog dialog(parent, question, title, wxYES_NO | wxNO_DEFAULT | wxCENTRE | icon);
    dialog.SetYesNoLabels(i18n::Translated("&Yes"), i18n::Translated("&No"));
    if (!explanation.empty())
        dialog.SetExtendedMessage(explanation);
    return dialog.ShowModal();
}

int AskChoice(wxWindow* parent, const wxString& question, const wxString& title, const wxString& first,
              const wxString& second, const wxString& explanation)
{
    wxMessageDialog dialog(parent, question, title, wxYES_NO | wxCANCEL | wxCENTRE | wxICON_QUESTION);
    dialog.SetYesNoCancelLabels(first, second, i18n::Translated("&Cancel"));
    dialog.SetExtendedMessage(explanation);
    const int answer = dialog.ShowModal();
    return answer == wxID_YES || answer == wxID_NO ? answer : wxID_CANCEL;
}

bool ConfirmReplacing(wxWindow* parent, const wxString& file, const wxString& title)
{
    wxMessageDialog dialog(
        parent, wxString::Format(i18n::Translated("The file %s exists already. Replace it?"), file), title,
        wxYES_NO | wxNO_DEFAULT | wxCENTRE | wxICON_QUESTION);
    dialog.SetYesNoLabels(i18n::Translated("&Replace"), i18n::Translated("&Cancel"));
    return dialog.ShowModal() == wxID_YES;
}

void ShowMessage(wxWindow* parent, const wxString& message, const wxString& title, long icon,
                 const wxString& explanation)
{
    wxMessageDialog dialog(parent, message, title, wxOK | wxCENTRE | icon);
    dialog.SetOKLabel(i18n::Translated("OK"));
    if (!explanation.empty())
        dialog.SetExtendedMessage(explanation);
    dialog.ShowModal();
}

void ShowMessage(wxWindow* parent, const UserMessage& message, const wxString& title, long icon)
{
    if (message.details.empty()) {
        ShowMessage(parent, message.text, title, icon);
        return;
    }
    wxRichMessageDialog dialog(parent, message.text, title, wxOK | wxCENTRE | icon);
    dialog.SetOKLabel(i18n::Translated("OK"));
    // The toolkit finds the labels of the fold by these texts in our catalogue.
    static_cast<void>(wxTRANSLATE("&See details"));
    static_cast<void>(wxTRANSLATE("&Hide details"));
    dialog.ShowDetailedText(message.details);
    dialog.ShowModal();
}

wxWindow* DefaultParent()
{
    if (wxWindow* active = wxGetActiveWindow())
        return wxGetTopLevelParent(active);
    return wxTheApp != nullptr ? wxTheApp->GetTopWindow() : nullptr;
}

}  // namespace dialogs
