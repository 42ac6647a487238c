// SPDX-License-Identifier: MIT
#pragma once

/// One row for the concentration of an ion: label, typed value, unit choice, and the value in meq/l.
///
/// The typed value stands in the unit beside it in every unit system; so do its limits. An edit or another
/// unit stores the typed value, converts it into the unit of the output detail (meq/l unless that detail
/// names another unit of concentration), refreshes the row, and queues one tvCHANGE_EVENT with the id of the
/// input field on the parent. An edit that changes nothing tells nobody.
///
/// Which ion it is follows from the name of the input detail: "liquid/na.orig" is the ion "na". For details
/// of other names SetIon tells it. A mass whose ion is unknown has no equivalents, so that the output is
/// unknown and shown empty. The controls belong to the parent window and may go before the combination; the
/// details outlive both.

#include "gui_base/input/controls/localizable.h"
#include "gui_base/input/controls/tv_choice.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/controls/tv_validated_textctrl.h"

#include <wx/sizer.h>
#include <wx/statusbr.h>
#include <wx/weakref.h>

#include <memory>
#include <string>
#include <vector>

class GUI_BASE_EXPORT InputCombinationIonConcentrationCtrl : public DetailContainerWindow
{
public:
    /// The controls stand in a horizontal sizer of the combination's own, which the caller adds to its
    /// layout. `min` and `max`, in either order, limit the input where its detail has no limits. The fields
    /// have fixed widths and the sizers place them: `pos` moves only the label, `size` is the least size of
    /// the own sizer, and `style` is added to that of the input field. A null detail throws
    /// std::runtime_error.
    InputCombinationIonConcentrationCtrl(wxWindow* parent, int id, const wxString& label,
                                         const wxString& suffix, DetailData* inputDetail,
                                         DetailData* unitDetail, DetailData* outputDetail,
                                         const std::vector<wxString>& units, wxStatusBar* statusBar,
                                         double min, double max, const wxPoint& pos = wxDefaultPosition,
                                         const wxSize& size = wxDefaultSize, long style = 0);
    /// The controls are added to `sizer` instead.
    InputCombinationIonConcentrationCtrl(wxWindow* parent, int id, const wxString& label,
                                         const wxString& suffix, DetailData* inputDetail,
                                         DetailData* unitDetail, DetailData* outputDetail, wxSizer* sizer,
                                         const std::vector<wxString>& units, wxStatusBar* statusBar,
                                         double min, double max, const wxPoint& pos = wxDefaultPosition,
                                         const wxSize& size = wxDefaultSize, long style = 0);
    ~InputCombinationIonConcentrationCtrl() override;
    InputCombinationIonConcentrationCtrl(const InputCombinationIonConcentrationCtrl&) = delete;
    InputCombinationIonConcentrationCtrl& operator=(const InputCombinationIonConcentrationCtrl&) = delete;

    /// Names the ion by its key ("na", "h.plus"); an unknown key has no equivalent weight.
    void SetIon(const std::string& key) { m_ion = key; }
    /// g/eq of the ion; NaN when it is not known.
    double GetEquivalentWeight() const;

    void Localize(const std::string& unitSystem);
    void TransferDetailToWindow() override;
    void UpdateUnit(const std::string& unitSystem) override;

    TvStaticText* GetLabel() const { return m_label.get(); }
    TvValidatedDoubleTextCtrl* GetInput() const { return m_input.get(); }
    tvUnitChoice* GetUnitChoice() const { return m_unitChoice.get(); }
    TvValidatedDoubleTextCtrl* GetOutput() const { return m_output.get(); }
    /// The caller's sizer, or the combination's own.
    wxSizer* GetSizer() const { return m_externalSizer != nullptr ? m_externalSizer : m_ownSizer; }

protected:
    struct Config
    {
        wxWindow* parent;
        int id;
        wxString label;
        wxString suffix;
        DetailData* inputDetail;
        DetailData* unitDetail;
        DetailData* outputDetail;
        wxSizer* sizer;
        std::vector<wxString> units;
        wxStatusBar* statusBar;
        double min;
        double max;
        wxPoint pos;
        wxSize size;
        long style;
    };
    /// For combinations with further controls: they create the four themselves, in their order, and call
    /// BindEvents last.
    explicit InputCombinationIonConcentrationCtrl(const Config& config);

    void CreateLabel();
    void CreateInput();
    void CreateUnitChoice();
    void CreateOutput();
    void BindEvents();
    /// Places a control in the sizer and registers it for translation.
    template <typename Control>
    Control* AddControl(Control* control, const wxSizerFlags& flags)
    {
        GetSizer()->Add(control, flags);
        m_localizables.push_back(MakeLocalizable(control));
        return control;
    }

    /// The one handler of edits and of chosen units.
    void OnUpdate(wxCommandEvent& event);
    /// Name that the user gave the ion; empty for an ion that is known by its key.
    virtual std::string GetIonName() const { return {}; }
    /// Puts a stored value that exceeds a moving limit at that limit; returns whether it did.
    virtual bool ApplyLimits() { return false; }
    /// The unit of concentration that a detail is kept in: its own, or meq/l.
    static std::string ConcentrationUnit(const DetailData& detail);
    /// A concentration of this ion in another unit; NaN where that needs an equivalent weight that is
    /// unknown.
    double ConvertConcentration(double value, const std::string& from, const std::string& to) const;
    /// Computes the output from typed value and unit.
    void UpdateOutput();
    /// Tells the parent that the project changed.
    void SendChange();

    const Config& GetConfig() const { return m_config; }
    const std::string& GetUnitSystem() const { return m_unitSystem; }

private:
    bool StoreInput();

    Config m_config;
    std::string m_ion;
    std::string m_unitSystem;
    wxSizer* m_externalSizer;
    wxSizer* m_ownSizer = nullptr;
    std::vector<std::shared_ptr<LocalizableControl>> m_localizables;
    wxWeakRef<TvStaticText> m_label;
    wxWeakRef<TvValidatedDoubleTextCtrl> m_input;
    wxWeakRef<tvUnitChoice> m_unitChoice;
    wxWeakRef<TvValidatedDoubleTextCtrl> m_output;
};
