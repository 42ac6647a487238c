// SPDX-License-Identifier: MIT
#pragma once

/// The view of the feed composition: the list of compounds to choose from, their concentrations in feed and
/// effluent, the medium and the totals.
///
/// It knows neither project nor databases: what the user does it tells by the events of feed_events.h, and
/// what is to be seen it is given. Lists of pairs hold keys and source labels. GUI thread only.

#include "gui_base/input/panel/tv_modulepanelbase.h"
#include "gui_base/ionexchange/feed/compound_list.h"
#include "gui_base/ionexchange/feed/duplicate_resolution_dialog.h"
#include "gui_base/ionexchange/feed/feed_events.h"
#include "projectbase/feed/compound.h"
#include "projectbase/feed/feed_composition.h"

#include <optional>
#include <utility>
#include <vector>

class EffluentCompositionGrid;
class FeedCompositionGrid;
class FeedCompositionGridBase;
class FeedMediumBox;
class FeedTotalBox;
class TvButton;
class TvCheckBox;
class TvNotebook;
class TvSearchControl;
class TvStaticBoxSizer;
class TvStaticText;
class TvTextCtrl;
class tvChoice;
class wxBoxSizer;
class wxSizer;
class wxSizer;
class wxStaticText;

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
    void SelectCategory(const wxString& category);
    Data GetData() const;
    /// Source label and key of the chosen filter; key 0 stands for all.
    wxString GetSelectedElement() const;
    long GetSelectedElementID() const;
    wxString GetSelectedCategory() const;
    long GetSelectedCategoryID() const;
    wxString GetElementSearchString() const;
    /// Clears the search text, without an event.
    void CancelTextSearch();
    void ChooseTemperatureUnit(TemperatureUnit unit);

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

    CompoundList& GetCompoundList() const { return *m_list; }
    FeedCompositionGrid& GetFeedGrid() const { return *m_feedGrid; }
    EffluentCompositionGrid& GetEffluentGrid() const { return *m_effluentGrid; }
    FeedMediumBox& GetMediumBox() const { return *m_medium; }
    FeedTotalBox& GetFeedTotals() const { return *m_feedTotals; }
    FeedTotalBox& GetEffluentTotals() const { return *m_effluentTotals; }
    TvNotebook& GetTabs() const { return *m_tabs; }
    TvSearchControl& GetSearch() const { return *m_search; }
    tvChoice& GetElementChoice() const { return *m_element; }
    tvChoice& GetCategoryChoice() const { return *m_category; }
    TvButton& GetButton(wxEventType event) const;
    TvCheckBox& GetAdjustPhBox() const { return *m_adjustPh; }
    TvCheckBox& GetUseEffluentBox() const { return *m_useEffluent; }
    TvTextCtrl& GetTotalPhField() const { return *m_totalPh; }
    wxString GetDetailText(std::size_t row) const;

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
    void DoLocalize() override;
    void DoConnectTvTextCtrlsToStatusbar() override;
    void DoSendVisualizeMessageEvent() override {}

private:
    struct Button
    {
        wxEventType event;
        TvButton* button;
    };

    void CreateControls();
    void AddTopSizer();
    void AddStatBoxTop();
    void AddFilterRow(wxWindow* box);
    void AddCompoundList();
    void AddButtonRow(wxWindow* box);
    void AddCompoundInfoBox();
    void AddMediumBox();
    void AddTableNotebook();
    void AddFeedTabPanel();
    void AddFeedGridCtrl(wxWindow* page);
    void AddFeedTotalBox(wxWindow* page);
    void AddEffluentTabPanel();
    void AddEffluentGridCtrl(wxWindow* page);
    void AddEffluentTotalBox(wxWindow* page);
    void AddPhRow(wxWindow* box, wxSizer& sizer);
    void ArrangeTop();
    void NameControls();

    void Post(wxEventType type) { PostFeedEvent(FeedEvent(type)); }
    void PostFeedEvent(FeedEvent event);
    void PostCompoundAddedEvent(std::vector<int> compounds);
    void PostCompoundSelectedEvent(int compound);
    void PostCompoundEditEvent(int compound);
    void PostCompoundDeleteEvent(std::vector<int> compounds);
    void PostElementChoiceEvent() { Post(tvFEED_ELEMENT_CHOSEN); }
    void PostCategoryChoiceEvent() { Post(tvFEED_CATEGORY_CHOSEN); }
    void PostCompositionChangedEvent(wxEventType type, std::size_t row);
    void BindGrid(FeedCompositionGridBase& grid, wxEventType edited);
    void EnableEditAndDeleteCompoundButtons(bool edit, bool remove);
    void UpdateTotalPhInputMode();

    void OnCompoundAddedToComposition(wxListEvent& event);
    void OnCompoundSelected();
    void OnEditCompoundClick();
    void OnDeleteCompoundClick();
    void OnChoice(wxCommandEvent& event);
    void OnAdjustPhChecked(wxCommandEvent& event);
    void OnTotalPhEnter(wxCommandEvent& event);
    void OnUseEffluentChecked(wxCommandEvent& event);
    void OnFeedMediumChanged() { Post(tvFEED_MEDIUM_CHANGED); }
    void OnListContextMenu(wxListEvent& event);
    void OnListKey(wxListEvent& event);

    FeedComposition m_composition;  ///< what is shown
    bool m_closing = false;
    double m_phValue = 0.0;  ///< behind the field of the total pH

    wxBoxSizer* m_outer = nullptr;
    wxBoxSizer* m_top = nullptr;
    wxBoxSizer* m_side = nullptr;
    wxBoxSizer* m_phRow = nullptr;
    TvStaticBoxSizer* m_selectionBox = nullptr;
    tvChoice* m_element = nullptr;
    tvChoice* m_category = nullptr;
    TvSearchControl* m_search = nullptr;
    CompoundList* m_list = nullptr;
    std::vector<Button> m_buttons;
    TvStaticText* m_noSelection = nullptr;
    std::vector<std::pair<TvStaticText*, wxStaticText*>> m_details;
    FeedMediumBox* m_medium = nullptr;
    TvNotebook* m_tabs = nullptr;
    FeedCompositionGrid* m_feedGrid = nullptr;
    EffluentCompositionGrid* m_effluentGrid = nullptr;
    TvCheckBox* m_adjustPh = nullptr;
    TvTextCtrl* m_totalPh = nullptr;
    TvStaticText* m_adjustmentLabel = nullptr;
    TvTextCtrl* m_adjustment = nullptr;
    TvCheckBox* m_useEffluent = nullptr;
    FeedTotalBox* m_feedTotals = nullptr;
    FeedTotalBox* m_effluentTotals = nullptr;
    TvTextCtrl* m_effluentPh = nullptr;
};
