// SPDX-License-Identifier: MIT
#include "app/language/language.h"

#include "tncommon/data_dir.h"

#include <wx/dir.h>
#include <wx/filename.h>
#include <wx/intl.h>
#include <wx/log.h>
#include <wx/translation.h>
#include <wx/uilocale.h>

namespace app {
namespace {

const char* const kDomain = "tarnvik";

wxString LocaleDir()
{
    return wxString::FromUTF8((tncommon::DataDir() / "locale").string());
}

wxString g_current = "en";

}  // namespace

std::vector<Language> AvailableLanguages()
{
    std::vector<Language> languages{{"en", "English"}};
    const wxString root = LocaleDir();
    if (!wxDirExists(root))
        return languages;
    wxDir folder(root);
    wxString code;
    for (bool more = folder.GetFirst(&code, wxString(), wxDIR_DIRS); more; more = folder.GetNext(&code)) {
        if (code == "en" || !wxFileExists(root + "/" + code + "/LC_MESSAGES/" + kDomain + ".mo"))
            continue;
        const wxLanguageInfo* info = wxLocale::FindLanguageInfo(code);
        languages.push_back({code, info != nullptr ? info->DescriptionNative : code});
    }
    return languages;
}

void SwitchLanguage(const wxString& code)
{
    // The toolkit tells which catalogues it uses; nobody asked.
    const wxLogNull quiet;
    auto* translations = new wxTranslations;
    wxFileTranslationsLoader::AddCatalogLookupPathPrefix(LocaleDir());
    // The old catalogue goes with this.
    wxTranslations::Set(translations);
    translations->SetLanguage(code);
    translations->AddStdCatalog();
    translations->AddCatalog(kDomain, wxLANGUAGE_ENGLISH);
    g_current = code;
}

std::string DecimalSign()
{
    const wxTranslations* catalogue = wxTranslations::Get();
    const wxString sign =
        catalogue == nullptr ? wxString() : catalogue->GetHeaderValue("X-Decimal-Sign", kDomain);
    return sign.empty() ? "." : sign.utf8_string();
}

wxString CurrentLanguage()
{
    return g_current;
}

wxString SystemLanguage()
{
    const wxString system =
        wxUILocale::GetLanguageCanonicalName(wxUILocale::GetSystemLanguage()).BeforeFirst('_');
    for (const Language& language : AvailableLanguages()) {
        if (language.code == system)
            return system;
    }
    return "en";
}

}  // namespace app
