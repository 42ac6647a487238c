// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/regeneration/tv_regseq_mediums.h"

#include "core/number_text.h"
#include "gui_base/input/controls/tv_staticboxsizer.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/input/form/form_grid.h"
#include "gui_base/input/validation/numeric_validator.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/grid_keys.h"
#include "gui_base/support/translation.h"
#include "projectbase/units/unit_system_manager.h"

#include <wx/statbox.h>

namespace {

constexpr int kDigits = 4;
constexpr int kNameWidth = 190;
constexpr int kVolumeWidth = 110;
constexpr int kRowsShown = 6;

}  // namespace

TVRegSeqMediumsGrid::TVRegSeqMediumsGrid(wxWindow* parent, int id)
    : wxGrid(parent, id, wxDefaultPosition, wxDefaultSize, wxBORDER_THEME)
{
    CreateGrid(0, 2, wxGridSelectRows);
    HideRowLabels();
    EnableEditing(false);
    DisableDragRowSize();
    SetColLabelSize(FromDIP(26));
    SetDefaultRowSize(FromDIP(26));
    SetColSize(0, FromDIP(kNameWidth));
    SetColSize(1, FromDIP(kVolumeWidth));
    SetDefaultCellAlignment(wxALIGN_LEFT, wxALIGN_CENTRE);
    SetDefaultCellBackgroundColour(TvTextCtrl::ReadOnlyColour());
    SetMinSize(wxSize(FromDIP(kNameWidth + kVolumeWidth + 20),
                      GetColLabelSize() + kRowsShown * GetDefaultRowSize() + FromDIP(4)));
    // Nothing is edited here: Tab goes on.
    Bind(wxEVT_GRID_TABBING, [this](wxGridEvent& event) {
        event.Veto();
        CallAfter([this, forward = !event.ShiftDown()] { grid_keys::LeaveByTab(*this, forward); });
    });
}

void TVRegSeqMediumsGrid::SetSums(const MediumSumsData& sums, const std::string& unitSystem)
{
    const wxGridUpdateLocker frozen(this);
    const int wanted = sums.empty() ? 0 : static_cast<int>(sums.size()) + 1;
    if (GetNumberRows() < wanted)
        AppendRows(wanted - GetNumberRows());
    else if (GetNumberRows() > wanted)
        DeleteRows(wanted, GetNumberRows() - wanted);
    SetColLabelValue(0, i18n::Translated(wxTRANSLATE("Medium")));
    SetColLabelValue(1, accessibility::NameWithUnit(i18n::Translated(wxTRANSLATE("Volume")),
                                                    UnitSystemManager::GetUnit("m3", unitSystem, true)));
    const auto show = [&](int row, const wxString& name, double volume) {
        SetCellValue(row, 0, name);
        SetCellValue(row, 1,
                     wxString::FromUTF8(numbertext::Format(
                         UnitSystemManager::FromISO("m3", unitSystem, volume),
                         {.precision = kDigits, .plain = true}, NumericValidator::LocaleSeparators())));
        SetCellAlignment(row, 1, wxALIGN_RIGHT, wxALIGN_CENTRE);
    };
    double total = 0.0;
    for (int row = 0; row + 1 < wanted; ++row) {
        const MediumSum& sum = sums[static_cast<std::size_t>(row)];
        const sequence::Medium* const medium = sequence::FindMedium(sum.medium);
        show(row, i18n::Translated(wxString::FromUTF8(medium != nullptr ? medium->label : sum.medium)),
             sum.volume);
        SetCellFont(row, 0, GetDefaultCellFont());
        SetCellFont(row, 1, GetDefaultCellFont());
        total += sum.volume;
    }
    if (wanted == 0)
        return;
    show(wanted - 1, i18n::Translated(wxTRANSLATE("Total")), total);
    SetCellFont(wanted - 1, 0, GetDefaultCellFont().Bold());
    SetCellFont(wanted - 1, 1, GetDefaultCellFont().Bold());
}

TVRegenerationMediumsSubpanel::TVRegenerationMediumsSubpanel(iex::IEXProject* project, wxWindow* parent,
                                                             int id, const wxPoint& pos, const wxSize& size,
                                                             long style, const wxString& name,
                                                             std::size_t step)
    : ModulePanelBase(project, parent, id, pos, size, style, name),
      m_iexProject(project),
      m_exchanger(project->GetStep(step))
{
    Create();
}

void TVRegenerationMediumsSubpanel::DoCreateControls()
{
    auto* box = AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, this, wxTRANSLATE("Medium volumes")));
    m_grid = new TVRegSeqMediumsGrid(box->GetStaticBox());
    accessibility::SetName(*m_grid, i18n::Translated("Medium volumes"));
    box->Add(m_grid, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(form::kGap)));
    SetSizer(box);
}

void TVRegenerationMediumsSubpanel::DoLocalize()
{
    accessibility::SetName(*m_grid, i18n::Translated("Medium volumes"));
    UpdateGrid();
}

void TVRegenerationMediumsSubpanel::UpdateGrid()
{
    // An exchanger that left the line has no page for long.
    if (m_exchanger.GetParent() != nullptr)
        m_grid->SetSums(m_iexProject->GetRegSeqSums(m_exchanger.GetPosition()),
                        GetCurrentDisplayUnitSystem());
}
