// SPDX-License-Identifier: MIT
#include "app/tarnvik_app.h"

#include <wx/app.h>
#include <wx/utils.h>

wxIMPLEMENT_APP_NO_MAIN(app::TarnvikApp);

int main(int argc, char** argv)
{
    // A form that does not fit must show that it scrolls.
    wxSetEnv("GTK_OVERLAY_SCROLLING", "0");
    return wxEntry(argc, argv);
}
