// SPDX-License-Identifier: MIT
#pragma once

/// A water library over a database of its own, and what drives it.

#include "dbinterfaces/project_database.h"
#include "gui_base/water/library/water_lib_dialog.h"
#include "gui_base/water/library/water_lib_list.h"
#include "tests/support/gui_test.h"
#include "tests/support/user_database_fixture.h"

#include <wx/button.h>
#include <wx/infobar.h>
#include <wx/msgdlg.h>
#include <wx/textctrl.h>
#include <wx/treectrl.h>
#include <wx/uiaction.h>

#include <memory>
#include <string>
#include <vector>

namespace gui_test {

class WaterLibTest : public GuiTest
{
protected:
    explicit WaterLibTest(const std::string& database = "sqlite") : m_database(database) {}
    void SetUp() override
    {
        GuiTest::SetUp();
        ProjectDatabase::Open(m_database.Text());
    }
    void TearDown() override
    {
        m_dialog.reset();
        GuiTest::TearDown();
    }

    std::string Sql(const std::string& query) const { return m_database.String(query, "(nothing)"); }
    DetailData& Detail(const std::string& key) { return m_liquid.GetDetails()->At("liquid/" + key); }
    void Describe(const char* country, const char* place, const char* source)
    {
        Detail("country").SetValue(country);
        Detail("place").SetValue(place);
        Detail("water.source").SetValue(source);
    }
    /// Expects a message box whose texts hold all of `parts`, and answers it.
    void ExpectBox(const std::vector<std::string>& parts, int answer)
    {
        m_dialogs.Expect([parts, answer](wxDialog& dialog) {
            const auto* box = dynamic_cast<wxMessageDialog*>(&dialog);
            if (box == nullptr) {
                ADD_FAILURE() << "no message box: " << dialog.GetTitle().utf8_string();
                return answer;
            }
            const std::string text =
                (box->GetCaption() + "|" + box->GetMessage() + "|" + box->GetExtendedMessage()).utf8_string();
            for (const std::string& part : parts)
                EXPECT_NE(text.find(part), std::string::npos) << text;
            return answer;
        });
    }
    bool Save()
    {
        ExpectBox({"Success|Analysis saved to water library"}, wxID_OK);
        return WaterLibDialog::SaveLiquidData(&m_liquid);
    }

    WaterLibDialog& Open()
    {
        m_dialog.reset();
        m_dialog = std::make_unique<WaterLibDialog>(m_logger, m_frame, wxID_ANY, wxPoint(10, 10));
        m_dialog->Show();
        Pump();
        return *m_dialog;
    }
    wxTreeCtrl& Tree() const { return Find<wxTreeCtrl>(*m_dialog); }
    wxButton& UseButton() const { return *FindUseButton(*m_dialog); }
    static wxButton* FindUseButton(wxWindow& dialog)
    {
        return dynamic_cast<wxButton*>(
            wxWindow::FindWindowByLabel("Use current selection as feed water", &dialog));
    }
    bool TellsOfAProblem() const { return Find<wxInfoBar>(*m_dialog).IsShown(); }
    /// A text of the general information, by its label.
    wxString Shown(const wxString& label) const { return Find<wxTextCtrl>(*m_dialog, label).GetValue(); }
    /// The tree's node along these texts below the root.
    wxTreeItemId Node(const std::vector<wxString>& path)
    {
        wxTreeCtrl& tree = Tree();
        wxTreeItemId node = tree.GetRootItem();
        for (const wxString& text : path) {
            wxTreeItemIdValue cookie;
            wxTreeItemId child = tree.GetFirstChild(node, cookie);
            while (child.IsOk() && tree.GetItemText(child) != text)
                child = tree.GetNextChild(node, cookie);
            EXPECT_TRUE(child.IsOk()) << text.utf8_string();
            if (!child.IsOk())
                return {};
            node = child;
        }
        return node;
    }
    void Mouse(wxWindow& window, const wxRect& area, int button = wxMOUSE_BTN_LEFT)
    {
        wxUIActionSimulator simulator;
        // Never twice at the same place: that would be a double click.
        m_offset = m_offset > 30 ? 12 : m_offset + 12;
        simulator.MouseMove(window.ClientToScreen(area.GetPosition() + wxPoint(m_offset, area.height / 2)));
        Pump();
        simulator.MouseClick(button);
        Pump();
    }
    void ClickNode(const std::vector<wxString>& path, int button = wxMOUSE_BTN_LEFT)
    {
        const wxTreeItemId node = Node(path);
        Tree().EnsureVisible(node);
        Pump();
        wxRect area;
        ASSERT_TRUE(Tree().GetBoundingRect(node, area, true));
        Mouse(Tree(), area, button);
    }
    void ClickRow(long row, int button = wxMOUSE_BTN_LEFT)
    {
        wxRect area;
        ASSERT_TRUE(m_dialog->GetWaterList().GetItemRect(row, area));
        Mouse(m_dialog->GetWaterList(), area, button);
    }
    std::vector<std::string> Sources() const
    {
        std::vector<std::string> sources;
        const WaterLibListView& list = m_dialog->GetWaterList();
        for (long row = 0; row < list.GetItemCount(); ++row)
            sources.push_back(list.GetItemText(row, 2).utf8_string());
        return sources;
    }
    std::string DetailValue(const wxString& name) const
    {
        const auto& list = Find<wxListView>(*m_dialog, "Details");
        for (long row = 0; row < list.GetItemCount(); ++row) {
            if (list.GetItemText(row, 0) != name)
                continue;
            // Without the blanks that put its decimal sign in line.
            const wxString number = list.GetItemText(row, 1).BeforeFirst(L'\u2007').BeforeFirst(L'\u2008');
            return (number + " " + list.GetItemText(row, 2)).utf8_string();
        }
        return "(none)";
    }

    int m_offset = 0;
    support::DatabaseUnderTest m_database;
    Logger m_logger;
    LiquidData m_liquid;
    std::unique_ptr<WaterLibDialog> m_dialog;
};

}  // namespace gui_test
