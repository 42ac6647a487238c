// SPDX-License-Identifier: MIT
#include "gui_base/input/binding/two_state_bitmap_button.h"

TwoStateBitmapButton::TwoStateBitmapButton(wxWindow* parent, int id, DetailData* detail,
                                           const StateBitmaps& bitmaps, const wxPoint& pos,
                                           const wxSize& size, long style)
    : wxBitmapButton(parent, id, detail->GetBoolValue() ? bitmaps.first : bitmaps.second, pos, size, style,
                     wxDefaultValidator, wxASCII_STR(wxButtonNameStr)),
      m_bitmaps(bitmaps),
      m_state(detail->GetBoolValue()),
      m_binding(TransferToDetail, &m_state, this, detail)
{}

void TwoStateBitmapButton::TransferDetailToWindow()
{
    DoTransferDetailToWindow();
    UpdateBitmap();
}

void TwoStateBitmapButton::DoTransferDetailToWindow()
{
    m_binding.TransferToWindow("iso", 1.0);
}

void TwoStateBitmapButton::UpdateBitmap()
{
    SetBitmap(m_state ? m_bitmaps.first : m_bitmaps.second, wxLEFT);
}
