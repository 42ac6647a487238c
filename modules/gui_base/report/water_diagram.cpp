// SPDX-License-Identifier: MIT
#include "gui_base/report/water_diagram.h"

#include "core/amount_text.h"
#include "gui_base/report/water_diagram_parts.h"
#include "gui_base/report/with_title.h"
#include "projectbase/project/project.h"
#include "projectbase/settings/settings.h"

#include <fmt/format.h>
#include <wx/translation.h>

namespace water_diagram {

namespace {

constexpr int kDigits = 4;
constexpr double kPercent = 100.0;

constexpr std::array<OptionRow, kOptionCount> kOptions{
    OptionRow{"diagram.piper.minor", wxTRANSLATE("Piper: NO3, F and Br with Cl"),
              &Options::minorAnionsInPiper},
    OptionRow{"diagram.piper.size", wxTRANSLATE("Piper: size by dissolved solids"),
              &Options::sizeByDissolved},
    OptionRow{"diagram.stiff.fourth", wxTRANSLATE("Stiff: Fe and NO3"), &Options::fourthRowInStiff},
    OptionRow{"diagram.schoeller.no3", wxTRANSLATE("Schoeller: NO3"), &Options::nitrateInSchoeller},
};

std::shared_ptr<chartdir::BaseChart> MakeOfKind(const Contents& contents, const ReportContext& context)
{
    switch (contents.kind) {
        case Kind::Stiff:
            return MakeStiff(contents, context);
        case Kind::Piper:
            return MakePiper(contents, context);
        case Kind::Schoeller:
            return MakeSchoeller(contents, context);
        case Kind::Bars:
            break;
    }
    return MakeBars(contents, context);
}

}  // namespace

const char* NameOf(Kind kind)
{
    switch (kind) {
        case Kind::Stiff:
            return wxTRANSLATE("Stiff diagram");
        case Kind::Piper:
            return wxTRANSLATE("Piper diagram");
        case Kind::Schoeller:
            return wxTRANSLATE("Schoeller diagram");
        case Kind::Bars:
            break;
    }
    return wxTRANSLATE("Ion bars");
}

const std::array<OptionRow, kOptionCount>& OptionRows()
{
    return kOptions;
}

Options ChosenOptions()
{
    Options options;
    for (const OptionRow& row : kOptions)
        options.*row.option = Settings::GetSetting(row.setting).GetBoolValue();
    return options;
}

std::vector<Water> WatersOf(const Project& project, const ReportContext& context)
{
    std::vector<Water> waters;
    for (std::size_t i = 0; i < project.GetLiquidCount(); ++i) {
        const LiquidData& liquid = project.GetLiquid(i);
        waters.push_back({.name = context.Translated(liquid.GetName().c_str()),
                          .ions = diagrams::IonsOf(*liquid.GetDetails()),
                          .place = i});
    }
    return waters;
}

std::string AmountText(double meq, const ReportContext& context)
{
    return numbertext::WithUnit(context.Number(meq, kDigits), "meq/l");
}

std::string ShareText(double share, const ReportContext& context)
{
    return numbertext::WithUnit(
        numbertext::Format(kPercent * share, {.format = TvTextCtrlFormat::Fixed, .precision = 1},
                           context.separators),
        "%");
}

std::string Tip(const Water& water, const std::string& ion, double meq, bool isCation,
                const ReportContext& context)
{
    const double sum = isCation ? water.ions.CationSum() : water.ions.AnionSum();
    std::string text = WithTitle(water.name, ion, context) + "\n" + AmountText(meq, context);
    if (sum > 0.0)
        text += fmt::format(
            "\n{} {}", ShareText(meq / sum, context),
            context.Translated(isCation ? wxTRANSLATE("of the cations") : wxTRANSLATE("of the anions")));
    return text;
}

std::shared_ptr<chartdir::BaseChart> Make(const Contents& contents, const ReportContext& context)
{
    auto chart = MakeOfKind(contents, context);
    chart->setSeparators(context.separators);
    if (contents.hasTitle)
        chart->addTitle(context.Translated(NameOf(contents.kind)));
    return chart;
}

}  // namespace water_diagram
