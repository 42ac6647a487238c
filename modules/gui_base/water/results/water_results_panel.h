// SPDX-License-Identifier: MIT
#pragma once

/// What a water means, beside its page: the verdict on its balance, what follows from its analysis in tiles,
/// what may precipitate from it, and advice whose cards open the user guide. It follows its project by itself
/// and shows again only what changed. Narrow, it is one column of tiles; wide, a strip. GUI thread only.

#include "gui_base/gui_base_export.h"
#include "gui_base/report/report_page_source.h"
#include "projectbase/project/project_changes.h"

#include <wx/panel.h>
#include <wx/scrolwin.h>

#include <functional>
#include <vector>

class LiquidData;
class Project;
class TvButton;
class wxBoxSizer;
class wxFlexGridSizer;
class wxStaticText;

namespace advice {
struct Evaluation;
}

namespace wateranalysis {

class ResultCard;
struct CardContent;
struct ResultTile;

class GUI_BASE_EXPORT WaterResultsPanel : public wxScrolled<wxPanel>, private ProjectObserver
{
public:
    /// Leads to where a value is typed or shown.
    using Lead = std::function<void(const DetailAddress& address)>;

    /// Shows a section of the user guide, "page.html#anchor".
    using ShowHelp = std::function<void(const std::string& section)>;

    explicit WaterResultsPanel(wxWindow* parent, Lead lead, ShowHelp showHelp = nullptr);
    ~WaterResultsPanel() override;

    /// Shows a water of the project; nothing for null or a water that is not there, also when it goes later.
    /// The project outlives the panel, or is taken from it before it goes.
    void SetWater(Project* project, DetailOwner water);
    /// Shows everything in the present language, unit system and number format.
    /// Whether the user may balance the water here: not where nobody sees what is changed.
    void AllowBalancing(bool allow);
    void Localize();

    const ResultCard& GetBadge() const { return *m_badge; }
    const std::vector<ResultCard*>& GetTiles() const { return m_tiles; }
    const ResultCard& GetMinerals() const { return *m_minerals; }
    /// Those of the present advice, warnings first.
    std::vector<ResultCard*> GetAdvice() const;
    TvButton& GetBalanceButton() { return *m_balance; }
    /// How often a card was drawn anew since the panel was made.
    std::size_t GetChangedCards() const { return m_changed; }

private:
    void OnProjectChanged(const ProjectChanges& changes) override;
    const LiquidData* FindWater() const;
    void ShowAll();
    void ShowName(const LiquidData* water, const ReportContext& context);
    /// Null where there is no water.
    void ShowBalance(const advice::Evaluation* evaluation, const ReportContext& context);
    void ShowTiles(const std::vector<ResultTile>& tiles);
    void ShowSaturation(const advice::Evaluation* evaluation, const ReportContext& context);
    void ShowAdvice(const advice::Evaluation* evaluation, const ReportContext& context);
    void OpenHelp(const std::string& anchor) const;
    /// Counts what a change of contents draws anew.
    void SetContent(ResultCard& card, CardContent content);
    void ShowWindow(wxWindow& window, bool show);
    /// Lets cards have the height that their texts need at the present width.
    void Arrange();
    void Balance();

    Lead m_lead;
    ShowHelp m_showHelp;
    Project* m_project = nullptr;
    DetailOwner m_water;
    wxStaticText* m_name = nullptr;  ///< of the water, where the project has several
    ResultCard* m_recipe = nullptr;  ///< what a blend is mixed of
    ResultCard* m_badge = nullptr;
    TvButton* m_balance = nullptr;
    wxFlexGridSizer* m_grid = nullptr;
    ResultCard* m_minerals = nullptr;
    wxBoxSizer* m_warnings = nullptr;   ///< above the tiles
    wxBoxSizer* m_notes = nullptr;      ///< below them
    std::vector<ResultCard*> m_advice;  ///< those that are not needed are hidden
    std::vector<ResultCard*> m_tiles;
    std::size_t m_changed = 0;
    int m_arrangedWidth = 0;  ///< 0 where cards have to be arranged anew
};

}  // namespace wateranalysis
