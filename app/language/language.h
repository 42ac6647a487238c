// SPDX-License-Identifier: MIT
#pragma once

/// The languages of the program. Numbers follow the locale of the system, which is set once; the language of
/// the texts is switched by the catalogue alone.

#include <wx/string.h>

#include <string>
#include <vector>

namespace app {

struct Language
{
    wxString code;  ///< "en", "de"
    wxString name;  ///< in the language itself
};

/// English, which needs no catalogue, and every language that has one in the data folder.
std::vector<Language> AvailableLanguages();

/// Loads the catalogue of `code`; without one the texts stay in English. Whoever shows texts localises
/// afterwards.
void SwitchLanguage(const wxString& code);

/// The decimal sign of the language in effect, as its catalogue states it: for what is written in a language
/// that need not be the user's own. A point in English.
std::string DecimalSign();

/// Code of the language in effect.
wxString CurrentLanguage();

/// The language that the user's system asks for, or "en".
wxString SystemLanguage();

}  // namespace app
