// SPDX-License-Identifier: MIT
// The controls of the water library, and how their arrangement outlives the dialog.
#include "dbinterfaces/project_database.h"
#include "gui_base/input/controls/tv_searchctrl.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/button_label.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/library/water_lib_dialog.h"
#include "gui_base/water/library/water_lib_list.h"

#include <fmt/format.h>
#include <wx/button.h>
#include <wx/display.h>
#include <wx/infobar.h>
#include <wx/log.h>
#include <wx/sizer.h>
#include <wx/splitter.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <cstdio>
#include <tuple>

namespace {

constexpr int kGap = 4;
constexpr int kCommentHeight = 64;
/// Tab leaves a splitter only where its style says so.
constexpr long kSplitterStyle = wxSP_LIVE_UPDATE | wxTAB_TRAVERSAL;
constexpr const char* kArrangement = "/Perspective/waterlibrary";

const std::array kGeneralLabels{wxTRANSLATE("Country"),          wxTRANSLATE("Place"),
                                wxTRANSLATE("Water source"),     wxTRANSLATE("Water type"),
                                wxTRANSLATE("Date of sampling"), wxTRANSLATE("Comments")};

wxString Tr(const char* source)
{
    return i18n::Translated(source);
}

/// A text that is only shown, but can be read and copied as a whole however long it is.
wxTextCtrl* NewShownText(wxWindow* parent, const wxString& name, bool severalLines)
{
    auto* text = new wxTextCtrl(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                wxTE_READONLY | (severalLines ? wxTE_MULTILINE : wxBORDER_NONE));
    text->SetBackgroundColour(parent->GetBackgroundColour());
    accessibility::SetName(*text, name);
    if (severalLines)
        text->SetMinSize(wxSize(-1, parent->FromDIP(kCommentHeight)));
    else
        text->DisableFocusFromKeyboard();
    return text;
}

/// The last column takes the width that the others leave.
void FillWidth(wxListView& list)
{
    list.Bind(wxEVT_SIZE, [&list](wxSizeEvent& event) {
        int width = list.GetClientSize().x;
        const int last = list.GetColumnCount() - 1;
        for (int column = 0; column < last; ++column)
            width -= list.GetColumnWidth(column);
        if (width > list.FromDIP(40))
            list.SetColumnWidth(last, width);
        event.Skip();
    });
}

}  // namespace

void WaterLibDialog::CreateControls()
{
    m_problem = new wxInfoBar(this);
    m_vertical = new wxSplitterWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, kSplitterStyle);
    m_tree = new wxTreeCtrl(m_vertical, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                            wxTR_HAS_BUTTONS | wxTR_NO_LINES | wxTR_MULTIPLE | wxTR_FULL_ROW_HIGHLIGHT);
    accessibility::SetName(*m_tree, Tr("Library"));
    m_horizontal =
        new wxSplitterWindow(m_vertical, wxID_ANY, wxDefaultPosition, wxDefaultSize, kSplitterStyle);
    m_horizontal->SetMinimumPaneSize(FromDIP(120));
    m_horizontal->SetSashGravity(0.5);
    // One after the other: Tab goes in the order in which windows are made.
    wxWindow* waters = CreateWaterPanel(m_horizontal);
    m_horizontal->SplitHorizontally(waters, CreateDetailPanel(m_horizontal));
    m_vertical->SetMinimumPaneSize(FromDIP(120));
    m_vertical->SplitVertically(m_tree, m_horizontal);

    auto* outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(m_problem, wxSizerFlags().Expand());
    outer->Add(m_vertical, wxSizerFlags().Expand().Proportion(1).Border(wxALL, FromDIP(2 * kGap)));
    outer->Add(CreateButtonRow(),
               wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(2 * kGap)));
    SetSizer(outer);
    SetMinSize(FromDIP(wxSize(560, 420)));
}

wxWindow* WaterLibDialog::CreateWaterPanel(wxWindow* parent)
{
    auto* panel = new wxPanel(parent);
    m_search = new TvSearchControl(panel, wxID_ANY);
    m_search->SetTranslatableHint(wxTRANSLATE("Search waters"));
    accessibility::SetName(*m_search, Tr("Search waters"));
    m_waters = new WaterLibListView(panel, wxID_ANY);
    accessibility::SetName(*m_waters, Tr("Waters"));
    FillWidth(*m_waters);
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(m_search, wxSizerFlags().Expand().Border(wxLEFT | wxBOTTOM, FromDIP(kGap)));
    sizer->Add(m_waters, wxSizerFlags().Expand().Proportion(1).Border(wxLEFT, FromDIP(kGap)));
    panel->SetSizer(sizer);
    return panel;
}

wxWindow* WaterLibDialog::CreateDetailPanel(wxWindow* parent)
{
    auto* panel = new wxPanel(parent);
    auto* box = new wxStaticBoxSizer(wxHORIZONTAL, panel, Tr("Details"));
    wxWindow* inside = box->GetStaticBox();
    auto* grid = new wxFlexGridSizer(2, FromDIP(wxSize(2 * kGap, kGap)));
    grid->AddGrowableCol(1);
    for (std::size_t i = 0; i < m_general.size(); ++i) {
        const bool comments = i + 1 == m_general.size();
        grid->Add(new wxStaticText(inside, wxID_ANY, Tr(kGeneralLabels[i]) + ":"), wxSizerFlags().Top());
        m_general[i] = NewShownText(inside, Tr(kGeneralLabels[i]), comments);
        grid->Add(m_general[i], wxSizerFlags().Expand());
        if (comments)
            grid->AddGrowableRow(i);
    }
    m_details = new wxListView(inside, wxID_ANY);
    accessibility::SetName(*m_details, Tr("Details"));
    m_details->AppendColumn(Tr("Name"), wxLIST_FORMAT_LEFT, FromDIP(170));
    m_details->AppendColumn(Tr("Value"), wxLIST_FORMAT_RIGHT, FromDIP(100));
    m_details->AppendColumn(Tr("Unit"), wxLIST_FORMAT_LEFT, FromDIP(70));
    FillWidth(*m_details);
    const wxSizerFlags spaced = wxSizerFlags().Expand().Border(wxALL, FromDIP(kGap));
    box->Add(grid, wxSizerFlags(spaced).Proportion(1));
    box->Add(m_details, wxSizerFlags(spaced).Proportion(1));
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(box, wxSizerFlags().Expand().Proportion(1).Border(wxLEFT | wxTOP, FromDIP(kGap)));
    panel->SetSizer(sizer);
    return panel;
}

wxSizer* WaterLibDialog::CreateButtonRow()
{
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    m_count = new wxStaticText(this, wxID_ANY, wxString());
    m_use = new wxButton(this, wxID_ANY, Tr("Use current selection as feed water"));
    row->Add(m_count, wxSizerFlags().CentreVertical().Proportion(1));
    row->Add(m_use, wxSizerFlags().Border(wxRIGHT, FromDIP(2 * kGap)));
    auto* close = new wxButton(this, wxID_CANCEL);
    button_label::Set(*close, Tr("Close"));
    row->Add(close);
    SetEscapeId(wxID_CANCEL);
    return row;
}

void WaterLibDialog::RestoreArrangement()
{
    int width = 980;
    int height = 720;
    int vertical = 230;
    int horizontal = 330;
    try {
        const std::string text = ProjectDatabase::GetLocalParameter(kArrangement);
        std::array<int, 4> kept{};
        if (std::sscanf(text.c_str(), "%d %d %d %d", &kept[0], &kept[1], &kept[2], &kept[3]) == 4)
            std::tie(width, height, vertical, horizontal) = std::tuple_cat(kept);
    } catch (const std::exception& error) {
        m_logger.Warning(error.what());
    }
    wxSize size = FromDIP(wxSize(width, height));
    size.IncTo(GetMinSize());
    size.DecTo(wxDisplay(this).GetClientArea().GetSize());
    SetSize(size);
    // A sash has its place only in a window that has its size.
    Layout();
    m_vertical->SetSashPosition(FromDIP(vertical));
    m_horizontal->SetSashPosition(FromDIP(horizontal));
}

void WaterLibDialog::KeepArrangement()
{
    const wxSize size = ToDIP(GetSize());
    try {
        ProjectDatabase::SetLocalParameter(
            kArrangement, fmt::format("{} {} {} {}", size.x, size.y, ToDIP(m_vertical->GetSashPosition()),
                                      ToDIP(m_horizontal->GetSashPosition())));
    } catch (const std::exception& error) {
        m_logger.Warning(error.what());
    }
}
