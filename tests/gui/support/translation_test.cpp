// SPDX-License-Identifier: MIT
#include "gui_base/support/translation.h"

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

}  // namespace
