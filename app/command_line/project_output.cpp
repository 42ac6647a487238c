// SPDX-License-Identifier: MIT
#include "app/command_line/project_output.h"

#include "dbinterfaces/master_database.h"
#include "projectbase/details/detail_display.h"
#include "projectbase/project/project.h"

#include <fmt/format.h>
#include <fmt/ostream.h>

#include <array>
#include <cmath>

namespace app {

namespace {

struct SummaryRow
{
    const char* name;
    const char* label;
    bool onlyIfKnown = false;
};

constexpr std::array kSummary{
    SummaryRow{"liquid/sum.c.meql", "Sum of cations"},
    SummaryRow{"liquid/sum.a.meql", "Sum of anions"},
    SummaryRow{"liquid/na.plus.meql", "+ Na"},
    SummaryRow{"liquid/cl.plus.meql", "+ Cl"},
    SummaryRow{"liquid/temp", "Temperature"},
    SummaryRow{"liquid/ph", "pH"},
    SummaryRow{"liquid/alk.ph", "pH after alkalization", true},
    SummaryRow{"liquid/alk.dosed", "Alkalizing agent", true},
    SummaryRow{"liquid/co2.mgl", "CO2"},
    SummaryRow{"liquid/tds", "Total dissolved solids"},
    SummaryRow{"liquid/cond", "Conductivity"},
    SummaryRow{"liquid/cond25", "Conductivity at 25 \u00b0C"},
    SummaryRow{"liquid/p.osmotic", "Osmotic pressure"},
    SummaryRow{"liquid/ionic.strength", "Ionic strength"},
};

std::string Shown(const DetailData& detail, const std::string& unitSystem)
{
    const std::string text = DisplayFromDetail().GetValueAsString(detail, unitSystem).utf8_string();
    return text.empty() ? "-" : text;
}

void PrintIons(const DetailList& details, const std::string& unitSystem, std::ostream& out)
{
    fmt::print(out, "  {:<24}{:>14}{:>14}\n", "", "meq/l", "mg/l");
    for (const auto& ion : MasterDatabase::GetIons("%", "%", "%")) {
        const DetailData& meql = details.At("liquid/" + ion.key + ".meql");
        const DetailData& mgl = details.At("liquid/" + ion.key + ".mgl");
        if (meql.GetDoubleValue() == 0.0 && mgl.GetDoubleValue() == 0.0)
            continue;
        const DetailData* name = details.GetDetail("liquid/" + ion.key + ".name");
        const std::string label = name == nullptr ? ion.symbol : name->GetStdStringValue();
        fmt::print(out, "  {:<24}{:>14}{:>14}\n", label, Shown(meql, unitSystem), Shown(mgl, unitSystem));
    }
}

void PrintSummary(const DetailList& details, const std::string& unitSystem, std::ostream& out)
{
    for (const SummaryRow& row : kSummary) {
        const DetailData& detail = details.At(row.name);
        if (row.onlyIfKnown && !std::isfinite(detail.GetDoubleValue()))
            continue;
        const std::string unit = DisplayFromDetail().GetUnitLabel(detail, unitSystem).utf8_string();
        fmt::print(out, "  {:<24}{:>14} {}", row.label, Shown(detail, unitSystem), unit);
        out << '\n';
    }
}

std::string Quoted(const std::string& utf8)
{
    std::string text = "\"";
    for (const char c : utf8) {
        if (c == '"' || c == '\\')
            text += {'\\', c};
        else if (static_cast<unsigned char>(c) < 0x20)
            text += fmt::format("\\u{:04x}", static_cast<unsigned>(c));
        else
            text += c;
    }
    return text + '"';
}

std::string JsonValue(const DetailData& detail)
{
    switch (detail.GetType()) {
        case DetailType::Double:
            return std::isfinite(detail.GetDoubleValue()) ? fmt::format("{}", detail.GetDoubleValue())
                                                          : "null";
        case DetailType::Long:
        case DetailType::Bool:
            return detail.GetValueAsString().utf8_string();
        case DetailType::Date:
            return detail.GetDateValue().IsValid() ? Quoted(detail.GetValueAsString().utf8_string()) : "null";
        case DetailType::String:
            break;
    }
    return Quoted(detail.GetStdStringValue());
}

/// A value that is typed in a unit of choice has that unit.
std::string JsonUnit(const DetailList& details, const std::string& name, const DetailData& detail)
{
    if (!name.ends_with(".orig"))
        return detail.GetUnit();
    const DetailData* unit = details.GetDetail(name.substr(0, name.size() - 5) + ".unit");
    return unit == nullptr ? detail.GetUnit() : unit->GetStdStringValue();
}

void PrintJsonDetails(const DetailList& details, const std::string& indent, std::ostream& out)
{
    const char* separator = "";
    out << '{';
    for (const auto& [name, detail] : details) {
        const std::string unit = JsonUnit(details, name, detail);
        out << separator << '\n' << indent << "  " << Quoted(name) << ": {\"value\": " << JsonValue(detail);
        if (!unit.empty())
            out << ", \"unit\": " << Quoted(unit);
        out << '}';
        separator = ",";
    }
    out << '\n' << indent << '}';
}

void AddWarnings(const DetailList& details, const std::string& where, std::vector<std::string>& warnings)
{
    for (const auto& [name, detail] : details) {
        const double value = detail.GetDoubleValue();
        const bool below = detail.HasMinValue() && value < detail.GetMinValue();
        const bool above = detail.HasMaxValue() && value > detail.GetMaxValue();
        if (!below && !above)
            continue;
        warnings.push_back(
            fmt::format("{}{} is {}, {} its limit of {} {}", where, name, value, below ? "below" : "above",
                        below ? detail.GetMinValue() : detail.GetMaxValue(), detail.GetLimitUnit()));
    }
}

}  // namespace

void PrintTable(const Project& project, std::ostream& out)
{
    for (std::size_t i = 0; i < project.GetLiquidCount(); ++i) {
        const LiquidData& liquid = project.GetLiquid(i);
        fmt::print(out, "{}{}\n", i == 0 ? "" : "\n", liquid.GetName());
        PrintIons(*liquid.GetDetails(), project.GetUnitSystemDisplay(), out);
        PrintSummary(*liquid.GetDetails(), project.GetUnitSystemDisplay(), out);
    }
}

void PrintJson(const Project& project, const std::string& file, std::ostream& out)
{
    out << "{\n  \"file\": " << Quoted(file) << ",\n  \"module\": " << Quoted(project.GetModuleType())
        << ",\n  \"project\": ";
    PrintJsonDetails(project.GetDetails(), "  ", out);
    out << ",\n  \"liquids\": [";
    for (std::size_t i = 0; i < project.GetLiquidCount(); ++i) {
        const LiquidData& liquid = project.GetLiquid(i);
        out << (i == 0 ? "\n" : ",\n") << "    {\n      \"name\": " << Quoted(liquid.GetName())
            << ",\n      \"details\": ";
        PrintJsonDetails(*liquid.GetDetails(), "      ", out);
        out << "\n    }";
    }
    out << "\n  ]\n}\n";
}

std::vector<std::string> RangeWarnings(const Project& project)
{
    std::vector<std::string> warnings;
    AddWarnings(project.GetDetails(), "", warnings);
    for (std::size_t i = 0; i < project.GetLiquidCount(); ++i)
        AddWarnings(*project.GetLiquid(i).GetDetails(), fmt::format("water {}: ", i), warnings);
    return warnings;
}

}  // namespace app
