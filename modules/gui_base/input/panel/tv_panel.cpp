// SPDX-License-Identifier: MIT
#include "gui_base/input/panel/tv_panel.h"

#include <wx/wupdlock.h>

TvPanel::~TvPanel() = default;

void TvPanel::Localize(const std::string& unitSystem)
{
    const wxWindowUpdateLocker frozen(this);
    for (const auto& part : m_localizables)
        part->Localize(unitSystem);
    InvalidateBestSize();
    Layout();
}

void TvPanel::TransferDetailsToWindow()
{
    for (const auto& refresh : m_refreshers)
        refresh();
}
