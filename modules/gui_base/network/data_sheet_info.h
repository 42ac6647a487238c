// SPDX-License-Identifier: MIT
#pragma once

#include <wx/string.h>

namespace NetObjects {

/// A data sheet that a service offers. Texts are those of the service unless said otherwise.
struct DataSheetInfo
{
    wxString productId;
    wxString status = "unknown";  ///< of product data sheets, by the table of the settings
    wxString language;            ///< by the table of the settings: a code of ISO 639
    wxString legalArea;           ///< of safety data sheets: for which country or region it was written
    wxString company;
    wxString address;  ///< what a safety data sheet is fetched by
};

}  // namespace NetObjects
