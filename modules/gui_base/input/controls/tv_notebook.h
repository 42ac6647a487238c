// SPDX-License-Identifier: MIT
#pragma once

/// A notebook whose tab titles follow the language: they are kept as source texts and shown translated.

#include "gui_base/gui_base_export.h"

#include <wx/notebook.h>

#include <string>
#include <vector>

class GUI_BASE_EXPORT TvNotebook : public wxNotebook
{
public:
    explicit TvNotebook(wxWindow* parent, int id = wxID_ANY, const wxPoint& pos = wxDefaultPosition,
                        const wxSize& size = wxDefaultSize, long style = 0,
                        const wxString& name = wxASCII_STR(wxNotebookNameStr))
        : wxNotebook(parent, id, pos, size, style, name)
    {}

    /// `title` is a source text, also for AddPage and SetPageText.
    bool InsertPage(std::size_t index, wxWindow* page, const wxString& title, bool select = false,
                    int imageId = NO_IMAGE) override;
    bool SetPageText(std::size_t index, const wxString& title) override;
    bool DeleteAllPages() override;

    void Localize(const std::string& unitSystem);

protected:
    wxWindow* DoRemovePage(std::size_t index) override;

private:
    std::vector<wxString> m_titles;
};
