// SPDX-License-Identifier: MIT
#include "projectbase/advice/resin_limits.h"

#include "core/detection_limit.h"
#include "projectbase/design/plant_design.h"
#include "projectbase/details/detail_catalogue.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/settings/settings.h"
#include "projectbase/water/detection_limits.h"

#include <wx/translation.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace advice {

namespace {

/// Not a number for a limit of detection: up to the limits of the rules it is in order, and beyond them
/// nobody knows.
double Typed(const LiquidData& water, std::string_view key)
{
    const double value = water.GetDetails()->At(key).GetDoubleValue();
    return detection_limit::Is(value) ? std::nan("") : value;
}

/// mg/l. An ion of which nothing was found may as well not have been looked for.
double Found(const LiquidData& water, const std::string& ion)
{
    const DetailList& details = *water.GetDetails();
    const double amount = details.At("liquid/" + ion + ".mgl").GetDoubleValue();
    return amount > 0.0 && !water::IsBelowDetection(details, ion) ? amount : std::nan("");
}

constexpr char kTotalIron[] = "liquid/fe.total";

/// Where the iron of a water is typed: all of it, else the ion.
std::string KeyOfIron(const LiquidData& water)
{
    const bool isTotal = !std::isnan(water.GetDetails()->At(kTotalIron).GetDoubleValue());
    return isTotal ? kTotalIron : "liquid/fe2.orig";
}

double Iron(const LiquidData& water)
{
    return KeyOfIron(water) == kTotalIron ? Typed(water, kTotalIron) : Found(water, "fe2");
}

double Manganese(const LiquidData& water)
{
    return Found(water, "mn");
}

double IronAndManganese(const LiquidData& water)
{
    const double iron = Iron(water);
    const double manganese = Manganese(water);
    return std::isnan(iron) ? manganese : std::isnan(manganese) ? iron : iron + manganese;
}

template <const char* Key>
double Value(const LiquidData& water)
{
    return Typed(water, Key);
}

constexpr char kChlorine[] = "liquid/cl.free";
constexpr char kTurbidity[] = "liquid/turbidity";
constexpr char kSolids[] = "liquid/tss";
constexpr char kOil[] = "liquid/oil";
constexpr char kOrganic[] = "liquid/toc";
constexpr char kSulfide[] = "liquid/h2s";

template <Column Of>
bool IsColumn(const PlantKind& plant)
{
    return plant.column == Of;
}
constexpr auto kSoft = &IsColumn<Column::Softening>;
constexpr auto kDemi = &IsColumn<Column::Demineralisation>;
constexpr auto kPolish = &IsColumn<Column::Polishing>;

/// Organic matter stays on anion resins alone.
bool IsPolishedAnion(const PlantKind& plant)
{
    return plant.column == Column::Polishing && plant.hasAnion;
}

bool IsSoftGel(const PlantKind& plant)
{
    return plant.column == Column::Softening && plant.hasGelCation;
}
bool IsDemiWeak(const PlantKind& plant)
{
    return plant.column == Column::Demineralisation && plant.hasWeak;
}
bool IsDemiAnion(const PlantKind& plant)
{
    return plant.column == Column::Demineralisation && plant.hasAnion;
}
bool IsDemiGel(const PlantKind& plant)
{
    return plant.column == Column::Demineralisation && plant.hasGelAnion;
}

constexpr const char* kUsual = wxTRANSLATE("%s is above the usual limit of %s ahead of ion exchangers");
constexpr const char* kStated =
    wxTRANSLATE("%s is not below %s: it has to be removed ahead of ion exchangers");
constexpr const char* kAbove = wxTRANSLATE("%s is above the limit of %s ahead of ion exchangers");

constexpr const char* kIronFouls = wxTRANSLATE(
    "Iron and manganese exchange, but brine and acid remove them only in part: they foul the resin");
constexpr const char* kChlorineSplits =
    wxTRANSLATE("Chlorine breaks the cross-links of the resin; chloramine does so, too, and passes carbon");
constexpr const char* kSolidsClog = wxTRANSLATE("Solids clog the bed: pressure drop and channels follow");
constexpr const char* kOilCoats =
    wxTRANSLATE("Oil coats the beads, which then take up ions slowly, and no regeneration removes it");
constexpr const char* kOrganicsStay = wxTRANSLATE(
    "Humic acids stay on anion resins, those of styrene most of all: long rinses and silica leakage follow");
constexpr const char* kSulfideFouls =
    wxTRANSLATE("Hydrogen sulfide fouls the resin with sulfur and iron sulfide");

constexpr const char* kPractice = wxTRANSLATE("Practice; figures differ by a factor of two");
constexpr const char* kIllinois = "Illinois 35 IAC 604.805";
constexpr const char* kWisconsin = "Wisconsin NR 811.575";
constexpr const char* kTenStates = "Recommended Standards for Water Works 4.4.2";
constexpr const char* kOxidants = wxTRANSLATE("Ion exchange handbook, oxidants (2010)");

constexpr const char* kIron = wxTRANSLATE("Iron");
constexpr const char* kManganese = wxTRANSLATE("Manganese");
constexpr const char* kIronAndManganese = wxTRANSLATE("Iron and manganese");
constexpr const char* kFreeChlorine = wxTRANSLATE("Free chlorine");

constexpr const char* kSoftening = wxTRANSLATE("softening");
constexpr const char* kDemineralising = wxTRANSLATE("demineralisation, dealkalisation");
constexpr const char* kPolishing = wxTRANSLATE("mixed beds, polishing, packed beds");
constexpr const char* kGelCation = wxTRANSLATE("softening, gel resin");
constexpr const char* kMacroCation = wxTRANSLATE("softening, macroporous resin");
constexpr const char* kWeakResins = wxTRANSLATE("demineralisation, weak resins");
constexpr const char* kStrongAnion = wxTRANSLATE("demineralisation, strong-base resin");
constexpr const char* kGelAnion = wxTRANSLATE("demineralisation, styrenic gel resin");
constexpr const char* kOpenAnion = wxTRANSLATE("demineralisation, acrylic or macroporous resin");

constexpr std::array kRows{
    LimitRow{"fe.soft", kIron, kSoftening, kTotalIron, kUsual, kIronFouls, kPractice, kSoft, Iron},
    LimitRow{"fe.demi", kIron, kDemineralising, kTotalIron, kUsual, kIronFouls, kPractice, kDemi, Iron},
    LimitRow{"fe.polish", kIron, kPolishing, kTotalIron, kUsual, kIronFouls, kPractice, kPolish, Iron},
    LimitRow{"mn.soft", kManganese, kSoftening, "liquid/mn.orig", kUsual, kIronFouls, kPractice, kSoft,
             Manganese},
    LimitRow{"mn.demi", kManganese, kDemineralising, "liquid/mn.orig", kUsual, kIronFouls, kPractice, kDemi,
             Manganese},
    LimitRow{"mn.polish", kManganese, kPolishing, "liquid/mn.orig", kUsual, kIronFouls, kPractice, kPolish,
             Manganese},
    LimitRow{"femn.soft", kIronAndManganese, kSoftening, kTotalIron, kStated, kIronFouls, kIllinois, kSoft,
             IronAndManganese, true},
    LimitRow{"femn.demi", kIronAndManganese, kDemineralising, kTotalIron, kStated, kIronFouls, kWisconsin,
             IsDemiAnion, IronAndManganese, true},
    LimitRow{"cl.gel", kFreeChlorine, kGelCation, kChlorine, kUsual, kChlorineSplits, kPractice, IsSoftGel,
             Value<kChlorine>, false, kAbove, kOxidants},
    LimitRow{"cl.macro", kFreeChlorine, kMacroCation, kChlorine, kUsual, kChlorineSplits, kPractice, kSoft,
             Value<kChlorine>, false, kAbove, kOxidants},
    LimitRow{"cl.weak", kFreeChlorine, kWeakResins, kChlorine, kAbove, kChlorineSplits, kOxidants, IsDemiWeak,
             Value<kChlorine>},
    LimitRow{"cl.strong", kFreeChlorine, kStrongAnion, kChlorine, kAbove, kChlorineSplits, kOxidants,
             IsDemiAnion, Value<kChlorine>},
    LimitRow{"cl.polish", kFreeChlorine, kPolishing, kChlorine, kUsual, kChlorineSplits, kPractice, kPolish,
             Value<kChlorine>},
    LimitRow{"turbidity.soft", wxTRANSLATE("Turbidity"), kSoftening, kTurbidity, kAbove, kSolidsClog,
             kTenStates, kSoft, Value<kTurbidity>, false, kUsual, kPractice},
    LimitRow{"turbidity.demi", wxTRANSLATE("Turbidity"), kDemineralising, kTurbidity, kUsual, kSolidsClog,
             kPractice, kDemi, Value<kTurbidity>},
    LimitRow{"turbidity.polish", wxTRANSLATE("Turbidity"), kPolishing, kTurbidity, kUsual, kSolidsClog,
             kPractice, kPolish, Value<kTurbidity>},
    LimitRow{"tss.soft", wxTRANSLATE("TSS"), kSoftening, kSolids, kUsual, kSolidsClog, kPractice, kSoft,
             Value<kSolids>},
    LimitRow{"tss.demi", wxTRANSLATE("TSS"), kDemineralising, kSolids, kUsual, kSolidsClog, kPractice, kDemi,
             Value<kSolids>},
    LimitRow{"tss.polish", wxTRANSLATE("TSS"), kPolishing, kSolids, kUsual, kSolidsClog, kPractice, kPolish,
             Value<kSolids>},
    LimitRow{"oil.soft", wxTRANSLATE("Oil"), kSoftening, kOil, kUsual, kOilCoats, kPractice, kSoft,
             Value<kOil>},
    LimitRow{"oil.demi", wxTRANSLATE("Oil"), kDemineralising, kOil, kUsual, kOilCoats, kPractice, kDemi,
             Value<kOil>},
    LimitRow{"oil.polish", wxTRANSLATE("Oil"), kPolishing, kOil, kUsual, kOilCoats, kPractice, kPolish,
             Value<kOil>},
    LimitRow{"toc.gel", wxTRANSLATE("TOC"), kGelAnion, kOrganic, kUsual, kOrganicsStay, kPractice, IsDemiGel,
             Value<kOrganic>},
    LimitRow{"toc.open", wxTRANSLATE("TOC"), kOpenAnion, kOrganic, kUsual, kOrganicsStay, kPractice,
             IsDemiAnion, Value<kOrganic>},
    LimitRow{"toc.polish", wxTRANSLATE("TOC"), kPolishing, kOrganic, kUsual, kOrganicsStay, kPractice,
             IsPolishedAnion, Value<kOrganic>},
    LimitRow{"h2s.soft", wxTRANSLATE("H2S"), kSoftening, kSulfide, kUsual, kSulfideFouls, kPractice, kSoft,
             Value<kSulfide>},
    LimitRow{"h2s.demi", wxTRANSLATE("H2S"), kDemineralising, kSulfide, kUsual, kSulfideFouls, kPractice,
             kDemi, Value<kSulfide>},
    LimitRow{"h2s.polish", wxTRANSLATE("H2S"), kPolishing, kSulfide, kUsual, kSulfideFouls, kPractice,
             kPolish, Value<kSulfide>},
};

void LookAtResins(const OwnerNode& compartment, PlantKind& kind)
{
    for (const auto& resin : compartment.GetChildren(OwnerKind::Resin)) {
        const std::string key = resin->GetDetails()->At("compcomp/resin").GetStdStringValue();
        kind.hasGelCation |= key == "sac_gel";
        kind.hasWeak |= key.starts_with("wac") || key.starts_with("wba");
        kind.hasAnion |= key.starts_with("sba") || key.starts_with("wba");
        kind.hasGelAnion |= key == "sba_1" || key == "sba_2";
    }
}

}  // namespace

PlantKind KindOfPlant(const Project& project, const LiquidData& water)
{
    PlantKind kind;
    const iex::IEXProject* const plant = iex::PlantOf(project);
    if (plant == nullptr || plant->FeedingWater() != &water)
        return kind;
    if (plant->IsOfType("DEMI") || plant->IsOfType("DEALK"))
        kind.column = Column::Demineralisation;
    else if (plant->IsOfType("MB") || plant->IsOfType("CP"))
        kind.column = Column::Polishing;
    for (std::size_t i = 0; i < plant->NumberSteps(); ++i) {
        for (const auto& compartment : plant->GetStep(i).GetChildren(OwnerKind::Compartment)) {
            LookAtResins(*compartment, kind);
            if (design::IsPacked(*compartment))
                kind.column = Column::Polishing;
        }
    }
    return kind;
}

std::span<const LimitRow> LimitRows()
{
    return kRows;
}

std::string KeyOf(const LimitRow& row, const LiquidData& water)
{
    return row.key == std::string_view(kTotalIron) ? KeyOfIron(water) : row.key;
}

std::optional<Metal> LoneMetal(const LiquidData& water)
{
    const bool hasIron = Iron(water) > 0.0;
    if (hasIron == (Manganese(water) > 0.0))
        return std::nullopt;
    return hasIron ? Metal{kIron, KeyOfIron(water), "fe."} : Metal{kManganese, "liquid/mn.orig", "mn."};
}

bool IsInOrder(const Limits& limits)
{
    return !(limits.note > limits.warn);
}

std::string NoteSetting(const LimitRow& row)
{
    return std::string("limit.") + row.id + ".note";
}

std::string WarnSetting(const LimitRow& row)
{
    return std::string("limit.") + row.id + ".warn";
}

Limits LimitsOf(const LimitRow& row)
{
    return {Settings::GetSetting(NoteSetting(row)).GetDoubleValue(),
            Settings::GetSetting(WarnSetting(row)).GetDoubleValue()};
}

Limits UsualLimitsOf(const LimitRow& row)
{
    const auto settings = CatalogueGroup("settings", "BASE");
    const auto valueOf = [&settings](const std::string& name) {
        const auto found = std::ranges::find(*settings, name, &DetailData::GetName);
        return found != settings->end() ? found->GetDoubleValue() : std::nan("");
    };
    return {valueOf(NoteSetting(row)), valueOf(WarnSetting(row))};
}

bool IsSameLimit(double limit, double other)
{
    return limit == other || (std::isnan(limit) && std::isnan(other));
}

}  // namespace advice
