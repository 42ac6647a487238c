// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/bmpbndl.h>
#include <wx/grid.h>

/// Draws one image of the application in the middle of a cell, and "Bitmap error" where it cannot be loaded.
class GUI_BASE_EXPORT BitmapGridCellRenderer : public wxGridCellStringRenderer
{
public:
    explicit BitmapGridCellRenderer(const wxString& imageName);

    void Draw(wxGrid& grid, wxGridCellAttr& attr, wxDC& dc, const wxRect& rect, int row, int col,
              bool isSelected) override;
    wxSize GetBestSize(wxGrid& grid, wxGridCellAttr& attr, wxDC& dc, int row, int col) override;
    wxGridCellRenderer* Clone() const override { return new BitmapGridCellRenderer(*this); }
    bool HasImage() const { return m_image.IsOk(); }

private:
    wxBitmapBundle m_image;
};
