// SPDX-License-Identifier: MIT
#pragma once

#include "app/document/templates.h"

#include <wx/dialog.h>
#include <wx/listctrl.h>
#include <wx/stattext.h>

namespace app {

/// Choice of a published water analysis to start a project from, with its source.
class TemplateDialog : public wxDialog
{
public:
    /// `waters` outlives the dialog.
    TemplateDialog(wxWindow* parent, const std::vector<WaterTemplate>& waters);

    /// The selected water, or null.
    const WaterTemplate* GetChosen() const;

private:
    const std::vector<WaterTemplate>& m_waters;
    wxListView* m_list;
    wxStaticText* m_source;
};

}  // namespace app
