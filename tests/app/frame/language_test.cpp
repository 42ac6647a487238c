// SPDX-License-Identifier: MIT
// Pages in another language.
#include "app/document/plant_templates.h"
#include "app/modules/base/module.h"
#include "gui_base/input/panel/tv_modulepanelbase.h"
#include "tests/support/program_fixture.h"

#include <wx/anybutton.h>
#include <wx/checkbox.h>
#include <wx/radiobut.h>
#include <wx/statbox.h>
#include <wx/stattext.h>

#include <algorithm>
#include <map>

namespace {

class LanguageTest : public gui_test::ProgramTest
{
protected:
    LanguageTest() : ProgramTest("world_river_livingstone") {}

    void OpenPlant()
    {
        const auto plants = app::PlantTemplates();
        m_frame->GetDocument().SetUnsaved(false);
        m_frame->SetDocument(std::make_unique<app::Document>(app::NewProjectFrom(
            *std::ranges::find(plants, std::string_view("demineralisation"), &app::PlantTemplate::id))));
        gui_test::Pump();
    }

    /// What stands on a page beside its values, in order.
    static void Read(const wxWindow& window, std::vector<std::string>& texts)
    {
        for (const wxWindow* child : window.GetChildren()) {
            const bool isText = dynamic_cast<const wxStaticText*>(child) != nullptr ||
                                dynamic_cast<const wxStaticBox*>(child) != nullptr ||
                                dynamic_cast<const wxAnyButton*>(child) != nullptr ||
                                dynamic_cast<const wxCheckBox*>(child) != nullptr ||
                                dynamic_cast<const wxRadioButton*>(child) != nullptr;
            if (isText)
                texts.push_back(child->GetLabel().utf8_string());
            Read(*child, texts);
        }
    }

    /// The texts of every page, by its place and module.
    std::map<std::string, std::vector<std::string>> ReadPages()
    {
        std::map<std::string, std::vector<std::string>> pages;
        const app::PageHost* last = nullptr;
        for (std::size_t place = 0;; ++place) {
            m_frame->GetBook().ShowPlace(place);
            gui_test::Pump();
            const app::PageHost* page = m_frame->GetBook().GetCurrent();
            if (page == nullptr || page == last)
                return pages;
            last = page;
            Read(*m_frame->GetBook().GetCurrentPanel(),
                 pages[std::to_string(place) + " " + page->GetModule().id]);
        }
    }
};

TEST_F(LanguageTest, PagesSayTheSameWhetherTheyWereMadeInALanguageOrTookItLater)
{
    for (const char* language : {"de", "fr"}) {
        OpenPlant();
        const auto before = ReadPages();
        m_frame->View().SetLanguage(language);
        gui_test::Pump();
        const auto changed = ReadPages();
        OpenPlant();
        const auto made = ReadPages();
        EXPECT_GE(made.size(), 10U);
        EXPECT_NE(before, made);
        for (const auto& [page, texts] : made) {
            const std::vector<std::string>& taken = changed.at(page);
            ASSERT_EQ(taken.size(), texts.size()) << page;
            for (std::size_t i = 0; i < texts.size(); ++i)
                EXPECT_EQ(taken[i], texts[i]) << page << " in " << language;
        }
        m_frame->View().SetLanguage("en");
        gui_test::Pump();
    }
}

}  // namespace
