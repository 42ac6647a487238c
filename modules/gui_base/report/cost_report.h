// SPDX-License-Identifier: MIT
#pragma once

/// The page about the costs of a plant: its lines with quantities and prices, what they come to, the cost of
/// the water and the years of its life; in the currency on display.

#include "gui_base/report/report_page_source.h"
#include "gui_base_report/gui_base_report_export.h"

class Project;

class GUI_BASE_REPORT_EXPORT CostReport : public ReportPageSource
{
public:
    /// The project outlives this object. One without exchangers has no page; the page is chosen by itself
    /// where the project includes its costs in reports.
    explicit CostReport(const Project& project) : m_project(project) {}

    std::vector<ReportPage> GetReportPages(const ReportContext& context) const override;
    report::Section BuildReportPage(int id, const ReportContext& context) const override;

private:
    const Project& m_project;
};
