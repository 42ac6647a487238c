// SPDX-License-Identifier: MIT
// How the exchangers of a line are regenerated, and what they send to waste.
#include "app/modules/base/module.h"
#include "gui_base/ionexchange/regeneration/regeneration_panel.h"
#include "gui_base/ionexchange/regeneration/waste_water_panel.h"
#include "gui_base/report/regeneration_report.h"
#include "projectbase/design/plant_design.h"
#include "projectbase/design/regenerants.h"
#include "projectbase/project/iex_project.h"

#include <wx/translation.h>

namespace app {

namespace {

bool HasExchangers(const Project& project)
{
    return iex::PlantOf(project) != nullptr;
}

/// A degasser has no resin.
bool IsRegenerated(const OwnerNode& exchanger)
{
    return !exchanger.GetChildren(OwnerKind::Compartment).empty();
}

bool IsPartOf(const Project& project, const OwnerNode& exchanger, DetailOwner owner)
{
    const OwnerNode* node = project.FindOwner(owner);
    return node != nullptr && node->IsWithin(exchanger);
}

bool HoldsRegeneration(const Project& project, const OwnerNode& owner, const DetailAddress& address)
{
    const bool isChemical = address.key.starts_with("stepcomp/rm.") ||
                            address.key.starts_with("stepcomp/cond.") ||
                            address.key == design::kFirstDilution || address.key == design::kSecondDilution;
    const bool isRow = address.key.starts_with("regseqstep/") || address.key == "step/remarks" ||
                       address.key.starts_with("step/mb.");
    return (isRow || isChemical || address.key == "stepcomp/level") &&
           IsPartOf(project, owner, address.owner);
}

ModulePage MakeRegenerationPage(const PageContext& context, OwnerNode& owner)
{
    auto& project = dynamic_cast<iex::IEXProject&>(context.project);
    return {.panel = new RegenerationPanel(project, owner, context.parent)};
}

bool HoldsWaste(const Project& project, const OwnerNode& owner, const DetailAddress& address)
{
    const bool isWaste = address.key.starts_with("step/m.") || address.key.starts_with("step/c.") ||
                         address.key == "step/neutral" || address.key == "stepcomp/m.neutral" ||
                         address.key.starts_with("stepcomp/rb.");
    return isWaste && IsPartOf(project, owner, address.owner);
}

std::vector<WasteData> RegenerantsOf(const OwnerNode& exchanger)
{
    std::vector<WasteData> regenerants;
    for (const auto& compartment : exchanger.GetChildren(OwnerKind::Compartment)) {
        const DetailData& chosen = compartment->GetDetails()->At("stepcomp/rm.chemical");
        const design::Regenerant* const chemical = design::FindRegenerant(chosen.GetStdStringValue());
        regenerants.push_back({chemical != nullptr ? chemical->name : std::string(wxTRANSLATE("Regenerant")),
                               {compartment, compartment->GetDetails()}});
    }
    return regenerants;
}

/// The waste of an exchanger whose chemicals may change.
class WastePanel : public TvWasteWaterAndComposition
{
public:
    WastePanel(iex::IEXProject& project, const OwnerNode& exchanger, wxWindow* parent)
        : TvWasteWaterAndComposition(&project, parent, RegenerantsOf(exchanger),
                                     wxTRANSLATE("Waste water and composition"), exchanger.GetPosition()),
          m_exchanger(exchanger)
    {}

protected:
    void DoFollowProject() override
    {
        TvWasteWaterAndComposition::DoFollowProject();
        SetRegenerants(RegenerantsOf(m_exchanger));
    }

private:
    const OwnerNode& m_exchanger;
};

ModulePage MakeWastePage(const PageContext& context, OwnerNode& owner)
{
    return {.panel = new WastePanel(dynamic_cast<iex::IEXProject&>(context.project), owner, context.parent)};
}

}  // namespace

Module RegenerationModule()
{
    return {.id = "regeneration",
            .title = wxTRANSLATE("Regeneration"),
            .icon = "/icons/regeneration.svg",
            .helpPage = "regeneration.html",
            .pageOf = OwnerKind::Exchanger,
            .hasPage = IsRegenerated,
            .isFor = HasExchangers,
            .holds = HoldsRegeneration,
            .makePage = MakeRegenerationPage,
            .makeReport = [](const Project& project) -> std::unique_ptr<ReportPageSource> {
                return std::make_unique<RegenerationReport>(project);
            }};
}

Module WasteWaterModule()
{
    return {.id = "wastewater",
            .title = wxTRANSLATE("Waste water"),
            .icon = "/icons/wastewater.svg",
            .helpPage = "wastewater.html",
            .pageOf = OwnerKind::Exchanger,
            .hasPage = IsRegenerated,
            .isFor = HasExchangers,
            .holds = HoldsWaste,
            .makePage = MakeWastePage};
}

}  // namespace app
