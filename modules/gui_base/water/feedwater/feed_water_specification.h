// SPDX-License-Identifier: MIT
#pragma once

/// How much feed water a plant treats: flow rate, running time, volume and number of lines, as details of the
/// project, which keeps flow rate, time and volume consistent. A committed edit is stored and told to the
/// parent by one queued tvCHANGE_EVENT with the id of the block. The project is not owned and outlives the
/// block.

#include "gui_base/input/form/form_block.h"

class Project;

class GUI_BASE_EXPORT FeedWaterSpecification : public FormBlock
{
public:
    /// `liquid` is the index of the water that is fed. With `flowRateOnly` only the flow rate is asked for.
    FeedWaterSpecification(Project* project, int liquid, wxWindow* parent, int id = wxID_ANY,
                           const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                           long style = wxTAB_TRAVERSAL, bool flowRateOnly = false);

    /// Whether enough is stated: a flow rate, and a running time unless only the flow rate is asked for. A
    /// quantity that is not known counts as 0.
    bool Check() const;
    void EnableFlowRate(bool enable);
    using FormBlock::Localize;
    /// Reads the four labels again, in the present language.
    void Localize();
    int GetLiquidIndex() const { return m_liquid; }

private:
    Project* m_project;
    int m_liquid;
    bool m_flowRateOnly;
};
