// SPDX-License-Identifier: MIT
#include "projectbase/water/diagrams/water_ions.h"

#include "projectbase/details/detail_list.h"
#include "projectbase/water/ion_rows.h"
#include "projectbase/water/normalization.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace diagrams {

namespace {

using water::Species;

struct Group
{
    std::string_view ion;
    double WaterIons::*amount;
};
constexpr std::array kGroups{
    Group{"ca", &WaterIons::calcium},   Group{"mg", &WaterIons::magnesium},
    Group{"na", &WaterIons::sodium},    Group{"k", &WaterIons::potassium},
    Group{"nh4", &WaterIons::ammonium}, Group{"fe2", &WaterIons::iron},
    Group{"mn", &WaterIons::manganese}, Group{"hco3", &WaterIons::bicarbonate},
    Group{"so4", &WaterIons::sulfate},  Group{"co3", &WaterIons::bicarbonate},
    Group{"cl", &WaterIons::chloride},  Group{"no3", &WaterIons::nitrate},
    Group{"f", &WaterIons::fluoride},   Group{"br", &WaterIons::bromide},
};

double& GroupOf(WaterIons& ions, const water::IonRow& row)
{
    const auto* found = std::ranges::find(kGroups, row.ion, &Group::ion);
    if (found != kGroups.end())
        return ions.*found->amount;
    return row.isCation ? ions.otherCations : ions.otherAnions;
}

double Known(double amount)
{
    return std::isfinite(amount) ? std::max(amount, 0.0) : 0.0;
}

double Amount(const DetailList& liquid, const std::string& key)
{
    return Known(liquid.At(key).GetDoubleValue());
}

/// H+ and OH-; the pH of a short analysis plays no part.
void AddIonsOfWater(const DetailList& liquid, WaterIons& ions)
{
    if (liquid.At("liquid/analysis.type").GetStdStringValue().starts_with("SHORT_"))
        return;
    const water::Composition whole = water::WholeComposition(liquid);
    // The sulfate is a total: what it binds of the acid is there beside it.
    ions.otherCations += Known(whole[Species::H]) + Known(whole.boundHydrogen);
    ions.hydroxide = Known(whole[Species::Oh]);
}

}  // namespace

double WaterIons::CationSum() const
{
    return calcium + magnesium + sodium + potassium + ammonium + iron + manganese + otherCations +
           closingSodium;
}

double WaterIons::AnionSum() const
{
    return bicarbonate + hydroxide + sulfate + chloride + nitrate + fluoride + bromide + otherAnions +
           closingChloride;
}

WaterIons IonsOf(const DetailList& liquid)
{
    WaterIons ions;
    for (const water::IonRow& row : water::IonRows()) {
        const bool isWater = row.species == Species::H || row.species == Species::Oh;
        if (row.countsAsCharge && !isWater)
            GroupOf(ions, row) += Amount(liquid, row.meql);
    }
    ions.otherCations += Amount(liquid, "liquid/alk.cation.meql");
    AddIonsOfWater(liquid, ions);
    if (liquid.At("liquid/balance.auto").GetBoolValue()) {
        ions.closingSodium = Amount(liquid, "liquid/na.plus.meql");
        ions.closingChloride = Amount(liquid, "liquid/cl.plus.meql");
    }
    ions.dissolved = liquid.At("liquid/tds").GetDoubleValue();
    return ions;
}

MainGroups GroupsOf(const WaterIons& ions)
{
    return {.calcium = ions.calcium,
            .magnesium = ions.magnesium,
            .alkalis = ions.sodium + ions.potassium + ions.closingSodium,
            .bicarbonate = ions.bicarbonate,
            .sulfate = ions.sulfate,
            .chloride = ions.chloride + ions.closingChloride};
}

bool operator==(const WaterIons& a, const WaterIons& b)
{
    constexpr std::array kMembers{
        &WaterIons::calcium,        &WaterIons::magnesium,    &WaterIons::sodium,
        &WaterIons::potassium,      &WaterIons::ammonium,     &WaterIons::iron,
        &WaterIons::manganese,      &WaterIons::otherCations, &WaterIons::bicarbonate,
        &WaterIons::hydroxide,      &WaterIons::sulfate,      &WaterIons::chloride,
        &WaterIons::nitrate,        &WaterIons::fluoride,     &WaterIons::bromide,
        &WaterIons::otherAnions,    &WaterIons::dissolved,    &WaterIons::closingSodium,
        &WaterIons::closingChloride};
    return std::ranges::all_of(kMembers, [&](double WaterIons::*member) {
        return a.*member == b.*member || (std::isnan(a.*member) && std::isnan(b.*member));
    });
}

}  // namespace diagrams
