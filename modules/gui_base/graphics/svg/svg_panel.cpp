// SPDX-License-Identifier: MIT
#include "gui_base/graphics/svg/svg_panel.h"

#include "gui_base/graphics/svg/svg_parser.h"
#include "gui_base/support/drawing_sheet.h"

#include <wx/dcbuffer.h>
#include <wx/dcmemory.h>

#include <algorithm>

SvgPanel::SvgPanel(const SvgGraphicInfo<ArchiveLoadPolicy>& info, wxWindow* parent, int id,
                   const wxPoint& pos, const wxSize& size, long style, const wxString& name)
    : wxPanel(parent, id, pos, size, style, name),
      m_parser(std::make_unique<SvgParser>()),
      m_renderer(std::make_unique<SvgRenderer<ArchiveLoadPolicy>>(info, m_parser))
{
    m_renderer->SetSheet(drawing_sheet::ColourInDarkTheme());
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Bind(wxEVT_PAINT, &SvgPanel::OnPaint, this);
    Bind(wxEVT_SIZE, &SvgPanel::OnSize, this);
}

SvgPanel::~SvgPanel() = default;

void SvgPanel::SetGraphic(const SvgGraphicInfo<ArchiveLoadPolicy>& info)
{
    m_renderer->SetGraphic(info);
    FitInto(GetSize());
    Refresh();
}

void SvgPanel::UpdateUnits(const wxString& unitsystem)
{
    if (m_renderer != nullptr) {
        m_renderer->SetUnitsystem(unitsystem);
        m_renderer->UpdateValues();
    }
    Refresh();
}

void SvgPanel::Localize()
{
    Refresh();
}

void SvgPanel::UpdateValues()
{
    // The frame of a value in focus lies around it, and so do the edges of slanting letters.
    constexpr int kMargin = 6;
    for (const wxRect2DDouble& box : m_renderer->UpdateValues()) {
        wxRect area(wxPoint(static_cast<int>(box.m_x), static_cast<int>(box.m_y)),
                    wxPoint(static_cast<int>(box.GetRight()) + 1, static_cast<int>(box.GetBottom()) + 1));
        RefreshRect(area.Inflate(kMargin));
    }
}

wxSize SvgPanel::GetMinSize() const
{
    return m_renderer != nullptr ? m_renderer->GetDrawableMinSize() : GetSize();
}

wxBitmap SvgPanel::TakePicture(double scale)
{
    const wxSize own = m_renderer->GetDrawableMinSize();
    const wxSize size(std::max(1, wxRound(own.x * scale)), std::max(1, wxRound(own.y * scale)));
    wxBitmap bitmap(size);
    {
        wxMemoryDC dc(bitmap);
        dc.SetBackground(*wxWHITE_BRUSH);
        dc.Clear();
        const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::Create(dc));
        m_renderer->SetSize(size.x, size.y);
        m_renderer->SetSheet({});
        m_renderer->DrawOnContext(context.get());
    }
    m_renderer->SetSheet(drawing_sheet::ColourInDarkTheme());
    FitInto(GetSize());
    return bitmap;
}

void SvgPanel::FitInto(const wxSize& size)
{
    const wxSize own = m_renderer->GetDrawableMinSize();
    const auto scaledWidth = [this] { return static_cast<int>(m_renderer->GetScaledWidth()); };
    const auto scaledHeight = [this] { return static_cast<int>(m_renderer->GetScaledHeight()); };
    if (own.x < size.x && own.y < size.y) {
        m_renderer->SetSize(size.x, size.y);
        SetVirtualSize(size);
    } else if (own.x < size.x || own.y < size.y) {
        if (size.x < own.x) {
            SetVirtualSize(own.x, scaledHeight());
            m_renderer->SetSize(own.x, scaledHeight());
        } else if (size.y < own.y) {
            SetVirtualSize(scaledWidth(), scaledHeight());
            m_renderer->SetSize(scaledWidth(), own.y);
        }
    } else {
        m_renderer->SetSize(own.x, own.y);
        SetVirtualSize(own);
    }
}

void SvgPanel::OnPaint(wxPaintEvent&)
{
    wxAutoBufferedPaintDC dc(this);
    dc.Clear();
    if (m_renderer == nullptr)
        return;
    const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::Create(dc));
    if (context == nullptr)
        return;
    context->SetContentScaleFactor(GetContentScaleFactor());
    m_renderer->DrawOnContext(context.get());
    DrawOver(*context);
}

void SvgPanel::OnSize(wxSizeEvent& event)
{
    if (m_renderer != nullptr)
        FitInto(event.GetSize());
    Refresh();
    Update();
    event.Skip();
}
