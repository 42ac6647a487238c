// SPDX-License-Identifier: MIT
#include "gui_base/support/compound_name.h"

#include "dbinterfaces/compound_names.h"

#include <wx/translation.h>

namespace i18n {

std::string CompoundLanguage()
{
    const wxTranslations* const texts = wxTranslations::Get();
    return texts != nullptr ? texts->GetHeaderValue("Language", "tarnvik").utf8_string() : std::string();
}

wxString CompoundName(const std::string& name, const std::string& formula)
{
    return wxString::FromUTF8(compound_names::Shown(name, formula, CompoundLanguage()));
}

std::string FiledCompoundName(const std::string& text, const std::string& formula)
{
    return compound_names::Filed(text, formula, CompoundLanguage());
}

}  // namespace i18n
