// SPDX-License-Identifier: MIT
#include "app/frame/water_commands.h"

#include "app/frame/main_frame.h"
#include "app/frame/results_text.h"
#include "app/frame/water_names.h"
#include "core/text_limits.h"
#include "gui_base/dialogs/file_name_creator.h"
#include "gui_base/dialogs/line_entry_dialog.h"
#include "gui_base/dialogs/progress_window.h"
#include "gui_base/dialogs/questions.h"
#include "gui_base/input/form/shown_context.h"
#include "gui_base/input/validation/commit.h"
#include "gui_base/messages/user_message.h"
#include "gui_base/report/blend_tiles.h"
#include "gui_base/support/file_path.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/analysis/analysis_type_box.h"
#include "gui_base/water/analysis/laboratory_dialog.h"
#include "gui_base/water/feedwater/water_clipboard.h"
#include "gui_base/water/library/water_lib_dialog.h"
#include "gui_base/water/tools/alkalization_dialog.h"
#include "gui_base/water/tools/blend_dialog.h"
#include "gui_base/water/tools/co2_calculator_dialog.h"
#include "projectbase/project/blended_water.h"
#include "projectbase/project/project_edit.h"
#include "projectbase/settings/settings.h"
#include "projectbase/water/blend_recipe.h"
#include "tncommon/atomic_file.h"

#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/filedlg.h>

namespace app {
namespace {

constexpr unsigned long kMostNameLength = 100;

wxString Tr(const char* source)
{
    return i18n::Translated(source);
}

wxString AnalysisWildcard()
{
    return Tr("Analyses") + " (*.csv;*.txt)|*.csv;*.txt|" + Tr("All files") + "|*";
}

wxString ShownName(const LiquidData& water)
{
    return i18n::Translated(ShownText(water.GetName()));
}

}  // namespace

WaterCommands::WaterCommands(MainFrame& frame) : m_frame(frame), m_progressDelay(dialogs::kProgressDelay) {}

LiquidData* WaterCommands::GetCurrent() const
{
    const PageHost* page = m_frame.GetBook().GetCurrent();
    OwnerNode* owner = page == nullptr ? nullptr : m_frame.GetProject().FindOwner(page->GetOwner());
    return dynamic_cast<LiquidData*>(owner);
}

void WaterCommands::Show(const LiquidData& water)
{
    m_frame.GetBook().Show(water.GetOwner());
}

void WaterCommands::ShowLibrary()
{
    CommitFocusedField();
    WaterLibDialog dialog(m_frame.GetProject().GetLogger(), &m_frame);
    dialog.SetHelp(m_frame.GetHelp());
    LiquidData chosen;
    LiquidData* const water = GetCurrent();
    if (!dialog.SelectLiquidData(&chosen) || water == nullptr)
        return;
    const ProjectEdit edit(m_frame.GetProject(), wxTRANSLATE("water of the library"), EditKind::Copied);
    water->GetDetails()->CopyValues(*chosen.GetDetails());
}

void WaterCommands::SaveToLibrary()
{
    CommitFocusedField();
    std::string problem;
    LiquidData* water = GetCurrent();
    if (water != nullptr && !WaterLibDialog::SaveLiquidData(water, &problem) && !problem.empty())
        m_frame.ReportError([problem] {
            return UserMessage{
                Tr("Analysis could not be saved") + i18n::Colon() + " " + wxString::FromUTF8(problem), {}};
        });
}

void WaterCommands::Copy()
{
    CommitFocusedField();
    if (const LiquidData* water = GetCurrent())
        WaterClipboard::PutLiquid(water);
}

void WaterCommands::Paste()
{
    CommitFocusedField();
    LiquidData* water = GetCurrent();
    if (water == nullptr)
        return;
    const ProjectEdit edit(m_frame.GetProject(), wxTRANSLATE("paste water"), EditKind::Copied);
    if (!WaterClipboard::GetLiquid(water))
        m_frame.ReportNote([] { return UserMessage{Tr("No water has been copied yet"), {}}; });
}

void WaterCommands::PasteColumn()
{
    CommitFocusedField();
    const PageHost* page = m_frame.GetBook().GetCurrent();
    if (page != nullptr && page->GetPage().pasteColumn)
        page->GetPage().pasteColumn();
}

void WaterCommands::ChooseUnitForAll()
{
    const PageHost* page = m_frame.GetBook().GetCurrent();
    if (page == nullptr || !page->GetPage().chooseUnitForAll)
        return;
    CommitFocusedField();
    page->GetPage().chooseUnitForAll();
}

void WaterCommands::CopyResults()
{
    CommitFocusedField();
    const LiquidData* water = GetCurrent();
    if (water == nullptr || !wxTheClipboard->Open())
        return;
    wxTheClipboard->SetData(new wxTextDataObject(
        ResultsText(*water, Settings::GetSetting("unit.system.printout").GetStdStringValue())));
    wxTheClipboard->Close();
}

void WaterCommands::Import()
{
    CommitFocusedField();
    if (GetCurrent() == nullptr)
        return;
    wxFileDialog dialog(&m_frame, Tr("Import analysis"), wxString(), wxString(), AnalysisWildcard(),
                        wxFD_OPEN | wxFD_FILE_MUST_EXIST);
    if (dialog.ShowModal() == wxID_OK)
        ImportFrom(PathOf(dialog.GetPath()));
}

std::optional<laboratory::File> WaterCommands::ReadAnalysis(const std::filesystem::path& path)
{
    const wxString name = ShownPath(path);
    const auto refuse = [&](const wxString& why) {
        m_frame.ReportError([name, why] {
            return UserMessage{wxString::Format(Tr("%s cannot be read: %s"), name, why), {}};
        });
        return std::nullopt;
    };
    laboratory::File file;
    try {
        dialogs::ProgressWindow progress(&m_frame, Tr("Import analysis"), Tr("The analysis is being read"),
                                         m_progressDelay);
        const bool isRead = dialogs::RunWithProgress(progress, [&](const WorkWatch& watch) {
            file = laboratory::Read(tncommon::ReadWholeFile(path, laboratory::kMostBytes), watch);
        });
        if (!isRead)
            return std::nullopt;
    } catch (const delimited::TooLarge& error) {
        return refuse(ReadingCauseText(error));
    } catch (const std::system_error& error) {
        return refuse(ReadingCauseText(error.code(), laboratory::kMostBytes));
    } catch (const std::exception& error) {
        return refuse(MessageOf(error).text);
    }
    if (!file.samples.empty())
        return file;
    m_frame.ReportError([name] {
        return UserMessage{wxString::Format(Tr("%s holds no analysis that can be understood"), name), {}};
    });
    return std::nullopt;
}

void WaterCommands::ImportFrom(const std::filesystem::path& path)
{
    const auto file = ReadAnalysis(path);
    LiquidData* water = GetCurrent();
    if (!file || water == nullptr)
        return;
    DetailData& limits = Settings::GetSetting("laboratory.limits");
    LaboratoryDialog preview(&m_frame, *file, *water->GetDetails(),
                             water::LimitReadingOf(limits.GetStdStringValue()));
    if (preview.ShowModal() != wxID_OK)
        return;
    limits.SetValue(water::CodeOf(preview.GetLimitReading()));
    const ProjectEdit edit(m_frame.GetProject(), wxTRANSLATE("import of an analysis"));
    water::StoreSample(preview.GetValues(), *water->GetDetails(), preview.GetLimitReading(),
                       preview.ClearsOthers());
}

void WaterCommands::Export()
{
    CommitFocusedField();
    const LiquidData* water = GetCurrent();
    if (water == nullptr)
        return;
    const Project& project = m_frame.GetProject();
    std::vector<water::NamedWater> waters{{ShownName(*water).utf8_string(), *water->GetDetails()}};
    if (project.GetLiquidCount() > 1) {
        const int all =
            dialogs::AskYesNo(&m_frame, Tr("Export all waters of the project?"), Tr("Export analysis"),
                              wxICON_QUESTION, Tr("Otherwise only the water in front is exported."));
        if (all != wxID_YES && all != wxID_NO)
            return;
        for (std::size_t i = 0; all == wxID_YES && i < project.GetLiquidCount(); ++i)
            if (const LiquidData& other = project.GetLiquid(i); &other != water)
                waters.push_back({ShownName(other).utf8_string(), *other.GetDetails()});
    }
    const wxFileName file = FileNameCreator()(&m_frame, Tr("Export analysis"), wxString(),
                                              Tr("Water analysis"), AnalysisWildcard(), "csv");
    if (!file.IsOk())
        return;
    const std::filesystem::path path = PathOf(file.GetFullPath());
    const auto refuse = [&](const wxString& why) {
        m_frame.ReportError([path, why] {
            return UserMessage{wxString::Format(Tr("%s cannot be written: %s"), ShownPath(path), why), {}};
        });
    };
    try {
        tncommon::ReplaceFile(path, water::WriteLaboratoryFile(waters));
    } catch (const std::system_error& error) {
        refuse(CauseText(error.code()));
    } catch (const std::exception& error) {
        refuse(MessageOf(error).text);
    }
}

void WaterCommands::Add()
{
    CommitFocusedField();
    Project& project = m_frame.GetProject();
    const LiquidData* added = nullptr;
    {
        const ProjectEdit edit(project, wxTRANSLATE("add water"));
        added = &project.AddLiquid(NewWaterName(project, Tr("Water").utf8_string()));
    }
    Show(*added);
}

void WaterCommands::Blend()
{
    CommitFocusedField();
    Project& project = m_frame.GetProject();
    // On the page of a blend its own recipe is changed, elsewhere a new one is made.
    LiquidData* current = GetCurrent();
    LiquidData* blend = current != nullptr && water::IsBlend(*current->GetDetails()) ? current : nullptr;
    std::vector<std::string> waters;
    for (std::size_t i = 0; i < project.GetLiquidCount() && &project.GetLiquid(i) != blend; ++i)
        waters.push_back(project.GetLiquid(i).GetName());
    if (waters.size() < 2) {
        m_frame.ReportNote([] { return UserMessage{Tr("A blend needs two waters: add one first"), {}}; });
        return;
    }
    const water::BlendRecipe recipe = blend != nullptr
                                          ? water::RecipeOf(*blend->GetDetails())
                                          : water::BlendRecipe{{{waters[0], 50.0}, {waters[1], 50.0}}};
    const ReportContext context = ShownContext(project.GetUnitSystemDisplay());
    const wxString name = blend != nullptr
                              ? ShownName(*blend)
                              : wxString::FromUTF8(NewWaterName(project, Tr("Blend").utf8_string()));
    BlendDialog dialog(&m_frame, name, waters, recipe, context.unitSystem,
                       [&](const water::BlendRecipe& tried) {
                           return wateranalysis::BlendTiles(project, blend, tried, context);
                       });
    if (dialog.ShowModal() != wxID_OK)
        return;
    const bool keepsName = blend != nullptr && dialog.GetBlendName() == name;
    Show(water::StoreBlend(project, blend, dialog.GetRecipe(),
                           keepsName ? std::string() : FreeName(dialog.GetBlendName().utf8_string())));
}

void WaterCommands::Rename()
{
    CommitFocusedField();
    LiquidData* water = GetCurrent();
    if (water == nullptr)
        return;
    LineEntryDialog dialog(&m_frame, Tr("Rename water"), Tr("Name"), ShownName(*water), kMostNameLength);
    if (dialog.ShowModal() != wxID_OK || dialog.GetText() == ShownName(*water))
        return;
    RenameTo(*water, dialog.GetText().utf8_string());
}

std::string WaterCommands::FreeName(const std::string& wanted) const
{
    return NewWaterName(m_frame.GetProject(), std::string(text_limits::Cut(wanted, kMostNameLength)));
}

void WaterCommands::RenameTo(LiquidData& water, const std::string& name)
{
    const ProjectEdit edit(m_frame.GetProject(), wxTRANSLATE("rename water"));
    m_frame.GetProject().RenameOwner(water, FreeName(name));
}

void WaterCommands::Duplicate()
{
    CommitFocusedField();
    Project& project = m_frame.GetProject();
    const LiquidData* water = GetCurrent();
    if (water == nullptr)
        return;
    LiquidData* copy = nullptr;
    {
        const ProjectEdit edit(project, wxTRANSLATE("duplicate water"), EditKind::Copied);
        copy = &project.AddLiquid(CopyOfWaterName(project, ShownName(*water).utf8_string()));
        copy->GetDetails()->CopyValues(*water->GetDetails());
        project.MoveOwner(*copy, water->GetPosition() + 1);
    }
    Show(*copy);
}

void WaterCommands::Remove()
{
    CommitFocusedField();
    Project& project = m_frame.GetProject();
    LiquidData* water = GetCurrent();
    if (water == nullptr)
        return;
    if (project.GetLiquidCount() < 2) {
        m_frame.ReportNote([] { return UserMessage{Tr("The last water of a project stays"), {}}; });
        return;
    }
    const std::size_t place = water->GetPosition();
    {
        const ProjectEdit edit(project, wxTRANSLATE("remove water"));
        project.RemoveOwner(*water);
    }
    Show(project.GetLiquid(place > 0 ? place - 1 : 0));
}

bool WaterCommands::CanMove(int direction) const
{
    const LiquidData* water = GetCurrent();
    if (water == nullptr)
        return false;
    const std::size_t place = water->GetPosition();
    return direction < 0 ? place > 0 : place + 1 < m_frame.GetProject().GetLiquidCount();
}

void WaterCommands::Move(int direction)
{
    CommitFocusedField();
    if (!CanMove(direction))
        return;
    LiquidData& water = *GetCurrent();
    MoveTo(water, direction < 0 ? water.GetPosition() - 1 : water.GetPosition() + 1);
}

void WaterCommands::MoveTo(LiquidData& water, std::size_t place)
{
    const ProjectEdit edit(m_frame.GetProject(), wxTRANSLATE("move water"));
    m_frame.GetProject().MoveOwner(water, place);
}

bool WaterCommands::HasFullAnalysis() const
{
    const LiquidData* water = GetCurrent();
    return water != nullptr &&
           wateranalysis::GetAnalysisType(*water->GetDetails()) == wateranalysis::AnalysisType::Full &&
           !m_frame.GetProject().IsMixed(*water);
}

bool WaterCommands::IsBalanced() const
{
    const LiquidData* water = GetCurrent();
    return water != nullptr && water->GetDetails()->At("liquid/balance.auto").GetBoolValue();
}

void WaterCommands::ToggleBalance()
{
    CommitFocusedField();
    if (HasFullAnalysis())
        GetCurrent()->GetDetails()->At("liquid/balance.auto").SetValue(!IsBalanced());
}

void WaterCommands::CalculateCo2()
{
    CommitFocusedField();
    if (LiquidData* water = GetCurrent())
        tvCO2CalculatorDialog::ShowFor(m_frame.GetProject(), *water, &m_frame);
}

void WaterCommands::Alkalise()
{
    CommitFocusedField();
    if (LiquidData* water = GetCurrent())
        AlkalizationDialog::ShowFor(m_frame.GetProject(), *water, &m_frame);
}

}  // namespace app
