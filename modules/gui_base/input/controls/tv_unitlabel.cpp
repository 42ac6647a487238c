// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_unitlabel.h"

#include "projectbase/costs/currency.h"
#include "projectbase/units/unit_system_manager.h"

TvUnitLabel::TvUnitLabel(wxWindow* parent, const wxString& isoUnit, bool unitFlag, bool convertUnit,
                         const wxString& suffix, int id, const wxPoint& pos, const wxSize& size, long style,
                         const wxString& name)
    : wxStaticText(parent, id, wxString(), pos, size, style, name),
      m_isoUnit(isoUnit),
      m_suffix(suffix),
      m_convertUnit(convertUnit),
      m_unitFlag(unitFlag)
{
    Localize("iso");
}

void TvUnitLabel::Localize(const std::string& unitSystem)
{
    if (m_isoUnit.empty() || m_isoUnit == "n/a")
        return;
    const std::string unit =
        UnitSystemManager::GetUnit(m_isoUnit.utf8_string(), m_convertUnit ? unitSystem : "iso", m_unitFlag);
    const wxString label = wxString::FromUTF8(costs::UnitIn(unit, {.code = m_currency})) + m_suffix;
    if (GetLabelText() != label)
        SetLabelText(label);
}

void TvUnitLabel::SetFontUnderlined(bool underlined)
{
    wxFont font = GetFont();
    font.SetUnderlined(underlined);
    SetFont(font);
}
