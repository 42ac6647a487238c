// SPDX-License-Identifier: MIT
#include "app/command_line/calc_command.h"
#include "app/command_line/report_command.h"
#include "app/frame/tarnvik_app.h"
#include "app/tour/tour_command.h"

#include <wx/app.h>
#include <wx/init.h>
#include <wx/utils.h>

#include <array>
#include <iostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

wxIMPLEMENT_APP_NO_MAIN(app::TarnvikApp);

namespace {

using Command = int (*)(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

/// The commands that open no window of this process.
constexpr std::array<std::pair<std::string_view, Command>, 3> kCommands{
    {{"calc", app::RunCalc}, {"report", app::RunReport}, {"tour", app::RunTour}}};

/// Runs a command that needs no display: a toolkit without windows is started for it.
int RunWithoutWindow(Command command, int argc, char** argv)
{
    wxApp::SetInitializerFunction(nullptr);
    const wxInitializer toolkit(argc, argv);
    return command({argv + 2, argv + argc}, std::cout, std::cerr);
}

}  // namespace

int main(int argc, char** argv)
{
    for (const auto& [name, command] : kCommands)
        if (argc > 1 && name == argv[1])
            return RunWithoutWindow(command, argc, argv);
    // A form that does not fit must show that it scrolls.
    wxSetEnv("GTK_OVERLAY_SCROLLING", "0");
    return wxEntry(argc, argv);
}
