// SPDX-License-Identifier: MIT
#pragma once

/// The plant as designed: its graphics with the values of the project, live. They fill the page or have a
/// size of the user's choice; their values lead to where they are typed. GUI thread only.

#include "gui_base/gui_base_export.h"
#include "gui_base/input/panel/tv_modulepanelbase.h"
#include "gui_base/ionexchange/overview/value_graphic.h"

#include <functional>
#include <string>
#include <vector>

namespace iex {

class GUI_BASE_EXPORT IEXPlantOverviewPanelImpl : public ModulePanelBase
{
public:
    static constexpr double kLeastZoom = 0.25;
    static constexpr double kMostZoom = 3.0;

    /// The project outlives the panel.
    IEXPlantOverviewPanelImpl(Project* project, wxWindow* parent, const wxString& title, int id = wxID_ANY,
                              const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                              long style = wxTAB_TRAVERSAL | wxHSCROLL | wxVSCROLL);

    /// What leads to the field of a value. Called after the event that asks for it.
    void SetOnLead(std::function<void(const DetailAddress&)> lead) { m_lead = std::move(lead); }
    const std::vector<ValueGraphic*>& GetGraphics() const { return m_graphics; }
    double GetZoom() const { return m_zoom; }
    /// A size of the graphics, 1 their own; from now on they keep it.
    void SetZoom(double zoom);
    /// From now on the graphics are as large as the page has room for.
    void FitToWindow();
    /// The first graphic to the clipboard, or that in focus.
    void CopyPicture();
    /// Messages that the overview itself has to show: none, they belong to where values are typed.
    std::vector<std::string> GetActiveMessages() const { return {}; }

protected:
    long GetPanelProjectStatus() override { return GetProjectStatus(); }
    virtual void DoResetProjectStatus() {}
    void DoResetPanelStatus() override { DoResetProjectStatus(); }
    void DoResetMessages() override {}
    void DoCreateControls() override;
    void DoSetTransferDetails() override {}
    void DoSetValidators() override {}
    void DoBindEvents() override {}
    void DoPrepare() override {}
    void DoUpdateUnits() override;
    void DoLocalize() override;
    void DoFollowProject() override;
    void DoConnectTvTextCtrlsToStatusbar() override {}
    void DoSendVisualizeMessageEvent() override {}

private:
    wxSizer* CreateContentSizer();
    wxSizer* CreateToolSizer();
    wxSizer* CreateSvgPanelSizer();
    void CreateSVGPanels(wxSizer& sizer);
    void AddGraphic(const DBObjects::GraphicInfo& graphic, wxSizer& sizer);
    ValueGraphic::Answers MakeAnswers();
    wxString NameOf(const DetailReplaceMapping& value) const;
    void ShowZoom(double zoom);
    void Refit();
    double FittingZoom() const;
    void ZoomAt(ValueGraphic& graphic, const wxPoint& point, double factor);
    bool OnZoomKey(const wxKeyEvent& key);
    void OnWheelOn(ValueGraphic& graphic, wxMouseEvent& event);

    std::function<void(const DetailAddress&)> m_lead;
    Project::GraphicConfigTypes m_shown;  ///< the arrangement of the graphics
    std::string m_shownType;              ///< the type of plant that it is an arrangement of
    std::vector<ValueGraphic*> m_graphics;
    wxWindow* m_tools = nullptr;
    double m_zoom = 1.0;
    bool m_fits = true;
    bool m_recreating = false;
};

}  // namespace iex
