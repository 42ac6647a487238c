// SPDX-License-Identifier: MIT
#pragma once

/// The lists of data sheets that the services answer with.
///
///   <tarnvik-pds-list>
///     <sheet prodid="sac_gel" status="F" language="German"/>
///   </tarnvik-pds-list>
///
///   <tarnvik-msds-list>
///     <sheet product="sac_gel" legalarea="EU" company="Morvane" language="D" address="sheets/17"/>
///   </tarnvik-msds-list>
///
/// Fields are attributes of a sheet or elements in it; what is not named here is passed over. A sheet that
/// lacks what it is fetched by, product and address, is left out. Codes of the services are rewritten by
/// tables of the settings.

#include "gui_base/gui_base_export.h"
#include "gui_base/network/data_sheet_info.h"

#include <wx/string.h>

#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace data_sheet_lists {

/// What a code becomes. In the settings: "from=to;from=to"; blanks around them do not count.
class GUI_BASE_EXPORT Rewriting
{
public:
    Rewriting() = default;
    explicit Rewriting(const wxString& table);

    /// A text that the table does not have stays as it is. Upper and lower case do not differ.
    wxString Of(const wxString& from) const;
    /// The other way round; the first of several.
    wxString Back(const wxString& to) const;

private:
    std::vector<std::pair<wxString, wxString>> m_rows;
};

struct Tables
{
    Rewriting productLanguage;  ///< "pds.language.repl": what the list says, to the codes of the service
    Rewriting productIso;       ///< "pds.language.iso2ib": codes of ISO 639 to those of the service
    Rewriting productStatus;    ///< "pds.status.repl"
    Rewriting safetyLanguage;   ///< "msds.language.repl": what the list says, to codes of ISO 639
};

using Sheets = std::vector<NetObjects::DataSheetInfo>;

/// Nothing for what is no such list.
GUI_BASE_EXPORT std::optional<Sheets> ReadProductSheets(std::string_view answer, const Tables& tables);
GUI_BASE_EXPORT std::optional<Sheets> ReadSafetySheets(std::string_view answer, const Tables& tables);

/// The name of a file for a sheet: ASCII letters and digits, "-" and "_" between "pds-" or "msds-" and
/// ".pdf", so that it leads out of no folder and means no device; at most 120 letters. A checksum tells apart
/// what would look alike.
GUI_BASE_EXPORT wxString ProductFileName(const NetObjects::DataSheetInfo& sheet);
GUI_BASE_EXPORT wxString SafetyFileName(const NetObjects::DataSheetInfo& sheet);

}  // namespace data_sheet_lists
