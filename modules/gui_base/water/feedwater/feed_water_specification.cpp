// SPDX-License-Identifier: MIT
#include "gui_base/water/feedwater/feed_water_specification.h"

#include "gui_base/input/validation/validator.h"
#include "projectbase/feed/feed_quantities.h"
#include "projectbase/project/project.h"

#include <wx/translation.h>

#include <array>
#include <cmath>
#include <stdexcept>

namespace {

constexpr int kFieldWidth = 88;

constexpr FormRow Quantity(const char* key, const char* label)
{
    return {.key = key, .label = label, .precision = 7, .validatorFlags = ShowPreciseValue | PlainNumbers};
}

/// In the order of FeedQuantities, and the number of lines.
constexpr std::array kRows{
    Quantity("project/qbrutto", wxTRANSLATE("Source flow rate")),
    Quantity("project/lz", wxTRANSLATE("Running time")),
    Quantity("project/wbrutto", wxTRANSLATE("Water volume")),
    FormRow{
        .key = "project/nlines", .label = wxTRANSLATE("Number of lines"), .format = TvTextCtrlFormat::Fixed},
};

DetailList& DetailsOf(Project* project)
{
    if (project == nullptr)
        throw std::invalid_argument("FeedWaterSpecification::FeedWaterSpecification: a feed needs a project");
    return project->GetDetails();
}

double Known(const DetailData& detail)
{
    const double value = detail.GetDoubleValue();
    return std::isnan(value) ? 0.0 : value;
}

}  // namespace

FeedWaterSpecification::FeedWaterSpecification(Project* project, int liquid, wxWindow* parent, int id,
                                               const wxPoint& pos, const wxSize& size, long style,
                                               bool flowRateOnly)
    : FormBlock(&DetailsOf(project), parent, id, pos, size, style),
      m_project(project),
      m_liquid(liquid),
      m_flowRateOnly(flowRateOnly)
{
    GetFields().SetLabelSuffix(":");
    GetFields().SetFieldWidth(kFieldWidth);
    // Two rows beside each other: the block stands above an analysis that wants the height.
    auto* grid = form::NewGrid(*this, 6);
    for (const FormRow& row : kRows) {
        const FormCells cells = GetFields().AddRow(this, *grid, row);
        const bool isAskedFor = !flowRateOnly || &row == &kRows[FeedQuantities::Flow];
        for (wxWindow* window : {cells.label, cells.field, cells.unit}) {
            if (window != nullptr)
                window->Show(isAskedFor);
        }
    }
    SetSizer(grid);
    CompleteForm();
    UpdateUnit(m_project->GetUnitSystemDisplay());
}

bool FeedWaterSpecification::Check() const
{
    const DetailList& details = m_project->GetDetails();
    if (Known(details.At(kRows[FeedQuantities::Flow].key)) == 0.0)
        return false;
    return m_flowRateOnly || Known(details.At(kRows[FeedQuantities::Time].key)) != 0.0;
}

void FeedWaterSpecification::EnableFlowRate(bool enable)
{
    FindField(kRows[FeedQuantities::Flow].key)->Enable(enable);
}

void FeedWaterSpecification::Localize()
{
    Localize(m_project->GetUnitSystemDisplay());
}
