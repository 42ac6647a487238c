// SPDX-License-Identifier: MIT
#include "app/tour/tour.h"

#include "app/document/plant_templates.h"
#include "app/document/templates.h"
#include "app/frame/main_frame.h"
#include "app/frame/plant_dialog.h"
#include "app/frame/recovery_dialog.h"
#include "app/frame/settings_dialog.h"
#include "app/frame/template_dialog.h"
#include "app/language/language.h"
#include "app/modules/base/module.h"
#include "app/tour/control_gallery.h"
#include "dbinterfaces/project_database.h"
#include "gui_base/dialogs/info_message_dialog.h"
#include "gui_base/dialogs/page_selection_dialog.h"
#include "gui_base/dialogs/tv_multichoicedialog.h"
#include "gui_base/input/panel/aui_notebook.h"
#include "gui_base/ionexchange/feed/compound_editor_dialog.h"
#include "gui_base/ionexchange/regeneration/waste_water_panel.h"
#include "gui_base/ionexchange/whatif/what_if_dialog.h"
#include "gui_base/ionexchange/whatif/what_if_grid_pair_loader.h"
#include "gui_base/network/authentication_entry_dialog.h"
#include "gui_base/network/connection_dialog.h"
#include "gui_base/network/data_sheet_dialog.h"
#include "gui_base/network/rates_dialog.h"
#include "gui_base/network/update_dialog.h"
#include "gui_base/support/translation.h"
#include "gui_base/support/window_picture.h"
#include "gui_base/water/feedwater/comment_entry_dialog.h"
#include "gui_base/water/library/water_lib_dialog.h"
#include "gui_base/water/library/water_lib_list.h"
#include "gui_base/water/tools/alkalization_dialog.h"
#include "gui_base/water/tools/blend_dialog.h"
#include "gui_base/water/tools/co2_calculator_dialog.h"

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/stattext.h>
#include <wx/stopwatch.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

#include <algorithm>
#include <array>
#include <functional>
#include <stdexcept>

namespace app {
namespace {

/// Long enough for the toolkit to lay out, draw and end its short animations.
constexpr long kSettleMilliseconds = 70;

constexpr std::array kStates{SpecimenState::Normal, SpecimenState::ReadOnly, SpecimenState::Below,
                             SpecimenState::Above,  SpecimenState::Disabled, SpecimenState::Focused};

void Settle()
{
    const wxStopWatch watch;
    while (watch.Time() < kSettleMilliseconds) {
        wxTheApp->Yield();
        wxTheApp->ProcessIdle();
        wxMilliSleep(5);
    }
}

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

std::unique_ptr<Project> NewExample()
{
    const WaterTemplate* river = FindWaterTemplate("world_river_livingstone");
    return river != nullptr ? NewProjectFrom(*river) : NewEmptyProject();
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
        if (found.empty())
            continue;
        composition.Add(found.front());
        composition.SetFeed(composition.GetEntries().size() - 1, FeedComposition::Unit::MgPerLitre,
                            concentration);
    }
    plant->SaveFeedCompositionToDetails(composition);
    return project;
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
    return project;
}

/// How a module is pictured.
struct ModuleLook
{
    const char* suffix;
    wxSize size;
    const char* language = nullptr;
    const char* unitSystem = nullptr;
};

const std::array<ModuleLook, 4>& ModuleLooks()
{
    static const std::array<ModuleLook, 4> looks{{
        {"", {1440, 960}},
        {"_narrow", {820, 620}},
        {"_us_units", {1440, 960}, nullptr, "us"},
        {"_german", {1440, 960}, "de"},
    }};
    return looks;
}

class Tour
{
public:
    Tour(std::filesystem::path folder, std::string look)
        : m_folder(std::move(folder)), m_look(std::move(look))
    {}

    void TakeControls()
    {
        for (const Exhibit& exhibit : ControlExhibits())
            TakeExhibit(exhibit);
    }

    void TakeModules();
    void TakeDialogs();
    void TakeServices(wxWindow& owner);
    void TakeDataSheets(wxWindow& owner);
    void TakeRates(wxWindow& owner);
    void TakeWasteWater(wxWindow& owner);
    void TakeWhatIf(wxWindow& owner);

private:
    void Save(wxWindow& window, const std::string& name)
    {
        Settle();
        const wxImage picture = window_picture::Take(window);
        const std::filesystem::path file = m_folder / (name + "-" + m_look + ".png");
        // A picture of one colour is one of a window that has not been drawn.
        if (!picture.IsOk() || picture.CountColours(1) <= 1 ||
            !picture.SaveFile(wxString::FromUTF8(file.string()), wxBITMAP_TYPE_PNG))
            throw std::runtime_error("Tour::Save: " + file.string() + " could not be made");
    }

    void TakeExhibit(const Exhibit& exhibit);
    void TakeModule(const Module& module, const ModuleLook& look);

    void TakeDialog(wxDialog& dialog, const std::string& name)
    {
        dialog.Show();
        Save(dialog, "dialog_" + name);
        dialog.Hide();
    }

    std::filesystem::path m_folder;
    std::string m_look;
};

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
    Save(*frame, std::string("control_") + exhibit.name);
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
    Save(*frame, "module_" + module.id + look.suffix);
    frame->GetDocument().SetUnsaved(false);
    frame->View().SetLanguage(language);
    frame->View().SetUnitSystem("iso");
    frame->Close(true);
    Settle();
}

void Tour::TakeModules()
{
    for (const Module& module : Modules()) {
        for (const ModuleLook& look : ModuleLooks())
            TakeModule(module, look);
    }
}

/// One whose formula is partly unreadable, so that the picture shows how that looks.
Compound SampleCompound()
{
    Compound compound;
    compound.name = "gypsum";
    compound.category = "Salt";
    compound.valency = 2;
    compound.SetFormula("CaSO4·2H2Oy");
    return compound;
}

void Tour::TakeDialogs()
{
    auto* owner = new wxFrame(nullptr, wxID_ANY, "Tarnvik", wxDefaultPosition, wxSize(900, 600));
    owner->Show();
    SettingsDialog settings(owner, {"en", "iso", "compact", 5, std::string()});
    TakeDialog(settings, "settings");
    RecoveryDialog recovery(owner, {{.recovery = {},
                                     .project = "/projects/Northfield/Boiler feed.tarnvik",
                                     .savedAt = std::chrono::system_clock::from_time_t(1'700'000'000),
                                     .title = {},
                                     .work = {.base = {}, .edits = {"add water", "Temperature", "Sodium"}}},
                                    {.recovery = {},
                                     .project = {},
                                     .savedAt = std::chrono::system_clock::from_time_t(1'699'990'000),
                                     .title = "Pilot plant",
                                     .work = {}}});
    TakeDialog(recovery, "recovery");
    TemplateDialog templates(owner, WaterTemplates());
    TakeDialog(templates, "new_from_template");
    PlantDialog plants(owner);
    TakeDialog(plants, "new_plant");
    PageSelectionDialog pages({{"Water analysis", 1}, {"Summary", 2}}, owner);
    TakeDialog(pages, "page_selection");
    InfoMessageDialog info("The results are computed.", owner);
    TakeDialog(info, "message");
    const std::array<wxString, 3> ions{"Calcium", "Magnesium", "Sodium"};
    TvMultiChoiceDialog choice(owner, "Ions of the report:", "Ions", static_cast<int>(ions.size()),
                               ions.data());
    TakeDialog(choice, "multi_choice");
    const auto water = NewExample();
    tvCO2CalculatorDialog co2(water.get(), 0, owner);
    TakeDialog(co2, "co2_calculator");
    DetailList& details = *water->GetLiquid(0).GetDetails();
    details.At("liquid/ph").SetValue(7.0);
    details.At("liquid/alk.type").SetValue("naoh");
    details.At("liquid/alk.target").SetValue(8.5);
    AlkalizationDialog alkalization(water.get(), 0, owner);
    TakeDialog(alkalization, "alkalization");
    const water::BlendRecipe recipe{{{"Feed water", 60.0}, {"Well 2", 40.0}}};
    BlendDialog blend(owner, {"Feed water", "Well 1", "Well 2"}, recipe, "iso");
    TakeDialog(blend, "blend");
    Logger logger;
    WaterLibDialog library(logger, owner);
    library.GetWaterList().Select(0);
    TakeDialog(library, "water_library");
    CommentEntryDialog comment(owner, wxID_ANY, "Comments", wxDefaultPosition,
                               owner->FromDIP(wxSize(225, 100)));
    comment.SetComment("Sampled after a week of rain");
    TakeDialog(comment, "comments");
    TakeServices(*owner);
    TakeWasteWater(*owner);
    TakeWhatIf(*owner);
    CompoundEditorDialog editor(SampleCompound(), owner, wxID_ANY, i18n::Translated("Compound editor"));
    TakeDialog(editor, "compound_editor");
    owner->Destroy();
}

void Tour::TakeServices(wxWindow& owner)
{
    ConnectionDialog connection(&owner);
    TakeDialog(connection, "connection");
    AuthenticationEntryDialog user(&owner);
    TakeDialog(user, "proxy_user");
    UpdateDialog updates(&owner, TARNVIK_VERSION);
    TakeDialog(updates, "updates");
    TakeDataSheets(owner);
    TakeRates(owner);
}

void Tour::TakeDataSheets(wxWindow& owner)
{
    DataSheetDialog sheets(&owner);
    sheets.SetSheets(
        {{"sac_gel", "final", "en", {}, {}, {}},
         {"sac_gel", "preliminary", "de", {}, {}, {}},
         {"sba_1", "unknown", "fr", {}, {}, {}}},
        {{"sac_gel", {}, "en", "EU", "Morvane", "1"}, {"sba_1", {}, "en", "US", "Morvane", "2"}});
    TakeDialog(sheets, "data_sheets");
}

void Tour::TakeRates(wxWindow& owner)
{
    ProjectDatabase::Transaction unsaved;
    ProjectDatabase::SetConversionRates(
        {{"EUR", 1.0}, {"AED", 4.2504}, {"AFN", 81.95}, {"ALL", 97.4}, {"AMD", 445.2}, {"ARS", 1678.5}});
    ProjectDatabase::SetConversionRate("AUD", 1.765);
    RatesDialog rates(&owner);
    TakeDialog(rates, "currency_rates");
}

void Tour::TakeWasteWater(wxWindow& owner)
{
    iex::IEXProject project("SOFT");
    double value = 0.0;
    for (auto& [name, detail] : *project.GetStep(0).GetDetails()) {
        if (detail.IsDerived())
            detail.SetValue(value += 12.5);
    }
    auto acid = std::make_shared<DetailList>();
    acid->LoadGroup("stepcomp", "BASE");
    for (auto& [name, detail] : *acid)
        detail.SetValue(value += 12.5);
    wxDialog dialog(&owner, wxID_ANY, "Waste water");
    auto* panel =
        new TvWasteWaterAndComposition(&project, &dialog, {{"HCl", acid}, {"NaOH", nullptr}}, "Waste water");
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(panel, wxSizerFlags(1).Expand());
    dialog.SetSizerAndFit(sizer);
    TakeDialog(dialog, "waste_water");
    dialog.DestroyChildren();
}

/// A value that was found, and one that cannot be.
void Tour::TakeWhatIf(wxWindow& owner)
{
    iex::IEXProject project("DEMI");
    DetailList& water = *project.GetLiquid(0).GetDetails();
    for (const auto& [ion, value] : {std::pair("ca", 80.0), {"na", 46.0}, {"cl", 106.0}, {"hco3", 183.0}})
        water.At(std::string("liquid/") + ion + ".orig").SetValue(value);
    project.GetDetails().At("project/qbrutto").SetValue(20.0);
    project.GetDetails().At("project/lz").SetValue(12.0);
    const wxString language = CurrentLanguage();
    for (const char* shown : {"en", "de"}) {
        SwitchLanguage(shown);
        WhatIfDialog dialog(std::make_unique<WifTable>(WhatIfGridPairLoader::GetTable(project), project),
                            &project, &owner);
        dialog.OnEdited(0, 2.0);
        dialog.OnEdited(1, -1.0);
        TakeDialog(dialog, std::string("what_if_") + shown);
    }
    SwitchLanguage(language);
}

}  // namespace

void TakeTour(const std::filesystem::path& folder, const std::string& look, TourPart part)
{
    Tour tour(folder, look);
    if (part == TourPart::All) {
        tour.TakeControls();
        tour.TakeDialogs();
    }
    tour.TakeModules();
}

}  // namespace app
