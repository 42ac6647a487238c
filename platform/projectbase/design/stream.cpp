// SPDX-License-Identifier: MIT
#include "projectbase/design/stream.h"

#include "core/ion_table.h"
#include "dbinterfaces/master_database.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/water/detection_limits.h"
#include "projectbase/water/ion_rows.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace design {

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
constexpr double kMolarMassCo2 = 44.01;  // g/mol, as in the table of ions

using Group = double Ions::*;

struct GroupOfName
{
    std::string_view name;
    Group group;
};
/// Key of the ion, and its formula as compounds of a feed have it. What is not listed counts as another ion.
constexpr std::array kGroupsOfIons{
    GroupOfName{"ca", &Ions::hardness},    GroupOfName{"mg", &Ions::hardness},
    GroupOfName{"sr", &Ions::hardness},    GroupOfName{"ba", &Ions::hardness},
    GroupOfName{"na", &Ions::monovalent},  GroupOfName{"k", &Ions::monovalent},
    GroupOfName{"nh4", &Ions::monovalent}, GroupOfName{"cl", &Ions::chloride},
    GroupOfName{"so4", &Ions::sulfate},    GroupOfName{"hco3", &Ions::carbon},
    GroupOfName{"co3", &Ions::carbon},     GroupOfName{"sio2", &Ions::silica},
};
/// What takes no part: H+ and OH- meet the ions of the resin itself, boron and CO2 are counted elsewhere or
/// not at all.
constexpr std::array<std::string_view, 4> kNoLoad{"h.plus", "oh.minus", "b", "co2"};

Group GroupOf(std::string_view name, bool isCation)
{
    const auto found = std::ranges::find(kGroupsOfIons, name, &GroupOfName::name);
    if (found != kGroupsOfIons.end())
        return found->group;
    return isCation ? &Ions::otherCations : &Ions::otherAnions;
}

/// The smaller one; unknown where one of them is.
double Least(double a, double b)
{
    return std::isnan(a) || std::isnan(b) ? kUnknown : std::min(a, b);
}

struct RowOfIon
{
    const water::IonRow* row;
    Group group;
};

const std::vector<RowOfIon>& RowsOfIons()
{
    static const std::vector<RowOfIon> rows = [] {
        std::vector<RowOfIon> found;
        for (const water::IonRow& row : water::IonRows()) {
            if (std::ranges::find(kNoLoad, row.ion) == kNoLoad.end())
                found.push_back({&row, GroupOf(row.ion, row.isCation)});
        }
        return found;
    }();
    return rows;
}

/// meq of acid groups in a litre with that much organic carbon (mg/l).
double OrganicAcids(double carbon, const std::string& organics)
{
    static const std::vector<DBObjects::Organic> known = MasterDatabase::GetOrganics();
    const auto found = std::ranges::find(known, organics, &DBObjects::Organic::key);
    if (found == known.end() || found->acidity == 0.0 || !(carbon > 0.0))
        return 0.0;
    constexpr double kMgPerGram = 1000.0;
    return carbon / found->carbon * found->acidity / kMgPerGram;
}

Stream UnknownStream()
{
    Stream stream;
    stream.ions = {kUnknown, kUnknown, kUnknown, kUnknown, kUnknown, kUnknown, kUnknown, kUnknown, kUnknown};
    stream.alkalinity = stream.sodium = stream.temperature = kUnknown;
    return stream;
}

Stream OfWater(const DetailList& water, const std::string& organics)
{
    const auto value = [&water](std::string_view key) { return water.At(key).GetDoubleValue(); };
    if (!std::isfinite(value("liquid/sum.c.meql")) || !std::isfinite(value("liquid/sum.a.meql")))
        return UnknownStream();
    Stream stream;
    double carbonate = 0.0;
    for (const auto& [row, group] : RowsOfIons()) {
        const double meq = value(row->meql);
        if (!std::isfinite(meq) || meq <= 0.0)
            continue;
        stream.ions.*group += meq;
        if (row->species == water::Species::Co3)
            carbonate = meq;
        else if (row->species == water::Species::Na && !row->isNamed)
            stream.sodium = meq;
    }
    stream.ions.otherCations += value("liquid/alk.cation.meql");
    if (water.At("liquid/balance.auto").GetBoolValue()) {
        const double closing = value("liquid/na.plus.meql");
        stream.ions.monovalent += closing;
        stream.sodium += closing;
        stream.ions.chloride += value("liquid/cl.plus.meql");
    }
    stream.alkalinity = stream.ions.carbon;
    // Carbon counts by its moles, whatever its form; carbonate has two equivalents in a mole.
    stream.ions.carbon += value("liquid/co2.mgl") / kMolarMassCo2 - carbonate / 2.0;
    stream.ions.organics = OrganicAcids(water::CountedValue(water, "liquid/toc"), organics);
    stream.temperature = value("liquid/temp");
    return stream;
}

double ValueIn(const DetailGroup& group, std::string_view key)
{
    const DetailData* detail = FindDetail(group, key);
    return detail == nullptr ? kUnknown : detail->GetDoubleValue();
}

std::string LowerFormula(const DetailGroup& group)
{
    const DetailData* detail = FindDetail(group, "feedcompound/formula");
    std::string formula = detail == nullptr ? std::string() : detail->GetStdStringValue();
    std::ranges::transform(formula, formula.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return formula;
}

Stream OfFeed(const iex::IEXProject& project)
{
    const DetailGroupsPtr compounds = project.GetDetailGroups("feedcompound");
    if (!compounds)
        return UnknownStream();
    const DetailList& details = project.GetDetails();
    const bool hasEffluent = details.At("feed/use.effluent").GetBoolValue();
    Stream stream;
    stream.isFood = true;
    for (const DetailGroupPtr& compound : *compounds) {
        const double charge = ValueIn(*compound, "feedcompound/ioniccharge");
        if (charge == 0.0 || std::isnan(charge))
            continue;
        double meq = ValueIn(*compound, "feedcompound/conc.meql");
        const double kept = hasEffluent ? ValueIn(*compound, "feedcompound/conc.effluent.meql") : 0.0;
        meq -= std::isnan(kept) ? 0.0 : kept;
        const std::string formula = LowerFormula(*compound);
        if (formula != "h" && formula != "oh")
            stream.ions.*GroupOf(formula, charge > 0.0) += std::isnan(meq) ? meq : std::max(0.0, meq);
    }
    stream.alkalinity = stream.ions.carbon;
    stream.temperature = details.At("feed/medium.temp").GetDoubleValue();
    // A density within a percent of water's goes with its viscosity.
    constexpr double kWater = 0.998;
    stream.isWater = std::abs(details.At("feed/density").GetDoubleValue() - kWater) < 0.01;
    return stream;
}

Ions TakeCations(Stream& stream)
{
    const Ions taken{.hardness = stream.ions.hardness,
                     .monovalent = stream.ions.monovalent,
                     .otherCations = stream.ions.otherCations};
    stream.ions.hardness = stream.ions.monovalent = stream.ions.otherCations = 0.0;
    // The acid that leaves in their place turns bicarbonate into CO2.
    stream.alkalinity = stream.sodium = 0.0;
    return taken;
}

/// The hardness as far as there is alkalinity; both go, the carbon stays as CO2.
Ions TakeCarbonateHardness(Stream& stream)
{
    const double taken = Least(stream.alkalinity, stream.ions.hardness);
    stream.ions.hardness -= taken;
    stream.alkalinity -= taken;
    return {.hardness = taken};
}

Ions TakeAnions(Stream& stream, bool withWeakAcids)
{
    Ions taken = stream.ions;
    taken.hardness = taken.monovalent = taken.otherCations = 0.0;
    if (!withWeakAcids)
        taken.carbon = taken.silica = 0.0;
    Ions& left = stream.ions;
    left.chloride = left.sulfate = left.otherAnions = left.organics = 0.0;
    left.carbon -= taken.carbon;
    left.silica -= taken.silica;
    return taken;
}

/// Bicarbonate stays; of what is CO2 a residue.
void Degas(double residualCo2, Stream& stream)
{
    const double removed = stream.ions.carbon - stream.alkalinity - residualCo2 / kMolarMassCo2;
    // What is not known is subtracted, too.
    if (!(removed <= 0.0))
        stream.ions.carbon -= removed;
}

}  // namespace

ExchangerKind KindOf(std::string_view key)
{
    static constexpr std::array<std::string_view, 7> kKeys{"SAC_NA", "SAC_H", "WAC_H", "WBA",
                                                           "SBA",    "MB",    "DEGAS"};
    return static_cast<ExchangerKind>(std::ranges::find(kKeys, key) - kKeys.begin());
}

Ions Ions::Times(double factor) const
{
    return {hardness * factor, monovalent * factor,  otherCations * factor,
            chloride * factor, sulfate * factor,     carbon * factor,
            silica * factor,   otherAnions * factor, organics * factor};
}

Stream StreamOf(const iex::IEXProject& project)
{
    if (project.IsOfType("FOODC"))
        return OfFeed(project);
    const LiquidData* water = project.FeedingWater();
    if (water == nullptr)
        return UnknownStream();
    return OfWater(*water->GetDetails(), project.GetDetails().At("feed/organics").GetStdStringValue());
}

std::array<Ions, 2> Take(ExchangerKind kind, double residualCo2, Stream& stream)
{
    switch (kind) {
        case ExchangerKind::SacNa: {
            const Ions taken{.hardness = stream.ions.hardness};
            stream.ions.monovalent += stream.ions.hardness;
            stream.sodium += stream.ions.hardness;
            stream.ions.hardness = 0.0;
            return {taken, {}};
        }
        case ExchangerKind::SacH:
            return {TakeCations(stream), {}};
        case ExchangerKind::WacH:
            return {TakeCarbonateHardness(stream), {}};
        case ExchangerKind::Wba:
            return {TakeAnions(stream, stream.isFood), {}};
        case ExchangerKind::Sba:
            return {TakeAnions(stream, true), {}};
        case ExchangerKind::MixedBed: {
            const Ions cations = TakeCations(stream);
            return {cations, TakeAnions(stream, true)};
        }
        case ExchangerKind::Degasser:
            Degas(residualCo2, stream);
            break;
        case ExchangerKind::Unknown:
            break;
    }
    return {};
}

}  // namespace design
