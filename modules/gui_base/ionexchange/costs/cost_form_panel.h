// SPDX-License-Identifier: MIT
#pragma once

/// A panel of cost details: money stands in the currency that the user chose, and follows it. Details stay in
/// euro. GUI thread only.

#include "gui_base/gui_base_export.h"
#include "gui_base/input/form/form_panel.h"
#include "gui_base/ionexchange/costs/cost_table.h"
#include "projectbase/project/iex_project.h"

#include <memory>
#include <vector>

class GUI_BASE_EXPORT CostFormPanel : public FormPanel
{
public:
    /// Asks for currency and rate anew, and shows all money by them.
    void UpdateCurrencyDisplay() override;
    /// The same, when somebody else asked.
    void ShowIn(const costs::ShownCurrency& currency);
    const costs::ShownCurrency& GetCurrency() const { return GetFields().GetCurrency(); }

protected:
    CostFormPanel() = default;

    /// Sets what lines come to; the fields show it next.
    virtual void DoSetResults() = 0;

    iex::IEXProject& Plant() const;
    CostTable& AddTable(wxWindow* parent, const char* quantity, std::span<const cost_table::Line> lines,
                        std::span<const cost_table::Result> results,
                        const AlignedGrid::Group& group = AlignedGrid::NewGroup());
    void ClearTables() { m_tables.clear(); }
    /// "cost/cc.volume.resin1"
    static std::string Key(const char* kind, const std::string& suffix);

    void DoCreateControls() override;
    void DoTransferDetailsToWindows() override;
    void DoFollowProject() override;
    void DoUpdateUnits() override;
    void DoLocalize() override;
    // The project settles its own status.
    long GetPanelProjectStatus() override { return GetProjectStatus(); }

private:
    void ShowTables();
    void NameTables();

    std::vector<std::unique_ptr<CostTable>> m_tables;
    /// The project's own rate as it was when it was shown last.
    costs::ShownCurrency m_ofProject;
};
