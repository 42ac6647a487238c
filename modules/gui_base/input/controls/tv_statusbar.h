// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/statusbr.h>

#include <map>

/// A status bar whose texts follow the language.
class GUI_BASE_EXPORT TvStatusBar : public wxStatusBar
{
public:
    explicit TvStatusBar(wxWindow* parent, int id = wxID_ANY, long style = wxSTB_DEFAULT_STYLE,
                         const wxString& name = wxASCII_STR(wxStatusBarNameStr));

    /// Keeps the source text and shows its translation.
    void SetStatusText(const wxString& text, int field = 0);
    /// Translates every kept text again.
    void Localize();

protected:
    /// Also notices texts that were set through the base class, whose SetStatusText is not virtual.
    void DoUpdateStatusText(int field) override;

private:
    void Show(const wxString& text, int field);

    bool m_showing = false;
    std::map<int, wxString> m_fieldTexts;
};
