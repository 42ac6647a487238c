// SPDX-License-Identifier: MIT
#include "app/command_line/calc_command.h"
#include "app/tarnvik_app.h"

#include <wx/app.h>
#include <wx/init.h>
#include <wx/utils.h>

#include <iostream>
#include <string_view>

wxIMPLEMENT_APP_NO_MAIN(app::TarnvikApp);

namespace {

/// Runs a command that needs no display: a toolkit without windows is started for it.
int RunWithoutWindow(int argc, char** argv)
{
    wxApp::SetInitializerFunction(nullptr);
    const wxInitializer toolkit(argc, argv);
    return app::RunCalc({argv + 2, argv + argc}, std::cout, std::cerr);
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc > 1 && std::string_view(argv[1]) == "calc")
        return RunWithoutWindow(argc, argv);
    // A form that does not fit must show that it scrolls.
    wxSetEnv("GTK_OVERLAY_SCROLLING", "0");
    return wxEntry(argc, argv);
}
