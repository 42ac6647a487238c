// SPDX-License-Identifier: MIT
#include "gui_base/water/results/result_card.h"

#include "gui_base/support/accessibility.h"

#include <wx/dcbuffer.h>
#include <wx/dcclient.h>
#include <wx/graphics.h>
#include <wx/settings.h>

#include <algorithm>
#include <memory>

namespace wateranalysis {
namespace {

constexpr int kPadding = 8;
constexpr int kGap = 4;
constexpr int kSymbol = 18;
constexpr int kLeastWidth = 104;
constexpr double kRadius = 4.0;

/// The text in lines that are no wider than that, broken at blanks; a word that is wider stands alone.
std::vector<wxString> Wrapped(const wxWindow& window, const wxFont& font, const wxString& text, int width)
{
    const auto widthOf = [&](const wxString& part) {
        int x = 0;
        int y = 0;
        window.GetTextExtent(part, &x, &y, nullptr, nullptr, &font);
        return x;
    };
    std::vector<wxString> lines;
    wxString line;
    for (const wxString& word : wxSplit(text, ' ', '\0')) {
        const wxString longer = line.empty() ? word : line + " " + word;
        if (line.empty() || widthOf(longer) <= width) {
            line = longer;
            continue;
        }
        lines.push_back(line);
        line = word;
    }
    if (!line.empty())
        lines.push_back(line);
    return lines;
}

}  // namespace

ResultCard::ResultCard(wxWindow* parent)
{
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Create(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
           wxWANTS_CHARS | wxFULL_REPAINT_ON_RESIZE | wxBORDER_NONE);
    m_textFont = GetFont();
    m_valueFont = m_textFont.Bold().Larger();
    m_quietFont = m_textFont.Smaller();
    Bind(wxEVT_PAINT, &ResultCard::OnPaint, this);
    Bind(wxEVT_KEY_DOWN, &ResultCard::OnKey, this);
    Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent&) {
        SetFocus();
        m_isPressed = true;
    });
    Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) {
        event.Skip();
        // A button that was pressed elsewhere leads nowhere.
        if (std::exchange(m_isPressed, false) && GetClientRect().Contains(event.GetPosition()))
            Activate();
    });
    for (const auto& type : {wxEVT_SET_FOCUS, wxEVT_KILL_FOCUS}) {
        Bind(type, [this](wxFocusEvent& event) {
            event.Skip();
            Refresh();
        });
    }
    Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
        event.Skip();
        Refresh();
    });
}

bool ResultCard::SetContent(CardContent content)
{
    if (m_content == content)
        return false;
    m_content = std::move(content);
    accessibility::SetName(*this, SpokenText());
    SetToolTip(m_content.tooltip);
    InvalidateBestSize();
    Refresh();
    return true;
}

void ResultCard::SetOnActivate(std::function<void()> onActivate)
{
    m_onActivate = std::move(onActivate);
    SetCursor(m_onActivate ? wxCursor(wxCURSOR_HAND) : wxNullCursor);
}

wxString ResultCard::SpokenText() const
{
    wxString spoken = m_content.caption;
    const auto add = [&spoken](const char* between, const wxString& part) {
        if (!part.empty())
            spoken += (spoken.empty() ? wxString() : wxString(between)) + part;
    };
    add(": ", m_content.value);
    add(" ", m_content.unit);
    add(", ", m_content.text);
    return spoken;
}

const wxFont& ResultCard::FontOf(const Line& line) const
{
    return line.isValue ? m_valueFont : line.isQuiet ? m_quietFont : m_textFont;
}

std::vector<ResultCard::Line> ResultCard::Arrange(int width, int& height) const
{
    const int padding = FromDIP(kPadding);
    const int left = padding + (m_content.mood == Mood::Plain ? 0 : FromDIP(kSymbol + kPadding));
    const int room = std::max(FromDIP(kGap), width - left - padding);
    std::vector<Line> lines;
    int y = padding;
    const auto extent = [this](const Line& line) {
        wxSize size;
        const wxFont font = FontOf(line);
        GetTextExtent(line.text, &size.x, &size.y, nullptr, nullptr, &font);
        return size;
    };
    const auto addWrapped = [&](const wxString& text, bool isValue, bool isQuiet) {
        const Line like{.text = {}, .place = {}, .isValue = isValue, .isQuiet = isQuiet};
        for (const wxString& part : Wrapped(*this, FontOf(like), text, room)) {
            lines.push_back({part, {left, y}, isValue, isQuiet});
            y += extent(lines.back()).y;
        }
    };
    addWrapped(m_content.caption, false, true);
    addWrapped(m_content.value, true, false);
    if (!m_content.unit.empty() && !m_content.value.empty()) {
        const wxSize value = extent(lines.back());
        Line unit{m_content.unit, {left + value.x + FromDIP(kGap), lines.back().place.y}, false, false};
        const wxSize size = extent(unit);
        if (unit.place.x + size.x > width - padding) {
            unit.place = {left, y};
            y += size.y;
        } else {
            unit.place.y += std::max(0, value.y - size.y - FromDIP(1));
        }
        lines.push_back(unit);
    }
    addWrapped(m_content.text, false, !m_content.caption.empty() && !m_content.value.empty());
    height = std::max(y, padding + (m_content.mood == Mood::Plain ? 0 : FromDIP(kSymbol))) + padding;
    return lines;
}

int ResultCard::HeightFor(int width) const
{
    int height = 0;
    Arrange(width, height);
    return height;
}

wxSize ResultCard::DoGetBestClientSize() const
{
    const int width = FromDIP(kLeastWidth);
    return {width, HeightFor(width)};
}

void ResultCard::Activate()
{
    if (m_onActivate)
        m_onActivate();
}

void ResultCard::OnPaint(wxPaintEvent&)
{
    wxAutoBufferedPaintDC dc(this);
    dc.SetBackground(GetParent()->GetBackgroundColour());
    dc.Clear();
    const CardColours colours = ColoursOf(m_content.mood);
    const wxSize size = GetClientSize();
    {
        const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::Create(dc));
        const bool isFocused = HasFocus();
        const double inset = isFocused ? 1.0 : 0.5;
        context->SetBrush(wxBrush(colours.background));
        context->SetPen(isFocused ? wxPen(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT), 2)
                                  : wxPen(colours.frame, 1));
        context->DrawRoundedRectangle(inset, inset, size.x - 2.0 * inset, size.y - 2.0 * inset,
                                      FromDIP(kRadius));
        const int symbol = FromDIP(kSymbol);
        DrawSymbol(*context, m_content.mood, {FromDIP(kPadding), FromDIP(kPadding), symbol, symbol}, colours);
    }
    int height = 0;
    for (const Line& line : Arrange(size.x, height)) {
        dc.SetFont(FontOf(line));
        dc.SetTextForeground(line.isQuiet ? colours.quiet : colours.text);
        dc.DrawText(line.text, line.place);
    }
}

void ResultCard::OnKey(wxKeyEvent& event)
{
    switch (event.GetKeyCode()) {
        case WXK_TAB:
            Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward : wxNavigationKeyEvent::IsForward);
            break;
        case WXK_RETURN:
        case WXK_NUMPAD_ENTER:
        case WXK_SPACE:
            Activate();
            break;
        default:
            event.Skip();
    }
}

}  // namespace wateranalysis
