// SPDX-License-Identifier: MIT
#include "gui_base/dialogs/gui_utils.h"

#include "dbinterfaces/master_database.h"
#include "gui_base/support/translation.h"

#include <wx/uilocale.h>

#include <algorithm>

namespace gui_utils {

std::vector<std::pair<wxString, wxString>> GetCountries()
{
    std::vector<std::pair<wxString, wxString>> countries;
    for (const auto& country : MasterDatabase::GetCountries(i18n::TextLanguage().utf8_string()))
        countries.emplace_back(wxString::FromUTF8(country.code), wxString::FromUTF8(country.name));
    const wxUILocale locale = wxUILocale::GetCurrent();
    std::sort(countries.begin(), countries.end(), [&locale](const auto& a, const auto& b) {
        return locale.CompareStrings(a.second, b.second) < 0;
    });
    return countries;
}

}  // namespace gui_utils
