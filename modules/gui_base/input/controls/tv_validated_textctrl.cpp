// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_validated_textctrl.h"

#include "gui_base/input/events.h"
#include "gui_base/input/validation/double_validator.h"
#include "gui_base/input/validation/text_enter_validator.h"
#include "gui_base/support/events.h"
#include "projectbase/units/unit_system_manager.h"

namespace {

constexpr double kNoCurrency = 1.0;

void TellParent(wxWindow& control)
{
    events::SendEvent(control.GetParent(), tvCHANGE_EVENT, control.GetId(), 0, {});
}

}  // namespace

TvValidatedDoubleTextCtrl::TvValidatedDoubleTextCtrl(const ValidatedDoubleTextCtrlConfig& config)
    : TvTextCtrl(config.parent, config.id, wxString(), config.pos, config.size, config.style,
                 DoubleValidator(&m_value, config.format, config.precision, config.validatorFlags,
                                 config.minValue, config.maxValue, config.undefValue),
                 config.name),
      m_detail(config.detail),
      m_minValue(config.minValue),
      m_maxValue(config.maxValue),
      m_defaultValue(config.defaultValue),
      m_binding(config.transferFlags, &m_value, this, config.detail),
      m_unitSystem("iso"),
      m_isoUnitSystem("iso"),
      m_followUnitSystem(config.followUnitSystem)
{
    if (config.statusBar != nullptr)
        SetStatusBar(config.statusBar);
    m_binding.TransferToWindow(m_unitSystem, kNoCurrency);
    TransferDataToWindow();
}

void TvValidatedDoubleTextCtrl::Localize(const wxString& unitSystem)
{
    m_unitSystem = m_followUnitSystem ? unitSystem : m_isoUnitSystem;
    UpdateValidator(m_unitSystem);
}

void TvValidatedDoubleTextCtrl::UpdateValidator(const wxString& unitSystem)
{
    auto* validator = dynamic_cast<DoubleValidator*>(GetValidator());
    if (validator == nullptr)
        return;
    const double min = m_detail->HasMinValue() ? m_detail->GetMinValue() : m_minValue;
    const double max = m_detail->HasMaxValue() ? m_detail->GetMaxValue() : m_maxValue;
    const std::string name = unitSystem.utf8_string();
    validator->SetMinValue(UnitSystemManager::FromISO(m_detail->GetUnit(), name, min));
    validator->SetMaxValue(UnitSystemManager::FromISO(m_detail->GetUnit(), name, max));
}

bool TvValidatedDoubleTextCtrl::TransferDataToWindow()
{
    m_binding.TransferToWindow(m_unitSystem, kNoCurrency);
    return TvTextCtrl::TransferDataToWindow();
}

bool TvValidatedDoubleTextCtrl::TransferDataFromWindow()
{
    if (!TvTextCtrl::TransferDataFromWindow())
        return false;
    bool changed = false;
    if (m_binding.TransferFromWindow(m_unitSystem, changed, kNoCurrency))
        TellParent(*this);
    return true;
}

void TvValidatedDoubleTextCtrl::SetToDefault()
{
    m_detail->SetValue(m_defaultValue);
    TransferDataToWindow();
}

void TvValidatedDoubleTextCtrl::UpdateUnit(const std::string& unitSystem)
{
    Localize(wxString::FromUTF8(unitSystem));
    TransferDataToWindow();
}

TvValidatedTextCtrl::TvValidatedTextCtrl(const ValidatedTextCtrlConfig& config)
    : TvTextCtrl(config.parent, config.id, wxString(), config.pos, config.size, config.style,
                 TextEnterValidator(&m_text), config.name),
      m_detail(config.detail),
      m_defaultText(config.defaultText),
      m_binding(config.transferFlags, &m_text, this, config.detail),
      m_unitSystem("iso")
{
    if (config.statusBar != nullptr)
        SetStatusBar(config.statusBar);
    TransferDataToWindow();
}

bool TvValidatedTextCtrl::TransferDataToWindow()
{
    m_binding.TransferToWindow(m_unitSystem, kNoCurrency);
    return TvTextCtrl::TransferDataToWindow();
}

bool TvValidatedTextCtrl::TransferDataFromWindow()
{
    if (!TvTextCtrl::TransferDataFromWindow())
        return false;
    bool changed = false;
    if (m_binding.TransferFromWindow(m_unitSystem, changed, kNoCurrency))
        TellParent(*this);
    return true;
}

void TvValidatedTextCtrl::SetToDefault()
{
    m_detail->SetValue(m_defaultText);
    TransferDataToWindow();
}
