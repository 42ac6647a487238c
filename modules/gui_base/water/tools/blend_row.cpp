// SPDX-License-Identifier: MIT
#include "gui_base/water/tools/blend_row.h"

#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/controls/tv_unitlabel.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"
#include "projectbase/units/unit_system_manager.h"

#include <wx/dcclient.h>

#include <cmath>
#include <limits>

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
constexpr double kMostFlow = 999999.0;  // m³/h
constexpr FormLimits kShareLimits{0.0, 100.0};
constexpr FormLimits kFlowLimits{0.0, kMostFlow};
constexpr int kChoiceWidth = 300;
constexpr int kArrowWidth = 48;

const char* UnitOf(bool byFlow)
{
    return byFlow ? "m3/h" : "%";
}

}  // namespace

BlendRow::BlendRow(wxWindow* parent, const std::vector<std::string>& waters, const water::BlendPart& part,
                   bool byFlow)
    : FormBlock(nullptr, parent), m_byFlow(byFlow)
{
    GetFields().Details().Add(DetailData(kWater, DetailType::String)).SetValue(part.water);
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    SetSizer(row);
    // Names of waters often begin alike.
    wxClientDC dc(this);
    tvChoiceAdv::Items items;
    for (const std::string& water : waters) {
        const wxString name = wxString::FromUTF8(water);
        items.emplace_back(
            name, wxControl::Ellipsize(name, dc, wxELLIPSIZE_MIDDLE, FromDIP(kChoiceWidth - kArrowWidth)));
    }
    m_choice = GetFields().AddSelfStoring(
        new tvChoiceAdv(items, &GetFields().Details().At(kWater), this, wxID_ANY), wxTRANSLATE("Water"));
    m_choice->SetMinSize(FromDIP(wxSize(kChoiceWidth, -1)));
    const wxSizerFlags cell = wxSizerFlags().CentreVertical().Border(wxRIGHT, FromDIP(2 * form::kGap));
    row->Add(m_choice, wxSizerFlags(cell).Proportion(1));
    m_share = AddAmount(false, byFlow ? kUnknown : part.amount);
    m_flow = AddAmount(true, byFlow ? part.amount : kUnknown);
    m_remove = GetFields().AddLocalizable(new TvButton(parent, wxID_ANY, wxTRANSLATE("Remove")));
    m_remove->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
        if (m_onRemove)
            GetParent()->CallAfter(m_onRemove);
    });
    CompleteForm();
    ShowMode(byFlow);
}

wxSizer* BlendRow::AddAmount(bool byFlow, double amount)
{
    const char* key = byFlow ? kFlow : kShare;
    GetFields().Details().Add(DetailData(key, DetailType::Double, UnitOf(byFlow))).SetValue(amount);
    auto* cells = new wxBoxSizer(wxHORIZONTAL);
    const wxSizerFlags cell = wxSizerFlags().CentreVertical().Border(wxRIGHT, FromDIP(2 * form::kGap));
    cells->Add(GetFields().CreateField(this, {.key = key,
                                              .label = wxTRANSLATE("Amount"),
                                              .limits = byFlow ? kFlowLimits : kShareLimits,
                                              .precision = 6,
                                              .validatorFlags = ShowPreciseValue,
                                              .width = kAmountWidth}),
               cell);
    TvUnitLabel* unit = GetFields().AddUnitLabel(this, UnitOf(byFlow), true);
    unit->SetMinSize(FromDIP(wxSize(kUnitWidth, -1)));
    cells->Add(unit, cell);
    GetSizer()->Add(cells, wxSizerFlags().CentreVertical());
    return cells;
}

void BlendRow::ShowMode(bool byFlow)
{
    m_byFlow = byFlow;
    GetSizer()->Show(m_share, !byFlow);
    GetSizer()->Show(m_flow, byFlow);
    Layout();
}

std::optional<water::BlendPart> BlendRow::GetPart()
{
    TransferDetailsFromWindow();
    const double amount = GetFields().Details().At(m_byFlow ? kFlow : kShare).GetDoubleValue();
    if (GetWater().empty() || !std::isfinite(amount) || amount < 0.0)
        return std::nullopt;
    return water::BlendPart{GetWater(), amount};
}

void BlendRow::Localize(const std::string& unitSystem)
{
    FormBlock::Localize(unitSystem);
    NameControls();
}

void BlendRow::Signal()
{
    NameControls();
    FormBlock::Signal();
}

void BlendRow::NameControls()
{
    const wxString name = i18n::Translated(wxString::FromUTF8(GetWater()));
    for (const bool byFlow : {false, true}) {
        const std::string unit = UnitSystemManager::GetUnit(UnitOf(byFlow), GetUnitSystem(), true);
        accessibility::SetName(
            *FindField(byFlow ? kFlow : kShare),
            accessibility::NameWithUnit(i18n::Translated("Amount") + i18n::Colon() + " " + name,
                                        wxString::FromUTF8(unit)));
    }
    accessibility::SetName(*m_remove, i18n::Translated("Remove") + i18n::Colon() + " " + name);
}
