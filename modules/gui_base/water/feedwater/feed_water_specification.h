// SPDX-License-Identifier: MIT
#pragma once

/// How much feed water a plant treats: flow rate, running time, volume and number of lines, as details of the
/// project, which keeps flow rate, time and volume consistent. A committed edit is stored, marks
/// the project as changed and is told to the parent by one queued tvCHANGE_EVENT with the id of the block.
/// The project is not owned and outlives the block.

#include "gui_base/gui_base_export.h"
#include "gui_base/input/binding/detail_container_window.h"
#include "gui_base/input/binding/transfer_container.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/input/controls/tv_unitlabel.h"
#include "gui_base/input/panel/tv_modulepanelbase.h"
#include "projectbase/feed/feed_quantities.h"

#include <wx/panel.h>

#include <array>
#include <string>
#include <vector>

class GUI_BASE_EXPORT FeedWaterSpecification : public wxPanel, public DetailContainerWindow
{
public:
    static constexpr std::size_t kRows = 4;

    /// `liquid` is the index of the water that is fed. With `flowRateOnly` only the flow rate is asked for.
    FeedWaterSpecification(Project* project, int liquid, wxWindow* parent, int id = wxID_ANY,
                           const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                           long style = wxTAB_TRAVERSAL, bool flowRateOnly = false);
    ~FeedWaterSpecification() override;

    /// Whether enough is stated: a flow rate, and a running time unless only the flow rate is asked for. A
    /// quantity that is not known counts as 0.
    bool Check() const;
    void EnableFlowRate(bool enable);
    /// Reads the four labels again, in the present language.
    void Localize();
    void TransferDetailToWindow() override;
    void UpdateUnit(const std::string& unitSystem) override;
    /// Stores the fields; whether any detail changed.
    bool TransferDetailsFromWindow();

    void SetStatusBar(wxStatusBar* statusBar);
    /// The field of a detail of the project, or null.
    TvTextCtrl* FindField(const std::string& key) const;
    int GetLiquidIndex() const { return m_liquid; }

private:
    struct Row
    {
        DetailData* detail = nullptr;
        TvStaticText* label = nullptr;
        TvTextCtrl* field = nullptr;
        TvUnitLabel* unit = nullptr;
    };

    void CreateControls();
    void SetValidators();
    void UpdateNames();
    double Known(std::size_t row) const;
    void OnCommit(wxCommandEvent& event);

    Project* m_project;
    int m_liquid;
    bool m_flowRateOnly;
    std::array<Row, kRows> m_rows;
    /// What the fields edit: the three quantities, in displayed units, and the number of lines.
    std::array<double, FeedQuantities::kCount> m_values{};
    long m_lines = 0;
    TransferContainer m_transfers;
};
