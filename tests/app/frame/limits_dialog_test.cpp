// SPDX-License-Identifier: MIT
#include "app/frame/limits_dialog.h"

#include "gui_base/input/controls/tv_textctrl.h"
#include "projectbase/settings/settings.h"
#include "tests/support/gui_test.h"

#include <wx/button.h>
#include <wx/infobar.h>

#include <cmath>

namespace {

using namespace gui_test;

class LimitsDialogTest : public GuiTest
{};

TEST_F(LimitsDialogTest, LimitsAreEditedOnACopy)
{
    Settings::Reset();
    app::LimitsDialog dialog(m_frame, {{"limit.toc.gel.warn", 3.5}});
    dialog.Show();
    Pump();
    EXPECT_EQ(dialog.GetChanged(), (std::map<std::string, double>{{"limit.toc.gel.warn", 3.5}}));
    Enter(Find<TvTextCtrl>(dialog, "Iron, softening, Note [mg/l]"), "0.4");
    Enter(*dialog.FindField("limit.tss.soft.warn"), "");
    const auto changed = dialog.GetChanged();
    EXPECT_EQ(changed.size(), 3u);
    EXPECT_EQ(changed.at("limit.fe.soft.note"), 0.4);
    EXPECT_TRUE(std::isnan(changed.at("limit.tss.soft.warn"))) << "no limit";
    EXPECT_EQ(Settings::GetSetting("limit.fe.soft.note").GetDoubleValue(), 0.3) << "nothing is applied";
    Click(Labelled<wxButton>(dialog, "Defaults"));
    EXPECT_TRUE(dialog.GetChanged().empty());
}

TEST_F(LimitsDialogTest, WhatTheUserSetIsMarkedAndLeadsBack)
{
    Settings::Reset();
    app::LimitsDialog dialog(m_frame, {{"limit.toc.gel.warn", 3.5}});
    dialog.Show();
    Pump();
    TvTextCtrl& note = *dialog.FindField("limit.fe.demi.note");
    TvTextCtrl& other = *dialog.FindField("limit.tss.soft.note");
    auto& back = Find<wxButton>(dialog, "Iron, demineralisation, dealkalisation, Back to 0.1 / 0.3");
    const auto isMarked = [](const TvTextCtrl& field) {
        return field.GetFont().GetWeight() == wxFONTWEIGHT_BOLD;
    };
    EXPECT_TRUE(isMarked(*dialog.FindField("limit.toc.gel.warn"))) << "changed before";
    EXPECT_FALSE(isMarked(note));
    EXPECT_FALSE(back.IsShown());
    Enter(note, "0.2");
    EXPECT_TRUE(isMarked(note));
    EXPECT_FALSE(isMarked(*dialog.FindField("limit.fe.demi.warn")));
    EXPECT_EQ(note.GetToolTipText(), "Usual: 0.1");
    EXPECT_TRUE(back.IsShown());
    Enter(note, "0.1");
    EXPECT_FALSE(isMarked(note));
    EXPECT_EQ(note.GetToolTipText(), "");
    EXPECT_FALSE(back.IsShown());
    // Only the row goes back; no text in another one is lost.
    Enter(note, "0.4");
    EXPECT_NE(note.GetToolTipText(), "Usual: 0.1") << "above its warning";
    Focus(other);
    other.SelectAll();
    other.WriteText("abc");
    back.SetFocus();
    Press(WXK_SPACE);
    Pump();
    EXPECT_EQ(note.GetValue(), "0.1");
    EXPECT_TRUE(note.HasFocus());
    EXPECT_EQ(other.GetValue(), "abc");
    EXPECT_EQ(dialog.GetChanged(), (std::map<std::string, double>{{"limit.toc.gel.warn", 3.5}}));
}

TEST_F(LimitsDialogTest, LimitsThatContradictThemselvesAreRefused)
{
    Settings::Reset();
    app::LimitsDialog dialog(m_frame, {});
    dialog.Show();
    Pump();
    TvTextCtrl& note = *dialog.FindField("limit.fe.demi.note");
    TvTextCtrl& warning = *dialog.FindField("limit.fe.demi.warn");
    auto& problem = Find<wxInfoBar>(dialog);
    const wxColour usual = note.GetBackgroundColour();
    const auto pressOk = [&dialog] {
        Click(Labelled<wxButton>(dialog, "OK"));
        Pump();
    };
    Enter(note, "0.31");
    EXPECT_NE(note.GetBackgroundColour(), usual) << "its warning begins at 0.3";
    pressOk();
    EXPECT_TRUE(dialog.IsShown());
    EXPECT_TRUE(problem.IsShown());
    EXPECT_EQ(note.GetToolTipText(),
              "Iron, demineralisation, dealkalisation:\nthe note begins at 0.31, above the warning at 0.3");
    EXPECT_TRUE(note.HasFocus());
    // The other field mends it as well.
    Enter(warning, "0.31");
    EXPECT_EQ(note.GetBackgroundColour(), usual);
    EXPECT_FALSE(problem.IsShown());
    // By keys no letters but those of a number, from the clipboard any.
    for (const char* text : {"1e", "abc"}) {
        Focus(warning);
        warning.SelectAll();
        if (text == std::string("1e"))
            Type(text);
        else
            warning.WriteText(text);
        Press(WXK_RETURN);
        EXPECT_TRUE(dialog.IsShown()) << text;
        EXPECT_EQ(warning.GetValue(), text);
        EXPECT_NE(warning.GetBackgroundColour(), usual);
        EXPECT_EQ(warning.GetToolTipText(), "Iron, demineralisation, dealkalisation, Warning:\n\"" +
                                                wxString(text) +
                                                "\" is no number; an empty field means no limit");
    }
    Enter(warning, "");
    pressOk();
    EXPECT_FALSE(dialog.IsShown());
    const auto changed = dialog.GetChanged();
    EXPECT_EQ(changed.at("limit.fe.demi.note"), 0.31);
    EXPECT_TRUE(std::isnan(changed.at("limit.fe.demi.warn")));
}

}  // namespace
