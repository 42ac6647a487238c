// SPDX-License-Identifier: MIT
#include "gui_base/input/combinations/input_combination_unit_choice.h"

#include "gui_base/input/combinations/unit_conversion.h"
#include "gui_base/input/events.h"
#include "gui_base/input/validation/double_validator.h"
#include "gui_base/support/events.h"
#include "gui_base/support/translation.h"

#include <stdexcept>

namespace {

constexpr double kNoCurrency = 1.0;
constexpr int kFirstTextDecimals = 6;

DetailData* Required(DetailData* detail)
{
    if (detail == nullptr)
        throw std::runtime_error(
            "InputCombinationUnitChoice::InputCombinationUnitChoice: a detail is missing");
    return detail;
}

/// The text that the field starts with, before a validator has formatted anything.
wxString FirstText(double value)
{
    return wxString::FromUTF8(
        numbertext::Format(value, {.format = TvTextCtrlFormat::Fixed, .precision = kFirstTextDecimals},
                           NumericValidator::LocaleSeparators()));
}

}  // namespace

InputCombinationUnitChoice::InputCombinationUnitChoice(
    wxWindow* parent, int id, const wxString& label, const std::vector<std::pair<long, wxString>>& units,
    DetailData* valueDetail, DetailData* unitDetail, wxSizer* sizer, double min, double max, int precision,
    TvTextCtrlFormat format, int validatorFlags, const wxSize& size, const wxColour& colour, long style,
    int defaultUnit, wxString name, wxSizerFlags labelFlags, wxSizerFlags textFlags, wxSizerFlags choiceFlags)
    : m_parent(parent),
      m_sizer(sizer),
      m_labelText(label),
      m_isNamedByLabel(name.empty() || name == wxTextCtrlNameStr),
      m_unit(Required(unitDetail)->GetStringValue()),
      m_value(Required(valueDetail)->GetDoubleValue()),
      m_limits{min, max, Required(valueDetail)->GetLimitUnit()},
      m_unitSystem("iso"),
      m_unitDetail(unitDetail),
      m_valueDetail(valueDetail),
      m_labelFlags(labelFlags),
      m_textFlags(textFlags),
      m_choiceFlags(choiceFlags),
      m_label(new wxStaticText(parent, wxID_STATIC, label)),
      m_text(new TvTextCtrl(
          parent, id, FirstText(m_value), wxDefaultPosition, size, style | wxTE_RIGHT | wxTE_RICH2,
          DoubleValidator(&m_value, format, precision, validatorFlags, min, max, 0.0), name)),
      // After the field: the Tab key goes from the value to its unit.
      m_choice(new tvUnitChoice(units, unitDetail, parent, wxID_ANY)),
      m_chosen(m_text.get(), m_choice.get()),
      m_binding(TransferToDetail | TransferInIsoUnits, &m_value, m_text.get(), valueDetail)
{
    m_choice->TranslateUnits();
    SelectUnit(defaultUnit);
    m_choice->Bind(tvCHANGE_EVENT, &InputCombinationUnitChoice::OnUnitChosen, this);
    m_text->Bind(wxEVT_TEXT_ENTER, &InputCombinationUnitChoice::OnText, this);
    InitCtrls(colour);
}

InputCombinationUnitChoice::~InputCombinationUnitChoice()
{
    if (m_choice)
        m_choice->Unbind(tvCHANGE_EVENT, &InputCombinationUnitChoice::OnUnitChosen, this);
    if (m_text) {
        m_text->Unbind(wxEVT_TEXT_ENTER, &InputCombinationUnitChoice::OnText, this);
        // The validator writes into a variable of this object.
        m_text->SetValidator(wxDefaultValidator);
    }
}

void InputCombinationUnitChoice::SelectUnit(long defaultUnit)
{
    if (m_choice->GetSelection() == wxNOT_FOUND) {
        m_choice->SetDefault(defaultUnit);
        if (m_choice->GetSelection() == wxNOT_FOUND && !m_choice->IsEmpty())
            m_choice->SetSelection(0);
    }
    TakeUnit();
}

void InputCombinationUnitChoice::TakeUnit()
{
    m_unit = m_choice->GetStringUnlocalized();
    m_valueDetail->SetUnit(m_unit.utf8_string());
}

void InputCombinationUnitChoice::SetUnits(const tvChoice::Items& units)
{
    if (!m_choice)
        return;
    m_choice->SetOffered(units);
    SelectUnit(wxNOT_FOUND);
    UpdateValidator();
}

void InputCombinationUnitChoice::InitCtrls(const wxColour& colour)
{
    if (m_sizer == nullptr)
        m_sizer = new wxBoxSizer(wxHORIZONTAL);
    if (colour.IsOk()) {
        m_text->SetBackgroundColour(colour);
        GetDoubleValidator()->SetDefaultColor(colour);
    }
    m_sizer->Add(m_label.get(), m_labelFlags);
    m_sizer->Add(m_text.get(), m_textFlags);
    m_sizer->Add(m_choice.get(), m_choiceFlags);
    Localize("iso");
}

DoubleValidator* InputCombinationUnitChoice::GetDoubleValidator() const
{
    return m_text ? dynamic_cast<DoubleValidator*>(m_text->GetValidator()) : nullptr;
}

void InputCombinationUnitChoice::UpdateValidator()
{
    m_chosen.SetLimits(m_limits);
    if (m_isNamedByLabel)
        m_chosen.UpdateNames(i18n::Translated(m_labelText));
}

void InputCombinationUnitChoice::SetLabelSuffix(const wxString& suffix)
{
    m_labelSuffix = suffix;
    Localize(m_unitSystem);
}

void InputCombinationUnitChoice::SetMinMax(double min, double max)
{
    m_limits.min = min;
    m_limits.max = max;
    UpdateValidator();
    TransferDetailToWindow();
}

void InputCombinationUnitChoice::SetLimits(const AmountLimits& limits)
{
    m_limits = limits;
    UpdateValidator();
    TransferDetailToWindow();
}

void InputCombinationUnitChoice::Localize(const std::string& unitSystem)
{
    m_unitSystem = unitSystem;
    const wxString label = i18n::WithSuffix(i18n::Translated(m_labelText), m_labelSuffix);
    if (m_label && m_label->GetLabelText() != label)
        m_label->SetLabelText(label);
    if (m_choice)
        m_choice->Localize(unitSystem);
    UpdateValidator();
}

void InputCombinationUnitChoice::UpdateUnit(const std::string& unitSystem)
{
    Localize(unitSystem);
    TransferDetailToWindow();
}

int InputCombinationUnitChoice::GetControlId() const
{
    return m_text ? m_text->GetId() : wxID_ANY;
}

void InputCombinationUnitChoice::TransferDetailToWindow()
{
    if (!m_choice || !m_text)
        return;
    m_choice->TransferDetailToWindow();
    if (m_choice->GetSelection() != wxNOT_FOUND && m_choice->GetStringUnlocalized() != m_unit) {
        TakeUnit();
        UpdateValidator();
    } else if (m_choice->GetSelection() == wxNOT_FOUND) {
        m_choice->SetStringSelectionFromUnlocalized(m_unit);
    }
    ShowValue();
}

void InputCombinationUnitChoice::ShowValue()
{
    m_binding.TransferToWindow(wxString(), kNoCurrency);
    // Not through the field, which would take the colour of the theme for that of the combination.
    if (DoubleValidator* validator = GetDoubleValidator())
        validator->TransferToWindow();
}

bool InputCombinationUnitChoice::CommitText()
{
    DoubleValidator* validator = GetDoubleValidator();
    if (validator == nullptr || !m_text->IsModified())
        return false;
    validator->TransferFromWindow();
    bool changed = false;
    const bool stored = m_binding.TransferFromWindow(wxString(), changed, kNoCurrency);
    m_binding.TransferRangeFlags();
    ShowValue();
    return stored;
}

void InputCombinationUnitChoice::OnText(wxCommandEvent& event)
{
    // Whoever holds the combination may answer the key, too.
    event.Skip();
    if (CommitText())
        events::SendEvent(m_parent, tvCHANGE_EVENT, GetControlId(), 0, wxString());
}

void InputCombinationUnitChoice::OnUnitChosen(wxCommandEvent&)
{
    const wxString unit = m_choice->GetStringUnlocalized();
    if (unit.empty())
        return;
    CommitText();
    const auto converted =
        combinations::ConvertUnit(m_valueDetail->GetDoubleValue(), m_unit.utf8_string(), unit.utf8_string());
    if (m_keepsAmount && converted)
        m_valueDetail->SetValue(*converted);
    TakeUnit();
    m_unitDetail->SetUnit(unit.utf8_string());
    m_unitDetail->SetValue(unit);
    // A value that is kept as a number is not touched by a text that is none.
    m_valueDetail->SetValue(unit);
    UpdateValidator();
    ShowValue();
    events::SendEvent(m_parent, tvCHANGE_EVENT, GetControlId(), 0, wxString());
    events::SendEvent(m_parent, tvUNITCHANGED_EVENT, GetControlId(), 0, unit);
}
