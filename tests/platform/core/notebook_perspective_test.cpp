// SPDX-License-Identifier: MIT
#include "core/notebook_perspective.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace perspective;

std::string Fitted(std::string_view text, std::size_t pageCount)
{
    Arrangement arrangement = Parse(text);
    FitToPages(arrangement, pageCount);
    return Print(arrangement);
}

TEST(NotebookPerspective, PrintsMarksAndParsesThemBack)
{
    const Arrangement arrangement{
        {{"name1", {{0, Mark::None}, {2, Mark::Selected}}}, {"name2", {{1, Mark::Active}}}, {"empty", {}}},
        "layout2|name=a@b|"};
    const std::string text = "name1=0,*2|name2=+1|empty=@layout2|name=a@b|";
    EXPECT_EQ(Print(arrangement), text);
    EXPECT_EQ(Parse(text), arrangement);
    EXPECT_EQ(Print({}), "@");
    EXPECT_EQ(Parse("@"), Arrangement());
}

TEST(NotebookPerspective, FitsDamagedTextsToThePages)
{
    struct Case
    {
        const char* text;
        std::size_t pages;
        const char* expected;
    };
    const std::vector<Case> cases{
        // Sound texts stay as they are.
        {"a=0,*1,2@x", 3, "a=0,*1,2@x"},
        {"a=+0,2|b=*1@x", 3, "a=+0,2|b=*1@x"},
        // Pages that do not exist, stand twice or are missing.
        {"a=0,*7,1@x", 2, "a=+0,1@x"},
        {"a=0,*1|b=1,+2@x", 3, "a=0,*1|b=+2@x"},
        {"a=*1|b=+3@x", 5, "a=*1,0,2,4|b=+3@x"},
        {"a=7|b=*1@x", 2, "b=*1,0@x"},
        // Marks: too many, too few, cut off.
        {"a=*0,*1|b=+2,*3@x", 4, "a=*0,1|b=2,+3@x"},
        {"a=0,+1,+2@x", 3, "a=0,+1,2@x"},
        {"a=*,+,*+1@x", 1, "@x"},
        // Names: the placeholder's, one used twice, none.
        {"dummy=0|a=*1@x", 2, "=+0|a=*1@x"},
        {"a=0|a=*1@x", 2, "a=+0|=*1@x"},
        {"=0|=*1@x", 2, "=+0|=*1@x"},
        // No texts of this kind.
        {"a=0,1", 2, "a=+0,1@"},
        {"layout2|name=0;state=1|", 3, "@"},
        {"a=-1,1.5,0x1,99999999999999999999999,@x", 2, "@x"},
        {"|||=|,,@@|", 2, "@@|"},
        {"", 2, "@"},
        {"a=*0@x", 0, "@x"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Fitted(c.text, c.pages), c.expected) << c.text;
}

TEST(NotebookPerspective, SoundLayoutKeepsWhatTheManagerUnderstands)
{
    const std::string sound =
        "layout2|name=dummy;caption=;state=2098174;dir=3;layer=0;row=0;pos=0;prop=100000;bestw=180;besth=180;"
        "minw=180;minh=180;maxw=-1;maxh=-1;floatx=-1;floaty=-1;floatw=-1;floath=-1|"
        "name=a\\|b\\;c;caption=x;state=508;dir=5;layer=0;row=0;pos=0;prop=100000|dock_size(5,0,0)=200|";
    const unsigned all = ~0u;
    EXPECT_EQ(SoundLayout(sound, all), sound);

    const std::string place = ";dir=1;layer=0;row=0;pos=0;prop=1";
    const std::string b = "name=b;state=4" + place + "|";
    const std::vector<std::pair<std::string, std::string>> cases{
        {"layout2|name=a;state=7" + place, "layout2|name=a;state=4" + place + "|"},
        // Cut off, nameless, with a field that is unknown.
        {"layout2|name=a;sta", "layout2|"},
        {"layout2|name=a;state=4;dir=1;layer=0;row=0|" + b, "layout2|" + b},
        {"layout2|state=4" + place + "|" + b, "layout2|" + b},
        {"layout2|name=a;colour=red;state=4" + place + "|" + b, "layout2|" + b},
        // Numbers out of all reason, and no numbers.
        {"layout2|name=a;state=4;dir=1;layer=2000000000;row=0;pos=0;prop=1|" + b, "layout2|" + b},
        {"layout2|name=a;state=4;dir=6;layer=0;row=0;pos=0;prop=1|" + b, "layout2|" + b},
        {"layout2|name=a;state=4;dir=1;layer=0;row=-1;pos=0;prop=1|" + b, "layout2|" + b},
        {"layout2|name=a;state=4;dir=1;layer=0;row=0;pos=0;prop=99999999|" + b, "layout2|" + b},
        {"layout2|name=a;state=x" + place + "|" + b, "layout2|" + b},
        {"layout2|name=a;state=4" + place + ";bestw=1e3|" + b, "layout2|" + b},
        {"layout2|name=a;state=4" + place + ";minw=99999999999|" + b, "layout2|" + b},
        {"layout2|dock_size(5,0,0)=20|dock_size(4,0)=9|dock_size(1,0,0=9|dock_size(|dock_size(1,0,0)=|",
         "layout2|dock_size(5,0,0)=20|"},
        {"layout2|dock_size(1,2000000000,0)=9|dock_size(9,0,0)=9|dock_size(1,0,0)=99999|", "layout2|"},
        {"layout2|name=a\\|;state=4" + place, "layout2|name=a\\|;state=4" + place + "|"},
        {"layout2", "layout2|"},
        {"layout2||||", "layout2|"},
        {"nonsense|name=a|", ""},
        {"", ""},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(SoundLayout(text, ~3u), expected) << text;
}

TEST(NotebookPerspective, AnyTextGivesEveryPageOnce)
{
    std::mt19937 random(7);
    const std::string letters = "01234567,|=@*+ab-";
    for (int run = 0; run < 5000; ++run) {
        std::string text;
        const std::size_t length = random() % 30;
        for (std::size_t i = 0; i < length; ++i)
            text += letters[random() % letters.size()];
        Arrangement arrangement = Parse(text);
        FitToPages(arrangement, 6);
        if (arrangement.groups.empty())
            continue;
        std::vector<int> seen(6);
        int selected = 0;
        for (const Group& group : arrangement.groups) {
            ASSERT_FALSE(group.pages.empty()) << text;
            int marked = 0;
            for (const Page& page : group.pages) {
                ++seen.at(page.index);
                marked += page.mark != Mark::None ? 1 : 0;
                selected += page.mark == Mark::Selected ? 1 : 0;
            }
            EXPECT_EQ(marked, 1) << text;
        }
        EXPECT_LE(selected, 1) << text;
        EXPECT_EQ(seen, std::vector<int>(6, 1)) << text;
        const std::string printed = Print(arrangement);
        EXPECT_EQ(Fitted(printed, 6), printed) << text;
    }
}

}  // namespace
