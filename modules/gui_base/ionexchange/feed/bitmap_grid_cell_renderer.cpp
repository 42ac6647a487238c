// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/feed/bitmap_grid_cell_renderer.h"

#include "gui_base/support/image_loader.h"
#include "gui_base/support/translation.h"

#include <wx/dc.h>

namespace {

constexpr int kImageSize = 16;
constexpr int kMargin = 4;

wxString ErrorText()
{
    return i18n::Translated(wxTRANSLATE("Bitmap error"));
}

}  // namespace

BitmapGridCellRenderer::BitmapGridCellRenderer(const wxString& imageName)
    : m_image(ImageLoader::LoadBundle(imageName, wxSize(kImageSize, kImageSize)))
{}

void BitmapGridCellRenderer::Draw(wxGrid& grid, wxGridCellAttr& attr, wxDC& dc, const wxRect& rect, int row,
                                  int col, bool isSelected)
{
    wxGridCellRenderer::Draw(grid, attr, dc, rect, row, col, isSelected);
    if (!HasImage()) {
        SetTextColoursAndFont(grid, attr, dc, isSelected);
        grid.DrawTextRectangle(dc, ErrorText(), rect, wxALIGN_LEFT, wxALIGN_CENTRE);
        return;
    }
    const wxBitmap bitmap = m_image.GetBitmapFor(&grid);
    const wxSize size = bitmap.GetLogicalSize();
    dc.DrawBitmap(bitmap, rect.x + (rect.width - size.x) / 2, rect.y + (rect.height - size.y) / 2, true);
}

wxSize BitmapGridCellRenderer::GetBestSize(wxGrid& grid, wxGridCellAttr& attr, wxDC& dc, int, int)
{
    if (!HasImage())
        return DoGetBestSize(attr, dc, ErrorText());
    return m_image.GetPreferredLogicalSizeFor(&grid) + grid.FromDIP(wxSize(2 * kMargin, 2 * kMargin));
}
