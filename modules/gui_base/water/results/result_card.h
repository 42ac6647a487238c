// SPDX-License-Identifier: MIT
#pragma once

/// A drawn result: caption, value with its unit and a text below it, with a symbol where it is judged. It can
/// have the focus, has a name for screen readers, and may lead somewhere by a click, Enter or the space bar.

#include "gui_base/gui_base_export.h"
#include "gui_base/water/results/card_look.h"

#include <wx/window.h>

#include <functional>
#include <vector>

class wxDC;

namespace wateranalysis {

struct CardContent
{
    wxString caption;
    wxString value;
    wxString unit;
    wxString text;
    wxString tooltip;
    Mood mood = Mood::Plain;

    bool operator==(const CardContent&) const = default;
};

class GUI_BASE_EXPORT ResultCard : public wxWindow
{
public:
    explicit ResultCard(wxWindow* parent);

    /// Returns whether anything changed; what is the same is not drawn again.
    bool SetContent(CardContent content);
    const CardContent& GetContent() const { return m_content; }
    /// Null for a card that leads nowhere.
    void SetOnActivate(std::function<void()> onActivate);
    /// How high it has to be when it is so wide.
    int HeightFor(int width) const;

    bool AcceptsFocus() const override { return IsEnabled() && IsShown(); }
    wxString SpokenText() const;

protected:
    wxSize DoGetBestClientSize() const override;

private:
    /// A text and where it stands.
    struct Line
    {
        wxString text;
        wxPoint place;
        bool isValue = false;
        bool isQuiet = false;
    };

    std::vector<Line> Arrange(int width, int& height) const;
    const wxFont& FontOf(const Line& line) const;
    void Activate();
    void OnPaint(wxPaintEvent& event);
    void OnKey(wxKeyEvent& event);

    CardContent m_content;
    wxFont m_valueFont;
    wxFont m_textFont;
    wxFont m_quietFont;
    std::function<void()> m_onActivate;
    bool m_isPressed = false;
};

}  // namespace wateranalysis
