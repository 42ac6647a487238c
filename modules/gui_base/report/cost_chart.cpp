// SPDX-License-Identifier: MIT
#include "gui_base/report/cost_chart.h"

#include "gui_base/report/no_data_text.h"
#include "projectbase/costs/project_costs.h"
#include "projectbase/project/iex_project.h"

#include <fmt/format.h>
#include <wx/translation.h>

namespace cost_chart {

namespace {

constexpr int kWidth = 720;
constexpr int kHeight = 320;

}  // namespace

std::shared_ptr<chartdir::XYChart> Make(const iex::IEXProject& project, const ReportContext& context,
                                        const costs::ShownCurrency& currency)
{
    auto chart = std::make_shared<chartdir::XYChart>(kWidth, kHeight);
    chart->setSeparators(context.separators);
    chart->setNoDataText(context.Translated(NoDataText()));
    chart->addTitle(context.Translated(wxTRANSLATE("Operating cost of each year")));
    chart->xAxis().setTitle(context.Translated(wxTRANSLATE("Year")));
    chart->yAxis().setTitle(currency.code);
    std::vector<std::string> years;
    std::vector<double> costs;
    std::vector<double> discounted;
    for (const costs::YearOfCosts& year : costs::YearsOf(project)) {
        years.push_back(std::to_string(year.year));
        costs.push_back(year.cost * currency.factor);
        discounted.push_back(year.discounted * currency.factor);
    }
    if (years.empty())
        return chart;
    chart->xAxis().setLabels(std::move(years));
    chartdir::BarLayer& layer = chart->addBarLayer(chartdir::BarMode::Side);
    layer.addDataSet(std::move(costs), context.Translated(wxTRANSLATE("With escalation")), 0);
    layer.addDataSet(std::move(discounted), context.Translated(wxTRANSLATE("Present value")), 1);
    return chart;
}

}  // namespace cost_chart
