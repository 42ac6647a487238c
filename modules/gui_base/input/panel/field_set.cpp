// SPDX-License-Identifier: MIT
#include "gui_base/input/panel/field_set.h"

#include "gui_base/input/binding/transfer_detail.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/controls/tv_unitlabel.h"
#include "gui_base/input/validation/validator.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"
#include "projectbase/units/unit_system_manager.h"

namespace {

constexpr int kInputWidth = 80;
constexpr int kResultWidth = 78;

/// "Sodium" for the row label "Sodium:".
wxString PlainLabel(const wxString& label)
{
    wxString plain = i18n::Translated(label);
    plain.Trim();
    if (plain.EndsWith(":"))
        plain.RemoveLast();
    return plain;
}

}  // namespace

TvTextCtrl* FieldSet::AddNumber(wxWindow* parent, const NumberSpec& spec, long style, int transferFlags)
{
    DetailData& detail = m_details.At(spec.key);
    const int usual = (style & wxTE_READONLY) != 0 ? kResultWidth : kInputWidth;
    const int width = spec.width > 0 ? spec.width : usual;
    auto* control = new TvTextCtrl(parent, wxID_ANY, wxString(), wxDefaultPosition,
                                   parent->FromDIP(wxSize(width, -1)), style | wxTE_RIGHT);
    if (spec.inIsoUnits)
        transferFlags |= TransferInIsoUnits;
    m_numbers.push_back({spec, &detail, control, transferFlags});
    return control;
}

TvTextCtrl* FieldSet::AddInput(wxWindow* parent, const NumberSpec& spec)
{
    TvTextCtrl* control = AddNumber(parent, spec, 0, TransferToDetail | TransferCountsAsChange);
    Number& number = m_numbers.back();
    if (number.detail->HasMinValue())
        number.spec.validatorFlags |= CheckMin;
    if (number.detail->HasMaxValue())
        number.spec.validatorFlags |= CheckMax;
    return control;
}

TvTextCtrl* FieldSet::AddResult(wxWindow* parent, const NumberSpec& spec)
{
    TvTextCtrl* control = AddNumber(parent, spec, wxTE_READONLY, 0);
    control->DisableFocusFromKeyboard();
    return control;
}

TvTextCtrl* FieldSet::AddText(wxWindow* parent, const std::string& key, const wxString& label)
{
    DetailData& detail = m_details.At(key);
    auto* control = AddLocalizable(new TvTextCtrl(parent, wxID_ANY, wxString(), wxDefaultPosition,
                                                  parent->FromDIP(wxSize(kInputWidth, -1))));
    control->SetHint(label);
    m_texts.push_back({&detail, control, label, wxString()});
    return control;
}

tvUnitChoice* FieldSet::AddUnitChoice(wxWindow* parent, const std::string& key,
                                      const std::vector<wxString>& units, const wxString& label)
{
    auto* choice = new tvUnitChoice(units, &m_details.At(key), parent, wxID_ANY);
    m_unitChoices.push_back(choice);
    m_choiceLabels.emplace_back(choice, label);
    AddSelfRefreshing(choice);
    return choice;
}

TvStaticText* FieldSet::AddLabel(wxWindow* parent, const wxString& label, const wxString& suffix)
{
    return AddLocalizable(new TvStaticText(parent, wxID_ANY, label, suffix));
}

TvUnitLabel* FieldSet::AddUnitLabel(wxWindow* parent, const wxString& isoUnit, bool convert)
{
    return AddLocalizable(new TvUnitLabel(parent, isoUnit, true, convert));
}

void FieldSet::UpdateNames(const std::string& unitSystem)
{
    for (const Number& number : m_numbers) {
        wxString unit = number.spec.unit;
        if (!number.spec.unitKey.empty())
            unit = m_details.At(number.spec.unitKey).GetStringValue();
        else if (!number.spec.inIsoUnits)
            unit = wxString::FromUTF8(UnitSystemManager::GetUnit(unit.utf8_string(), unitSystem, true));
        const wxString label = PlainLabel(number.spec.label);
        accessibility::SetName(*number.control, unit.empty() ? label : label + " [" + unit + "]");
    }
    for (const Text& text : m_texts)
        accessibility::SetName(*text.control, PlainLabel(text.label));
    for (const auto& [choice, label] : m_choiceLabels)
        accessibility::SetName(*choice, PlainLabel(label) + ", " + i18n::Translated("Unit"));
}
