// SPDX-License-Identifier: MIT
#include "gui_base/report/cost_report.h"

#include "core/conversion_rate.h"
#include "gui_base/report/chart_figure.h"
#include "gui_base/report/cost_chart.h"
#include "projectbase/costs/currency.h"
#include "projectbase/costs/line_costs.h"
#include "projectbase/costs/project_costs.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/units/unit_system_manager.h"

#include <fmt/format.h>
#include <wx/translation.h>

#include <array>
#include <cmath>
#include <span>
#include <stdexcept>

namespace {

constexpr int kDigits = 5;
/// Points; the years are told apart in so low a chart, too.
constexpr double kLeastFigureHeight = 150.0;

/// The details of the costs as the page writes them.
class Costs
{
public:
    Costs(const iex::IEXProject& project, const ReportContext& context)
        : m_project(project), m_context(context), m_currency(costs::ChosenCurrency(project))
    {}

    const costs::ShownCurrency& Currency() const { return m_currency; }
    double Value(const std::string& key) const { return m_project.GetDetails().At(key).GetDoubleValue(); }
    std::string Name(const std::string& key) const
    {
        const std::string name = m_project.GetDetails().At(key).GetStdStringValue();
        return name.empty() ? name : m_context.Translated(name.c_str());
    }
    std::string Label(const std::string& key) const
    {
        return m_context.Translated(m_project.GetDetails().At(key).GetLabel().c_str());
    }
    /// An amount in the units of the page, money in its currency.
    std::string Amount(double value, const std::string& unit) const
    {
        const double money = costs::IsMoney(unit) ? m_currency.factor : 1.0;
        return m_context.Number(money * UnitSystemManager::FromISO(unit, m_context.unitSystem, value),
                                kDigits);
    }
    std::string Amount(const std::string& key) const
    {
        return Amount(Value(key), m_project.GetDetails().At(key).GetUnit());
    }
    std::string Unit(const std::string& unit) const
    {
        return costs::UnitIn(UnitSystemManager::GetUnit(unit, m_context.unitSystem, true), m_currency);
    }
    std::string UnitOf(const std::string& key) const
    {
        return Unit(m_project.GetDetails().At(key).GetUnit());
    }
    /// Money to the cent, and without fractions where it is much.
    std::string Money(double euro) const
    {
        const double amount = euro * m_currency.factor;
        const double steps = std::abs(amount) < 1'000.0 ? 100.0 : 1.0;
        return m_context.Number(std::round(amount * steps) / steps, 12);
    }
    const ReportContext& Context() const { return m_context; }
    const iex::IEXProject& Project() const { return m_project; }

private:
    const iex::IEXProject& m_project;
    const ReportContext& m_context;
    costs::ShownCurrency m_currency;
};

/// Lines of quantity and price; those that cost nothing and have no price are left out.
class CostTable
{
public:
    CostTable(const Costs& costs, const char* title, const std::string& column)
        : m_costs(costs),
          m_table{.columns = {{.title = costs.Context().Translated(title), .stretch = 1.0},
                              {.title = costs.Context().Translated(wxTRANSLATE("Quantity")),
                               .align = report::Align::Number},
                              {},
                              {.title = costs.Context().Translated(wxTRANSLATE("Price")),
                               .align = report::Align::Number},
                              {},
                              {.title = column, .align = report::Align::Number}}}
    {}

    void Add(const std::string& name, double quantity, const std::string& unit, const std::string& priceKey,
             double cost)
    {
        if (name.empty() || (cost == 0.0 && m_costs.Value(priceKey) == 0.0))
            return;
        const bool isCounted = !unit.empty();
        m_table.rows.push_back(
            {.cells = {{.text = name},
                       {.text = isCounted ? m_costs.Amount(quantity, unit) : std::string()},
                       {.text = isCounted ? m_costs.Unit(unit) : std::string()},
                       {.text = isCounted ? m_costs.Amount(priceKey) : std::string()},
                       {.text = isCounted ? m_costs.UnitOf(priceKey) : std::string()},
                       {.text = m_costs.Money(cost)}}});
        m_sum += cost;
    }
    void MoveTo(report::Section& section)
    {
        if (m_table.rows.empty())
            return;
        m_table.rows.push_back({.cells = {{.text = m_costs.Context().Translated(wxTRANSLATE("Total"))},
                                          {},
                                          {},
                                          {},
                                          {},
                                          {.text = m_costs.Money(m_sum)}},
                                .total = true});
        section.blocks.push_back(std::move(m_table));
    }

private:
    const Costs& m_costs;
    report::Table m_table;
    double m_sum = 0.0;
};

void AddCapital(const Costs& costs, report::Section& section)
{
    const auto lines = costs::CapitalCosts(costs.Project());
    CostTable table(costs, wxTRANSLATE("Capital cost"), costs.Currency().code);
    const auto add = [&](const std::string& name, double quantity, const std::string& unit,
                         const std::string& key) { table.Add(name, quantity, unit, key, lines.at(key)); };
    const auto addResin = [&](const std::string& suffix) {
        const std::string volume = "cost/cc.volume." + suffix;
        add(costs.Name("cost/cc.name." + suffix), costs.Value(volume), "m3", "cost/cc.cost." + suffix);
    };
    for (int n = 1; n <= costs::kResins; ++n)
        addResin(fmt::format("resin{}", n));
    for (const char* suffix : costs::kInertSuffixes)
        addResin(suffix);
    for (const char* group : costs::kEquipment) {
        const std::string key = std::string("cost/cc.cost.") + group;
        add(costs.Label(key), 1.0, {}, key);
    }
    table.MoveTo(section);
}

void AddOperating(const Costs& costs, report::Section& section)
{
    const auto lines = costs::OperatingCosts(costs.Project());
    CostTable table(costs, wxTRANSLATE("Operating cost of a cycle"), costs.Currency().code);
    for (const char* kind : {"regen", "cond"}) {
        for (int n = 1; n <= costs::kChemicals; ++n) {
            const std::string suffix = fmt::format("{}{}", kind, n);
            const std::string key = "cost/op.cost." + suffix;
            table.Add(costs.Name("cost/op.name." + suffix), costs.Value("cost/op.amount." + suffix), "kg",
                      key, lines.at(key).cycle);
        }
    }
    const auto addWater = [&](const char* volumeKey, const char* priceKey) {
        table.Add(costs.Label(priceKey), costs.Value(volumeKey), "m3", priceKey, lines.at(priceKey).cycle);
    };
    addWater("project/vol.serv.all", "cost/op.cost.servwater");
    addWater("project/vol.waste.all", "cost/op.cost.wastewater");
    table.MoveTo(section);
}

void AddResults(const Costs& costs, const char* title, std::span<const char* const> keys,
                report::Section& section)
{
    report::Table table{.columns = {{.stretch = 1.0}, {.align = report::Align::Number}, {}},
                        .showTitles = false};
    for (const char* key : keys) {
        const std::string unit = costs.UnitOf(key);
        const bool isMoney = unit == costs.Currency().code;
        const std::string text = isMoney ? costs.Money(costs.Value(key)) : costs.Amount(key);
        if (!text.empty())
            table.rows.push_back({.cells = {{.text = costs.Label(key)}, {.text = text}, {.text = unit}}});
    }
    if (table.rows.empty())
        return;
    section.blocks.push_back(report::Heading{costs.Context().Translated(title)});
    section.blocks.push_back(std::move(table));
}

constexpr std::array kWaterCost{"cost/cc.watercost", "cost/op.watercost", "cost/system.watercost"};
constexpr std::array kProjection{"cost/cost.system.total",    "cost/cost.oper.annual",
                                 "cost/cost.plant.life",      "cost/cost.interest.rate",
                                 "cost/cost.oper.escalation", "cost/cost.npv"};

}  // namespace

std::vector<ReportPage> CostReport::GetReportPages(const ReportContext& context) const
{
    if (iex::PlantOf(m_project) == nullptr)
        return {};
    return {{.title = wxString::FromUTF8(context.Translated(wxTRANSLATE("Cost"))),
             .id = 0,
             .name = "cost",
             .chosen = m_project.GetDetails().At("cost/used").GetBoolValue()}};
}

report::Section CostReport::BuildReportPage(int id, const ReportContext& context) const
{
    const iex::IEXProject* project = iex::PlantOf(m_project);
    if (id != 0 || project == nullptr)
        throw std::out_of_range("CostReport::BuildReportPage: there is no such page");
    const Costs costs(*project, context);
    report::Section section{.title = context.Translated(wxTRANSLATE("Cost"))};
    if (costs.Currency().code != conversion_rate::kBase)
        section.blocks.push_back(report::Paragraph{fmt::format(
            "1 EUR = {} {}", context.Number(costs.Currency().factor, kDigits), costs.Currency().code)});
    if (!design::IsDesigned(*project)) {
        section.blocks.push_back(report::Paragraph{
            context.Translated(wxTRANSLATE("The costs follow as soon as the plant is designed."))});
        return section;
    }
    AddCapital(costs, section);
    if (const int others = costs::CountResinsWithoutLine(*project); others > 0)
        section.blocks.push_back(report::Paragraph{fmt::format(
            fmt::runtime(context.Translated(wxTRANSLATE("{} more resins are not counted."))), others)});
    AddOperating(costs, section);
    AddResults(costs, wxTRANSLATE("Product water cost"), kWaterCost, section);
    AddResults(costs, wxTRANSLATE("Cost projection"), kProjection, section);
    if (!costs::YearsOf(*project).empty()) {
        report::Figure figure = ChartFigure(cost_chart::Make(*project, context, costs.Currency()));
        figure.leastHeight = kLeastFigureHeight;
        section.blocks.push_back(std::move(figure));
    }
    return section;
}
