// SPDX-License-Identifier: MIT
#include "gui_base/water/library/water_lib_arrangement.h"

#include "dbinterfaces/project_database.h"

#include <fmt/format.h>
#include <wx/display.h>

#include <array>
#include <cstdio>
#include <tuple>

namespace water_library {
namespace {

constexpr const char* kParameter = "/Perspective/waterlibrary";

}  // namespace

void Arrangement::Restore()
{
    int width = 980;
    int height = 720;
    int vertical = 250;
    int horizontal = 330;
    try {
        const std::string text = ProjectDatabase::GetLocalParameter(kParameter);
        std::array<int, 4> kept{};
        if (std::sscanf(text.c_str(), "%d %d %d %d", &kept[0], &kept[1], &kept[2], &kept[3]) == 4)
            std::tie(width, height, vertical, horizontal) = std::tuple_cat(kept);
    } catch (const std::exception& error) {
        m_logger.Warning(error.what());
    }
    wxSize size = m_window.FromDIP(wxSize(width, height));
    size.IncTo(m_window.GetMinSize());
    size.DecTo(wxDisplay(&m_window).GetClientArea().GetSize());
    m_window.SetSize(size);
    // A sash has its place only in a window that has its size.
    m_window.Layout();
    m_vertical.SetSashPosition(m_window.FromDIP(vertical));
    m_horizontal.SetSashPosition(m_window.FromDIP(horizontal));
}

void Arrangement::Keep()
{
    const wxSize size = m_window.ToDIP(m_window.GetSize());
    try {
        ProjectDatabase::SetLocalParameter(
            kParameter,
            fmt::format("{} {} {} {}", size.x, size.y, m_window.ToDIP(m_vertical.GetSashPosition()),
                        m_window.ToDIP(m_horizontal.GetSashPosition())));
    } catch (const std::exception& error) {
        m_logger.Warning(error.what());
    }
}

}  // namespace water_library
