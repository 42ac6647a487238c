// SPDX-License-Identifier: MIT
#include "gui_base/report/water_results.h"

#include "core/amount_text.h"
#include "core/ion_table.h"
#include "gui_base/report/advice_text.h"
#include "gui_base/report/balance_text.h"
#include "gui_base/report/with_title.h"
#include "projectbase/advice/evaluation.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/units/unit_system_manager.h"

#include <fmt/format.h>
#include <wx/translation.h>

#include <array>
#include <cmath>
#include <string_view>

namespace wateranalysis {
namespace {

constexpr int kDigits = 3;
constexpr int kFewDigits = 2;
constexpr const char* kCalciumCarbonate = "ppm CaCO3";

/// What the tiles are made of.
struct Facts
{
    const LiquidData& water;
    const DetailList& details;
    const advice::WaterNumbers& numbers;
    const advice::Evaluation& evaluation;
    const ReportContext& context;

    double Value(const char* key) const { return details.At(key).GetDoubleValue(); }
    std::string Tr(const char* source) const { return context.Translated(source); }
    std::string Number(double value, int digits = kDigits) const { return context.Number(value, digits); }

    /// "8.85 meq/l", which stay on one line; empty for what is not known.
    std::string Amount(double value, std::string_view unit, int digits = kFewDigits) const
    {
        return numbertext::WithUnit(Number(value, digits), unit);
    }
    /// The caption, with the amount behind it in place of "%s"; empty for what is not known.
    std::string Caption(const char* source, const std::string& amount) const
    {
        std::string text = amount.empty() ? amount : Tr(source);
        if (const auto at = text.find("%s"); at != std::string::npos)
            text.replace(at, 2, amount);
        return text;
    }
    /// In the unit of the unit system.
    void Show(ResultTile& tile, double value, const char* isoUnit) const
    {
        tile.value = Number(UnitSystemManager::FromISO(isoUnit, context.unitSystem, value));
        tile.unit = UnitSystemManager::GetUnit(isoUnit, context.unitSystem, true);
    }
    /// A line of an explanation: what it is, and how much.
    std::string Line(const char* source, const std::string& amount) const
    {
        return "\n" + WithTitle(Tr(source), amount, context);
    }
    DetailAddress At(const char* key) const { return {water.GetOwner(), key}; }
};

std::string InOtherUnits(const Facts& facts, double meq)
{
    const auto in = [&](std::string_view unit) {
        return facts.Amount(advice::HardnessIn(meq, unit), unit, kDigits);
    };
    std::string text = in(kCalciumCarbonate);
    if (text.empty() || HardnessDegree(facts.context).empty())
        return text;
    return fmt::format("{}, {}", text, in(HardnessDegree(facts.context)));
}

void ShowTds(const Facts& facts, ResultTile& tile)
{
    const double tds = facts.Value("liquid/tds");
    facts.Show(tile, tds > 0.0 ? tds : std::nan(""), "mg/l");
    if (tds > 0.0)
        tile.second = facts.Caption(wxTRANSLATE("Dry residue %s"),
                                    facts.Amount(facts.Value("liquid/residue"), "mg/l", kDigits));
    tile.address = facts.At("liquid/tds");
}

void ShowConductivity(const Facts& facts, ResultTile& tile)
{
    const double calculated = facts.Value("liquid/cond25");
    facts.Show(tile, calculated > 0.0 ? calculated : std::nan(""), "uS/cm");
    tile.second = facts.Caption(wxTRANSLATE("measured %s"),
                                facts.Amount(facts.Value("liquid/cond25.measured"), tile.unit, kDigits));
    tile.address = facts.At("liquid/cond25");
}

void ShowHardness(const Facts& facts, ResultTile& tile)
{
    facts.Show(tile, facts.numbers.hardness, "meq/l");
    tile.second = InOtherUnits(facts, facts.numbers.hardness);
    tile.address = facts.At("liquid/hardness.total");
}

void ShowCarbonateHardness(const Facts& facts, ResultTile& tile)
{
    facts.Show(tile, facts.numbers.carbonate, "meq/l");
    tile.second = facts.numbers.sodiumAlkalinity > 0.0
                      ? facts.Caption(wxTRANSLATE("sodium alkalinity %s"),
                                      facts.Amount(facts.numbers.sodiumAlkalinity, "meq/l"))
                      : facts.Caption(wxTRANSLATE("non-carbonate %s"),
                                      facts.Amount(facts.numbers.nonCarbonate, "meq/l"));
    tile.address = facts.At("liquid/hardness.carbonate");
}

void ShowAlkalinity(const Facts& facts, ResultTile& tile)
{
    facts.Show(tile, facts.numbers.m, "mmol/l");
    tile.second = InOtherUnits(facts, facts.numbers.m);
    tile.address = facts.At("liquid/alkalinity.m");
}

void ShowAlkalinityP(const Facts& facts, ResultTile& tile)
{
    facts.Show(tile, facts.numbers.p, "mmol/l");
    if (facts.numbers.p < 0.0)
        tile.second =
            facts.Caption(wxTRANSLATE("base demand to pH 8.2: %s"), facts.Amount(-facts.numbers.p, "mmol/l"));
    tile.address = facts.At("liquid/alkalinity.p");
}

void ShowAcidity(const Facts& facts, ResultTile& tile)
{
    facts.Show(tile, facts.numbers.acidity, "meq/l");
    tile.second = facts.Caption(wxTRANSLATE("by cations less alkalinity %s"),
                                facts.Amount(facts.numbers.acidityByCations, "meq/l"));
    tile.address = facts.At("liquid/ema");
}

void ShowAnionLoad(const Facts& facts, ResultTile& tile)
{
    facts.Show(tile, facts.numbers.anionLoad, "meq/l");
    if (!tile.value.empty() && std::isnan(facts.numbers.silica))
        tile.title = facts.Tr(wxTRANSLATE("Anion load with CO2, SiO2 unknown"));
    tile.second =
        facts.Caption(std::isnan(facts.evaluation.residualCo2) ? wxTRANSLATE("behind a degasser %s")
                                                               : wxTRANSLATE("behind the degasser %s"),
                      facts.Amount(facts.evaluation.anionLoadBehindDegasser, "meq/l"));
}

void ShowPh(const Facts& facts, ResultTile& tile)
{
    const double alkalised = facts.Value("liquid/alk.ph");
    facts.Show(tile, std::isnan(alkalised) ? facts.Value("liquid/ph") : alkalised, "");
    tile.second = facts.Amount(facts.numbers.co2 * ions::FindIon("co2")->molarMass, "mg/l CO2");
    tile.address = facts.At("liquid/ph");
}

void ShowLoad(const Facts& facts, ResultTile& tile)
{
    const advice::DailyLoads& loads = facts.evaluation.loads;
    const double load = facts.evaluation.designLoad;
    facts.Show(tile, load, "eq/d");
    ResultTile mass;
    facts.Show(mass, load * advice::kKilogramCaCo3PerEquivalent, "kg/d");
    if (!mass.value.empty())
        tile.second = numbertext::WithUnit(mass.value, mass.unit) + " CaCO3";
    tile.address = DetailAddress{{}, "project/qbrutto"};
    const auto line = [&](const char* source, double amount) {
        ResultTile shown;
        facts.Show(shown, amount, "eq/d");
        return shown.value.empty() ? std::string()
                                   : facts.Line(source, numbertext::WithUnit(shown.value, shown.unit));
    };
    tile.explanation += line(wxTRANSLATE("All cations"), loads.cations) +
                        line(wxTRANSLATE("Total hardness"), loads.hardness) +
                        line(wxTRANSLATE("Carbonate hardness"), loads.carbonate) +
                        line(wxTRANSLATE("Anions of strong acids"), loads.acidity) +
                        line(wxTRANSLATE("All anions"), loads.anions);
}

void ShowLangelier(const Facts& facts, ResultTile& tile)
{
    const advice::Saturation& saturation = facts.evaluation.saturation;
    if (std::isnan(saturation.langelier))
        return;
    // The constants are good to a tenth.
    tile.value = FixedNumber(saturation.langelier, 1, facts.context);
    tile.unit = saturation.isBeyondDavies ? "(I > 0.2)" : "";
    tile.second = fmt::format(
        "{}, {}", LangelierReading(saturation.langelier, facts.context),
        facts.Caption(wxTRANSLATE("Ryznar %s"), FixedNumber(saturation.ryznar, 1, facts.context)));
    const auto line = [&](const char* source, double value) {
        return std::isnan(value) ? std::string() : facts.Line(source, FixedNumber(value, 2, facts.context));
    };
    tile.explanation +=
        line(wxTRANSLATE("pH of saturation"), saturation.pHs) +
        line(wxTRANSLATE("Langelier index without ion pairs"), saturation.langelierByHand) +
        line(wxTRANSLATE("Langelier index, simplified form"), saturation.langelierSimplified) +
        facts.Line(wxTRANSLATE("Ryznar index"),
                   fmt::format("{}, {}", FixedNumber(saturation.ryznar, 1, facts.context),
                               RyznarReading(saturation.ryznar, facts.context)));
    tile.address = facts.At("liquid/ph");
}

void ShowSilica(const Facts& facts, ResultTile& tile)
{
    facts.Show(tile, facts.evaluation.saturation.silicaPercent, "%");
    if (!tile.value.empty())
        tile.second = facts.Caption(wxTRANSLATE("index %s"),
                                    FixedNumber(facts.evaluation.saturation.silica, 1, facts.context));
    tile.address = facts.At("liquid/sio2.orig");
}

struct TileRow
{
    const char* id;
    const char* title;
    const char* explanation;
    void (*show)(const Facts& facts, ResultTile& tile);
    const char* titleSuffix = "";  ///< not translated
};

constexpr std::array kTiles{
    TileRow{"tds", wxTRANSLATE("TDS"), wxTRANSLATE("Sum of all that is dissolved, CO2 apart"), ShowTds},
    TileRow{"conductivity", wxTRANSLATE("Conductivity"), wxTRANSLATE("Calculated from the ions"),
            ShowConductivity, " @ 25 \u00b0C"},
    TileRow{"hardness", wxTRANSLATE("Total hardness"), wxTRANSLATE("Calcium and magnesium"), ShowHardness},
    TileRow{"carbonate", wxTRANSLATE("Carbonate hardness"),
            wxTRANSLATE("The hardness that the alkalinity goes with"), ShowCarbonateHardness},
    TileRow{"m", wxTRANSLATE("Alkalinity (m-value)"),
            wxTRANSLATE("Acid demand to pH 4.3, less the acid that the water has there"), ShowAlkalinity},
    TileRow{"p", wxTRANSLATE("Alkalinity (p-value)"), wxTRANSLATE("Acid demand to pH 8.2"), ShowAlkalinityP},
    TileRow{"ema", wxTRANSLATE("Equivalent mineral acidity"),
            wxTRANSLATE("Anions of strong acids: the acidity behind a strong-acid cation exchanger"),
            ShowAcidity},
    TileRow{"anions", wxTRANSLATE("Anion load with CO2 and SiO2"),
            wxTRANSLATE("What a strong-base anion exchanger takes up; carbonic acid and silica count one "
                        "equivalent a mole"),
            ShowAnionLoad},
    TileRow{"ph", wxTRANSLATE("pH"), wxTRANSLATE("With the free CO2 that goes with it"), ShowPh},
    TileRow{
        "load", wxTRANSLATE("Load of a day"),
        wxTRANSLATE("What the water brings at the flow of all lines, in the hours that they run on a day"),
        ShowLoad},
    TileRow{"langelier", wxTRANSLATE("Langelier index"),
            wxTRANSLATE("Above 0 calcium carbonate may deposit, below 0 it dissolves; good to a tenth"),
            ShowLangelier},
    TileRow{"silica", wxTRANSLATE("Silica saturation"),
            wxTRANSLATE("Silica in percent of the solubility of its amorphous form"), ShowSilica},
};

}  // namespace

std::string HardnessDegree(const ReportContext& context)
{
    if (context.unitSystem == "us")
        return {};
    constexpr const char* kFrench = "\u00b0f";
    if (context.unitSystem == "imperial")
        return "\u00b0e";
    // A text of its own, which names the degree of the country: a unit that is translated is another amount.
    return context.Translated(wxTRANSLATE("Hardness in °d")).ends_with(kFrench) ? kFrench : "\u00b0d";
}

std::vector<ResultTile> EmptyTiles(const ReportContext& context)
{
    std::vector<ResultTile> tiles;
    tiles.reserve(std::size(kTiles));
    for (const TileRow& row : kTiles)
        tiles.push_back({.id = row.id,
                         .title = context.Translated(row.title) + row.titleSuffix,
                         .explanation = context.Translated(row.explanation)});
    return tiles;
}

std::vector<ResultTile> ResultTiles(const advice::Evaluation& evaluation, const LiquidData& water,
                                    const ReportContext& context)
{
    const Facts facts{water, *water.GetDetails(), evaluation.numbers, evaluation, context};
    std::vector<ResultTile> tiles = EmptyTiles(context);
    for (std::size_t i = 0; i < tiles.size(); ++i)
        kTiles[i].show(facts, tiles[i]);
    return tiles;
}

}  // namespace wateranalysis
