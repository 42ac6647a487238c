// SPDX-License-Identifier: MIT
#pragma once

/// The list of the compounds that can be added to a feed. Only the rows that are seen are drawn, so that
/// 100,000 compounds are shown at once. Several rows can be selected. The order is that of the names in the
/// language of the texts.

#include "dbinterfaces/db_objects.h"
#include "gui_base/gui_base_export.h"

#include <wx/listctrl.h>

#include <functional>
#include <string>
#include <vector>

class GUI_BASE_EXPORT CompoundList : public wxListView
{
public:
    using Compounds = std::vector<DBObjects::Compound>;

    CompoundList(wxWindow* parent, int id);

    /// Shows other compounds; nothing is selected then.
    void SetCompounds(Compounds compounds);
    const Compounds& GetCompounds() const { return m_compounds; }
    /// Identifiers of the selected compounds in the order of their rows.
    std::vector<int> GetSelectedIds() const;
    int GetId(long row) const { return m_compounds.at(static_cast<std::size_t>(row)).id; }
    /// Called after the user selected other rows, once for each change.
    void SetOnSelection(std::function<void()> handler) { m_onSelection = std::move(handler); }

    void Localize(const std::string& unitSystem);

protected:
    wxString OnGetItemText(long row, long column) const override;

private:
    void FitColumns();
    void QueueSelection(wxListEvent& event);
    /// By names in another language; the same compounds stay selected.
    void SortAgain();

    Compounds m_compounds;
    std::string m_language;  ///< of the present order
    std::function<void()> m_onSelection;
    std::vector<int> m_told;
    bool m_queued = false;
};
