// SPDX-License-Identifier: MIT
#pragma once

/// What a module offers to a report: pages that can be chosen, and their contents.

#include "core/number_text.h"
#include "gui_base_report/gui_base_report_export.h"
#include "report/document.h"

#include <wx/string.h>

#include <functional>
#include <string>
#include <vector>

/// A page that can be chosen.
struct ReportPage
{
    wxString title;  ///< source text, or translated already
    int id = -1;
    std::string name{};  ///< the same in every language: "0:analysis", of the first water
    bool chosen = true;  ///< unless the user says otherwise
};

/// How a report is written: its units, its language and its numbers.
struct GUI_BASE_REPORT_EXPORT ReportContext
{
    std::string unitSystem = "iso";
    std::string language{};  ///< "de"; for the names of countries and compounds
    numbertext::Separators separators{};
    /// The text of a source text in the language; none: the texts stay as they are.
    std::function<std::string(const char* source)> translate{};

    std::string Translated(const char* source) const { return translate ? translate(source) : source; }
    /// With that many significant digits, or as many as keep an amount in plain notation; empty for what is
    /// not known.
    std::string Number(double value, int digits) const;
};

/// A module's pages. It reads its project when asked and changes nothing.
class GUI_BASE_REPORT_EXPORT ReportPageSource
{
public:
    virtual ~ReportPageSource();

    /// The pages in their order; the identifiers are the source's own.
    virtual std::vector<ReportPage> GetReportPages(const ReportContext& context) const = 0;
    /// The contents of one of the pages; throws std::out_of_range for another identifier.
    virtual report::Section BuildReportPage(int id, const ReportContext& context) const = 0;
};
