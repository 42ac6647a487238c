// SPDX-License-Identifier: MIT
#pragma once

/// The feed composition with its controller over a project and a user database of its own.

#include "dbinterfaces/project_database.h"
#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/controls/tv_choice.h"
#include "gui_base/input/controls/tv_searchctrl.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/input/events.h"
#include "gui_base/ionexchange/feed/compound_browser.h"
#include "gui_base/ionexchange/feed/feed_composition_grid.h"
#include "gui_base/ionexchange/feed/feed_composition_panel_controller.h"
#include "gui_base/ionexchange/feed/feed_tab.h"
#include "tests/support/gui_test.h"
#include "tests/support/temp_folder.h"

#include <wx/log.h>
#include <wx/msgdlg.h>
#include <wx/notebook.h>
#include <wx/sizer.h>
#include <wx/srchctrl.h>
#include <wx/uiaction.h>

#include <memory>
#include <string>
#include <vector>

namespace gui_test {

/// Keeps what is logged while it lives.
class LogRecorder : public wxLog
{
public:
    LogRecorder() : m_previous(wxLog::SetActiveTarget(this)), m_wasVerbose(wxLog::GetVerbose())
    {
        wxLog::SetVerbose(true);
    }
    ~LogRecorder() override
    {
        wxLog::SetActiveTarget(m_previous);
        wxLog::SetVerbose(m_wasVerbose);
    }
    std::vector<std::pair<wxLogLevel, std::string>> records;

protected:
    void DoLogRecord(wxLogLevel level, const wxString& text, const wxLogRecordInfo&) override
    {
        records.emplace_back(level, text.utf8_string());
    }

private:
    wxLog* m_previous;
    bool m_wasVerbose;
};

class FeedTest : public GuiTest
{
protected:
    using Unit = FeedComposition::Unit;

    void SetUp() override
    {
        GuiTest::SetUp();
        ProjectDatabase::Open("sqlite3://" + (m_folder / "user.db").string());
        m_frame->SetSizer(new wxBoxSizer(wxVERTICAL));
        m_view = new FeedCompositionPanel(m_frame, wxID_ANY, m_frame->GetStatusBar());
        m_frame->GetSizer()->Add(m_view, 1, wxEXPAND);
        m_frame->Layout();
        m_controller = std::make_unique<FeedCompositionPanelController>(
            m_project, std::make_unique<FeedComposition>(), *m_view);
        m_frame->Bind(tvCHANGE_EVENT, [this](wxCommandEvent&) { ++m_changes; });
        Pump();
    }
    void TearDown() override
    {
        m_controller.reset();
        GuiTest::TearDown();
        ProjectDatabase::Close();
    }

    CompoundList& List() { return m_view->GetCompoundList(); }
    FeedCompositionGrid& Grid() { return gui_test::Find<FeedCompositionGrid>(*m_view); }
    EffluentCompositionGrid& EffluentGrid() { return gui_test::Find<EffluentCompositionGrid>(*m_view); }
    wxSearchCtrl& Search() { return gui_test::Find<wxSearchCtrl>(*m_view); }
    tvChoice& ElementChoice() { return gui_test::Find<tvChoice>(gui_test::Find<CompoundBrowser>(*m_view)); }
    tvChoice& CategoryChoice()
    {
        return gui_test::Find<tvChoice>(gui_test::Find<CompoundBrowser>(*m_view), {}, 1);
    }
    wxNotebook& Tabs() { return gui_test::Find<wxNotebook>(*m_view); }
    /// A button or check box, by its label.
    wxWindow& Labelled(const wxString& label)
    {
        wxWindow* found = wxWindow::FindWindowByLabel(label, m_view);
        if (found == nullptr)
            throw std::runtime_error("no control " + label.utf8_string());
        return *found;
    }
    TvTextCtrl& FeedField(const wxString& name)
    {
        return gui_test::Find<TvTextCtrl>(gui_test::Find<FeedTab>(*m_view), name);
    }
    /// What is shown of the selected compound; empty while nothing is.
    wxString CompoundDetail(const wxString& name)
    {
        const auto& text = gui_test::Find<wxStaticText>(*m_view, name);
        return text.IsShown() ? text.GetLabel() : wxString();
    }
    /// Chooses an entry of a filter as the user does.
    static void Choose(tvChoice& choice, const wxString& label)
    {
        ASSERT_TRUE(choice.SetStringSelection(label)) << label.utf8_string();
        wxCommandEvent event(wxEVT_CHOICE, choice.GetId());
        event.SetEventObject(&choice);
        choice.ProcessWindowEvent(event);
        Pump();
    }
    const std::vector<FeedComposition::CompoundEntry>& Entries()
    {
        return m_controller->GetComposition().GetEntries();
    }
    /// What the project itself holds.
    FeedComposition Stored() const { return m_project.LoadFeedCompositionFromDetails(); }

    /// Searches for a compound by typing and gives its row, which is -1 when it was not found.
    long Find(const wxString& name)
    {
        Focus(Search());
        Search().SelectAll();
        Type(name);
        for (long row = 0; row < List().GetItemCount(); ++row) {
            if (List().GetItemText(row) == name)
                return row;
        }
        ADD_FAILURE() << "not listed: " << name.utf8_string();
        return -1;
    }
    void SelectRow(long row)
    {
        List().Select(row);
        List().Focus(row);
        Pump();
    }
    /// Adds a compound as a user of the keyboard does.
    void Add(const wxString& name)
    {
        const long row = Find(name);
        SelectRow(row);
        Focus(List());
        Press(WXK_RETURN);
    }
    void DoubleClickRow(long row)
    {
        wxRect area;
        ASSERT_TRUE(List().GetItemRect(row, area));
        wxUIActionSimulator simulator;
        simulator.MouseMove(List().ClientToScreen(area.GetPosition() + wxPoint(30, area.height / 2)));
        Pump();
        simulator.MouseDblClick();
        Pump();
    }
    void ClickCell(wxGrid& grid, int row, int column)
    {
        const wxRect area = grid.CellToRect(row, column);
        const wxPoint middle = area.GetPosition() + wxPoint(area.width / 2, area.height / 2);
        wxUIActionSimulator simulator;
        simulator.MouseMove(grid.GetGridWindow()->ClientToScreen(grid.CalcScrolledPosition(middle)));
        Pump();
        simulator.MouseClick();
        Pump();
    }
    /// Types a value over a cell and commits it.
    void TypeCell(wxGrid& grid, int row, int column, const wxString& text, int endKey = WXK_RETURN)
    {
        grid.GoToCell(row, column);
        Focus(*grid.GetGridWindow());
        Type(text);
        Press(endKey);
    }
    double Feed(std::size_t row, Unit unit) { return Entries().at(row).feed[unit]; }
    double Effluent(std::size_t row, Unit unit) { return Entries().at(row).effluent[unit]; }

    /// Expects a question or message whose title and text are these, and answers it.
    void ExpectBox(const std::string& titleAndText, int answer)
    {
        m_dialogs.Expect([titleAndText, answer](wxDialog& dialog) {
            const auto* box = dynamic_cast<wxMessageDialog*>(&dialog);
            EXPECT_NE(box, nullptr) << dialog.GetTitle().utf8_string();
            if (box != nullptr) {
                EXPECT_EQ((box->GetCaption() + "|" + box->GetMessage()).utf8_string(), titleAndText);
            }
            return answer;
        });
    }

    support::TempFolder m_folder;
    iex::IEXProject m_project;
    FeedCompositionPanel* m_view = nullptr;
    std::unique_ptr<FeedCompositionPanelController> m_controller;
    int m_changes = 0;
};

}  // namespace gui_test
