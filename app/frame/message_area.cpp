// SPDX-License-Identifier: MIT
#include "app/frame/message_area.h"

#include "gui_base/dialogs/questions.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"

#include <algorithm>

namespace app {
namespace {

/// The oldest lines go, so that a fault that repeats does not fill the memory.
constexpr std::size_t kMostMessages = 500;

wxString SeverityText(MessageArea::Severity severity)
{
    switch (severity) {
        case MessageArea::Severity::Info:
            return i18n::Translated("Note");
        case MessageArea::Severity::Warning:
            return i18n::Translated("Warning");
        case MessageArea::Severity::Error:
            break;
    }
    return i18n::Translated("Error");
}

long IconOf(MessageArea::Severity severity)
{
    switch (severity) {
        case MessageArea::Severity::Info:
            return wxICON_INFORMATION;
        case MessageArea::Severity::Warning:
            return wxICON_WARNING;
        case MessageArea::Severity::Error:
            break;
    }
    return wxICON_ERROR;
}

}  // namespace

MessageArea::MessageArea(wxWindow* parent)
    : wxListView(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxLC_REPORT | wxLC_SINGLE_SEL)
{
    AppendColumn(wxString(), wxLIST_FORMAT_LEFT, FromDIP(100));
    AppendColumn(wxString(), wxLIST_FORMAT_LEFT, FromDIP(900));
    Bind(wxEVT_LIST_ITEM_ACTIVATED, &MessageArea::OnActivated, this);
    Bind(wxEVT_LIST_ITEM_SELECTED, &MessageArea::OnSelected, this);
    Bind(wxEVT_SIZE, &MessageArea::OnResized, this);
    Localize();
}

void MessageArea::SetRangeMessages(const std::vector<RangeMessage>& messages)
{
    const auto same = [](const RangeMessage& a, const RangeMessage& b) {
        return a.address == b.address && a.text == b.text;
    };
    if (std::equal(messages.begin(), messages.end(), m_ranges.begin(), m_ranges.end(), same))
        return;
    m_ranges = messages;
    ShowLines();
}

void MessageArea::AddMessage(Severity severity, const UserMessage& message)
{
    for (const Line& line : m_messages) {
        if (line.message.text == message.text)
            return;
    }
    m_messages.push_back({severity, message});
    if (m_messages.size() > kMostMessages)
        m_messages.erase(m_messages.begin());
    ShowLines();
    EnsureVisible(GetItemCount() - 1);
}

void MessageArea::ClearMessages()
{
    m_ranges.clear();
    m_messages.clear();
    ShowLines();
}

void MessageArea::Localize()
{
    const auto setHead = [this](int column, const char* source) {
        wxListItem head;
        head.SetMask(wxLIST_MASK_TEXT);
        head.SetText(i18n::Translated(source));
        SetColumn(column, head);
    };
    setHead(0, wxTRANSLATE("Kind"));
    setHead(1, wxTRANSLATE("Message"));
    accessibility::SetName(*this, i18n::Translated("Messages"));
    ShowLines();
}

void MessageArea::ShowLines()
{
    Freeze();
    DeleteAllItems();
    const auto add = [this](const wxString& kind, const wxString& text) {
        const long item = InsertItem(GetItemCount(), kind);
        SetItem(item, 1, text);
    };
    for (const RangeMessage& range : m_ranges)
        add(i18n::Translated("Range"), range.text);
    for (const Line& line : m_messages)
        add(SeverityText(line.severity), line.message.text);
    Thaw();
}

void MessageArea::OnSelected(wxListEvent& event)
{
    const auto index = static_cast<std::size_t>(event.GetIndex());
    if (m_onActivate && index < m_ranges.size()) {
        const DetailAddress address = m_ranges[index].address;
        // The list still has the focus while it reports the click.
        CallAfter([this, address] { m_onActivate(address); });
    }
    event.Skip();
}

void MessageArea::OnActivated(wxListEvent& event)
{
    const auto index = static_cast<std::size_t>(event.GetIndex());
    if (index < m_ranges.size()) {
        OnSelected(event);
        return;
    }
    if (index - m_ranges.size() >= m_messages.size())
        return;
    const Line line = m_messages[index - m_ranges.size()];
    if (!line.message.details.empty())
        dialogs::ShowMessage(wxGetTopLevelParent(this), line.message, SeverityText(line.severity),
                             IconOf(line.severity));
}

void MessageArea::OnResized(wxSizeEvent& event)
{
    SetColumnWidth(1, std::max(FromDIP(100), GetClientSize().x - GetColumnWidth(0)));
    event.Skip();
}

}  // namespace app
