// SPDX-License-Identifier: MIT
#include "gui_base/water/rows/unit_lists.h"

#include "core/ion_units.h"
#include "projectbase/units/temperature.h"

namespace water_units {
namespace {

template <typename Texts>
std::vector<wxString> ToStrings(const Texts& texts)
{
    std::vector<wxString> strings;
    for (const auto& text : texts)
        strings.push_back(wxString::FromUTF8(text.data(), text.size()));
    return strings;
}

}  // namespace

std::vector<wxString> OfIons()
{
    return ToStrings(ions::kIonUnits);
}

std::vector<wxString> OfEquivalents()
{
    return ToStrings(ions::kEquivalentUnits);
}

std::vector<wxString> OfAlkalinities()
{
    return ToStrings(ions::kAlkalinityUnits);
}

std::vector<wxString> OfHardness()
{
    return ToStrings(ions::kHardnessUnits);
}

std::vector<wxString> OfConductivity()
{
    return ToStrings(ions::kConductivityUnits);
}

std::vector<wxString> OfTemperatures()
{
    std::vector<wxString> texts;
    for (const TemperatureUnit unit : kTemperatureUnits)
        texts.push_back(wxString::FromUTF8(Temperature::UnitText(unit)));
    return texts;
}

}  // namespace water_units
