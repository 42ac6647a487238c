// SPDX-License-Identifier: MIT
#pragma once

/// What the nodes and rows of the water library stand for.

#include <wx/listbase.h>
#include <wx/treebase.h>

class WaterLibTreeItemData : public wxTreeItemData
{
public:
    static constexpr int kCategory = 1;
    static constexpr int kCountry = 3;

    WaterLibTreeItemData(int id, int level, bool user) : m_identifier(id), m_level(level), m_user(user) {}

    /// Of the category or country in its database.
    int GetIdentifier() const { return m_identifier; }
    int GetLevel() const { return m_level; }
    /// Whether the node comes from the user's database.
    bool IsUserEntry() const { return m_user; }
    /// How many waters a country held when the tree was filled.

private:
    int m_identifier;
    int m_level;
    bool m_user;
};

/// A row of the list of waters. Its item data is the identifier of the water.
class WaterLibListViewItem : public wxListItem
{
public:
    static constexpr int kColumns = 4;
    static constexpr int kSource = 2;
    static constexpr int kFolder = 3;

    /// `folder` is the category that the water stands in, where waters of several are listed.
    WaterLibListViewItem(int id, bool user, const wxString& country, const wxString& place,
                         const wxString& source, const wxString& folder = {})
        : m_user(user), m_texts{country, place, source, folder}
    {
        SetData(static_cast<long>(id));
    }

    int GetIdentifier() const { return static_cast<int>(GetData()); }
    bool IsUserEntry() const { return m_user; }
    const wxString& GetCountry() const { return m_texts[0]; }
    const wxString& GetPlace() const { return m_texts[1]; }
    const wxString& GetSource() const { return m_texts[kSource]; }
    const wxString& GetFolder() const { return m_texts[kFolder]; }
    /// The text of a column; empty beyond the last one.
    const wxString& GetColumnText(long column) const
    {
        static const wxString empty;
        return column >= 0 && column < kColumns ? m_texts[column] : empty;
    }
    /// What a search looks at, in lower case; made when it is asked for first.
    const wxString& GetSearchText() const
    {
        if (m_searchText.empty())
            m_searchText =
                (GetCountry() + "\n" + GetPlace() + "\n" + GetSource() + "\n" + GetFolder()).Lower();
        return m_searchText;
    }

private:
    bool m_user;
    wxString m_texts[kColumns];
    mutable wxString m_searchText;
};
