// SPDX-License-Identifier: MIT
#include "gui_base/water/analysis/analysis_type_box.h"

#include "gui_base/input/controls/tv_radiobutton.h"
#include "gui_base/input/controls/tv_unitlabel.h"
#include "gui_base/input/form/form_grid.h"
#include "gui_base/input/validation/validator.h"

#include <wx/statbox.h>

namespace wateranalysis {
namespace {

constexpr const char* kTypeKey = "liquid/analysis.type";
constexpr const char* kFull = "FULL";
constexpr const char* kShortTds = "SHORT_TDS";
constexpr const char* kShortConductivity = "SHORT_COND";

}  // namespace

AnalysisType GetAnalysisType(const DetailList& liquid)
{
    const std::string type = liquid.At(kTypeKey).GetStdStringValue();
    if (type == kShortTds)
        return AnalysisType::ShortTds;
    return type == kShortConductivity ? AnalysisType::ShortConductivity : AnalysisType::Full;
}

void SetAnalysisType(DetailList& liquid, AnalysisType type)
{
    liquid.At(kTypeKey).SetValue(type == AnalysisType::Full       ? kFull
                                 : type == AnalysisType::ShortTds ? kShortTds
                                                                  : kShortConductivity);
}

AnalysisTypeBox::AnalysisTypeBox(wxWindow* parent, FieldSet& fields)
    : CollapsibleBox(wxVERTICAL, parent, wxTRANSLATE("Analysis"))
{
    fields.AddLocalizable<TvStaticBoxSizer>(this);
    auto* grid = form::NewGrid(*GetStaticBox());
    m_full = AddButton(fields, *grid, wxTRANSLATE("Full analysis"), wxRB_GROUP);
    grid->AddSpacer(0);
    grid->AddSpacer(0);
    m_shortTds = AddButton(fields, *grid, wxTRANSLATE("Short analysis based on TDS"), 0);
    m_tds = AddValue(fields, *grid, {.key = "liquid/tds.short", .label = "TDS", .unit = "mg/l"});
    m_shortConductivity = AddButton(fields, *grid, wxTRANSLATE("Short analysis based on conductivity"), 0);
    m_conductivity =
        AddValue(fields, *grid, {.key = "liquid/cond.short", .label = "Conductivity", .unit = "uS/cm"});
    for (TvRadioButton* button : {m_shortTds, m_shortConductivity})
        button->SetTranslatableToolTip(
            wxTRANSLATE("The water is taken as a solution of sodium chloride; the typed ions are kept"));
    Add(grid, wxSizerFlags().Border(wxALL, parent->FromDIP(form::kGap)));
    TakeKeptState();
}

TvRadioButton* AnalysisTypeBox::AddButton(FieldSet& fields, wxSizer& grid, const char* label, long style)
{
    auto* button = fields.AddLocalizable(
        new TvRadioButton(GetStaticBox(), wxID_ANY, label, wxDefaultPosition, wxDefaultSize, style));
    grid.Add(button, wxSizerFlags().CentreVertical());
    return button;
}

TvTextCtrl* AnalysisTypeBox::AddValue(FieldSet& fields, wxSizer& grid, const NumberSpec& spec)
{
    NumberSpec typed = spec;
    typed.validatorFlags = ZeroAsEmpty | ShowPreciseValue;
    typed.precision = 6;
    TvTextCtrl* field = fields.AddInput(GetStaticBox(), typed);
    grid.Add(field, wxSizerFlags().CentreVertical());
    grid.Add(fields.AddUnitLabel(GetStaticBox(), spec.unit, false), wxSizerFlags().CentreVertical());
    return field;
}

TvRadioButton& AnalysisTypeBox::GetButton(AnalysisType type) const
{
    return type == AnalysisType::Full       ? *m_full
           : type == AnalysisType::ShortTds ? *m_shortTds
                                            : *m_shortConductivity;
}

void AnalysisTypeBox::ShowType(AnalysisType type)
{
    if (!GetButton(type).GetValue())
        GetButton(type).SetValue(true);
    m_tds->Enable(type == AnalysisType::ShortTds);
    m_conductivity->Enable(type == AnalysisType::ShortConductivity);
}

void AnalysisTypeBox::EnableShortTypes(bool enable)
{
    m_shortTds->Enable(enable);
    m_shortConductivity->Enable(enable);
}

}  // namespace wateranalysis
