// SPDX-License-Identifier: MIT
#include "gui_base/support/translation.h"

#include "gui_base/input/controls/tv_statictext.h"
#include "tests/support/gui_test.h"

namespace {

using namespace gui_test;

using TranslationTest = GuiTest;

TEST_F(TranslationTest, TranslationFallsBackToTheSource)
{
    EXPECT_EQ(i18n::Translated(wxString()), "");
    EXPECT_EQ(i18n::Translated("No entry"), "No entry");
    const TestCatalogue catalogue(
        std::vector<std::pair<std::string, std::string>>{{"\u00b0d", "\u00b0dH"}, {"Empty", ""}});
    EXPECT_EQ(i18n::Translated("\u00b0d").utf8_string(), "\u00b0dH");
    EXPECT_EQ(i18n::Translated(""), "") << "the header of the catalogue is no translation";
    EXPECT_EQ(i18n::Translated("Empty"), "Empty");
}

TEST_F(TranslationTest, ColonsStandAsTheLanguageHasThem)
{
    const wxString french = wxString::FromUTF8("\u00a0:");
    EXPECT_EQ(i18n::Colon(), ":");
    const TestCatalogue catalogue(std::vector<std::pair<std::string, std::string>>{
        {":", "\u00a0:"}, {"Country", "Pays"}, {"Sodium:", "Sodium\u00a0:"}});
    EXPECT_EQ((new TvStaticText(m_frame, wxID_ANY, "Country", ":"))->GetLabelText(), "Pays" + french);
    EXPECT_EQ((new TvStaticText(m_frame, wxID_ANY, "Country", " [%]"))->GetLabelText(), "Pays [%]");
    for (const char* label : {"Sodium", "Sodium:"})
        EXPECT_EQ(i18n::WithoutColon(i18n::Translated(label)), "Sodium") << label;
    EXPECT_EQ(i18n::WithoutColon("+ Na:"), "+ Na");
    EXPECT_EQ(i18n::WithoutColon(wxString()), "");
}

}  // namespace
