// SPDX-License-Identifier: MIT
#include "gui_base/report/range_report.h"

#include "gui_base/report/range_sentence.h"

#include <wx/translation.h>

#include <stdexcept>

std::vector<ReportPage> RangeReport::GetReportPages(const ReportContext& context) const
{
    if (RangeFaults(m_project).empty())
        return {};
    return {{.title = wxString::FromUTF8(context.Translated(wxTRANSLATE("Out of range"))),
             .id = 0,
             .name = "range"}};
}

report::Section RangeReport::BuildReportPage(int id, const ReportContext& context) const
{
    if (id != 0)
        throw std::out_of_range("RangeReport::BuildReportPage: there is no such page");
    report::Section section{.title = context.Translated(wxTRANSLATE("Out of range"))};
    for (const RangeFault& fault : RangeFaults(m_project))
        section.blocks.push_back(report::Paragraph{RangeSentence(fault, m_project, context)});
    return section;
}
