// SPDX-License-Identifier: MIT
#pragma once

/// Where the services are: texts of the settings, which belong to the installation. A default leads nowhere.

#include "gui_base/gui_base_export.h"

#include <wx/string.h>

namespace endpoints {

/// The page that tells whether the services can be reached, without a scheme.
inline constexpr const char* kConnectionTest = "url.connection.test";
inline constexpr const char* kCurrencyRates = "url.currency.rates";
inline constexpr const char* kUpdates = "tarn.url2.download";
inline constexpr const char* kSetup = "tarn.url2.dlsetup";
inline constexpr const char* kProductSheetList = "pds.url2.list";
inline constexpr const char* kProductSheet = "pds.url2.get";
inline constexpr const char* kSafetySheetList = "msds.url2.list";
inline constexpr const char* kSafetySheet = "msds.url2.get";
/// A file of certificates that are trusted beside those of the system; empty for none.
inline constexpr const char* kCaBundle = "network.ca.bundle";

GUI_BASE_EXPORT wxString Get(const char* setting);

}  // namespace endpoints
