// SPDX-License-Identifier: MIT
#include "gui_base/graphics/diagrams/diagram_grid.h"

#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"

#include <wx/toplevel.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kLeastWidth = 220;
// Of three waters below each other.
constexpr int kLeastHeight = 280;
constexpr int kGap = 4;
// How wide a diagram looks best for its height.
constexpr double kShape = 1.4;

int RowsFor(int count, int columns)
{
    return (count + columns - 1) / columns;
}

/// With how many columns the diagrams become largest, none of them too narrow.
int ColumnsFor(const wxSize& size, int count, int leastWidth)
{
    int columns = 1;
    double largest = 0.0;
    for (int tried = 1; tried <= count; ++tried) {
        const double fits =
            std::min(size.x / kShape / tried, static_cast<double>(size.y) / RowsFor(count, tried));
        if (fits <= largest || (tried > 1 && size.x < tried * leastWidth))
            continue;
        largest = fits;
        columns = tried;
    }
    return columns;
}

}  // namespace

DiagramGrid::DiagramGrid(wxWindow* parent, std::function<void()> onLeastSize)
    : wxPanel(parent),
      m_onLeastSize(std::move(onLeastSize)),
      m_sizer(new wxGridSizer(1, FromDIP(wxSize(kGap, kGap))))
{
    while (m_viewers.size() < water_diagram::kKinds.size()) {
        auto* viewer = new wxChartViewer(this, wxID_ANY);
        viewer->SetMinSize(wxSize(1, 1));
        viewer->Bind(wxEVT_SET_FOCUS, [this, viewer](wxFocusEvent& event) {
            event.Skip();
            m_current = viewer;
        });
        m_viewers.push_back(viewer);
    }
    SetSizer(m_sizer);
    SetKinds({water_diagram::kKinds.begin(), water_diagram::kKinds.end()});
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        Arrange();
    });
    Localize();
}

void DiagramGrid::SetKinds(const std::vector<water_diagram::Kind>& kinds)
{
    if (m_kinds == kinds)
        return;
    m_kinds = kinds;
    // A grid keeps the cells of what is hidden.
    m_sizer->Clear();
    for (wxChartViewer* viewer : m_viewers)
        viewer->Show(IsChosen(*viewer));
    for (const water_diagram::Kind kind : m_kinds) {
        m_sizer->Add(&GetViewer(kind), wxSizerFlags(1).Expand());
        Draw(kind);
    }
    Arrange();
    Layout();
}

void DiagramGrid::SetContents(const std::vector<water_diagram::Water>& waters,
                              const water_diagram::Options& options, const ReportContext& context)
{
    m_waters = waters;
    m_options = options;
    m_context = context;
    for (const water_diagram::Kind kind : m_kinds)
        Draw(kind);
}

void DiagramGrid::Draw(water_diagram::Kind kind)
{
    GetViewer(kind).SetChart(
        water_diagram::Make({.kind = kind, .waters = m_waters, .options = m_options}, m_context), true);
}

void DiagramGrid::Arrange()
{
    const wxSize least = FromDIP(wxSize(kLeastWidth, kLeastHeight));
    const int count = static_cast<int>(m_kinds.size());
    // The height of the grid follows from its columns: they follow from what can be seen of it.
    wxSize room = GetClientSize();
    room.y = std::min(room.y, wxGetTopLevelParent(this)->GetClientSize().y);
    const int columns = ColumnsFor(room, count, least.x + FromDIP(kGap));
    if (columns != m_sizer->GetCols()) {
        m_sizer->SetCols(columns);
        Layout();
    }
    // A narrower grid may have fewer columns; its height follows.
    const wxSize needed(least.x, RowsFor(count, columns) * (least.y + FromDIP(kGap)));
    if (needed == GetMinSize())
        return;
    SetMinSize(needed);
    CallAfter(m_onLeastSize);
}

void DiagramGrid::Localize()
{
    for (const water_diagram::Kind kind : water_diagram::kKinds)
        accessibility::SetName(GetViewer(kind), i18n::Translated(water_diagram::NameOf(kind)));
}

bool DiagramGrid::IsChosen(const wxChartViewer& viewer) const
{
    return std::ranges::any_of(m_kinds,
                               [&](water_diagram::Kind kind) { return &GetViewer(kind) == &viewer; });
}

wxChartViewer& DiagramGrid::GetCurrentViewer() const
{
    return m_current != nullptr && IsChosen(*m_current) ? *m_current : GetViewer(m_kinds.front());
}
