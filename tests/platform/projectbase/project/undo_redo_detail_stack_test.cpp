// SPDX-License-Identifier: MIT
#include "projectbase/project/undo_redo_detail_stack.h"

#include "projectbase/project/iex_project.h"

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

    template <typename Edit>
    UndoStep StepOf(Edit edit)
    {
        const DetailSnapshot before(m_project);
        edit();
        return before.ChangesSince(m_project);
    }

    iex::IEXProject m_project;
    UndoRedoDetailStack m_stack{m_project, 3};
};

TEST_F(UndoRedo, BringsBackEveryTypeExactly)
{
    m_project.GetDetails().LoadGroup("project", "BASE");
    m_project.AddLiquid("Second");
    const double exact = 0.1 + 0.2;
    At("liquid/na.orig").SetValue(exact);
    const UndoStep step = StepOf([this] {
        At("liquid/na.orig").SetValue(5.0);
        At("liquid/na.unit").SetValue("°d");
        At("liquid/ph").SetValue(7.0);  // was not known
        At("liquid/balance.auto", 1).SetValue(true);
        At("liquid/temp.orig").SetUnit("K");  // the unit alone
        m_project.GetDetails().At("project/date").SetValue(wxDateTime(1, wxDateTime::Mar, 2024));
        At("liquid/tds").SetValue(100.0);  // computed, hence not part of the step
    });
    EXPECT_EQ(step.size(), 6U);
    m_stack.Push(step);

    ASSERT_NE(m_stack.Undo(), nullptr);
    EXPECT_EQ(At("liquid/na.orig").GetDoubleValue(), exact);
    EXPECT_EQ(At("liquid/na.unit").GetStdStringValue(), "mg/l");
    EXPECT_TRUE(std::isnan(At("liquid/ph").GetDoubleValue()));
    EXPECT_FALSE(At("liquid/balance.auto", 1).GetBoolValue());
    EXPECT_EQ(At("liquid/temp.orig").GetUnit(), "");
    EXPECT_FALSE(m_project.GetDetails().At("project/date").GetDateValue().IsValid());
    EXPECT_EQ(At("liquid/tds").GetDoubleValue(), 100.0);

    ASSERT_NE(m_stack.Redo(), nullptr);
    EXPECT_EQ(At("liquid/na.unit").GetStdStringValue(), "°d");
    EXPECT_EQ(At("liquid/ph").GetDoubleValue(), 7.0);
    EXPECT_TRUE(At("liquid/balance.auto", 1).GetBoolValue());
    EXPECT_EQ(m_stack.Redo(), nullptr);
}

TEST_F(UndoRedo, AnEditThatChangesNothingIsNoStep)
{
    const UndoStep step = StepOf([this] {
        At("liquid/na.orig").SetValue(At("liquid/na.orig").GetDoubleValue());
        At("liquid/ph").SetValue(-std::nan(""));
    });
    EXPECT_TRUE(step.empty());
    m_stack.Push(step);
    EXPECT_FALSE(m_stack.CanUndo());
}

TEST_F(UndoRedo, WalksThroughABoundedHistory)
{
    for (int value = 1; value <= 5; ++value)
        m_stack.Push(StepOf([&] { At("liquid/ca.orig").SetValue(value); }));
    const auto now = [this] { return At("liquid/ca.orig").GetDoubleValue(); };

    m_stack.UndoAll();  // only three steps are remembered
    EXPECT_EQ(now(), 2.0);
    EXPECT_FALSE(m_stack.CanUndo());
    EXPECT_EQ(m_stack.Undo(), nullptr);
    m_stack.Redo();
    EXPECT_EQ(now(), 3.0);

    m_stack.Push(StepOf([this] { At("liquid/ca.orig").SetValue(30.0); }));  // forgets what was undone
    EXPECT_FALSE(m_stack.CanRedo());
    m_stack.Undo();
    EXPECT_EQ(now(), 3.0);
    m_stack.RedoAll();
    EXPECT_EQ(now(), 30.0);
    m_stack.Clear();
    EXPECT_FALSE(m_stack.CanUndo() || m_stack.CanRedo());
}

TEST_F(UndoRedo, SkipsWhatIsNoLongerThere)
{
    m_project.AddLiquid("Second");
    m_stack.Push(StepOf([this] {
        At("liquid/k.orig", 1).SetValue(4.0);
        At("liquid/k.orig", 0).SetValue(3.0);
    }));
    m_project.RemoveLiquid(1);
    EXPECT_NO_THROW(m_stack.Undo());
    EXPECT_EQ(At("liquid/k.orig").GetDoubleValue(), 0.0);
}

}  // namespace
