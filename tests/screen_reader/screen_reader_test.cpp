// SPDX-License-Identifier: MIT
// The program as a screen reader has it: another process that knows nothing but roles, names and texts.
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atspi/atspi.h>
#include <chrono>
#include <csignal>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using namespace std::chrono_literals;

struct Unref
{
    void operator()(gpointer object) const { g_object_unref(object); }
};
using Accessible = std::unique_ptr<AtspiAccessible, Unref>;

std::string Take(gchar* text)
{
    const std::string taken = text != nullptr ? text : "";
    g_free(text);
    return taken;
}

std::string NameOf(AtspiAccessible& object)
{
    return Take(atspi_accessible_get_name(&object, nullptr));
}

bool Has(AtspiAccessible& object, AtspiStateType state)
{
    const std::unique_ptr<AtspiStateSet, Unref> states(atspi_accessible_get_state_set(&object));
    return states != nullptr && atspi_state_set_contains(states.get(), state) != FALSE;
}

/// Asks until the answer is yes, for as long as a slow machine may take.
bool Wait(const std::function<bool()>& isSo)
{
    const auto end = std::chrono::steady_clock::now() + 60s;
    while (!isSo()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        while (g_main_context_iteration(nullptr, FALSE) != FALSE)
            continue;
        std::this_thread::sleep_for(50ms);
    }
    return true;
}

class ScreenReaderTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_LT(atspi_init(), 2);
        m_program = fork();
        if (m_program == 0) {
            setenv("TARNVIK_USER_DATA", m_folder.Path().c_str(), 1);
            execl(TARNVIK_PROGRAM, TARNVIK_PROGRAM, TARNVIK_EXAMPLES "/demineralisation.tarnvik", nullptr);
            _exit(127);
        }
        ASSERT_TRUE(Wait([this] { return FindProgram(); })) << "the program is not known to screen readers";
        ASSERT_TRUE(Wait([this] { return !PageName().empty(); })) << "no page is shown";
    }

    void TearDown() override
    {
        m_window.reset();
        if (m_program > 0) {
            kill(m_program, SIGKILL);
            waitpid(m_program, nullptr, 0);
        }
    }

    bool FindProgram()
    {
        const Accessible desktop(atspi_get_desktop(0));
        for (int i = 0; i < atspi_accessible_get_child_count(desktop.get(), nullptr); ++i) {
            const Accessible program(atspi_accessible_get_child_at_index(desktop.get(), i, nullptr));
            if (program == nullptr ||
                atspi_accessible_get_process_id(program.get(), nullptr) != static_cast<guint>(m_program) ||
                atspi_accessible_get_child_count(program.get(), nullptr) == 0)
                continue;
            m_window.reset(atspi_accessible_get_child_at_index(program.get(), 0, nullptr));
            return m_window != nullptr;
        }
        return false;
    }

    using Visit = std::function<bool(AtspiAccessible&)>;

    /// Calls `visit` with everything below an object, outer things first, until it returns true; with
    /// `hidden` also with what is not shown.
    static bool VisitBelow(AtspiAccessible& object, const Visit& visit, bool hidden = false)
    {
        for (int i = 0; i < atspi_accessible_get_child_count(&object, nullptr); ++i) {
            const Accessible child(atspi_accessible_get_child_at_index(&object, i, nullptr));
            if (child == nullptr || (!hidden && !Has(*child, ATSPI_STATE_SHOWING)))
                continue;
            if (visit(*child) || VisitBelow(*child, visit, hidden))
                return true;
        }
        return false;
    }

    Accessible Find(AtspiRole role, const std::function<bool(const std::string&)>& isName,
                    bool hidden = false)
    {
        // What was true a moment ago may have changed with the page.
        atspi_accessible_clear_cache(m_window.get());
        Accessible found;
        VisitBelow(
            *m_window,
            [&](AtspiAccessible& object) {
                if (atspi_accessible_get_role(&object, nullptr) != role || !isName(NameOf(object)))
                    return false;
                found.reset(static_cast<AtspiAccessible*>(g_object_ref(&object)));
                return true;
            },
            hidden);
        return found;
    }

    Accessible Find(AtspiRole role, const std::string& name)
    {
        return Find(role, [&name](const std::string& each) { return each == name; });
    }

    /// What the navigator says to be chosen.
    std::string PageName()
    {
        const std::string start = "Navigator: ";
        const Accessible navigator = Find(
            ATSPI_ROLE_SCROLL_PANE, [&start](const std::string& name) { return name.starts_with(start); });
        return navigator != nullptr ? NameOf(*navigator).substr(start.size()) : std::string();
    }

    void DoMenu(const std::string& label)
    {
        const Accessible item = Find(
            ATSPI_ROLE_MENU_ITEM, [&label](const std::string& name) { return name == label; }, true);
        ASSERT_NE(item, nullptr) << label;
        const std::unique_ptr<AtspiAction, Unref> action(atspi_accessible_get_action_iface(item.get()));
        ASSERT_TRUE(action != nullptr && atspi_action_do_action(action.get(), 0, nullptr)) << label;
    }

    static std::string TextOf(AtspiAccessible& object)
    {
        const std::unique_ptr<AtspiText, Unref> text(atspi_accessible_get_text_iface(&object));
        return text == nullptr ? std::string() : Take(atspi_text_get_text(text.get(), 0, -1, nullptr));
    }

    void Focus(const std::string& field)
    {
        const Accessible found = Find(ATSPI_ROLE_TEXT, field);
        ASSERT_NE(found, nullptr) << field;
        const std::unique_ptr<AtspiComponent, Unref> place(atspi_accessible_get_component_iface(found.get()));
        ASSERT_TRUE(atspi_component_grab_focus(place.get(), nullptr)) << field;
        EXPECT_TRUE(Wait([&found] { return Has(*found, ATSPI_STATE_FOCUSED); })) << field;
    }

    void Type(const std::string& field, const std::string& text)
    {
        Focus(field);
        const Accessible found = Find(ATSPI_ROLE_TEXT, field);
        const std::unique_ptr<AtspiEditableText, Unref> editable(
            atspi_accessible_get_editable_text_iface(found.get()));
        ASSERT_TRUE(editable != nullptr &&
                    atspi_editable_text_set_text_contents(editable.get(), text.c_str(), nullptr))
            << field;
    }

    support::TempFolder m_folder;
    pid_t m_program = -1;
    Accessible m_window;
};

/// Roles and names from the object outwards.
std::string WhereIs(AtspiAccessible& object)
{
    std::string where;
    Accessible at(static_cast<AtspiAccessible*>(g_object_ref(&object)));
    for (int depth = 0; at != nullptr && depth < 8; ++depth) {
        where += Take(atspi_accessible_get_role_name(at.get(), nullptr)) + " '" + NameOf(*at) + "' < ";
        at.reset(atspi_accessible_get_parent(at.get(), nullptr));
    }
    return where;
}

/// Whether somebody does something with it, and so has to know what it is.
bool IsOperated(AtspiAccessible& object)
{
    static const std::set<AtspiRole> kRoles{
        ATSPI_ROLE_TEXT,         ATSPI_ROLE_COMBO_BOX,     ATSPI_ROLE_CHECK_BOX,
        ATSPI_ROLE_RADIO_BUTTON, ATSPI_ROLE_PUSH_BUTTON,   ATSPI_ROLE_TOGGLE_BUTTON,
        ATSPI_ROLE_SPIN_BUTTON,  ATSPI_ROLE_PASSWORD_TEXT, ATSPI_ROLE_SLIDER};
    return kRoles.contains(atspi_accessible_get_role(&object, nullptr));
}

}  // namespace

TEST_F(ScreenReaderTest, EveryPageIsWalkedByNames)
{
    const std::string first = PageName();
    std::set<std::string> pages;
    std::string page = first;
    do {
        SCOPED_TRACE(page);
        pages.insert(page);
        std::map<std::string, int> names;
        VisitBelow(*m_window, [&names](AtspiAccessible& object) {
            if (!IsOperated(object))
                return false;
            const std::string name = NameOf(object);
            EXPECT_FALSE(name.empty()) << WhereIs(object);
            if (atspi_accessible_get_role(&object, nullptr) == ATSPI_ROLE_TEXT)
                ++names[name];
            return false;
        });
        for (const auto& [name, count] : names)
            EXPECT_EQ(count, 1) << name;
        DoMenu("Next page");
        ASSERT_TRUE(Wait([&] { return PageName() != page; }));
        page = PageName();
    } while (page != first && pages.size() < 40);
    EXPECT_THAT(pages,
                testing::IsSupersetOf({"Project", "Diagrams", "Design", "Plant overview", "Charts", "Cost"}));
    EXPECT_GE(pages.size(), 10U);
}

TEST_F(ScreenReaderTest, AValueIsTypedAndItsResultIsRead)
{
    Type("Sodium [mg/l]", "23");
    Focus("Calcium [mg/l]");
    const Accessible result = Find(ATSPI_ROLE_TEXT, "Sodium, result [meq/l]");
    ASSERT_NE(result, nullptr);
    EXPECT_TRUE(Wait([&result] { return TextOf(*result).starts_with("1.00"); })) << TextOf(*result);
    EXPECT_TRUE(Wait([this] {
        return Find(ATSPI_ROLE_PANEL,
                    [](const std::string& name) { return name.starts_with("Ion balance: "); }) != nullptr;
    })) << "the verdict on the balance is not said";
}
