// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/overview/value_graphic.h"

#include "gui_base/support/accessibility.h"

#include <wx/scrolwin.h>
#include <wx/settings.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double kFrame = 1.0;

wxRect Around(const wxRect2DDouble& box)
{
    return {static_cast<int>(box.m_x), static_cast<int>(box.m_y),
            static_cast<int>(std::ceil(box.m_width)) + 1, static_cast<int>(std::ceil(box.m_height)) + 1};
}

}  // namespace

ValueGraphic::ValueGraphic(const SvgGraphicInfo<ArchiveLoadPolicy>& info, wxWindow* parent, Answers answers)
    : SvgPanel(info, parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxWANTS_CHARS | wxNO_BORDER,
               "graphic"),
      m_answers(std::move(answers))
{
    SetZoom(1.0);
    Bind(wxEVT_KEY_DOWN, &ValueGraphic::OnKey, this);
    Bind(wxEVT_MOTION, &ValueGraphic::OnMotion, this);
    Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) {
        event.Skip();
        m_pressed = ValueAt(event.GetPosition());
    });
    Bind(wxEVT_LEFT_UP, &ValueGraphic::OnClick, this);
    for (const auto& type : {wxEVT_SET_FOCUS, wxEVT_KILL_FOCUS}) {
        Bind(type, [this](wxFocusEvent& event) {
            event.Skip();
            Refresh();
        });
    }
    NameIt();
}

void ValueGraphic::SetZoom(double zoom)
{
    m_zoom = zoom;
    SetSize(GetMinSize());
    FitInto(GetMinSize());
    InvalidateBestSize();
    Refresh();
}

wxSize ValueGraphic::GetMinSize() const
{
    const wxSize own = GetOwnSize();
    return {wxRound(own.x * m_zoom), wxRound(own.y * m_zoom)};
}

void ValueGraphic::FitInto(const wxSize&)
{
    const wxSize size = GetMinSize();
    GetRenderer()->SetSize(size.x, size.y);
}

void ValueGraphic::DrawOver(wxGraphicsContext& context)
{
    const auto values = GetShownValues();
    if (!m_selected || *m_selected >= values.size() || !HasFocus())
        return;
    wxRect2DDouble box = values[*m_selected].box;
    box.Inset(-kFrame, -kFrame);
    context.SetPen(wxPen(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT), 2));
    context.SetBrush(*wxTRANSPARENT_BRUSH);
    context.DrawRoundedRectangle(box.m_x, box.m_y, box.m_width, box.m_height, kFrame);
}

std::optional<std::size_t> ValueGraphic::ValueAt(const wxPoint& point) const
{
    const auto values = GetShownValues();
    const auto hit = std::ranges::find_if(values, [&point](const SvgShownValue& value) {
        return value.box.Contains(wxPoint2DDouble(point.x, point.y));
    });
    if (hit == values.end())
        return std::nullopt;
    return static_cast<std::size_t>(hit - values.begin());
}

const DetailReplaceMapping* ValueGraphic::MappingOf(std::size_t value) const
{
    const auto values = GetShownValues();
    return value < values.size() ? dynamic_cast<const DetailReplaceMapping*>(values[value].mapping) : nullptr;
}

wxString ValueGraphic::Describe(std::size_t value) const
{
    const auto* const mapping = MappingOf(value);
    if (mapping == nullptr)
        return {};
    return m_answers.nameOf(*mapping) + ": " + GetShownValues()[value].text;
}

void ValueGraphic::NameIt()
{
    accessibility::SetName(*this, m_selected ? Describe(*m_selected) : m_answers.graphicName());
}

void ValueGraphic::FollowValues()
{
    UpdateValues();
    m_hovered.reset();
    NameIt();
}

void ValueGraphic::Select(std::size_t value)
{
    m_selected = value;
    NameIt();
    ScrollToSelected();
    Refresh();
}

void ValueGraphic::ScrollToSelected()
{
    auto* page = dynamic_cast<wxScrolled<wxPanel>*>(GetGrandParent());
    if (page == nullptr)
        return;
    constexpr int kRoom = 24;
    wxRect box = Around(GetShownValues()[*m_selected].box).Inflate(kRoom);
    box.SetPosition(page->ScreenToClient(ClientToScreen(box.GetPosition())));
    const wxSize view = page->GetClientSize();
    const wxPoint start = page->GetViewStart();
    const auto moved = [](int from, int length, int room) {
        return from < 0 ? from : std::max(0, std::min(from, from + length - room));
    };
    const int dx = moved(box.x, box.width, view.x);
    const int dy = moved(box.y, box.height, view.y);
    if (dx != 0 || dy != 0)
        page->Scroll(std::max(0, start.x + dx), std::max(0, start.y + dy));
}

void ValueGraphic::LeadTo(std::size_t value)
{
    const auto* const mapping = MappingOf(value);
    if (const auto address = mapping != nullptr ? mapping->GetAddress() : std::nullopt)
        m_answers.lead(*address);
}

bool ValueGraphic::SelectNext(int step)
{
    const auto count = static_cast<int>(GetShownValues().size());
    const int from = m_selected ? static_cast<int>(*m_selected) : (step > 0 ? -1 : count);
    const int to = from + step;
    if (to < 0 || to >= count)
        return false;
    Select(static_cast<std::size_t>(to));
    return true;
}

bool ValueGraphic::SelectTowards(int dx, int dy)
{
    const auto values = GetShownValues();
    if (!m_selected || *m_selected >= values.size())
        return SelectNext(1);
    // Values of a column begin below each other, however long they are. What lies aside counts as further
    // away than what lies ahead.
    const wxPoint2DDouble from = values[*m_selected].box.GetLeftTop();
    constexpr double kAside = 3.0;
    double nearest = std::numeric_limits<double>::infinity();
    std::optional<std::size_t> next;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const wxPoint2DDouble way = values[i].box.GetLeftTop() - from;
        const double ahead = way.m_x * dx + way.m_y * dy;
        const double aside = std::abs(way.m_x * dy) + std::abs(way.m_y * dx);
        const double distance = ahead + kAside * aside;
        if (ahead > 1.0 && distance < nearest) {
            nearest = distance;
            next = i;
        }
    }
    if (next)
        Select(*next);
    return next.has_value();
}

void ValueGraphic::OnKey(wxKeyEvent& event)
{
    const auto count = GetShownValues().size();
    if (event.HasAnyModifiers() && event.GetModifiers() != wxMOD_SHIFT) {
        event.Skip(!m_answers.takeKey(event));
        return;
    }
    switch (event.GetKeyCode()) {
        case WXK_TAB:
            if (const bool back = event.ShiftDown(); !SelectNext(back ? -1 : 1)) {
                m_selected.reset();
                Navigate(back ? wxNavigationKeyEvent::IsBackward : wxNavigationKeyEvent::IsForward);
            }
            break;
        case WXK_LEFT:
            SelectTowards(-1, 0);
            break;
        case WXK_RIGHT:
            SelectTowards(1, 0);
            break;
        case WXK_UP:
            SelectTowards(0, -1);
            break;
        case WXK_DOWN:
            SelectTowards(0, 1);
            break;
        case WXK_HOME:
        case WXK_END:
            if (count > 0)
                Select(event.GetKeyCode() == WXK_HOME ? 0 : count - 1);
            break;
        case WXK_RETURN:
        case WXK_NUMPAD_ENTER:
        case WXK_SPACE:
            if (m_selected)
                LeadTo(*m_selected);
            break;
        default:
            event.Skip(!m_answers.takeKey(event));
    }
}

void ValueGraphic::OnMotion(wxMouseEvent& event)
{
    event.Skip();
    const auto hovered = ValueAt(event.GetPosition());
    if (hovered == m_hovered)
        return;
    m_hovered = hovered;
    SetCursor(hovered ? wxCursor(wxCURSOR_HAND) : wxNullCursor);
    if (hovered)
        SetToolTip(Describe(*hovered));
    else
        UnsetToolTip();
}

void ValueGraphic::OnClick(wxMouseEvent& event)
{
    event.Skip();
    SetFocus();
    const auto value = ValueAt(event.GetPosition());
    // A button that was pressed elsewhere leads nowhere.
    if (!value || value != std::exchange(m_pressed, std::nullopt))
        return;
    Select(*value);
    LeadTo(*value);
}
