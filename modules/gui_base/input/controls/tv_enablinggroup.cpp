// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_enablinggroup.h"

#include <algorithm>

TvEnablingGroup::~TvEnablingGroup()
{
    Follow(nullptr);
}

void TvEnablingGroup::Add(wxWindow* window)
{
    if (window == nullptr)
        return;
    std::erase_if(m_windows, [window](const auto& member) { return !member || member.get() == window; });
    m_windows.emplace_back(window);
    window->Enable(m_isEnabled);
}

void TvEnablingGroup::Enable(bool enable)
{
    m_isEnabled = enable;
    for (const auto& window : m_windows) {
        if (window)
            window->Enable(enable);
    }
}

void TvEnablingGroup::Follow(wxCheckBox* checkBox)
{
    if (m_checkBox)
        m_checkBox->Unbind(wxEVT_CHECKBOX, &TvEnablingGroup::OnChecked, this);
    m_checkBox = checkBox;
    if (!m_checkBox)
        return;
    m_checkBox->Bind(wxEVT_CHECKBOX, &TvEnablingGroup::OnChecked, this);
    Update();
}

void TvEnablingGroup::Update()
{
    if (m_checkBox)
        Enable(m_checkBox->IsChecked());
}

void TvEnablingGroup::OnChecked(wxCommandEvent& event)
{
    event.Skip();
    Enable(event.IsChecked());
}
