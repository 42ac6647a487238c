// SPDX-License-Identifier: MIT
#include "gui_base/input/combinations/input_combination_unit_choice.h"

#include "gui_base/input/combinations/limit_conversion.h"
#include "gui_base/input/events.h"
#include "gui_base/input/validation/double_validator.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/events.h"
#include "gui_base/support/translation.h"

#include <algorithm>
#include <limits>
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
      m_minValue(min),
      m_maxValue(max),
      m_unitSystem("iso"),
      m_unitDetail(unitDetail),
      m_valueDetail(valueDetail),
      m_units(units),
      m_labelFlags(labelFlags),
      m_textFlags(textFlags),
      m_choiceFlags(choiceFlags),
      m_label(new wxStaticText(parent, wxID_STATIC, label)),
      m_text(new TvTextCtrl(
          parent, id, FirstText(m_value), wxDefaultPosition, size, style | wxTE_RIGHT | wxTE_RICH2,
          DoubleValidator(&m_value, format, precision, validatorFlags, min, max, 0.0), name)),
      m_binding(TransferToDetail | TransferInIsoUnits, &m_value, m_text.get(), valueDetail)
{
    // The Tab key goes from the value to its unit.
    m_choice = new tvChoice(units, unitDetail, parent, wxID_ANY);
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
    ShowUnitOfDetail();
    if (m_choice->GetSelection() == wxNOT_FOUND) {
        m_choice->SetDefault(defaultUnit);
        if (m_choice->GetSelection() == wxNOT_FOUND && !m_units.empty())
            m_choice->SetDefault(m_units.front().first);
    }
    m_unit = m_choice->GetStringUnlocalized();
    m_valueDetail->SetUnit(m_unit.utf8_string());
}

void InputCombinationUnitChoice::ShowUnitOfDetail()
{
    const bool isText = m_unitDetail->GetType() == DetailType::String;
    const wxString unit = isText ? m_unitDetail->GetStringValue() : wxString();
    const auto hasLabel = [&unit](const auto& item) { return item.second == unit; };
    tvChoice::Items items = m_units;
    if (!unit.empty() && std::none_of(items.begin(), items.end(), hasLabel)) {
        long key = 0;
        for (const auto& item : items)
            key = std::max(key, item.first + 1);
        items.emplace_back(key, unit);
    }
    if (items != m_choice->GetItems())
        m_choice->Set(items);
    m_choice->TransferDetailToWindow();
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
    DoubleValidator* validator = GetDoubleValidator();
    if (validator == nullptr)
        return;
    constexpr double kNoLimit = std::numeric_limits<double>::infinity();
    const std::string& limitUnit = m_valueDetail->GetLimitUnit();
    const std::string unit = m_unit.utf8_string();
    validator->SetMinValue(combinations::ConvertLimit(m_minValue, limitUnit, unit).value_or(-kNoLimit));
    validator->SetMaxValue(combinations::ConvertLimit(m_maxValue, limitUnit, unit).value_or(kNoLimit));
}

void InputCombinationUnitChoice::SetMinMax(double min, double max)
{
    m_minValue = min;
    m_maxValue = max;
    UpdateValidator();
    TransferDetailToWindow();
}

void InputCombinationUnitChoice::Localize(const std::string& unitSystem)
{
    m_unitSystem = unitSystem;
    const wxString label = i18n::Translated(m_labelText);
    if (m_label && m_label->GetLabelText() != label)
        m_label->SetLabelText(label);
    if (m_text && m_isNamedByLabel)
        accessibility::SetName(*m_text, label);
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
    ShowUnitOfDetail();
    if (m_choice->GetSelection() != wxNOT_FOUND && m_choice->GetStringUnlocalized() != m_unit) {
        m_unit = m_choice->GetStringUnlocalized();
        m_valueDetail->SetUnit(m_unit.utf8_string());
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

void InputCombinationUnitChoice::OnText(wxCommandEvent&)
{
    if (CommitText())
        events::SendEvent(m_parent, tvCHANGE_EVENT, GetControlId(), 0, wxString());
}

void InputCombinationUnitChoice::OnUnitChosen(wxCommandEvent&)
{
    const wxString unit = m_choice->GetStringUnlocalized();
    if (unit.empty())
        return;
    CommitText();
    m_unit = unit;
    m_unitDetail->SetUnit(unit.utf8_string());
    m_unitDetail->SetValue(unit);
    m_valueDetail->SetUnit(unit.utf8_string());
    // A value that is kept as a number is not touched by a text that is none.
    m_valueDetail->SetValue(unit);
    UpdateValidator();
    events::SendEvent(m_parent, tvCHANGE_EVENT, GetControlId(), 0, wxString());
    events::SendEvent(m_parent, tvUNITCHANGED_EVENT, GetControlId(), 0, unit);
}
