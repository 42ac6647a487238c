// SPDX-License-Identifier: MIT
#include "gui_base/graphics/diagrams/diagram_page.h"

#include "gui_base/graphics/chart/chart_export.h"
#include "gui_base/input/form/form_grid.h"
#include "gui_base/input/form/shown_context.h"
#include "projectbase/project/project.h"

#include <algorithm>

namespace {

constexpr double kPictureScale = 2.0;

}  // namespace

DiagramPage::DiagramPage(Project& project, wxWindow* parent)
    : FormPanel(&project, project.GetDetails(), parent)
{
    Create();
}

void DiagramPage::DoCreateForm()
{
    m_grid = new DiagramGrid(this, [this] { FitInside(); });
    m_inputs =
        new DiagramInputs(this, {.onKinds = [this] { m_grid->SetKinds(m_inputs->GetKinds()); },
                                 .onContents = [this] { Draw(ShownContext(GetCurrentDisplayUnitSystem())); },
                                 .onExport = [this] { OnExport(); },
                                 .onCopy = [this] { OnCopy(); }});
    auto* outer = new wxBoxSizer(wxHORIZONTAL);
    outer->Add(m_grid, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(form::kGap)));
    outer->Add(m_inputs, wxSizerFlags().Expand());
    SetSizer(outer);
}

void DiagramPage::Follow(bool drawsAlways)
{
    const ReportContext context = ShownContext(GetCurrentDisplayUnitSystem());
    std::vector<water_diagram::Water> waters = water_diagram::WatersOf(*GetProject(), context);
    std::vector<DiagramInputs::NamedWater> names;
    for (const water_diagram::Water& water : waters)
        names.emplace_back(GetProject()->GetLiquid(water.place).GetOwner(), water.name);
    m_inputs->SetWaters(names);
    if (!drawsAlways && waters == m_waters)
        return;
    m_waters = std::move(waters);
    Draw(context);
}

void DiagramPage::Draw(const ReportContext& context)
{
    std::vector<water_diagram::Water> chosen;
    std::ranges::copy_if(m_waters, std::back_inserter(chosen), [this](const water_diagram::Water& water) {
        return m_inputs->IsChosen(GetProject()->GetLiquid(water.place).GetOwner());
    });
    m_grid->SetContents(chosen, water_diagram::ChosenOptions(), context);
}

bool DiagramPage::DoConcerns(const ProjectChanges& changes)
{
    return changes.HasStructure() ||
           changes.Any([](const DetailAddress& address) { return address.key.starts_with("liquid/"); });
}

void DiagramPage::DoFollowProject()
{
    FormPanel::DoFollowProject();
    Follow(false);
}

void DiagramPage::DoLocalize()
{
    FormPanel::DoLocalize();
    m_inputs->Localize(GetCurrentDisplayUnitSystem());
    m_grid->Localize();
    // Texts and numbers are others now, whatever the waters are.
    Follow(true);
    FitInside();
}

void DiagramPage::DoUpdateUnits()
{
    FormPanel::DoUpdateUnits();
    Follow(false);
}

void DiagramPage::OnExport()
{
    chart_export::AskAndWrite(*this, *m_grid->GetCurrentViewer().GetChart());
}

void DiagramPage::OnCopy()
{
    chart_export::Copy(m_grid->GetCurrentViewer().GetPicture(kPictureScale));
}
