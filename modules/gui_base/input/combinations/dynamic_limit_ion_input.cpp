// SPDX-License-Identifier: MIT
#include "gui_base/input/combinations/dynamic_limit_ion_input.h"

#include "core/ion_units.h"
#include "gui_base/input/validation/double_validator.h"

#include <algorithm>
#include <stdexcept>

DynamicLimitIonInputCtrl::DynamicLimitIonInputCtrl(wxWindow* parent, int id, const wxString& label,
                                                   const wxString& suffix, DetailData* inputDetail,
                                                   DetailData* unitDetail, DetailData* outputDetail,
                                                   DetailData* limitDetail, wxSizer* sizer,
                                                   const std::vector<wxString>& units, wxStatusBar* statusBar,
                                                   double min, double max, const wxPoint& pos,
                                                   const wxSize& size, long style)
    : InputCombinationIonConcentrationCtrl(Config{parent, id, label, suffix, inputDetail, unitDetail,
                                                  outputDetail, sizer, units, statusBar, min, max, pos, size,
                                                  style}),
      m_limitDetail(limitDetail)
{
    if (limitDetail == nullptr)
        throw std::runtime_error("DynamicLimitIonInputCtrl::DynamicLimitIonInputCtrl: a detail is missing");
    CreateLabel();
    CreateInput();
    CreateUnitChoice();
    CreateOutput();
    BindEvents();
    DynamicLimitIonInputCtrl::TransferDetailToWindow();
}

double DynamicLimitIonInputCtrl::GetMaximum() const
{
    const DetailData& input = *GetConfig().inputDetail;
    const double own = input.HasMaxValue() ? input.GetMaxValue() : GetConfig().max;
    const double limit =
        ConvertConcentration(m_limitDetail->GetDoubleValue(), ConcentrationUnit(*m_limitDetail),
                             GetConfig().unitDetail->GetStdStringValue());
    return limit < own ? limit : own;
}

bool DynamicLimitIonInputCtrl::ApplyLimits()
{
    DetailData& input = *GetConfig().inputDetail;
    const double maximum = GetMaximum();
    if (!(input.GetDoubleValue() > maximum))
        return false;
    input.SetValue(maximum);
    return true;
}

void DynamicLimitIonInputCtrl::UpdateLimits()
{
    const bool limited = ApplyLimits();
    if (limited)
        UpdateOutput();
    TransferDetailToWindow();
    if (limited)
        SendChange();
}

void DynamicLimitIonInputCtrl::TransferDetailToWindow()
{
    if (GetInput() != nullptr) {
        if (auto* validator = dynamic_cast<DoubleValidator*>(GetInput()->GetValidator())) {
            // The comparison rounds the value up at the shown decimals; the field would then replace a value
            // that is kept.
            const double stored = GetConfig().inputDetail->GetDoubleValue();
            const double rounded = numbertext::RoundUp(stored, validator->GetPrecision());
            const double maximum = GetMaximum();
            validator->SetMaxValue(rounded > maximum ? rounded : maximum);
        }
    }
    InputCombinationIonConcentrationCtrl::TransferDetailToWindow();
}
