// SPDX-License-Identifier: MIT
#pragma once

/// How the water library shows what its databases hold in English.

#include "gui_base/gui_base_export.h"
#include "projectbase/water/liquid_data.h"

#include <wx/string.h>

#include <string>
#include <unordered_map>
#include <vector>

namespace water_library {

/// Names of countries in the language of the texts. Made anew after that changed.
class GUI_BASE_EXPORT CountryNames
{
public:
    /// Throws DatabaseError.
    CountryNames();
    /// `english` itself for a name that is no country's; "Not stated" for an empty one.
    wxString operator()(const std::string& english) const;

private:
    std::unordered_map<std::string, wxString> m_names;
};

/// A line of the list of a water's values.
struct DetailLine
{
    wxString name;
    wxString value;
    wxString unit;
};

/// What a water states, in the order of an analysis: ions in their typed units, properties, and what follows
/// from them. What is zero or not known is left out.
GUI_BASE_EXPORT std::vector<DetailLine> DetailLines(const LiquidData& liquid);

/// Source text that names the value of a detail, by its key with or without "liquid/".
GUI_BASE_EXPORT wxString DetailLabel(const wxString& key);

/// Description of the water's type; the code itself where there is none.
GUI_BASE_EXPORT wxString WaterTypeText(const std::string& code);

/// Day of sampling as the user's locale writes it; empty without one.
GUI_BASE_EXPORT wxString SamplingDateText(const LiquidData& liquid);

}  // namespace water_library
