// SPDX-License-Identifier: MIT
#include "gui_base/input/form/field_set.h"

#include "gui_base/input/binding/transfer_detail.h"
#include "gui_base/input/controls/tv_checkbox.h"
#include "gui_base/input/controls/tv_datepickerctrl.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/controls/tv_unitlabel.h"
#include "gui_base/input/events.h"
#include "gui_base/input/form/field_set_field.h"
#include "gui_base/input/form/form_grid.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"
#include "projectbase/units/unit_system_manager.h"

#include <stdexcept>

namespace {

constexpr int kInputWidth = 80;
constexpr int kResultWidth = 78;

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
            return AddSelfStoring(new TvDatePickerCtrl(parent, wxID_ANY, &detail), label);
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
        limits.min, limits.max, row.precision, row.format, row.validatorFlags | checks | ShortExponents,
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
    field->spec.validatorFlags |= ShortExponents;
    control->SetClientObject(new KeptForControl(field));
    m_fields.push_back(std::move(field));
    return control;
}

TvTextCtrl* FieldSet::AddNumberInput(wxWindow* parent, DetailData& detail, const NumberSpec& spec)
{
    TvTextCtrl* control =
        AddField(parent, detail, spec, wxTE_RIGHT, TransferToDetail | TransferCountsAsChange);
    NumberSpec& added = m_fields.back()->spec;
    if (form::MinOf(spec, detail))
        added.validatorFlags |= CheckMin;
    if (form::MaxOf(spec, detail))
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
    accessibility::SetName(*choice, form::PlainLabel(label));
    // Who types values goes from one to the next; Alt+Down opens the units of a value (see ValueKeys).
    choice->DisableFocusFromKeyboard();
    return choice;
}

TvStaticText* FieldSet::AddLabel(wxWindow* parent, const wxString& label, const wxString& suffix)
{
    return AddLocalizable(new TvStaticText(parent, wxID_ANY, label, suffix));
}

TvUnitLabel* FieldSet::AddUnitLabel(wxWindow* parent, const wxString& isoUnit, bool convert)
{
    auto* label = AddLocalizable(new TvUnitLabel(parent, isoUnit, true, convert));
    label->SetCurrency(m_currency.code);
    m_unitLabels.emplace_back(label);
    return label;
}
