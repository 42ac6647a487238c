// SPDX-License-Identifier: MIT
#include "app/command_line/calc_command.h"
#include "app/command_line/report_command.h"
#include "app/tarnvik_app.h"

#include <wx/app.h>
#include <wx/init.h>
#include <wx/utils.h>

#include <iostream>
#include <string>
#include <string_view>
#include <vector>

wxIMPLEMENT_APP_NO_MAIN(app::TarnvikApp);

namespace {

using Command = int (*)(const std::vector<std::string>&, std::ostream&, std::ostream&);

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
    const std::string_view word = argc > 1 ? argv[1] : "";
    if (word == "calc")
        return RunWithoutWindow(app::RunCalc, argc, argv);
    if (word == "report")
        return RunWithoutWindow(app::RunReport, argc, argv);
    // A form that does not fit must show that it scrolls.
    wxSetEnv("GTK_OVERLAY_SCROLLING", "0");
    return wxEntry(argc, argv);
}
