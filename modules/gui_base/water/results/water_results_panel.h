// SPDX-License-Identifier: MIT
#pragma once

/// What a water means, beside its page: the verdict on its balance, and what follows from its analysis in
/// tiles. It follows its project by itself and shows again only what changed. Narrow, it is one column of
/// tiles; wide, a strip. GUI thread only.

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
class wxFlexGridSizer;

namespace wateranalysis {

class ResultCard;

class GUI_BASE_EXPORT WaterResultsPanel : public wxScrolled<wxPanel>, private ProjectObserver
{
public:
    /// Leads to where a value is typed or shown.
    using Lead = std::function<void(const DetailAddress& address)>;

    WaterResultsPanel(wxWindow* parent, Lead lead);
    ~WaterResultsPanel() override;

    /// Shows a water of the project; nothing for null or a water that is not there, also when it goes later.
    /// The project outlives the panel, or is taken from it before it goes.
    void SetWater(Project* project, DetailOwner water);
    /// Shows everything in the present language, unit system and number format.
    void Localize();

    const ResultCard& GetBadge() const { return *m_badge; }
    const std::vector<ResultCard*>& GetTiles() const { return m_tiles; }
    TvButton& GetBalanceButton() { return *m_balance; }
    /// How often a card was drawn anew since the panel was made.
    std::size_t GetChangedCards() const { return m_changed; }

private:
    void OnProjectChanged(const ProjectChanges& changes) override;
    const LiquidData* FindWater() const;
    void ShowAll();
    void ShowBalance(const LiquidData* water, const ReportContext& context);
    void ShowTiles(const LiquidData* water, const ReportContext& context);
    /// Lets cards have the height that their texts need at the present width.
    void Arrange();
    void Balance();

    Lead m_lead;
    Project* m_project = nullptr;
    DetailOwner m_water;
    ResultCard* m_badge = nullptr;
    TvButton* m_balance = nullptr;
    wxFlexGridSizer* m_grid = nullptr;
    std::vector<ResultCard*> m_tiles;
    std::size_t m_changed = 0;
    int m_arrangedWidth = 0;
};

}  // namespace wateranalysis
