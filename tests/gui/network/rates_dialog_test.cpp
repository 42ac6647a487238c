// SPDX-License-Identifier: MIT
// The table of currencies and its dialog: searched, set and renewed by the keyboard.
#include "gui_base/network/rates_dialog.h"

#include "gui_base/dialogs/row_list.h"
#include "tests/gui/network/network_fixture.h"

#include <wx/clipbrd.h>
#include <wx/log.h>
#include <wx/srchctrl.h>

#include <cmath>

namespace network_test {

namespace {

using namespace gui_test;
using currency_table::ParseRate;
using currency_table::RateText;

constexpr const char* kRates =
    "<UN_OPERATIONAL_RATES_DATASET>"
    "<UN_OPERATIONAL_RATES f_curr_code='EUR' rate='0.8'/><UN_OPERATIONAL_RATES f_curr_code='CHF' rate='1'/>"
    "</UN_OPERATIONAL_RATES_DATASET>";

struct LastMessage : wxLog
{
    void DoLogRecord(wxLogLevel, const wxString& message, const wxLogRecordInfo&) override { text = message; }
    wxString text;
};

class RatesDialogTest : public NetworkTest
{
protected:
    void SetUp() override
    {
        NetworkTest::SetUp();
        ProjectDatabase::SetConversionRates({{"EUR", 1.0}, {"CHF", 0.9376543}, {"XAU", 0.000298765}});
        m_frame->Show();
        m_dialog = std::make_unique<RatesDialog>(m_frame);
        m_dialog->Show();
        Pump();
    }
    void TearDown() override
    {
        m_dialog.reset();
        NetworkTest::TearDown();
    }
    RowList& List() { return Find<RowList>(*m_dialog, "Currencies"); }
    wxTextCtrl& Rate(const wxString& code)
    {
        return Find<wxTextCtrl>(*m_dialog, "Rate for 1 EUR [" + code + "]");
    }
    wxButton& Button(const wxString& label) { return Labelled<wxButton>(*m_dialog, label); }
    /// What the list shows of a currency, its columns separated by "|".
    wxString Shown(const wxString& code)
    {
        for (long line = 0; line < List().GetItemCount(); ++line) {
            const RowList::Row& row = List().GetShownRow(line);
            if (row[0] == code)
                return row[0] + "|" + row[1] + "|" + row[2] + "|" + (row[3].empty() ? "" : "day") + "|" +
                       row[4];
        }
        return "none";
    }
    void Search(const wxString& text)
    {
        Focus(Find<wxSearchCtrl>(*m_dialog, "Search"));
        Type(text);
        Pump();
    }

    std::unique_ptr<RatesDialog> m_dialog;
};

TEST_F(RatesDialogTest, ShowsEveryCurrencyAndFindsThemByWords)
{
    EXPECT_GT(List().GetItemCount(), 150);
    EXPECT_EQ(Shown("CHF"), "CHF|Swiss Franc|0.9377|day|service");
    EXPECT_EQ(Shown("EUR"), "EUR|Euro|1.0000|day|service");
    EXPECT_EQ(Shown("JPY"), "JPY|Yen||" + wxString("|"));
    EXPECT_EQ(Shown("XAU"), "XAU|Gold|0.000298765|day|service");
    Search("DOLLAR aus");
    ASSERT_EQ(List().GetItemCount(), 1);
    EXPECT_EQ(List().GetShownRow(0)[0], "AUD");
    EXPECT_TRUE(Rate("AUD").IsEmpty());
    EXPECT_FALSE(Button("&Copy rate").IsEnabled());
}

TEST_F(RatesDialogTest, StoresATypedRateByTheKeyboardAlone)
{
    Search("yen");
    Press(WXK_DOWN);
    EXPECT_TRUE(List().HasFocus());
    Press(WXK_RETURN);
    EXPECT_TRUE(Rate("JPY").HasFocus());
    Type("171.256789");
    Press(WXK_RETURN);
    Pump();
    EXPECT_EQ(ProjectDatabase::GetConversionRate("JPY"), 171.256789);
    EXPECT_EQ(Shown("JPY"), "JPY|Yen|171.2568|day|typed");
    EXPECT_EQ(Rate("JPY").GetValue(), "171.2568");
    // What is not shown of it stays where nothing was typed.
    Press(WXK_RETURN);
    EXPECT_EQ(ProjectDatabase::GetConversionRate("JPY"), 171.256789);
}

TEST_F(RatesDialogTest, TakesNoRateThatIsNone)
{
    Search("yen");
    for (const char* text : {"0", "-3", "abc", "1e12", "0.0000001", "nan"}) {
        Enter(Rate("JPY"), text);
        EXPECT_FALSE(Button("&Set rate").IsEnabled()) << text;
        EXPECT_TRUE(Rate("JPY").GetToolTipText().Contains("0.000001")) << text;
        Focus(Rate("JPY"));
        Press(WXK_RETURN);
    }
    EXPECT_TRUE(std::isnan(ProjectDatabase::GetConversionRate("JPY")));
    Enter(Rate("JPY"), "170");
    EXPECT_TRUE(Button("&Set rate").IsEnabled());
    EXPECT_EQ(Rate("JPY").GetToolTipText(), "");
    Focus(Find<wxSearchCtrl>(*m_dialog, "Search"));
    Press('A', wxMOD_CONTROL);
    Type("EUR");
    Pump();
    EXPECT_GT(List().GetItemCount(), 1) << "CHE is the WIR Euro";
    EXPECT_FALSE(Rate("EUR").IsEnabled()) << "the base is 1";
    EXPECT_FALSE(Button("&Set rate").IsEnabled());
}

TEST_F(RatesDialogTest, RenewsTheRatesOrSaysWhyNot)
{
    const LoopbackServer server(Answers(200, kRates));
    SetTestPage(server);
    SetEndpoint(endpoints::kCurrencyRates, wxString::FromUTF8(server.Url("/rates.xml")));
    DialogAnswers answers;
    wxString said;
    const auto note = [&said](wxDialog& dialog) {
        auto& message = dynamic_cast<wxMessageDialog&>(dialog);
        said = dialog.GetTitle() + ": " + message.GetMessage() + "|" + message.GetExtendedMessage();
        return wxID_CANCEL;
    };
    LastMessage log;
    wxLog* const formerLog = wxLog::SetActiveTarget(&log);
    Search("chf");
    answers.Expect(note);
    Click(Button("&Update rates"));
    ASSERT_TRUE(PumpUntil([&] { return !said.empty(); }));
    EXPECT_EQ(said,
              "Conversion Rate Update Error: Update of conversion rates failed.|"
              "Invalid data received from currency server.\nRates are missing: XAU.\n\n"
              "If the network is the cause, check the settings of the connection (proxy) or try again later. "
              "A rate can also be typed: Tools, Currency rates, Set rate.");
    EXPECT_EQ(Shown("CHF"), "CHF|Swiss Franc|0.9377|day|service") << "the old ones stay";
    EXPECT_TRUE(log.text.Contains("Rates are missing: XAU."));
    // Other settings of the connection are worth another try.
    said.clear();
    answers.Expect([](wxDialog&) { return wxID_OK; });
    answers.Expect([](wxDialog& dialog) {
        EXPECT_EQ(dialog.GetTitle(), "Connection");
        ProjectDatabase::SetConversionRate("XAU", 0.0003);
        return wxID_OK;
    });
    answers.Expect(note);
    Click(Button("&Update rates"));
    ASSERT_TRUE(PumpUntil([&] { return !said.empty(); }));
    EXPECT_EQ(said, "Conversion Rate Update Info: Conversion rates have been updated successfully.|");
    wxLog::SetActiveTarget(formerLog);
    Focus(Find<wxSearchCtrl>(*m_dialog, "Search"));
    Press('A', wxMOD_CONTROL);
    Press(WXK_DELETE);
    said.clear();
    answers.Expect(note);
    Click(Button("&Update rates"));
    ASSERT_TRUE(PumpUntil([&] { return !said.empty(); }));
    EXPECT_EQ(said, "Conversion Rate Update Info: Conversion rates have been updated successfully.|");
    EXPECT_EQ(Shown("CHF"), "CHF|Swiss Franc|1.2500|day|service");
    EXPECT_EQ(Rate("CHF").GetValue(), "1.2500") << "the selected currency stays";
    Click(Button("&Copy rate"));
    wxTextDataObject text;
    ASSERT_TRUE(wxTheClipboard->Open());
    EXPECT_TRUE(wxTheClipboard->GetData(text));
    wxTheClipboard->Close();
    EXPECT_EQ(text.GetText(), "1.2500");
}

TEST(CurrencyTable, ShowsAndReadsRatesInTheUsersNotation)
{
    const LocaleGuard german("de_DE.UTF-8");
    EXPECT_EQ(RateText(1234.56789), "1234,5679");
    EXPECT_EQ(RateText(std::nan("")), "");
    EXPECT_EQ(RateText(1e-6), "0,000001");
    EXPECT_EQ(ParseRate("1.234,5"), 1234.5);
    EXPECT_EQ(ParseRate(" 0,000001 "), 1e-6);
    EXPECT_EQ(ParseRate("0,0000009"), std::nullopt);
    EXPECT_EQ(ParseRate("1000000000,1"), std::nullopt);
    EXPECT_EQ(ParseRate(""), std::nullopt);
}

}  // namespace

}  // namespace network_test
