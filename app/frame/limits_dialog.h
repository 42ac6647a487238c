// SPDX-License-Identifier: MIT
#pragma once

/// The limits of water ahead of resins, each with the figure that a note begins at and the one of a warning.
/// What differs from the limits that the program comes with is bold, and its row has a button that leads
/// back. Works on a copy; an emptied field is no limit. OK stays in the dialog, and tells why, while a field
/// holds no number or a note begins above its warning.

#include "gui_base/input/form/field_set.h"

#include <wx/dialog.h>

#include <map>
#include <set>
#include <string>
#include <vector>

class wxButton;
class wxInfoBar;

namespace advice {
struct LimitRow;
}

namespace app {

class LimitsDialog : public wxDialog
{
public:
    /// Begins with the settings as they are, and on top of them with what was changed before, by the names of
    /// the settings.
    LimitsDialog(wxWindow* parent, const std::map<std::string, double>& changed);

    /// What differs from the settings.
    std::map<std::string, double> GetChanged();
    TvTextCtrl* FindField(const std::string& setting) const { return m_fields.FindField(setting); }

private:
    void AddRow(wxWindow& place, wxFlexGridSizer& grid, const advice::LimitRow& row);
    void AddWayBack(wxWindow& place, wxFlexGridSizer& grid, const advice::LimitRow& row);
    /// Of one row, or of all.
    void TakeDefaults(const advice::LimitRow* row);
    struct Fault
    {
        TvTextCtrl* field;
        wxString reason;
    };
    void AddFaults(const advice::LimitRow& row, std::vector<Fault>& faults) const;
    /// Colours the fields that cannot be taken; returns them.
    std::vector<Fault> ShowFaults();
    /// Tells the limits that the user set from the usual ones.
    void ShowChanges();
    void ShowChange(const std::string& setting, double usual);
    void OnOk(wxCommandEvent& event);

    DetailList m_values;
    FieldSet m_fields{m_values};
    std::set<TvTextCtrl*> m_faulty;
    std::map<const advice::LimitRow*, wxButton*> m_waysBack;
    wxInfoBar* m_problem = nullptr;
};

}  // namespace app
