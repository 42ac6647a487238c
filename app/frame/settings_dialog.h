// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/input/controls/tv_choice.h"
#include "projectbase/details/detail_data.h"

#include <wx/dialog.h>
#include <wx/sizer.h>

#include <string>
#include <vector>

class AdvancedInputOptions;
class TvSearchControl;
class TvValidatedDoubleTextCtrl;
class TvValidatedTextCtrl;

namespace app {

/// What can be set in the dialog.
struct ProgramSettings
{
    wxString language;  ///< code
    std::string unitSystem;
    long autosaveMinutes = 0;  ///< 0 writes no recovery copies
    std::string database;      ///< connection text; empty for the user's own file
};

/// The settings of the program, with a search field that leaves only the rows whose words match. Works on a
/// copy: nothing is applied before the caller takes the result, and Cancel leaves nothing behind.
class SettingsDialog : public wxDialog
{
public:
    SettingsDialog(wxWindow* parent, const ProgramSettings& settings);
    ~SettingsDialog() override;

    ProgramSettings GetSettings() const;

private:
    struct Row
    {
        std::vector<wxWindow*> windows;
        wxString words;  ///< lower case; what the search looks at
        bool isAdvanced;
    };

    /// A row of `grid`, in the window that the control stands in.
    void AddRow(wxFlexGridSizer& grid, const char* label, wxWindow* control, const char* explanation);
    void OnSearch();

    std::vector<wxString> m_languages;
    DetailData m_autosave{"autosave", DetailType::Long, "min"};
    DetailData m_database{"database", DetailType::String};
    std::vector<Row> m_rows;
    AdvancedInputOptions* m_advanced;
    TvSearchControl* m_search;
    tvChoice* m_language;
    tvChoice* m_unitSystem;
    TvValidatedDoubleTextCtrl* m_autosaveField;
    TvValidatedTextCtrl* m_databaseField;
};

}  // namespace app
