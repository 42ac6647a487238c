// SPDX-License-Identifier: MIT
#include "app/command_line/user_settings.h"

#include "dbinterfaces/project_database.h"
#include "gui_base/messages/user_message.h"
#include "projectbase/settings/settings.h"
#include "tncommon/user_dirs.h"

#include <exception>
#include <filesystem>
#include <ostream>

namespace app {

void TakeUserSettings(std::ostream& err)
{
    try {
        // To calculate is no reason to make a database.
        if (!ProjectDatabase::IsOpen() && !std::filesystem::exists(tncommon::UserDataDir()))
            return;
        if (!ProjectDatabase::IsOpen())
            ProjectDatabase::OpenConfigured();
        Settings::Load();
    } catch (const std::exception& error) {
        err << "tarnvik: the settings cannot be read, the usual ones hold: "
            << MessageOf(error).text.utf8_string() << '\n';
    }
}

}  // namespace app
