// SPDX-License-Identifier: MIT
#pragma once

/// A water analysis in a frame, with what it tells its host.

#include "gui_base/input/controls/tv_checkbox.h"
#include "gui_base/input/controls/tv_radiobutton.h"
#include "gui_base/input/events.h"
#include "gui_base/support/events.h"
#include "gui_base/water/analysis/wateranalysis_panel.h"
#include "projectbase/project/iex_project.h"
#include "tests/support/gui_test.h"

#include <cmath>
#include <string>
#include <vector>

namespace gui_test {

class WaterAnalysisTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        m_frame->Bind(tvCHANGE_EVENT, [this](wxCommandEvent&) { ++m_notified; });
        m_frame->Bind(tvVISUALIZE_MESSAGE,
                      [this](VisualizeMessageEvent& event) { m_outOfRange = event.GetMessages(); });
        m_project.GetLogger().SetSink([this](const Logger::Entry& entry) { m_log.push_back(entry.text); });
    }

    void Open()
    {
        m_panel = new WaterAnalysisPanel(&m_project, 0, m_frame, wxID_ANY, nullptr);
        m_frame->SendSizeEvent();
        Pump();
    }

    DetailData& Detail(const std::string& key)
    {
        return m_project.GetLiquid(0).GetDetails()->At("liquid/" + key);
    }
    double Value(const std::string& key) { return Detail(key).GetDoubleValue(); }
    TvTextCtrl& Field(const std::string& key) { return *m_panel->FindField("liquid/" + key); }
    std::string Shown(const std::string& key) { return Field(key).GetValue().utf8_string(); }

    tvUnitChoice& UnitOf(const wxString& row) { return Find<tvUnitChoice>(*m_panel, row + ", Unit"); }

    void Choose(const wxString& row, const wxString& unit)
    {
        tvUnitChoice& choice = UnitOf(row);
        // Leaves, and so commits, the field that is being edited.
        choice.SetFocus();
        Pump();
        const int target = choice.FindString(unit);
        ASSERT_NE(target, wxNOT_FOUND) << unit.utf8_string();
        // What the toolkit does when the user picks an item of the opened list.
        choice.SetSelection(target);
        wxCommandEvent event(wxEVT_CHOICE, choice.GetId());
        event.SetEventObject(&choice);
        event.SetInt(target);
        choice.GetEventHandler()->ProcessEvent(event);
        Pump();
    }

    void Check(TvCheckBox& box)
    {
        Focus(box);
        Press(WXK_SPACE);
    }

    template <typename Window>
    Window* FindByLabel(const wxString& label)
    {
        return dynamic_cast<Window*>(wxWindow::FindWindowByLabel(label, m_panel));
    }

    iex::IEXProject m_project;
    WaterAnalysisPanel* m_panel = nullptr;
    int m_notified = 0;
    std::vector<std::string> m_outOfRange;
    std::vector<std::string> m_log;
};

}  // namespace gui_test
