// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/feed/duplicate_resolution_dialog.h"

#include "core/number_text.h"
#include "gui_base/dialogs/dialog_buttons.h"
#include "gui_base/dialogs/tv_gridcellchoiceeditor.h"
#include "gui_base/input/validation/numeric_validator.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/compound_name.h"
#include "gui_base/support/translation.h"

#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/display.h>
#include <wx/grid.h>
#include <wx/sizer.h>

#include <array>

namespace {

constexpr int kGap = 8;
constexpr int kMostRows = 14;
constexpr int kDecisionColumn = 3;

using compound_import::Decision;

/// By Decision.
const std::array kDecisionTexts{wxTRANSLATE("Skip"), wxTRANSLATE("Replace"), wxTRANSLATE("Keep both")};
const std::array kColumns{wxTRANSLATE("Name"), wxTRANSLATE("Formula"), wxTRANSLATE("Existing vs Incoming"),
                          wxTRANSLATE("Decision")};

wxString Tr(const char* source)
{
    return i18n::Translated(source);
}

wxString DecisionText(Decision decision)
{
    return Tr(kDecisionTexts[static_cast<std::size_t>(decision)]);
}

std::vector<SelectionChoice> Decisions()
{
    std::vector<SelectionChoice> choices;
    for (const char* text : kDecisionTexts)
        choices.push_back({text, Tr(text)});
    return choices;
}

wxString PKa(double value)
{
    return wxString::FromUTF8(numbertext::Format(value, {.format = TvTextCtrlFormat::Fixed, .precision = 2},
                                                 NumericValidator::LocaleSeparators()));
}

wxString Difference(const DuplicateCompound& duplicate)
{
    return Tr(wxTRANSLATE("Existing pKa: ")) + PKa(duplicate.existing.pKa) + " | " +
           Tr(wxTRANSLATE("Incoming pKa: ")) + PKa(duplicate.incoming.pKa);
}

}  // namespace

DuplicateResolutionDialog::DuplicateResolutionDialog(wxWindow* parent,
                                                     const std::vector<DuplicateCompound>& duplicates)
    : wxDialog(parent, wxID_ANY, Tr(wxTRANSLATE("Resolve Duplicate Compounds")), wxDefaultPosition,
               wxDefaultSize, wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      m_applyToAll(new wxCheckBox(this, wxID_ANY, Tr(wxTRANSLATE("Apply this decision to all duplicates")))),
      m_common(new wxChoice(this, wxID_ANY)),
      m_grid(new wxGrid(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxWANTS_CHARS | wxBORDER_THEME))
{
    for (const SelectionChoice& choice : Decisions())
        m_common->Append(choice.text);
    m_common->SetSelection(static_cast<int>(Decision::Skip));
    accessibility::SetName(*m_common, m_applyToAll->GetLabel());
    FillGrid(duplicates);

    auto* outer = new wxBoxSizer(wxVERTICAL);
    const int gap = FromDIP(kGap);
    outer->Add(m_applyToAll, wxSizerFlags().Border(wxALL, gap));
    outer->Add(m_common, wxSizerFlags().Border(wxLEFT | wxRIGHT, gap));
    outer->Add(m_grid, wxSizerFlags(1).Expand().Border(wxALL, gap));
    outer->Add(dialogs::CreateButtons(*this, true),
               wxSizerFlags().Right().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    SetSizerAndFit(outer);
    m_applyToAll->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) { UpdateEnabled(); });
    UpdateEnabled();
    CentreOnParent();
}

void DuplicateResolutionDialog::FillGrid(const std::vector<DuplicateCompound>& duplicates)
{
    const wxGridUpdateLocker frozen(m_grid);
    const int count = static_cast<int>(duplicates.size());
    m_grid->CreateGrid(count, static_cast<int>(kColumns.size()));
    m_grid->HideRowLabels();
    m_grid->DisableDragRowSize();
    m_grid->SetTabBehaviour(wxGrid::Tab_Leave);
    accessibility::SetName(*m_grid, GetTitle());
    for (int column = 0; column < static_cast<int>(kColumns.size()); ++column) {
        m_grid->SetColLabelValue(column, Tr(kColumns[static_cast<std::size_t>(column)]));
        auto* attribute = new wxGridCellAttr;
        if (column == kDecisionColumn)
            attribute->SetEditor(new TvGridCellChoiceEditor(Decisions(), false));
        else
            attribute->SetReadOnly();
        m_grid->SetColAttr(column, attribute);
    }
    for (int row = 0; row < count; ++row) {
        const DuplicateCompound& duplicate = duplicates[static_cast<std::size_t>(row)];
        m_grid->SetCellValue(row, 0, i18n::CompoundName(duplicate.incoming.name, duplicate.incoming.formula));
        m_grid->SetCellValue(row, 1, wxString::FromUTF8(duplicate.incoming.formula));
        m_grid->SetCellValue(row, 2, Difference(duplicate));
        m_grid->SetCellValue(row, kDecisionColumn, DecisionText(Decision::Skip));
    }
    m_grid->AutoSizeColumns();
    // The editor needs room for its longest text and its arrow.
    m_grid->SetColSize(kDecisionColumn, std::max(m_grid->GetColSize(kDecisionColumn), FromDIP(140)));
    wxSize size(FromDIP(24), m_grid->GetColLabelSize() + FromDIP(8));
    for (int column = 0; column < m_grid->GetNumberCols(); ++column)
        size.x += m_grid->GetColSize(column);
    size.y += m_grid->GetDefaultRowSize() * std::clamp(count, 3, kMostRows);
    size.DecTo(wxDisplay(GetParent()).GetClientArea().GetSize() * 2 / 3);
    m_grid->SetMinSize(size);
}

void DuplicateResolutionDialog::UpdateEnabled()
{
    m_common->Enable(m_applyToAll->GetValue());
    m_grid->Enable(!m_applyToAll->GetValue());
}

bool DuplicateResolutionDialog::TransferDataFromWindow()
{
    m_grid->DisableCellEditControl();
    return wxDialog::TransferDataFromWindow();
}

DuplicateResolutionResult DuplicateResolutionDialog::GetResult(int closedWith) const
{
    DuplicateResolutionResult result;
    if (closedWith != wxID_OK)
        return result;
    result.cancelled = false;
    result.applyToAll = m_applyToAll->GetValue();
    result.commonDecision = static_cast<Decision>(m_common->GetSelection());
    for (int row = 0; row < m_grid->GetNumberRows(); ++row) {
        const wxString text = m_grid->GetCellValue(row, kDecisionColumn);
        Decision decision = Decision::Skip;
        for (const Decision other : {Decision::Replace, Decision::KeepBoth}) {
            if (text == DecisionText(other))
                decision = other;
        }
        result.decisions.push_back(decision);
    }
    return result;
}
