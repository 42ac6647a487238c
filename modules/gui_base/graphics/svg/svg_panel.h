// SPDX-License-Identifier: MIT
#pragma once

/// The window that shows one plant graphic, enlarged where it has more room than the graphic needs; on a dark
/// sheet in a dark theme.

#include "gui_base/graphics/svg/svg_renderer.h"
#include "gui_base/gui_base_export.h"

#include <wx/panel.h>

#include <memory>
#include <vector>

class GUI_BASE_EXPORT SvgPanel : public wxPanel
{
public:
    /// Whatever the parser throws, passes.
    SvgPanel(const SvgGraphicInfo<ArchiveLoadPolicy>& info, wxWindow* parent, int id = wxID_ANY,
             const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
             long style = wxTAB_TRAVERSAL | wxNO_BORDER, const wxString& name = wxASCII_STR(wxPanelNameStr));
    ~SvgPanel() override;

    void SetGraphic(const SvgGraphicInfo<ArchiveLoadPolicy>& info);
    void UpdateUnits(const wxString& unitsystem);
    /// Shows the texts in the present language.
    void Localize();
    /// Shows the values as they are now; draws only where one changed.
    void UpdateValues();
    /// The graphic's own size.
    wxSize GetMinSize() const override;

    std::vector<SvgShownValue> GetShownValues() const { return m_renderer->GetShownValues(); }
    /// The graphic as it would be drawn in its own size enlarged by `scale`, on white in every theme.
    wxBitmap TakePicture(double scale);

protected:
    /// Chooses the scale for a size of the panel.
    virtual void FitInto(const wxSize& size);
    /// Draws over the graphic.
    virtual void DrawOver(wxGraphicsContext&) {}
    SvgRenderer<ArchiveLoadPolicy>* GetRenderer() const { return m_renderer.get(); }

private:
    void OnPaint(wxPaintEvent& event);
    void OnSize(wxSizeEvent& event);

    std::unique_ptr<SvgParserBase> m_parser;
    std::unique_ptr<SvgRenderer<ArchiveLoadPolicy>> m_renderer;
};
