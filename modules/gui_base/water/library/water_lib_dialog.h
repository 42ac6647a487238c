// SPDX-License-Identifier: MIT
#pragma once

/// The library of waters: lets the user pick a stored analysis as feed water, and stores the current analysis
/// as a water of the user.
///
/// Supplied waters come from the master database and cannot be removed; the user's own come from the user
/// database. The dialog changes no project: `SelectLiquidData` copies the picked water into a liquid when it
/// has closed. A database that cannot be reached is told in a bar at the top of the dialog and to the logger;
/// the dialog stays usable. GUI thread only.

#include "dbinterfaces/db_objects.h"
#include "gui_base/gui_base_export.h"
#include "projectbase/project/logger.h"
#include "projectbase/water/liquid_data.h"

#include <wx/dialog.h>
#include <wx/listctrl.h>
#include <wx/treectrl.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

class TvSearchControl;
class TVHelpFileProvider;
class WaterLibDetails;
class WaterLibListView;
class WaterLibListViewItem;
class NothingFound;
class WaterLibTree;
class wxButton;
class wxCheckBox;
class wxInfoBar;
class wxSplitterWindow;
class wxStaticText;

namespace water_library {
class Arrangement;
}

class GUI_BASE_EXPORT WaterLibDialog : public wxDialog
{
public:
    /// The logger is not owned and outlives the dialog.
    explicit WaterLibDialog(Logger& logger);
    WaterLibDialog(Logger& logger, wxWindow* parent, int id = wxID_ANY,
                   const wxPoint& pos = wxDefaultPosition);
    ~WaterLibDialog() override;

    /// The guide that F1 opens; not owned, may be null.
    void SetHelp(const TVHelpFileProvider* help) { m_help = help; }

    /// Shows the dialog. When the user accepted and a water is selected, its values are copied into `liquid`.
    /// Returns whether the user accepted.
    bool SelectLiquidData(LiquidData* liquid);

    /// Stores the liquid as a water of the user, asking before one of the same country, place and source is
    /// overwritten. False when a value is missing, the user declined or the database failed; the cause of the
    /// latter goes into `problem`, and the database is then as it was.
    static bool SaveLiquidData(LiquidData* liquid, std::string* problem = nullptr);
    /// Stores it without asking, as a whole or not at all.
    static bool SaveLiquid(LiquidData* liquid, std::string* problem = nullptr);
    /// Whether the liquid states what the library files it under; otherwise the user is told what is missing.
    static bool LiquidIsSaveable(LiquidData* liquid);
    /// Whether the library holds a water of the liquid's country, place and source.
    static bool CheckDuplicate(LiquidData* liquid);
    /// Identifier of the user's country of that name, which is made when there is none; -1 if that fails.
    static int SaveCountry(const wxString& name);
    /// Identifier of the first such water of the user, which is made when there is none; -1 if that fails.
    static int SaveWater(long countryId, const wxString& place, const wxString& source);
    static void DisplaySaveErrors(bool placeMissing, bool sourceMissing);
    /// Source text that names the value of a detail.
    static wxString BuildDetailLabel(wxString key);

    void InitDataTree();
    /// One item per water, in the order given. Throws std::length_error for more than the list can hold.
    void FillWaterList(const std::vector<DBObjects::WaterLibWater>& waters);
    /// Applies the stored values to the selected liquid and lists them.
    void FillDetailList(const std::vector<DBObjects::WaterLibAttr>& values);
    void ClearDetails();
    void SetGeneralInformationLabels(const wxString& country, const wxString& place, const wxString& source,
                                     const wxString& type, const wxString& date, const wxString& comments);
    void SortWaterListbyColumn(int column);
    bool ListItemIsUserEntry(const wxListItem& item) const;
    bool TreeNodeisUserEntry(const wxTreeItemId& node) const;
    bool ShowDeleteConfirmation(const wxString& explanation = {});

    WaterLibListView& GetWaterList() const { return *m_waters; }

    /// What the controls of the dialog tell it.
    void OnTreeItemSelected(wxTreeEvent& event);
    void OnListItemSelected(wxListEvent& event);
    void OnColumnClick(wxListEvent& event);
    void OnKeyDownList(wxListEvent& event);
    void OnKeyDownTree(wxTreeEvent& event);
    void OnListItemRClicked(wxListEvent& event);
    void OnTreeItemRClicked(wxTreeEvent& event);
    void OnListItemDelete(wxCommandEvent& event);
    void OnTreeItemDelete(wxCommandEvent& event);
    void OnUseSelectedClick(wxCommandEvent& event);

private:
    void CreateControls();
    wxWindow* CreateWaterPanel(wxWindow* parent);
    wxSizer* CreateButtonRow();
    void BindEvents();
    void FillWaterListView(std::vector<std::unique_ptr<WaterLibListViewItem>> items);
    /// Whether a search goes through all folders.
    bool SearchesAll() const;
    /// Reads and shows the waters of all folders while they are searched, else those of the selected nodes.
    void ShowWaters();
    /// Shows what the search leaves of them.
    void ApplySearch();
    void ShowWaterCount();
    /// Names the list for screen readers, with the water that is selected in it.
    void NameList(const WaterLibListViewItem* selected);
    /// Runs what asks a database; false, with a message, when that fails.
    bool Guarded(const std::function<void()>& action);
    void PopupRemove(wxWindow& window, const wxPoint& position,
                     void (WaterLibDialog::*handler)(wxCommandEvent&));
    void CloseWith(int code);

    void ClearSearch();
    /// From the search to what it found; stays in it when that is nothing.
    void GoToFirstWater();
    void OnCharHook(wxKeyEvent& event);

    Logger& m_logger;
    const TVHelpFileProvider* m_help = nullptr;
    std::unique_ptr<water_library::Arrangement> m_arrangement;
    wxTreeItemId m_menuNode;
    bool m_accepted = false;
    bool m_showsAll = false;

    wxInfoBar* m_problem = nullptr;
    wxSplitterWindow* m_vertical = nullptr;
    wxSplitterWindow* m_horizontal = nullptr;
    WaterLibTree* m_tree = nullptr;
    TvSearchControl* m_search = nullptr;
    wxCheckBox* m_thisFolder = nullptr;
    WaterLibListView* m_waters = nullptr;
    NothingFound* m_nothing = nullptr;
    WaterLibDetails* m_details = nullptr;
    wxStaticText* m_count = nullptr;
    wxButton* m_use = nullptr;
};
