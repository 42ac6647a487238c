// SPDX-License-Identifier: MIT
// Every page of every plant as users of the keyboard and of screen readers have it.
#include "app/document/plant_templates.h"
#include "app/modules/base/module.h"
#include "gui_base/input/controls/tv_choice.h"
#include "gui_base/input/panel/tv_modulepanelbase.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>
#include <wx/choice.h>
#include <wx/grid.h>
#include <wx/radiobut.h>
#include <wx/textctrl.h>
#include <wx/toolbar.h>
#include <wx/uiaction.h>

#include <algorithm>
#include <functional>
#include <gtk/gtk.h>
#include <set>

namespace {

class AccessibilityTest : public gui_test::ProgramTest
{
protected:
    AccessibilityTest() : ProgramTest("world_river_livingstone") {}

    /// Calls `visit` with the page of each module, for each template of a plant or one of them.
    template <typename Visit>
    void VisitPages(const Visit& visit, std::string_view only = {})
    {
        for (const app::PlantTemplate& plant : app::PlantTemplates()) {
            if (!only.empty() && plant.id != only)
                continue;
            m_frame->GetDocument().SetUnsaved(false);
            m_frame->SetDocument(std::make_unique<app::Document>(app::NewProjectFrom(plant)));
            for (std::size_t place = 0;; ++place) {
                const app::PageHost* before = m_frame->GetBook().GetCurrent();
                m_frame->GetBook().ShowPlace(place);
                gui_test::Pump();
                const app::PageHost* page = m_frame->GetBook().GetCurrent();
                if (page == nullptr || (place > 0 && page == before))
                    break;
                SCOPED_TRACE(std::string(plant.id) + ", " + page->GetModule().id);
                visit(*m_frame->GetBook().GetCurrentPanel());
            }
        }
    }

    /// Calls `visit` with every shown window below `window`.
    template <typename Visit>
    static void VisitShown(wxWindow& window, const Visit& visit)
    {
        for (wxWindow* child : window.GetChildren()) {
            if (!child->IsShown() || child->IsTopLevel())
                continue;
            visit(*child);
            VisitShown(*child, visit);
        }
    }

    /// What a screen reader says of a control: its own name, or the label that the toolkit reads from it.
    static std::string Spoken(const wxWindow& window)
    {
        auto* widget = static_cast<GtkWidget*>(window.GetHandle());
        const char* name = widget ? atk_object_get_name(gtk_widget_get_accessible(widget)) : nullptr;
        return name ? name : "";
    }

    /// Also what only a click focuses, such as a result.
    static bool TakesFocus(const wxWindow& window)
    {
        return window.AcceptsFocus() && window.GetChildren().empty();
    }

    static void ExpectNames(wxWindow& page)
    {
        std::set<std::string> names;
        VisitShown(page, [&](wxWindow& window) {
            if (!TakesFocus(window))
                return;
            const std::string name = Spoken(window);
            EXPECT_NE(name, "") << window.GetName() << " in " << window.GetParent()->GetName();
            EXPECT_TRUE(name.empty() || names.insert(name).second) << "twice: " << name;
        });
    }

    /// What a screen reader says of the buttons of the toolbar, which are no windows.
    static std::vector<std::string> SpokenTools(const wxToolBar& bar)
    {
        std::vector<std::string> names;
        const std::function<void(AtkObject*)> visit = [&](AtkObject* object) {
            const AtkRole role = atk_object_get_role(object);
            if (role == ATK_ROLE_PUSH_BUTTON || role == ATK_ROLE_TOGGLE_BUTTON) {
                const char* name = atk_object_get_name(object);
                names.emplace_back(name != nullptr ? name : "");
            }
            for (int i = 0; i < atk_object_get_n_accessible_children(object); ++i) {
                AtkObject* child = atk_object_ref_accessible_child(object, i);
                visit(child);
                g_object_unref(child);
            }
        };
        visit(gtk_widget_get_accessible(static_cast<GtkWidget*>(bar.GetHandle())));
        return names;
    }

    /// Whether Tab is to stop there. A list of radio buttons has one stop.
    static bool IsStop(const wxWindow& window)
    {
        const auto* radio = dynamic_cast<const wxRadioButton*>(&window);
        return TakesFocus(window) && window.AcceptsFocusFromKeyboard() && window.IsEnabled() &&
               (radio == nullptr || radio->GetValue());
    }

    /// A grid for the part of it that has the focus.
    static wxWindow& Whole(wxWindow& window)
    {
        auto* grid = dynamic_cast<wxGrid*>(window.GetParent());
        return grid != nullptr ? *grid : window;
    }

    /// What has the focus below a window, also where the toolkit's own part of a control has it; or null.
    static wxWindow* FocusBelow(wxWindow& window, GtkWidget* focus)
    {
        for (wxWindow* child : window.GetChildren()) {
            auto* widget = static_cast<GtkWidget*>(child->GetHandle());
            if (child->IsTopLevel() || widget == nullptr ||
                (widget != focus && !gtk_widget_is_ancestor(focus, widget)))
                continue;
            wxWindow* below = FocusBelow(*child, focus);
            return below != nullptr ? &Whole(*below) : child;
        }
        return nullptr;
    }

    /// Presses Tab from the first stop on; everything that has had the focus within the page, in order.
    std::vector<wxWindow*> WalkByTab(wxWindow& first, wxWindow& page, std::size_t most)
    {
        std::vector<wxWindow*> walked;
        first.SetFocus();
        for (std::size_t presses = 0; presses <= most; ++presses) {
            gui_test::Pump();
            GtkWidget* focus = gtk_window_get_focus(GTK_WINDOW(m_frame->GetHandle()));
            wxWindow* at = focus != nullptr ? FocusBelow(page, focus) : nullptr;
            if (at == nullptr)
                return walked;
            if (walked.empty() || at != walked.back()) {
                walked.push_back(at);
                // Tab goes through the cells first.
                auto* grid = dynamic_cast<wxGrid*>(at);
                if (grid != nullptr && grid->GetNumberRows() > 0)
                    grid->GoToCell(grid->GetNumberRows() - 1, grid->GetNumberCols() - 1);
            }
            wxUIActionSimulator().Char(WXK_TAB);
        }
        ADD_FAILURE() << "Tab does not leave the page, at " << Spoken(*walked.back());
        return walked;
    }

    /// Tab stops at everything that can be used on a page, in the order in which it is read.
    void ExpectTabOrder(wxWindow& page)
    {
        std::vector<wxWindow*> wanted;
        VisitShown(page, [&](wxWindow& window) {
            if (IsStop(window))
                wanted.push_back(&Whole(window));
        });
        if (wanted.empty())
            return;
        // A drawing takes Tab for its values, a grid for its last cells.
        constexpr std::size_t kMostValues = 60;
        const std::vector<wxWindow*> walked = WalkByTab(*wanted.front(), page, wanted.size() + kMostValues);
        for (wxWindow* stop : wanted) {
            // Where the focus goes settles what can be done with a row.
            const bool isReached = std::ranges::find(walked, stop) != walked.end();
            EXPECT_TRUE(isReached || !stop->IsEnabled()) << "not reached: " << Spoken(*stop);
        }
        for (std::size_t i = 1; i < walked.size(); ++i) {
            const wxRect before = walked[i - 1]->GetScreenRect();
            const wxRect after = walked[i]->GetScreenRect();
            if (walked[i]->GetParent() != walked[i - 1]->GetParent() || before.Intersects(after))
                continue;
            // To the right or down; up only into another column.
            EXPECT_TRUE(after.y >= before.GetBottom() || after.x >= before.GetRight())
                << Spoken(*walked[i]) << " after " << Spoken(*walked[i - 1]);
        }
    }
};

TEST_F(AccessibilityTest, EveryControlHasANameOfItsOwn)
{
    VisitPages([](wxWindow& page) { ExpectNames(page); });
}

TEST_F(AccessibilityTest, EveryControlAroundThePagesHasANameOfItsOwn)
{
    m_frame->ReportError([] { return UserMessage{"nothing was saved", {}}; });
    for (const bool isStart : {false, true}) {
        SCOPED_TRACE(isStart ? "start page" : "work area");
        if (isStart)
            m_frame->ShowStart();
        gui_test::Pump();
        ExpectNames(*m_frame);
        const std::vector<std::string> tools = SpokenTools(*m_frame->GetToolBar());
        EXPECT_EQ(tools.size(), 14U);
        EXPECT_EQ(std::set<std::string>(tools.begin(), tools.end()).size(), tools.size());
        EXPECT_THAT(tools, testing::Not(testing::Contains("")));
    }
}

TEST_F(AccessibilityTest, SaysWhatIsAResult)
{
    FeedWaterPanel& page = WaterPage();
    gui_test::Pump();
    std::set<std::string> names;
    VisitShown(page, [&](wxWindow& window) { names.insert(Spoken(window)); });
    for (const char* name : {"Sodium [mg/l]", "Sodium, result [mg/l]", "Sodium, result [meq/l]"})
        EXPECT_EQ(names.count(name), 1u) << name;
    // Also after the unit became that of a result.
    auto& unit = gui_test::Find<wxChoice>(page, "Sodium, Unit");
    gui_test::Focus(unit);
    unit.SetStringSelection("meq/l");
    wxCommandEvent chosen(wxEVT_CHOICE, unit.GetId());
    chosen.SetEventObject(&unit);
    unit.GetEventHandler()->ProcessEvent(chosen);
    gui_test::Pump();
    EXPECT_EQ(Spoken(gui_test::Find<wxTextCtrl>(page, "Sodium [meq/l]")), "Sodium [meq/l]");
}

TEST_F(AccessibilityTest, TabReachesEveryInputAndLeavesThePage)
{
    // It has every kind of module, and the most exchangers.
    VisitPages([this](wxWindow& page) { ExpectTabOrder(page); }, "demineralisation");
}

TEST_F(AccessibilityTest, TabReachesEverythingAroundThePages)
{
    // Its water is warned of, which stands between other results.
    const auto plants = app::PlantTemplates();
    const auto plant =
        std::ranges::find(plants, std::string_view("demineralisation"), &app::PlantTemplate::id);
    m_frame->SetDocument(std::make_unique<app::Document>(app::NewProjectFrom(*plant)));
    gui_test::Pump();
    ExpectTabOrder(gui_test::Find<wxWindow>(*m_frame, "Results of the water"));
    m_frame->ShowStart();
    gui_test::Pump();
    ExpectTabOrder(gui_test::Find<wxWindow>(*m_frame, "Start page"));
}

TEST_F(AccessibilityTest, AltDownOpensTheUnitsThatTabPassesBy)
{
    FeedWaterPanel& page = WaterPage();
    gui_test::Pump();
    std::vector<std::pair<wxTextCtrl*, tvUnitChoice*>> values;
    VisitShown(page, [&](wxWindow& window) {
        auto* unit = dynamic_cast<tvUnitChoice*>(&window);
        auto* value = unit != nullptr ? dynamic_cast<wxTextCtrl*>(unit->GetPrevSibling()) : nullptr;
        if (value != nullptr && value->IsEnabled() && value->IsEditable() && unit->IsEnabled() &&
            !unit->AcceptsFocusFromKeyboard())
            values.emplace_back(value, unit);
    });
    EXPECT_GT(values.size(), 20u);
    for (const auto& [value, unit] : values) {
        gui_test::Focus(*value);
        wxUIActionSimulator().Char(WXK_DOWN, wxMOD_ALT);
        auto* combo = static_cast<GtkWidget*>(unit->GetHandle());
        const auto isOpen = [combo] {
            gboolean shown = FALSE;
            g_object_get(combo, "popup-shown", &shown, nullptr);
            return shown != FALSE;
        };
        EXPECT_TRUE(gui_test::PumpUntil(isOpen)) << Spoken(*value);
        gtk_combo_box_popdown(GTK_COMBO_BOX(combo));
        gui_test::Pump();
    }
}

}  // namespace
