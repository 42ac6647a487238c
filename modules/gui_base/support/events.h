// SPDX-License-Identifier: MIT
#pragma once

/// How parts of the user interface tell each other that something happened.
///
/// Module panels report their messages and the state of their inputs to the application frame by the two
/// events below. They are no command events and do not climb: queue them on the frame. GUI thread only.

#include "gui_base/gui_base_export.h"

#include <wx/event.h>
#include <wx/weakref.h>
#include <wx/window.h>

#include <string>
#include <vector>

class MessageEvent;
class VisualizeMessageEvent;

wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tv_MESSAGE, MessageEvent);
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvVISUALIZE_MESSAGE, VisualizeMessageEvent);

/// Texts (UTF-8) of a module for the host's message area. Those with a field as their event object replace
/// what it told before; none withdraw it.
class GUI_BASE_EXPORT MessageEvent : public wxEvent
{
public:
    MessageEvent(const int& eventType, int id, const std::string& moduleType, const std::string& unitSystem,
                 std::vector<std::string> messages);

    std::string GetModuleType() const { return m_moduleType; }
    std::string GetUnitSystem() const { return m_unitSystem; }
    std::vector<std::string> GetMessages() const { return m_messages; }

    wxEvent* Clone() const override { return new MessageEvent(*this); }

private:
    std::string m_moduleType;
    std::string m_unitSystem;
    std::vector<std::string> m_messages;
};

/// The state that a module wants shown; a module panel sends the keys of its details that are out of range.
class GUI_BASE_EXPORT VisualizeMessageEvent : public wxEvent
{
public:
    VisualizeMessageEvent(const int& eventType, int id, const wxString& moduleType,
                          const wxString& unitSystem, std::vector<std::string> messages);

    wxString GetModuleType() const { return m_moduleType; }
    wxString GetUnitSystem() const { return m_unitSystem; }
    const std::vector<std::string>& GetMessages() const { return m_messages; }

    wxEvent* Clone() const override { return new VisualizeMessageEvent(*this); }

private:
    wxString m_moduleType;
    wxString m_unitSystem;
    std::vector<std::string> m_messages;
};

namespace events {

/// Queues a command event with that id, integer and text on `window`; nothing for a null window.
GUI_BASE_EXPORT void SendEvent(wxWindow* window, int eventType, int id, int value, const wxString& text);

/// A command event still to be sent: its target and type are kept, the rest is given when it is sent. A
/// target that was destroyed in between receives nothing.
class GUI_BASE_EXPORT WindowNotification
{
public:
    WindowNotification(wxWindow* window, int eventType) : m_window(window), m_eventType(eventType) {}

    /// Queues the event with this id and text. `value` is its integer; `extra` goes into the event's extra
    /// long.
    void Send(int id, int value, int extra, const wxString& text) const;

private:
    wxWeakRef<wxWindow> m_window;
    int m_eventType;
};

}  // namespace events
