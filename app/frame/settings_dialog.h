// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/input/form/field_set.h"

#include <wx/dialog.h>

#include <map>
#include <string>
#include <vector>

class AdvancedInputOptions;
class TvSearchControl;

namespace app {

/// What can be set in the dialog.
struct ProgramSettings
{
    wxString language;  ///< code
    std::string unitSystem;
    std::string density;       ///< "compact" or "comfortable"
    long autosaveMinutes = 0;  ///< 0 writes no recovery copies
    std::string database;      ///< connection text; empty for the user's own file
    std::string balanceRule = "SM1030E";
    /// Limits ahead of resins that were changed, by the names of their settings.
    std::map<std::string, double> limits{};
};

/// The settings of the program, with a search field that leaves only the rows whose words match. Works on a
/// copy: nothing is applied before the caller takes the result, and Cancel leaves nothing behind.
class SettingsDialog : public wxDialog
{
public:
    SettingsDialog(wxWindow* parent, const ProgramSettings& settings);

    ProgramSettings GetSettings();

private:
    struct Row
    {
        std::vector<wxWindow*> windows;
        wxString words;  ///< lower case; what the search looks at
        bool isAdvanced;
    };

    /// A row of `grid`, in `parent`, with an explanation below its field.
    void AddRows(wxWindow* parent, wxFlexGridSizer& grid, bool areAdvanced);
    void AddRow(wxWindow* parent, wxFlexGridSizer& grid, const FormRow& row, const char* explanation);
    void AddLimits(wxFlexGridSizer& grid);
    void OnSearch();

    DetailList m_values;
    FieldSet m_fields{m_values};
    std::vector<Row> m_rows;
    std::map<std::string, double> m_limits;
    AdvancedInputOptions* m_advanced;
    TvSearchControl* m_search;
};

}  // namespace app
