// SPDX-License-Identifier: MIT
#pragma once

/// One row of a form: label, value field and unit choice, bound to a value detail and a unit detail.
///
/// The number stands in the unit beside it: the unit that the user chose rules, whatever unit system is on
/// display. Choosing another one leaves the number as it is, or with KeepAmount the amount, whose number is
/// then converted. The limits are given in a unit of their own, or else in the limit unit of the value detail
/// (without one, in the chosen unit), and are checked in the chosen unit; a unit into which they cannot be
/// converted is not checked.
///
/// The parent is told by queued events with the field's id: a changed value by one tvCHANGE_EVENT, a chosen
/// unit by a tvCHANGE_EVENT and then a tvUNITCHANGED_EVENT with the unit's label. The choice's own
/// tvCHANGE_EVENT ends here. The controls belong to the parent window and may go before the combination; the
/// details outlive it.

#include "core/number_text.h"
#include "gui_base/input/binding/database_combination.h"
#include "gui_base/input/binding/transfer_detail.h"
#include "gui_base/input/combinations/chosen_unit.h"
#include "gui_base/input/controls/tv_choice.h"
#include "gui_base/input/controls/tv_textctrl.h"

#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/weakref.h>

#include <string>
#include <utility>
#include <vector>

class DoubleValidator;

class GUI_BASE_EXPORT InputCombinationUnitChoice : public DataBaseCombination
{
public:
    /// Without a `sizer` the combination makes a horizontal one, which the caller adds to its own. The unit
    /// shown first is that of the unit detail; when that holds none it is the one whose key is `defaultUnit`,
    /// or else the first. A unit that the detail holds but `units` lacks is shown as a further item. A null
    /// detail throws std::runtime_error. A field without a `name` of its own is named by the label.
    InputCombinationUnitChoice(wxWindow* parent, int id, const wxString& label,
                               const std::vector<std::pair<long, wxString>>& units, DetailData* valueDetail,
                               DetailData* unitDetail, wxSizer* sizer, double min, double max, int precision,
                               TvTextCtrlFormat format, int validatorFlags,
                               const wxSize& size = wxDefaultSize, const wxColour& colour = wxNullColour,
                               long style = 0, int defaultUnit = wxNOT_FOUND,
                               wxString name = wxASCII_STR(wxTextCtrlNameStr), wxSizerFlags labelFlags = {},
                               wxSizerFlags textFlags = {}, wxSizerFlags choiceFlags = {});
    ~InputCombinationUnitChoice() override;
    InputCombinationUnitChoice(const InputCombinationUnitChoice&) = delete;
    InputCombinationUnitChoice& operator=(const InputCombinationUnitChoice&) = delete;

    /// Stands behind the label; not translated.
    void SetLabelSuffix(const wxString& suffix);
    void SetMinMax(double min, double max);
    /// Limits in a unit of their own.
    void SetLimits(const AmountLimits& limits);
    /// From now on another unit is another number for the same amount, where the units convert.
    void KeepAmount() { m_keepsAmount = true; }
    /// Replaces the units that are offered.
    void SetUnits(const tvChoice::Items& units);
    void Localize(const std::string& unitSystem);

    void TransferDetailToWindow() override;
    void UpdateUnit(const std::string& unitSystem) override;
    int GetControlId() const override;
    wxWindow* GetInputWindow() const override { return m_text.get(); }

    wxSizer* GetSizer() const { return m_sizer; }
    wxStaticText* GetLabel() const { return m_label.get(); }
    TvTextCtrl* GetTextCtrl() const { return m_text.get(); }
    tvChoice* GetChoice() const { return m_choice.get(); }
    double GetValue() const { return m_value; }
    const DetailData& GetValueDetail() const { return *m_valueDetail; }
    const wxString& GetUnit() const { return m_unit; }
    const std::string& GetUnitSystem() const { return m_unitSystem; }

protected:
    void InitCtrls(const wxColour& colour);
    /// Converts the limits into the chosen unit.
    void UpdateValidator();

private:
    DoubleValidator* GetDoubleValidator() const;
    void SelectUnit(long defaultUnit);
    /// Takes the chosen unit for that of the value.
    void TakeUnit();
    /// Stores a typed value; returns whether the detail changed.
    bool CommitText();
    void ShowValue();
    void OnUnitChosen(wxCommandEvent& event);
    void OnText(wxCommandEvent& event);

    wxWindow* m_parent;
    wxSizer* m_sizer;
    wxString m_labelText;
    wxString m_labelSuffix;
    bool m_isNamedByLabel;
    bool m_keepsAmount = false;
    wxString m_unit;
    double m_value;
    AmountLimits m_limits;
    std::string m_unitSystem;
    DetailData* m_unitDetail;
    DetailData* m_valueDetail;
    wxSizerFlags m_labelFlags;
    wxSizerFlags m_textFlags;
    wxSizerFlags m_choiceFlags;
    wxWeakRef<wxStaticText> m_label;
    wxWeakRef<TvTextCtrl> m_text;
    wxWeakRef<tvUnitChoice> m_choice;
    ChosenUnit m_chosen;
    TransferDetailT<double> m_binding;
};
