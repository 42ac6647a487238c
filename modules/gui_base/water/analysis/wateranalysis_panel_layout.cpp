// SPDX-License-Identifier: MIT
// The controls of the water analysis panel.
#include "core/ion_table.h"
#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/controls/tv_checkbox.h"
#include "gui_base/input/controls/tv_radiobutton.h"
#include "gui_base/input/controls/tv_staticboxsizer.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/controls/tv_unitlabel.h"
#include "gui_base/input/validation/validator.h"
#include "gui_base/support/image_loader.h"
#include "gui_base/water/analysis/balance_panel.h"
#include "gui_base/water/analysis/wateranalysis_panel.h"
#include "gui_base/water/rows/property_rows.h"
#include "gui_base/water/rows/unit_lists.h"

#include <wx/bmpbuttn.h>
#include <wx/collpane.h>
#include <wx/statbox.h>

#include <limits>

namespace {

constexpr int kGap = 4;
constexpr int kSummaryWidth = 104;
constexpr int kPropertyColumns = 3;
constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

wxSizerFlags Cell()
{
    return wxSizerFlags().CentreVertical();
}

template <typename Rows>
std::vector<wxString> Labels(const Rows& rows)
{
    std::vector<wxString> labels;
    for (const auto& row : rows)
        labels.push_back(wxString::FromUTF8(row.label));
    return labels;
}

NumberSpec PropertySpec(const wateranalysis::PropertyRow& row)
{
    return {.key = row.key,
            .label = wxString::FromUTF8(row.label),
            .unit = wxString::FromUTF8(row.unit),
            .validatorFlags = ShowPreciseValue,
            .undef = kUnknown,
            .precision = row.precision};
}

void AddPropertyRow(FieldSet& fields, wxWindow* parent, wxSizer& grid, const wateranalysis::PropertyRow& row)
{
    grid.Add(fields.AddLabel(parent, wxString::FromUTF8(row.label), ":"), Cell());
    grid.Add(fields.AddInput(parent, PropertySpec(row)), Cell());
    grid.Add(fields.AddUnitLabel(parent, wxString::FromUTF8(row.unit), true), Cell());
}

wxFlexGridSizer* PropertyGrid(const wxWindow* parent)
{
    return new wxFlexGridSizer(kPropertyColumns, parent->FromDIP(wxSize(2 * kGap, kGap)));
}

}  // namespace

void WaterAnalysisPanel::CreateControls()
{
    FillLists();
    auto* outer = new wxBoxSizer(wxVERTICAL);
    auto* top = new wxBoxSizer(wxHORIZONTAL);
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, FromDIP(kGap));
    top->Add(CreateAnalysisTypeBox(), spaced);
    m_balance = new BalancePanel(this, *m_fields);
    top->Add(m_balance, wxSizerFlags(spaced).Expand());
    outer->Add(top);

    m_columns = new wxBoxSizer(wxHORIZONTAL);
    m_columns->Add(CreateIonsBox(), wxSizerFlags(spaced).Top());
    m_rightColumn = new wxBoxSizer(wxVERTICAL);
    m_rightColumn->Add(CreateOthersPanel(), wxSizerFlags(spaced).Expand());
    m_rightColumn->Add(CreateSummaryPanel(), wxSizerFlags(spaced).Expand());
    m_columns->Add(m_rightColumn);
    outer->Add(m_columns);
    SetSizer(outer);
}

void WaterAnalysisPanel::FillLists()
{
    m_units.ordinary = water_units::OfIons();
    m_units.equivalent = water_units::OfEquivalents();
}

wxSizer* WaterAnalysisPanel::CreateAnalysisTypeBox()
{
    auto* box = m_fields->AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, this, wxTRANSLATE("Analysis")));
    wxWindow* parent = box->GetStaticBox();
    auto* grid = PropertyGrid(parent);
    const auto radio = [&](const char* label, long style) {
        auto* button = m_fields->AddLocalizable(
            new TvRadioButton(parent, wxID_ANY, label, wxDefaultPosition, wxDefaultSize, style));
        grid->Add(button, Cell());
        return button;
    };
    const auto typed = [&](const char* key, const wxString& label, const wxString& unit) {
        grid->Add(m_fields->AddInput(parent, {.key = key,
                                              .label = label,
                                              .unit = unit,
                                              .validatorFlags = ZeroAsEmpty | ShowPreciseValue,
                                              .precision = 6}),
                  Cell());
        grid->Add(m_fields->AddUnitLabel(parent, unit, false), Cell());
    };
    m_full = radio(wxTRANSLATE("Full analysis"), wxRB_GROUP);
    grid->AddSpacer(0);
    grid->AddSpacer(0);
    m_shortTds = radio(wxTRANSLATE("Short analysis based on TDS"), 0);
    typed("liquid/tds.short", "TDS", "mg/l");
    m_shortCond = radio(wxTRANSLATE("Short analysis based on conductivity"), 0);
    typed("liquid/cond.short", "Conductivity", "uS/cm");
    for (TvRadioButton* button : {m_shortTds, m_shortCond})
        button->SetTranslatableToolTip(
            wxTRANSLATE("The water is taken as a solution of sodium chloride; the typed ions are kept"));
    box->Add(grid, wxSizerFlags().Border(wxALL, FromDIP(kGap)));
    return box;
}

wxSizer* WaterAnalysisPanel::CreateIonsBox()
{
    auto* box = m_fields->AddLocalizable(new TvStaticBoxSizer(wxHORIZONTAL, this, "Ions"));
    wxWindow* parent = box->GetStaticBox();
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, FromDIP(kGap));
    box->Add(CreateCationGrid(parent, wxTRANSLATE("Cations"), Labels(wateranalysis::kCationRows)), spaced);
    box->AddSpacer(FromDIP(4 * kGap));
    box->Add(CreateAnionGrid(parent, wxTRANSLATE("Anions"), Labels(wateranalysis::kAnionRows)), spaced);
    return box;
}

wxSizer* WaterAnalysisPanel::CreateCationGrid(wxWindow* parent, const wxString& title,
                                              const std::vector<wxString>& labels)
{
    m_defaultUnit =
        new wxBitmapButton(parent, wxID_ANY, ImageLoader::LoadBundle("/icons/arrowdown.xpm", wxSize(12, 12)),
                           wxDefaultPosition, FromDIP(wxSize(28, 28)), wxBU_EXACTFIT | wxBORDER_NONE);
    m_grids.push_back(std::make_unique<wateranalysis::IonGrid>(*m_fields, m_units));
    return m_grids.back()->Create(parent, title, wateranalysis::kCationRows, labels,
                                  wateranalysis::kCationTotals, m_defaultUnit);
}

wxSizer* WaterAnalysisPanel::CreateAnionGrid(wxWindow* parent, const wxString& title,
                                             const std::vector<wxString>& labels)
{
    m_grids.push_back(std::make_unique<wateranalysis::IonGrid>(*m_fields, m_units));
    return m_grids.back()->Create(parent, title, wateranalysis::kAnionRows, labels,
                                  wateranalysis::kAnionTotals, nullptr);
}

wxSizer* WaterAnalysisPanel::CreateOthersPanel()
{
    auto* box = m_fields->AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, this, "Others"));
    wxWindow* parent = box->GetStaticBox();
    auto* grid = PropertyGrid(parent);
    CreateTemperatureRow(parent, *grid);
    for (const auto& row : wateranalysis::kMainProperties)
        AddPropertyRow(*m_fields, parent, *grid, row);
    CreateCo2Rows(parent, *grid);
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, FromDIP(kGap));
    box->Add(grid, spaced);

    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    const auto button = [&](const char* label, const char* tooltip) {
        auto* added = m_fields->AddLocalizable(new TvButton(parent, wxID_ANY, label));
        added->SetTranslatableToolTip(tooltip);
        buttons->Add(added, wxSizerFlags().Border(wxRIGHT, FromDIP(2 * kGap)));
        return added;
    };
    m_alkalize = button(wxTRANSLATE("Alkalize"), wxTRANSLATE("Specify alkalizing agent"));
    m_co2Calculator = button(wxTRANSLATE("CO2 Calculator"), wxTRANSLATE("Open CO2 Calculator"));
    box->Add(buttons, spaced);
    m_alkalization = new wxStaticText(parent, wxID_ANY, wxString());
    box->Add(m_alkalization, spaced);
    CreateFurtherPropertiesPane(parent, *box);
    return box;
}

void WaterAnalysisPanel::CreateTemperatureRow(wxWindow* parent, wxSizer& grid)
{
    grid.Add(m_fields->AddLabel(parent, "Temperature", ":"), Cell());
    m_temperatureField = m_fields->AddInput(parent, {.key = "liquid/temp.orig",
                                                     .label = "Temperature",
                                                     .unitKey = "liquid/temp.unit",
                                                     .validatorFlags = CheckMin | CheckMax | ShowPreciseValue,
                                                     .precision = 4,
                                                     .inIsoUnits = true,
                                                     .isTemperature = true});
    grid.Add(m_temperatureField, Cell());
    m_temperatureUnit =
        m_fields->AddUnitChoice(parent, "liquid/temp.unit", water_units::OfTemperatures(), "Temperature");
    grid.Add(m_temperatureUnit, Cell().Expand());

    // The same temperature in the unit of the displayed system, which is what everything else calculates
    // with.
    grid.AddSpacer(0);
    grid.Add(m_fields->AddResult(parent, {.key = "liquid/temp",
                                          .label = "Temperature",
                                          .unit = wxString::FromUTF8("\u00b0C"),
                                          .precision = 4}),
             Cell());
    grid.Add(m_fields->AddUnitLabel(parent, wxString::FromUTF8("\u00b0C"), true), Cell());
}

void WaterAnalysisPanel::CreateCo2Rows(wxWindow* parent, wxSizer& grid)
{
    grid.Add(m_fields->AddLabel(parent, "CO2:"), Cell());
    grid.Add(m_fields->AddInput(parent, {.key = "liquid/co2.orig",
                                         .label = "CO2:",
                                         .unitKey = "liquid/co2.unit",
                                         .validatorFlags = CheckMax | ZeroAsEmpty | ShowPreciseValue,
                                         .precision = 6,
                                         .inIsoUnits = true}),
             Cell());
    m_co2Unit = m_fields->AddUnitChoice(parent, "liquid/co2.unit", m_units.ordinary, "CO2:");
    const double co2Weight = ions::FindIon("co2")->equivalentWeight;
    m_fields->SetUnitLimits("liquid/co2.orig", {.max = m_fields->Details().At("liquid/co2.mgl").GetMaxValue(),
                                                .unit = "mg/l",
                                                .equivalentWeight = co2Weight});
    grid.Add(m_co2Unit, Cell().Expand());

    m_calculateCo2 = m_fields->AddLocalizable(new TvCheckBox(
        parent, wxID_ANY, "Calculate CO2", wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator,
        wxASCII_STR(wxCheckBoxNameStr), &m_fields->Details().At("liquid/calculate.co2")));
    m_fields->AddSelfRefreshing(m_calculateCo2);
    grid.Add(m_calculateCo2, Cell());
    grid.Add(m_fields->AddResult(parent, {.key = "liquid/co2.mgl", .label = "CO2:", .unit = "mg/l"}), Cell());
    grid.Add(m_fields->AddUnitLabel(parent, "mg/l", false), Cell());
}

void WaterAnalysisPanel::CreateFurtherPropertiesPane(wxWindow* parent, wxSizer& box)
{
    m_furtherPane = new wxCollapsiblePane(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                          wxCP_DEFAULT_STYLE | wxCP_NO_TLW_RESIZE);
    wxWindow* pane = m_furtherPane->GetPane();
    auto* grid = PropertyGrid(pane);
    for (const auto& row : wateranalysis::kFurtherProperties)
        AddPropertyRow(*m_fields, pane, *grid, row);
    pane->SetSizer(grid);
    box.Add(m_furtherPane, wxSizerFlags().Expand().Border(wxALL, FromDIP(kGap)));
}

wxSizer* WaterAnalysisPanel::CreateSummaryPanel()
{
    auto* box = m_fields->AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, this, "Summary"));
    wxWindow* parent = box->GetStaticBox();
    auto* grid = PropertyGrid(parent);
    for (const auto& row : wateranalysis::kSummaryRows) {
        const wxString unit = wxString::FromUTF8(row.unit);
        grid->Add(
            m_fields->AddLabel(parent, wxString::FromUTF8(row.label), wxString::FromUTF8(row.labelSuffix)),
            Cell());
        grid->Add(m_fields->AddResult(parent, {.key = row.key,
                                               .label = wxString::FromUTF8(row.label),
                                               .unit = unit,
                                               .precision = row.precision,
                                               .width = kSummaryWidth,
                                               .inIsoUnits = !row.convertUnit}),
                  Cell());
        grid->Add(m_fields->AddUnitLabel(parent, unit, row.convertUnit), Cell());
    }
    box->Add(grid, wxSizerFlags().Border(wxALL, FromDIP(kGap)));
    return box;
}
