// SPDX-License-Identifier: MIT
// Currency rates and data sheets in the program, in another language.
#include "gui_base/dialogs/row_list.h"
#include "gui_base/network/data_sheet_dialog.h"
#include "gui_base/network/endpoints.h"
#include "gui_base/network/network.h"
#include "gui_base/network/rates_dialog.h"
#include "projectbase/settings/settings.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>
#include <wx/choice.h>
#include <wx/utils.h>

namespace {

using namespace gui_test;
using testing::ElementsAre;

class ServicesInTheProgram : public ProgramTest
{
protected:
    ServicesInTheProgram() : ProgramTest(nullptr) {}
    void SetUp() override
    {
        ProgramTest::SetUp();
        for (const char* name : {"http_proxy", "https_proxy", "HTTPS_PROXY"})
            wxUnsetEnv(name);
        Network::Initialize();
        // Nobody listens there.
        Settings::GetSetting(endpoints::kConnectionTest).SetValue("127.0.0.1:9/page");
        m_frame->View().SetLanguage("de");
    }
    void TearDown() override
    {
        m_frame->View().SetLanguage("en");
        Settings::Reset();
        ProgramTest::TearDown();
    }
};

TEST_F(ServicesInTheProgram, RatesAreReachedByTheMenuInTheLanguageOfTheProgram)
{
    m_dialogs.Expect([](wxDialog& dialog) {
        EXPECT_NE(dynamic_cast<RatesDialog*>(&dialog), nullptr);
        EXPECT_EQ(dialog.GetTitle(), "Wechselkurse");
        auto& list = Find<RowList>(dialog, wxString::FromUTF8("W\u00e4hrungen"));
        list.SetSearch("CHF");
        EXPECT_EQ(list.GetShownRow(0)[1], "Schweizer Franken");
        return wxID_CANCEL;
    });
    Menu("Extras", "Wechselkurse...");
}

TEST_F(ServicesInTheProgram, AFailedRenewalIsToldAndStaysInTheMessageArea)
{
    wxString said;
    m_dialogs.Expect([&said](wxDialog& dialog) {
        auto& message = dynamic_cast<wxMessageDialog&>(dialog);
        said = message.GetMessage() + "|" + message.GetExtendedMessage();
        return wxID_CANCEL;
    });
    EXPECT_FALSE(UpdateConversionRates(m_frame));
    EXPECT_TRUE(
        said.StartsWith("Die Wechselkurse konnten nicht aktualisiert werden.|Kein Netzwerk gefunden.\n\n"
                        "Liegt es am Netz, "))
        << said;
    Pump();
    EXPECT_THAT(Messages(), ElementsAre("Kein Netzwerk gefunden."));
}

TEST_F(ServicesInTheProgram, DataSheetsAreReachedByTheMenuInTheLanguageOfTheProgram)
{
    m_dialogs.Expect([](wxDialog& dialog) {
        EXPECT_NE(dynamic_cast<DataSheetDialog*>(&dialog), nullptr);
        EXPECT_EQ(dialog.GetTitle(), wxString::FromUTF8("Datenbl\u00e4tter"));
        auto& products = Find<wxChoice>(dialog, "Produkt");
        EXPECT_EQ(products.GetString(0), "Alle Produkte");
        EXPECT_EQ(products.GetString(1), "Stark saures Kationenharz, Gel (sac_gel)");
        return wxID_CANCEL;
    });
    Menu(m_frame->GetMenuBar()->FindMenuItem("Extras", wxString::FromUTF8("Datenbl\u00e4tter...")));
}

}  // namespace
