// SPDX-License-Identifier: MIT
#include "gui_base/water/analysis/balance_panel.h"

#include "gui_base/input/controls/collapsible_box.h"
#include "gui_base/input/controls/tv_checkbox.h"

BalancePanel::BalancePanel(wxWindow* parent, FieldSet& fields) : wxPanel(parent)
{
    auto* box = new CollapsibleBox(wxVERTICAL, this, wxTRANSLATE("Automatic balancing"));
    fields.AddLocalizable<TvStaticBoxSizer>(box);
    const auto add = [&](const char* key, const char* label) {
        auto* checkBox = fields.AddLocalizable(
            new TvCheckBox(box->GetStaticBox(), wxID_ANY, label, wxDefaultPosition, wxDefaultSize, 0,
                           wxDefaultValidator, wxASCII_STR(wxCheckBoxNameStr), &fields.Details().At(key)));
        fields.AddSelfRefreshing(checkBox);
        box->Add(checkBox, wxSizerFlags().Border(wxALL, FromDIP(4)));
        return checkBox;
    };
    m_auto = add("liquid/balance.auto", wxTRANSLATE("Automatic balancing"));
    m_ph = add("liquid/balance.ph", wxTRANSLATE("Include H+ and OH- in automatic balancing"));
    box->TakeKeptState();
    SetSizer(box);
}
