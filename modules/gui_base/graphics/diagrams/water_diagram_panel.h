// SPDX-License-Identifier: MIT
#pragma once

/// A small diagram of one water that can stand beside other things and follows what it is given: ion bars, or
/// another diagram that is chosen above it. It knows no project. GUI thread only.

#include "gui_base/gui_base_export.h"
#include "gui_base/input/controls/tv_choice.h"
#include "gui_base/report/water_diagram.h"
#include "wxchartdir/wx_chart_viewer.h"

#include <wx/panel.h>

#include <optional>
#include <string>

class LiquidData;

class GUI_BASE_EXPORT WaterDiagramPanel : public wxPanel
{
public:
    explicit WaterDiagramPanel(wxWindow* parent, water_diagram::Kind kind = water_diagram::Kind::Bars);

    /// Shows a water as it is now; to be called after each edit of it. Draws only where a value, the name or
    /// the language changed, or an option of the diagrams. The water is read here and not kept.
    void SetWater(const LiquidData& water, const std::string& unitSystem = "iso");
    /// Shows none.
    void Clear();

    water_diagram::Kind GetKind() const;
    /// Everything in the language of now.
    void Localize(const std::string& unitSystem);
    wxChartViewer& GetViewer() const { return *m_viewer; }

private:
    void Draw();
    void UpdateNames();

    tvChoice* m_kind = nullptr;
    wxChartViewer* m_viewer = nullptr;
    std::optional<water_diagram::Water> m_water;
    water_diagram::Options m_options;  ///< as they were drawn
    std::string m_source;              ///< name of the water as the project has it
    std::string m_unitSystem = "iso";
};
