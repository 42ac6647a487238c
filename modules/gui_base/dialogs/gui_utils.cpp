// SPDX-License-Identifier: MIT
#include "gui_base/dialogs/gui_utils.h"

#include "dbinterfaces/master_database.h"
#include "gui_base/support/translation.h"

#include <wx/uilocale.h>

#include <algorithm>

namespace gui_utils {

namespace {

using CodesAndNames = std::vector<std::pair<wxString, wxString>>;

template <typename Records>
CodesAndNames InLanguageOfTexts(Records (*get)(const std::string& language))
{
    CodesAndNames pairs;
    for (const auto& record : get(i18n::TextLanguage().utf8_string()))
        pairs.emplace_back(wxString::FromUTF8(record.code), wxString::FromUTF8(record.name));
    return pairs;
}

}  // namespace

CodesAndNames GetCountries()
{
    CodesAndNames countries = InLanguageOfTexts(&MasterDatabase::GetCountries);
    const wxUILocale locale = wxUILocale::GetCurrent();
    std::sort(countries.begin(), countries.end(), [&locale](const auto& a, const auto& b) {
        return locale.CompareStrings(a.second, b.second) < 0;
    });
    return countries;
}

CodesAndNames GetCurrencies()
{
    CodesAndNames currencies = InLanguageOfTexts(&MasterDatabase::GetCurrencies);
    std::ranges::sort(currencies);
    return currencies;
}

}  // namespace gui_utils
