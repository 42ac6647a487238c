// SPDX-License-Identifier: MIT
// How fields show and store the values of details: bindings, limits, names.
#include "gui_base/input/binding/transfer_detail.h"
#include "gui_base/input/controls/tv_unitlabel.h"
#include "gui_base/input/events.h"
#include "gui_base/input/form/field_set_field.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"
#include "projectbase/units/unit_system_manager.h"

#include <algorithm>
#include <stdexcept>

namespace {

constexpr double kCheapFactor = 100.0;

}  // namespace

namespace form {

/// "Sodium" for the row label "Sodium:".
wxString PlainLabel(const wxString& label)
{
    wxString plain = i18n::Translated(label);
    return i18n::WithoutColon(plain.Trim());
}

std::optional<double> MinOf(const NumberSpec& spec, const DetailData& detail)
{
    if (spec.limits)
        return spec.limits->min;
    return detail.HasMinValue() ? std::optional(detail.GetMinValue()) : std::nullopt;
}

std::optional<double> MaxOf(const NumberSpec& spec, const DetailData& detail)
{
    if (spec.limits)
        return spec.limits->max;
    return detail.HasMaxValue() ? std::optional(detail.GetMaxValue()) : std::nullopt;
}

}  // namespace form

void FieldSet::SetValidators()
{
    for (const auto& field : m_fields)
        field->SetValidator();
}

void FieldSet::VisitBindings(const std::function<void(TransferDetail&)>& visit) const
{
    for (const auto& field : m_fields) {
        TransferDetail binding(field->transferFlags, field->Variable(), field->control.get(), field->detail);
        visit(binding);
    }
}

void FieldSet::ShowDetails(const std::string& unitSystem)
{
    const wxString system = wxString::FromUTF8(unitSystem);
    VisitBindings([&](TransferDetail& binding) {
        binding.TransferToWindow(system, m_currency.factor);
        binding.GetWindow()->TransferDataToWindow();
        binding.TransferRangeFlags();
    });
    for (DetailContainerWindow* window : m_selfRefreshing)
        window->TransferDetailToWindow();
}

bool FieldSet::StoreFields(const std::string& unitSystem)
{
    // What follows from the fields is calculated when all of them are stored.
    const DetailListEdit edit(m_details);
    const wxString system = wxString::FromUTF8(unitSystem);
    bool changed = false;
    VisitBindings([&](TransferDetail& binding) {
        binding.GetWindow()->TransferDataFromWindow();
        binding.TransferFromWindow(system, changed, m_currency.factor);
    });
    return changed;
}

void FieldSet::SetStatusBar(wxStatusBar* statusBar) const
{
    for (const auto& field : m_fields) {
        if (field->control)
            field->control->SetStatusBar(statusBar);
    }
    for (const auto& row : m_unitRows) {
        if (TvTextCtrl* const control = row->GetTextCtrl())
            control->SetStatusBar(statusBar);
    }
}

void FieldSet::OnCommit(const std::function<void()>& typed, const std::function<void()>& stored)
{
    for (const auto& field : m_fields) {
        // A field that is stored can be made editable later.
        if ((field->transferFlags & TransferToDetail) != 0)
            // Nobody else hears of it: a dialog would press its default button.
            field->control->Bind(wxEVT_TEXT_ENTER, [typed](wxCommandEvent&) { typed(); });
    }
    const auto answer = [&stored](wxWindow* control, const wxEventTypeTag<wxCommandEvent>& tag) {
        // Once it has climbed to the parent the control has stored its value. The parent may outlive the
        // control, and the id find another one.
        control->GetParent()->Bind(
            tag,
            [stored, held = wxWeakRef<wxWindow>(control)](wxCommandEvent& event) {
                if (held)
                    stored();
                else
                    event.Skip();
            },
            control->GetId());
    };
    for (const Named& named : m_selfStoring) {
        answer(named.control.get(), tvCHANGE_EVENT);
        answer(named.control.get(), wxEVT_CHECKBOX);
    }
    for (const auto& row : m_unitRows)
        answer(row->GetTextCtrl(), tvCHANGE_EVENT);
}

void FieldSet::SetUnitLimits(const std::string& key, const AmountLimits& limits)
{
    if (InputCombinationUnitChoice* row = FindUnitRow(key))
        row->SetLimits(limits);
    else if (Field* field = Find(key); field != nullptr && field->unit)
        field->unit->SetLimits(limits);
    else
        throw std::logic_error("FieldSet::SetUnitLimits: no unit is chosen for " + key);
}

void FieldSet::ApplyUnitLimits()
{
    for (const auto& field : m_fields) {
        if (field->unit)
            field->unit->ApplyLimits();
    }
}

void FieldSet::ApplyLimits(const std::string& unitSystem)
{
    for (const auto& field : m_fields) {
        auto* validator =
            field->control ? dynamic_cast<DoubleValidator*>(field->control->GetValidator()) : nullptr;
        if (validator == nullptr || field->unit || field->spec.inIsoUnits)
            continue;
        const std::string& unit = field->detail->GetUnit();
        const double money = costs::IsMoney(unit) ? m_currency.factor : 1.0;
        const auto shown = [&](const std::optional<double>& limit) {
            return money * UnitSystemManager::FromISO(unit, unitSystem, limit.value_or(0.0));
        };
        // Where a unit of the currency is next to nothing, nobody counts hundredths of it.
        if (costs::IsMoney(unit) && field->spec.format == TvTextCtrlFormat::Fixed)
            validator->SetPrecision(m_currency.factor < kCheapFactor ? field->spec.precision : 0);
        validator->SetMinValue(shown(form::MinOf(field->spec, *field->detail)));
        validator->SetMaxValue(shown(form::MaxOf(field->spec, *field->detail)));
    }
}

void FieldSet::SetCurrency(const costs::ShownCurrency& currency)
{
    m_currency = currency;
    for (const auto& label : m_unitLabels) {
        if (label)
            label->SetCurrency(currency.code);
    }
}

void FieldSet::ShowUnits(const std::string& unitSystem)
{
    for (const auto& label : m_unitLabels) {
        if (label)
            label->Localize(unitSystem);
    }
}

void FieldSet::UpdateNames(const std::string& unitSystem)
{
    for (const auto& field : m_fields) {
        const wxString label = form::PlainLabel(field->spec.label);
        wxString unit = field->spec.unit;
        if (!field->spec.inIsoUnits)
            unit = wxString::FromUTF8(UnitSystemManager::GetUnit(unit.utf8_string(), unitSystem, true));
        unit = wxString::FromUTF8(costs::UnitIn(unit.utf8_string(), m_currency));
        if (field->unit)
            field->unit->UpdateNames(label);
        else if (field->control)
            field->control->SetNameAndUnit(label, unit);
    }
    for (const Named& named : m_selfStoring) {
        if (named.control)
            accessibility::SetName(*named.control, form::PlainLabel(named.label));
    }
}

FieldSet::Field* FieldSet::Find(const std::string& key) const
{
    const auto found = std::find_if(m_fields.begin(), m_fields.end(),
                                    [&key](const auto& field) { return field->detail->GetName() == key; });
    return found == m_fields.end() ? nullptr : found->get();
}

TvTextCtrl* FieldSet::FindField(const std::string& key) const
{
    if (const Field* field = Find(key))
        return field->control.get();
    const InputCombinationUnitChoice* row = FindUnitRow(key);
    return row != nullptr ? row->GetTextCtrl() : nullptr;
}

TvTextCtrl* FieldSet::FindField(const DetailData& detail) const
{
    const auto found = std::find_if(m_fields.begin(), m_fields.end(),
                                    [&detail](const auto& field) { return field->detail == &detail; });
    return found == m_fields.end() ? nullptr : (*found)->control.get();
}

InputCombinationUnitChoice* FieldSet::FindUnitRow(const std::string& key) const
{
    const auto found = std::find_if(m_unitRows.begin(), m_unitRows.end(), [&key](const auto& row) {
        return row->GetValueDetail().GetName() == key;
    });
    return found == m_unitRows.end() ? nullptr : found->get();
}

Temperature& FieldSet::TemperatureOf(const std::string& key)
{
    Field* field = Find(key);
    if (field == nullptr || !field->spec.isTemperature)
        throw std::runtime_error("FieldSet::TemperatureOf: no temperature: " + key);
    return field->temperature;
}

std::vector<TvTextCtrl*> FieldSet::GetNumbers() const
{
    std::vector<TvTextCtrl*> numbers;
    for (const auto& field : m_fields) {
        if (!field->IsText())
            numbers.push_back(field->control.get());
    }
    return numbers;
}
