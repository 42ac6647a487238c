// SPDX-License-Identifier: MIT
#include "app/tarnvik_app.h"

#include <wx/app.h>

wxIMPLEMENT_APP_NO_MAIN(app::TarnvikApp);

int main(int argc, char** argv) { return wxEntry(argc, argv); }
