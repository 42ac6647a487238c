// SPDX-License-Identifier: MIT
#pragma once

/// The page about the compounds of the feed: what it is dissolved in, the concentrations of every compound,
/// the totals with the pH, and the effluent where it is entered.

#include "gui_base/report/report_page_source.h"
#include "gui_base_report/gui_base_report_export.h"

class Project;

class GUI_BASE_REPORT_EXPORT FeedReport : public ReportPageSource
{
public:
    /// The project outlives this object. A project of another module, or one without compounds, has no page.
    explicit FeedReport(const Project& project) : m_project(project) {}

    std::vector<ReportPage> GetReportPages(const ReportContext& context) const override;
    report::Section BuildReportPage(int id, const ReportContext& context) const override;

private:
    const Project& m_project;
};
