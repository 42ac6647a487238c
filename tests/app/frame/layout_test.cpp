// SPDX-License-Identifier: MIT
// Every page, what stands around it, and every dialog, in an open window through changes of language, units,
// theme, size of the texts, density and width: nothing is clipped, and what comes back to where it began
// looks as it did.
#include "app/document/plant_templates.h"
#include "app/frame/page_item.h"
#include "app/modules/base/module.h"
#include "app/tour/tour_pictures.h"
#include "gui_base/input/panel/tv_modulepanelbase.h"
#include "tests/app/frame/clipped.h"
#include "tests/support/program_fixture.h"

#include <wx/button.h>
#include <wx/treectrl.h>
#include <wx/utils.h>

#include <cstdlib>
#include <gtk/gtk.h>
#include <map>
#include <random>
#include <set>

namespace {

/// How the window stands.
struct Setting
{
    std::string language = "en";
    std::string units = "iso";
    std::string density = "compact";
    int width = 1600;
    bool isDark = false;
    int textPercent = 100;

    std::string Describe() const
    {
        return language + " " + units + " " + density + " " + std::to_string(width) +
               (isDark ? " dark " : " ") + std::to_string(textPercent) + " %";
    }
};

class LayoutTest : public gui_test::ProgramTest
{
protected:
    LayoutTest() : ProgramTest("world_river_livingstone") {}

    void SetUp() override
    {
        ProgramTest::SetUp();
        for (const app::PlantTemplate& plant : app::PlantTemplates()) {
            if (plant.id == std::string_view("demineralisation"))
                m_frame->SetDocument(std::make_unique<app::Document>(app::NewProjectFrom(plant)));
        }
    }

    void TearDown() override
    {
        Apply({});
        ProgramTest::TearDown();
    }

    void Apply(const Setting& wanted)
    {
        // In the order in which a user would come upon them.
        if (wanted.isDark != m_now.isDark)
            g_object_set(gtk_settings_get_default(), "gtk-application-prefer-dark-theme",
                         static_cast<gboolean>(wanted.isDark), nullptr);
        if (wanted.language != m_now.language)
            m_frame->View().SetLanguage(wanted.language);
        if (wanted.units != m_now.units)
            m_frame->View().SetUnitSystem(wanted.units);
        if (wanted.density != m_now.density)
            m_frame->View().SetDensity(wanted.density);
        if (wanted.textPercent != m_now.textPercent)
            // In 1024ths of a dot to the inch.
            g_object_set(gtk_settings_get_default(), "gtk-xft-dpi", 1024 * 96 * wanted.textPercent / 100,
                         nullptr);
        m_frame->SetSize(wanted.width, 1000);
        m_now = wanted;
        gui_test::Pump();
    }

    /// Other changes each time; those that found something come again with their seed in the environment.
    static unsigned long Seed()
    {
        const char* const wanted = std::getenv("TARNVIK_LAYOUT_SEED");
        return wanted != nullptr ? std::strtoul(wanted, nullptr, 10) : std::random_device()();
    }

    /// Changes one thing.
    Setting Vary(std::mt19937& random) const
    {
        const auto pick = [&](auto... values) {
            const std::array all{values...};
            return all.at(std::uniform_int_distribution<std::size_t>(0, all.size() - 1)(random));
        };
        Setting next = m_now;
        switch (pick(0, 1, 2, 3, 4)) {
            case 0:
                next.language = pick("en", "de", "fr");
                break;
            case 1:
                next.units = pick("iso", "us", "imperial");
                break;
            case 2:
                next.density = pick("compact", "comfortable");
                break;
            case 3:
                next.isDark = !next.isDark;
                break;
            default:
                break;
        }
        next.width = pick(1024, 1280, 1600, 1900, 2560);
        return next;
    }

    /// Calls `visit` with the id of each module of the plant, its first page in front.
    template <typename Visit>
    void ForEachPage(const Visit& visit)
    {
        for (const app::Module& module : app::Modules()) {
            if (!module.isFor(OpenProject()))
                continue;
            const bool isProject = module.pageOf == OwnerKind::Project;
            m_frame->GetBook().Show(
                module.id, isProject ? DetailOwner()
                                     : OpenProject().GetRoot().GetChildren(module.pageOf)[0]->GetOwner());
            Settle();
            visit(module.id);
        }
    }

    /// The toolkit gives windows within windows their places one after the other, each in a turn of its own.
    void Settle()
    {
        constexpr int kMostTurns = 20;
        // New sizes are taken over with the next frame.
        constexpr int kQuietTurns = 3;
        int quiet = 0;
        std::vector<wxRect> before;
        for (int turn = 0; turn < kMostTurns; ++turn) {
            // The toolkit gives windows their places on the screen by the beat of its clock.
            constexpr int kBeat = 20;
            wxMilliSleep(kBeat);
            gui_test::Pump();
            std::vector<wxRect> now;
            gui_test::VisitShown(Page(), [&now](const wxWindow& window) {
                now.push_back(window.GetRect());
                now.push_back(window.GetScreenRect());
            });
            quiet = now == before ? quiet + 1 : 0;
            if (quiet == kQuietTurns)
                return;
            before = std::move(now);
        }
    }

    wxWindow& Page() { return *m_frame->GetBook().GetCurrentPanel(); }

    std::vector<std::string> Clipped()
    {
        std::vector<std::string> clipped = gui_test::Clipped(*m_frame);
        wxTreeCtrl& tree = m_frame->GetWorkArea().GetTree();
        app::VisitItems(tree, tree.GetRootItem(), [&](const wxTreeItemId& item) {
            wxRect text;
            if (tree.GetBoundingRect(item, text, true) && text.GetRight() > tree.GetClientSize().x)
                clipped.push_back(("Item " + tree.GetItemText(item)).utf8_string());
            return false;
        });
        return clipped;
    }

    /// Where everything is, for comparison.
    std::vector<std::string> Places()
    {
        std::vector<std::string> places;
        gui_test::VisitShown(Page(), [&](const wxWindow& window) {
            // The toolkit does not say where the title of a box is.
            const wxRect rect = IsTitle(window) ? wxRect() : window.GetRect();
            places.push_back(wxString::Format("%s '%s' %s: %d, %d, %d x %d",
                                              window.GetClassInfo()->GetClassName(), window.GetLabel(),
                                              window.GetName(), rect.x, rect.y, rect.width, rect.height)
                                 .utf8_string());
        });
        return places;
    }

    static bool IsTitle(const wxWindow& window)
    {
        return dynamic_cast<const wxButton*>(&window) != nullptr && window.HasFlag(wxBORDER_NONE);
    }

    /// What moved, one line each.
    static std::string Moved(const std::vector<std::string>& before, const std::vector<std::string>& after)
    {
        std::string moved = before.size() != after.size() ? "another number of windows\n" : "";
        for (std::size_t i = 0; i < std::min(before.size(), after.size()); ++i) {
            if (before[i] != after[i])
                moved += before[i] + " -> " + after[i] + "\n";
        }
        return moved;
    }

    Setting m_now;
};

}  // namespace

TEST_F(LayoutTest, NothingIsClippedAndEverythingComesBack)
{
    const unsigned long seed = Seed();
    std::mt19937 random(static_cast<std::mt19937::result_type>(seed));
    SCOPED_TRACE("seed " + std::to_string(seed));
    ForEachPage([&](const std::string& id) {
        Apply({});
        // The toolkit measures some windows otherwise before they were shown for the first time.
        m_frame->RebuildPages();
        Settle();
        const std::vector<std::string> before = Places();
        for (int step = 0; step < 6; ++step) {
            Apply(Vary(random));
            Settle();
            EXPECT_THAT(Clipped(), testing::IsEmpty()) << id << ": " << m_now.Describe();
        }
        // Narrow, and wide again.
        Apply({.width = 1024});
        Apply({});
        Settle();
        EXPECT_EQ(Moved(before, Places()), "") << id << " does not come back";
    });
}

TEST_F(LayoutTest, LargerTextsHaveRoom)
{
    // What comes back is not compared: the toolkit keeps sizes that larger texts gave its menu bar and bold
    // texts.
    const unsigned long seed = Seed();
    std::mt19937 random(static_cast<std::mt19937::result_type>(seed));
    SCOPED_TRACE("seed " + std::to_string(seed));
    for (const int percent : {125, 150}) {
        Apply({.language = "de", .width = 1900, .textPercent = percent});
        ForEachPage([&](const std::string& id) {
            EXPECT_THAT(Clipped(), testing::IsEmpty()) << id << ": " << m_now.Describe();
            Setting next = Vary(random);
            next.textPercent = next.textPercent == 100 ? percent : 100;
            Apply(next);
            Settle();
            EXPECT_THAT(Clipped(), testing::IsEmpty()) << id << ": " << m_now.Describe();
        });
    }
}

TEST_F(LayoutTest, PagesOfANarrowWindowScrollDownwardsAlone)
{
    // A drawing becomes no smaller than its texts can be read.
    const std::set<std::string> wide{"overview"};
    for (const char* language : {"en", "de", "fr"}) {
        Apply({.language = language, .width = 1024});
        ForEachPage([&](const std::string& id) {
            std::vector<std::string> beyond;
            const int edge = Page().GetScreenPosition().x + Page().GetClientSize().x;
            gui_test::VisitShown(Page(), [&](const wxWindow& window) {
                // What is around it goes as far.
                const int right = window.GetScreenRect().GetRight();
                if (right > edge && window.GetChildren().empty())
                    beyond.push_back((window.GetName() + " " + window.GetLabel()).utf8_string() + " +" +
                                     std::to_string(right - edge));
            });
            if (!wide.contains(id)) {
                EXPECT_THAT(beyond, testing::IsEmpty())
                    << id << ", " << language << ": " << Page().GetClientSize().x << " virtual "
                    << Page().GetVirtualSize().x << " laid out " << Page().GetSizer()->GetSize().x;
                EXPECT_LE(Page().GetVirtualSize().x, Page().GetClientSize().x) << id << ", " << language;
            }
        });
    }
}

TEST_F(LayoutTest, NothingIsClippedInADialogOfAnyLanguage)
{
    for (const Setting& setting : {Setting{}, Setting{.density = "comfortable", .textPercent = 125}}) {
        Apply(setting);
        std::set<std::string> seen;
        app::Tour tour([&](wxWindow& window, const std::string& name, const wxString&) {
            EXPECT_THAT(gui_test::Clipped(window), testing::IsEmpty()) << name << ": " << m_now.Describe();
            seen.insert(name);
        });
        tour.TakeDialogs();
        for (const char* name : {"dialog_settings", "dialog_blend_german", "dialog_water_library_french"})
            EXPECT_TRUE(seen.contains(name)) << name;
    }
}
