// SPDX-License-Identifier: MIT
// The controls of the water library.
#include "gui_base/input/controls/nothing_found.h"
#include "gui_base/input/controls/tv_searchctrl.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/button_label.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/library/water_lib_details.h"
#include "gui_base/water/library/water_lib_dialog.h"
#include "gui_base/water/library/water_lib_list.h"
#include "gui_base/water/library/water_lib_tree.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/infobar.h>
#include <wx/sizer.h>
#include <wx/splitter.h>
#include <wx/stattext.h>

namespace {

constexpr int kGap = 4;
/// Tab leaves a splitter only where its style says so.
constexpr long kSplitterStyle = wxSP_LIVE_UPDATE | wxTAB_TRAVERSAL;
wxString Tr(const char* source)
{
    return i18n::Translated(source);
}

}  // namespace

void WaterLibDialog::CreateControls()
{
    m_problem = new wxInfoBar(this);
    m_vertical = new wxSplitterWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, kSplitterStyle);
    m_tree = new WaterLibTree(m_vertical);
    m_horizontal =
        new wxSplitterWindow(m_vertical, wxID_ANY, wxDefaultPosition, wxDefaultSize, kSplitterStyle);
    m_horizontal->SetMinimumPaneSize(FromDIP(120));
    m_horizontal->SetSashGravity(0.5);
    // One after the other: Tab goes in the order in which windows are made.
    wxWindow* waters = CreateWaterPanel(m_horizontal);
    m_details = new WaterLibDetails(m_horizontal);
    m_horizontal->SplitHorizontally(waters, m_details);
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
    m_thisFolder = new wxCheckBox(panel, wxID_ANY, Tr("In this folder only"));
    m_waters = new WaterLibListView(panel, wxID_ANY);
    water_library::FillWidth(*m_waters);
    m_nothing = new NothingFound(*m_waters, wxTRANSLATE("Clear search"), [this] { ClearSearch(); });
    auto* searchRow = new wxBoxSizer(wxHORIZONTAL);
    searchRow->Add(m_search, wxSizerFlags(1).CentreVertical());
    searchRow->Add(m_thisFolder, wxSizerFlags().CentreVertical().Border(wxLEFT, FromDIP(2 * kGap)));
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(searchRow, wxSizerFlags().Expand().Border(wxLEFT | wxBOTTOM, FromDIP(kGap)));
    sizer->Add(m_waters, wxSizerFlags().Expand().Proportion(1).Border(wxLEFT, FromDIP(kGap)));
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
    row->Add(button_label::NewButton(this, wxID_CANCEL, Tr("Close")));
    SetEscapeId(wxID_CANCEL);
    return row;
}
