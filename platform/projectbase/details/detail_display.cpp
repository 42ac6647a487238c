// SPDX-License-Identifier: MIT
#include "projectbase/details/detail_display.h"

#include "projectbase/units/unit_system_manager.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace {

const std::string kIso = "iso";

const std::string& EffectiveSystem(const std::vector<std::string>& fixedUnits, const DetailData& detail,
                                   const std::string& unitSystem)
{
    const bool fixed = std::find(fixedUnits.begin(), fixedUnits.end(), detail.GetUnit()) != fixedUnits.end();
    return fixed ? kIso : unitSystem;
}

}  // namespace

double DisplayFromDetail::GetValue(const DetailData& detail, const std::string& unitSystem) const
{
    return UnitSystemManager::FromISO(detail.GetUnit(), EffectiveSystem(m_fixedUnits, detail, unitSystem),
                                      detail.GetDoubleValue());
}

wxString DisplayFromDetail::GetValueAsString(const DetailData& detail, const std::string& unitSystem) const
{
    if (detail.GetType() != DetailType::Double)
        return detail.GetStringValue();
    const double value = GetValue(detail, unitSystem);
    return std::isnan(value) ? wxString() : wxString::FromAscii(fmt::format("{:.6g}", value).c_str());
}

wxString DisplayFromDetail::GetUnitLabel(const DetailData& detail, const std::string& unitSystem) const
{
    const std::string& system = EffectiveSystem(m_fixedUnits, detail, unitSystem);
    return wxString::FromUTF8(UnitSystemManager::GetUnit(detail.GetUnit(), system, true));
}

void SetDetailFromDisplay::SetValue(DetailData& detail, double value, const std::string& unitSystem) const
{
    detail.SetValue(
        UnitSystemManager::ToISO(detail.GetUnit(), EffectiveSystem(m_fixedUnits, detail, unitSystem), value));
}

bool SetDetailFromDisplay::SetValue(DetailData& detail, const wxString& text,
                                    const std::string& unitSystem) const
{
    if (detail.GetType() != DetailType::Double)
        return detail.SetValueFromString(text);
    DetailData parsed(detail);
    if (!parsed.SetValueFromString(text))
        return false;
    SetValue(detail, parsed.GetDoubleValue(), unitSystem);
    return true;
}

std::string CalledName(const DetailList& details, const DetailData& detail)
{
    const std::string& key = detail.GetName();
    const auto suffix = key.rfind('.');
    const DetailData* name =
        suffix == std::string::npos ? nullptr : details.GetDetail(key.substr(0, suffix) + ".name");
    const std::string given = name == nullptr ? std::string() : name->GetStdStringValue();
    return given.empty() ? detail.GetLabel() : given;
}
