// SPDX-License-Identifier: MIT
#pragma once

/// The list at the foot of the window: which inputs are out of range, and what the program has to tell.
/// A click on a line, Enter or Space takes the user to the field that it speaks of; the arrow keys only walk
/// the lines. A symbol and a word tell the kind of a line, a colour alone never does. Texts are asked for
/// again when the language changes.

#include "gui_base/messages/user_message.h"
#include "projectbase/project/owner_node.h"

#include <wx/listctrl.h>
#include <wx/panel.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace app {

class MessageArea : public wxListView
{
public:
    enum class Severity
    {
        Info,
        Warning,
        Error
    };

    /// A value out of range, or one that advice warns of.
    struct RangeMessage
    {
        wxString text;
        DetailAddress address;
        std::string rule;  ///< of the advice that warns; empty of a value out of range
    };

    explicit MessageArea(wxWindow* parent);

    /// Called with the address of the value whose line was activated.
    void SetOnActivate(std::function<void(const DetailAddress&)> onActivate)
    {
        m_onActivate = std::move(onActivate);
    }
    /// Gives the text of a message in the present language, whenever it is shown.
    using Text = std::function<UserMessage()>;

    /// Called after the lines have changed; with true when one came that was not there before.
    void SetOnChanged(std::function<void(bool isNew)> onChanged) { m_onChanged = std::move(onChanged); }
    /// Replaces the range messages, which stand first. `all` says how many there are, if not all of them are
    /// to be listed.
    void SetRangeMessages(const std::vector<RangeMessage>& messages, std::size_t all);
    /// Adds a message at the end; a text that is shown already is not added twice.
    void AddMessage(Severity severity, const wxString& text) { AddMessage(severity, UserMessage{text, {}}); }
    /// One with a technical text, which is shown when its line is double-clicked or Enter is pressed on it.
    void AddMessage(Severity severity, const UserMessage& message)
    {
        AddMessage(severity, [message] { return message; });
    }
    /// `teller` is what it is of, by which it can be withdrawn.
    void AddMessage(Severity severity, Text text, const void* teller = nullptr);
    void WithdrawMessages(const void* teller);
    /// Lines that ask for something to be done: what is out of range, warnings and errors.
    std::size_t CountProblems() const;
    /// The symbol of the worst kind that is shown; none while there is nothing.
    wxBitmapBundle GetWorstPicture() const;
    /// Of the line that came last, as it stands now; of the last message or the first line once that is gone.
    wxString GetNewestText() const;
    void ClearMessages();
    void Localize();

private:
    /// A value, and the rule by which it is warned of.
    using About = std::pair<DetailAddress, std::string>;
    static About AboutOf(const RangeMessage& message) { return {message.address, message.rule}; }
    struct Line
    {
        Severity severity;
        Text text;
        UserMessage message;
        const void* teller;  ///< an address to compare, of what may have gone since
    };

    void ShowLines();
    void TellChanged(bool isNew);
    void OnClicked(wxMouseEvent& event);
    /// To the field of a line that has one.
    void Lead(std::size_t index);
    void OnActivated(wxListEvent& event);
    void OnResized(wxSizeEvent& event);
    /// Messages take what their kinds leave.
    void FitMessages();

    std::vector<RangeMessage> m_ranges;
    std::size_t m_allRanges = 0;  ///< with those that are not listed
    std::vector<Line> m_messages;
    std::optional<About> m_newestRange;  ///< of the line that came last, unless that is a message
    std::function<void(const DetailAddress&)> m_onActivate;
    std::function<void(bool)> m_onChanged;
};

}  // namespace app
