// SPDX-License-Identifier: MIT
// Compiles against the installed headers, links the installed libraries and calls into each of them.
#include "core/ion_units.h"
#include "gui_base/water/analysis/wateranalysis_panel.h"
#include "projectbase/project/iex_project.h"
#include "report/pdf_writer.h"
#include "tncommon/data_dir.h"

#include <cmath>
#include <cstdlib>
#include <iostream>

int main()
{
    // The data folder of the installation is not that of this program.
    if (std::getenv("TARNVIK_DATA") == nullptr || tncommon::DataDir().empty())
        return 1;
    iex::IEXProject project;
    DetailList& water = *project.GetLiquid(0).GetDetails();
    water.At("liquid/ca.orig").SetValue(40.08);
    project.CalculateDesign();
    const double calcium = water.At("liquid/ca.meql").GetDoubleValue();
    const double expected = ions::ToMeqPerLitre(40.08, "mg/l", 20.04);
    std::cout << calcium << " meq/l\n";
    report::Document document{.title = "Installed"};
    if (!report::WritePdf(document).starts_with("%PDF"))
        return 1;
    const bool linked = std::isfinite(WaterAnalysisPanel::ReversePolarizationEffect(1.0));
    return linked && std::fabs(calcium - expected) < 1e-12 ? 0 : 1;
}
