// SPDX-License-Identifier: MIT
#include "projectbase/water/diagrams/ion_diagrams.h"

#include <algorithm>
#include <cmath>

namespace diagrams {

namespace {

void Add(std::vector<BarSegment>& bar, BarPart part, double meq, bool isClosing = false)
{
    if (meq > 0.0)
        bar.push_back({part, meq, isClosing});
}

}  // namespace

IonBars BarsOf(const WaterIons& ions)
{
    // The H+ and OH- of a neutral water are nothing that could be seen.
    constexpr double kVisible = 1e-3;
    const auto visible = [](double amount, double sum) { return amount < kVisible * sum ? 0.0 : amount; };
    IonBars bars;
    Add(bars.cations, BarPart::Calcium, ions.calcium);
    Add(bars.cations, BarPart::Magnesium, ions.magnesium);
    Add(bars.cations, BarPart::Sodium, ions.sodium);
    Add(bars.cations, BarPart::Potassium, ions.potassium);
    Add(bars.cations, BarPart::Ammonium, ions.ammonium);
    Add(bars.cations, BarPart::Iron, ions.iron);
    Add(bars.cations, BarPart::Manganese, ions.manganese);
    Add(bars.cations, BarPart::OtherCations, visible(ions.otherCations, ions.CationSum()));
    Add(bars.cations, BarPart::Sodium, ions.closingSodium, true);
    Add(bars.anions, BarPart::Alkalinity, ions.bicarbonate + visible(ions.hydroxide, ions.AnionSum()));
    Add(bars.anions, BarPart::Sulfate, ions.sulfate);
    Add(bars.anions, BarPart::Chloride, ions.chloride);
    Add(bars.anions, BarPart::Nitrate, ions.nitrate);
    Add(bars.anions, BarPart::OtherAnions,
        visible(ions.fluoride + ions.bromide + ions.otherAnions, ions.AnionSum()));
    Add(bars.anions, BarPart::Chloride, ions.closingChloride, true);
    return bars;
}

std::vector<StiffRow> StiffOf(const WaterIons& ions, bool withFourthRow)
{
    const MainGroups groups = GroupsOf(ions);
    std::vector<StiffRow> rows{{groups.alkalis, groups.chloride},
                               {groups.calcium, groups.bicarbonate},
                               {groups.magnesium, groups.sulfate}};
    if (withFourthRow)
        rows.push_back({ions.iron, ions.nitrate});
    return rows;
}

std::vector<double> SchoellerOf(const WaterIons& ions, bool withNitrate)
{
    const MainGroups groups = GroupsOf(ions);
    std::vector<double> values{groups.calcium,  groups.magnesium, groups.alkalis,
                               groups.chloride, groups.sulfate,   groups.bicarbonate};
    if (withNitrate)
        values.push_back(ions.nitrate);
    std::ranges::replace_if(
        values, [](double value) { return !(value > 0.0); }, std::numeric_limits<double>::quiet_NaN());
    return values;
}

Decades DecadesAround(const std::vector<std::vector<double>>& values)
{
    double least = std::numeric_limits<double>::infinity();
    double greatest = 0.0;
    for (const std::vector<double>& line : values) {
        for (const double value : line) {
            if (!(value > 0.0) || !std::isfinite(value))
                continue;
            least = std::min(least, value);
            greatest = std::max(greatest, value);
        }
    }
    if (!(greatest > 0.0))
        return {};
    const double first = std::floor(std::log10(least));
    // One that is a power of ten itself stands at the foot of a decade, not of none.
    const double last = std::max(std::ceil(std::log10(greatest)), first + 1.0);
    return {std::pow(10.0, first), std::pow(10.0, last)};
}

}  // namespace diagrams
