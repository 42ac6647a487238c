// SPDX-License-Identifier: MIT
#include "gui_base/water/tools/blend_form.h"

#include "gui_base/support/translation.h"

#include <cmath>
#include <limits>

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
constexpr const char* kShare = "SHARE";
constexpr const char* kFlow = "FLOW";
constexpr double kMostFlow = 999999.0;  // m³/h
constexpr FormLimits kShareLimits{0.0, 100.0};
constexpr FormLimits kFlowLimits{0.0, kMostFlow};

std::vector<std::pair<wxString, wxString>> Modes()
{
    return {{kShare, wxTRANSLATE("By share")}, {kFlow, wxTRANSLATE("By flow rate")}};
}

std::string SumKey(bool byFlow)
{
    return byFlow ? "flow.sum" : "share.sum";
}

}  // namespace

std::string BlendForm::AmountKey(bool byFlow, std::size_t water)
{
    return (byFlow ? "flow." : "share.") + std::to_string(water + 1);
}

BlendForm::BlendForm(wxWindow* parent, const std::vector<std::string>& waters,
                     const water::BlendRecipe& recipe)
    : FormBlock(nullptr, parent), m_waters(waters)
{
    GetFields().Details().Add(DetailData(kMode, DetailType::String)).SetValue(recipe.byFlow ? kFlow : kShare);
    auto* outer = new wxBoxSizer(wxVERTICAL);
    auto* mode = form::NewGrid(*this);
    GetFields().AddRow(
        this, *mode,
        {.key = kMode, .label = wxTRANSLATE("Amounts"), .field = FormField::Choice, .items = &Modes});
    outer->Add(mode, wxSizerFlags().Border(wxBOTTOM, FromDIP(2 * form::kGap)));
    SetSizer(outer);
    AddAmounts(false, recipe);
    AddAmounts(true, recipe);
    CompleteForm();
    ShowMode();
    UpdateSum();
}

void BlendForm::AddAmounts(bool byFlow, const water::BlendRecipe& recipe)
{
    DetailList& own = GetFields().Details();
    auto* grid = form::NewGrid(*this);
    for (std::size_t i = 0; i < m_waters.size(); ++i) {
        double amount = kUnknown;
        for (const water::BlendPart& part : recipe.parts) {
            if (recipe.byFlow == byFlow && part.water == m_waters[i])
                amount = (std::isfinite(amount) ? amount : 0.0) + part.amount;
        }
        const std::string key = AmountKey(byFlow, i);
        own.Add(DetailData(key, DetailType::Double, byFlow ? "m3/h" : "%")).SetValue(amount);
        GetFields().AddRow(this, *grid,
                           {.key = key.c_str(),
                            .label = m_waters[i].c_str(),
                            .limits = byFlow ? kFlowLimits : kShareLimits,
                            .precision = 6,
                            .validatorFlags = ShowPreciseValue});
    }
    const std::string key = SumKey(byFlow);
    own.Add(DetailData(key, DetailType::Double, byFlow ? "m3/h" : "%"));
    GetFields().AddRow(
        this, *grid,
        {.key = key.c_str(), .label = wxTRANSLATE("Sum"), .field = FormField::Result, .precision = 6});
    (byFlow ? m_byFlow : m_byShare) = grid;
    GetSizer()->Add(grid);
}

bool BlendForm::IsByFlow()
{
    return GetFields().Details().At(kMode).GetStdStringValue() == kFlow;
}

void BlendForm::ShowMode()
{
    GetSizer()->Show(m_byShare, !IsByFlow());
    GetSizer()->Show(m_byFlow, IsByFlow());
    Layout();
}

void BlendForm::UpdateSum()
{
    double sum = 0.0;
    for (const water::BlendPart& part : GetRecipe().parts)
        sum += part.amount;
    GetFields().Details().At(SumKey(IsByFlow())).SetValue(sum);
    TransferDetailsToWindow();
}

void BlendForm::Signal()
{
    ShowMode();
    UpdateSum();
    FormBlock::Signal();
}

water::BlendRecipe BlendForm::GetRecipe()
{
    TransferDetailsFromWindow();
    water::BlendRecipe recipe{.parts = {}, .byFlow = IsByFlow()};
    for (std::size_t i = 0; i < m_waters.size(); ++i) {
        const double amount = GetFields().Details().At(AmountKey(recipe.byFlow, i)).GetDoubleValue();
        if (std::isfinite(amount) && amount >= 0.0)
            recipe.parts.push_back({m_waters[i], amount});
    }
    return recipe;
}
