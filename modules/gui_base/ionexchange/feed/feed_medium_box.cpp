// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/feed/feed_medium_box.h"

#include <wx/translation.h>

#include <cmath>

namespace {

/// What converting a temperature into another unit and back leaves.
constexpr double kSameTemperature = 1e-9;

bool IsSame(const FeedMedium::Data& a, const FeedMedium::Data& b)
{
    const TemperatureUnit unit = a.temperature.GetUnit();
    return a.id == b.id && std::fabs(a.temperature.GetValue() - b.temperature.In(unit)) < kSameTemperature;
}

}  // namespace

FeedMediumBox::FeedMediumBox(wxWindow* parent, int id) : FeedMediumForm(parent, id)
{
    auto* grid = form::NewGrid(*this);
    grid->AddGrowableCol(1);
    AddMediumRows(this, *grid, wxTRANSLATE("Feed medium"), nullptr);
    GetFields().AddRow(this, *grid,
                       {.key = kDensity, .label = wxTRANSLATE("Density"), .field = FormField::Result});
    SetSizer(grid);
    CompleteForm();
}

void FeedMediumBox::SetMedium(const FeedMedium::Data& medium)
{
    FeedMediumForm::SetMedium(medium);
    m_told = GetMedium();
}

void FeedMediumBox::Signal()
{
    if (const FeedMedium::Data medium = GetMedium(); !IsSame(medium, m_told)) {
        m_told = medium;
        FeedMediumForm::Signal();
    }
}
