// SPDX-License-Identifier: MIT
#pragma once

/// What the program fetches from its services, and how it reaches them.

#include <wx/weakref.h>

class UpdateDialog;

namespace app {

class MainFrame;

class NetworkCommands
{
public:
    /// The frame is not owned; it outlives this part of it.
    explicit NetworkCommands(MainFrame& frame) : m_frame(frame) {}
    ~NetworkCommands();

    void ShowConnection();
    /// The dialog as it was left, with its download, or a new one.
    void ShowUpdates();
    /// Of all products.
    void ShowDataSheets();
    void ShowRates();

private:
    MainFrame& m_frame;
    wxWeakRef<UpdateDialog> m_updates;
};

}  // namespace app
