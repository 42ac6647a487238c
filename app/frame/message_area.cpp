// SPDX-License-Identifier: MIT
#include "app/frame/message_area.h"

#include "gui_base/dialogs/questions.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/image_loader.h"
#include "gui_base/support/translation.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

namespace app {
namespace {

/// The oldest lines go, so that a fault that repeats does not fill the memory.
constexpr std::size_t kMostMessages = 500;
constexpr int kIconSize = 16;
/// What stays free beside a symbol and the text of its kind.
constexpr int kBesideKind = 28;

/// What a line begins with, worse ones later.
enum class Sign
{
    Info,
    Range,
    Warning,
    Error
};

constexpr std::array kSigns{Sign::Info, Sign::Range, Sign::Warning, Sign::Error};

wxBitmapBundle PictureOf(Sign sign)
{
    constexpr std::array kNames{"icons/info.svg", "icons/range.svg", "icons/warning.svg", "icons/error.svg"};
    return ImageLoader::LoadBundle(kNames.at(static_cast<std::size_t>(sign)), wxSize(kIconSize, kIconSize));
}

wxString KindText(Sign sign)
{
    constexpr std::array kKinds{wxTRANSLATE("Note"), wxTRANSLATE("Range"), wxTRANSLATE("Warning"),
                                wxTRANSLATE("Error")};
    return i18n::Translated(kKinds.at(static_cast<std::size_t>(sign)));
}

Sign SignOf(MessageArea::Severity severity)
{
    switch (severity) {
        case MessageArea::Severity::Info:
            return Sign::Info;
        case MessageArea::Severity::Warning:
            return Sign::Warning;
        case MessageArea::Severity::Error:
            break;
    }
    return Sign::Error;
}

Sign SignOf(const MessageArea::RangeMessage& message)
{
    return message.rule.empty() ? Sign::Range : Sign::Warning;
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
    AppendColumn(wxString());
    AppendColumn(wxString());
    wxVector<wxBitmapBundle> pictures;
    for (const Sign sign : kSigns)
        pictures.push_back(PictureOf(sign));
    SetSmallImages(pictures);
    Bind(wxEVT_LIST_ITEM_ACTIVATED, &MessageArea::OnActivated, this);
    Bind(wxEVT_LEFT_UP, &MessageArea::OnClicked, this);
    Bind(wxEVT_SIZE, &MessageArea::OnResized, this);
    Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
        event.Skip();
        // The keys begin with the first line.
        if (GetItemCount() > 0 && GetFirstSelected() == wxNOT_FOUND) {
            Focus(0);
            Select(0);
        }
    });
    Localize();
}

void MessageArea::SetRangeMessages(const std::vector<RangeMessage>& messages, std::size_t all)
{
    const auto same = [](const RangeMessage& a, const RangeMessage& b) {
        return a.address == b.address && a.text == b.text;
    };
    if (all == m_allRanges &&
        std::equal(messages.begin(), messages.end(), m_ranges.begin(), m_ranges.end(), same))
        return;
    m_allRanges = all;
    // Another figure in a sentence is nothing new, another kind of sentence about the same value is.
    std::set<About> old;
    for (const RangeMessage& range : m_ranges)
        old.insert(AboutOf(range));
    const auto isOld = [&](const RangeMessage& message) { return old.contains(AboutOf(message)); };
    const auto fresh = std::ranges::find_if_not(messages, isOld);
    const bool isNew = fresh != messages.end();
    const long place = static_cast<long>(fresh - messages.begin());
    if (isNew)
        m_newestRange = AboutOf(*fresh);
    m_ranges = messages;
    ShowLines();
    TellChanged(isNew);
    if (isNew)
        EnsureVisible(place);
}

void MessageArea::AddMessage(Severity severity, Text text, const void* teller)
{
    const UserMessage message = text();
    for (const Line& line : m_messages) {
        if (line.message.text == message.text)
            return;
    }
    m_messages.push_back({severity, std::move(text), message, teller});
    if (m_messages.size() > kMostMessages)
        m_messages.erase(m_messages.begin());
    m_newestRange.reset();
    ShowLines();
    TellChanged(true);
    EnsureVisible(GetItemCount() - 1);
}

void MessageArea::WithdrawMessages(const void* teller)
{
    if (std::erase_if(m_messages, [teller](const Line& line) { return line.teller == teller; }) == 0)
        return;
    ShowLines();
    TellChanged(false);
}

void MessageArea::TellChanged(bool isNew)
{
    if (m_onChanged)
        m_onChanged(isNew);
}

wxString MessageArea::GetNewestText() const
{
    const auto newest = std::ranges::find_if(
        m_ranges, [this](const RangeMessage& range) { return AboutOf(range) == m_newestRange; });
    if (newest != m_ranges.end())
        return newest->text;
    if (!m_messages.empty())
        return m_messages.back().message.text;
    return m_ranges.empty() ? wxString() : m_ranges.front().text;
}

std::size_t MessageArea::CountProblems() const
{
    const auto isProblem = [](const Line& line) { return line.severity != Severity::Info; };
    return m_allRanges + static_cast<std::size_t>(std::ranges::count_if(m_messages, isProblem));
}

wxBitmapBundle MessageArea::GetWorstPicture() const
{
    std::vector<Sign> signs;
    for (const RangeMessage& range : m_ranges)
        signs.push_back(SignOf(range));
    for (const Line& line : m_messages)
        signs.push_back(SignOf(line.severity));
    return signs.empty() ? wxBitmapBundle() : PictureOf(std::ranges::max(signs));
}

void MessageArea::ClearMessages()
{
    m_ranges.clear();
    m_allRanges = 0;
    m_messages.clear();
    ShowLines();
    TellChanged(false);
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
    int kind = 0;
    for (const Sign sign : kSigns)
        kind = std::max(kind, GetTextExtent(KindText(sign)).x);
    SetColumnWidth(0, kind + FromDIP(kIconSize + kBesideKind));
    FitMessages();
    setHead(1, wxTRANSLATE("Message"));
    accessibility::SetName(*this, i18n::Translated("Messages"));
    for (Line& line : m_messages)
        line.message = line.text();
    ShowLines();
}

void MessageArea::ShowLines()
{
    Freeze();
    DeleteAllItems();
    const auto add = [this](Sign sign, const wxString& text) {
        const long item = InsertItem(GetItemCount(), KindText(sign), static_cast<int>(sign));
        SetItem(item, 1, text);
    };
    for (const RangeMessage& range : m_ranges)
        add(SignOf(range), range.text);
    for (const Line& line : m_messages)
        add(SignOf(line.severity), line.message.text);
    Thaw();
}

void MessageArea::OnClicked(wxMouseEvent& event)
{
    event.Skip();
    int flags = 0;
    const long line = HitTest(event.GetPosition(), flags);
    if (line != wxNOT_FOUND && (flags & wxLIST_HITTEST_ONITEM) != 0)
        Lead(static_cast<std::size_t>(line));
}

void MessageArea::Lead(std::size_t index)
{
    if (!m_onActivate || index >= m_ranges.size())
        return;
    // The list still has the focus while it reports the click or the key.
    CallAfter([this, address = m_ranges[index].address] { m_onActivate(address); });
}

void MessageArea::OnActivated(wxListEvent& event)
{
    const auto index = static_cast<std::size_t>(event.GetIndex());
    if (index < m_ranges.size()) {
        Lead(index);
        return;
    }
    if (index - m_ranges.size() >= m_messages.size())
        return;
    const Line line = m_messages[index - m_ranges.size()];
    if (!line.message.details.empty())
        dialogs::ShowMessage(wxGetTopLevelParent(this), line.message, KindText(SignOf(line.severity)),
                             IconOf(line.severity));
}

void MessageArea::OnResized(wxSizeEvent& event)
{
    FitMessages();
    event.Skip();
}

void MessageArea::FitMessages()
{
    SetColumnWidth(1, std::max(FromDIP(100), GetClientSize().x - GetColumnWidth(0)));
}

}  // namespace app
