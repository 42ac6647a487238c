// SPDX-License-Identifier: MIT
#pragma once

/// The pages about the waters of a project: for each of them what was analysed, and its properties.

#include "gui_base/report/report_page_source.h"
#include "gui_base_report/gui_base_report_export.h"

class LiquidData;
class Project;

class GUI_BASE_REPORT_EXPORT WaterReport : public ReportPageSource
{
public:
    /// The project outlives this object and is calculated.
    explicit WaterReport(const Project& project) : m_project(project) {}

    std::vector<ReportPage> GetReportPages(const ReportContext& context) const override;
    report::Section BuildReportPage(int id, const ReportContext& context) const override;

private:
    /// "Water analysis", and of which water where there are several.
    std::string Title(std::size_t water, const char* page, const ReportContext& context) const;

    const Project& m_project;
};
