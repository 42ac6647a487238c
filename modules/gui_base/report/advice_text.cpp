// SPDX-License-Identifier: MIT
#include "gui_base/report/advice_text.h"

#include "core/amount_text.h"
#include "gui_base/report/balance_text.h"
#include "gui_base/report/told_apart.h"
#include "gui_base/report/with_title.h"
#include "projectbase/advice/saturation.h"
#include "projectbase/units/unit_system_manager.h"

#include <fmt/format.h>
#include <wx/translation.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>
#include <limits>

namespace wateranalysis {
namespace {

constexpr int kDigits = 3;
constexpr int kDecimals = 2;

struct MineralName
{
    advice::Mineral mineral;
    const char* name;
};
constexpr std::array kMineralNames{
    MineralName{advice::Mineral::Calcite, wxTRANSLATE("Calcite")},
    MineralName{advice::Mineral::Aragonite, wxTRANSLATE("Aragonite")},
    MineralName{advice::Mineral::Gypsum, wxTRANSLATE("Gypsum")},
    MineralName{advice::Mineral::Anhydrite, wxTRANSLATE("Anhydrite")},
    MineralName{advice::Mineral::Barite, wxTRANSLATE("Barite")},
    MineralName{advice::Mineral::Celestite, wxTRANSLATE("Celestite")},
    MineralName{advice::Mineral::Fluorite, wxTRANSLATE("Fluorite")},
};

std::string WithUnit(double value, int digits, const char* isoUnit, const ReportContext& context)
{
    // An index is no better than two decimals, whatever stands ahead of them.
    if (*isoUnit == '\0') {
        const double scale = std::pow(10.0, digits - 1);
        return context.Number(std::round(scale * value) / scale, digits);
    }
    const std::string unit = UnitSystemManager::GetUnit(isoUnit, context.unitSystem, true);
    return numbertext::WithUnit(
        context.Number(UnitSystemManager::FromISO(isoUnit, context.unitSystem, value), digits), unit);
}

/// Activities by Davies hold up to there only.
const char* MarkOf(bool isBeyondActivities)
{
    return isBeyondActivities ? " (I > 0.2)" : "";
}

/// The text with the amounts in place of its "%s", one after the other.
std::string Filled(std::string text, std::initializer_list<std::string> amounts)
{
    std::size_t from = 0;
    for (const std::string& amount : amounts) {
        const std::size_t at = text.find("%s", from);
        if (at == std::string::npos)
            break;
        text.replace(at, 2, amount);
        from = at + amount.size();
    }
    return text;
}

std::string IndexText(double index, const advice::Saturation& saturation, const ReportContext& context)
{
    return std::isnan(index) ? std::string()
                             : FixedNumber(index, kDecimals, context) + MarkOf(saturation.isBeyondDavies);
}

}  // namespace

std::string AdviceSentence(const advice::Advice& advice, const ReportContext& context)
{
    return ToldSentence(
               context.Translated(advice.sentence), context.Translated(advice.label), advice.value,
               advice.limit, kDigits,
               [&](double number, int digits) { return WithUnit(number, digits, advice.unit, context); }) +
           MarkOf(advice.isBeyondActivities);
}

std::string AdviceSource(const advice::Advice& advice, const ReportContext& context)
{
    if (!advice.usual)
        return context.Translated(advice.source);
    if (std::isnan(*advice.usual))
        return context.Translated(wxTRANSLATE("Set by the user; usually there is no limit"));
    return Filled(context.Translated(wxTRANSLATE("Set by the user; usual is %s")),
                  {WithUnit(*advice.usual, kDigits, advice.unit, context)});
}

std::string AdviceReason(const advice::Advice& advice, const ReportContext& context)
{
    std::string reason = context.Translated(advice.reason);
    if (advice.acid)
        reason +=
            ". " + Filled(context.Translated(wxTRANSLATE(
                              "With %s calcium in the feed spent acid can hold %s times what dissolves of "
                              "gypsum")),
                          {numbertext::WithUnit(context.Number(advice.acid->calciumShare, kDigits), "%"),
                           FixedNumber(advice.acid->supersaturation, 1, context)});
    return reason + "\n" +
           WithTitle(context.Translated(wxTRANSLATE("Source")), AdviceSource(advice, context), context);
}

std::string SeverityText(advice::Severity severity, const ReportContext& context)
{
    return context.Translated(severity == advice::Severity::Warn ? wxTRANSLATE("Warning")
                                                                 : wxTRANSLATE("Note"));
}

std::string RyznarReading(double index, const ReportContext& context)
{
    struct Band
    {
        double below;
        const char* reading;
    };
    // As tables of the index commonly have them.
    constexpr std::array kBands{
        Band{5.5, wxTRANSLATE("heavy scale")}, Band{6.2, wxTRANSLATE("scale")},
        Band{6.8, wxTRANSLATE("no difficulty")}, Band{8.5, wxTRANSLATE("aggressive")},
        Band{std::numeric_limits<double>::infinity(), wxTRANSLATE("very aggressive")}};
    const auto* const band =
        std::ranges::find_if(kBands, [index](const Band& each) { return index < each.below; });
    return band == kBands.end() ? std::string() : context.Translated(band->reading);
}

std::vector<SaturationRow> SaturationRows(const advice::Saturation& saturation, const ReportContext& context)
{
    const auto text = [&](double index) { return IndexText(index, saturation, context); };
    const auto silica = saturation.silicaPercent;
    std::vector<SaturationRow> rows{
        {context.Translated(wxTRANSLATE("Langelier index")), text(saturation.langelier)},
        {context.Translated(wxTRANSLATE("Langelier index without ion pairs")),
         text(saturation.langelierByHand)},
        {context.Translated(wxTRANSLATE("Langelier index, simplified form")),
         text(saturation.langelierSimplified)},
        {context.Translated(wxTRANSLATE("pH of saturation")), text(saturation.pHs)},
        {context.Translated(wxTRANSLATE("Ryznar index")),
         std::isnan(saturation.ryznar)
             ? std::string()
             : fmt::format("{}, {}", text(saturation.ryznar), RyznarReading(saturation.ryznar, context))}};
    for (const auto& [mineral, name] : kMineralNames)
        rows.push_back({context.Translated(name), text(saturation.Index(mineral))});
    rows.push_back({context.Translated(wxTRANSLATE("Amorphous silica")), text(saturation.silica)});
    rows.push_back({context.Translated(wxTRANSLATE("Saturation with amorphous silica")),
                    numbertext::WithUnit(context.Number(silica, kDigits), "%")});
    return rows;
}

std::string MineralText(const advice::Saturation& saturation, int decimals, const ReportContext& context)
{
    std::string text;
    for (const auto& [mineral, name] : kMineralNames) {
        const double index = saturation.Index(mineral);
        if (!std::isnan(index))
            text += fmt::format("{}{}\u00a0{}", text.empty() ? "" : ", ", context.Translated(name),
                                FixedNumber(index, decimals, context));
    }
    return text.empty() ? text : text + MarkOf(saturation.isBeyondDavies);
}

std::string LangelierReading(double index, const ReportContext& context)
{
    using advice::LangelierState;
    switch (advice::LangelierStateOf(index)) {
        case LangelierState::MayDeposit:
            return context.Translated(wxTRANSLATE("may deposit calcium carbonate"));
        case LangelierState::Dissolves:
            return context.Translated(wxTRANSLATE("dissolves calcium carbonate"));
        case LangelierState::Balanced:
            return context.Translated(wxTRANSLATE("balanced"));
        case LangelierState::Unknown:
            break;
    }
    return {};
}

}  // namespace wateranalysis
