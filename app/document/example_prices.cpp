// SPDX-License-Identifier: MIT
#include "app/document/example_prices.h"

#include "projectbase/costs/project_costs.h"
#include "projectbase/design/regenerants.h"
#include "projectbase/design/resins.h"
#include "projectbase/project/iex_project.h"

#include <fmt/format.h>
#include <wx/translation.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace app {

namespace {

struct Price
{
    const char* of;
    double euro;
};

// Rounded figures, no offers: of no maker, no year and no country.

/// By the key of the resin, for a litre.
constexpr std::array kResins{Price{"sac_gel", 2.5},     Price{"wac_acrylic", 5.0}, Price{"sba_1", 6.5},
                             Price{"sba_2", 6.5},       Price{"sba_acrylic", 8.0}, Price{"wba_styrenic", 7.0},
                             Price{"wba_acrylic", 8.5}, Price{"inert", 3.0}};
/// By the key of the chemical, for a kg of 100 %.
constexpr std::array kChemicals{Price{"HCL", 0.6},   Price{"H2SO4", 0.25}, Price{"NAOH", 0.7},
                                Price{"NACL", 0.15}, Price{"NA2CO3", 0.4}, Price{"NH3", 0.8}};
constexpr double kServiceWater = 1.5;  // a m³
constexpr double kWasteWater = 2.5;

/// Groups of equipment of a line for kFlow. Others follow from it with the exponent 0.6 (Peters, Timmerhaus,
/// West: Plant Design and Economics for Chemical Engineers, ch. 6).
constexpr std::array kEquipment{Price{"piping", 12'000},    Price{"pumps", 8'000},
                                Price{"valves", 15'000},    Price{"measurement", 18'000},
                                Price{"electrics", 15'000}, Price{"vessels", 20'000},
                                Price{"nozzles", 2'500},    Price{"logistics", 20'000}};
constexpr double kFlow = 10.0;  // m³/h
constexpr double kExponent = 0.6;
constexpr double kRounding = 100.0;

template <typename Things>
double PriceOf(const std::string& name, const Things& things, std::span<const Price> prices)
{
    for (const auto& thing : things) {
        if (thing.name != name)
            continue;
        const auto price =
            std::ranges::find(prices, thing.key, [](const Price& row) { return std::string(row.of); });
        return price == prices.end() ? 0.0 : price->euro;
    }
    return 0.0;
}

}  // namespace

void SetExamplePrices(iex::IEXProject& project)
{
    const ProjectEdit edit(project);
    DetailList& details = project.GetDetails();
    const auto name = [&details](const std::string& key) { return details.At(key).GetStdStringValue(); };
    for (int n = 1; n <= costs::kResins; ++n)
        details.At(fmt::format("cost/cc.cost.resin{}", n))
            .SetValue(PriceOf(name(fmt::format("cost/cc.name.resin{}", n)), design::Resins(), kResins));
    for (const char* suffix : costs::kInertSuffixes)
        details.At(fmt::format("cost/cc.cost.{}", suffix))
            .SetValue(PriceOf(name(fmt::format("cost/cc.name.{}", suffix)), design::Resins(), kResins));
    for (const char* kind : {"regen", "cond"}) {
        for (int n = 1; n <= costs::kChemicals; ++n)
            details.At(fmt::format("cost/op.cost.{}{}", kind, n))
                .SetValue(PriceOf(name(fmt::format("cost/op.name.{}{}", kind, n)), design::Regenerants(),
                                  kChemicals));
    }
    const double flow = details.At("project/qbrutto").GetDoubleValue();
    const auto lines = static_cast<double>(details.At("project/nlines").GetLongValue());
    for (const Price& group : kEquipment) {
        const double price = lines * group.euro * std::pow(flow / kFlow, kExponent);
        details.At(fmt::format("cost/cc.cost.{}", group.of))
            .SetValue(kRounding * std::round(price / kRounding));
    }
    details.At("cost/op.cost.servwater").SetValue(kServiceWater);
    details.At("cost/op.cost.wastewater").SetValue(kWasteWater);
    details.At("project/comments")
        .SetValue(
            wxTRANSLATE("The prices are examples of the right order of magnitude. Replace them by those of "
                        "offers."));
}

}  // namespace app
