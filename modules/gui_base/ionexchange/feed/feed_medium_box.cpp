// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/feed/feed_medium_box.h"

#include "gui_base/input/controls/tv_choice.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/input/events.h"
#include "gui_base/input/validation/double_validator.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"

#include <wx/sizer.h>

namespace {

constexpr int kGap = 4;
constexpr int kFieldWidth = 90;
constexpr int kPrecision = 4;
constexpr double kLowestCelsius = 0.0;
constexpr double kHighestCelsius = 100.0;

double CelsiusIn(double celsius, TemperatureUnit unit)
{
    return Temperature(celsius, TemperatureUnit::Celsius).In(unit);
}

}  // namespace

FeedMediumBox::FeedMediumBox(wxWindow* parent, int id) : TvPanel(parent, id)
{
    const wxSize fieldSize = FromDIP(wxSize(kFieldWidth, -1));
    auto* grid = new wxFlexGridSizer(3, FromDIP(wxSize(2 * kGap, kGap)));
    grid->AddGrowableCol(1);
    const wxSizerFlags cell = wxSizerFlags().CentreVertical();
    const wxSizerFlags wide = wxSizerFlags().Expand();
    const auto label = [&](const char* text) {
        grid->Add(AddControl(new TvStaticText(this, wxID_ANY, text)), cell);
    };
    label(wxTRANSLATE("Feed medium"));
    m_medium = AddControl(new tvChoice({}, nullptr, this, wxID_ANY));
    grid->Add(m_medium, wide);
    grid->AddSpacer(0);

    label(wxTRANSLATE("Temperature"));
    m_field = AddControl(
        new TvTextCtrl(this, wxID_ANY, {}, wxDefaultPosition, fieldSize, wxTE_RIGHT,
                       DoubleValidator(&m_shown, TvTextCtrlFormat::General, kPrecision, CheckMin | CheckMax,
                                       kLowestCelsius, kHighestCelsius, 0.0)));
    grid->Add(m_field, wide);
    m_unit = AddControl(new tvChoice({}, nullptr, this, wxID_ANY));
    grid->Add(m_unit, cell);

    label(wxTRANSLATE("Density"));
    m_density = new TvTextCtrl(this, wxID_ANY, {}, wxDefaultPosition, fieldSize, wxTE_RIGHT | wxTE_READONLY,
                               DoubleValidator(&m_densityValue, TvTextCtrlFormat::General, kPrecision));
    m_density->DisableFocusFromKeyboard();
    grid->Add(m_density, wide);
    grid->Add(new wxStaticText(this, wxID_ANY, "kg/l"), cell);
    SetSizer(grid);

    m_field->Bind(wxEVT_TEXT_ENTER, &FeedMediumBox::OnTemperatureEnter, this);
    // The box answers for its controls.
    Bind(tvCHANGE_EVENT, [this](wxCommandEvent& event) {
        if (event.GetEventObject() == m_unit)
            ShowTemperature();
        else if (event.GetEventObject() == m_medium && m_onChange)
            m_onChange();
    });
    UpdateNames();
}

void FeedMediumBox::SetMediumSelection(const Items& items)
{
    m_medium->Set(items);
}

void FeedMediumBox::SetTemperatureUnitSelection(const Items& items)
{
    m_unit->Set(items);
    if (m_unit->GetSelection() == wxNOT_FOUND && !items.empty())
        m_unit->SetSelection(0);
    ShowTemperature();
}

TemperatureUnit FeedMediumBox::ChosenUnit() const
{
    const long key = m_unit->GetID();
    return key == wxNOT_FOUND ? TemperatureUnit::Celsius : static_cast<TemperatureUnit>(key);
}

void FeedMediumBox::ShowTemperature()
{
    const TemperatureUnit unit = ChosenUnit();
    m_shown = m_temperature.In(unit);
    if (auto* validator = dynamic_cast<DoubleValidator*>(m_field->GetValidator())) {
        validator->SetMinValue(CelsiusIn(kLowestCelsius, unit));
        validator->SetMaxValue(CelsiusIn(kHighestCelsius, unit));
    }
    m_field->TransferDataToWindow();
    UpdateNames();
}

void FeedMediumBox::SetMedium(const FeedMedium::Data& medium)
{
    if (m_medium->GetID() != medium.id) {
        m_medium->SetSelection(wxNOT_FOUND);
        m_medium->SetDefault(medium.id);
    }
    m_temperature = medium.temperature;
    m_densityValue = medium.density;
    m_density->TransferDataToWindow();
    ShowTemperature();
}

FeedMedium::Data FeedMediumBox::GetMedium() const
{
    return {.id = m_medium->GetID(), .temperature = m_temperature, .density = m_densityValue};
}

void FeedMediumBox::ChooseTemperatureUnit(TemperatureUnit unit)
{
    m_unit->SetDefault(static_cast<long>(unit));
    ShowTemperature();
}

void FeedMediumBox::OnTemperatureEnter(wxCommandEvent&)
{
    m_field->TransferDataFromWindow();
    m_field->DiscardEdits();
    if (m_shown == m_temperature.In(ChosenUnit()))
        return;
    m_temperature = Temperature(m_shown, ChosenUnit());
    if (m_onChange)
        m_onChange();
}

void FeedMediumBox::SetStatusBar(wxStatusBar* statusBar)
{
    m_field->SetStatusBar(statusBar);
}

void FeedMediumBox::UpdateNames()
{
    accessibility::SetName(*m_medium, i18n::Translated("Feed medium"));
    const wxString temperature = i18n::Translated("Temperature");
    accessibility::SetName(*m_field, temperature + ", " + m_unit->GetStringUnlocalized());
    accessibility::SetName(*m_unit, temperature + ", " + i18n::Translated(wxTRANSLATE("Unit")));
    accessibility::SetName(*m_density, i18n::Translated("Density") + ", kg/l");
}
