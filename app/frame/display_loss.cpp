// SPDX-License-Identifier: MIT
#include "app/frame/display_loss.h"

#include <X11/Xlib.h>
#include <utility>

namespace app {

namespace {

void (*g_keep)() = nullptr;
XIOErrorHandler g_next = nullptr;

/// Xlib ends the process when this returns.
int OnDisplayLoss(Display* display)
{
    // Whatever goes wrong in it, it is not called from itself.
    if (const auto keep = std::exchange(g_keep, nullptr))
        keep();
    return g_next != nullptr ? g_next(display) : 0;
}

}  // namespace

void KeepWorkAtDisplayLoss(void (*keep)())
{
    g_keep = keep;
    if (const XIOErrorHandler present = XSetIOErrorHandler(&OnDisplayLoss); present != &OnDisplayLoss)
        g_next = present;
}

}  // namespace app
