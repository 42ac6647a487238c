// SPDX-License-Identifier: MIT
// The feed composition under the hands of its user.
#include "gui_base/input/controls/nothing_found.h"
#include "gui_base/input/controls/tv_checkbox.h"
#include "gui_base/input/controls/tv_choice.h"
#include "gui_base/input/controls/tv_notebook.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/input/validation/commit.h"
#include "gui_base/input/validation/double_validator.h"
#include "gui_base/ionexchange/feed/bitmap_grid_cell_renderer.h"
#include "gui_base/ionexchange/feed/feed_medium_box.h"
#include "gui_base/ionexchange/feed/feed_total_box.h"
#include "tests/gui/ionexchange/feed/feed_fixture.h"

#include <wx/button.h>

#include <algorithm>
#include <cmath>

namespace {

using namespace gui_test;
using Unit = FeedComposition::Unit;

class FeedCompositionTest : public FeedTest
{};

int Column(Unit unit)
{
    return kFeedFirstUnit + static_cast<int>(unit);
}

TEST_F(FeedCompositionTest, FindsACompoundAsTheUserTypesAndAddsIt)
{
    const int all = List().GetItemCount();
    EXPECT_GT(all, 100);
    const long calcium = Find("calcium");
    EXPECT_LT(List().GetItemCount(), all);
    DoubleClickRow(calcium);
    ASSERT_EQ(Entries().size(), 1u);
    EXPECT_EQ(Entries()[0].name, "calcium");
    EXPECT_EQ(Grid().GetCellValue(0, kFeedName), "calcium");
    EXPECT_EQ(Grid().GetCellValue(0, kFeedFormula), "Ca");
    EXPECT_EQ(Grid().GetCellValue(0, kFeedIonicCharge), "2");
    EXPECT_EQ(Grid().GetCellValue(0, kFeedAcidBase), "Neutral");
    Add("sulfate");
    ASSERT_EQ(Entries().size(), 2u);
    EXPECT_EQ(Stored().GetEntries().size(), 2u) << "it is in the project at once";
    EXPECT_EQ(m_changes, 2) << "the host hears of each change once";
    EXPECT_TRUE(m_project.IsChanged());
    EXPECT_EQ(EffluentGrid().GetNumberRows(), 2);
}

TEST_F(FeedCompositionTest, FiltersByElementCategoryAndText)
{
    EXPECT_EQ(ElementChoice().GetString(0), "All elements");
    EXPECT_EQ(CategoryChoice().GetString(0), "All categories");
    Choose(ElementChoice(), "S");
    const int sulfur = List().GetItemCount();
    ASSERT_GT(sulfur, 1);
    for (const auto& compound : List().GetCompounds())
        EXPECT_NE(compound.formula.find('S'), std::string::npos) << compound.formula;
    EXPECT_TRUE(std::ranges::any_of(List().GetCompounds(), [](const auto& compound) {
        return compound.formula == "Na2SO4";
    })) << "salts are filed under their cation";
    Choose(CategoryChoice(), "Anion");
    EXPECT_LT(List().GetItemCount(), sulfur);
    for (const auto& compound : List().GetCompounds())
        EXPECT_EQ(compound.category, "Anion");
    Focus(Search());
    Type("SO4");
    ASSERT_GT(List().GetItemCount(), 0);
    for (const auto& compound : List().GetCompounds())
        EXPECT_NE(compound.formula.find("SO4"), std::string::npos);
    auto& nothing = gui_test::Find<NothingFound>(*m_view);
    EXPECT_FALSE(nothing.IsShown());
    Type("X");
    EXPECT_EQ(List().GetItemCount(), 0);
    ASSERT_TRUE(nothing.IsShownOnScreen());
    Click(gui_test::Find<wxButton>(nothing));
    EXPECT_FALSE(nothing.IsShown());
    EXPECT_TRUE(Search().IsEmpty());
    EXPECT_EQ(ElementChoice().GetSelection() + CategoryChoice().GetSelection(), 0);
    EXPECT_GT(List().GetItemCount(), 100);
    Type("sulf");
    EXPECT_LT(List().GetItemCount(), 100) << "one can type on";
    wxCommandEvent cancelled(wxEVT_SEARCH_CANCEL, Search().GetId());
    Search().ProcessWindowEvent(cancelled);
    EXPECT_GT(List().GetItemCount(), 100);
    EXPECT_EQ(m_changes, 0) << "a filter is no edit";
}

TEST_F(FeedCompositionTest, ASelectedCompoundShowsItsDetailsAndCanBeEdited)
{
    const wxWindow& edit = Labelled("Edit");
    const wxWindow& remove = Labelled("Delete");
    EXPECT_FALSE(edit.IsEnabled());
    EXPECT_FALSE(remove.IsEnabled());
    SelectRow(Find("sulfate"));
    EXPECT_TRUE(edit.IsEnabled());
    EXPECT_TRUE(remove.IsEnabled());
    EXPECT_EQ(CompoundDetail("Ionic Charge"), "-2");
    EXPECT_EQ(CompoundDetail("Molweight").BeforeFirst('.'), "96");
    List().Select(0);
    List().Select(1);
    Pump();
    EXPECT_FALSE(edit.IsEnabled()) << "one at a time";
    EXPECT_TRUE(remove.IsEnabled());
    Type("x");
    Find("calcium");
    EXPECT_FALSE(remove.IsEnabled()) << "another list has no selection";
    EXPECT_EQ(CompoundDetail("Ionic Charge"), "");
}

TEST_F(FeedCompositionTest, EachUnitBringsTheOtherSix)
{
    Add("sulfate");  // 2 eq/mol
    const double molweight = Entries().at(0).molweight;
    const double density = m_controller->GetComposition().GetDensity();
    const double mass = 48.03;
    const double amount = mass / molweight;
    const std::vector<std::pair<Unit, double>> typed{{Unit::MgPerLitre, mass},
                                                     {Unit::MmolPerLitre, amount},
                                                     {Unit::MeqPerLitre, 2 * amount},
                                                     {Unit::MgPerKg, mass / density},
                                                     {Unit::MicroEqPerLitre, 2e3 * amount},
                                                     {Unit::Ppb, mass * 1e3},
                                                     {Unit::Ppt, mass * 1e6}};
    for (const auto& [unit, value] : typed) {
        SCOPED_TRACE(FeedComposition::kUnitTexts[static_cast<std::size_t>(unit)]);
        TypeCell(Grid(), 0, Column(Unit::MgPerLitre), "1");
        TypeCell(Grid(), 0, Column(unit), wxString::FromCDouble(value, 12));
        for (const auto& [other, expected] : typed) {
            EXPECT_NEAR(Feed(0, other), expected, 1e-9 * expected);
            EXPECT_EQ(Grid().GetCellValue(0, Column(other)), FeedTotalBox::NumberText(Feed(0, other)));
        }
        EXPECT_EQ(FeedField(wxString("Total, ") +
                            wxString::FromUTF8(FeedComposition::kUnitTexts[static_cast<std::size_t>(unit)]))
                      .GetValue(),
                  FeedTotalBox::NumberText(value));
    }
    EXPECT_NEAR(Stored().GetEntries()[0].feed[Unit::MgPerLitre], mass, 1e-9);
}

TEST_F(FeedCompositionTest, KeysWalkTheCellsAndWhatIsNoNumberIsIgnored)
{
    Add("sulfate");
    Add("calcium");
    TypeCell(Grid(), 0, Column(Unit::MgPerLitre), "10");
    EXPECT_EQ(Grid().GetGridCursorRow(), 1) << "Enter goes down";
    TypeCell(Grid(), 0, Column(Unit::Ppt), "5000000", WXK_TAB);
    EXPECT_EQ(Feed(0, Unit::MgPerLitre), 5.0);
    EXPECT_EQ(Grid().GetGridCursorRow(), 1) << "Tab goes on to the next line's first concentration";
    EXPECT_EQ(Grid().GetGridCursorCol(), Column(Unit::MgPerLitre));
    Press(WXK_TAB, wxMOD_SHIFT);
    EXPECT_EQ(Grid().GetGridCursorCol(), Column(Unit::Ppt));
    for (const char* text : {"abc", "1e", "--2", "1 2 x", "nan"}) {
        const int before = m_changes;
        TypeCell(Grid(), 0, Column(Unit::MgPerLitre), text);
        EXPECT_EQ(Feed(0, Unit::MgPerLitre), 5.0) << text;
        EXPECT_EQ(m_changes, before) << text;
    }
    TypeCell(Grid(), 0, kFeedName, "other", WXK_ESCAPE);
    EXPECT_EQ(Entries()[0].name, "sulfate") << "names are not edited";
    // A command commits what is being typed, as it does with fields.
    Grid().GoToCell(0, Column(Unit::MgPerLitre));
    Focus(*Grid().GetGridWindow());
    Type("7");
    CommitFocusedField();
    EXPECT_EQ(Feed(0, Unit::MgPerLitre), 7.0);
    // Behind the last cell, Tab leaves the grid.
    Grid().GoToCell(1, Column(Unit::Ppt));
    Focus(*Grid().GetGridWindow());
    Press(WXK_TAB);
    EXPECT_TRUE(PumpUntil([&] { return Labelled("Adjust pH").HasFocus(); }));
}

TEST_F(FeedCompositionTest, NegativeFeedsAreColouredAndNumbersFollowTheLocale)
{
    Add("sulfate");
    TypeCell(Grid(), 0, Column(Unit::MgPerLitre), "-2");
    EXPECT_EQ(Feed(0, Unit::MgPerLitre), -2.0);
    EXPECT_EQ(Grid().GetCellBackgroundColour(0, Column(Unit::MgPerLitre)),
              DoubleValidator(nullptr).GetBelowMinColour());
    TypeCell(Grid(), 0, Column(Unit::MgPerLitre), "2");
    EXPECT_EQ(Grid().GetCellBackgroundColour(0, Column(Unit::MgPerLitre)), TvTextCtrl::EditableColour());
    EXPECT_EQ(Grid().GetCellBackgroundColour(0, kFeedName), TvTextCtrl::ReadOnlyColour());
    EXPECT_TRUE(Grid().IsReadOnly(0, kFeedPh));
    const LocaleGuard german("de_DE.UTF-8");
    TypeCell(Grid(), 0, Column(Unit::MgPerLitre), "2,5");
    EXPECT_EQ(Feed(0, Unit::MgPerLitre), 2.5);
    EXPECT_EQ(Grid().GetCellValue(0, Column(Unit::MgPerLitre)), "2,5");
}

TEST_F(FeedCompositionTest, TheEffluentIsHeldWithinTheFeed)
{
    Add("sulfate");
    TypeCell(Grid(), 0, Column(Unit::MgPerLitre), "100");
    EffluentCompositionGrid& effluent = EffluentGrid();
    Tabs().SetSelection(1);
    Pump();
    EXPECT_FALSE(effluent.IsThisEnabled());
    EXPECT_TRUE(effluent.IsReadOnly(0, Column(Unit::MgPerLitre)));
    Click(Labelled("Enable effluent composition input"));
    EXPECT_TRUE(effluent.IsThisEnabled());
    EXPECT_TRUE(Stored().UsesEffluent());
    const std::vector<std::pair<wxString, double>> cases{{"40", 40.0}, {"150", 100.0}, {"-3", 0.0}};
    for (const auto& [text, expected] : cases) {
        TypeCell(effluent, 0, Column(Unit::MgPerLitre), text);
        EXPECT_EQ(Effluent(0, Unit::MgPerLitre), expected) << text;
        EXPECT_EQ(effluent.GetCellValue(0, Column(Unit::MgPerLitre)), FeedTotalBox::NumberText(expected));
    }
    TypeCell(effluent, 0, Column(Unit::MicroEqPerLitre), "1e9");
    EXPECT_NEAR(Effluent(0, Unit::MicroEqPerLitre), Feed(0, Unit::MicroEqPerLitre), 1e-9);
    EXPECT_NEAR(Stored().GetEntries()[0].effluent[Unit::MgPerLitre], 100.0, 1e-9);
}

TEST_F(FeedCompositionTest, EntriesAreRemovedAfterAQuestion)
{
    Add("sulfate");
    Add("calcium");
    Add("sodium");
    const std::string question = "Remove entry|Do you really want to remove this entry?";
    ExpectBox(question, wxID_NO);
    Grid().GoToCell(1, Column(Unit::MgPerLitre));
    Focus(*Grid().GetGridWindow());
    Press(WXK_DELETE);
    EXPECT_EQ(Entries().size(), 3u);
    ExpectBox(question, wxID_YES);
    Press(WXK_DELETE);
    ASSERT_EQ(Entries().size(), 2u);
    EXPECT_EQ(Entries()[1].name, "sodium");
    ExpectBox(question, wxID_YES);
    ClickCell(Grid(), 0, kFeedRemove);
    ASSERT_EQ(Entries().size(), 1u);
    EXPECT_EQ(Entries()[0].name, "sodium");
    EXPECT_EQ(Stored().GetEntries().size(), 1u);
    EXPECT_EQ(Grid().GetNumberRows(), 1);
}

TEST_F(FeedCompositionTest, TheTotalPhIsTypedWhileItIsAdjusted)
{
    TvTextCtrl& field = FeedField("Total pH");
    EXPECT_FALSE(field.IsEditable());
    EXPECT_FALSE(Grid().IsPhVisible());
    Add("sodium");
    TypeCell(Grid(), 0, Column(Unit::MeqPerLitre), "1");
    Add("chloride");
    TypeCell(Grid(), 1, Column(Unit::MeqPerLitre), "1");
    EXPECT_NEAR(m_controller->GetComposition().GetTotalPh(), 7.08, 0.05);
    Click(Labelled("Adjust pH"));
    EXPECT_TRUE(field.IsEditable());
    EXPECT_TRUE(Grid().IsPhVisible());
    EXPECT_TRUE(EffluentGrid().IsPhVisible());
    gui_test::Enter(field, "9");
    EXPECT_EQ(m_controller->GetComposition().GetTotalPh(), 9.0);
    EXPECT_GT(m_controller->GetComposition().GetFeedTotals().adjustment, 0.0) << "a base is needed";
    EXPECT_EQ(Stored().GetStatedPh(), 9.0);
    Click(Labelled("Adjust pH"));
    EXPECT_FALSE(Grid().IsPhVisible());
    EXPECT_NEAR(m_controller->GetComposition().GetTotalPh(), 7.08, 0.05);
    Click(Labelled("Adjust pH"));
    EXPECT_EQ(field.GetValue(), "9.00") << "what was stated comes back";
}

TEST_F(FeedCompositionTest, TheMediumBringsItsDensityAndTheTemperatureItsUnit)
{
    auto& box = gui_test::Find<FeedMediumBox>(*m_view);
    auto& medium = gui_test::Find<tvChoice>(box, "Feed medium");
    auto& degrees = gui_test::Find<TvTextCtrl>(box);
    Add("sulfate");
    TypeCell(Grid(), 0, Column(Unit::MgPerLitre), "102.5");
    ASSERT_TRUE(medium.SetStringSelection("Sea water"));
    wxCommandEvent chosen(wxEVT_CHOICE, medium.GetId());
    chosen.SetEventObject(&medium);
    medium.ProcessWindowEvent(chosen);
    EXPECT_NEAR(Feed(0, Unit::MgPerKg), 100.0, 1e-9);
    gui_test::Enter(degrees, "25");
    EXPECT_EQ(Stored().GetMedium().temperature.In(TemperatureUnit::Celsius), 25.0);
    const int changes = m_changes;
    m_project.SetUnitSystemDisplay("us");
    wxCommandEvent switched(tvCHANGEUNITSYSTEM_EVENT);
    m_view->ProcessWindowEvent(switched);
    EXPECT_EQ(degrees.GetValue(), "77");
    EXPECT_EQ(m_changes, changes) << "another unit is no edit";
    EXPECT_EQ(Stored().GetMedium().temperature.In(TemperatureUnit::Celsius), 25.0);
    gui_test::Enter(degrees, "50");
    EXPECT_NEAR(Stored().GetMedium().temperature.In(TemperatureUnit::Celsius), 10.0, 1e-9);
    EXPECT_EQ(Stored().GetMedium().density, 1.025);
}

TEST_F(FeedCompositionTest, ShowsWhatTheProjectHoldsAndSpeaksTheUsersLanguage)
{
    Add("bicarbonate");
    TypeCell(Grid(), 0, Column(Unit::MgPerLitre), "61");
    FeedComposition changed = Stored();
    changed.SetFeed(0, Unit::MgPerLitre, 122.0);
    m_project.SaveFeedCompositionToDetails(changed);
    EXPECT_EQ(Grid().GetCellValue(0, Column(Unit::MgPerLitre)), "122");

    const std::vector<std::pair<std::string, std::string>> texts{
        {"Feed", "Zulauf"}, {"Weak base", "Schwache Base"}, {"All elements", "Alle Elemente"},
        {"No", "Nein"},     {"Formula", "Formel"},          {"Adjust pH", "pH einstellen"}};
    {
        const TestCatalogue catalogue(texts);
        m_view->Localize("iso");
        EXPECT_EQ(Tabs().GetPageText(0), "Zulauf");
        EXPECT_EQ(Grid().GetCellValue(0, kFeedAcidBase), "Schwache Base");
        EXPECT_EQ(Grid().GetColLabelValue(kFeedFormula), "Formel");
        EXPECT_EQ(ElementChoice().GetString(0), "Alle Elemente");
        EXPECT_EQ(ElementChoice().GetString(102), "No") << "nobelium is no answer";
        EXPECT_NE(wxWindow::FindWindowByLabel("pH einstellen", m_view), nullptr);
        EXPECT_EQ(m_view->GetSelectedElement(), "All elements");
        EXPECT_EQ(Grid().GetName(), "Zulauf");
    }
    m_view->Localize("iso");
    EXPECT_EQ(Tabs().GetPageText(0), "Feed");
}

TEST_F(FeedCompositionTest, ARemoveImageThatIsMissingIsSaidSo)
{
    EXPECT_TRUE(BitmapGridCellRenderer("/icons/i16/delete.png").HasImage());
    BitmapGridCellRenderer missing("/icons/i16/nothing.png");
    EXPECT_FALSE(missing.HasImage());
    auto* grid = new wxGrid(m_frame, wxID_ANY);
    grid->CreateGrid(1, 1);
    wxClientDC dc(grid);
    wxGridCellAttr* attribute = grid->GetOrCreateCellAttr(0, 0);
    const int width = missing.GetBestSize(*grid, *attribute, dc, 0, 0).x;
    EXPECT_GE(width, dc.GetTextExtent("Bitmap error").x);
    wxMemoryDC memory;
    wxBitmap bitmap(width, 20);
    memory.SelectObject(bitmap);
    missing.Draw(*grid, *attribute, memory, wxRect(0, 0, width, 20), 0, 0, false);
    memory.SelectObject(wxNullBitmap);
    EXPECT_GT(bitmap.ConvertToImage().CountColours(2), 1u) << "the text is drawn";
    attribute->DecRef();
}

}  // namespace
