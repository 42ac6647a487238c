// SPDX-License-Identifier: MIT
#include "gui_base/report/report_builder.h"

#include "gui_base/report/with_title.h"
#include "projectbase/details/date_text.h"
#include "projectbase/project/project.h"

#include <fmt/format.h>
#include <wx/translation.h>

#include <algorithm>
#include <cmath>

namespace {

std::string UnitSystemText(const ReportContext& context)
{
    if (context.unitSystem == "us")
        return context.Translated(wxTRANSLATE("US customary units"));
    if (context.unitSystem == "imperial")
        return context.Translated(wxTRANSLATE("Imperial units"));
    return context.Translated(wxTRANSLATE("ISO units"));
}

/// "Customer: Works · Author: Somebody", whatever of it is known.
std::string Subtitle(const ReportContext& context, const ReportHead& head)
{
    std::string text;
    const auto add = [&](const char* label, const std::string& value) {
        if (!value.empty())
            text += (text.empty() ? "" : " \u00b7 ") + WithTitle(context.Translated(label), value, context);
    };
    add(wxTRANSLATE("Customer"), head.customer);
    add(wxTRANSLATE("Author"), head.author);
    return text;
}

}  // namespace

ReportPageSource::~ReportPageSource() = default;

std::string ReportContext::Number(double value, int digits) const
{
    return numbertext::Format(value, {.precision = digits, .plain = true}, separators);
}

ReportHead MakeReportHead(const Project& project, const std::string& fallbackTitle,
                          const std::string& program)
{
    const DetailList& details = project.GetDetails();
    const auto text = [&details](const char* key) {
        const DetailData* detail = details.GetDetail(key);
        return detail != nullptr ? detail->GetStdStringValue() : std::string();
    };
    ReportHead head;
    head.title = text("project/title");
    if (head.title.empty())
        head.title = fallbackTitle;
    head.customer = text("project/customer");
    head.author = text("project/author");
    head.date = DateText(wxDateTime::Now()).utf8_string();
    head.program = program;
    head.created = wxDateTime::GetTimeNow();
    return head;
}

const char* ReportDisclaimer()
{
    return wxTRANSLATE(
        "The results were calculated by textbook formulas from the values that were typed. They have to be "
        "checked by a qualified engineer before anything is built or bought upon them.");
}

ReportBuilder::ReportBuilder(std::span<const ReportPageSource* const> sources, ReportContext context)
    : m_context(std::move(context))
{
    for (const ReportPageSource* source : sources) {
        for (ReportPage& page : source->GetReportPages(m_context)) {
            m_origins.push_back({source, page.id});
            page.id = static_cast<int>(m_pages.size());
            m_pages.push_back(std::move(page));
        }
    }
}

std::vector<int> ReportBuilder::FindPages(const std::string& name) const
{
    std::vector<int> found;
    for (const ReportPage& page : m_pages) {
        if (page.name == name || page.name.ends_with(":" + name))
            found.push_back(page.id);
    }
    return found;
}

report::Document ReportBuilder::Build(const std::vector<int>& ids, const ReportHead& head) const
{
    report::Document document;
    document.title = head.title;
    document.subtitle = Subtitle(m_context, head);
    document.headerLeft = head.title;
    document.headerRight = head.date;
    document.footer = fmt::format("{} \u00b7 {}", head.program, UnitSystemText(m_context));
    document.author = head.author;
    document.creator = head.program;
    document.created = head.created;
    document.decimalSign = m_context.separators.decimal;
    document.pageLabel = m_context.Translated(wxTRANSLATE("Page {page} of {pages}"));
    document.contentsTitle = m_context.Translated(wxTRANSLATE("Contents"));
    std::vector<int> ordered = ids;
    std::sort(ordered.begin(), ordered.end());
    ordered.erase(std::unique(ordered.begin(), ordered.end()), ordered.end());
    for (const int id : ordered) {
        const Origin& origin = m_origins.at(static_cast<std::size_t>(id));
        document.sections.push_back(origin.source->BuildReportPage(origin.id, m_context));
    }
    if (!document.sections.empty()) {
        document.sections.back().blocks.push_back(
            report::Paragraph{.text = m_context.Translated(ReportDisclaimer()), .small = true});
    }
    return document;
}
