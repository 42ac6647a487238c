// SPDX-License-Identifier: MIT
#pragma once

/// The page of a feed water: its analysis, and above it how much of it there is and where it comes from.

#include "gui_base/water/analysis/wateranalysis_panel.h"
#include "gui_base/water/feedwater/feed_meta_information.h"
#include "gui_base/water/feedwater/feed_water_specification.h"
#include "gui_base/water/feedwater/organics_input_panel.h"

class wxBoxSizer;

class GUI_BASE_EXPORT FeedWaterPanel : public WaterAnalysisPanel
{
public:
    FeedWaterPanel(Project* project, std::size_t detailIndex, wxWindow* parent, int id,
                   TVHelpFileProvider* help);
    using WaterAnalysisPanel::RecreatePanel;

    bool FocusDetail(const DetailAddress& address) override;

protected:
    void DoCreateForm() override;
    void DoTransferDetailsToWindows() override;
    void DoUpdateUnits() override;
    void DoLocalize() override;
    bool DoHasWhatIf() override;

private:
    void CreateHeader();
    /// The organics of the feed stand with the first water.
    bool IsFirstWater() const;

    FeedWaterSpecification* m_specification = nullptr;
    FeedMetaInformation* m_metaInformation = nullptr;
    OrganicsInputPanel* m_organics = nullptr;
    std::unique_ptr<OrganicsInputPanelController> m_organicsController;
};
