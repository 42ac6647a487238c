// SPDX-License-Identifier: MIT
#pragma once

/// The name and recipe of a water that is mixed of others: which, and how much of each; and what the mixture
/// would be. Changes nothing itself.

#include "gui_base/gui_base_export.h"
#include "gui_base/report/water_results.h"
#include "gui_base/water/tools/blend_form.h"

#include <wx/dialog.h>
#include <wx/scrolwin.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <functional>

class GUI_BASE_EXPORT BlendDialog : public wxDialog
{
public:
    /// What a recipe would make, as titles and values; the same titles for every recipe.
    using Preview = std::function<std::vector<wateranalysis::ResultTile>(const water::BlendRecipe&)>;

    /// `name` is what the blend is called unless the user types another one; `waters` are the names to choose
    /// from, at least two; flows are shown in that unit system.
    BlendDialog(wxWindow* parent, const wxString& name, const std::vector<std::string>& waters,
                const water::BlendRecipe& recipe, const std::string& unitSystem, Preview preview);

    /// Never empty: the one that it began with where nothing is typed.
    wxString GetBlendName() const;
    water::BlendRecipe GetRecipe() { return m_form->GetRecipe(); }
    BlendForm& GetForm() { return *m_form; }

private:
    wxSizer* NewNameRow();
    wxSizer* NewPreview();
    void ShowPreview();
    /// Room for the rows that there are, up to the height of the screen.
    void FitRows();
    /// Stays open, and says so, while the recipe is not complete.
    void OnOk(wxCommandEvent& event);

    Preview m_preview;
    wxString m_usualName;
    wxTextCtrl* m_name;
    wxScrolledWindow* m_scrolled;
    BlendForm* m_form;
    std::vector<wxStaticText*> m_values;  ///< of the preview
    wxStaticText* m_remark = nullptr;     ///< what the preview makes of the shares
    wxStaticText* m_message;
};
