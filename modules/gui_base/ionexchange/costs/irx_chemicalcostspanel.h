// SPDX-License-Identifier: MIT
#pragma once

/// What chemicals and waters cost: the amount of a cycle, the price, and what these come to a cycle, a year
/// and a volume of product. GUI thread only.

#include "gui_base/ionexchange/costs/cost_form_panel.h"

class GUI_BASE_EXPORT IRXChemicalCostsPanel : public CostFormPanel
{
public:
    /// `Create` follows.
    IRXChemicalCostsPanel() = default;
    /// The project outlives the panel.
    IRXChemicalCostsPanel(iex::IEXProject* project, wxWindow* parent, int id = wxID_ANY,
                          const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                          long style = wxTAB_TRAVERSAL);
    void Create(iex::IEXProject* project, wxWindow* parent, int id = wxID_ANY,
                const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                long style = wxTAB_TRAVERSAL);

    /// The field of a price, or null.
    TvTextCtrl* FindField(const std::string& key) const { return GetFields().FindField(key); }

protected:
    void DoCreateForm() override;
    void DoSetResults() override;
    void DoTransferDetailsToWindows() override;

private:
    struct Box
    {
        wxWindow* frame;
        CostTable* table;
    };
    void AddBox(const char* title, const char* quantity, std::span<const cost_table::Line> lines);

    AlignedGrid::Group m_group = AlignedGrid::NewGroup();
    std::vector<Box> m_boxes;
};
