// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/input/binding/detail_container_window.h"
#include "gui_base/input/binding/transfer_detail.h"

#include <wx/bitmap.h>
#include <wx/bmpbuttn.h>

#include <utility>

/// Bitmaps for the states true and false.
using StateBitmaps = std::pair<wxBitmap, wxBitmap>;

/// A button that shows a boolean detail by one of two bitmaps. What a click does is its owner's part: flip
/// the detail and refresh the button.
class GUI_BASE_EXPORT TwoStateBitmapButton : public wxBitmapButton, public DetailContainerWindow
{
public:
    /// `detail` is not owned and outlives the button.
    TwoStateBitmapButton(wxWindow* parent, int id, DetailData* detail, const StateBitmaps& bitmaps,
                         const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                         long style = 0);

    bool GetState() const { return m_state; }

    void TransferDetailToWindow() override;
    void UpdateUnit(const std::string&) override {}

private:
    void DoTransferDetailToWindow();
    void UpdateBitmap();

    StateBitmaps m_bitmaps;
    bool m_state;
    TransferDetailT<bool> m_binding;
};
