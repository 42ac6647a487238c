// SPDX-License-Identifier: MIT
#include "gui_base/input/panel/aui_notebook.h"

#include "tests/support/gui_test.h"

#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/stopwatch.h>
#include <wx/textctrl.h>
#include <wx/timer.h>
#include <wx/uiaction.h>

#include <map>
#include <random>

namespace {

using namespace gui_test;

class AuiNotebookTest : public GuiTest
{
protected:
    AuiNotebook* Make(int pages)
    {
        auto* notebook = new AuiNotebook(m_frame, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                         wxAUI_NB_DEFAULT_STYLE | wxAUI_NB_TAB_EXTERNAL_MOVE);
        for (int i = 0; i < pages; ++i)
            notebook->AddPage(new wxTextCtrl(notebook, wxID_ANY), wxString::Format("Page %d", i));
        m_frame->SetSizer(new wxBoxSizer(wxVERTICAL));
        m_frame->GetSizer()->Add(notebook, wxSizerFlags(1).Expand());
        m_frame->Layout();
        Pump();
        return notebook;
    }
    static std::string Save(AuiNotebook& notebook) { return notebook.SavePerspective().utf8_string(); }
    static bool Load(AuiNotebook& notebook, const std::string& text)
    {
        const bool accepted = notebook.LoadPerspective(wxString::FromUTF8(text));
        Pump();
        return accepted;
    }
    /// The text before "@" with the groups named A, B, ... in order.
    static std::string Groups(AuiNotebook& notebook)
    {
        const std::string text = Save(notebook);
        std::string groups;
        char name = 'A';
        for (std::size_t i = 0, end = text.find('@'); i < end;) {
            const std::size_t equals = text.find('=', i);
            const std::size_t next = std::min(text.find('|', i), end);
            groups +=
                (groups.empty() ? "" : "|") + std::string(1, name++) + text.substr(equals, next - equals);
            i = next + 1;
        }
        return groups;
    }
    /// Every page is a tab of one group, and exactly the active ones are in sight with a size that can be
    /// read.
    static void ExpectSound(AuiNotebook& notebook, const std::string& context)
    {
        std::map<wxAuiTabCtrl*, int> shown;
        std::size_t tabs = 0;
        for (std::size_t i = 0; i < notebook.GetPageCount(); ++i) {
            wxWindow* page = notebook.GetPage(i);
            wxAuiTabCtrl* group = nullptr;
            int position = -1;
            ASSERT_TRUE(notebook.FindTab(page, &group, &position)) << context;
            EXPECT_EQ(page->IsShownOnScreen(), group->GetActivePage() == position)
                << context << " page " << i;
            if (!page->IsShown())
                continue;
            ++shown[group];
            tabs += group->GetPageCount();
            EXPECT_GT(page->GetSize().x, 10) << context << " page " << i;
            EXPECT_GT(page->GetSize().y, 10) << context << " page " << i << "\n" << Save(notebook);
        }
        EXPECT_EQ(tabs, notebook.GetPageCount()) << context;
        for (const auto& [group, pages] : shown)
            EXPECT_EQ(pages, 1) << context;
        const int selection = notebook.GetSelection();
        ASSERT_GE(selection, 0) << context;
        EXPECT_TRUE(notebook.GetPage(static_cast<std::size_t>(selection))->IsShown()) << context;
    }
    static void ClickTab(AuiNotebook& notebook, std::size_t page)
    {
        wxAuiTabCtrl* group = nullptr;
        int position = -1;
        ASSERT_TRUE(notebook.FindTab(notebook.GetPage(page), &group, &position));
        // A tab knows its place when it was painted, and the screen paints when it pleases.
        group->Refresh();
        const wxStopWatch watch;
        PumpUntil([&watch] { return watch.Time() > 100; });
        const wxRect tab = group->GetPage(static_cast<std::size_t>(position)).rect;
        wxUIActionSimulator simulator;
        simulator.MouseMove(group->ClientToScreen(tab.GetPosition() + wxPoint(12, tab.height / 2)));
        Pump();
        simulator.MouseClick();
        Pump();
    }
};

TEST_F(AuiNotebookTest, WritesGroupsMarksAndTheManagersLayout)
{
    AuiNotebook* notebook = Make(3);
    notebook->SetSelection(1);
    Pump();
    EXPECT_EQ(Groups(*notebook), "A=0,*1,2");
    const std::string text = Save(*notebook);
    EXPECT_EQ(text.substr(text.find('@') + 1),
              wxAuiManager::GetManager(notebook)->SavePerspective().utf8_string());
    EXPECT_EQ(text.substr(0, text.find('@')).find("dummy"), std::string::npos);
    EXPECT_NE(text.find("name=dummy"), std::string::npos) << "the placeholder exists all the same";

    notebook->Split(2, wxRIGHT);
    ClickTab(*notebook, 0);
    EXPECT_EQ(Groups(*notebook), "A=*0,1|B=+2");

    AuiNotebook* empty = Make(0);
    EXPECT_EQ(Groups(*empty), "");
    empty->GetActiveTabCtrl();
    EXPECT_EQ(Groups(*empty), "A=");
    EXPECT_FALSE(Load(*empty, text));
    // The toolkit frees an empty group only with a page that goes.
    empty->AddPage(new wxTextCtrl(empty, wxID_ANY), "Page");
    empty->DeletePage(0);
}

TEST_F(AuiNotebookTest, RoundTripsOverGeneratedSplits)
{
    constexpr int kPages = 6;
    constexpr int kDirections[]{wxLEFT, wxRIGHT, wxTOP, wxBOTTOM};
    std::mt19937 random(11);
    const auto upTo = [&random](int limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit));
    };
    for (int run = 0; run < 8; ++run) {
        AuiNotebook* notebook = Make(kPages);
        for (int splits = upTo(4); splits > 0; --splits)
            notebook->Split(static_cast<std::size_t>(upTo(kPages)), kDirections[upTo(4)]);
        notebook->SetSelection(static_cast<std::size_t>(upTo(kPages)));
        Pump();
        const std::string text = Save(*notebook);
        ExpectSound(*notebook, text);

        // Into the same notebook after other splits, then into a new one.
        notebook->Split(static_cast<std::size_t>(upTo(kPages)), kDirections[upTo(4)]);
        notebook->SetSelection(static_cast<std::size_t>(upTo(kPages)));
        EXPECT_TRUE(Load(*notebook, text));
        EXPECT_EQ(Save(*notebook), text) << run;
        ExpectSound(*notebook, text);
        std::vector<wxSize> sizes;
        for (std::size_t i = 0; i < kPages; ++i)
            sizes.push_back(notebook->GetPage(i)->IsShown() ? notebook->GetPage(i)->GetSize() : wxSize());
        notebook->Destroy();
        AuiNotebook* restarted = Make(kPages);
        EXPECT_TRUE(Load(*restarted, text));
        EXPECT_EQ(Save(*restarted), text) << run;
        ExpectSound(*restarted, text);
        for (std::size_t i = 0; i < kPages; ++i) {
            const wxWindow* page = restarted->GetPage(i);
            EXPECT_EQ(page->IsShown() ? page->GetSize() : wxSize(), sizes[i]) << run << " page " << i;
        }
        restarted->Destroy();
    }
}

TEST_F(AuiNotebookTest, RestoresGroupsOfSeveralPagesInTabOrder)
{
    AuiNotebook* notebook = Make(6);
    EXPECT_FALSE(Load(*notebook, "one=5,+0|two=+4,2|three=1,*3")) << "no layout";
    EXPECT_EQ(Save(*notebook).substr(0, Save(*notebook).find('@')), "one=5,+0|two=+4,2|three=1,*3");
    EXPECT_EQ(notebook->GetSelection(), 3);
    ExpectSound(*notebook, "three groups");
    ClickTab(*notebook, 2);
    EXPECT_EQ(Groups(*notebook), "A=5,+0|B=4,*2|C=1,+3");
    const std::string text = Save(*notebook);

    EXPECT_FALSE(Load(*notebook, "all=0,1,2,3,4,*5"));
    EXPECT_EQ(Groups(*notebook), "A=0,1,2,3,4,*5");
    EXPECT_TRUE(Load(*notebook, text));
    EXPECT_EQ(Save(*notebook), text);
}

TEST_F(AuiNotebookTest, DamagedTextsLoseNoPage)
{
    AuiNotebook* notebook = Make(5);
    ASSERT_FALSE(Load(*notebook, "a=0,+1|b=2,*3|c=+4@"));
    const std::string sound = Save(*notebook);
    const std::string layout = sound.substr(sound.find('@'));

    // Indices that name no page, pages that are not named, no "@".
    EXPECT_TRUE(Load(*notebook, "a=7,*1|b=+9|c=+4" + layout));
    EXPECT_EQ(Groups(*notebook), "A=*1,0,2,3|B=+4");
    ExpectSound(*notebook, "unknown and missing pages");
    const std::string before = Save(*notebook);
    for (const char* nothing : {"", "@", "layout2|name=a|", "a=9@layout2|", "|||"}) {
        EXPECT_FALSE(Load(*notebook, nothing)) << nothing;
        EXPECT_EQ(Save(*notebook), before) << nothing;
    }
    // Every cut, and single characters replaced.
    std::mt19937 random(3);
    for (std::size_t i = 0; i < sound.size(); i += 31) {
        Load(*notebook, sound.substr(0, i));
        ExpectSound(*notebook, sound.substr(0, i));
        std::string spoiled = sound;
        spoiled[i] = "0;|=@x-9"[random() % 8];
        Load(*notebook, spoiled);
        ExpectSound(*notebook, spoiled);
    }
    // States and places that belong to no tab group.
    for (const char* pane : {"name=a;state=1;dir=5", "name=a;state=2;dir=1", "name=b;state=65536;dir=5",
                             "name=dummy;state=0;dir=5", "name=a;state=4294967295;dir=1"}) {
        Load(*notebook,
             sound.substr(0, sound.find('@')) + "@layout2|" + pane + ";layer=0;row=0;pos=0;prop=1|");
        ExpectSound(*notebook, pane);
    }
    EXPECT_TRUE(Load(*notebook, sound));
    EXPECT_EQ(Save(*notebook), sound);
    notebook->Destroy();
    AuiNotebook* single = Make(1);
    EXPECT_TRUE(Load(*single, sound)) << "a notebook of one page cannot be split";
    EXPECT_EQ(Groups(*single), "A=*0");
    ExpectSound(*single, "one page");
}

TEST_F(AuiNotebookTest, TheHostHearsOfOneSelection)
{
    AuiNotebook* notebook = Make(4);
    Focus(*notebook->GetPage(0));
    std::vector<int> changed;
    bool refuse = false;
    notebook->Bind(wxEVT_AUINOTEBOOK_PAGE_CHANGED,
                   [&](wxAuiNotebookEvent& e) { changed.push_back(e.GetSelection()); });
    notebook->Bind(wxEVT_AUINOTEBOOK_PAGE_CHANGING, [&](wxAuiNotebookEvent& e) {
        if (refuse)
            e.Veto();
    });
    Load(*notebook, "a=+1|b=*0,2|c=+3@");
    EXPECT_EQ(changed, std::vector<int>());
    EXPECT_TRUE(notebook->GetPage(0)->HasFocus());
    Load(*notebook, "a=+1|b=0,*2|c=+3@");
    EXPECT_EQ(changed, std::vector<int>{2});
    refuse = true;
    Load(*notebook, "a=+1|b=*0,2|c=+3@");
    EXPECT_EQ(changed, std::vector<int>{2});
    EXPECT_EQ(notebook->GetSelection(), 2);
    ExpectSound(*notebook, "refused");
    Load(*notebook, "a=+1,0,2,3@");
    EXPECT_EQ(notebook->GetSelection(), 2) << "no page of the text is selected";
    ExpectSound(*notebook, "without a selection");
}

TEST_F(AuiNotebookTest, TheLastTabInSightIsDrawnInTheRoomThatIsLeft)
{
    AuiNotebook* notebook = Make(1);
    wxAuiTabArt* art = notebook->GetArtProvider();
    wxAuiNotebookPage page{};
    page.caption = "Regeneration 3";
    wxBitmap bitmap(400, 60);
    wxMemoryDC dc(bitmap);
    int whole = 0;
    art->GetTabSize(dc, notebook, page.caption, {}, false, wxAUI_BUTTON_STATE_HIDDEN, &whole);
    const auto drawn = [&](int room) {
        wxRect tab;
        wxRect button;
        int width = 0;
        art->DrawTab(dc, notebook, page, {0, 0, room, 40}, wxAUI_BUTTON_STATE_HIDDEN, &tab, &button, &width);
        EXPECT_GE(room, tab.width);
        return tab.width == 0 ? 0 : width;
    };
    EXPECT_EQ(drawn(whole), whole);
    EXPECT_EQ(drawn(whole + 100), whole);
    for (const int missing : {1, 10, 30}) {
        EXPECT_LE(drawn(whole - missing), whole - missing) << "cut";
        EXPECT_GT(drawn(whole - missing), whole / 2) << missing;
    }
    EXPECT_EQ(drawn(30), 0) << "there is nothing to read in so little";
}

TEST_F(AuiNotebookTest, LongTextsOfTabsAreShortenedAndTheListHasThemWhole)
{
    AuiNotebook* notebook = Make(3);
    const wxString march = "River at Livingstone & beyond, sample of March";
    const wxString april = "River at Livingstone & beyond, sample of April";
    notebook->SetPageText(0, march);
    notebook->SetPageText(1, april);
    Pump();
    wxAuiTabCtrl* group = nullptr;
    int position = -1;
    ASSERT_TRUE(notebook->FindTab(notebook->GetPage(1), &group, &position));
    group->Refresh();
    PumpUntil([watch = wxStopWatch()] { return watch.Time() > 100; });
    const wxString tips =
        group->GetPage(0).tooltip + "|" + group->GetPage(1).tooltip + "|" + group->GetPage(2).tooltip;
    EXPECT_EQ(tips, march + "|" + april + "|") << "a short one needs none";
    EXPECT_LT(group->GetPage(0).rect.width, group->GetTextExtent(march).x);

    wxTimer timer;
    wxString listed;
    notebook->Bind(wxEVT_MENU_OPEN, [&listed](wxMenuEvent& event) {
        for (const wxMenuItem* item : event.GetMenu()->GetMenuItems())
            listed += item->GetItemLabelText() + (item->IsChecked() ? "*|" : "|");
    });
    // The menu has a loop of its own, in which the keys arrive.
    timer.Bind(wxEVT_TIMER, [](wxTimerEvent&) {
        wxUIActionSimulator simulator;
        for (const int key : {WXK_DOWN, WXK_DOWN, WXK_RETURN})
            simulator.Char(key);
    });
    timer.StartOnce(300);
    notebook->ShowPageList();
    Pump();
    EXPECT_EQ(listed, march + "*|" + april + "|Page 2|");
    EXPECT_EQ(notebook->GetSelection(), 1);
    EXPECT_TRUE(notebook->GetPage(1)->HasFocus());
}

TEST_F(AuiNotebookTest, TheTabOfThePageInFrontStaysInSight)
{
    AuiNotebook* notebook = Make(12);
    const auto isInSight = [&] {
        wxAuiTabCtrl* group = nullptr;
        int position = -1;
        EXPECT_TRUE(notebook->FindTab(notebook->GetCurrentPage(), &group, &position));
        wxClientDC dc(group);
        return group->IsTabVisible(position, static_cast<int>(group->GetTabOffset()), &dc, group);
    };
    m_frame->SetClientSize(m_frame->FromDIP(wxSize(1200, 300)));
    Pump();
    notebook->SetSelection(7);
    Pump();
    EXPECT_TRUE(isInSight()) << "selected";
    m_frame->SetClientSize(m_frame->FromDIP(wxSize(400, 300)));
    Pump();
    EXPECT_TRUE(isInSight()) << "narrower";
    for (std::size_t page = 0; page < 7; ++page)
        notebook->SetPageText(page, wxString::Format("The longer name of page %zu", page));
    Pump();
    EXPECT_TRUE(isInSight()) << "longer names";
    // The user may look at other tabs.
    wxAuiTabCtrl* group = nullptr;
    int position = -1;
    ASSERT_TRUE(notebook->FindTab(notebook->GetCurrentPage(), &group, &position));
    group->SetTabOffset(0);
    group->Refresh();
    Pump();
    EXPECT_FALSE(isInSight()) << "scrolled by the user";
}

}  // namespace
