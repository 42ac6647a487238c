// SPDX-License-Identifier: MIT
#pragma once

/// The row of an ion that the user names: as InputCombinationIonConcentrationCtrl, with a text field for the
/// name between label and input, bound to the name detail.
///
/// The name decides the equivalent weight ("NH4" is ammonium, any other cation counts as sodium, any other
/// anion as chloride). Another name therefore computes the output anew; it tells the parent by one
/// tvCHANGE_EVENT with the id of the name field. Names are proper names and not translated.

#include "gui_base/input/combinations/input_combination_ion_concentration.h"

class GUI_BASE_EXPORT InputCombinationNamedIonConcentrationCtrl : public InputCombinationIonConcentrationCtrl
{
public:
    /// Without a `sizer` the controls stand in one of the combination's own. A null detail throws
    /// std::runtime_error.
    InputCombinationNamedIonConcentrationCtrl(wxWindow* parent, int id, const wxString& label,
                                              const wxString& suffix, DetailData* nameDetail,
                                              DetailData* inputDetail, DetailData* unitDetail,
                                              DetailData* outputDetail, wxSizer* sizer,
                                              const std::vector<wxString>& units, wxStatusBar* statusBar,
                                              double min, double max, const wxPoint& pos = wxDefaultPosition,
                                              const wxSize& size = wxDefaultSize, long style = 0);
    ~InputCombinationNamedIonConcentrationCtrl() override;

    void TransferDetailToWindow() override;

    TvValidatedTextCtrl* GetNameCtrl() const { return m_name.get(); }

protected:
    std::string GetIonName() const override { return m_nameDetail->GetStdStringValue(); }

private:
    void CreateName();
    void OnName(wxCommandEvent& event);

    DetailData* m_nameDetail;
    wxWeakRef<TvValidatedTextCtrl> m_name;
};
