// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/stattext.h>

#include <string>

/// A label with the unit of a value in the displayed unit system, followed by a suffix. An ISO unit that is
/// empty or "n/a" leaves the label as it is.
class GUI_BASE_EXPORT TvUnitLabel : public wxStaticText
{
public:
    /// With `convertUnit` the label shows the unit of the unit system, otherwise always the ISO unit.
    /// `unitFlag` asks for the typographic form of the unit ("m³/h").
    TvUnitLabel(wxWindow* parent, const wxString& isoUnit, bool unitFlag, bool convertUnit,
                const wxString& suffix = {}, int id = wxID_ANY, const wxPoint& pos = wxDefaultPosition,
                const wxSize& size = wxDefaultSize, long style = 0,
                const wxString& name = wxASCII_STR(wxStaticTextNameStr));

    void Localize(const std::string& unitSystem);
    /// The new unit is shown at the next localisation.
    void SetIsoUnit(const wxString& isoUnit) { m_isoUnit = isoUnit; }
    /// The code that stands for "EUR" in a unit from the next localisation on.
    void SetCurrency(const std::string& code) { m_currency = code; }
    void SetFontUnderlined(bool underlined);

private:
    wxString m_isoUnit;
    wxString m_suffix;
    std::string m_currency = "EUR";
    bool m_convertUnit;
    bool m_unitFlag;
};
