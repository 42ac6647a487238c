// SPDX-License-Identifier: MIT
#pragma once

/// The limits of water ahead of resins, each with the figure that a note begins at and the one of a warning.
/// Works on a copy; an emptied field is no limit.

#include "gui_base/input/form/field_set.h"

#include <wx/dialog.h>

#include <map>
#include <string>

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
    void TakeDefaults();

    DetailList m_values;
    FieldSet m_fields{m_values};
};

}  // namespace app
