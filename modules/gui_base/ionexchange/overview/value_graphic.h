// SPDX-License-Identifier: MIT
#pragma once

/// A plant graphic whose values lead to where they are typed: by a click, and by the keyboard, where Tab and
/// the arrow keys go from value to value. It is drawn in the size that it is told.

#include "gui_base/graphics/svg/svg_panel.h"
#include "projectbase/graphics/graphic_info.h"

#include <functional>
#include <optional>

class GUI_BASE_EXPORT ValueGraphic : public SvgPanel
{
public:
    /// What the graphic asks of the page around it.
    struct Answers
    {
        std::function<wxString()> graphicName;
        std::function<wxString(const DetailReplaceMapping& value)> nameOf;
        std::function<void(const DetailAddress& address)> lead;
        /// A key that is none of the graphic's; whether the page took it.
        std::function<bool(const wxKeyEvent& key)> takeKey;
    };

    /// Whatever the parser throws, passes.
    ValueGraphic(const SvgGraphicInfo<ArchiveLoadPolicy>& info, wxWindow* parent, Answers answers);

    double GetZoom() const { return m_zoom; }
    void SetZoom(double zoom);
    /// The size at the present zoom.
    wxSize GetMinSize() const override;
    wxSize GetOwnSize() const { return SvgPanel::GetMinSize(); }
    /// Goes to a value, counted in the order of the graphic.
    void Select(std::size_t value);
    std::optional<std::size_t> GetSelected() const { return m_selected; }
    /// The values have changed: their names tell them anew.
    void FollowValues();

protected:
    void FitInto(const wxSize& size) override;
    void DrawOver(wxGraphicsContext& context) override;
    wxSize DoGetBestSize() const override { return GetMinSize(); }

private:
    std::optional<std::size_t> ValueAt(const wxPoint& point) const;
    const DetailReplaceMapping* MappingOf(std::size_t value) const;
    wxString Describe(std::size_t value) const;
    void NameIt();
    void LeadTo(std::size_t value);
    bool SelectTowards(int dx, int dy);
    bool SelectNext(int step);
    void ScrollToSelected();
    void OnKey(wxKeyEvent& event);
    void OnMotion(wxMouseEvent& event);
    void OnClick(wxMouseEvent& event);

    Answers m_answers;
    double m_zoom = 1.0;
    std::optional<std::size_t> m_selected;
    std::optional<std::size_t> m_hovered;
    std::optional<std::size_t> m_pressed;  ///< under the button that is down
};
