// SPDX-License-Identifier: MIT
#include "app/frame/session_end.h"

#include "app/frame/file_commands.h"
#include "app/frame/main_frame.h"

#include <wx/app.h>
#include <wx/weakref.h>

#include <array>
#include <csignal>

namespace app {

namespace {

wxWeakRef<MainFrame>& WatchedFrame()
{
    static wxWeakRef<MainFrame> frame;
    return frame;
}

void KeepWork()
{
    if (WatchedFrame())
        WatchedFrame()->Files().KeepUnsaved();
}

/// Called between two events, not by the signal itself.
void OnSignal(int signal)
{
    KeepWork();
    // Whoever ended the program shall see that it ended by that.
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void OnSessionEnd(wxCloseEvent& event)
{
    KeepWork();
    event.Skip();
}

}  // namespace

void KeepWorkAtSessionEnd(MainFrame& frame)
{
    WatchedFrame() = &frame;
    for (const int signal : std::array{SIGTERM, SIGHUP, SIGINT})
        wxTheApp->SetSignalHandler(signal, &OnSignal);
    for (const auto& event : {wxEVT_QUERY_END_SESSION, wxEVT_END_SESSION}) {
        wxTheApp->Unbind(event, &OnSessionEnd);
        wxTheApp->Bind(event, &OnSessionEnd);
    }
}

}  // namespace app
