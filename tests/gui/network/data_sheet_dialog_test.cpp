// SPDX-License-Identifier: MIT
// The dialog of data sheets: found by product, language and words, fetched and opened by the keyboard.
#include "gui_base/network/data_sheet_dialog.h"

#include "gui_base/dialogs/row_list.h"
#include "tests/gui/network/network_fixture.h"

#include <gmock/gmock.h>
#include <wx/infobar.h>
#include <wx/log.h>
#include <wx/srchctrl.h>

namespace network_test {

namespace {

using namespace gui_test;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kProducts =
    "<tarnvik-pds-list>"
    "<sheet prodid='sac_gel' status='F' language='English'/><sheet prodid='sac_gel' language='German'/>"
    "<sheet prodid='sba_1' status='P' language='English'/><sheet prodid='Other 7' language='Norsk'/>"
    "</tarnvik-pds-list>";
constexpr const char* kSafety =
    "<tarnvik-msds-list>"
    "<sheet product='sac_gel' legalarea='EU' company='Morvane' language='D' address='s/1'/>"
    "</tarnvik-msds-list>";
const std::string kPdf = "%PDF-1.4 sheet";

class DataSheetDialogTest : public NetworkTest
{
protected:
    void TearDown() override
    {
        m_dialog.reset();
        std::filesystem::remove_all(std::filesystem::path(std::getenv("TARNVIK_USER_DATA")) / "cache");
        NetworkTest::TearDown();
    }
    void Make(const wxString& product = {})
    {
        m_server = std::make_unique<LoopbackServer>(
            [this](ServerConnection& connection, const HttpRequest& request) {
                if (request.target == "/pds/list")
                    connection.Answer(m_code, kProducts);
                else if (request.target == "/msds/list")
                    connection.Answer(m_code, kSafety);
                else
                    connection.Answer(m_code, kPdf + request.target);
            });
        SetTestPage(*m_server);
        SetEndpoint(endpoints::kProductSheetList, wxString::FromUTF8(m_server->Url("/pds/list")));
        SetEndpoint(endpoints::kProductSheet, wxString::FromUTF8(m_server->Url("/pds/get")));
        SetEndpoint(endpoints::kSafetySheetList, wxString::FromUTF8(m_server->Url("/msds/list")));
        SetEndpoint(endpoints::kSafetySheet, wxString::FromUTF8(m_server->Url("/msds/get")));
        m_frame->Show();
        m_dialog = std::make_unique<DataSheetDialog>(m_frame, product);
        m_dialog->SetOpener([this](const wxString& file) {
            m_opened = file;
            return m_canOpen;
        });
        m_dialog->Show();
        m_dialog->LoadLists();
        Pump();
    }
    RowList& List() { return Find<RowList>(*m_dialog, "Data sheets"); }
    std::vector<std::string> Rows()
    {
        std::vector<std::string> rows;
        for (long line = 0; line < List().GetItemCount(); ++line) {
            const RowList::Row& row = List().GetShownRow(line);
            rows.push_back((row[0].AfterLast('(') + "|" + row[1].BeforeFirst(' ') + "|" + row[2] + "|" +
                            row[3] + "|" + row[4] + "|" + row[5])
                               .utf8_string());
        }
        return rows;
    }
    void Choose(const wxString& name, const wxString& text)
    {
        auto& choice = Find<wxChoice>(*m_dialog, name);
        const int index = choice.FindString(text);
        ASSERT_NE(index, wxNOT_FOUND) << text;
        choice.SetSelection(index);
        wxCommandEvent event(wxEVT_CHOICE, choice.GetId());
        choice.ProcessWindowEvent(event);
    }
    std::string Opened() const { return support::ReadBytes(std::filesystem::path(m_opened.utf8_string())); }

    std::atomic<int> m_code = 200;
    bool m_canOpen = true;
    wxString m_opened;
    std::unique_ptr<LoopbackServer> m_server;
    std::unique_ptr<DataSheetDialog> m_dialog;
};

TEST_F(DataSheetDialogTest, ListsTheSheetsOfAProductAndALanguage)
{
    Make("sac_gel");
    EXPECT_THAT(Rows(), ElementsAre("sac_gel)|Product|English|final||", "sac_gel)|Product|Deutsch|unknown||",
                                    "sac_gel)|Safety|Deutsch||EU|Morvane"));
    EXPECT_EQ(List().GetShownRow(0)[0], "Strong-acid cation resin, gel (sac_gel)");
    Choose("Language", "English");
    EXPECT_THAT(Rows(), ElementsAre("sac_gel)|Product|English|final||"));
    Choose("Product", "All products");
    EXPECT_THAT(Rows(),
                ElementsAre("sac_gel)|Product|English|final||", "sba_1)|Product|English|preliminary||"));
    Choose("Language", "All languages");
    EXPECT_EQ(Rows().size(), 5U);
    Choose("Product", "Other 7");
    EXPECT_THAT(Rows(), ElementsAre("Other 7|Product|Norsk|unknown||"));
    m_dialog->LoadLists();
    EXPECT_EQ(Rows().size(), 1U) << "what was chosen stays";
    Choose("Product", "All products");
    Focus(Find<wxSearchCtrl>(*m_dialog, "Search"));
    Type("STRONG deutsch");
    Pump();
    EXPECT_EQ(Rows().size(), 2U);
    EXPECT_NO_THROW(Labelled<wxStaticText>(*m_dialog, "Data sheets: 2"));
    EXPECT_THAT(Find<wxChoice>(*m_dialog, "Product").GetStrings().size(), 10U) << "all, 8 resins, another";
}

TEST_F(DataSheetDialogTest, OpensASheetByTheKeyboardAndKeepsItInTheCache)
{
    Make("sac_gel");
    Focus(Find<wxSearchCtrl>(*m_dialog, "Search"));
    Press(WXK_DOWN);
    Press(WXK_RETURN);
    ASSERT_TRUE(PumpUntil([this] { return !m_opened.empty(); }));
    EXPECT_EQ(Opened(), kPdf + "/pds/get");
    EXPECT_THAT(m_opened.utf8_string(),
                HasSubstr(std::string(std::getenv("TARNVIK_USER_DATA")) + "/cache/sheets/pds-sac_gel-en-"));
    m_opened.clear();
    Press(WXK_DOWN);
    Press(WXK_DOWN);
    m_dialog->LoadLists();
    EXPECT_EQ(List().GetSelectedRow(), 2U) << "also where the first texts of rows are the same";
    Click(Labelled<wxButton>(*m_dialog, "&Open"));
    ASSERT_TRUE(PumpUntil([this] { return !m_opened.empty(); }));
    EXPECT_EQ(Opened(), kPdf + "/msds/get");
}

TEST_F(DataSheetDialogTest, OffersTheFormerSheetWhereTheServiceFails)
{
    Make("sba_1");
    DialogAnswers answers;
    std::vector<std::string> said;
    const auto answer = [&said](int code) {
        return [&said, code](wxDialog& dialog) {
            auto& message = dynamic_cast<wxMessageDialog&>(dialog);
            said.push_back((message.GetMessage() + " " + message.GetExtendedMessage()).utf8_string());
            return code;
        };
    };
    auto& open = Labelled<wxButton>(*m_dialog, "&Open");
    m_code = 404;
    // Other settings of the connection are worth another try.
    answers.Expect(answer(wxID_OK));
    answers.Expect([](wxDialog& dialog) {
        EXPECT_EQ(dialog.GetTitle(), "Connection");
        return wxID_OK;
    });
    answers.Expect(answer(wxID_CANCEL));
    Click(open);
    ASSERT_TRUE(PumpUntil([&] { return said.size() == 2; }));
    EXPECT_THAT(said[0], HasSubstr("Product data sheet currently not available. (404)"));
    EXPECT_THAT(said[0], HasSubstr("check the settings of the connection (proxy) or try again later"));
    EXPECT_EQ(said[1], said[0]);
    EXPECT_EQ(m_opened, "");
    said.pop_back();

    m_code = 200;
    m_canOpen = false;
    answers.Expect(answer(wxID_OK));
    Click(open);
    ASSERT_TRUE(PumpUntil([&] { return said.size() == 2; }));
    EXPECT_THAT(said[1], HasSubstr("There is no program that opens"));
    m_canOpen = true;

    m_code = 500;
    for (const int code : {wxID_NO, wxID_YES}) {
        m_opened.clear();
        answers.Expect(answer(code));
        Click(open);
        ASSERT_TRUE(PumpUntil([&] { return said.size() == (code == wxID_NO ? 3U : 4U); }));
        Pump();
        EXPECT_THAT(said.back(), HasSubstr("Open the sheet as it was fetched on"));
        EXPECT_THAT(said.back(), HasSubstr("currently not available. (500)"));
        EXPECT_EQ(m_opened.empty(), code == wxID_NO);
    }
    EXPECT_EQ(Opened(), kPdf + "/pds/get");
}

TEST_F(DataSheetDialogTest, SaysWhatListIsMissingAndKeepsWhatItHas)
{
    const wxLogNull quiet;
    m_code = 503;
    Make();
    EXPECT_TRUE(Rows().empty());
    EXPECT_FALSE(Labelled<wxButton>(*m_dialog, "&Open").IsEnabled());
    EXPECT_TRUE(Find<wxInfoBar>(*m_dialog).IsShown());
    m_code = 200;
    Network::Initialize();
    DialogAnswers answers;
    answers.Expect([](wxDialog& dialog) {
        EXPECT_EQ(dialog.GetTitle(), "Connection");
        return wxID_OK;
    });
    auto& settings = Labelled<wxButton>(*m_dialog, "Connection settings...");
    EXPECT_TRUE(settings.IsShown());
    settings.SetFocus();
    Press(WXK_SPACE);
    ASSERT_TRUE(PumpUntil([this] { return Rows().size() == 5; }));
    EXPECT_FALSE(Find<wxInfoBar>(*m_dialog).IsShown());
    EXPECT_FALSE(settings.IsShown());
    m_code = 404;
    Click(Labelled<wxButton>(*m_dialog, "&Renew list"));
    ASSERT_TRUE(PumpUntil([this] { return Find<wxInfoBar>(*m_dialog).IsShown(); }));
    EXPECT_EQ(Rows().size(), 5U);
}

}  // namespace

}  // namespace network_test
