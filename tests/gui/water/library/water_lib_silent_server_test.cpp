// SPDX-License-Identifier: MIT
// The window while the server of the user database says nothing.
#include "app/frame/database_wait.h"
#include "tests/gui/water/library/water_lib_fixture.h"
#include "tests/support/stopped_server.h"

#include <wx/progdlg.h>

#include <chrono>

namespace {

using namespace gui_test;
using Clock = std::chrono::steady_clock;

/// The program's own indicator, whose button is pressed when it has been asked a few times.
class PressedIndicator : public WaitIndicator
{
public:
    explicit PressedIndicator(double& shownAfter, Clock::time_point start) : m_own(app::ShowDatabaseWait())
    {
        for (wxWindow* window : wxTopLevelWindows) {
            if (auto* dialog = dynamic_cast<wxGenericProgressDialog*>(window))
                m_dialog = dialog;
        }
        if (m_dialog != nullptr && m_dialog->IsShown())
            shownAfter = std::chrono::duration<double>(Clock::now() - start).count();
    }
    bool Continue() override
    {
        if (++m_asked == 3 && m_dialog != nullptr) {
            wxCommandEvent pressed(wxEVT_BUTTON, wxID_CANCEL);
            m_dialog->ProcessWindowEvent(pressed);
        }
        return m_own->Continue();
    }

private:
    std::unique_ptr<WaitIndicator> m_own;
    wxGenericProgressDialog* m_dialog = nullptr;
    int m_asked = 0;
};

class WaterLibSilent : public WaterLibTest
{
protected:
    WaterLibSilent() : WaterLibTest("postgresql") {}
    void TearDown() override
    {
        ProjectDatabase::SetWaitIndicator({});
        WaterLibTest::TearDown();
    }
};

TEST_F(WaterLibSilent, ShowsThatASaveWaitsAndCanGiveItUp)
{
    ProjectDatabase::Open(m_database.Text() + " tcp_user_timeout=60000");
    Describe("FR", "Lyon", "Rhone");
    double shownAfter = -1.0;
    Clock::time_point start;
    ProjectDatabase::SetWaitIndicator([&] { return std::make_unique<PressedIndicator>(shownAfter, start); });
    std::string problem;
    {
        const support::Stopped server;
        start = Clock::now();
        EXPECT_FALSE(WaterLibDialog::SaveLiquid(&m_liquid, &problem));
        EXPECT_LT(std::chrono::duration<double>(Clock::now() - start).count(), 3.0);
    }
    EXPECT_GT(shownAfter, 0.0);
    EXPECT_LT(shownAfter, 1.0);
    EXPECT_NE(problem.find("the call was given up"), std::string::npos) << problem;
    EXPECT_EQ(Detail("place").GetStringValue(), "Lyon");
    EXPECT_EQ(Sql("SELECT CAST(count(*) AS TEXT) FROM tarnvik_water"), "0");
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sql("SELECT place FROM tarnvik_water"), "Lyon");
}

}  // namespace
