// SPDX-License-Identifier: MIT
#pragma once

/// The page about the design of a plant: for each exchanger its bed, its vessel, its regenerants and what was
/// corrected, its waste by ions, and how the wastes of a line are neutralised.

#include "gui_base/report/report_page_source.h"
#include "gui_base_report/gui_base_report_export.h"
#include "projectbase/design/plant_design.h"
#include "projectbase/project/owner_node.h"

#include <string>
#include <vector>

class Project;

/// What windows, report and command line say of a design alike.
namespace designtext {

/// "2 Strong-base anion exchanger".
GUI_BASE_REPORT_EXPORT std::string ExchangerTitle(const OwnerNode& exchanger, const ReportContext& context);
/// What a compartment of a mixed bed is called after the resin in it; empty where it is the only one.
GUI_BASE_REPORT_EXPORT std::string CompartmentTitle(const OwnerNode& compartment,
                                                    const ReportContext& context);
/// What a sentence calls a part of a plant: "1 Strong-acid cation exchanger, row 4 (Displacement)";
/// compartments and layers of resin are told apart where there are several.
GUI_BASE_REPORT_EXPORT std::string PartTitle(const OwnerNode& part, const ReportContext& context);

/// A value that no detail holds, with its name.
struct Line
{
    std::string name;
    std::string value;
    std::string unit;
};
/// Where a capacity comes from, and each factor that corrects it.
GUI_BASE_REPORT_EXPORT std::vector<Line> CapacityLines(const design::Capacity& capacity,
                                                       const ReportContext& context);
/// The leakages as ranges.
GUI_BASE_REPORT_EXPORT std::vector<Line> LeakageLines(const std::vector<design::Leakage>& leakages,
                                                      const ReportContext& context);
/// How the wastes of a line are neutralised; empty where that is not known.
GUI_BASE_REPORT_EXPORT std::vector<Line> NeutralisationLines(const design::PlantDesign& plant,
                                                             const ReportContext& context);

/// How much waste a regeneration of an exchanger leaves, and how those of the line are neutralised.
GUI_BASE_REPORT_EXPORT std::vector<Line> WasteLines(const design::PlantDesign& plant,
                                                    const OwnerNode& exchanger, const ReportContext& context);
/// "name: value unit", each on a line of its own.
GUI_BASE_REPORT_EXPORT std::string TextOf(const std::vector<Line>& lines, const ReportContext& context);

/// Keys of the results of an exchanger, a compartment and a resin in the order in which they are read.
GUI_BASE_REPORT_EXPORT std::span<const char* const> ExchangerResults();
/// Those of a compartment are less where it is the only one: the rest is its exchanger's.
GUI_BASE_REPORT_EXPORT std::span<const char* const> CompartmentResults(bool isOnlyOne);
GUI_BASE_REPORT_EXPORT std::span<const char* const> ResinResults();

/// A detail with its name, value and unit; an empty value where it is not known.
GUI_BASE_REPORT_EXPORT Line DetailLine(const DetailData& detail, const ReportContext& context);

}  // namespace designtext

class GUI_BASE_REPORT_EXPORT DesignReport : public ReportPageSource
{
public:
    /// The project outlives this object. One without exchangers has no page.
    explicit DesignReport(const Project& project) : m_project(project) {}

    std::vector<ReportPage> GetReportPages(const ReportContext& context) const override;
    report::Section BuildReportPage(int id, const ReportContext& context) const override;

private:
    const Project& m_project;
};
