// SPDX-License-Identifier: MIT
#include "app/frame/session_end.h"

#include "app/frame/display_loss.h"
#include "app/frame/file_commands.h"
#include "app/frame/main_frame.h"
#include "tncommon/printable_text.h"

#include <wx/app.h>
#include <wx/weakref.h>

#include <array>
#include <csignal>
#include <exception>
#include <iostream>

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

/// What is typed and not yet left cannot be asked for any more.
void KeepWorkWithoutDisplay()
{
    try {
        if (WatchedFrame())
            WatchedFrame()->GetDocument().Autosave();
    } catch (const std::exception& error) {
        std::cerr << "tarnvik: " << tncommon::PrintableText(error.what()) << std::endl;
    }
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
    KeepWorkAtDisplayLoss(&KeepWorkWithoutDisplay);
    for (const auto& event : {wxEVT_QUERY_END_SESSION, wxEVT_END_SESSION}) {
        wxTheApp->Unbind(event, &OnSessionEnd);
        wxTheApp->Bind(event, &OnSessionEnd);
    }
}

}  // namespace app
