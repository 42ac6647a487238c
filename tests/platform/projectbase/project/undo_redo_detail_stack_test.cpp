// SPDX-License-Identifier: MIT
#include "projectbase/project/undo_redo_detail_stack.h"

#include "projectbase/project/iex_project.h"
#include "projectbase/project/project_edit.h"
#include "tests/support/project_history.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

class UndoRedo : public testing::Test
{
protected:
    DetailData& At(const char* key, std::size_t liquid = 0)
    {
        return m_project.GetLiquid(liquid).GetDetails()->At(key);
    }
    std::vector<std::string> Names()
    {
        std::vector<std::string> names;
        for (std::size_t i = 0; i < m_project.GetLiquidCount(); ++i)
            names.push_back(m_project.GetLiquid(i).GetName());
        return names;
    }

    iex::IEXProject m_project;
    support::History m_history{m_project, 6};
    UndoRedoDetailStack& m_stack = m_history.stack;
};

TEST_F(UndoRedo, BringsBackEveryTypeExactly)
{
    const double exact = 0.1 + 0.2;
    m_project.AddLiquid("Second");
    At("liquid/na.orig").SetValue(exact);
    {
        const ProjectEdit edit(m_project);
        At("liquid/na.orig").SetValue(5.0);
        At("liquid/na.unit").SetValue("°d");
        At("liquid/ph").SetValue(7.0);  // was not known
        At("liquid/balance.auto", 1).SetValue(true);
        At("liquid/turbidity").SetUnit("FNU");  // the unit alone
        m_project.GetDetails().At("project/date").SetValue(wxDateTime(1, wxDateTime::Mar, 2024));
    }
    ASSERT_TRUE(m_stack.CanUndo());
    EXPECT_EQ(m_stack.GetUndoStep()->elements.size(), 6u) << "what is calculated is no part of a step";
    EXPECT_EQ(m_stack.GetUndoStep()->name, "Sodium");

    ASSERT_TRUE(m_stack.Undo());
    EXPECT_EQ(At("liquid/na.orig").GetDoubleValue(), exact);
    EXPECT_EQ(At("liquid/na.unit").GetStdStringValue(), "mg/l");
    EXPECT_TRUE(std::isnan(At("liquid/ph").GetDoubleValue()));
    EXPECT_FALSE(At("liquid/balance.auto", 1).GetBoolValue());
    EXPECT_EQ(At("liquid/turbidity").GetUnit(), "NTU");
    EXPECT_FALSE(m_project.GetDetails().At("project/date").GetDateValue().IsValid());
    EXPECT_NEAR(At("liquid/na.mgl").GetDoubleValue(), exact, 1e-15) << "what follows is calculated";

    ASSERT_TRUE(m_stack.Redo());
    EXPECT_EQ(At("liquid/na.unit").GetStdStringValue(), "°d");
    EXPECT_EQ(At("liquid/ph").GetDoubleValue(), 7.0);
    EXPECT_TRUE(At("liquid/balance.auto", 1).GetBoolValue());
    EXPECT_FALSE(m_stack.Redo());
}

TEST_F(UndoRedo, AnEditThatChangesNothingIsNoStep)
{
    {
        const ProjectEdit edit(m_project);
        At("liquid/na.orig").SetValue(7.0);
        At("liquid/na.orig").SetValue(0.0);
        At("liquid/ph").SetValue(-std::nan(""));
    }
    EXPECT_FALSE(m_stack.CanUndo());
    EXPECT_EQ(m_history.told, 0);
}

TEST_F(UndoRedo, WalksThroughABoundedHistory)
{
    for (int value = 1; value <= 8; ++value)
        At("liquid/ca.orig").SetValue(value);
    const auto now = [this] { return At("liquid/ca.orig").GetDoubleValue(); };

    m_stack.UndoAll();  // only six steps are remembered
    EXPECT_EQ(now(), 2.0);
    EXPECT_FALSE(m_stack.CanUndo());
    EXPECT_FALSE(m_stack.Undo());
    m_stack.Redo();
    EXPECT_EQ(now(), 3.0);

    At("liquid/ca.orig").SetValue(30.0);  // forgets what was undone
    EXPECT_FALSE(m_stack.CanRedo());
    m_stack.Undo();
    EXPECT_EQ(now(), 3.0);
    m_stack.Undo();
    EXPECT_EQ(now(), 2.0) << "not what was undone before";
    m_stack.RedoAll();
    EXPECT_EQ(now(), 30.0);
    m_stack.Clear();
    EXPECT_FALSE(m_stack.CanUndo() || m_stack.CanRedo());
}

TEST_F(UndoRedo, StructureIsAStepLikeAnyOther)
{
    const std::string first = Names().front();
    LiquidData& second = m_project.AddLiquid("Second");
    const DetailOwner owner = second.GetOwner();
    second.GetDetails()->At("liquid/k.orig").SetValue(4.0);
    m_project.RenameOwner(second, "Well");
    m_project.MoveOwner(second, 0);
    const DetailData* const potassium = &second.GetDetails()->At("liquid/k.orig");
    m_project.RemoveOwner(second);
    EXPECT_EQ(Names(), (std::vector<std::string>{first}));
    EXPECT_EQ(m_project.FindOwner(owner), nullptr);

    using List = std::vector<std::string>;
    const std::vector<List> states{
        {first}, {first, "Second"}, {first, "Second"}, {first, "Well"}, {"Well", first}};
    for (std::size_t i = states.size(); i-- > 0;) {
        ASSERT_TRUE(m_stack.Undo());
        EXPECT_EQ(Names(), states[i]) << i;
        if (i == 4) {
            ASSERT_NE(m_project.FindOwner(owner), nullptr);
            EXPECT_EQ(m_project.FindDetail({owner, "liquid/k.orig"}), potassium) << "bindings hold on to it";
            EXPECT_EQ(potassium->GetDoubleValue(), 4.0);
        }
    }
    m_stack.RedoAll();
    EXPECT_EQ(Names(), (List{first}));
    EXPECT_FALSE(m_stack.CanRedo());
}

TEST_F(UndoRedo, AnOwnerComesBackAsItWasBeforeTheEditThatRemovedIt)
{
    LiquidData& second = m_project.AddLiquid("Second");
    second.FindDetail("liquid/na.orig")->SetValue(10.0);
    {
        const ProjectEdit edit(m_project);
        second.FindDetail("liquid/analysis.type")->SetValue("SHORT_COND");
        m_project.RemoveOwner(second);
    }
    ASSERT_TRUE(m_stack.Undo());
    EXPECT_EQ(At("liquid/analysis.type", 1).GetStringValue(), "FULL");
    EXPECT_EQ(At("liquid/cond.short", 1).GetDoubleValue(), 0.0)
        << "what it would have begun with is not kept";
}

TEST_F(UndoRedo, BlendsFollowWatersThatComeGoAndAreRenamed)
{
    At("liquid/na.orig").SetValue(10.0);
    LiquidData& second = m_project.AddLiquid("Second");
    LiquidData& blend = m_project.AddLiquid("Blend");
    {
        const ProjectEdit edit(m_project);
        blend.FindDetail("liquid/blend.first")->SetValue("Well");
        blend.FindDetail("liquid/blend.second")->SetValue("Second");
    }
    const auto blended = [&blend] { return blend.FindDetail("liquid/na.mgl")->GetDoubleValue(); };
    EXPECT_EQ(blended(), 0.0) << "there is no well";
    m_project.GetLiquid(0).SetName("Well");
    EXPECT_NEAR(blended(), 5.0, 1e-12);

    const auto nearer = std::make_shared<LiquidData>("Well");
    nearer->FindDetail("liquid/na.orig")->SetValue(40.0);
    m_project.AddOwner(m_project.GetRoot(), nearer, 0);
    EXPECT_NEAR(blended(), 20.0, 1e-12) << "the first of that name";
    m_project.RemoveOwner(*nearer);
    EXPECT_NEAR(blended(), 5.0, 1e-12);
    m_stack.Undo();
    EXPECT_NEAR(blended(), 20.0, 1e-12);
    m_stack.Undo();
    m_stack.Undo();
    EXPECT_EQ(blended(), 0.0);
    EXPECT_FALSE(m_project.IsMixed(blend));
    EXPECT_EQ(second.GetPosition(), 1u);
}

TEST_F(UndoRedo, TouchesOnlyWhatItsStepNames)
{
    FeedComposition feed = m_project.LoadFeedCompositionFromDetails();
    DBObjects::Compound urea;
    urea.name = "urea";
    urea.formula = "CH4N2O";
    feed.Add(urea);
    feed.SetFeed(0, FeedComposition::Unit::MgPerLitre, 60.0);
    m_project.SaveFeedCompositionToDetails(feed);
    At("liquid/toc").SetValue(2.0);
    ASSERT_TRUE(m_stack.Undo());
    const FeedComposition after = m_project.LoadFeedCompositionFromDetails();
    ASSERT_EQ(after.GetEntries().size(), 1u);
    EXPECT_EQ(after.GetEntries()[0].feed[FeedComposition::Unit::MgPerLitre], 60.0)
        << "equivalents cannot hold a compound without valency";
    EXPECT_TRUE(std::isnan(At("liquid/toc").GetDoubleValue()));
}

}  // namespace
