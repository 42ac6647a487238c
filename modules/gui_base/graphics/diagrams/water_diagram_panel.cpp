// SPDX-License-Identifier: MIT
#include "gui_base/graphics/diagrams/water_diagram_panel.h"

#include "gui_base/input/events.h"
#include "gui_base/input/form/shown_context.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"
#include "projectbase/water/liquid_data.h"

#include <wx/sizer.h>
#include <wx/translation.h>

namespace {

constexpr int kLeastWidth = 220;
constexpr int kLeastHeight = 160;

}  // namespace

WaterDiagramPanel::WaterDiagramPanel(wxWindow* parent, water_diagram::Kind kind) : wxPanel(parent)
{
    tvChoice::Items items;
    for (const water_diagram::Kind offered : water_diagram::kKinds)
        items.emplace_back(static_cast<long>(offered), water_diagram::NameOf(offered));
    m_kind = new tvChoice(items, nullptr, this, wxID_ANY);
    m_kind->SetDefault(static_cast<long>(kind));
    // What is looked at is no edit.
    m_kind->Bind(tvCHANGE_EVENT, [this](wxCommandEvent&) { Draw(); });
    m_viewer = new wxChartViewer(this, wxID_ANY);
    m_viewer->SetMinSize(wxSize(1, 1));
    auto* outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(m_kind, wxSizerFlags().Expand());
    outer->Add(m_viewer, wxSizerFlags(1).Expand());
    SetSizer(outer);
    SetMinSize(FromDIP(wxSize(kLeastWidth, kLeastHeight)));
    UpdateNames();
    Draw();
}

void WaterDiagramPanel::SetWater(const LiquidData& water, const std::string& unitSystem)
{
    water_diagram::Water shown{
        .name = i18n::Translated(water.GetName().c_str()).utf8_string(),
        .ions = diagrams::IonsOf(*water.GetDetails()),
    };
    m_source = water.GetName();
    if (m_water == shown && m_unitSystem == unitSystem && m_options == water_diagram::ChosenOptions())
        return;
    m_water = std::move(shown);
    m_unitSystem = unitSystem;
    Draw();
}

void WaterDiagramPanel::Clear()
{
    if (!m_water)
        return;
    m_water.reset();
    m_source.clear();
    Draw();
}

water_diagram::Kind WaterDiagramPanel::GetKind() const
{
    return static_cast<water_diagram::Kind>(m_kind->GetID());
}

void WaterDiagramPanel::Localize(const std::string& unitSystem)
{
    m_kind->Localize(unitSystem);
    // Texts may be longer, and fields higher.
    m_kind->InvalidateBestSize();
    Layout();
    m_unitSystem = unitSystem;
    if (m_water)
        m_water->name = i18n::Translated(m_source.c_str()).utf8_string();
    UpdateNames();
    Draw();
}

void WaterDiagramPanel::UpdateNames()
{
    accessibility::SetName(*m_kind, i18n::Translated("Diagram Type"));
    accessibility::SetName(*m_viewer, i18n::Translated(water_diagram::NameOf(GetKind())));
}

void WaterDiagramPanel::Draw()
{
    m_options = water_diagram::ChosenOptions();
    water_diagram::Contents contents{.kind = GetKind(), .options = m_options, .hasTitle = false};
    if (m_water)
        contents.waters.push_back(*m_water);
    m_viewer->SetChart(water_diagram::Make(contents, ShownContext(m_unitSystem)), true);
    UpdateNames();
}
