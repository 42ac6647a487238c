// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/costs/irx_chemicalcostspanel.h"

#include "gui_base/input/controls/tv_staticboxsizer.h"
#include "gui_base/input/form/form_grid.h"
#include "projectbase/costs/line_costs.h"
#include "projectbase/costs/project_costs.h"

#include <fmt/format.h>
#include <wx/statbox.h>
#include <wx/translation.h>

#include <array>

namespace {

constexpr std::array kResults{
    cost_table::Result{wxTRANSLATE("Per cycle"), "EUR"}, cost_table::Result{wxTRANSLATE("Per year"), "EUR"},
    cost_table::Result{wxTRANSLATE("Share"), "%"}, cost_table::Result{wxTRANSLATE("Product"), "EUR/m3"}};

std::vector<cost_table::Line> Chemicals(const char* kind)
{
    std::vector<cost_table::Line> lines;
    for (int n = 1; n <= costs::kChemicals; ++n)
        lines.push_back({.nameKey = fmt::format("cost/op.name.{}{}", kind, n),
                         .quantityKey = fmt::format("cost/op.amount.{}{}", kind, n),
                         .priceKey = fmt::format("cost/op.cost.{}{}", kind, n)});
    return lines;
}

}  // namespace

IRXChemicalCostsPanel::IRXChemicalCostsPanel(iex::IEXProject* project, wxWindow* parent, int id,
                                             const wxPoint& pos, const wxSize& size, long style)
{
    Create(project, parent, id, pos, size, style);
}

void IRXChemicalCostsPanel::Create(iex::IEXProject* project, wxWindow* parent, int id, const wxPoint& pos,
                                   const wxSize& size, long style)
{
    CreateWindow(project, project->GetDetails(), parent, id, pos, size, style, wxASCII_STR(wxPanelNameStr));
    // The page around it scrolls.
    ShowScrollbars(wxSHOW_SB_NEVER, wxSHOW_SB_NEVER);
    ModulePanelBase::Create();
}

void IRXChemicalCostsPanel::AddBox(const char* title, const char* quantity,
                                   std::span<const cost_table::Line> lines)
{
    // Nothing stands beside the boxes.
    const wxSizerFlags spaced = wxSizerFlags().Expand().Border(wxALL & ~wxRIGHT, FromDIP(form::kGap));
    auto* box = AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, this, title));
    CostTable& table = AddTable(box->GetStaticBox(), quantity, lines, kResults, m_group);
    box->Add(table.GetSizer(), wxSizerFlags().Border(wxALL, FromDIP(form::kGap)));
    GetSizer()->Add(box, spaced);
    m_boxes.push_back({box->GetStaticBox(), &table});
}

void IRXChemicalCostsPanel::DoCreateForm()
{
    m_boxes.clear();
    SetSizer(new wxBoxSizer(wxVERTICAL));
    AddBox(wxTRANSLATE("Regenerants"), wxTRANSLATE("Amount"), Chemicals("regen"));
    AddBox(wxTRANSLATE("Conditioners"), wxTRANSLATE("Amount"), Chemicals("cond"));
    const std::array<cost_table::Line, 2> waters{{{.label = wxTRANSLATE("Supply and service water"),
                                                   .quantityKey = "project/vol.serv.all",
                                                   .priceKey = "cost/op.cost.servwater"},
                                                  {.label = wxTRANSLATE("Waste water"),
                                                   .quantityKey = "project/vol.waste.all",
                                                   .priceKey = "cost/op.cost.wastewater"}}};
    AddBox(wxTRANSLATE("Water"), wxTRANSLATE("Volume"), waters);
}

void IRXChemicalCostsPanel::DoSetResults()
{
    const auto costs = costs::OperatingCosts(Plant());
    for (const Box& box : m_boxes) {
        box.table->SetResults([&costs](const std::string& price) {
            const costs::OperatingCost& cost = costs.at(price);
            return std::vector{cost.cycle, cost.year, cost.share, cost.product};
        });
    }
}

void IRXChemicalCostsPanel::DoTransferDetailsToWindows()
{
    CostFormPanel::DoTransferDetailsToWindows();
    bool isOther = false;
    for (const Box& box : m_boxes) {
        isOther = box.frame->Show(box.table->HasLines()) || isOther;
    }
    if (isOther)
        FitAndLayout();
}
