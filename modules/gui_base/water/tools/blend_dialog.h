// SPDX-License-Identifier: MIT
#pragma once

/// The recipe of a water that is mixed of others: which, and how much of each. Changes nothing itself.

#include "gui_base/gui_base_export.h"
#include "gui_base/water/tools/blend_form.h"

#include <wx/dialog.h>
#include <wx/stattext.h>

class GUI_BASE_EXPORT BlendDialog : public wxDialog
{
public:
    /// `waters` are the names to choose from, at least two; flows are shown in that unit system.
    BlendDialog(wxWindow* parent, const std::vector<std::string>& waters, const water::BlendRecipe& recipe,
                const std::string& unitSystem);

    water::BlendRecipe GetRecipe() { return m_form->GetRecipe(); }
    BlendForm& GetForm() { return *m_form; }

private:
    /// Stays open, and says so, while the recipe is not complete.
    void OnOk(wxCommandEvent& event);

    BlendForm* m_form;
    wxStaticText* m_message;
};
