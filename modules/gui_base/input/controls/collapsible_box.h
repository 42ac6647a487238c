// SPDX-License-Identifier: MIT
#pragma once

/// A box whose title is a button that hides what is in it, so that only a line of it remains. Which boxes are
/// collapsed is remembered on this machine by their names. After a change the box sends
/// wxEVT_COLLAPSIBLEPANE_CHANGED, which climbs to the form that has to be laid out.

#include "gui_base/input/controls/tv_staticboxsizer.h"

#include <wx/button.h>

class GUI_BASE_EXPORT CollapsibleBox : public TvStaticBoxSizer
{
public:
    /// `label` is a source text, and the name under which the state is remembered.
    CollapsibleBox(int orient, wxWindow* parent, const wxString& label);

    /// Hides what was added meanwhile, if the box was left collapsed; once, after all was added.
    void TakeKeptState();
    bool IsCollapsed() const { return m_isCollapsed; }
    void Collapse(bool collapse);
    /// Opens the box of that window, where it is one.
    static void Open(wxWindow& box);
    void Localize(const std::string& unitSystem) override;

protected:
    int GetTitleWidth() const override;

private:
    struct Parts;
    CollapsibleBox(int orient, const Parts& parts, const wxString& label);
    void ShowItems();
    void ShowTitle();

    wxButton* m_title;
    wxString m_source;
    bool m_isCollapsed = false;
};
