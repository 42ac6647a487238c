// SPDX-License-Identifier: MIT
#pragma once

/// What one regeneration step sends to waste: the amounts and concentrations of the ions and the regenerants.
/// Read only: the values are those of the design, and empty as long as there is none. GUI thread only.

#include "gui_base/gui_base_export.h"
#include "gui_base/input/form/aligned_grid.h"
#include "gui_base/input/form/form_panel.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/regeneration/waste_data.h"

#include <wx/stattext.h>

#include <span>
#include <string>
#include <vector>

class GUI_BASE_EXPORT TvWasteWaterAndComposition : public FormPanel
{
public:
    /// One entry of `regenerants` for each regenerant; `title` is a source text. `step` is the place of the
    /// exchanger in its line; where there is none, every value is unknown.
    TvWasteWaterAndComposition(iex::IEXProject* project, wxWindow* parent,
                               const std::vector<WasteData>& regenerants, const wxString& title,
                               std::size_t step = 0);

    /// Shows other regenerants than before; nothing changes while they have the same names.
    void SetRegenerants(const std::vector<WasteData>& regenerants);

    static constexpr int kStep = -1;
    /// The field of a detail of the step ("step/m.th") or of a regenerant ("stepcomp/rm"), or null.
    TvTextCtrl* FindField(const std::string& key, int regenerant = kStep) const;
    wxString GetNotes() const { return m_notes->GetLabelText(); }

protected:
    void DoCreateForm() override;
    void DoTransferDetailsToWindows() override;
    void DoLocalize() override;
    void DoUpdateUnits() override;
    bool DoHasWhatIf() override;

private:
    struct Row
    {
        const char* label;
        const char* key;  ///< without "step/m." and "step/c."
    };

    wxSizer* CreateSection(wxWindow* parent, const char* title, std::span<const Row> rows,
                           const AlignedGrid::Group& group);
    wxSizer* CreateRegenerants(wxWindow* parent, const AlignedGrid::Group& group);
    /// A value with its name and unit, below a section.
    void AddLine(wxWindow* parent, wxSizer& grid, DetailData& detail, const char* label);
    /// How much waste there is, and how the wastes of the line are neutralised.
    void ShowNotes();
    void AddHead(wxWindow* parent, wxSizer& grid, const wxString& text, bool isNumber);
    void AddUnitHead(wxWindow* parent, wxSizer& grid, const wxString& isoUnit, const wxString& suffix = {});
    void AddField(wxWindow* parent, wxSizer& grid, DetailData& detail, const wxString& name);
    DetailList& DetailsOf(const WasteData& regenerant);

    std::vector<WasteData> m_regenerants;
    wxString m_title;
    std::size_t m_step;
    wxStaticText* m_notes = nullptr;
    /// What regenerants without a calculation are bound to: every value unknown.
    DetailList m_unknown;

    static const std::span<const Row> kCations;
    static const std::span<const Row> kAnions;
};
