// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/regeneration/mb_regeneration_type.h"

#include "gui_base/input/controls/tv_checkbox.h"
#include "gui_base/input/controls/tv_radiobutton.h"
#include "gui_base/input/controls/tv_staticboxsizer.h"
#include "gui_base/input/events.h"
#include "gui_base/input/form/form_grid.h"
#include "gui_base/support/events.h"

#include <wx/statbox.h>
#include <wx/translation.h>

namespace {

struct Button
{
    int id;
    const char* label;
    const char* value;
};
constexpr std::array kButtons{
    Button{MBRegenerationType::kParallel, wxTRANSLATE("Parallel"), "parallel"},
    Button{MBRegenerationType::kAcidFirst, wxTRANSLATE("Serial (1. acid / 2. caustic)"), "serial1"},
    Button{MBRegenerationType::kCausticFirst, wxTRANSLATE("Serial (1. caustic / 2. acid)"), "serial2"},
};

}  // namespace

MBRegenerationType::MBRegenerationType(DetailData* type, DetailData* neutralisation, wxWindow* parent, int id,
                                       const wxPoint& pos, const wxSize& size, long style,
                                       const wxString& name)
    : TvPanel(parent, id, pos, size, style, name), m_type(type)
{
    auto* box = AddControl(new TvStaticBoxSizer(wxVERTICAL, this, wxTRANSLATE("Regeneration type")));
    wxWindow* const inside = box->GetStaticBox();
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, FromDIP(form::kGap));
    for (std::size_t i = 0; i < kButtons.size(); ++i) {
        m_buttons[i] =
            AddControl(new TvRadioButton(inside, kButtons[i].id, kButtons[i].label, wxDefaultPosition,
                                         wxDefaultSize, i == 0 ? wxRB_GROUP : 0));
        box->Add(m_buttons[i], spaced);
        // Another mixed bed has the same identifiers; each answers for its own.
        m_buttons[i]->Bind(wxEVT_RADIOBUTTON, [this, id = kButtons[i].id](wxCommandEvent&) { OnType(id); });
    }
    m_none = new TvRadioButton(inside, wxID_ANY, wxString());
    m_none->Hide();
    auto* neutral = AddControl(new TvCheckBox(inside, kNeutralization, wxTRANSLATE("Neutralization"),
                                              wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator,
                                              wxASCII_STR(wxCheckBoxNameStr), neutralisation));
    box->Add(neutral, spaced);
    SetSizer(box);
    TransferDetailsToWindow();
}

void MBRegenerationType::TransferDetailsToWindow()
{
    TvPanel::TransferDetailsToWindow();
    const std::string value = m_type != nullptr ? m_type->GetStdStringValue() : std::string();
    TvRadioButton* chosen = m_none;
    for (std::size_t i = 0; i < kButtons.size(); ++i) {
        if (value == kButtons[i].value)
            chosen = m_buttons[i];
    }
    chosen->SetValue(true);
}

void MBRegenerationType::OnType(int id)
{
    const char* value = kButtons.back().value;
    for (const Button& button : kButtons) {
        if (button.id == id)
            value = button.value;
    }
    if (m_type != nullptr)
        m_type->SetValue(std::string(value));
    events::SendEvent(GetParent(), tvCHANGE_EVENT, wxID_ANY, 0, wxString());
}
