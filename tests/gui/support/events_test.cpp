// SPDX-License-Identifier: MIT
#include "gui_base/support/events.h"

#include "tests/support/gui_test.h"

#include <wx/textctrl.h>

namespace {

using namespace gui_test;

using EventsTest = GuiTest;

TEST_F(EventsTest, EventsAreQueued)
{
    wxDEFINE_EVENT(kEvent, wxCommandEvent);
    std::vector<std::string> heard;
    m_frame->Bind(kEvent, [&heard](wxCommandEvent& event) {
        heard.push_back(wxString::Format("%d %d %ld %s", event.GetId(), event.GetInt(), event.GetExtraLong(),
                                         event.GetString())
                            .utf8_string());
    });
    events::SendEvent(m_frame, kEvent, 7, 8, "text");
    events::SendEvent(nullptr, kEvent, 7, 8, "nobody");
    const events::WindowNotification notification(m_frame, kEvent);
    const events::WindowNotification copy = notification;
    copy.Send(1, 2, 3, "again");
    EXPECT_TRUE(heard.empty()) << "a handler that runs is not interrupted";
    Pump();
    EXPECT_EQ(heard, (std::vector<std::string>{"7 8 0 text", "1 2 3 again"}));

    auto* child = new wxTextCtrl(m_frame, wxID_ANY);
    const events::WindowNotification late(child, kEvent);
    child->Destroy();
    late.Send(1, 2, 3, "to a window that is gone");
    Pump();
    EXPECT_EQ(heard.size(), 2u);
}

TEST_F(EventsTest, MessageEventsKeepTheirContentWhenCloned)
{
    MessageEvent message(tv_MESSAGE, 5, "iex", "us", {"one", "two"});
    const std::unique_ptr<wxEvent> clone(message.Clone());
    const auto& copy = dynamic_cast<const MessageEvent&>(*clone);
    EXPECT_EQ(copy.GetEventType(), static_cast<wxEventType>(tv_MESSAGE));
    EXPECT_EQ(copy.GetModuleType(), "iex");
    EXPECT_EQ(copy.GetUnitSystem(), "us");
    EXPECT_EQ(copy.GetMessages(), (std::vector<std::string>{"one", "two"}));

    std::vector<std::string> heard;
    m_frame->Bind(tvVISUALIZE_MESSAGE,
                  [&heard](VisualizeMessageEvent& event) { heard = event.GetMessages(); });
    wxQueueEvent(m_frame, new VisualizeMessageEvent(tvVISUALIZE_MESSAGE, 5, "iex", "iso", {"liquid/ph"}));
    Pump();
    EXPECT_EQ(heard, std::vector<std::string>{"liquid/ph"});
}

}  // namespace
