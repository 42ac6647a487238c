// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_notebook.h"

#include "gui_base/support/translation.h"

bool TvNotebook::InsertPage(std::size_t index, wxWindow* page, const wxString& title, bool select,
                            int imageId)
{
    if (!wxNotebook::InsertPage(index, page, i18n::Translated(title), select, imageId))
        return false;
    m_titles.insert(m_titles.begin() + static_cast<std::ptrdiff_t>(index), title);
    return true;
}

bool TvNotebook::SetPageText(std::size_t index, const wxString& title)
{
    if (!wxNotebook::SetPageText(index, i18n::Translated(title)))
        return false;
    m_titles.at(index) = title;
    return true;
}

bool TvNotebook::DeleteAllPages()
{
    m_titles.clear();
    return wxNotebook::DeleteAllPages();
}

wxWindow* TvNotebook::DoRemovePage(std::size_t index)
{
    wxWindow* page = wxNotebook::DoRemovePage(index);
    if (page != nullptr && index < m_titles.size())
        m_titles.erase(m_titles.begin() + static_cast<std::ptrdiff_t>(index));
    return page;
}

void TvNotebook::Localize(const std::string&)
{
    for (std::size_t i = 0; i < m_titles.size(); ++i) {
        const wxString text = i18n::Translated(m_titles[i]);
        if (GetPageText(i) != text)
            wxNotebook::SetPageText(i, text);
    }
}
