// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/stattext.h>

#include <string>

/// A label with a translated text, an untranslated suffix right behind it (a colon as the language writes
/// it), and a translated tooltip.
class GUI_BASE_EXPORT TvStaticText : public wxStaticText
{
public:
    TvStaticText(wxWindow* parent, int id, const wxString& label, const wxString& suffix = {});
    TvStaticText(wxWindow* parent, int id, const wxString& label, const wxPoint& pos, const wxSize& size,
                 long style, const wxString& name, const wxString& suffix, const wxString& tooltip);

    /// Stores the source text and shows its translation.
    void SetLabelText(const wxString& label) override;
    /// Shown from the next localisation on.
    void SetSuffix(const wxString& suffix) { m_suffix = suffix; }
    void SetTranslatableToolTip(const wxString& tooltip);
    void Localize(const std::string& unitSystem);

private:
    void ShowTexts();

    wxString m_label;
    wxString m_suffix;
    wxString m_tooltip;
};
