// SPDX-License-Identifier: MIT
#include "gui_base/input/form/field_set.h"

#include "core/text_limits.h"
#include "gui_base/input/binding/transfer_detail.h"
#include "gui_base/input/controls/text_length.h"
#include "gui_base/input/controls/tv_checkbox.h"
#include "gui_base/input/controls/tv_datepickerctrl.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/controls/tv_unitlabel.h"
#include "gui_base/input/events.h"
#include "gui_base/input/form/form_grid.h"
#include "gui_base/input/validation/double_validator.h"
#include "gui_base/input/validation/integer_validator.h"
#include "gui_base/input/validation/temperature_validator.h"
#include "gui_base/input/validation/text_enter_validator.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"
#include "projectbase/units/unit_system_manager.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace {

constexpr double kNoCurrency = 1.0;
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

NumberSpec SpecOf(const FormRow& row, const DetailData& detail)
{
    return {.key = row.key,
            .label = wxString::FromUTF8(row.label),
            .unit = wxString::FromUTF8(row.unit != nullptr ? std::string(row.unit) : detail.GetUnit()),
            .validatorFlags = row.validatorFlags,
            .undef = row.undef,
            .precision = row.precision,
            .format = row.format,
            .width = row.width,
            .inIsoUnits = row.inIsoUnits,
            .limits = row.limits};
}

/// Keeps what a validator points to as long as the control that it belongs to.
class KeptForControl : public wxClientData
{
public:
    explicit KeptForControl(std::shared_ptr<void> kept) : m_kept(std::move(kept)) {}

private:
    std::shared_ptr<void> m_kept;
};

}  // namespace

/// A number or a text and all that its row needs.
struct FieldSet::Field
{
    NumberSpec spec;
    DetailData* detail = nullptr;
    wxWeakRef<TvTextCtrl> control = {};
    int transferFlags = 0;
    double number = 0.0;
    long count = 0;
    wxString text = {};
    Temperature temperature = {};
    std::unique_ptr<ChosenUnit> unit = {};

    bool IsText() const { return detail->GetType() == DetailType::String; }
    void* Variable()
    {
        if (IsText())
            return &text;
        if (detail->GetType() == DetailType::Long)
            return &count;
        return spec.isTemperature ? temperature.GetValueAddress() : &number;
    }
    void SetTextValidator()
    {
        text_length::Limit(*control, text_limits::MostOf(detail->GetName()));
        control->SetValidator(TextEnterValidator(&text));
    }
    void SetValidator()
    {
        const double min = MinOf(spec, *detail).value_or(0.0);
        const double max = MaxOf(spec, *detail).value_or(0.0);
        if (IsText())
            SetTextValidator();
        else if (detail->GetType() == DetailType::Long)
            control->SetValidator(IntegerValidator(&count, spec.format, spec.validatorFlags, std::lround(min),
                                                   std::lround(max), std::lround(min)));
        else if (spec.isTemperature)
            control->SetValidator(TemperatureValidator(&temperature, spec.format, spec.precision,
                                                       spec.validatorFlags, {}, {}, {}));
        else
            control->SetValidator(DoubleValidator(&number, spec.format, spec.precision, spec.validatorFlags,
                                                  min, max, spec.undef));
    }
};

FieldSet::FieldSet(DetailList& details) : m_details(details) {}

FieldSet::~FieldSet() = default;

FormCells FieldSet::AddRow(wxWindow* parent, wxSizer& grid, const FormRow& row, DetailData& detail)
{
    if (row.unitKey != nullptr)
        return AddUnitRow(parent, grid, row, detail);
    const wxSizerFlags cell = wxSizerFlags().CentreVertical();
    FormCells cells;
    if (detail.GetType() == DetailType::Bool) {
        grid.AddSpacer(0);
    } else {
        cells.label = AddLabel(parent, wxString::FromUTF8(row.label), m_labelSuffix);
        grid.Add(cells.label, row.lines > 1 ? wxSizerFlags().Top() : cell);
    }
    cells.field = CreateField(parent, row, detail);
    grid.Add(cells.field, wxSizerFlags().Expand());
    const wxString unit = SpecOf(row, detail).unit;
    if (unit.empty()) {
        grid.AddSpacer(0);
    } else {
        cells.unit = AddUnitLabel(parent, unit, !row.inIsoUnits);
        grid.Add(cells.unit, cell);
    }
    return cells;
}

void FieldSet::AddRows(wxWindow* parent, wxSizer& grid, std::span<const FormRow> rows)
{
    for (const FormRow& row : rows)
        AddRow(parent, grid, row);
}

wxWindow* FieldSet::CreateField(wxWindow* parent, const FormRow& row, DetailData& detail)
{
    const wxString label = wxString::FromUTF8(row.label);
    if (row.unitKey != nullptr)
        throw std::logic_error("FieldSet::CreateField: a unit of choice stands beside its field: " +
                               std::string(row.key));
    if (row.field == FormField::Result)
        return AddField(parent, detail, SpecOf(row, detail), wxTE_RIGHT | wxTE_READONLY, 0);
    if (row.field == FormField::Choice)
        return CreateChoice(parent, row, detail);
    switch (detail.GetType()) {
        case DetailType::Bool:
            return AddSelfStoring(new TvCheckBox(parent, wxID_ANY, label, wxDefaultPosition, wxDefaultSize, 0,
                                                 wxDefaultValidator, wxASCII_STR(wxCheckBoxNameStr), &detail),
                                  label);
        case DetailType::Date:
            return AddSelfStoring(new TvDatePickerCtrl(parent, wxID_ANY, &detail, wxDefaultPosition,
                                                       wxDefaultSize, wxDP_DROPDOWN | wxDP_SHOWCENTURY),
                                  label);
        case DetailType::String:
            return AddTextField(parent, row, detail);
        default:
            return AddNumberInput(parent, detail, SpecOf(row, detail));
    }
}

TvTextCtrl* FieldSet::AddTextField(wxWindow* parent, const FormRow& row, DetailData& detail)
{
    const bool hasLines = row.lines > 1;
    TvTextCtrl* control = AddField(parent, detail, SpecOf(row, detail), hasLines ? wxTE_MULTILINE : 0,
                                   TransferToDetail | TransferCountsAsChange);
    if (hasLines) {
        control->SetMargins(parent->FromDIP(wxPoint(form::kGap, form::kGap)));
        control->Bind(wxEVT_KEY_DOWN, [control](wxKeyEvent& event) {
            const bool isEnter = event.GetKeyCode() == WXK_RETURN || event.GetKeyCode() == WXK_NUMPAD_ENTER;
            if (isEnter && !event.HasAnyModifiers())
                control->WriteText("\n");
            else
                event.Skip();
        });
        control->SetMinSize(wxSize(control->GetMinSize().x,
                                   control->GetCharHeight() * row.lines + parent->FromDIP(form::kGap)));
    }
    return control;
}

wxWindow* FieldSet::CreateChoice(wxWindow* parent, const FormRow& row, DetailData& detail)
{
    const wxString label = wxString::FromUTF8(row.label);
    if (detail.GetType() != DetailType::String)
        return AddSelfStoring(new tvChoice({}, &detail, parent, wxID_ANY), label);
    const tvChoiceAdv::Items items = row.items != nullptr ? row.items() : tvChoiceAdv::Items();
    return AddSelfStoring(new tvChoiceAdv(items, &detail, parent, wxID_ANY), label);
}

FormCells FieldSet::AddUnitRow(wxWindow* parent, wxSizer& grid, const FormRow& row, DetailData& detail)
{
    tvChoice::Items units;
    if (row.units != nullptr) {
        for (const wxString& unit : row.units())
            units.emplace_back(static_cast<long>(units.size()), unit);
    }
    const FormLimits limits = row.limits.value_or(FormLimits{0.0, 0.0});
    const int checks = row.limits ? CheckMin | CheckMax : 0;
    const int width = row.width > 0 ? row.width : m_fieldWidth > 0 ? m_fieldWidth : kInputWidth;
    const wxSizerFlags cell = wxSizerFlags().CentreVertical();
    m_unitRows.push_back(std::make_unique<InputCombinationUnitChoice>(
        parent, wxID_ANY, wxString::FromUTF8(row.label), units, &detail, &m_details.At(row.unitKey), &grid,
        limits.min, limits.max, row.precision, row.format, row.validatorFlags | checks,
        parent->FromDIP(wxSize(width, -1)), wxNullColour, wxTE_RIGHT, wxNOT_FOUND,
        wxASCII_STR(wxTextCtrlNameStr), cell, wxSizerFlags().Expand(), cell));
    InputCombinationUnitChoice* added = m_unitRows.back().get();
    added->SetLabelSuffix(m_labelSuffix);
    AddLocalizable(added);
    AddSelfRefreshing(added);
    return {added->GetLabel(), added->GetTextCtrl(), added->GetChoice()};
}

TvTextCtrl* FieldSet::AddField(wxWindow* parent, DetailData& detail, const NumberSpec& spec, long style,
                               int transferFlags)
{
    const bool isResult = (style & wxTE_READONLY) != 0;
    const int usual = m_fieldWidth > 0 ? m_fieldWidth : isResult ? kResultWidth : kInputWidth;
    const int width = spec.width > 0 ? spec.width : usual;
    auto* control = new TvTextCtrl(parent, wxID_ANY, wxString(), wxDefaultPosition,
                                   parent->FromDIP(wxSize(width, -1)), style);
    if (isResult)
        control->DisableFocusFromKeyboard();
    if (spec.inIsoUnits)
        transferFlags |= TransferInIsoUnits;
    auto field = std::make_shared<Field>(
        Field{.spec = spec, .detail = &detail, .control = control, .transferFlags = transferFlags});
    control->SetClientObject(new KeptForControl(field));
    m_fields.push_back(std::move(field));
    return control;
}

TvTextCtrl* FieldSet::AddNumberInput(wxWindow* parent, DetailData& detail, const NumberSpec& spec)
{
    TvTextCtrl* control =
        AddField(parent, detail, spec, wxTE_RIGHT, TransferToDetail | TransferCountsAsChange);
    NumberSpec& added = m_fields.back()->spec;
    if (MinOf(spec, detail))
        added.validatorFlags |= CheckMin;
    if (MaxOf(spec, detail))
        added.validatorFlags |= CheckMax;
    return control;
}

TvTextCtrl* FieldSet::AddInput(wxWindow* parent, const NumberSpec& spec)
{
    return AddNumberInput(parent, m_details.At(spec.key), spec);
}

TvTextCtrl* FieldSet::AddResult(wxWindow* parent, const NumberSpec& spec)
{
    return AddField(parent, m_details.At(spec.key), spec, wxTE_RIGHT | wxTE_READONLY, 0);
}

TvTextCtrl* FieldSet::AddText(wxWindow* parent, const std::string& key, const wxString& label)
{
    TvTextCtrl* control = AddLocalizable(AddField(parent, m_details.At(key), {.key = key, .label = label}, 0,
                                                  TransferToDetail | TransferCountsAsChange));
    control->SetHint(label);
    return control;
}

tvUnitChoice* FieldSet::AddUnitChoice(wxWindow* parent, const std::string& key,
                                      const std::vector<wxString>& units, const wxString& label)
{
    auto* choice = new tvUnitChoice(units, &m_details.At(key), parent, wxID_ANY);
    AddSelfRefreshing(choice);
    for (const auto& field : m_fields) {
        if (field->spec.unitKey == key)
            field->unit = std::make_unique<ChosenUnit>(field->control.get(), choice);
    }
    accessibility::SetName(*choice, PlainLabel(label));
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
    VisitBindings([&system](TransferDetail& binding) {
        binding.TransferToWindow(system, kNoCurrency);
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
        binding.TransferFromWindow(system, changed, kNoCurrency);
    });
    return changed;
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
        const auto shown = [&](const std::optional<double>& limit) {
            return UnitSystemManager::FromISO(unit, unitSystem, limit.value_or(0.0));
        };
        validator->SetMinValue(shown(MinOf(field->spec, *field->detail)));
        validator->SetMaxValue(shown(MaxOf(field->spec, *field->detail)));
    }
}

void FieldSet::UpdateNames(const std::string& unitSystem)
{
    for (const auto& field : m_fields) {
        const wxString label = PlainLabel(field->spec.label);
        wxString unit = field->spec.unit;
        if (!field->spec.inIsoUnits)
            unit = wxString::FromUTF8(UnitSystemManager::GetUnit(unit.utf8_string(), unitSystem, true));
        if (field->unit)
            field->unit->UpdateNames(label);
        else if (field->control)
            accessibility::SetName(*field->control, accessibility::NameWithUnit(label, unit));
    }
    for (const Named& named : m_selfStoring) {
        if (named.control)
            accessibility::SetName(*named.control, PlainLabel(named.label));
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

std::vector<TvTextCtrl*> FieldSet::GetFields() const
{
    std::vector<TvTextCtrl*> fields;
    for (const auto& field : m_fields)
        fields.push_back(field->control.get());
    return fields;
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
