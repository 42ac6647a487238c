// SPDX-License-Identifier: MIT
#pragma once

/// The box with what a water has beside its ions: temperature, pH, CO2, the calculations that change them,
/// and further properties, folded away until they are wanted. Owned by the layout of its panel, as every
/// sizer.

#include "gui_base/gui_base_export.h"
#include "gui_base/input/controls/tv_staticboxsizer.h"
#include "gui_base/input/form/field_set.h"
#include "gui_base/input/form/value_keys.h"
#include "gui_base/input/panel/advanced_input_options.h"

#include <wx/sizer.h>

#include <vector>

class LiquidData;
class TvButton;

namespace wateranalysis {

class GUI_BASE_EXPORT OthersBox : public TvStaticBoxSizer
{
public:
    OthersBox(wxWindow* parent, FieldSet& fields, const std::vector<wxString>& co2Units);

    tvUnitChoice& GetTemperatureUnit() const { return *m_temperatureUnit; }
    tvUnitChoice& GetCo2Unit() const { return *m_co2Unit; }
    /// A number beside the unit of the user's choice: an alkalinity, or what was measured beside the ions.
    struct Typed
    {
        TvTextCtrl* field = nullptr;
        tvUnitChoice* unit = nullptr;
        bool ofFullAnalysis = false;  ///< a short one does without
    };
    const std::vector<Typed>& GetTyped() const { return m_typed; }
    /// All values that can be typed, from above, with their units.
    std::vector<ValueKeys::Cell> GetValues() const;
    TvTextCtrl& GetPh() const { return *m_ph; }
    TvButton& GetAlkalizeButton() const { return *m_alkalize; }
    TvButton& GetCo2CalculatorButton() const { return *m_co2Calculator; }

    /// Settles what can be typed; `enable` is false for a water that is mixed of others.
    void EnableInputs(bool enable);
    /// Limits of the typed temperature in the unit that is chosen; false when those of 0 to 100 °C had to do,
    /// because the unit or the setting of the limits cannot be read.
    bool UpdateTemperatureLimits();
    /// Shows the temperature in the unit of that system below the typed one, where that has another unit;
    /// true when the box has to be laid out again.
    bool ShowTemperature(const std::string& unitSystem);
    /// Says what the water is alkalised with, or why it is not.
    void ShowAlkalization(const LiquidData& liquid, const std::string& unitSystem);
    void Localize(const std::string& unitSystem) override;

private:
    void AddTemperature(wxSizer& grid);
    TvTextCtrl* AddTyped(wxSizer& grid, NumberSpec spec, const std::vector<wxString>& units);
    void AddTypedRows(wxSizer& grid);
    void AddCo2(wxSizer& grid, const std::vector<wxString>& units);
    void AddButtons();
    TvButton* AddButton(wxSizer& buttons, const char* label, const char* tooltip);
    void AddFurtherProperties();

    FieldSet& m_fields;
    TvTextCtrl* m_temperature = nullptr;
    tvUnitChoice* m_temperatureUnit = nullptr;
    std::vector<wxSizerItem*> m_shownTemperature;
    TvTextCtrl* m_ph = nullptr;
    std::vector<Typed> m_typed;
    TvTextCtrl* m_co2 = nullptr;
    tvUnitChoice* m_co2Unit = nullptr;
    TvButton* m_alkalize = nullptr;
    TvButton* m_co2Calculator = nullptr;
    wxStaticText* m_alkalization = nullptr;
    AdvancedInputOptions* m_furtherProperties = nullptr;
    /// Unit for which the limits of the temperature were set last.
    std::string m_limitedTemperatureUnit;
};

}  // namespace wateranalysis
