// SPDX-License-Identifier: MIT
#include "projectbase/costs/project_costs.h"

#include "projectbase/design/regenerants.h"
#include "projectbase/design/resins.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/sequence/sequence_calculation.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>
#include <vector>

namespace costs {

namespace {

constexpr double kHoursOfYear = 8'760.0;
constexpr double kDaysOfYear = 365.0;
constexpr double kPercent = 0.01;
/// As the limit of the plant's life; a file may hold more.
constexpr double kMostYears = 200.0;

double Number(const iex::IEXProject& project, std::string_view key)
{
    return project.GetDetails().At(key).GetDoubleValue();
}

double Lines(const iex::IEXProject& project)
{
    return static_cast<double>(project.GetDetails().At("project/nlines").GetLongValue());
}

double KnownOr0(double value)
{
    return std::isfinite(value) ? value : 0.0;
}

std::string Key(std::string_view kind, std::string_view suffix)
{
    return fmt::format("cost/{}{}", kind, suffix);
}

void Set(iex::IEXProject& project, std::string_view key, double value)
{
    project.GetDetails().At(key).SetValue(std::isfinite(value) ? value + 0.0 : design::kNotKnown);
}

void SetResin(iex::IEXProject& project, std::string_view suffix, const std::string& name, double volume)
{
    project.GetDetails().At(Key("cc.name.", suffix)).SetValue(name);
    Set(project, Key("cc.volume.", suffix), KnownOr0(volume));
}

/// Calls `take` for each resin of the plant that exchanges, in flow order.
template <typename Take>
void ForEachResin(const iex::IEXProject& project, const Take& take)
{
    for (const auto& exchanger : project.GetRoot().GetChildren(OwnerKind::Exchanger)) {
        for (const auto& compartment : exchanger->GetChildren(OwnerKind::Compartment)) {
            for (const auto& node : compartment->GetChildren(OwnerKind::Resin)) {
                const design::Resin* resin =
                    design::FindResin(node->GetDetails()->At("compcomp/resin").GetStdStringValue());
                if (resin != nullptr && !design::IsInert(*resin))
                    take(*node, *resin);
            }
        }
    }
}

/// For one line, m³.
double VolumeOf(const iex::IEXProject& project, const OwnerNode& resin)
{
    const double designed = resin.GetDetails()->At("compcomp/vol").GetDoubleValue();
    const double installed = resin.GetDetails()->At("compcomp/vol.actual").GetDoubleValue();
    return project.IsOfType("FOODC") && std::isfinite(installed) ? installed : designed;
}

/// A price, and what it is the price of; empty for whatever comes to stand there.
struct Priced
{
    std::string name;
    double price = 0.0;
};

/// Lets prices follow the names of their lines, which come and go with the design: the price of what has no
/// line just now is kept in a line that is free. `prices` and `names` are the keys without a number.
void FollowNames(iex::IEXProject& project, std::string_view prices, std::string_view names, int lines,
                 const std::vector<std::string>& present)
{
    DetailList& details = project.GetDetails();
    std::vector<Priced> known;
    for (int n = 1; n <= lines; ++n)
        known.push_back({details.At(fmt::format("{}{}", names, n)).GetStdStringValue(),
                         Number(project, fmt::format("{}{}", prices, n))});
    std::vector<bool> isTaken(known.size());
    const auto take = [&](std::size_t i) {
        isTaken[i] = true;
        return known[i].price;
    };
    std::vector<Priced> kept;
    for (const std::string& name : present) {
        std::size_t i = 0;
        while (i < known.size() && (isTaken[i] || known[i].name != name))
            ++i;
        // A price that was typed before its line had a name.
        const std::size_t place = kept.size();
        if (i == known.size() && place < known.size() && known[place].name.empty() && !isTaken[place])
            i = place;
        kept.push_back({name, i < known.size() ? take(i) : 0.0});
    }
    for (std::size_t i = 0; i < known.size(); ++i) {
        if (!isTaken[i] && (!known[i].name.empty() || known[i].price != 0.0))
            kept.push_back(known[i]);
    }
    kept.resize(known.size());
    for (int n = 1; n <= lines; ++n) {
        const Priced& line = kept[static_cast<std::size_t>(n - 1)];
        details.At(fmt::format("{}{}", names, n)).SetValue(line.name);
        details.At(fmt::format("{}{}", prices, n)).SetValue(line.price);
    }
}

void WriteChemicals(iex::IEXProject& project, std::string_view kind, const ChemicalMap& map)
{
    std::vector<std::string> present;
    auto chemical = map.begin();
    for (int n = 1; n <= kChemicals; ++n) {
        const std::string suffix = fmt::format("{}{}", kind, n);
        const bool isThere = chemical != map.end();
        project.GetDetails().At(Key("op.name.", suffix)).SetValue(isThere ? chemical->first : std::string());
        Set(project, Key("op.amount.", suffix), isThere ? chemical->second : 0.0);
        if (isThere)
            present.push_back((chemical++)->first);
    }
    FollowNames(project, Key("op.cost.", kind), Key("op.priced.", kind), kChemicals, present);
}

/// A line of nothing costs nothing, whatever its price.
std::pair<double, double> LineOf(double quantity, double price)
{
    return {quantity, quantity > 0.0 ? price : 0.0};
}

void Add(ChemicalMap& map, const std::string& name, double mass)
{
    if (!name.empty() && mass > 0.0)
        map[name] += mass;
}

void AddChemicals(iex::CostMap& map, const iex::IEXProject& project, std::string_view kind)
{
    for (int n = 1; n <= kChemicals; ++n) {
        const std::string suffix = fmt::format("{}{}", kind, n);
        const std::string price = Key("op.cost.", suffix);
        map[price] = LineOf(KnownOr0(Number(project, Key("op.amount.", suffix))), Number(project, price));
    }
}

/// m³ a day, of all lines.
double SystemCapacity(const iex::IEXProject& project)
{
    const double typed = Number(project, "cost/system.capacity");
    if (std::isfinite(typed))
        return typed;
    return Number(project, "project/wnetto") * Lines(project) * CyclesPerYear(project) / kDaysOfYear;
}

}  // namespace

// Quantities

void ClearResinDetails(iex::IEXProject& project)
{
    for (int n = 1; n <= kResins; ++n)
        SetResin(project, fmt::format("resin{}", n), {}, 0.0);
    for (const char* suffix : kInertSuffixes)
        SetResin(project, suffix, {}, 0.0);
}

void CopyVolumeToCostDetails(iex::IEXProject& project)
{
    ClearResinDetails(project);
    int n = 0;
    std::vector<std::string> present;
    ForEachResin(project, [&](const OwnerNode& node, const design::Resin& resin) {
        if (++n > kResins)
            return;
        present.push_back(resin.name);
        SetResin(project, fmt::format("resin{}", n), resin.name, Lines(project) * VolumeOf(project, node));
    });
    FollowNames(project, "cost/cc.cost.resin", "cost/cc.priced.resin", kResins, present);
    constexpr std::array<const char*, kInertSuffixes.size()> inert{"project/vol.inert.total",
                                                                   "project/vol.inert.total.uc"};
    for (std::size_t i = 0; i < kInertSuffixes.size(); ++i) {
        const double volume = KnownOr0(Number(project, inert[i]));
        if (volume > 0.0)
            SetResin(project, kInertSuffixes[i], design::FindResin("inert")->name, volume);
    }
}

int CountResinsWithoutLine(const iex::IEXProject& project)
{
    int n = 0;
    ForEachResin(project, [&n](const OwnerNode&, const design::Resin&) { ++n; });
    return std::max(n - kResins, 0);
}

void WriteRegenerantMapToDetails(iex::IEXProject& project, const ChemicalMap& map)
{
    WriteChemicals(project, "regen", map);
}

void WriteCondMapToDetails(iex::IEXProject& project, const ChemicalMap& map)
{
    WriteChemicals(project, "cond", map);
}

void CopyRegenerantsToCostDetail(iex::IEXProject& project, const design::PlantDesign& plant)
{
    const double lines = Lines(project);
    ChemicalMap map;
    for (const design::ExchangerDesign& exchanger : plant.exchangers) {
        for (const design::CompartmentDesign& bed : exchanger.compartments) {
            if (bed.chemical == nullptr)
                continue;
            Add(map, bed.chemical->name, lines * bed.dose.mass);
            Add(map, bed.chemical->name, lines * bed.neutralizes);
        }
    }
    if (plant.bought != nullptr)
        Add(map, plant.bought->name, lines * plant.boughtMass);
    WriteRegenerantMapToDetails(project, map);
}

void CopyConditionersToCostDetail(iex::IEXProject& project)
{
    ChemicalMap map;
    for (const auto& exchanger : project.GetRoot().GetChildren(OwnerKind::Exchanger)) {
        for (const auto& compartment : exchanger->GetChildren(OwnerKind::Compartment)) {
            const DetailList& details = *compartment->GetDetails();
            const design::Regenerant* chemical =
                design::FindRegenerant(details.At("stepcomp/cond.chemical").GetStdStringValue());
            if (chemical != nullptr)
                Add(map, chemical->name,
                    Lines(project) * details.At("stepcomp/cond.amount").GetDoubleValue());
        }
    }
    WriteCondMapToDetails(project, map);
}

// Costs

double CyclesPerYear(const iex::IEXProject& project)
{
    return kHoursOfYear / (Number(project, "project/lz") + KnownOr0(sequence::TotalsOf(project).time));
}

iex::CostMap CapitalLines(const iex::IEXProject& project)
{
    iex::CostMap map;
    const auto addResin = [&](std::string_view suffix) {
        const std::string price = Key("cc.cost.", suffix);
        const double litres = 1'000.0 * KnownOr0(Number(project, Key("cc.volume.", suffix)));
        map[price] = LineOf(litres, Number(project, price));
    };
    for (int n = 1; n <= kResins; ++n)
        addResin(fmt::format("resin{}", n));
    for (const char* suffix : kInertSuffixes)
        addResin(suffix);
    for (const char* group : kEquipment) {
        const std::string price = Key("cc.cost.", group);
        map[price] = {1.0, Number(project, price)};
    }
    return map;
}

iex::CostMap OperatingLines(const iex::IEXProject& project)
{
    iex::CostMap map;
    AddChemicals(map, project, "regen");
    AddChemicals(map, project, "cond");
    map["cost/op.cost.wastewater"] = LineOf(KnownOr0(Number(project, "project/vol.waste.all")),
                                            Number(project, "cost/op.cost.wastewater"));
    const double serviceWater = KnownOr0(Number(project, "project/vol.serv.all"));
    const auto [volume, price] = LineOf(serviceWater, Number(project, "cost/op.cost.servwater"));
    map["servWater"] = {volume * price, 0.0};
    return map;
}

iex::CostMap CalculatorMap(const iex::IEXProject& project, const iex::IRXCostCalculator& calculator)
{
    iex::CostMap map = CapitalLines(project);
    const double capital = calculator.calcSystemTotal(map);
    const iex::CostMap operating = OperatingLines(project);
    const double ofYear = CyclesPerYear(project) * calculator.calcOpCost(operating);
    map.insert(operating.begin(), operating.end());
    const double capacity = SystemCapacity(project);
    map["capTotal"] = {capital, 0.0};
    map["opTotal"] = {ofYear, 0.0};
    map["systemCapacity"] = {capacity, 0.0};
    map["systemNetCapacity"] = {capacity * kDaysOfYear, 0.0};
    map["operEscalation"] = {Number(project, "cost/cost.oper.escalation") * kPercent, 0.0};
    map["plantLife"] = {Number(project, "cost/cost.plant.life"), 0.0};
    map["interestRate"] = {Number(project, "cost/cost.interest.rate") * kPercent, 0.0};
    map["annualOperatingCost"] = {calculator.calcAnnualOpCost(map), 0.0};
    return map;
}

void UpdateCosts(iex::IEXProject& project, const design::PlantDesign& plant)
{
    CopyVolumeToCostDetails(project);
    CopyRegenerantsToCostDetail(project, plant);
    CopyConditionersToCostDetail(project);
    const iex::IRXCostCalculator calculator;
    const iex::CostMap map = CalculatorMap(project, calculator);
    const bool isDesigned = design::IsDesigned(project);
    const auto set = [&](const char* key, double value) {
        Set(project, key, isDesigned ? value : design::kNotKnown);
    };
    set("cost/cost.system.total", map.at("capTotal").first);
    set("cost/cost.oper.annual", map.at("annualOperatingCost").first);
    set("cost/cost.npv", calculator.calcNpv(map));
    set("cost/cc.watercost", calculator.calcCapProdWater(map));
    set("cost/op.watercost", calculator.calcOpProdWater(map));
    set("cost/system.watercost", calculator.calcTotalProdWater(map));
}

std::vector<YearOfCosts> YearsOf(const iex::IEXProject& project)
{
    const double annual = Number(project, "cost/cost.oper.annual");
    const double life = Number(project, "cost/cost.plant.life");
    const double growth = 1.0 + Number(project, "cost/cost.oper.escalation") * kPercent;
    const double discount = 1.0 + Number(project, "cost/cost.interest.rate") * kPercent;
    std::vector<YearOfCosts> years;
    if (!std::isfinite(annual) || !std::isfinite(life) || !std::isfinite(growth) || !(discount > 0.0) ||
        life > kMostYears)
        return years;
    for (int year = 1; year <= life; ++year) {
        const double cost = annual * std::pow(growth, year - 1);
        years.push_back({year, cost, cost / std::pow(discount, year)});
        if (!std::isfinite(years.back().discounted))
            return {};
    }
    return years;
}

}  // namespace costs
