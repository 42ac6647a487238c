// SPDX-License-Identifier: MIT
#pragma once

/// The diagrams of waters side by side, as many of them as were chosen, in a grid that suits the room there
/// is. GUI thread only.

#include "gui_base/gui_base_export.h"
#include "gui_base/report/water_diagram.h"
#include "wxchartdir/wx_chart_viewer.h"

#include <wx/panel.h>
#include <wx/sizer.h>

#include <functional>
#include <vector>

class GUI_BASE_EXPORT DiagramGrid : public wxPanel
{
public:
    /// `onLeastSize` is called when the grid needs another least size, after it was laid out.
    DiagramGrid(wxWindow* parent, std::function<void()> onLeastSize);

    /// Shows diagrams of these kinds.
    void SetKinds(const std::vector<water_diagram::Kind>& kinds);
    void SetContents(const std::vector<water_diagram::Water>& waters, const water_diagram::Options& options,
                     const ReportContext& context);
    void Localize();

    wxChartViewer& GetViewer(water_diagram::Kind kind) const
    {
        return *m_viewers[static_cast<std::size_t>(kind)];
    }
    /// The one that is alone, or that had the focus last.
    wxChartViewer& GetCurrentViewer() const;

private:
    bool IsChosen(const wxChartViewer& viewer) const;
    void Draw(water_diagram::Kind kind);
    void Arrange();

    std::function<void()> m_onLeastSize;
    wxGridSizer* m_sizer = nullptr;
    std::vector<wxChartViewer*> m_viewers;  ///< of each kind
    std::vector<water_diagram::Kind> m_kinds;
    wxChartViewer* m_current = nullptr;
    std::vector<water_diagram::Water> m_waters;
    water_diagram::Options m_options;
    ReportContext m_context;
};
