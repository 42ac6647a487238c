// SPDX-License-Identifier: MIT
#include "gui_base/input/combinations/input_combination_named_ion.h"

#include <stdexcept>

namespace {

constexpr int kNameWidth = 79;

}  // namespace

InputCombinationNamedIonConcentrationCtrl::InputCombinationNamedIonConcentrationCtrl(
    wxWindow* parent, int id, const wxString& label, const wxString& suffix, DetailData* nameDetail,
    DetailData* inputDetail, DetailData* unitDetail, DetailData* outputDetail, wxSizer* sizer,
    const std::vector<wxString>& units, wxStatusBar* statusBar, double min, double max, const wxPoint& pos,
    const wxSize& size, long style)
    : InputCombinationIonConcentrationCtrl(Config{parent, id, label, suffix, inputDetail, unitDetail,
                                                  outputDetail, sizer, units, statusBar, min, max, pos, size,
                                                  style}),
      m_nameDetail(nameDetail)
{
    if (nameDetail == nullptr)
        throw std::runtime_error(
            "InputCombinationNamedIonConcentrationCtrl::"
            "InputCombinationNamedIonConcentrationCtrl: a detail is missing");
    CreateLabel();
    CreateName();
    CreateInput();
    CreateUnitChoice();
    CreateOutput();
    BindEvents();
}

InputCombinationNamedIonConcentrationCtrl::~InputCombinationNamedIonConcentrationCtrl()
{
    if (m_name)
        m_name->Unbind(wxEVT_TEXT_ENTER, &InputCombinationNamedIonConcentrationCtrl::OnName, this);
}

void InputCombinationNamedIonConcentrationCtrl::CreateName()
{
    ValidatedTextCtrlConfig config;
    config.parent = GetConfig().parent;
    config.size = wxSize(kNameWidth, -1);
    config.name = GetConfig().label;
    config.detail = m_nameDetail;
    config.statusBar = GetConfig().statusBar;
    m_name =
        AddControl(new TvValidatedTextCtrl(config), wxSizerFlags().Border(wxRIGHT | wxBOTTOM, 3).Center());
    m_name->Bind(wxEVT_TEXT_ENTER, &InputCombinationNamedIonConcentrationCtrl::OnName, this);
}

void InputCombinationNamedIonConcentrationCtrl::TransferDetailToWindow()
{
    if (m_name)
        m_name->TransferDetailToWindow();
    InputCombinationIonConcentrationCtrl::TransferDetailToWindow();
}

void InputCombinationNamedIonConcentrationCtrl::OnName(wxCommandEvent& event)
{
    event.Skip();
    if (!m_name->IsModified())
        return;
    // The field tells the parent itself when that changes the detail.
    m_name->TransferDataFromWindow();
    UpdateOutput();
    TransferDetailToWindow();
}
