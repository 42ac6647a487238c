// SPDX-License-Identifier: MIT
#include "gui_base/input/form/form_block.h"

#include "gui_base/input/events.h"
#include "gui_base/support/events.h"

#include <wx/wupdlock.h>

FormBlock::FormBlock(DetailList* details, wxWindow* parent, int id, const wxPoint& pos, const wxSize& size,
                     long style)
    : TvPanel(parent, id, pos, size, style), m_fields(details != nullptr ? *details : m_own)
{
    // What controls and combinations of the block tell of themselves is told as a change of the block.
    Bind(tvCHANGE_EVENT, [this](wxCommandEvent&) { Signal(); });
}

void FormBlock::CompleteForm()
{
    m_fields.SetValidators();
    m_fields.OnCommit([this] { OnCommit(); }, [this] { Signal(); });
    UpdateUnit(m_unitSystem);
}

void FormBlock::Localize(const std::string& unitSystem)
{
    const wxWindowUpdateLocker frozen(this);
    const bool isOther = std::exchange(m_unitSystem, unitSystem) != unitSystem;
    for (const auto& holder : m_fields.Localizables())
        holder->Localize(unitSystem);
    m_fields.UpdateNames(unitSystem);
    if (isOther) {
        m_fields.ApplyLimits(unitSystem);
        TransferDetailsToWindow();
    }
    TvPanel::Localize(unitSystem);
}

void FormBlock::UpdateUnit(const std::string& unitSystem)
{
    Localize(unitSystem);
    m_fields.ApplyLimits(unitSystem);
    TransferDetailsToWindow();
}

void FormBlock::TransferDetailsToWindow()
{
    m_fields.ShowDetails(m_unitSystem);
    TvPanel::TransferDetailsToWindow();
}

bool FormBlock::TransferDetailsFromWindow()
{
    return m_fields.StoreFields(m_unitSystem);
}

void FormBlock::SetStatusBar(wxStatusBar* statusBar)
{
    m_fields.SetStatusBar(statusBar);
}

void FormBlock::OnCommit()
{
    const bool changed = TransferDetailsFromWindow();
    TransferDetailsToWindow();
    if (changed)
        Signal();
}

void FormBlock::Signal()
{
    if (m_onChange)
        m_onChange();
    else
        events::SendEvent(GetParent(), tvCHANGE_EVENT, GetId(), 0, wxString());
}
