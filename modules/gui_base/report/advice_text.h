// SPDX-License-Identifier: MIT
#pragma once

/// What the user reads of the saturation of a water and of the advice on it.

#include "gui_base/report/report_page_source.h"
#include "projectbase/advice/water_advice.h"

#include <string>
#include <vector>

namespace advice {
struct Saturation;
}

namespace wateranalysis {

/// "Iron 0.4 mg/l is above the usual limit of 0.3 mg/l ahead of ion exchangers".
GUI_BASE_REPORT_EXPORT std::string AdviceSentence(const advice::Advice& advice, const ReportContext& context);
/// Where the limit comes from; of one that the user set, which one is usual: "Set by the user; usual is
/// 0.3 mg/l".
GUI_BASE_REPORT_EXPORT std::string AdviceSource(const advice::Advice& advice, const ReportContext& context);
/// Why, and by which source, a line each.
GUI_BASE_REPORT_EXPORT std::string AdviceReason(const advice::Advice& advice, const ReportContext& context);
/// "Note" or "Warning".
GUI_BASE_REPORT_EXPORT std::string SeverityText(advice::Severity severity, const ReportContext& context);

/// A figure with its name; the figure is empty where it is not known.
struct SaturationRow
{
    std::string name;
    std::string value;
};
/// The indices of Langelier and Ryznar, the minerals, and silica, with two decimals.
GUI_BASE_REPORT_EXPORT std::vector<SaturationRow> SaturationRows(const advice::Saturation& saturation,
                                                                 const ReportContext& context);
/// The minerals alone that something is known of: with one decimal, as good as the constants are,
/// "Gypsum -1.2, barite 0.6".
GUI_BASE_REPORT_EXPORT std::string MineralText(const advice::Saturation& saturation, int decimals,
                                               const ReportContext& context);
/// What an index of Ryznar means, by its usual bands; empty for one that is not known.
GUI_BASE_REPORT_EXPORT std::string RyznarReading(double index, const ReportContext& context);
/// What an index of Langelier means: "balanced"; empty for one that is not known.
GUI_BASE_REPORT_EXPORT std::string LangelierReading(double index, const ReportContext& context);

}  // namespace wateranalysis
