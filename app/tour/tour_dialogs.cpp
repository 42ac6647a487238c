// SPDX-License-Identifier: MIT
// The dialogs of the program, each with something in it.
#include "app/document/plant_templates.h"
#include "app/document/templates.h"
#include "app/frame/main_frame.h"
#include "app/frame/plant_dialog.h"
#include "app/frame/recovery_dialog.h"
#include "app/frame/settings_dialog.h"
#include "app/frame/template_dialog.h"
#include "app/language/language.h"
#include "app/modules/base/module.h"
#include "app/tour/tour_pictures.h"
#include "dbinterfaces/project_database.h"
#include "gui_base/dialogs/info_message_dialog.h"
#include "gui_base/dialogs/page_selection_dialog.h"
#include "gui_base/dialogs/tv_multichoicedialog.h"
#include "gui_base/input/form/shown_context.h"
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
#include "gui_base/report/blend_tiles.h"
#include "gui_base/support/translation.h"
#include "gui_base/support/window_picture.h"
#include "gui_base/water/feedwater/comment_entry_dialog.h"
#include "gui_base/water/library/water_lib_dialog.h"
#include "gui_base/water/library/water_lib_list.h"
#include "gui_base/water/tools/alkalization_dialog.h"
#include "gui_base/water/tools/blend_dialog.h"
#include "gui_base/water/tools/co2_calculator_dialog.h"

#include <wx/app.h>
#include <wx/dcmemory.h>
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

constexpr int kWasteWidth = 900;
constexpr int kWasteHeight = 420;

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

}  // namespace

void Tour::TakeDialogs()
{
    const wxString before = CurrentLanguage();
    for (const auto& [language, suffix] : {std::pair("en", ""), {"de", "_german"}, {"fr", "_french"}}) {
        if (!HasLanguage(language))
            continue;
        SwitchLanguage(language);
        m_dialogSuffix = suffix;
        TakeDialogsOfLanguage();
    }
    SwitchLanguage(before);
}

void Tour::TakeDialogsOfLanguage()
{
    auto* owner = new wxFrame(nullptr, wxID_ANY, "Tarnvik", wxDefaultPosition, wxSize(900, 600));
    owner->Show();
    SettingsDialog settings(owner, {"en", "iso", "compact", 5, std::string()});
    TakeDialog(settings, "settings");
    TakeStartPage();
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
    const std::string feed = water->GetLiquid(0).GetName();
    for (const auto& [name, sodium] : {std::pair("Well 1", 12.0), std::pair("Well 2", 46.0)}) {
        DetailList& well = *water->AddLiquid(name).GetDetails();
        well.At("liquid/na.orig").SetValue(sodium);
        well.At("liquid/hco3.orig").SetValue(122.0);
        well.At("liquid/ph").SetValue(7.2);
    }
    water->CalculateDesign();
    const ReportContext context = ShownContext("iso");
    BlendDialog blend(owner, "Blend", {feed, "Well 1", "Well 2"}, {{{feed, 60.0}, {"Well 2", 40.0}}}, "iso",
                      [&](const water::BlendRecipe& recipe) {
                          return wateranalysis::BlendTiles(*water, nullptr, recipe, context);
                      });
    TakeDialog(blend, "blend");
    Logger logger;
    WaterLibDialog library(logger, owner);
    library.GetWaterList().Select(0);
    TakeDialog(library, "water_library");
    CommentEntryDialog comment(owner, wxID_ANY, i18n::Translated("Comments"), wxDefaultPosition,
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

void Tour::TakeStartPage()
{
    auto* frame = new MainFrame(std::make_unique<Document>(NewEmptyProject()));
    frame->SetClientSize(1600, 1000);
    frame->Show();
    frame->ShowStart();
    // The state of the commands follows, by and by.
    Settle();
    Visit(*frame, "start_page" + m_dialogSuffix, i18n::Translated("Start page"));
    frame->Close(true);
    Settle();
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
    wxDialog dialog(&owner, wxID_ANY, i18n::Translated("Waste water"));
    auto* panel =
        new TvWasteWaterAndComposition(&project, &dialog, {{"HCl", acid}, {"NaOH", nullptr}}, "Waste water");
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(panel, wxSizerFlags(1).Expand());
    panel->SetMinSize(dialog.FromDIP(wxSize(kWasteWidth, kWasteHeight)));
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
    WhatIfDialog dialog(std::make_unique<WifTable>(WhatIfGridPairLoader::GetTable(project), project),
                        &project, &owner);
    dialog.OnEdited(0, 2.0);
    dialog.OnEdited(1, -1.0);
    TakeDialog(dialog, "what_if");
}

}  // namespace app
