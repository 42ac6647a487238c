// SPDX-License-Identifier: MIT
#include "projectbase/project/range_faults.h"

#include "core/detection_limit.h"
#include "core/ion_table.h"
#include "core/ion_units.h"
#include "projectbase/advice/balance_judgement.h"
#include "projectbase/design/design_faults.h"
#include "projectbase/details/detail_display.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/project/project.h"
#include "projectbase/units/temperature.h"
#include "projectbase/water/alkalinity.h"
#include "projectbase/water/blend_recipe.h"
#include "projectbase/water/carbonic_acid.h"
#include "projectbase/water/detection_limits.h"
#include "projectbase/water/ion_rows.h"
#include "projectbase/water/measured_values.h"

#include <wx/translation.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>

namespace {

constexpr std::string_view kOrig = ".orig";
constexpr const char* kLargerThanM = wxTRANSLATE("%s is larger than the m-value of %s");
constexpr const char* kOtherThanPh = wxTRANSLATE("%s does not go with pH and m-value, which give %s");
constexpr const char* kOtherThanCalculated =
    wxTRANSLATE("%s differs by more than a tenth from what the analysis gives, %s");
constexpr const char* kNoBicarbonate =
    wxTRANSLATE("%s does not go with bicarbonate, which water holds only above %s");

/// Where a value is typed whose limit stands with another detail, and how a limit reads in the typed unit.
struct TypedPlace
{
    std::string orig;
    std::string unit;
    double equivalentWeight = 1.0;
    bool isTemperature = false;
    bool isMass = false;  ///< the limit is a mass per volume, not an equivalent amount
};

double WeightOf(std::string_view ion)
{
    const ions::Ion* found = ions::FindIon(ion);
    return found == nullptr ? 1.0 : found->equivalentWeight;
}

std::optional<TypedPlace> TypedPlaceOf(const DetailList& details, const std::string& key)
{
    if (key == "liquid/temp")
        return TypedPlace{.orig = "liquid/temp.orig", .unit = "liquid/temp.unit", .isTemperature = true};
    // Where CO2 is calculated, nobody types it.
    if (key == "liquid/co2.mgl" && details.At("liquid/calculate.co2").GetBoolValue())
        return std::nullopt;
    if (key == "liquid/co2.mgl")
        return TypedPlace{"liquid/co2.orig", "liquid/co2.unit", WeightOf("co2"), false, true};
    if ((key == "liquid/hco3.meql" || key == "liquid/co3.meql") && water::IsAlkalinityReported(details))
        return TypedPlace{"liquid/alkalinity.m.orig", "liquid/alkalinity.m.unit", 1.0, false, false};
    for (const water::IonRow& row : water::IonRows()) {
        if (row.meql == key)
            return TypedPlace{row.orig, row.unit, WeightOf(row.ion), false, false};
    }
    return std::nullopt;
}

double InTypedUnit(double limit, const TypedPlace& place, const std::string& unit)
{
    if (place.isTemperature) {
        const auto known = Temperature::UnitFromText(unit);
        return Temperature(limit, TemperatureUnit::Celsius).In(known.value_or(TemperatureUnit::Celsius));
    }
    return ions::FromMeqPerLitre(place.isMass ? limit / place.equivalentWeight : limit, unit,
                                 place.equivalentWeight);
}

bool IsIonOf(const std::string& key)
{
    for (const water::IonRow& row : water::IonRows()) {
        if (row.meql == key || row.orig == key)
            return true;
    }
    return false;
}

/// Whether the calculation looks at a value: nobody has to mend what is switched off.
bool IsUsed(const DetailList& details, const std::string& key)
{
    if (key == "feed/ph")
        return details.At("feed/adjust.ph").GetBoolValue();
    if (key == "liquid/alk.dose" || key == "liquid/alk.target")
        return !details.At("liquid/alk.type").GetStringValue().empty();
    if (water::IsOfRecipe(key))
        return water::IsBlend(details);
    const DetailData* type = details.GetDetail("liquid/analysis.type");
    if (type == nullptr)
        return true;
    const std::string analysis = type->GetStdStringValue();
    if (key == "liquid/tds.short")
        return analysis == "SHORT_TDS";
    if (key == "liquid/cond.short")
        return analysis == "SHORT_COND";
    if (key == "liquid/co2.orig")
        return !details.At("liquid/calculate.co2").GetBoolValue();
    const bool isShort = analysis == "SHORT_TDS" || analysis == "SHORT_COND";
    return !isShort || !(IsIonOf(key) || key == "liquid/ph" || key == "liquid/co2.mgl" ||
                         key.starts_with("liquid/alkalinity."));
}

/// The limit that the value breaks.
std::optional<RangeFault> FaultOf(const DetailData& detail)
{
    const int side = SideOfLimits(detail);
    if (side == 0)
        return std::nullopt;
    return RangeFault{.address = {{}, detail.GetName()},
                      .label = detail.GetLabel(),
                      .value = detail.GetDoubleValue(),
                      .limit = side < 0 ? detail.GetMinValue() : detail.GetMaxValue(),
                      .isBelow = side < 0,
                      .unit = detail.GetUnit()};
}

/// A p-value that was reported and contradicts the m-value, reported or of the analysis, alone or with the
/// pH.
void AddAlkalinityFault(const DetailList& details, std::vector<RangeFault>& faults)
{
    // Titrations agree within that, or within a tenth of the m-value (mmol/l).
    constexpr double kAgreement = 0.1;
    const auto p = water::ReportedAlkalinity(details, 'p');
    const double m =
        water::ReportedAlkalinity(details, 'm').value_or(details.At("liquid/alkalinity.m").GetDoubleValue());
    if (!p || !std::isfinite(m) || std::isfinite(details.At("liquid/alk.ph").GetDoubleValue()))
        return;
    const double found = details.At("liquid/alkalinity.p").GetDoubleValue();
    const char* sentence = nullptr;
    double limit = m;
    if (*p > std::max(m, 0.0)) {
        sentence = kLargerThanM;
    } else if (std::abs(*p - found) > std::max(kAgreement, kAgreement * std::abs(m))) {
        sentence = kOtherThanPh;
        limit = found;
    }
    if (sentence == nullptr)
        return;
    const DetailData& typed = details.At("liquid/alkalinity.p.orig");
    const std::string unit = details.At("liquid/alkalinity.p.unit").GetStdStringValue();
    faults.push_back({.address = {{}, typed.GetName()},
                      .label = typed.GetLabel(),
                      .value = typed.GetDoubleValue(),
                      .limit = ions::FromMeqPerLitre(limit, unit, 1.0),
                      .isBelow = *p < limit,
                      .unit = unit,
                      .isTypedUnit = true,
                      .sentence = sentence});
}

/// More digits say nothing beside a difference of a tenth.
double ToThreeDigits(double value)
{
    const double scale = value == 0.0 ? 1.0 : std::pow(10.0, 2.0 - std::floor(std::log10(std::abs(value))));
    return std::isfinite(scale) ? std::round(value * scale) / scale : value;
}

/// What was measured, where the analysis gives something else: one of both is wrong, or ions are missing.
void AddMeasuredFaults(const DetailList& details, std::vector<RangeFault>& faults)
{
    for (const water::MeasuredValue& value : water::kMeasuredValues) {
        if (!water::IsContradicted(details, value))
            continue;
        const DetailData& typed = details.At(value.orig);
        const std::string unit = details.At(value.unit).GetStdStringValue();
        const double limit =
            ToThreeDigits(details.At(value.calculated).GetDoubleValue() / water::MeasuredFactor(unit));
        faults.push_back({.address = {{}, typed.GetName()},
                          .label = typed.GetLabel(),
                          .value = typed.GetDoubleValue(),
                          .limit = limit,
                          .isBelow = typed.GetDoubleValue() < limit,
                          .unit = unit,
                          .isTypedUnit = true,
                          .sentence = kOtherThanCalculated});
    }
}

const char* SentenceOf(const advice::BalanceJudgement& judged)
{
    if (judged.isBeyondRule)
        return wxTRANSLATE("%s is above %s; Standard Methods 1030E ends at 800 meq/l");
    switch (judged.rule) {
        case advice::BalanceRule::Dvwk:
            return wxTRANSLATE("%s is over the limit of DVWK 128/1992, %s");
        case advice::BalanceRule::FiveTen:
            return wxTRANSLATE("%s is over the limit of hydrogeology, %s");
        case advice::BalanceRule::StandardMethods:
            break;
    }
    return wxTRANSLATE("%s is over the limit of Standard Methods 1030E, %s");
}

/// Charges that do not agree, where nothing closes them.
void AddBalanceFault(const DetailList& details, std::vector<RangeFault>& faults)
{
    const advice::BalanceJudgement judged = advice::JudgeBalance(details, advice::ChosenBalanceRule());
    if (judged.verdict != advice::BalanceVerdict::OverLimit)
        return;
    const bool isAmount = judged.isLimitOfDifference;
    const double exact = isAmount ? judged.difference : judged.error;
    const double rounded = ToThreeDigits(exact);
    faults.push_back({.address = {{}, "liquid/balance.auto"},
                      .label = details.At("liquid/balance.error").GetLabel(),
                      .value = std::abs(rounded) > judged.limit ? rounded : exact,
                      .limit = judged.limit,
                      .unit = isAmount ? "meq/l" : "%",
                      .sentence = SentenceOf(judged)});
}

/// Values of a water that cannot all be right.
void AddContradictions(const DetailList& details, std::vector<RangeFault>& faults)
{
    const DetailData* pH = details.GetDetail("liquid/ph");
    if (pH == nullptr || !IsUsed(details, pH->GetName()))
        return;
    const auto amount = [&details](const char* key) { return details.At(key).GetDoubleValue(); };
    AddAlkalinityFault(details, faults);
    AddMeasuredFaults(details, faults);
    AddBalanceFault(details, faults);
    if (pH->GetDoubleValue() < water::kLowestBicarbonatePh &&
        (amount("liquid/hco3.meql") > 0.0 || amount("liquid/co3.meql") > 0.0))
        faults.push_back({.address = {{}, pH->GetName()},
                          .label = pH->GetLabel(),
                          .value = pH->GetDoubleValue(),
                          .limit = water::kLowestBicarbonatePh,
                          .isBelow = true,
                          .unit = {},
                          .sentence = kNoBicarbonate});
}

/// Brings a fault to where its value is typed.
void MoveToTypedPlace(RangeFault& fault, const TypedPlace& place, const DetailList& details)
{
    fault.address.key = place.orig;
    fault.unit = details.At(place.unit).GetStdStringValue();
    fault.isTypedUnit = true;
    fault.value = details.At(place.orig).GetDoubleValue();
    fault.limit = InTypedUnit(fault.limit, place, fault.unit);
    fault.label = CalledName(details, details.At(place.orig));
}

/// A value of an entry that was typed in a unit of its own stands in ".typed" and ".unit"; the one in ".meql"
/// then only follows.
struct EntryPlace
{
    const DetailData* typed = nullptr;
    const DetailData* unit = nullptr;

    EntryPlace(const DetailGroup& group, const std::string& key)
    {
        const std::string stem = key.substr(0, key.rfind('.'));
        typed = FindDetail(group, stem + ".typed");
        unit = FindDetail(group, stem + ".unit");
    }
    bool IsTyped() const { return typed != nullptr && !std::isnan(typed->GetDoubleValue()); }
};

/// The entries of lists that occur many times; the user calls each by its name.
void AddGroupFaults(const Project& project, std::vector<RangeFault>& faults)
{
    const bool hasEffluent = project.GetDetails().At("feed/use.effluent").GetBoolValue();
    for (const auto& [kind, groups] : project.GetAllDetailGroups()) {
        for (std::size_t entry = 0; entry < groups->size(); ++entry) {
            const DetailGroup& group = *(*groups)[entry];
            const DetailData* name = FindDetail(group, kind + "/name");
            const DetailData* formula = FindDetail(group, kind + "/formula");
            for (const DetailData& detail : group) {
                auto fault = FaultOf(detail);
                if (!fault || (detail.GetName().find("/conc.effluent.") != std::string::npos && !hasEffluent))
                    continue;
                const EntryPlace place(group, detail.GetName());
                if (place.IsTyped() && place.typed != &detail)
                    continue;
                if (place.IsTyped() && place.unit != nullptr) {
                    fault->unit = place.unit->GetStdStringValue();
                    fault->isTypedUnit = true;
                }
                fault->address.entry = static_cast<int>(entry);
                if (name != nullptr && !name->GetStringValue().empty())
                    fault->label = name->GetStdStringValue();
                if (formula != nullptr)
                    fault->formula = formula->GetStdStringValue();
                faults.push_back(std::move(*fault));
            }
        }
    }
}

void AddNodeFaults(const OwnerNode& node, std::vector<RangeFault>& faults)
{
    for (RangeFault& fault : RangeFaults(*node.GetDetails(), node.GetOwner()))
        faults.push_back(std::move(fault));
    for (std::size_t kind = 0; kind < kOwnerKinds; ++kind) {
        for (const auto& child : node.GetChildren(static_cast<OwnerKind>(kind)))
            AddNodeFaults(*child, faults);
    }
}

}  // namespace

int SideOfLimits(const DetailData& detail)
{
    if (detail.GetType() != DetailType::Double && detail.GetType() != DetailType::Long)
        return 0;
    const double value = detail.GetDoubleValue();
    const bool isLimit = detection_limit::Is(value) && water::TakesDetectionLimit(detail.GetName());
    return SideOfLimits(detail, isLimit ? -value : value);
}

int SideOfLimits(const DetailData& detail, double value)
{
    if (detail.HasMinValue() && value < detail.GetMinValue())
        return -1;
    return detail.HasMaxValue() && value > detail.GetMaxValue() ? 1 : 0;
}

std::vector<RangeFault> RangeFaults(const DetailList& details, DetailOwner owner)
{
    std::vector<RangeFault> faults;
    for (const auto& [key, detail] : details) {
        auto fault = FaultOf(detail);
        if (!fault || !IsUsed(details, key))
            continue;
        if (const auto place = TypedPlaceOf(details, key)) {
            MoveToTypedPlace(*fault, *place, details);
        } else if (key.ends_with(kOrig)) {
            const DetailData* unit = details.GetDetail(key.substr(0, key.size() - kOrig.size()) + ".unit");
            fault->unit = unit == nullptr ? fault->unit : unit->GetStdStringValue();
            fault->isTypedUnit = unit != nullptr;
            fault->label = CalledName(details, detail);
        }
        faults.push_back(std::move(*fault));
    }
    AddContradictions(details, faults);
    for (RangeFault& fault : faults)
        fault.address.owner = owner;
    return faults;
}

std::vector<RangeFault> RangeFaults(const Project& project)
{
    std::vector<RangeFault> faults;
    AddNodeFaults(project.GetRoot(), faults);
    AddGroupFaults(project, faults);
    if (const auto* plant = dynamic_cast<const iex::IEXProject*>(&project))
        std::ranges::move(design::DesignFaults(*plant), std::back_inserter(faults));
    return faults;
}
