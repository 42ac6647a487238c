// SPDX-License-Identifier: MIT
#pragma once

/// Collects the pages of all modules and makes the document of those that were chosen.

#include "gui_base/report/report_page_source.h"
#include "gui_base_report/gui_base_report_export.h"

#include <ctime>
#include <optional>
#include <span>
#include <string>
#include <vector>

class Project;

/// What every page of a report says.
struct ReportHead
{
    std::string title{};
    std::string customer{};
    std::string author{};
    std::string date{};
    std::string program{};  ///< name and version
    std::optional<std::time_t> created{};
};

/// The details of the project as the head of its report, of today; `fallbackTitle` where it has no title.
GUI_BASE_REPORT_EXPORT ReportHead MakeReportHead(const Project& project, const std::string& fallbackTitle,
                                                 const std::string& program);

/// The reservation that every report carries, as a source text.
GUI_BASE_REPORT_EXPORT const char* ReportDisclaimer();

class GUI_BASE_REPORT_EXPORT ReportBuilder
{
public:
    /// The sources outlive the builder.
    ReportBuilder(std::span<const ReportPageSource* const> sources, ReportContext context);

    /// All pages of all sources; their identifiers are their places in this list.
    const std::vector<ReportPage>& GetPages() const { return m_pages; }
    /// Those that `name` means: "1:analysis" one page, "analysis" that page of every water.
    std::vector<int> FindPages(const std::string& name) const;

    /// The document with the pages of those identifiers, in their own order. Throws std::out_of_range.
    report::Document Build(const std::vector<int>& ids, const ReportHead& head) const;

private:
    struct Origin
    {
        const ReportPageSource* source;
        int id;
    };

    ReportContext m_context;
    std::vector<ReportPage> m_pages;
    std::vector<Origin> m_origins;  ///< of each page
};
