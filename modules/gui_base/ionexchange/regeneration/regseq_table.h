// SPDX-License-Identifier: MIT
#pragma once

/// The cells of a regeneration sequence: rows hold keys and ISO values, cells show texts of the present
/// language and numbers of the displayed unit system. GUI thread only.

#include "gui_base/dialogs/tv_gridcellchoiceeditor.h"
#include "gui_base/gui_base_export.h"
#include "projectbase/details/detail_list.h"
#include "projectbase/sequence/reg_seq_data.h"

#include <wx/grid.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

enum RegSeqColumn : int
{
    kRegSeqType = 0,
    kRegSeqMedium,
    kRegSeqVelocity,
    kRegSeqFlow,
    kRegSeqSpecificFlow,
    kRegSeqHours,
    kRegSeqMinutes,
    kRegSeqVolume,
    kRegSeqBedVolumes,
    kRegSeqDirection,
    kRegSeqColumnCount
};

class GUI_BASE_EXPORT RegSeqTable : public wxGridTableBase
{
public:
    using Choices = std::vector<SelectionChoice>;

    /// `onEdit` is told after a cell has changed its row.
    explicit RegSeqTable(std::function<void()> onEdit);
    ~RegSeqTable() override;

    int GetNumberRows() override { return static_cast<int>(m_steps.size()); }
    int GetNumberCols() override { return kRegSeqColumnCount; }
    wxString GetValue(int row, int column) override;
    /// The text of a choice, or a number; what is neither is passed over. An empty number is not known.
    void SetValue(int row, int column, const wxString& text) override;
    wxString GetColLabelValue(int column) override;
    wxGridCellAttr* GetAttr(int row, int column, wxGridCellAttr::wxAttrKind kind) override;

    const std::vector<RegSeqStep>& GetSteps() const { return m_steps; }
    /// The grid has to be told when their number changes.
    void SetSteps(std::vector<RegSeqStep> steps) { m_steps = std::move(steps); }
    /// Sets a flag of some rows, as one edit.
    void SetFlag(const std::vector<int>& rows, bool RegSeqStep::*flag, bool value);
    void SetChoicesType(Choices choices);
    void SetChoicesMedium(Choices choices);
    void SetChoicesDirection(Choices choices);
    void SetUnitSystem(const std::string& unitSystem) { m_unitSystem = unitSystem; }
    void TakeColours();
    /// Whether the user can change a cell: rows that nothing flows in have no flow, the dose of a chemical
    /// settles its volume, a required row stays what it is.
    bool IsEditable(int row, int column) const;
    /// The column that shows a value of the rows ("regseqstep/q"); the first one where none does.
    static int ColumnOf(const std::string& key);
    /// All texts that a column of choices can show.
    std::vector<wxString> TextsOf(int column) const;

private:
    void ReleaseAttributes();
    /// On which side of its limits the number of a cell lies.
    int SideOfLimits(int row, int column) const;
    wxGridCellAttr* ChoiceAttribute(int row, int column);
    const Choices* ChoicesOf(int column) const;
    /// The media that a row of that type can have.
    Choices MediaFor(const std::string& type) const;

    std::vector<RegSeqStep> m_steps;
    std::function<void()> m_onEdit;
    std::string m_unitSystem = "iso";
    Choices m_types;
    Choices m_media;
    Choices m_directions;
    wxGridCellAttr* m_shownText = nullptr;
    wxGridCellAttr* m_shownNumber = nullptr;
    wxGridCellAttr* m_number = nullptr;
    wxGridCellAttr* m_below = nullptr;
    wxGridCellAttr* m_above = nullptr;
    DetailList m_limits;  ///< the details of a row, for their limits
    /// By what is offered: "type", "direction", and the class of the row for media.
    std::map<std::string, wxGridCellAttr*> m_choices;
};
