// SPDX-License-Identifier: MIT
#pragma once

/// The row of an ion whose amount is limited by another detail: as InputCombinationIonConcentrationCtrl, with
/// a maximum that follows the limit detail.
///
/// The limit is a concentration of the same ion in the unit of its detail (meq/l unless that names another)
/// and is converted into the chosen unit, so that choosing a unit never lets more of the ion through. An
/// unknown limit leaves the combination's own. Showing details never changes them: a stored value above a
/// limit that moved is shown as it is until UpdateLimits or the next edit puts it at the limit.

#include "gui_base/input/combinations/input_combination_ion_concentration.h"

class GUI_BASE_EXPORT DynamicLimitIonInputCtrl : public InputCombinationIonConcentrationCtrl
{
public:
    /// Without a `sizer` the controls stand in one of the combination's own. A null detail throws
    /// std::runtime_error.
    DynamicLimitIonInputCtrl(wxWindow* parent, int id, const wxString& label, const wxString& suffix,
                             DetailData* inputDetail, DetailData* unitDetail, DetailData* outputDetail,
                             DetailData* limitDetail, wxSizer* sizer, const std::vector<wxString>& units,
                             wxStatusBar* statusBar, double min, double max,
                             const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                             long style = 0);

    /// The limit detail changed: puts a stored value above it at the limit and then tells the parent once.
    void UpdateLimits();
    /// The maximum in the chosen unit.
    double GetMaximum() const;

    void TransferDetailToWindow() override;

protected:
    bool ApplyLimits() override;

private:
    DetailData* m_limitDetail;
};
