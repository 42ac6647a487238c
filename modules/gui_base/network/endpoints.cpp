// SPDX-License-Identifier: MIT
#include "gui_base/network/endpoints.h"

#include "projectbase/settings/settings.h"

namespace endpoints {

wxString ConnectionTestPage()
{
    return Settings::GetSetting("url.connection.test").GetStringValue();
}

}  // namespace endpoints
