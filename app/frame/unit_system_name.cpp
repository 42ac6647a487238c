// SPDX-License-Identifier: MIT
#include "app/frame/unit_system_name.h"

#include "gui_base/support/translation.h"

namespace app {

wxString UnitSystemName(const std::string& unitSystem)
{
    if (unitSystem == "us")
        return i18n::Translated("US customary units");
    if (unitSystem == "imperial")
        return i18n::Translated("Imperial units");
    return i18n::Translated("ISO units");
}

}  // namespace app
