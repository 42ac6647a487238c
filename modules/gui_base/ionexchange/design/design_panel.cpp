// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/design/design_panel.h"

#include "gui_base/input/controls/flow_sizer.h"
#include "gui_base/input/controls/tv_staticboxsizer.h"
#include "gui_base/input/form/form_grid.h"
#include "gui_base/messages/user_message.h"
#include "projectbase/whatif/what_if_rows.h"

#include <wx/statbox.h>
#include <wx/translation.h>

#include <algorithm>
#include <array>
#include <limits>

namespace {

// Room for gallons of a whole cycle.
constexpr int kFieldWidth = 96;

constexpr std::array kLineRows{
    FormRow{.key = "project/qbrutto", .label = wxTRANSLATE("Source flow rate")},
    FormRow{.key = "project/lz", .label = wxTRANSLATE("Running time")},
    FormRow{.key = "project/wbrutto", .label = wxTRANSLATE("Water volume")},
    FormRow{.key = "project/nlines", .label = wxTRANSLATE("Number of lines")},
};
constexpr FormRow kWater{
    .key = "project/water", .label = wxTRANSLATE("Water of the plant"), .field = FormField::Choice};
constexpr std::array kLineResults{
    FormRow{.key = "project/qnetto", .label = wxTRANSLATE("Net flow rate"), .field = FormField::Result},
    FormRow{.key = "project/wnetto", .label = wxTRANSLATE("Net volume"), .field = FormField::Result},
    FormRow{.key = "project/vol.serv.all", .label = wxTRANSLATE("Service water"), .field = FormField::Result},
    FormRow{.key = "project/vol.waste.all", .label = wxTRANSLATE("Waste water"), .field = FormField::Result},
    FormRow{.key = "project/vol.inert.total",
            .label = wxTRANSLATE("Inert resin above"),
            .field = FormField::Result},
    FormRow{.key = "project/vol.inert.total.uc",
            .label = wxTRANSLATE("Inert resin below"),
            .field = FormField::Result},
};

}  // namespace

DesignPanel::DesignPanel(iex::IEXProject& project, wxWindow* parent, const TVHelpFileProvider* help)
    : FormPanel(&project, project.GetDetails(), parent), m_plant(project), m_help(help)
{
    Create();
}

void DesignPanel::DoCreateForm()
{
    GetFields().SetLabelSuffix(":");
    GetFields().SetFieldWidth(kFieldWidth);
    m_blocks.clear();
    m_kept.clear();
    auto* outer = new wxBoxSizer(wxVERTICAL);
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, FromDIP(form::kGap)).Expand();
    auto* line = AddLocalizable(new TvStaticBoxSizer(wxHORIZONTAL, this, wxTRANSLATE("Line")));
    auto* flow = new FlowSizer(FromDIP(4 * form::kGap));
    m_water = nullptr;
    for (const std::span<const FormRow> rows :
         {std::span<const FormRow>(kLineRows), std::span<const FormRow>(kLineResults)}) {
        auto* grid = NewGrid();
        // A column for a food liquid takes its feed.
        if (rows.data() == kLineRows.data() && !m_plant.IsOfType("FOODC"))
            m_water = dynamic_cast<tvChoice*>(GetFields().AddRow(line->GetStaticBox(), *grid, kWater).field);
        GetFields().AddRows(line->GetStaticBox(), *grid, rows);
        flow->Add(grid, wxSizerFlags().Border(wxALL, FromDIP(form::kGap)));
    }
    line->Add(flow);
    outer->Add(line, spaced);
    for (const auto& exchanger : m_plant.GetRoot().GetChildren(OwnerKind::Exchanger)) {
        // Its title is the name of the exchanger, which the block shows.
        auto* box = new TvStaticBoxSizer(wxVERTICAL, this, wxString());
        m_blocks.push_back(std::make_unique<ExchangerBlock>(m_plant, *exchanger, GetFields(), *box, m_help));
        m_kept.push_back(exchanger);
        outer->Add(box, spaced);
    }
    m_parts = PartsNow();
    SetSizer(outer);
}

std::vector<DetailOwner> DesignPanel::PartsNow() const
{
    std::vector<DetailOwner> parts;
    for (const auto& exchanger : m_plant.GetRoot().GetChildren(OwnerKind::Exchanger)) {
        parts.push_back(exchanger->GetOwner());
        for (const auto& compartment : exchanger->GetChildren(OwnerKind::Compartment)) {
            parts.push_back(compartment->GetOwner());
            for (const auto& resin : compartment->GetChildren(OwnerKind::Resin))
                parts.push_back(resin->GetOwner());
        }
    }
    return parts;
}

bool DesignPanel::DoHasWhatIf()
{
    return whatif::HasRows(*GetProject());
}

void DesignPanel::DoArrange(int width)
{
    for (const auto& block : m_blocks)
        block->SetLeastListWidth();
    FormPanel::DoArrange(width);
    int lists = std::numeric_limits<int>::max();
    for (const auto& block : m_blocks)
        lists = std::min(lists, block->FindListWidth());
    // The same in all blocks, whose fields so stand in line.
    for (const auto& block : m_blocks)
        block->SetListWidth(lists);
}

bool DesignPanel::IsUpToDate() const
{
    return m_parts == PartsNow();
}

void DesignPanel::ShowNotes()
{
    if (!IsUpToDate())
        return;
    const design::PlantDesign plant = design::DesignOf(m_plant);
    for (std::size_t i = 0; i < m_blocks.size(); ++i)
        m_blocks[i]->ShowNotes(plant.exchangers[i]);
    FitInside();
    Layout();
}

wxString DesignPanel::GetNotes(std::size_t exchanger) const
{
    return m_blocks.at(exchanger)->GetNotes();
}

void DesignPanel::ShowWaters()
{
    if (m_water == nullptr)
        return;
    tvChoice::Items waters;
    for (std::size_t i = 0; i < m_plant.GetLiquidCount(); ++i)
        waters.emplace_back(static_cast<long>(i + 1), ShownText(m_plant.GetLiquid(i).GetName()));
    if (waters != m_water->GetItems())
        m_water->Set(waters);
}

void DesignPanel::DoTransferDetailsToWindows()
{
    ShowWaters();
    FormPanel::DoTransferDetailsToWindows();
    ShowNotes();
}

void DesignPanel::DoFollowProject()
{
    if (IsUpToDate())
        return FormPanel::DoFollowProject();
    if (m_recreating)
        return;
    // Not inside the handler of one of its own controls.
    m_recreating = true;
    CallAfter([this] {
        m_recreating = false;
        RecreatePanel();
    });
}

void DesignPanel::DoLocalize()
{
    FormPanel::DoLocalize();
    ShowNotes();
}

void DesignPanel::DoUpdateUnits()
{
    FormPanel::DoUpdateUnits();
    ShowNotes();
}

bool DesignPanel::Shows(std::string_view key)
{
    const auto isRow = [key](const FormRow& row) { return key == row.key; };
    return isRow(kWater) || std::ranges::any_of(kLineRows, isRow) ||
           std::ranges::any_of(kLineResults, isRow) || ExchangerBlock::Shows(key);
}

bool DesignPanel::FocusDetail(const DetailAddress& address)
{
    const DetailData* detail = m_plant.FindDetail(address);
    if (detail == nullptr)
        return false;
    wxWindow* window = GetFields().FindField(*detail);
    if (address.key == kWater.key)
        window = m_water;
    for (const auto& block : m_blocks)
        window = window == nullptr ? block->FindWindow(*detail) : window;
    if (window == nullptr)
        return false;
    window->SetFocus();
    return true;
}
