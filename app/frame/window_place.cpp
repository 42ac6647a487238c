// SPDX-License-Identifier: MIT
#include "app/frame/window_place.h"

#include "dbinterfaces/project_database.h"

#include <fmt/format.h>
#include <wx/display.h>

#include <cstdio>

namespace app {
namespace {

constexpr const char* kPlace = "/Window/place";
/// In DIP: what no window is smaller than.
constexpr int kLeastWidth = 480;
constexpr int kLeastHeight = 360;

}  // namespace

void TakeKeptPlace(wxTopLevelWindow& window)
{
    const std::string kept = ProjectDatabase::GetLocalParameter(kPlace);
    wxRect place(0, 0, 1600, 1000);
    int maximized = 0;
    const bool isKept = std::sscanf(kept.c_str(), "%d %d %d %d %d", &place.x, &place.y, &place.width,
                                    &place.height, &maximized) == 5;
    window.SetMinSize(window.FromDIP(wxSize(kLeastWidth, kLeastHeight)));
    const int screen = isKept ? wxDisplay::GetFromPoint(place.GetPosition()) : wxNOT_FOUND;
    const wxRect room = screen == wxNOT_FOUND ? wxDisplay(&window).GetClientArea()
                                              : wxDisplay(static_cast<unsigned>(screen)).GetClientArea();
    wxSize size = isKept ? place.GetSize() : window.FromDIP(place.GetSize());
    size.DecTo(room.GetSize());
    size.IncTo(window.GetMinSize());
    window.SetSize(size);
    if (screen != wxNOT_FOUND)
        window.Move(place.GetPosition());
    if (maximized != 0)
        window.Maximize();
}

void KeepPlace(const wxTopLevelWindow& window)
{
    if (window.IsIconized())
        return;
    const wxRect place = window.GetRect();
    ProjectDatabase::SetLocalParameter(kPlace, fmt::format("{} {} {} {} {}", place.x, place.y, place.width,
                                                           place.height, window.IsMaximized() ? 1 : 0));
}

}  // namespace app
