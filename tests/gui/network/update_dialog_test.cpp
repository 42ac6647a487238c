// SPDX-License-Identifier: MIT
// The dialog that looks for a newer version and loads it.
#include "gui_base/network/update_dialog.h"

#include "projectbase/security/sha256.h"
#include "tests/gui/network/network_fixture.h"

namespace network_test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kHash = "88eeb4d6b36ad4123f9d2c1a8bd9ac8fca8afaeb7ec0f1d1e06ca90d6d2ee42e";

std::string Description(const std::string& attributes)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?><tarnvik-update " + attributes +
           "><note lang=\"en\">All is better</note><note lang=\"de\">Alles ist "
           "besser</note></tarnvik-update>";
}

TEST(UpdateDescription, IsReadWholeOrNotAtAll)
{
    const std::string hash = kHash;
    const auto good = ReadUpdateDescription(
        Description("version=\"1.2.0\" file=\"tarnvik-1.2.0.run\" size=\"12\" sha256=\"" + hash + "\""));
    ASSERT_TRUE(good);
    EXPECT_EQ(good->version + " " + good->file, "1.2.0 tarnvik-1.2.0.run");
    EXPECT_EQ(good->size, 12);
    EXPECT_EQ(good->sha256, hash);
    EXPECT_EQ(good->notes.at("de"), "Alles ist besser");
    const std::string rest = " size=\"1\" sha256=\"" + hash + "\"";
    for (const std::string& bad :
         {std::string(), std::string("no xml"), std::string("<tarnvik-error/>"),
          Description("version=\"1.2.0\" file=\"a\" size=\"1\""),
          Description("version=\"1.2.0\" file=\"a\" size=\"-1\" sha256=\"" + hash + "\""),
          Description("version=\"1.2.0\" file=\"a\" size=\"1e9\" sha256=\"" + hash + "\""),
          Description("version=\"1.2.0\" file=\"a\" size=\"1\" sha256=\"" + hash.substr(1) + "\""),
          Description("version=\"new\" file=\"a\"" + rest), Description("version=\"1.\" file=\"a\"" + rest),
          Description("version=\"1.2\" file=\"\"" + rest),
          Description("version=\"1.2\" file=\"../a\"" + rest),
          Description("version=\"1.2\" file=\".profile\"" + rest),
          Description("version=\"1.2\" file=\"C:a\"" + rest),
          Description("version=\"1.2\" file=\"" + std::string(200, 'a') + "\"" + rest)})
        EXPECT_FALSE(ReadUpdateDescription(bad)) << bad;
}

TEST(UpdateDescription, VersionsAreComparedByTheirNumbers)
{
    const struct
    {
        const char* version;
        const char* than;
        bool isNewer;
    } cases[] = {{"1.10", "1.9.3", true}, {"1.9.3", "1.10", false}, {"1.2", "1.2.0", false},
                 {"1.2.0", "1.2", false}, {"2", "1.99.99", true},   {"1.2.1", "1.2", true},
                 {"x", "0.1", false},     {"1", "", true}};
    for (const auto& [version, than, isNewer] : cases)
        EXPECT_EQ(IsNewerVersion(version, than), isNewer) << version << " " << than;
}

/// An update site with a setup program of so many bytes.
class UpdateDialogTest : public NetworkTest
{
protected:
    void SetUp() override
    {
        NetworkTest::SetUp();
        std::filesystem::create_directory(m_folder / "home");
        support::WriteBytes(m_folder / "sum", m_setup);
        m_attributes = "version=\"99.0\" file=\"tarnvik.run\" size=\"" + std::to_string(m_setup.size()) +
                       "\" sha256=\"" + Sha256OfFile(m_folder / "sum") + "\"";
        std::filesystem::remove(m_folder / "sum");
        SetTestPage(m_server);
        SetEndpoint(endpoints::kUpdates, wxString::FromUTF8(m_server.Url("/update")));
        SetEndpoint(endpoints::kSetup, wxString::FromUTF8(m_server.Url("/setup")));
        m_dialog = std::make_unique<UpdateDialog>(m_frame, "1.0");
        m_dialog->Show();
        Picker().SetPath(Path("home"));
        gui_test::Pump();
    }
    void TearDown() override
    {
        m_dialog.reset();
        NetworkTest::TearDown();
    }
    wxDirPickerCtrl& Picker() { return gui_test::Find<wxDirPickerCtrl>(*m_dialog); }
    wxButton& Button(const wxString& label) { return gui_test::Labelled<wxButton>(*m_dialog, label); }
    std::string Texts()
    {
        std::string texts;
        for (const wxWindow* child : m_dialog->GetChildren()) {
            if (dynamic_cast<const wxStaticText*>(child) != nullptr)
                texts += child->GetLabel().utf8_string() + "\n";
        }
        return texts;
    }
    bool AwaitEnd()
    {
        return gui_test::PumpUntil([this] { return !m_dialog->IsDownloading(); });
    }

    std::string m_setup = std::string(2'000'000, 's');
    std::string m_attributes;
    std::string m_sent = m_setup;
    std::atomic<bool> m_waits = false;
    LoopbackServer m_server{[this](ServerConnection& connection, const HttpRequest& request) {
        if (request.target == "/update")
            connection.Answer(200, Description(m_attributes));
        else if (request.target == "/setup" && m_waits)
            connection.Send("HTTP/1.1 200 OK\r\nContent-Length: 2000000\r\n\r\n" +
                            std::string(1'000'000, 's')) &&
                connection.Wait(60'000);
        else
            connection.Answer(200, m_sent);
    }};
    std::unique_ptr<UpdateDialog> m_dialog;
};

TEST_F(UpdateDialogTest, ANewerVersionIsFoundLoadedAndChecked)
{
    EXPECT_FALSE(Button("&Download").IsEnabled());
    gui_test::Click(Button("Check &now"));
    EXPECT_THAT(Texts(), HasSubstr("Version 99.0 is available (2.0 MB)."));
    EXPECT_EQ(gui_test::Find<wxTextCtrl>(*m_dialog, "What is new").GetValue(), "All is better");
    gui_test::Click(Button("&Download"));
    ASSERT_TRUE(AwaitEnd());
    EXPECT_THAT(Texts(), HasSubstr("The setup program is " + Path("home/tarnvik.run").utf8_string()));
    EXPECT_EQ(Read("home/tarnvik.run"), m_setup);
    EXPECT_TRUE(Button("&Open folder").IsEnabled());
}

TEST_F(UpdateDialogTest, WhatIsNotNewerIsNotOffered)
{
    m_attributes.replace(0, std::string("version=\"99.0\"").size(), "version=\"1.0.0\"");
    gui_test::Click(Button("Check &now"));
    EXPECT_THAT(Texts(), HasSubstr("There is no newer version."));
    EXPECT_FALSE(Button("&Download").IsEnabled());
    m_attributes.clear();
    gui_test::Click(Button("Check &now"));
    EXPECT_THAT(Texts(), HasSubstr("The update site gave no answer that can be read."));
}

TEST_F(UpdateDialogTest, AnotherProgramThanTheOneDescribedIsRemoved)
{
    m_sent.back() = 'x';
    gui_test::Click(Button("Check &now"));
    gui_test::Click(Button("&Download"));
    ASSERT_TRUE(AwaitEnd());
    EXPECT_THAT(Texts(), HasSubstr("is not the one that the update site described"));
    EXPECT_TRUE(std::filesystem::is_empty(m_folder / "home"));
    EXPECT_FALSE(Button("&Open folder").IsEnabled());
}

TEST_F(UpdateDialogTest, AProgramLongerThanDescribedIsGivenUp)
{
    m_sent += std::string(50'000'000, 'x');
    support::WriteBytes(m_folder / "home" / "tarnvik.run", "an older one");
    gui_test::Click(Button("Check &now"));
    gui_test::Click(Button("&Download"));
    ASSERT_TRUE(AwaitEnd());
    EXPECT_THAT(Texts(), HasSubstr("is not the one that the update site described"));
    EXPECT_EQ(Read("home/tarnvik.run"), "an older one");
}

TEST_F(UpdateDialogTest, ADownloadOutlivesItsClosedDialogAndCanBeCancelled)
{
    m_waits = true;
    gui_test::Click(Button("Check &now"));
    gui_test::Click(Button("&Download"));
    ASSERT_TRUE(gui_test::PumpUntil([this] { return Texts().find("1.0 MB of 2.0 MB") != std::string::npos; }))
        << Texts();
    m_dialog->Close();
    gui_test::Pump();
    EXPECT_FALSE(m_dialog->IsShown());
    EXPECT_TRUE(m_dialog->IsDownloading());
    m_dialog->Show();
    gui_test::Pump();
    gui_test::Click(Button("&Cancel download"));
    ASSERT_TRUE(AwaitEnd());
    EXPECT_THAT(Texts(), HasSubstr("The download was cancelled."));
    EXPECT_TRUE(std::filesystem::is_empty(m_folder / "home"));
    // And once more from the beginning.
    m_waits = false;
    gui_test::Click(Button("&Download"));
    ASSERT_TRUE(AwaitEnd());
    EXPECT_EQ(Read("home/tarnvik.run"), m_setup);
    // A dialog that goes takes its download along.
    m_waits = true;
    gui_test::Click(Button("&Download"));
    m_dialog.reset();
    EXPECT_EQ(Read("home/tarnvik.run"), m_setup);
    EXPECT_THAT(std::distance(std::filesystem::directory_iterator(m_folder / "home"), {}), 1);
}

}  // namespace

}  // namespace network_test
