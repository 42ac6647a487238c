// SPDX-License-Identifier: MIT
#pragma once

/// The page of the charts: the viewer with its controller, following the project, its units and the language.
/// GUI thread only.

#include "gui_base/graphics/chart/chart_viewer_controller.h"
#include "gui_base/input/form/form_panel.h"

#include <memory>

class GUI_BASE_EXPORT ChartPage : public FormPanel
{
public:
    /// The project outlives the page.
    ChartPage(Project& project, wxWindow* parent);
    ~ChartPage() override;

    ChartViewerPanel& GetChartPanel() const { return *m_panel; }
    const ChartViewerController& GetController() const { return *m_controller; }

protected:
    void DoCreateForm() override;
    // What is chosen here is not kept in details; what is just being typed stays.
    void DoTransferDetailsToWindows() override {}
    void DoFollowProject() override;
    void DoLocalize() override;
    void DoUpdateUnits() override;
    void DoConnectTvTextCtrlsToStatusbar() override;
    // What a chart shows has no part in the calculation of the project.
    long GetPanelProjectStatus() override { return GetProjectStatus(); }

private:
    void Follow();

    ChartViewerPanel* m_panel = nullptr;
    std::unique_ptr<ChartViewerController> m_controller;
};
