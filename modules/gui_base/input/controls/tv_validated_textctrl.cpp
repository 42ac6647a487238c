// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_validated_textctrl.h"

#include "core/text_limits.h"
#include "gui_base/input/controls/text_length.h"
#include "gui_base/input/events.h"
#include "gui_base/input/validation/double_validator.h"
#include "gui_base/input/validation/text_enter_validator.h"
#include "gui_base/support/events.h"
#include "projectbase/units/unit_system_manager.h"

namespace {

constexpr double kNoCurrency = 1.0;

DoubleValidator MakeValidator(double* value, const ValidatedDoubleTextCtrlConfig& config)
{
    return {value,           config.format,   config.precision, config.validatorFlags,
            config.minValue, config.maxValue, config.undefValue};
}

TextEnterValidator MakeValidator(wxString* value, const ValidatedTextCtrlConfig&)
{
    return TextEnterValidator(value);
}

}  // namespace

template <typename T>
template <typename Config>
TvDetailTextCtrl<T>::TvDetailTextCtrl(const Config& config, const T& defaultValue)
    : TvTextCtrl(config.parent, config.id, wxString(), config.pos, config.size, config.style,
                 MakeValidator(&m_value, config), config.name),
      m_detail(config.detail),
      m_defaultValue(defaultValue),
      m_binding(config.transferFlags, &m_value, this, config.detail),
      m_unitSystem("iso")
{
    if (config.statusBar != nullptr)
        SetStatusBar(config.statusBar);
    TvDetailTextCtrl::TransferDataToWindow();
}

template <typename T>
bool TvDetailTextCtrl<T>::TransferDataToWindow()
{
    m_binding.TransferToWindow(m_unitSystem, kNoCurrency);
    return TvTextCtrl::TransferDataToWindow();
}

template <typename T>
bool TvDetailTextCtrl<T>::TransferDataFromWindow()
{
    if (!TvTextCtrl::TransferDataFromWindow())
        return false;
    bool changed = false;
    if (m_binding.TransferFromWindow(m_unitSystem, changed, kNoCurrency))
        events::SendEvent(GetParent(), tvCHANGE_EVENT, GetId(), 0, wxString());
    return true;
}

template <typename T>
void TvDetailTextCtrl<T>::SetToDefault()
{
    m_detail->SetValue(m_defaultValue);
    TransferDataToWindow();
}

template <typename T>
void TvDetailTextCtrl<T>::Localize(const std::string& unitSystem)
{
    TvTextCtrl::Localize(unitSystem);
    SetUnitSystem(wxString::FromUTF8(unitSystem));
    if (!IsModified())
        TransferDataToWindow();
}

template <typename T>
void TvDetailTextCtrl<T>::UpdateUnit(const std::string& unitSystem)
{
    Localize(unitSystem);
    TransferDataToWindow();
}

template class TvDetailTextCtrl<double>;
template class TvDetailTextCtrl<wxString>;

TvValidatedDoubleTextCtrl::TvValidatedDoubleTextCtrl(const ValidatedDoubleTextCtrlConfig& config)
    : TvDetailTextCtrl(config, config.defaultValue),
      m_minValue(config.minValue),
      m_maxValue(config.maxValue),
      m_followUnitSystem(config.followUnitSystem)
{
    const DetailData* detail = config.detail;
    if (detail == nullptr || (!detail->HasMinValue() && !detail->HasMaxValue()))
        return;
    // The limits of the detail come before those that the validator was made with.
    UpdateValidator(GetUnitSystem());
    TransferDataToWindow();
}

void TvValidatedDoubleTextCtrl::SetUnitSystem(const wxString& unitSystem)
{
    TvDetailTextCtrl::SetUnitSystem(m_followUnitSystem ? unitSystem : wxString("iso"));
    UpdateValidator(GetUnitSystem());
}

void TvValidatedDoubleTextCtrl::UpdateValidator(const wxString& unitSystem)
{
    auto* validator = dynamic_cast<DoubleValidator*>(GetValidator());
    if (validator == nullptr)
        return;
    const DetailData& detail = *GetDetail();
    const double min = detail.HasMinValue() ? detail.GetMinValue() : m_minValue;
    const double max = detail.HasMaxValue() ? detail.GetMaxValue() : m_maxValue;
    const std::string name = unitSystem.utf8_string();
    validator->SetMinValue(UnitSystemManager::FromISO(detail.GetUnit(), name, min));
    validator->SetMaxValue(UnitSystemManager::FromISO(detail.GetUnit(), name, max));
}

TvValidatedTextCtrl::TvValidatedTextCtrl(const ValidatedTextCtrlConfig& config)
    : TvDetailTextCtrl(config, config.defaultText)
{
    if (config.detail != nullptr)
        text_length::Limit(*this, text_limits::MostOf(config.detail->GetName()));
}
