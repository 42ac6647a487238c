// SPDX-License-Identifier: MIT
#pragma once

/// What the compounds are dissolved in: the medium, its temperature in a unit of choice, and the density that
/// follows from the medium.

#include "gui_base/input/panel/tv_panel.h"
#include "projectbase/feed/feed_medium.h"

#include <functional>
#include <utility>
#include <vector>

class TvTextCtrl;
class tvChoice;

class GUI_BASE_EXPORT FeedMediumBox : public TvPanel
{
public:
    using Items = std::vector<std::pair<long, wxString>>;

    explicit FeedMediumBox(wxWindow* parent, int id = wxID_ANY);

    /// Keys are those of the master database, labels source texts.
    void SetMediumSelection(const Items& items);
    /// Keys are those of TemperatureUnit.
    void SetTemperatureUnitSelection(const Items& items);
    /// Shows a medium, its temperature in the unit that is chosen.
    void SetMedium(const FeedMedium::Data& medium);
    /// Medium and temperature as the user chose and typed them; the density is that which is shown.
    FeedMedium::Data GetMedium() const;
    /// Shows the temperature in another unit; it stays the same temperature.
    void ChooseTemperatureUnit(TemperatureUnit unit);
    /// Called when the user chose another medium or typed another temperature.
    void SetOnChange(std::function<void()> handler) { m_onChange = std::move(handler); }
    void SetStatusBar(wxStatusBar* statusBar);
    /// Names the fields in the present language.
    void UpdateNames();

    tvChoice* GetMediumChoice() const { return m_medium; }
    tvChoice* GetUnitChoice() const { return m_unit; }
    TvTextCtrl* GetTemperatureField() const { return m_field; }

private:
    TemperatureUnit ChosenUnit() const;
    void ShowTemperature();
    void OnTemperatureEnter(wxCommandEvent& event);

    tvChoice* m_medium;
    TvTextCtrl* m_field;
    tvChoice* m_unit;
    TvTextCtrl* m_density;
    std::function<void()> m_onChange;
    Temperature m_temperature;  ///< in the unit in which it was typed
    double m_shown = 0.0;       ///< in the chosen unit
    double m_densityValue = 0.0;
};
