// SPDX-License-Identifier: MIT
#include "gui_base/support/help_file_provider.h"

#include "tests/support/gui_test.h"
#include "tests/support/temp_folder.h"
#include "tests/support/zip_bytes.h"
#include "tncommon/data_dir.h"

#include <wx/frame.h>
#include <wx/html/htmlwin.h>

#include <algorithm>
#include <fstream>

namespace {

using namespace gui_test;

class HelpFileProviderTest : public GuiTest
{
protected:
    /// Folder of the book, page and anchor that the help window shows, "de: page.html#anchor".
    static std::string Shown(const TVHelpFileProvider& provider)
    {
        const wxString page = provider.GetShownPage();
        const wxString folder =
            page.BeforeLast('#').empty() ? wxString() : page.Left(page.Find("/tarnvik6.htb"));
        return (folder.AfterLast('/') + ": " + page.Mid(page.Find("#zip:") + 5)).utf8_string();
    }
    static std::size_t CountWindows()
    {
        return static_cast<std::size_t>(std::ranges::count_if(wxTopLevelWindows, [](wxWindow* window) {
            return window->IsShown() && !window->IsBeingDeleted();
        }));
    }
};

void WriteBook(const std::filesystem::path& folder, const std::vector<std::string>& pages)
{
    std::vector<support::ZipEntryText> entries{
        {"tarnvik.hhp", "", "[OPTIONS]\nTitle=Book\nContents file=tarnvik.hhc\nDefault topic=a.html\n"},
        {"tarnvik.hhc", "", "<html><body><ul></ul></body></html>"}};
    for (const std::string& page : pages)
        entries.push_back({page, "", "<html><body><h1><a name=\"x\"></a>" + page + "</h1></body></html>"});
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "tarnvik6.htb", std::ios::binary) << support::ZipBytes(entries);
}

TEST_F(HelpFileProviderTest, TheHelpBookIsFound)
{
    const std::string folder = (tncommon::DataDir() / "help").string();
    EXPECT_NO_THROW(TVHelpFileProvider{folder});
    const auto failure = [](const std::string& path, const std::string& file) -> std::string {
        try {
            const TVHelpFileProvider provider(path, file);
        } catch (const std::exception& error) {
            return error.what();
        }
        return {};
    };
    EXPECT_EQ(failure("", "tarnvik6.htb"), "TVHelpFileProvider: localePath must not be empty");
    EXPECT_EQ(failure(folder, "nosuch.htb"), "TVHelpFileProvider: Failed to load default help file");
    const support::TempFolder empty;
    std::ofstream(empty / "tarnvik6.htb", std::ios::binary) << "no book";
    EXPECT_EQ(failure((empty / "").string(), "tarnvik6.htb"),
              "TVHelpFileProvider: Failed to load default help file");
    const TVHelpFileProvider provider(folder);
    EXPECT_FALSE(provider.ChangeHelpFile("nosuch.htb"));
}

TEST_F(HelpFileProviderTest, TheBookIsThatOfTheLanguage)
{
    const TVHelpFileProvider provider((tncommon::DataDir() / "help").string());
    EXPECT_EQ(provider.GetShownPage(), "");
    // A title with letters beyond ASCII is found in the contents, too.
    struct Case
    {
        const char* language;
        const char* section;
        const char* shown;
    };
    for (const Case& item : {
             Case{"en", "design.html", "help: design.html"},
             Case{"de", "design.html", "de: design.html"},
             Case{"de_AT", "wateradvice.html#silica", "de: wateradvice.html#silica"},
             Case{"de", "Anlagen\u00fcbersicht", "de: overview.html"},
             Case{"fr", "R\u00e9g\u00e9n\u00e9ration", "fr: regeneration.html"},
             Case{"fr", "charts.htm#zoom", "fr: charts.htm#zoom"},
             Case{"pt", "charts.htm#zoom", "help: charts.htm#zoom"},
             Case{"fr", "Plant overview", "help: overview.html"},
         }) {
        const TestCatalogue catalogue(TestCatalogue::Language{item.language});
        provider.DisplayHelpSection(item.section);
        EXPECT_EQ(Shown(provider), item.shown) << item.language << " " << item.section;
    }
    const TestCatalogue catalogue(TestCatalogue::Language{"de"});
    provider.DisplayHelpContent();
    EXPECT_EQ(Shown(provider), "de: index.html");
}

TEST_F(HelpFileProviderTest, APageThatALanguageLacksIsShownInEnglish)
{
    const support::TempFolder folder;
    const std::filesystem::path help = folder / "help";
    WriteBook(help, {"a.html", "b.html"});
    WriteBook(help / "de", {"a.html"});
    std::filesystem::create_directories(help / "fr");
    std::ofstream(help / "fr" / "tarnvik6.htb", std::ios::binary) << "no book";
    const TVHelpFileProvider provider(help.string());
    for (const auto& [language, page, shown] : {std::tuple{"de", "a.html", "de: a.html"},
                                                {"de", "b.html", "help: b.html"},
                                                {"de", "b.html#x", "help: b.html#x"},
                                                {"fr", "a.html", "help: a.html"},
                                                {"de", "a.html", "de: a.html"}}) {
        const TestCatalogue catalogue(TestCatalogue::Language{language});
        provider.DisplayHelpSection(page);
        EXPECT_EQ(Shown(provider), shown) << language << " " << page;
    }
}

TEST_F(HelpFileProviderTest, ASwitchOfTheLanguageTurnsTheOpenPage)
{
    const TVHelpFileProvider provider((tncommon::DataDir() / "help").string());
    const std::size_t before = CountWindows();
    provider.Localize();
    EXPECT_EQ(CountWindows(), before) << "nobody asked for help";
    provider.DisplayHelpSection("wateradvice.html#silica");
    for (const char* language : {"de", "fr", "de", "en"}) {
        const TestCatalogue catalogue(TestCatalogue::Language{language});
        provider.Localize();
        Pump();
        const std::string folder = language == std::string("en") ? "help" : language;
        EXPECT_EQ(Shown(provider), folder + ": wateradvice.html#silica");
        EXPECT_EQ(CountWindows(), before + 1) << "one help window at a time";
    }
}

TEST_F(HelpFileProviderTest, EscapeClosesTheWindowAndItOpensAgain)
{
    const TVHelpFileProvider provider((tncommon::DataDir() / "help").string());
    const std::size_t before = CountWindows();
    for (int i = 0; i < 2; ++i) {
        provider.DisplayHelpSection("design.html");
        ASSERT_TRUE(PumpUntil([&] { return CountWindows() == before + 1; }));
        wxWindow* const window = wxTopLevelWindows.GetLast()->GetData();
        Focus(Find<wxHtmlWindow>(*window));
        Press(WXK_ESCAPE);
        EXPECT_TRUE(PumpUntil([&] { return CountWindows() == before; }));
        EXPECT_EQ(provider.GetShownPage(), "");
    }
}

}  // namespace
