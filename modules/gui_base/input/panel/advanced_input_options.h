// SPDX-License-Identifier: MIT
#pragma once

/// A section of a panel that holds what few users need: it is folded until the user opens it by its heading
/// (a click, or Space with the focus on it), and the surrounding layout follows. Its content is a panel to
/// which the owner adds controls. The keyboard passes by a folded section; whoever leads to a field in it
/// opens it first, by OpenAround.

#include "gui_base/gui_base_export.h"
#include "gui_base/input/panel/tv_panel.h"

#include <wx/collpane.h>

#include <string>

class GUI_BASE_EXPORT AdvancedInputOptions : public wxCollapsiblePane
{
public:
    /// `label` is a source text; an empty one is "Advanced options".
    explicit AdvancedInputOptions(wxWindow* parent, int id = wxID_ANY, const wxString& label = {});

    /// Where the controls of the section belong: their parent window.
    TvPanel* GetOptions() const { return m_options; }
    /// Opens or folds the section and lays the surrounding window out again.
    void SetOpen(bool open);
    bool IsOpen() const { return IsExpanded(); }
    /// Opens the section where the user left it open, and remembers from then on how it is left.
    void KeepState();
    /// Opens whatever is folded around a field, so that it can have the focus.
    static void OpenAround(wxWindow& field);

    void Localize(const std::string& unitSystem);

private:
    void LayOutAround();

    wxString m_label;
    TvPanel* m_options;
    /// Opened or folded by the program, which nobody asked it to remember.
    bool m_isProgram = false;
};
