// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/regeneration/regeneration_panel.h"

#include "gui_base/input/controls/flow_sizer.h"
#include "gui_base/input/controls/tv_staticboxsizer.h"
#include "gui_base/input/form/form_grid.h"
#include "gui_base/ionexchange/regeneration/chemical_dilution_panel.h"
#include "gui_base/ionexchange/regeneration/mb_regeneration_type.h"
#include "gui_base/ionexchange/regeneration/tv_regseq_mediums.h"
#include "gui_base/ionexchange/regeneration/tv_regseq_seq.h"
#include "gui_base/ionexchange/regeneration/tv_regseq_seq_controller.h"
#include "projectbase/whatif/what_if_rows.h"

#include <wx/statbox.h>

#include <algorithm>

RegenerationPanel::RegenerationPanel(iex::IEXProject& project, OwnerNode& exchanger, wxWindow* parent)
    : ModulePanelBase(&project, parent), m_iexProject(project), m_exchanger(exchanger)
{
    Create();
}

RegenerationPanel::~RegenerationPanel() = default;

void RegenerationPanel::DoCreateControls()
{
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, FromDIP(form::kGap));
    auto* outer = new wxBoxSizer(wxVERTICAL);
    auto* box = AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, this, wxTRANSLATE("Regeneration sequence")));
    m_sequence = new TVRegSeqSubPanel(&m_iexProject, box->GetStaticBox(), wxID_ANY,
                                      static_cast<int>(m_exchanger.GetPosition()));
    m_panels.push_back(m_sequence);
    m_controller = std::make_unique<TVRegSeqSubPanelController>(m_sequence, &m_iexProject);
    box->Add(m_sequence, wxSizerFlags(1).Expand());
    outer->Add(box, wxSizerFlags(spaced).Expand());
    outer->Add(CreateChemicals(), spaced);
    SetSizer(outer);
}

wxSizer* RegenerationPanel::CreateChemicals()
{
    auto* flow = new FlowSizer(FromDIP(2 * form::kGap));
    for (const auto& compartment : m_exchanger.GetChildren(OwnerKind::Compartment)) {
        for (auto* make : {&MakeRegenerationPanel, &MakeConditioningPanel}) {
            m_panels.push_back(make(GetProject(), this, *compartment));
            flow->Add(m_panels.back());
        }
    }
    auto* mediums = new TVRegenerationMediumsSubpanel(&m_iexProject, this, wxID_ANY, wxDefaultPosition,
                                                      wxDefaultSize, wxTAB_TRAVERSAL,
                                                      wxASCII_STR(wxPanelNameStr), m_exchanger.GetPosition());
    m_panels.push_back(mediums);
    flow->Add(mediums);
    if (m_exchanger.GetChildren(OwnerKind::Compartment).size() > 1) {
        DetailList& details = *m_exchanger.GetDetails();
        m_mixedBed =
            new MBRegenerationType(&details.At("step/mb.type"), &details.At("step/mb.neutral"), this);
        flow->Add(m_mixedBed);
    }
    return flow;
}

bool RegenerationPanel::FocusDetail(const DetailAddress& address)
{
    if (m_mixedBed != nullptr && address.owner == m_exchanger.GetOwner() &&
        address.key.starts_with("step/mb.")) {
        m_mixedBed->SetFocus();
        return true;
    }
    return std::ranges::any_of(m_panels, [&](ModulePanelBase* panel) { return panel->FocusDetail(address); });
}

void RegenerationPanel::DoUpdateUnits()
{
    for (ModulePanelBase* panel : m_panels)
        panel->UpdateUnits(true);
}

void RegenerationPanel::DoLocalize()
{
    for (ModulePanelBase* panel : m_panels)
        panel->Localize(GetCurrentDisplayUnitSystem());
    if (m_mixedBed != nullptr)
        m_mixedBed->Localize(GetCurrentDisplayUnitSystem());
}

void RegenerationPanel::DoFollowProject()
{
    // The panels on it follow by themselves.
    if (m_mixedBed != nullptr)
        m_mixedBed->TransferDetailsToWindow();
}

bool RegenerationPanel::DoHasWhatIf()
{
    return whatif::HasRows(m_iexProject);
}
