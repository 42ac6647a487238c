// SPDX-License-Identifier: MIT
#pragma once

/// What one regeneration step sends to waste: the amounts and concentrations of the ions and the regenerants.
/// Read only: the values are those of the design, and empty as long as there is none. GUI thread only.

#include "gui_base/gui_base_export.h"
#include "gui_base/input/panel/tv_modulepanelbase.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/regeneration/waste_data.h"

#include <wx/sizer.h>

#include <span>
#include <string>
#include <vector>

class TvValidatedDoubleTextCtrl;

class GUI_BASE_EXPORT TvWasteWaterAndComposition : public ModulePanelBase
{
public:
    /// One entry of `regenerants` for each regenerant; `title` is a source text. `step` is the place of the
    /// exchanger in its line; where there is none, every value is unknown.
    TvWasteWaterAndComposition(iex::IEXProject* project, wxWindow* parent,
                               const std::vector<WasteData>& regenerants, const wxString& title,
                               std::size_t step = 0);
    ~TvWasteWaterAndComposition() override;

    static constexpr int kStep = -1;
    /// The field of a detail of the step ("step/m.th") or of a regenerant ("stepcomp/rm"), or null.
    TvValidatedDoubleTextCtrl* FindField(const std::string& key, int regenerant = kStep) const;

protected:
    long GetPanelProjectStatus() override { return 0; }
    void DoResetPanelStatus() override {}
    void DoResetMessages() override {}
    void DoCreateControls() override;
    void DoSetTransferDetails() override {}
    void DoSetValidators() override {}
    void DoBindEvents() override {}
    void DoPrepare() override {}
    void DoUpdateUnits() override {}
    void DoLocalize() override {}
    void DoConnectTvTextCtrlsToStatusbar() override {}
    void DoSendVisualizeMessageEvent() override {}

private:
    struct Row
    {
        const char* label;
        const char* key;  ///< without "step/m." and "step/c."
    };
    struct Field
    {
        std::string key;
        int regenerant;
        TvValidatedDoubleTextCtrl* control;
    };

    DetailList& GetStep();
    wxSizer* CreateSection(wxWindow* parent, const char* title, std::span<const Row> rows);
    wxSizer* CreateRegenerants(wxWindow* parent);
    void AddHead(wxWindow* parent, wxSizer& grid, const wxString& text, bool isNumber);
    void AddField(wxWindow* parent, wxSizer& grid, DetailList& details, const std::string& key,
                  const wxString& name, int regenerant = kStep);

    std::size_t m_step;
    std::vector<WasteData> m_regenerants;
    wxString m_title;
    /// What regenerants without a calculation are bound to: every value unknown.
    DetailList m_unknown;
    std::vector<Field> m_fields;

    static const std::span<const Row> kCations;
    static const std::span<const Row> kAnions;
};
