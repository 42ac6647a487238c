// SPDX-License-Identifier: MIT
#include "app/tour/tour.h"

#include "app/document/plant_templates.h"
#include "app/document/templates.h"
#include "app/frame/main_frame.h"
#include "app/language/language.h"
#include "app/modules/base/module.h"
#include "app/tour/control_gallery.h"
#include "app/tour/tour_pictures.h"
#include "dbinterfaces/project_database.h"
#include "gui_base/input/panel/aui_notebook.h"
#include "gui_base/support/translation.h"

#include <wx/app.h>
#include <wx/display.h>
#include <wx/frame.h>
#include <wx/stattext.h>
#include <wx/uiaction.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <stdexcept>
#include <string_view>

namespace app {
namespace {

constexpr std::array kStates{SpecimenState::Normal, SpecimenState::ReadOnly, SpecimenState::Below,
                             SpecimenState::Above,  SpecimenState::Disabled, SpecimenState::Focused};

/// The toolkit frames the focused control only for a user of the keyboard: leaves it and comes back.
void FocusByKeyboard(wxWindow& window)
{
    Settle();
    window.SetFocus();
    Settle();
    wxUIActionSimulator simulator;
    simulator.Char(WXK_TAB, wxMOD_SHIFT);
    Settle();
    simulator.Char(WXK_TAB);
}

/// A water with a feed of some compounds, one of which is out of range, so that every module has something to
/// show.
std::unique_ptr<Project> NewPictured()
{
    auto project = NewExample();
    auto* plant = dynamic_cast<iex::IEXProject*>(project.get());
    if (plant == nullptr)
        return project;
    constexpr std::array<std::pair<const char*, double>, 5> kFeed{
        {{"calcium", 80.0}, {"sodium", 46.0}, {"chloride", 71.0}, {"bicarbonate", 244.0}, {"nitrate", -1.0}}};
    FeedComposition composition = plant->LoadFeedCompositionFromDetails();
    for (const auto& [name, concentration] : kFeed) {
        const auto found = ProjectDatabase::GetCompounds({}, {}, name);
        // A search finds whatever has the word in its name.
        const auto exact = std::ranges::find(found, name, &DBObjects::Compound::name);
        if (exact == found.end())
            continue;
        composition.Add(*exact);
        composition.SetFeed(composition.GetEntries().size() - 1, FeedComposition::Unit::MgPerLitre,
                            concentration);
    }
    plant->SaveFeedCompositionToDetails(composition);
    return project;
}

/// Waters beside the one of a project, for what compares them.
void AddOtherWaters(Project& project)
{
    const ProjectEdit edit(project, {}, EditKind::Copied);
    for (const char* id : {"bc_1401030_2016", "brandenburg_saline"}) {
        if (const WaterTemplate* water = FindWaterTemplate(id))
            FillWater(project.AddLiquid(water->name), *water);
    }
}

/// The plant whose pages a module belongs to, where it is not one of waters alone.
std::unique_ptr<Project> NewPicturedFor(const Module& module)
{
    auto project = NewPictured();
    for (const PlantTemplate& plant : PlantTemplates()) {
        if (module.isFor(*project))
            break;
        if (plant.id == std::string_view("demineralisation"))
            project = NewProjectFrom(plant);
    }
    if (module.id == "diagrams")
        AddOtherWaters(*project);
    return project;
}

}  // namespace

/// How a module is pictured.
struct ModuleLook
{
    const char* suffix;
    wxSize size;
    const char* language = nullptr;
    const char* unitSystem = nullptr;
};

namespace {

const std::array<ModuleLook, 10>& ModuleLooks()
{
    static const std::array<ModuleLook, 10> looks{{
        {"", {1600, 1000}},
        {"_narrow", {1024, 768}},
        {"_wide", {2560, 1400}},
        {"_us_units", {1600, 1000}, nullptr, "us"},
        {"_german", {1600, 1000}, "de"},
        {"_german_narrow", {1024, 768}, "de"},
        {"_german_wide", {2560, 1400}, "de"},
        {"_french", {1600, 1000}, "fr"},
        {"_french_narrow", {1024, 768}, "fr"},
        {"_french_wide", {2560, 1400}, "fr"},
    }};
    return looks;
}

}  // namespace

void Tour::TakeControls()
{
    for (const Exhibit& exhibit : ControlExhibits())
        TakeExhibit(exhibit);
}

void Tour::TakeExhibit(const Exhibit& exhibit)
{
    auto* frame = new wxFrame(nullptr, wxID_ANY, exhibit.name);
    auto* panel = new wxPanel(frame);
    auto* grid = new wxFlexGridSizer(2, frame->FromDIP(wxSize(16, 8)));
    std::deque<Specimen> specimens;
    for (const SpecimenState state : kStates) {
        if ((exhibit.states & static_cast<unsigned>(state)) == 0)
            continue;
        grid->Add(new wxStaticText(panel, wxID_ANY, StateCaption(state)), wxSizerFlags().CenterVertical());
        auto* cell = new wxPanel(panel);
        auto* row = new wxBoxSizer(wxHORIZONTAL);
        cell->SetSizer(row);
        Specimen& specimen = specimens.emplace_back(cell, *row, state);
        exhibit.build(specimen);
        // Some controls draw themselves differently only when they are disabled themselves.
        if (state == SpecimenState::Disabled) {
            if (specimen.GetFocusWindow() != nullptr)
                specimen.GetFocusWindow()->Disable();
            cell->Disable();
        }
        grid->Add(cell, wxSizerFlags().Expand());
    }
    auto* outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(grid, wxSizerFlags(1).Expand().Border(wxALL, frame->FromDIP(12)));
    panel->SetSizer(outer);
    outer->Fit(panel);
    frame->SetClientSize(panel->GetSize());
    frame->Show();
    for (const Specimen& specimen : specimens)
        if (specimen.GetState() == SpecimenState::Focused && specimen.GetFocusWindow() != nullptr)
            FocusByKeyboard(*specimen.GetFocusWindow());
    Visit(*frame, std::string("control_") + exhibit.name);
    // The controls are bound to what the specimens hold.
    frame->DestroyChildren();
    frame->Destroy();
}

void Tour::TakeModule(const Module& module, const ModuleLook& look)
{
    auto* frame = new MainFrame(std::make_unique<Document>(NewPicturedFor(module)));
    frame->SetClientSize(look.size);
    frame->Show();
    const wxString language = CurrentLanguage();
    const OwnerNode& root = frame->GetProject().GetRoot();
    const bool isProject = module.pageOf == OwnerKind::Project;
    frame->GetBook().Show(module.id,
                          isProject ? DetailOwner() : root.GetChildren(module.pageOf)[0]->GetOwner());
    if (look.language != nullptr)
        frame->View().SetLanguage(look.language);
    if (look.unitSystem != nullptr)
        frame->View().SetUnitSystem(look.unitSystem);
    Settle();
    // Whoever looks at the picture of a page must see that page.
    const PageHost* shown = frame->GetBook().GetCurrent();
    if (shown == nullptr || shown->GetModule().id != module.id || !shown->IsShownOnScreen())
        throw std::runtime_error("Tour::TakeModule: the page \"" + module.id + "\" is not in front");
    const wxString caption = wxString::Format(
        "%s | %s | %s | %d x %d", i18n::Translated(shown->GetModule().title), CurrentLanguage(),
        wxString::FromUTF8(frame->GetProject().GetUnitSystemDisplay()), look.size.x, look.size.y);
    Visit(*frame, "module_" + module.id + look.suffix, caption);
    frame->GetDocument().SetUnsaved(false);
    frame->View().SetLanguage(language);
    frame->View().SetUnitSystem("iso");
    frame->Close(true);
    Settle();
}

void Tour::TakeModules()
{
    for (const Module& module : Modules()) {
        for (const ModuleLook& look : ModuleLooks()) {
            // What does not fit the display is not drawn.
            const wxSize display = wxDisplay().GetGeometry().GetSize();
            const bool fits = look.size.x <= display.x && look.size.y <= display.y;
            if (fits && (look.language == nullptr || HasLanguage(look.language)))
                TakeModule(module, look);
        }
    }
}

void TakeTour(const std::filesystem::path& folder, const std::string& look, TourPart part)
{
    Tour tour(std::bind_front(&Pictures::Save, Pictures(folder, look)));
    if (part == TourPart::All) {
        tour.TakeControls();
        tour.TakeDialogs();
    }
    tour.TakeModules();
}

}  // namespace app
