// SPDX-License-Identifier: MIT
#include "gui_base/water/analysis/ions_box.h"

#include "gui_base/input/form/form_grid.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/image_loader.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/analysis/tooltip_on_demand.h"

#include <wx/statbox.h>

#include <algorithm>

namespace wateranalysis {

IonsBox::IonsBox(wxWindow* parent, FieldSet& fields, const IonGrid::UnitLists& units)
    : TvStaticBoxSizer(wxHORIZONTAL, parent, wxTRANSLATE("Ions")), m_fields(fields), m_units(units)
{
    m_fields.AddLocalizable<TvStaticBoxSizer>(this);
}

wxSizer* IonsBox::AddCations(const wxString& title, const std::vector<wxString>& labels)
{
    wxWindow* box = GetStaticBox();
    m_defaultUnit =
        new wxBitmapButton(box, wxID_ANY, ImageLoader::LoadBundle("/icons/arrowdown.xpm", wxSize(12, 12)),
                           wxDefaultPosition, box->FromDIP(wxSize(28, 28)), wxBU_EXACTFIT | wxBORDER_NONE);
    IonGrid& grid = *m_grids.emplace_back(std::make_unique<IonGrid>(m_fields, m_units, m_group));
    return AddGrid(grid.Create(box, title, kCationRows, labels, kCationTotals, m_defaultUnit));
}

wxSizer* IonsBox::AddAnions(const wxString& title, const std::vector<wxString>& labels)
{
    IonGrid& grid = *m_grids.emplace_back(std::make_unique<IonGrid>(m_fields, m_units, m_group));
    AddSpacer(GetStaticBox()->FromDIP(4 * form::kGap));
    return AddGrid(grid.Create(GetStaticBox(), title, kAnionRows, labels, kAnionTotals, nullptr));
}

wxSizer* IonsBox::AddGrid(wxSizer* grid)
{
    Add(grid, wxSizerFlags().Border(wxALL, GetStaticBox()->FromDIP(form::kGap)));
    const char* const sum = m_grids.size() == 1 ? "liquid/sum.c.meql" : "liquid/sum.a.meql";
    ExplainOnDemand(*m_fields.FindField(sum), [this] { return ExplainBalance(); });
    return grid;
}

wxString IonsBox::ExplainBalance() const
{
    const double error = m_fields.Details().At("liquid/balance.error").GetDoubleValue();
    return wxString::Format(
        i18n::Translated("Balance error: %s %%, the difference of both sums in percent of their total"),
        ExplainedNumber(error));
}

int IonsBox::GetWidth(int orientation)
{
    const int present = GetOrientation();
    SetOrientation(orientation);
    const int width = CalcMin().x;
    SetOrientation(present);
    return width;
}

const IonGrid& IonsBox::GetFocusedGrid() const
{
    for (const auto& grid : m_grids) {
        if (grid->FocusedRow() >= 0)
            return *grid;
    }
    return *m_grids.front();
}

void IonsBox::EnableRows(bool enable)
{
    for (const auto& grid : m_grids)
        grid->EnableRows(enable);
}

void IonsBox::EnableNamedRow(const wxObject* nameField, bool enable)
{
    for (const auto& grid : m_grids) {
        if (const IonGrid::Row* row = grid->FindNamed(nameField))
            grid->EnableRow(*row, enable);
    }
}

bool IonsBox::TakeBackNumber(const wxObject* nameField)
{
    return std::ranges::any_of(m_grids, [nameField](const auto& grid) {
        const IonGrid::Row* row = grid->FindNamed(nameField);
        return row != nullptr && grid->TakeBackNumber(*row);
    });
}

const IonRow* IonsBox::FindNamedIon(const wxObject* nameField) const
{
    for (const auto& grid : m_grids) {
        if (const IonGrid::Row* row = grid->FindNamed(nameField))
            return row->ion;
    }
    return nullptr;
}

void IonsBox::TakeUnitOfSodium()
{
    const wxString unit = m_fields.Details().At("liquid/na.unit").GetStringValue();
    for (const auto& grid : m_grids) {
        for (const IonGrid::Row& row : grid->Rows()) {
            if (row.unit->Offers(unit))
                row.unit->GetDetail()->SetValue(unit);
        }
    }
}

void IonsBox::Localize()
{
    const wxString text = i18n::Translated("Set default unit (based on 'Na' unit)");
    m_defaultUnit->SetToolTip(text);
    accessibility::SetName(*m_defaultUnit, text);
}

}  // namespace wateranalysis
