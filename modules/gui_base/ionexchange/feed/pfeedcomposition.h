// SPDX-License-Identifier: MIT
#pragma once

/// The view of the feed composition: the list of compounds to choose from, their concentrations in feed and
/// effluent, the medium and the totals.
///
/// Its parts are the compound browser, the info box of the selected compound, the medium box, and a tab each
/// for feed and effluent. It knows neither project nor databases: what the user does it tells by the events
/// of feed_events.h, and what is to be seen it is given. Lists of pairs hold keys and source labels. GUI
/// thread only.

#include "gui_base/input/panel/tv_modulepanelbase.h"
#include "gui_base/ionexchange/feed/compound_list.h"
#include "gui_base/ionexchange/feed/duplicate_resolution_dialog.h"
#include "gui_base/ionexchange/feed/feed_events.h"
#include "projectbase/feed/compound.h"
#include "projectbase/feed/feed_composition.h"

#include <optional>
#include <utility>
#include <vector>

class CompoundBrowser;
class CompoundInfoBox;
class EffluentTab;
class FeedCompositionGrid;
class FeedMediumBox;
class FeedTab;
class TvNotebook;
class wxBoxSizer;

class GUI_BASE_EXPORT FeedCompositionPanel : public ModulePanelBase
{
public:
    using Selection = std::vector<std::pair<long, wxString>>;

    /// What the user set beside the grids.
    struct Data
    {
        FeedMedium::Data medium;  ///< its temperature in the unit in which it was typed
        bool adjustPh = false;
        double totalPh = 0.0;  ///< NaN while none is stated
        bool useEffluent = false;
    };

    FeedCompositionPanel(wxWindow* parent, int id, wxStatusBar* statusBar,
                         const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                         long style = wxTAB_TRAVERSAL | wxHSCROLL | wxVSCROLL);
    ~FeedCompositionPanel() override;

    void SetCategorySelection(const Selection& items);
    void SetElementSelection(const Selection& items);
    void SetMediumSelection(const Selection& items);
    void SetTemperatureUnitSelection(const Selection& items);
    /// Shows other compounds in the list; nothing is selected then.
    void SetCompoundSelection(CompoundList::Compounds compounds);
    void SetComposition(const FeedComposition& composition);
    /// Scrolls to an entry and puts the cursor of the feed grid on its first concentration.
    void ShowEntry(std::size_t row);
    void SetMedium(const FeedMedium::Data& medium);
    void SetTotalCompositionResults(const FeedComposition& composition);
    /// `molweight` in g/mol; NaN where the formula cannot be read.
    void ShowCompoundDetails(const DBObjects::Compound& compound, double molweight);
    void ShowCompoundDetailFields(bool show);
    /// Clears the details and disables what needs a selected compound.
    void UnSelectedCompound();
    /// Chooses an element of the filter, without an event; one that is not offered changes nothing.
    void SelectElement(const wxString& element);
    Data GetData() const;
    /// Source label and key of the chosen filter; key 0 stands for all.
    wxString GetSelectedElement() const;
    long GetSelectedElementID() const;
    wxString GetSelectedCategory() const;
    long GetSelectedCategoryID() const;
    wxString GetElementSearchString() const;
    /// Shows all that has a unit in that unit system from now on.
    void ShowUnitSystem(const std::string& unitSystem);
    /// Clears the search text, without an event.
    void CancelTextSearch();

    void ShowErrorMessage(const wxString& text) const;
    void ShowInfoMessage(const wxString& text) const;
    void ShowMessageBox(const wxString& title, const wxString& text);
    /// The compound as the user saved it; nothing when the editor was closed.
    std::optional<Compound> ShowCompoundEditor(const Compound& compound,
                                               const std::vector<std::string>& categories);
    /// The chosen file, or an empty path.
    wxString ShowImportFileDialog();
    wxString ShowExportFileDialog();
    /// Indices of the chosen labels, in their order; nothing when the user cancelled.
    std::optional<std::vector<int>> ShowImportCompoundDialog(const std::vector<wxString>& labels);
    std::optional<std::vector<int>> ShowExportCompoundDialog(const std::vector<wxString>& labels);
    DuplicateResolutionResult ShowDuplicateResolutionDialog(const std::vector<DuplicateCompound>& duplicates);
    /// Tells the host that the module changed the project.
    void SendTvChangeEvent() { SendChangeEvent(); }

    void SetStatusBar(wxStatusBar* statusBar) override;
    bool FocusDetail(const DetailAddress& address) override;

    CompoundList& GetCompoundList() const;

protected:
    long GetPanelProjectStatus() override { return 0; }
    void DoResetPanelStatus() override {}
    void DoResetMessages() override {}
    void DoCreateControls() override { CreateControls(); }
    void DoSetTransferDetails() override {}
    void DoSetValidators() override {}
    void DoBindEvents() override;
    void DoPrepare() override;
    void DoUpdateUnits() override {}
    std::string GetCurrentDisplayUnitSystem() const override { return m_unitSystem; }
    void DoLocalize() override;
    void DoConnectTvTextCtrlsToStatusbar() override;
    void DoSendVisualizeMessageEvent() override {}

private:
    void CreateControls();
    void AddTopSizer();
    void AddStatBoxTop();
    void AddCompoundInfoBox();
    void AddMediumBox();
    void AddTableNotebook();
    void AddFeedTabPanel();
    void AddEffluentTabPanel();
    void DoArrange(int width) override;

    /// To the controller alone, which has bound itself to this panel.
    void PostFeedEvent(FeedEvent event);
    void Post(wxEventType type) { PostFeedEvent(FeedEvent(type)); }
    void OnCompoundSelected(std::size_t selected);
    void OnShow(wxShowEvent& event);
    void OnFeedMediumChanged() { Post(tvFEED_MEDIUM_CHANGED); }

    FeedComposition m_composition;  ///< what is shown
    std::string m_unitSystem = "iso";
    bool m_closing = false;

    wxBoxSizer* m_outer = nullptr;
    wxBoxSizer* m_top = nullptr;
    wxBoxSizer* m_side = nullptr;
    CompoundBrowser* m_browser = nullptr;
    CompoundInfoBox* m_info = nullptr;
    FeedMediumBox* m_medium = nullptr;
    TvNotebook* m_tabs = nullptr;
    FeedTab* m_feed = nullptr;
    EffluentTab* m_effluent = nullptr;
};
