// SPDX-License-Identifier: MIT
#include "gui_base/network/endpoints.h"

#include "projectbase/settings/settings.h"

namespace endpoints {

wxString Get(const char* setting)
{
    return Settings::GetSetting(setting).GetStringValue();
}

}  // namespace endpoints
