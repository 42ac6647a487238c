// SPDX-License-Identifier: MIT
#include "app/frame/window_place.h"

#include "dbinterfaces/project_database.h"

#include <fmt/format.h>
#include <wx/display.h>

#include <cstdio>
#include <optional>

namespace app {
namespace {

constexpr const char* kPlace = "/Window/place";
/// In DIP: what no window is smaller than.
constexpr int kLeastWidth = 480;
constexpr int kLeastHeight = 360;

struct Place
{
    wxRect rect;
    bool isMaximized = false;
};

/// Nothing where none was kept.
std::optional<Place> ReadPlace()
{
    const std::string kept = ProjectDatabase::GetLocalParameter(kPlace);
    wxRect rect;
    int maximized = 0;
    if (std::sscanf(kept.c_str(), "%d %d %d %d %d", &rect.x, &rect.y, &rect.width, &rect.height,
                    &maximized) != 5)
        return std::nullopt;
    return Place{rect, maximized != 0};
}

}  // namespace

void TakeKeptPlace(wxTopLevelWindow& window)
{
    const std::optional<Place> kept = ReadPlace();
    const bool isKept = kept.has_value();
    const wxRect place = isKept ? kept->rect : wxRect(0, 0, 1600, 1000);
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
    if (isKept && kept->isMaximized)
        window.Maximize();
}

void KeepPlace(const wxTopLevelWindow& window)
{
    if (window.IsIconized())
        return;
    // A window that fills the screen goes back to the size that it had before.
    const std::optional<Place> before = window.IsMaximized() ? ReadPlace() : std::nullopt;
    const wxRect place = before ? before->rect : window.GetRect();
    ProjectDatabase::SetLocalParameter(kPlace, fmt::format("{} {} {} {} {}", place.x, place.y, place.width,
                                                           place.height, window.IsMaximized() ? 1 : 0));
}

}  // namespace app
