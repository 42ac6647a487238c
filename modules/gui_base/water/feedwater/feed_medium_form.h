// SPDX-License-Identifier: MIT
#pragma once

/// Rows for a medium and its temperature in a unit of choice, which several modules ask for. The identifiers
/// of mediums are those of the master database, those of units the ones of TemperatureUnit.

#include "gui_base/input/form/form_block.h"
#include "projectbase/feed/feed_medium.h"

#include <utility>
#include <vector>

class GUI_BASE_EXPORT FeedMediumForm : public FormBlock
{
public:
    using Items = std::vector<std::pair<long, wxString>>;

    /// Labels are source texts.
    void SetMediumSelection(const Items& mediums);
    void SetTemperatureUnitSelection(const Items& units);
    /// Shows a medium, its temperature in the unit that is chosen.
    void SetMedium(const FeedMedium::Data& medium);
    /// Medium and temperature as the user chose and typed them; the density is that which was set.
    FeedMedium::Data GetMedium();
    /// The temperature is stored in degrees Celsius: another unit system shows it in its own unit, until the
    /// user chooses another one.
    void Localize(const std::string& unitSystem) override;

    /// Key of the temperature's field.
    static constexpr const char* kTemperature = "temperature";

protected:
    FeedMediumForm(wxWindow* parent, int id, const wxPoint& pos = wxDefaultPosition,
                   const wxSize& size = wxDefaultSize, long style = wxTAB_TRAVERSAL);

    /// The two rows; `mediumDetail` holds the identifier of the medium, in a detail of the form's own where
    /// it is null.
    void AddMediumRows(wxWindow* parent, wxSizer& grid, const char* mediumLabel, DetailData* mediumDetail);
    DetailData& Value(const char* key) { return GetFields().Details().At(key); }
    /// A detail of the form's own.
    static constexpr const char* kDensity = "density";

private:
    /// Shows the temperature in another unit; it stays the same temperature.
    void ChooseTemperatureUnit(TemperatureUnit unit);
    TemperatureUnit ChosenUnit();

    tvChoice* m_medium = nullptr;
};
