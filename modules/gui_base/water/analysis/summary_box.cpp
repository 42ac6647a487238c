// SPDX-License-Identifier: MIT
#include "gui_base/water/analysis/summary_box.h"

#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/controls/tv_unitlabel.h"
#include "gui_base/input/form/form_grid.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/analysis/tooltip_on_demand.h"
#include "gui_base/water/rows/property_rows.h"
#include "projectbase/water/measured_values.h"

#include <wx/statbox.h>

namespace wateranalysis {
namespace {

constexpr int kWidth = 104;

wxString ExplainTds(const DetailList& details)
{
    const double residue = details.At("liquid/residue").GetDoubleValue();
    return wxString::Format(i18n::Translated("Sum of all constituents; dry residue at 180 %s: %s mg/l"),
                            wxString::FromUTF8("\u00b0C"), ExplainedNumber(residue));
}

/// Beside a value that laboratories measure, too, what they found; otherwise nothing.
void AddMeasured(FieldSet& fields, wxSizer& grid, wxWindow& box, const SummaryRow& row)
{
    for (std::size_t i = 0; i < kMeasuredRows.size(); ++i) {
        if (std::string_view(water::kMeasuredValues[i].calculated) != row.key)
            continue;
        grid.Add(fields.AddResult(&box, {.key = water::kMeasuredValues[i].iso,
                                         .label = kMeasuredRows[i].label,
                                         .unit = wxString::FromUTF8(row.unit),
                                         .precision = row.precision,
                                         .width = kWidth,
                                         .inIsoUnits = true}),
                 wxSizerFlags().CentreVertical());
        return;
    }
    grid.AddSpacer(0);
}

}  // namespace

SummaryBox::SummaryBox(wxWindow* parent, FieldSet& fields)
    : TvStaticBoxSizer(wxVERTICAL, parent, wxTRANSLATE("Summary"))
{
    fields.AddLocalizable<TvStaticBoxSizer>(this);
    wxWindow* box = GetStaticBox();
    // The last column is for what was measured of that what the others calculate.
    auto* grid = form::NewGrid(*box, 4);
    const wxSizerFlags cell = wxSizerFlags().CentreVertical();
    for (int column = 0; column < 3; ++column)
        grid->AddSpacer(0);
    grid->Add(fields.AddLabel(box, wxTRANSLATE("Measured")), wxSizerFlags().Right());
    const auto add = [&](const SummaryRow& row) {
        const wxString label = wxString::FromUTF8(row.label);
        const wxString unit = wxString::FromUTF8(row.unit);
        grid->Add(fields.AddLabel(box, label, wxString::FromUTF8(row.labelSuffix)), cell);
        grid->Add(fields.AddResult(box, {.key = row.key,
                                         .label = label,
                                         .unit = unit,
                                         .precision = row.precision,
                                         .width = kWidth,
                                         .inIsoUnits = !row.convertUnit}),
                  cell);
        grid->Add(fields.AddUnitLabel(box, unit, row.convertUnit), cell);
        AddMeasured(fields, *grid, *box, row);
    };
    for (const SummaryRow& row : kSummaryRows)
        add(row);
    for (const EquivalentRow& row : kEquivalentRows)
        add({row.key, row.label, ":", row.unit, false});
    add({kBalanceError.key, kBalanceError.label, ":", kBalanceError.unit, false, kBalanceError.precision});
    Add(grid, wxSizerFlags().Border(wxALL, parent->FromDIP(form::kGap)));
    ExplainOnDemand(*fields.FindField("liquid/tds"), [&fields] { return ExplainTds(fields.Details()); });
}

}  // namespace wateranalysis
