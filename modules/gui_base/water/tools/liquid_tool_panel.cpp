// SPDX-License-Identifier: MIT
#include "gui_base/water/tools/liquid_tool_panel.h"

#include "gui_base/input/form/form_grid.h"

namespace {

constexpr int kFieldWidth = 90;

DetailList& DetailsOf(Project& project, int liquid)
{
    return *project.GetLiquid(static_cast<std::size_t>(liquid)).GetDetails();
}

}  // namespace

LiquidToolPanel::LiquidToolPanel(Project* project, int liquid, wxWindow* parent, int id, const wxPoint& pos,
                                 const wxSize& size, long style, const wxString& name)
    : FormPanel(project, DetailsOf(*project, liquid), parent, id, pos, size, style, name), m_liquid(liquid)
{}

DetailData* LiquidToolPanel::GetLiquidDetail(const wxString& key) const
{
    return &DetailsOf(*GetProject(), m_liquid).At(key.utf8_string());
}

wxTextCtrl* LiquidToolPanel::FindField(const wxString& key) const
{
    return GetFields().FindField(key.utf8_string());
}

void LiquidToolPanel::DoCreateForm()
{
    GetFields().SetFieldWidth(kFieldWidth);
    m_form = NewGrid();
    auto* outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(m_form, wxSizerFlags().Border(wxALL, FromDIP(3 * form::kGap)));
    SetSizer(outer);
    DoCreateRows();
}

void LiquidToolPanel::AddRows(std::span<const FormRow> rows)
{
    GetFields().AddRows(this, *m_form, rows);
}

void LiquidToolPanel::DoUpdateValues()
{
    GetProject()->CalculateLiquid(static_cast<std::size_t>(m_liquid));
}
