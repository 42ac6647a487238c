// SPDX-License-Identifier: MIT
#include "app/document/plant_templates.h"

#include "app/document/example_prices.h"
#include "app/document/templates.h"

#include <wx/translation.h>

#include <array>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <utility>

namespace app {

namespace {

constexpr std::array kPlants{
    PlantTemplate{"softener", wxTRANSLATE("Softener"), "SOFT", "brandenburg_fresh", 10.0, 8.0,
                  "graphics/soft_sac_na.svg"},
    PlantTemplate{"dealkalisation", wxTRANSLATE("Dealkalisation"), "DEALK", "brandenburg_fresh", 20.0, 12.0,
                  "graphics/dealk_wac_h_degas.svg"},
    PlantTemplate{"demineralisation", wxTRANSLATE("Demineralisation"), "DEMI", "world_river_livingstone",
                  30.0, 16.0, "graphics/demi_sac_h_degas_sba.svg"},
    PlantTemplate{"mixed_bed", wxTRANSLATE("Mixed bed"), "MB", nullptr, 30.0, 60.0, "graphics/mb_mb.svg"},
    PlantTemplate{"condensate_polisher", wxTRANSLATE("Condensate polisher"), "CP", nullptr, 120.0, 96.0,
                  "graphics/cp_mb.svg"},
    PlantTemplate{"decolourising_column", wxTRANSLATE("Decolourising column"), "FOODC", nullptr, 6.0, 8.0,
                  "graphics/foodc_sac_h_sba.svg"},
};

using Amounts = std::array<std::pair<const char*, double>, 6>;
/// Permeate of a membrane, meq/l; SiO2 in mmol/l.
constexpr Amounts kPermeate{
    {{"na", 0.16}, {"ca", 0.02}, {"hco3", 0.10}, {"cl", 0.07}, {"so4", 0.01}, {"sio2", 0.005}}};
/// Condensate of a boiler that is kept alkaline with ammonia.
constexpr Amounts kCondensate{
    {{"nh4", 0.055}, {"na", 0.0004}, {"hco3", 0.004}, {"cl", 0.0004}, {"so4", 0.0002}, {"sio2", 0.0003}}};

void SetAmounts(LiquidData& water, const Amounts& amounts, double celsius)
{
    DetailList& details = *water.GetDetails();
    for (const auto& [ion, meq] : amounts) {
        const std::string key = std::string("liquid/") + ion;
        details.At(key + ".orig").SetValue(meq);
        details.At(key + ".unit").SetValue("meq/l");
    }
    details.At("liquid/temp.orig").SetValue(celsius);
    details.At("liquid/balance.auto").SetValue(true);
}

/// What remains in a thin juice that is to be brightened; compounds as the database files them.
void SetFeed(iex::IEXProject& project)
{
    const struct
    {
        const char* name;
        const char* formula;
        int charge;
        double meq;
    } kIons[] = {{"potassium", "K", 1, 12.0}, {"sodium", "Na", 1, 3.0},    {"calcium", "Ca", 2, 2.0},
                 {"chloride", "Cl", -1, 7.0}, {"sulfate", "SO4", -2, 4.0}, {"acetate", "CH3COO", -1, 6.0}};
    FeedComposition feed;
    for (const auto& ion : kIons) {
        DBObjects::Compound compound;
        compound.name = ion.name;
        compound.formula = ion.formula;
        compound.valency = std::abs(ion.charge);
        compound.ionicCharge = ion.charge;
        feed.Add(compound);
        feed.SetFeed(feed.GetEntries().size() - 1, FeedComposition::Unit::MeqPerLitre, ion.meq);
    }
    project.SaveFeedCompositionToDetails(feed);
    project.GetDetails().At("feed/medium.temp").SetValue(35.0);
    // A decolouriser is filled once and kept: the volumes are those of the vessels.
    for (std::size_t i = 0; i < project.NumberSteps(); ++i) {
        OwnerNode& compartment = *project.GetStep(i).GetChildren(OwnerKind::Compartment).front();
        compartment.GetChildren(OwnerKind::Resin)
            .front()
            ->GetDetails()
            ->At("compcomp/vol.actual")
            .SetValue(1.5);
        compartment.GetDetails()->At("stepcomp/rm.temp").SetValue(20.0);
    }
}

}  // namespace

std::span<const PlantTemplate> PlantTemplates()
{
    return kPlants;
}

std::unique_ptr<iex::IEXProject> NewProjectFrom(const PlantTemplate& plant)
{
    auto project = std::make_unique<iex::IEXProject>(plant.type);
    {
        const ProjectEdit edit(*project);
        // Behind the cation exchanger.
        if (plant.type == std::string_view("DEMI") || plant.type == std::string_view("DEALK"))
            project->AddStep("DEGAS", 1);
        project->GetDetails().At("project/title").SetValue(plant.title);
        LiquidData& water = project->GetLiquid(0);
        if (plant.water != nullptr) {
            const WaterTemplate* found = FindWaterTemplate(plant.water);
            if (found == nullptr)
                throw std::runtime_error(std::string("NewProjectFrom: there is no water '") + plant.water +
                                         "'");
            FillWater(water, *found);
            // What a weak acid needs in a cool groundwater: little more than its load.
            if (plant.type == std::string_view("DEALK"))
                project->FindOwner("ex.1.comp.1")->GetDetails()->At("stepcomp/level").SetValue(58.0);
        } else if (plant.type == std::string_view("MB")) {
            SetAmounts(water, kPermeate, 15.0);
        } else if (plant.type == std::string_view("CP")) {
            SetAmounts(water, kCondensate, 40.0);
        } else {
            SetFeed(*project);
        }
        project->GetDetails().At("project/qbrutto").SetValue(plant.flow);
        project->GetDetails().At("project/lz").SetValue(plant.hours);
    }
    SetExamplePrices(*project);
    project->SetChanged(false);
    return project;
}

}  // namespace app
