// SPDX-License-Identifier: MIT
// The blocks above the analysis of a feed water, and copying from one water to another.
#include "gui_base/water/feedwater/feed_water_panel.h"

#include "gui_base/input/controls/tv_datepickerctrl.h"
#include "gui_base/input/events.h"
#include "gui_base/water/feedwater/comment_entry_dialog.h"
#include "gui_base/water/feedwater/water_clipboard.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/project/project_edit.h"
#include "projectbase/project/range_faults.h"
#include "projectbase/units/unit_system_manager.h"
#include "tests/support/gui_test.h"

#include <cmath>

namespace {

using namespace gui_test;

class FeedWaterTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        m_frame->Bind(tvCHANGE_EVENT, [this](wxCommandEvent&) { ++m_notified; });
        m_panel = new FeedWaterPanel(&m_project, 0, m_frame, wxID_ANY, nullptr);
        m_frame->SendSizeEvent();
        Pump();
    }

    DetailData& Detail(const std::string& key) { return m_project.GetDetails().At("project/" + key); }
    double Value(const std::string& key) { return Detail(key).GetDoubleValue(); }
    DetailData& Water(const std::string& key)
    {
        return m_project.GetLiquid(0).GetDetails()->At("liquid/" + key);
    }
    FeedWaterSpecification& Block() { return Find<FeedWaterSpecification>(*m_panel); }
    FeedMetaInformation& Meta() { return Find<FeedMetaInformation>(*m_panel); }
    TvTextCtrl& Place() { return Find<TvTextCtrl>(Meta(), "Place"); }
    TvTextCtrl& Source() { return Find<TvTextCtrl>(Meta(), "Water source"); }
    TvDatePickerCtrl& Date() { return Find<TvDatePickerCtrl>(Meta(), "Date of sampling"); }
    tvChoiceAdv& Choice(const wxString& name) { return Find<tvChoiceAdv>(Meta(), name); }
    wxButton& Comments() { return Find<wxButton>(Meta(), "Comments"); }
    TvTextCtrl& Field(const std::string& key) { return *Block().FindField("project/" + key); }
    /// Whether the button tells of a comment.
    bool ShowsComment() { return Comments().GetToolTipText() != "Enter comments"; }
    int Notified() { return std::exchange(m_notified, 0); }
    /// Presses the comment button; `edit` drives the window that it opens.
    void EditComment(const std::function<int(CommentEntryDialog&)>& edit)
    {
        m_dialogs.Expect(
            [edit](wxDialog& dialog) { return edit(dynamic_cast<CommentEntryDialog&>(dialog)); });
        Click(Comments());
    }

    iex::IEXProject m_project;
    FeedWaterPanel* m_panel = nullptr;
    int m_notified = 0;
};

TEST_F(FeedWaterTest, QuantitiesFollowEachOther)
{
    EXPECT_TRUE(std::isnan(Value("qbrutto"))) << "nobody has stated it yet";
    Enter(Field("qbrutto"), "10");
    Enter(Field("lz"), "20");
    EXPECT_EQ(Value("wbrutto"), 200.0);
    EXPECT_EQ(Field("wbrutto").GetValue(), "200");
    Enter(Field("wbrutto"), "300");
    EXPECT_EQ(Value("qbrutto"), 15.0) << "the older of the other two";
    EXPECT_EQ(Field("qbrutto").GetValue(), "15");
    EXPECT_EQ(Notified(), 3);
    EXPECT_TRUE(m_project.IsChanged());
    Enter(Field("nlines"), "3");
    EXPECT_EQ(Detail("nlines").GetLongValue(), 3);
    EXPECT_EQ(Notified(), 1);
    Enter(Field("nlines"), "3");
    EXPECT_EQ(Notified(), 0) << "the same number is no change";
}

TEST_F(FeedWaterTest, ARecreatedPageIsWhole)
{
    for (int i = 0; i < 2; ++i) {
        m_panel->RecreatePanel();
        Pump();
    }
    Enter(Field("qbrutto"), "10");
    Enter(Place(), "Spring");
    Enter(*m_panel->FindField("liquid/na.orig"), "23");
    EXPECT_EQ(Value("qbrutto"), 10.0);
    EXPECT_EQ(Water("place").GetStringValue(), "Spring");
    EXPECT_NEAR(Water("na.meql").GetDoubleValue(), 1.0, 0.01);
    m_project.SetUnitSystemDisplay("us");
    m_panel->UpdateUnits(true);
    EXPECT_NE(Field("qbrutto").GetValue(), "10");
}

TEST_F(FeedWaterTest, CheckWantsFlowRateAndTime)
{
    struct Case
    {
        double flow;
        double time;
        bool full;
        bool flowOnly;
    };
    const double unknown = std::nan("");
    FeedWaterSpecification flowOnly(&m_project, 0, m_frame, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                    wxTAB_TRAVERSAL, true);
    EXPECT_FALSE(flowOnly.FindField("project/lz")->IsShown());
    for (const Case& row : {Case{0, 5, false, false}, Case{unknown, 5, false, false}, Case{3, 0, false, true},
                            Case{3, unknown, false, true}, Case{3, 5, true, true}}) {
        Detail("qbrutto").SetValue(row.flow);
        Detail("lz").SetValue(row.time);
        EXPECT_EQ(Block().Check(), row.full) << row.flow << " " << row.time;
        EXPECT_EQ(flowOnly.Check(), row.flowOnly) << row.flow << " " << row.time;
    }
    Block().EnableFlowRate(false);
    EXPECT_FALSE(Field("qbrutto").IsEnabled());
}

TEST_F(FeedWaterTest, UnitsChangeTheFieldsAndNotTheValues)
{
    Enter(Field("qbrutto"), "10");
    Enter(Field("lz"), "7");
    m_project.SetUnitSystemDisplay("us");
    m_panel->UpdateUnits(true);
    EXPECT_EQ(Value("qbrutto"), 10.0);
    EXPECT_EQ(Field("qbrutto").GetName(), "Source flow rate [gpm]");
    double shown = 0.0;
    ASSERT_TRUE(Field("qbrutto").GetValue().ToCDouble(&shown));
    EXPECT_NEAR(shown, UnitSystemManager::FromISO("m3/h", "us", 10.0), 1e-4);
    Enter(Field("lz"), "8");
    EXPECT_EQ(Value("qbrutto"), 10.0) << "to the last bit";
    EXPECT_EQ(Value("wbrutto"), 80.0);
}

TEST_F(FeedWaterTest, ValuesOutOfRangeAreColouredAndReported)
{
    Enter(Field("qbrutto"), "1000000");
    EXPECT_EQ(Value("qbrutto"), 1e6) << "never refused";
    const auto faults = RangeFaults(m_project);
    ASSERT_EQ(faults.size(), 1u);
    EXPECT_TRUE(m_panel->FocusDetail(faults[0].address));
    EXPECT_TRUE(PumpUntil([this] { return Field("qbrutto").HasFocus(); }));
    Enter(Field("qbrutto"), "5");
    EXPECT_TRUE(RangeFaults(m_project).empty());
}

TEST_F(FeedWaterTest, OriginIsStoredAtOnce)
{
    gui_test::Enter(Place(), "Lyon");
    gui_test::Enter(Source(), "Rhone");
    EXPECT_EQ(Water("place").GetStringValue(), "Lyon");
    EXPECT_EQ(Water("water.source").GetStringValue(), "Rhone");
    EXPECT_EQ(Notified(), 2);
    EXPECT_TRUE(m_project.IsChanged());
    const auto choose = [](tvChoiceAdv& choice, const wxString& key) {
        choice.SelectKey(key);
        wxCommandEvent event(wxEVT_CHOICE, choice.GetId());
        event.SetEventObject(&choice);
        event.SetInt(choice.GetSelection());
        choice.GetEventHandler()->ProcessEvent(event);
        Pump();
    };
    choose(Choice("Country"), "FR");
    choose(Choice("Water type"), "river");
    EXPECT_EQ(Water("country").GetStringValue(), "FR");
    EXPECT_EQ(Water("water.type").GetStringValue(), "river");
    EXPECT_EQ(Notified(), 2);
    // And the other way round, as after an undo.
    Water("water.source").SetValue("Saone");
    Water("sampling.date").SetValue(wxDateTime(3, wxDateTime::May, 2021));
    Water("comments").SetValue("muddy");
    m_panel->TransferDetailsToWindow();
    EXPECT_EQ(Source().GetValue(), "Saone");
    EXPECT_TRUE(Date().GetValue().IsSameDate(wxDateTime(3, wxDateTime::May, 2021)));
    EXPECT_TRUE(ShowsComment());
    EXPECT_EQ(Notified(), 0);
}

TEST_F(FeedWaterTest, OriginStandsInRowsOfColumns)
{
    const auto at = [](const wxWindow* window) { return window->GetScreenPosition(); };
    EXPECT_EQ(at(&Place()).x, at(&Source()).x);
    EXPECT_EQ(at(&Source()).x, at(&Comments()).x);
    EXPECT_EQ(at(&Choice("Country")).x, at(&Choice("Water type")).x);
    EXPECT_EQ(at(&Choice("Country")).x, at(&Date()).x);
    EXPECT_LT(at(&Source()).y, at(&Date()).y);
}

TEST_F(FeedWaterTest, CommentsAreEditedBelowTheButton)
{
    const wxRect button = Comments().GetScreenRect();
    EditComment([&button](CommentEntryDialog& dialog) {
        const wxSize size = dialog.FromDIP(wxSize(225, 100));
        EXPECT_EQ(dialog.GetSize(), size);
        EXPECT_EQ(dialog.GetPosition(), wxPoint(button.GetRight() + 1 - size.x, button.GetBottom() + 1));
        dialog.GetField()->SetValue(" \n first\nsecond \t");
        wxCommandEvent save(wxEVT_BUTTON, wxID_OK);
        dialog.FindWindow(wxID_OK)->GetEventHandler()->ProcessEvent(save);
        return dialog.GetReturnCode();
    });
    EXPECT_EQ(Water("comments").GetStringValue(), "first\nsecond");
    EXPECT_TRUE(ShowsComment());
    EXPECT_EQ(Comments().GetToolTipText(), "first\nsecond");
    Pump();
    EXPECT_EQ(Notified(), 1);

    EditComment([](CommentEntryDialog& dialog) {
        EXPECT_EQ(dialog.GetField()->GetValue(), "first\nsecond");
        dialog.SetComment("forget this");
        return wxID_CANCEL;
    });
    EXPECT_EQ(Water("comments").GetStringValue(), "first\nsecond");
    EditComment([](CommentEntryDialog& dialog) {
        dialog.SetComment(dialog.GetComment() + "  ");
        return wxID_OK;
    });
    Pump();
    EXPECT_EQ(Notified(), 0) << "blanks at the end are no other comment";
    EditComment([](CommentEntryDialog& dialog) {
        dialog.SetComment("  \n ");
        return wxID_OK;
    });
    EXPECT_EQ(Water("comments").GetStringValue(), "");
    EXPECT_FALSE(ShowsComment());
    Pump();
    EXPECT_EQ(Notified(), 1);
}

TEST_F(FeedWaterTest, CommentIsTypedAndSavedByKeys)
{
    CommentEntryDialog dialog;
    ASSERT_TRUE(dialog.Create(m_frame, wxID_ANY, "Comments", wxDefaultPosition, wxSize(225, 100)));
    dialog.Move(50, 50);
    dialog.Show();
    ASSERT_TRUE(PumpUntil([&dialog] { return dialog.GetField()->HasFocus(); }));
    const wxRect text = dialog.GetField()->GetScreenRect();
    EXPECT_GE(text.height, dialog.GetCharHeight()) << "there is room for a line";
    EXPECT_TRUE(dialog.GetScreenRect().Contains(text));
    dialog.Raise();
    Click(*dialog.GetField());
    Type("one");
    Press(WXK_RETURN);
    Type("two");
    Press(WXK_RETURN, wxMOD_CONTROL);
    EXPECT_FALSE(dialog.IsShown());
    EXPECT_EQ(dialog.GetReturnCode(), wxID_OK);
    EXPECT_EQ(dialog.GetComment(), "one\ntwo");
}

TEST_F(FeedWaterTest, TabGoesFromTheFeedOverTheOriginToTheAnalysis)
{
    Focus(Field("nlines"));
    std::vector<std::string> names;
    for (int i = 0; i < 14; ++i) {
        Press(WXK_TAB);
        const wxWindow* focused = wxWindow::FindFocus();
        names.push_back(focused != nullptr ? focused->GetName().utf8_string() : "");
    }
    names[10] = "date";  // a part of the date field has the focus, whatever its name
    names.back() = wxWindow::FindFocus() != nullptr ? wxWindow::FindFocus()->GetLabel().utf8_string() : "";
    const std::string degrees = "Temperature [\u00b0C]";
    // The toolkit does not tell when a choice has the focus: those of medium, temperature unit, organics,
    // country and type.
    EXPECT_EQ(names, (std::vector<std::string>{"Organics input", "", degrees, "", "", "Origin of the water",
                                               "", "Place", "", "Water source", "date", "Comments",
                                               "Analysis", "Full analysis"}));
}

TEST_F(FeedWaterTest, ClipboardKeepsAWater)
{
    // The order of these steps matters: the clipboard is one for the process.
    LiquidData source;
    LiquidData target;
    const auto value = [](LiquidData& liquid) {
        return liquid.FindDetail("liquid/na.orig")->GetDoubleValue();
    };
    source.FindDetail("liquid/na.orig")->SetValue(7.0);
    source.FindDetail("liquid/ph")->SetValue(std::nan(""));
    target.FindDetail("liquid/na.orig")->SetValue(1.0);
    target.FindDetail("liquid/ph")->SetValue(4.0);
    WaterClipboard::PutLiquid(nullptr);
    EXPECT_FALSE(WaterClipboard::LiquidAvailable());
    EXPECT_FALSE(WaterClipboard::GetLiquid(&target));
    EXPECT_EQ(value(target), 1.0);

    WaterClipboard::PutLiquid(&source);
    source.FindDetail("liquid/na.orig")->SetValue(8.0);
    EXPECT_TRUE(WaterClipboard::LiquidAvailable());
    EXPECT_TRUE(WaterClipboard::GetLiquid(&target));
    EXPECT_EQ(value(target), 7.0) << "as it was when it was copied";
    EXPECT_TRUE(std::isnan(target.FindDetail("liquid/ph")->GetDoubleValue()));

    WaterClipboard::RemoveLiquid();
    EXPECT_TRUE(WaterClipboard::LiquidAvailable());
    EXPECT_TRUE(WaterClipboard::GetLiquid(&target));
    EXPECT_EQ(value(target), 0.0);
    EXPECT_EQ(target.FindDetail("liquid/na.unit")->GetStringValue(), "");

    WaterClipboard::PutLiquid(nullptr);
    EXPECT_FALSE(WaterClipboard::LiquidAvailable());
}

TEST_F(FeedWaterTest, AReplacedWaterIsShownAndCalculated)
{
    {
        const ProjectEdit edit(m_project);
        Water("na.orig").SetValue(23.0);
        Water("cl.orig").SetValue(35.45);
        Water("place").SetValue("Lyon");
    }
    EXPECT_EQ(m_panel->FindField("liquid/na.orig")->GetValue(), "23");
    EXPECT_NEAR(Water("tds").GetDoubleValue(), 58.45, 0.1);
    EXPECT_EQ(Place().GetValue(), "Lyon");
}

}  // namespace
