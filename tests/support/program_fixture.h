// SPDX-License-Identifier: MIT
#pragma once

/// The whole program in its window, as a user has it: with a user database of its own and English texts.

#include "app/document/templates.h"
#include "app/frame/main_frame.h"
#include "app/frame/tarnvik_app.h"
#include "app/language/language.h"
#include "dbinterfaces/master_database.h"
#include "dbinterfaces/project_database.h"
#include "gui_base/ionexchange/feed/pfeedcomposition.h"
#include "gui_base/support/density.h"
#include "gui_base/water/feedwater/feed_water_panel.h"
#include "projectbase/settings/settings.h"
#include "tests/support/gui_test.h"
#include "tests/support/temp_folder.h"

#include <wx/menu.h>

#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace gui_test {

class ProgramTest : public testing::Test
{
protected:
    /// `water` is the example that the program opens with; null for an empty project.
    explicit ProgramTest(const char* water) : m_water(water) {}

    void SetUp() override
    {
        EXPECT_EQ(app::InitProgram().text, "");
        Settings::Reset();
        density::Set(Density::Compact);
        app::SwitchLanguage("en");
        ProjectDatabase::Open((m_folder / "user.db").string());
        // The ground waters among the examples have more iron than a softener stands, which is a message of
        // its own in every test that counts them.
        Settings::GetSetting("limit.femn.soft.warn").SetValue(std::numeric_limits<double>::quiet_NaN());
        // What an earlier program kept.
        for (const DBObjects::PlantType& plant : MasterDatabase::GetPlantTypes())
            ProjectDatabase::SetLocalParameter("/Perspective/" + plant.type, {});
        for (const char* kept : {"/Window/diagram", "/Window/docking.1", "/Window/messages", "/Window/place",
                                 "/Window/collapsed"})
            ProjectDatabase::SetLocalParameter(kept, {});
        ProjectDatabase::SetLocalParameter("/RecentFiles", {});
        m_frame = new app::MainFrame(MakeDocument(m_water));
        m_frame->SetPosition(wxPoint(0, 0));
        m_frame->Show();
        Pump();
    }

    void TearDown() override
    {
        // As if the user discarded the changes.
        m_frame->GetDocument().SetUnsaved(false);
        m_frame->Close();
        Pump();
        app::SwitchLanguage("en");
        ProjectDatabase::Close();
    }

    static std::unique_ptr<app::Document> MakeDocument(const char* water)
    {
        return std::make_unique<app::Document>(
            water == nullptr ? app::NewEmptyProject() : app::NewProjectFrom(*app::FindWaterTemplate(water)));
    }

    Project& OpenProject() { return m_frame->GetProject(); }
    /// The page of a water, brought to the front where it is not.
    FeedWaterPanel& WaterPage(std::size_t index = 0)
    {
        const DetailOwner owner = OpenProject().GetLiquid(index).GetOwner();
        const app::PageHost* current = m_frame->GetBook().GetCurrent();
        if (current == nullptr || current->GetModule().id != "water" || current->GetOwner() != owner) {
            m_frame->GetBook().Show("water", owner);
            Pump();
        }
        return dynamic_cast<FeedWaterPanel&>(*m_frame->GetBook().GetCurrentPanel());
    }
    FeedCompositionPanel& FeedPage()
    {
        const app::PageHost* current = m_frame->GetBook().GetCurrent();
        if (current == nullptr || current->GetModule().id != "feed") {
            m_frame->GetBook().Show("feed", {});
            Pump();
        }
        return dynamic_cast<FeedCompositionPanel&>(*m_frame->GetBook().GetCurrentPanel());
    }
    /// The detail of the first water, without "liquid/".
    DetailData& Water(const std::string& key)
    {
        return OpenProject().GetLiquid(0).GetDetails()->At("liquid/" + key);
    }

    /// The item of a menu as it stands when the menu is opened.
    const wxMenuItem& MenuItem(int id)
    {
        m_frame->DoMenuUpdates();
        return *m_frame->GetMenuBar()->FindItem(id);
    }
    void Menu(int id)
    {
        EXPECT_TRUE(MenuItem(id).IsEnabled()) << MenuItem(id).GetItemLabelText();
        EXPECT_TRUE(m_frame->ProcessCommand(id));
        Pump();
    }
    void Menu(const char* menu, const char* item)
    {
        const int id = m_frame->GetMenuBar()->FindMenuItem(menu, item);
        ASSERT_NE(id, wxNOT_FOUND) << item;
        Menu(id);
    }
    /// Follows a line of the messages to its field, by the keyboard.
    void FollowMessage(long line)
    {
        app::MessageArea& area = m_frame->GetMessageArea();
        Focus(area);
        area.Focus(line);
        area.Select(line);
        Press(WXK_RETURN);
    }
    std::vector<std::string> Messages()
    {
        std::vector<std::string> texts;
        const app::MessageArea& area = m_frame->GetMessageArea();
        for (int i = 0; i < area.GetItemCount(); ++i)
            texts.push_back(area.GetItemText(i, 1).utf8_string());
        return texts;
    }

    const char* m_water;
    app::MainFrame* m_frame = nullptr;
    support::TempFolder m_folder;
    DialogAnswers m_dialogs;
};

}  // namespace gui_test
