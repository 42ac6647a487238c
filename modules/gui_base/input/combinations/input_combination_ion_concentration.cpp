// SPDX-License-Identifier: MIT
#include "gui_base/input/combinations/input_combination_ion_concentration.h"

#include "core/ion_table.h"
#include "core/ion_units.h"
#include "gui_base/input/combinations/unit_conversion.h"
#include "gui_base/input/events.h"
#include "gui_base/input/validation/validator.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/events.h"
#include "gui_base/support/translation.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <tuple>

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
constexpr int kInputWidth = 63;
constexpr int kInputPrecision = 4;
constexpr int kOutputWidth = 79;
constexpr int kOutputPrecision = 5;

/// "na" of "liquid/na.orig", "h.plus" of "liquid/h.plus.orig".
std::string IonOfDetail(const std::string& name)
{
    const std::string key = name.substr(name.rfind('/') + 1);
    return key.substr(0, key.rfind('.'));
}

/// `unit` where it is one of concentration, else meq/l.
std::string KnownUnit(const std::string& unit)
{
    return ions::KindOf(unit) != ions::UnitKind::None ? unit : std::string(ions::kMeqPerLitre);
}

bool Differs(double a, double b)
{
    return std::isnan(a) != std::isnan(b) || (!std::isnan(a) && a != b);
}

}  // namespace

InputCombinationIonConcentrationCtrl::InputCombinationIonConcentrationCtrl(
    wxWindow* parent, int id, const wxString& label, const wxString& suffix, DetailData* inputDetail,
    DetailData* unitDetail, DetailData* outputDetail, const std::vector<wxString>& units,
    wxStatusBar* statusBar, double min, double max, const wxPoint& pos, const wxSize& size, long style)
    : InputCombinationIonConcentrationCtrl(parent, id, label, suffix, inputDetail, unitDetail, outputDetail,
                                           nullptr, units, statusBar, min, max, pos, size, style)
{}

InputCombinationIonConcentrationCtrl::InputCombinationIonConcentrationCtrl(
    wxWindow* parent, int id, const wxString& label, const wxString& suffix, DetailData* inputDetail,
    DetailData* unitDetail, DetailData* outputDetail, wxSizer* sizer, const std::vector<wxString>& units,
    wxStatusBar* statusBar, double min, double max, const wxPoint& pos, const wxSize& size, long style)
    : InputCombinationIonConcentrationCtrl(Config{parent, id, label, suffix, inputDetail, unitDetail,
                                                  outputDetail, sizer, units, statusBar, min, max, pos, size,
                                                  style})
{
    CreateLabel();
    CreateInput();
    CreateUnitChoice();
    CreateOutput();
    BindEvents();
}

InputCombinationIonConcentrationCtrl::InputCombinationIonConcentrationCtrl(const Config& config)
    : m_config(config), m_unitSystem("iso"), m_externalSizer(config.sizer)
{
    if (config.inputDetail == nullptr || config.unitDetail == nullptr || config.outputDetail == nullptr)
        throw std::runtime_error(
            "InputCombinationIonConcentrationCtrl::InputCombinationIonConcentrationCtrl: a detail is "
            "missing");
    std::tie(m_config.min, m_config.max) = std::minmax({config.min, config.max});
    m_ion = IonOfDetail(config.inputDetail->GetName());
    if (m_externalSizer == nullptr) {
        m_ownSizer = new wxBoxSizer(wxHORIZONTAL);
        m_ownSizer->SetMinSize(config.size);
    }
}

InputCombinationIonConcentrationCtrl::~InputCombinationIonConcentrationCtrl()
{
    if (m_input)
        m_input->Unbind(wxEVT_TEXT_ENTER, &InputCombinationIonConcentrationCtrl::OnUpdate, this);
    if (m_unitChoice)
        m_unitChoice->Unbind(tvCHANGE_EVENT, &InputCombinationIonConcentrationCtrl::OnUpdate, this);
}

void InputCombinationIonConcentrationCtrl::CreateLabel()
{
    auto* label = new TvStaticText(m_config.parent, -1, m_config.label, m_config.suffix);
    if (m_config.pos.IsFullySpecified())
        label->SetPosition(m_config.pos);
    m_label = AddControl(label, wxSizerFlags().Border(wxLEFT | wxRIGHT | wxBOTTOM, 3).CenterVertical());
}

void InputCombinationIonConcentrationCtrl::CreateInput()
{
    ValidatedDoubleTextCtrlConfig config;
    config.parent = m_config.parent;
    config.id = m_config.id;
    config.size = wxSize(kInputWidth, -1);
    config.style = m_config.style | wxTE_RIGHT | wxTE_RICH;
    config.name = m_config.label;
    config.minValue = m_config.min;
    config.maxValue = m_config.max;
    config.format = TvTextCtrlFormat::General;
    config.precision = kInputPrecision;
    config.validatorFlags = CheckMin | CheckMax | ClampToLimits;
    config.detail = m_config.inputDetail;
    config.statusBar = m_config.statusBar;
    config.followUnitSystem = false;
    m_input = AddControl(new TvValidatedDoubleTextCtrl(config), wxSizerFlags().Border(wxBOTTOM, 3).Center());
}

void InputCombinationIonConcentrationCtrl::CreateUnitChoice()
{
    m_unitChoice =
        AddControl(new tvUnitChoice(m_config.units, m_config.unitDetail, m_config.parent, wxID_ANY),
                   wxSizerFlags().Border(wxLEFT | wxRIGHT, 5));
}

void InputCombinationIonConcentrationCtrl::CreateOutput()
{
    ValidatedDoubleTextCtrlConfig config;
    config.parent = m_config.parent;
    config.size = wxSize(kOutputWidth, -1);
    config.style = wxTE_RIGHT | wxTE_RICH | wxBORDER_STATIC;
    config.name = m_config.label;
    config.minValue = m_config.min;
    config.maxValue = m_config.max;
    config.format = TvTextCtrlFormat::General;
    config.precision = kOutputPrecision;
    config.validatorFlags = 0;
    config.detail = m_config.outputDetail;
    config.statusBar = m_config.statusBar;
    config.followUnitSystem = false;
    m_output = AddControl(new TvValidatedDoubleTextCtrl(config),
                          wxSizerFlags().Border(wxLEFT | wxBOTTOM, 3).Center());
    m_output->SetEditable(false);
    m_output->DisableFocusFromKeyboard();
}

void InputCombinationIonConcentrationCtrl::BindEvents()
{
    m_input->Bind(wxEVT_TEXT_ENTER, &InputCombinationIonConcentrationCtrl::OnUpdate, this);
    m_unitChoice->Bind(tvCHANGE_EVENT, &InputCombinationIonConcentrationCtrl::OnUpdate, this);
    Localize(m_unitSystem);
}

double InputCombinationIonConcentrationCtrl::GetEquivalentWeight() const
{
    const std::string name = GetIonName();
    const ions::Ion* ion = ions::FindIon(ions::ReferenceKey(m_ion, name));
    return ion != nullptr ? ion->equivalentWeight : kUnknown;
}

void InputCombinationIonConcentrationCtrl::Localize(const std::string& unitSystem)
{
    m_unitSystem = unitSystem;
    for (const auto& control : m_localizables)
        control->Localize(unitSystem);
    const wxString label = i18n::Translated(m_config.label);
    if (m_input)
        accessibility::SetName(*m_input, label);
    if (m_unitChoice)
        accessibility::SetName(*m_unitChoice, label + ", " + i18n::Translated("Unit"));
    if (m_output)
        accessibility::SetName(*m_output, accessibility::NameWithUnit(
                                              label + ", " + i18n::Translated("result"),
                                              wxString::FromUTF8(ConcentrationUnit(*m_config.outputDetail))));
}

void InputCombinationIonConcentrationCtrl::TransferDetailToWindow()
{
    if (m_unitChoice)
        m_unitChoice->TransferDetailToWindow();
    if (m_input)
        m_input->TransferDetailToWindow();
    if (m_output)
        m_output->TransferDetailToWindow();
}

void InputCombinationIonConcentrationCtrl::UpdateUnit(const std::string& unitSystem)
{
    Localize(unitSystem);
    if (m_input)
        m_input->UpdateUnit(unitSystem);
    if (m_output)
        m_output->UpdateUnit(unitSystem);
    TransferDetailToWindow();
}

bool InputCombinationIonConcentrationCtrl::StoreInput()
{
    if (!m_input || !m_input->IsModified())
        return false;
    // The field tells the parent itself when that changes the detail.
    m_input->TransferDataFromWindow();
    return m_config.inputDetail->changed;
}

std::string InputCombinationIonConcentrationCtrl::ConcentrationUnit(const DetailData& detail)
{
    return KnownUnit(detail.GetUnit());
}

double InputCombinationIonConcentrationCtrl::ConvertConcentration(double value, const std::string& from,
                                                                  const std::string& to) const
{
    return combinations::ConvertUnit(value, KnownUnit(from), KnownUnit(to), GetEquivalentWeight())
        .value_or(kUnknown);
}

void InputCombinationIonConcentrationCtrl::UpdateOutput()
{
    DetailData& output = *m_config.outputDetail;
    const double value =
        ConvertConcentration(m_config.inputDetail->GetDoubleValue(), m_config.unitDetail->GetStdStringValue(),
                             ConcentrationUnit(output));
    if (Differs(value, output.GetDoubleValue()))
        output.SetValue(value);
}

void InputCombinationIonConcentrationCtrl::SendChange()
{
    events::SendEvent(m_config.parent, tvCHANGE_EVENT, m_input ? m_input->GetId() : m_config.id, 0,
                      wxString());
}

void InputCombinationIonConcentrationCtrl::OnUpdate(wxCommandEvent& event)
{
    // The change of the unit choice ends here; the combination tells of it itself.
    event.Skip(event.GetEventType() == wxEVT_TEXT_ENTER);
    const bool told = StoreInput();
    const bool limited = ApplyLimits();
    UpdateOutput();
    TransferDetailToWindow();
    if (!told && (limited || event.GetEventType() == tvCHANGE_EVENT))
        SendChange();
}
