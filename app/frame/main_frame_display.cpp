// SPDX-License-Identifier: MIT
// What the window shows of the project as it is now: title, messages, results, in language and units.
#include "app/frame/main_frame.h"
#include "app/frame/report_context.h"
#include "app/frame/start_page.h"
#include "gui_base/graphics/diagrams/water_diagram_panel.h"
#include "gui_base/input/controls/tv_statusbar.h"
#include "gui_base/input/events.h"
#include "gui_base/input/validation/validator.h"
#include "gui_base/report/range_sentence.h"
#include "gui_base/support/file_path.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/results/water_results_panel.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/project/range_faults.h"

#include <wx/wupdlock.h>

#include <algorithm>
#include <iterator>
#include <span>

namespace app {

namespace {

/// Beyond that nobody reads on, and every edit would make all of their texts anew.
constexpr std::size_t kMostListed = 500;
const DetailAddress kPlantWater{{}, "project/water"};

}  // namespace

void MainFrame::OnProjectChanged(const ProjectChanges& changes)
{
    if (changes.HasStructure()) {
        m_book->Follow();
        m_workArea->FitPanes();
        ShowResults();
    } else {
        m_book->ShowBalances();
        if (changes.Any([](const DetailAddress& address) { return address == kPlantWater; }))
            ShowResults();
        else if (changes.Touches(m_shownWater) || changes.Touches({}))
            ShowDiagram();
    }
    m_advice.Follow(GetProject(), changes);
    UpdateRangeMessages();
    UpdateTitle();
}

void MainFrame::UpdateTitle()
{
    const std::string name = m_document->GetName();
    wxString title = name.empty() ? i18n::Translated("Untitled") : ShownText(name);
    if (m_document->IsUnsaved())
        title.Prepend("*");
    title += " - Tarnvik";
    if (title != GetTitle())
        SetTitle(title);
}

void MainFrame::UpdateRangeMessages()
{
    ReportContext context = WindowContext();
    context.unitSystem = GetProject().GetUnitSystemDisplay();
    std::vector<MessageArea::RangeMessage> messages;
    const std::vector<RangeFault> faults = RangeFaults(GetProject());
    for (const RangeFault& fault : std::span(faults).first(std::min(faults.size(), kMostListed)))
        messages.push_back({.text = wxString::FromUTF8(RangeSentence(fault, GetProject(), context)),
                            .address = fault.address,
                            .rule = {}});
    const std::vector<MessageArea::RangeMessage> warnings = m_advice.GetMessages(GetProject(), context);
    std::ranges::copy(std::span(warnings).first(std::min(warnings.size(), kMostListed)),
                      std::back_inserter(messages));
    GetMessageArea().SetRangeMessages(messages, faults.size() + warnings.size());
}

void MainFrame::ShowResults()
{
    Project& project = GetProject();
    const LiquidData* water = m_waters.GetCurrent();
    // Beside the pages of a plant stand the results of its water.
    const iex::IEXProject* const plant = iex::PlantOf(project);
    if (water == nullptr && plant != nullptr && !plant->GetRoot().GetChildren(OwnerKind::Exchanger).empty())
        water = plant->FeedingWater();
    if (water != nullptr)
        m_shownWater = water->GetOwner();
    else if (project.FindOwner(m_shownWater) == nullptr)
        m_shownWater = project.GetLiquid(0).GetOwner();
    m_results->SetWater(&project, m_shownWater);
    ShowDiagram();
}

void MainFrame::ShowDiagram()
{
    const Project& project = GetProject();
    if (const auto* water = dynamic_cast<const LiquidData*>(project.FindOwner(m_shownWater)))
        m_diagram->SetWater(*water, project.GetUnitSystemDisplay());
}

void MainFrame::ShowUnits()
{
    m_book->SendToPages(tvCHANGEUNITSYSTEM_EVENT);
    m_book->ShowBalances();
    m_results->Localize();
    ShowDiagram();
    m_advice.JudgeAll(GetProject());
    UpdateRangeMessages();
}

void MainFrame::Localize()
{
    const wxWindowUpdateLocker frozen(this);
    BuildMenus();
    m_statusBar->Localize();
    m_workArea->Localize();
    m_start->Localize();
    m_results->Localize();
    m_diagram->Localize(GetProject().GetUnitSystemDisplay());
    m_book->Localize();
    m_book->SendToPages(tvLOCALIZE_EVENT);
    m_workArea->FitPanes();
    if (m_help)
        m_help->Localize();
    UpdateTitle();
    UpdateRangeMessages();
    // The status bar tells of the field with the keyboard, which is not entered anew.
    wxWindow* const field = FindFocus();
    if (auto* validator = field == nullptr ? nullptr : dynamic_cast<Validator*>(field->GetValidator()))
        validator->ShowHints();
}

void MainFrame::ClearMessages()
{
    GetMessageArea().ClearMessages();
    UpdateRangeMessages();
}

void MainFrame::ReportError(MessageArea::Text text)
{
    GetMessageArea().AddMessage(MessageArea::Severity::Error, std::move(text));
}

void MainFrame::ReportError(const std::exception& error)
{
    const std::exception_ptr caught = std::current_exception();
    ReportError([caught, fixed = MessageOf(error)] {
        try {
            if (caught)
                std::rethrow_exception(caught);
        } catch (const std::exception& again) {
            return MessageOf(again);
        } catch (...) {
        }
        return fixed;
    });
}

void MainFrame::ReportNote(MessageArea::Text text)
{
    GetMessageArea().AddMessage(MessageArea::Severity::Info, std::move(text));
}

void MainFrame::OnMessage(MessageEvent& event)
{
    if (event.GetEventObject() != nullptr)
        GetMessageArea().WithdrawMessages(event.GetEventObject());
    for (const std::string& message : event.GetMessages())
        GetMessageArea().AddMessage(
            MessageArea::Severity::Info,
            [text = wxString::FromUTF8(message)] {
                return UserMessage{text, {}};
            },
            event.GetEventObject());
}

}  // namespace app
