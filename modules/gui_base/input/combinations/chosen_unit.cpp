// SPDX-License-Identifier: MIT
#include "gui_base/input/combinations/chosen_unit.h"

#include "gui_base/input/combinations/unit_conversion.h"
#include "gui_base/input/validation/double_validator.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"

std::string ChosenUnit::GetUnit() const
{
    return m_choice ? m_choice->GetStringUnlocalized().utf8_string() : std::string();
}

void ChosenUnit::SetLimits(const AmountLimits& limits)
{
    m_limits = limits;
    ApplyLimits();
}

void ChosenUnit::ApplyLimits()
{
    auto* validator = m_field ? dynamic_cast<DoubleValidator*>(m_field->GetValidator()) : nullptr;
    if (validator == nullptr)
        return;
    constexpr double kNoLimit = std::numeric_limits<double>::infinity();
    const auto inUnit = [this, unit = GetUnit()](double limit) {
        return combinations::ConvertUnit(limit, m_limits.unit, unit, m_limits.equivalentWeight);
    };
    validator->SetMinValue(inUnit(m_limits.min).value_or(-kNoLimit));
    validator->SetMaxValue(inUnit(m_limits.max).value_or(kNoLimit));
}

void ChosenUnit::UpdateNames(const wxString& label)
{
    if (m_field)
        // As the choice shows it, which may be a translation.
        m_field->SetNameAndUnit(label, m_choice ? m_choice->GetStringSelection() : wxString());
    if (m_choice)
        accessibility::SetName(*m_choice, label + ", " + i18n::Translated("Unit"));
}
