// SPDX-License-Identifier: MIT
#pragma once

/// Decides what the chart viewer shows: which curves of which resin, in which range, in the units and the
/// language of the project on display. It knows the panel by its operations alone. GUI thread only.

#include "gui_base/graphics/chart/chart_viewer_panel.h"
#include "gui_base/gui_base_export.h"
#include "gui_base/report/resin_chart.h"

#include <map>
#include <optional>

class Project;

class GUI_BASE_EXPORT ChartViewerController
{
public:
    /// What the choices of the panel offer.
    static ChartViewerPanel::Choices DiagramTypes();
    static ChartViewerPanel::Choices Media();
    /// All resins, those of the plant first; empty where the master data cannot be read.
    static ChartViewerPanel::Choices Resins(const Project& project);

    /// Fills the panel and draws. Project and panel outlive the controller.
    ChartViewerController(const Project& project, ChartViewerPanel& panel);
    ~ChartViewerController();
    ChartViewerController(const ChartViewerController&) = delete;
    ChartViewerController& operator=(const ChartViewerController&) = delete;

    /// Shows everything in the units and the language of now; what was zoomed to stays in view.
    void Follow();
    /// What is drawn.
    const resin_chart::Contents& GetContents() const { return m_contents; }

private:
    struct Range
    {
        double start = 0.0;
        double end = 0.0;
    };

    void OnSelection(wxCommandEvent& event);
    void TakeSelections();
    void TakeMedium();
    void UseRangeNow();
    void TakeRange();
    Range RangeNow() const;
    void ShowRange();
    void ShowUnits();
    void Draw(bool keepsView);

    const Project& m_project;
    ChartViewerPanel& m_panel;
    resin_chart::Contents m_contents;
    /// The medium that was chosen, while a diagram knows water alone.
    MEDIUM m_chosenMedium = MEDIUM::Water;
    /// What was typed for each type, m/h.
    std::map<DIAGRAM_TYPE, Range> m_typedRanges;
};
