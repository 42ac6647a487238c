// SPDX-License-Identifier: MIT
#include "projectbase/details/date_text.h"

#include "tests/support/locale_scope.h"

#include <gtest/gtest.h>

#include <ctime>

TEST(DateText, IsTheSameInEveryLocale)
{
    const wxDateTime day(9, wxDateTime::Feb, 2024, 23, 59, 59);
    const auto moment = std::chrono::system_clock::from_time_t(day.GetTicks());
    for (const char* locale : {"C", "en_US.UTF-8", "de_DE.UTF-8", "fr_FR.UTF-8"}) {
        const support::LocaleScope scope(locale);
        EXPECT_EQ(DateText(day), "2024-02-09") << locale;
        EXPECT_EQ(MomentText(moment), "2024-02-09 23:59") << locale;
        EXPECT_EQ(DateText(wxDateTime()), "") << locale;
    }
}
