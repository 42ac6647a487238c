// SPDX-License-Identifier: MIT
#include "gui_base/dialogs/searched_list_dialog.h"

#include "gui_base/input/controls/tv_searchctrl.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/button_label.h"
#include "gui_base/support/help_file_provider.h"
#include "gui_base/support/translation.h"

#include <wx/sizer.h>

SearchedListDialog::SearchedListDialog(wxWindow* parent, const wxString& title, const char* helpPage)
    : wxDialog(parent, wxID_ANY, title, wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      m_helpPage(helpPage)
{
    Bind(wxEVT_CHAR_HOOK, &SearchedListDialog::OnCharHook, this);
    SetEscapeId(wxID_CANCEL);
}

TvSearchControl* SearchedListDialog::MakeSearch(const char* hint, std::size_t mostLetters)
{
    m_search = new TvSearchControl(this, wxID_ANY);
    m_search->SetTranslatableHint(hint);
    m_search->SetMaxLength(mostLetters);
    accessibility::SetName(*m_search, i18n::Translated("Search"));
    m_search->Bind(wxEVT_TEXT, [this](wxCommandEvent&) {
        m_list->SetSearch(m_search->GetValue());
        DoShowFound();
    });
    return m_search;
}

RowList* SearchedListDialog::MakeList(const std::vector<RowList::Column>& columns, int growing,
                                      const wxString& name, const wxSize& size)
{
    m_list = new RowList(this, columns, growing);
    m_list->SetMinSize(FromDIP(size));
    accessibility::SetName(*m_list, name);
    return m_list;
}

wxButton* SearchedListDialog::MakeHelpButton()
{
    wxButton* const help = button_label::NewButton(this, wxID_HELP, i18n::Translated("&Help"));
    help->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { ShowHelp(); });
    return help;
}

void SearchedListDialog::Finish(wxSizer& content)
{
    SetSizerAndFit(&content);
    m_search->SetFocus();
    CentreOnParent();
}

void SearchedListDialog::ShowHelp() const
{
    if (m_help != nullptr)
        m_help->DisplayHelpSection(m_helpPage);
}

void SearchedListDialog::OnCharHook(wxKeyEvent& event)
{
    if (event.GetKeyCode() == WXK_DOWN && m_search->HasFocus())
        m_list->SetFocus();
    else if (event.GetKeyCode() == WXK_F1)
        ShowHelp();
    else
        event.Skip();
}
