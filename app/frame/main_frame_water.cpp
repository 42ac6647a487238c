// SPDX-License-Identifier: MIT
// What the main window does with whole waters: the library, and copying from one water to another.
#include "app/frame/main_frame.h"
#include "gui_base/dialogs/file_name_creator.h"
#include "gui_base/dialogs/questions.h"
#include "gui_base/input/panel/aui_notebook.h"
#include "gui_base/input/validation/commit.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/analysis/laboratory_dialog.h"
#include "gui_base/water/feedwater/feed_water_panel.h"
#include "gui_base/water/feedwater/water_clipboard.h"
#include "gui_base/water/library/water_lib_dialog.h"
#include "gui_base/water/tools/blend_dialog.h"
#include "projectbase/water/blend.h"
#include "tncommon/atomic_file.h"

#include <wx/filedlg.h>
#include <wx/menu.h>

namespace app {
namespace {

/// Of a file that is read as an analysis.
constexpr std::size_t kMostAnalysisBytes = 64u << 20;

/// A name that no water of the project has: "Water", "Water 2", …
std::string NewWaterName(const Project& project, const std::string& wanted)
{
    const auto isTaken = [&project](const std::string& name) {
        for (std::size_t i = 0; i < project.GetLiquidCount(); ++i)
            if (project.GetLiquid(i).GetName() == name)
                return true;
        return false;
    };
    std::string name = wanted;
    for (int number = 2; isTaken(name); ++number)
        name = wanted + " " + std::to_string(number);
    return name;
}

wxString Tr(const char* source)
{
    return i18n::Translated(source);
}

wxString AnalysisWildcard()
{
    return Tr("Analyses") + " (*.csv;*.txt)|*.csv;*.txt|" + Tr("All files") + "|*";
}

void Append(wxMenu& menu, const wxString& text, MainFrame* frame, void (MainFrame::*handler)())
{
    const wxMenuItem* item = menu.Append(wxID_ANY, text);
    menu.Bind(
        wxEVT_MENU, [frame, handler](wxCommandEvent&) { (frame->*handler)(); }, item->GetId());
}

}  // namespace

wxMenu* MainFrame::BuildToolsMenu()
{
    auto* menu = new wxMenu;
    Append(*menu, Tr("&Water library...") + "\tCtrl+L", this, &MainFrame::ShowWaterLibrary);
    Append(*menu, Tr("&Save to water library") + "\tCtrl+Shift+L", this, &MainFrame::SaveToWaterLibrary);
    menu->AppendSeparator();
    Append(*menu, Tr("&Add water"), this, &MainFrame::AddWater);
    Append(*menu, Tr("&Blend waters...") + "\tCtrl+B", this, &MainFrame::BlendWaters);
    Append(*menu, Tr("&Remove water"), this, &MainFrame::RemoveWater);
    return menu;
}

void MainFrame::AppendAnalysisItems(wxMenu& fileMenu)
{
    Append(fileMenu, Tr("&Import analysis...") + "\tCtrl+I", this, &MainFrame::ImportAnalysis);
    Append(fileMenu, Tr("Ex&port analysis...") + "\tCtrl+E", this, &MainFrame::ExportAnalysis);
}

void MainFrame::AppendWaterItems(wxMenu& editMenu)
{
    editMenu.AppendSeparator();
    Append(editMenu, Tr("Copy &water") + "\tCtrl+Alt+C", this, &MainFrame::CopyWater);
    Append(editMenu, Tr("Paste w&ater") + "\tCtrl+Alt+V", this, &MainFrame::PasteWater);
}

FeedWaterPanel* MainFrame::CurrentWater() const
{
    return dynamic_cast<FeedWaterPanel*>(CurrentPanel());
}

void MainFrame::ShowWaterLibrary()
{
    CommitFocusedField();
    FeedWaterPanel* panel = CurrentWater();
    WaterLibDialog dialog(m_document->GetProject().GetLogger(), this);
    dialog.SetHelp(m_help.get());
    if (dialog.SelectLiquidData(panel != nullptr ? &panel->GetLiquid() : nullptr) && panel != nullptr)
        panel->ShowReplacedWater();
}

void MainFrame::SaveToWaterLibrary()
{
    CommitFocusedField();
    FeedWaterPanel* panel = CurrentWater();
    std::string problem;
    if (panel != nullptr && !WaterLibDialog::SaveLiquidData(&panel->GetLiquid(), &problem) &&
        !problem.empty())
        ReportError(Tr("Analysis could not be saved") + ": " + wxString::FromUTF8(problem));
}

void MainFrame::CopyWater()
{
    CommitFocusedField();
    if (const FeedWaterPanel* panel = CurrentWater())
        WaterClipboard::PutLiquid(&panel->GetLiquid());
}

void MainFrame::PasteWater()
{
    CommitFocusedField();
    FeedWaterPanel* panel = CurrentWater();
    if (panel == nullptr)
        return;
    if (WaterClipboard::GetLiquid(&panel->GetLiquid()))
        panel->ShowReplacedWater();
    else
        m_messages->AddMessage(MessageArea::Severity::Info, Tr("No water has been copied yet"));
}

void MainFrame::ImportAnalysis()
{
    CommitFocusedField();
    if (CurrentWater() == nullptr)
        return;
    wxFileDialog dialog(this, Tr("Import analysis"), wxString(), wxString(), AnalysisWildcard(),
                        wxFD_OPEN | wxFD_FILE_MUST_EXIST);
    if (dialog.ShowModal() == wxID_OK)
        ImportAnalysisFrom(dialog.GetPath().utf8_string());
}

void MainFrame::ImportAnalysisFrom(const std::filesystem::path& path)
{
    FeedWaterPanel* panel = CurrentWater();
    const wxString name = wxString::FromUTF8(path.string());
    laboratory::File file;
    try {
        file = laboratory::Read(tncommon::ReadWholeFile(path, kMostAnalysisBytes));
    } catch (const std::exception& error) {
        ReportError(wxString::Format(Tr("%s cannot be read: %s"), name, wxString::FromUTF8(error.what())));
        return;
    }
    if (file.samples.empty()) {
        ReportError(wxString::Format(Tr("%s holds no analysis that can be understood"), name));
        return;
    }
    DetailList& details = *panel->GetLiquid().GetDetails();
    LaboratoryDialog preview(this, file, details);
    if (preview.ShowModal() != wxID_OK)
        return;
    water::StoreSample(preview.GetValues(), details, preview.ClearsOthers());
    panel->ShowReplacedWater();
}

void MainFrame::ExportAnalysis()
{
    CommitFocusedField();
    const FeedWaterPanel* panel = CurrentWater();
    if (panel == nullptr)
        return;
    const wxFileName file = FileNameCreator()(this, Tr("Export analysis"), wxString(), Tr("Water analysis"),
                                              AnalysisWildcard(), "csv");
    if (!file.IsOk())
        return;
    try {
        tncommon::ReplaceFile(file.GetFullPath().utf8_string(),
                              water::WriteLaboratoryFile(*panel->GetLiquid().GetDetails()));
    } catch (const std::exception& error) {
        ReportError(wxString::Format(Tr("%s cannot be written: %s"), file.GetFullPath(),
                                     wxString::FromUTF8(error.what())));
    }
}

void MainFrame::AddWater()
{
    CommitFocusedField();
    Project& project = m_document->GetProject();
    project.AddLiquid(NewWaterName(project, Tr("Water").utf8_string()));
    project.CalculateDesign();
    ShowChangedWaters(project.GetLiquidCount() - 1);
}

void MainFrame::BlendWaters()
{
    CommitFocusedField();
    Project& project = m_document->GetProject();
    // On the page of a blend its own recipe is changed, elsewhere a new one is made.
    const FeedWaterPanel* panel = CurrentWater();
    LiquidData* blend =
        panel != nullptr && water::IsBlend(*panel->GetLiquid().GetDetails()) ? &panel->GetLiquid() : nullptr;
    std::vector<std::string> waters;
    for (std::size_t i = 0; i < project.GetLiquidCount() && &project.GetLiquid(i) != blend; ++i)
        waters.push_back(project.GetLiquid(i).GetName());
    if (waters.size() < 2) {
        m_messages->AddMessage(MessageArea::Severity::Info, Tr("A blend needs two waters: add one first"));
        return;
    }
    BlendRecipe recipe{waters[0], waters[1], 50.0};
    if (blend != nullptr)
        recipe = {blend->FindDetail("liquid/blend.first")->GetStdStringValue(),
                  blend->FindDetail("liquid/blend.second")->GetStdStringValue(),
                  blend->FindDetail("liquid/blend.share")->GetDoubleValue()};
    BlendDialog dialog(this, waters, recipe);
    if (dialog.ShowModal() != wxID_OK)
        return;
    StoreBlend(blend, dialog.GetRecipe());
}

void MainFrame::StoreBlend(LiquidData* blend, const BlendRecipe& recipe)
{
    Project& project = m_document->GetProject();
    const bool isNew = blend == nullptr;
    if (isNew)
        blend = &project.AddLiquid(NewWaterName(project, Tr("Blend").utf8_string()));
    blend->FindDetail("liquid/blend.first")->SetValue(recipe.first);
    blend->FindDetail("liquid/blend.second")->SetValue(recipe.second);
    blend->FindDetail("liquid/blend.share")->SetValue(recipe.share);
    project.CalculateDesign();
    if (isNew)
        ShowChangedWaters(project.GetLiquidCount() - 1);
    else
        CurrentWater()->ShowReplacedWater();
}

void MainFrame::RemoveWater()
{
    CommitFocusedField();
    Project& project = m_document->GetProject();
    const FeedWaterPanel* panel = CurrentWater();
    if (panel == nullptr)
        return;
    if (project.GetLiquidCount() < 2) {
        m_messages->AddMessage(MessageArea::Severity::Info, Tr("The last water of a project stays"));
        return;
    }
    const wxString name = i18n::Translated(wxString::FromUTF8(panel->GetLiquid().GetName()));
    if (dialogs::AskYesNo(this, wxString::Format(Tr("Remove the water \"%s\"?"), name), Tr("Confirm"),
                          wxICON_WARNING, Tr("This cannot be undone.")) != wxID_YES)
        return;
    std::size_t index = 0;
    while (&project.GetLiquid(index) != &panel->GetLiquid())
        ++index;
    // The panels go before the water that one of them shows.
    m_notebook->DeleteAllPages();
    m_panels.clear();
    project.RemoveLiquid(index);
    project.CalculateDesign();
    ShowChangedWaters(index > 0 ? index - 1 : 0);
}

void MainFrame::ShowChangedWaters(std::size_t shown)
{
    m_document->GetProject().SetChanged(true);
    m_document->ForgetEdits();
    BuildModules();
    ShowModule(shown);
    UpdateTitle();
}

void MainFrame::FollowBlends()
{
    Project& project = m_document->GetProject();
    for (std::size_t i = 0; i < project.GetLiquidCount() && i < m_panels.size(); ++i) {
        if (!water::IsBlend(*project.GetLiquid(i).GetDetails()))
            continue;
        project.CalculateLiquid(i);
        m_panels[i]->UpdateUnits(true);
    }
}

}  // namespace app
