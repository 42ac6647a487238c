// SPDX-License-Identifier: MIT
#include "gui_base/support/translation.h"

#include <wx/translation.h>

namespace i18n {

wxString Translated(const wxString& source)
{
    // The entry of the empty text is the catalogue's header.
    if (source.empty())
        return source;
    const wxTranslations* catalogue = wxTranslations::Get();
    const wxString* translation = catalogue != nullptr ? catalogue->GetTranslatedString(source) : nullptr;
    return translation != nullptr && !translation->empty() ? *translation : source;
}

wxString Translated(const char* utf8Source)
{
    return Translated(wxString::FromUTF8(utf8Source));
}

wxString Colon()
{
    return Translated(wxTRANSLATE(":"));
}

wxString WithSuffix(const wxString& label, const wxString& suffix)
{
    wxString before;
    return suffix.EndsWith(":", &before) ? label + before + Colon() : label + suffix;
}

wxString WithoutColon(const wxString& label)
{
    if (!label.EndsWith(":"))
        return label;
    // What is no blank to the toolkit: it does not break a line.
    const wxUniChar noBreak(0x00A0);
    const wxString plain = label.Left(label.length() - 1);
    return plain.EndsWith(wxString(noBreak)) ? plain.Left(plain.length() - 1) : plain;
}

wxString TextLanguage()
{
    wxTranslations* const texts = wxTranslations::Get();
    return texts != nullptr ? texts->GetBestTranslation("tarnvik") : wxString();
}

}  // namespace i18n
