// SPDX-License-Identifier: MIT
#include "gui_base/support/events.h"

wxDEFINE_EVENT(tv_MESSAGE, MessageEvent);
wxDEFINE_EVENT(tvVISUALIZE_MESSAGE, VisualizeMessageEvent);

MessageEvent::MessageEvent(const int& eventType, int id, const std::string& moduleType,
                           const std::string& unitSystem, std::vector<std::string> messages)
    : wxEvent(id, eventType),
      m_moduleType(moduleType),
      m_unitSystem(unitSystem),
      m_messages(std::move(messages))
{}

VisualizeMessageEvent::VisualizeMessageEvent(const int& eventType, int id, const wxString& moduleType,
                                             const wxString& unitSystem, std::vector<std::string> messages)
    : wxEvent(id, eventType),
      m_moduleType(moduleType),
      m_unitSystem(unitSystem),
      m_messages(std::move(messages))
{}

namespace events {
namespace {

void Queue(wxWindow* window, int eventType, int id, int value, long extra, const wxString& text)
{
    if (window == nullptr)
        return;
    wxCommandEvent event(eventType, id);
    event.SetInt(value);
    event.SetExtraLong(extra);
    event.SetString(text);
    window->GetEventHandler()->AddPendingEvent(event);
}

}  // namespace

void SendEvent(wxWindow* window, int eventType, int id, int value, const wxString& text)
{
    Queue(window, eventType, id, value, 0, text);
}

void WindowNotification::Send(int id, int value, int extra, const wxString& text) const
{
    Queue(m_window.get(), m_eventType, id, value, extra, text);
}

}  // namespace events
