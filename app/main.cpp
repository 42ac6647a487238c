// SPDX-License-Identifier: MIT
#include "app/command_line/calc_command.h"
#include "app/command_line/command_line.h"
#include "app/command_line/report_command.h"
#include "app/command_line/settings_command.h"
#include "app/frame/tarnvik_app.h"
#include "app/tour/tour_command.h"

#include <wx/app.h>
#include <wx/init.h>
#include <wx/utils.h>

#include <array>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

wxIMPLEMENT_APP_NO_MAIN(app::TarnvikApp);

namespace {

using Run = int (*)(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

/// A command needs no display: a toolkit without windows is started for it.
template <Run run>
int WithoutWindows(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    wxApp::SetInitializerFunction(nullptr);
    const wxInitializer toolkit;
    return run(args, out, err);
}

constexpr std::array kCommands{
    app::Command{"calc", "FILE [--set KEY=VALUE]... [--sweep KEY=FROM:TO:N]... [--json]",
                 "prints the results of a project", WithoutWindows<app::RunCalc>},
    app::Command{"report", "FILE -o OUT.pdf [--pages PAGE,...]", "prints a project as PDF",
                 WithoutWindows<app::RunReport>},
    app::Command{"settings", "[NAME=VALUE]... [--reset NAME]...", "prints and changes the settings",
                 WithoutWindows<app::RunSettings>},
    app::Command{"tour", "DIR [--modules]", "takes a picture of every control and module",
                 WithoutWindows<app::RunTour>},
};

}  // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> args(argv + 1, argv + argc);
    if (const std::optional<int> code = app::RunCommandLine(kCommands, args, std::cout, std::cerr))
        return *code;
    if (!args.empty() && !args.back().starts_with('-'))
        app::TarnvikApp::SetFile(args.back());
    // A form that does not fit must show that it scrolls.
    wxSetEnv("GTK_OVERLAY_SCROLLING", "0");
    return wxEntry(argc, argv);
}
