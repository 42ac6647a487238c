// SPDX-License-Identifier: MIT
#pragma once

/// The fields of a form: creates controls for details and keeps what belongs to them (variable, limits,
/// texts, names), so that a panel is a table of rows.
///
/// A number or text row owns its variable, which lives as long as its control; so does everything that a
/// validator points to. Combinations, which are no windows, are owned by the set. The controls belong to
/// their parent windows and may go before or after it. The details outlive the set. GUI thread only.

#include "gui_base/gui_base_export.h"
#include "gui_base/input/combinations/chosen_unit.h"
#include "gui_base/input/combinations/input_combination_unit_choice.h"
#include "gui_base/input/controls/localizable.h"
#include "gui_base/input/controls/tv_choice.h"
#include "gui_base/input/controls/tv_choiceadv.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/input/form/form_row.h"
#include "projectbase/costs/currency.h"
#include "projectbase/details/detail_list.h"
#include "projectbase/units/temperature.h"

#include <wx/sizer.h>

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

class TransferDetail;
class TvStaticText;
class TvUnitLabel;

/// How the number of a detail is shown; its limits are those of the detail unless it has others here.
struct NumberSpec
{
    std::string key = {};
    wxString label = {};       ///< source text; names the field for messages and screen readers
    wxString unit = {};        ///< shown with the label in the field's name
    std::string unitKey = {};  ///< detail that holds the unit instead, if not empty
    int validatorFlags = 0;    ///< limits that there are, are checked in any case
    double undef = 0.0;        ///< stored for an empty field
    int precision = 4;
    TvTextCtrlFormat format = TvTextCtrlFormat::General;
    int width = 0;  ///< in DIP; 0 for the usual one
    bool inIsoUnits =
        false;  ///< the number is in the ISO unit, or a unit of its own, whatever system is shown
    bool isTemperature = false;  ///< checked as a temperature in the unit that it has
    std::optional<FormLimits> limits = std::nullopt;
};

/// The windows of a row, in reading order; null where it has none.
struct FormCells
{
    wxWindow* label = nullptr;
    wxWindow* field = nullptr;
    wxWindow* unit = nullptr;
};

class GUI_BASE_EXPORT FieldSet
{
public:
    /// `details` is not owned and outlives the set.
    explicit FieldSet(DetailList& details);
    ~FieldSet();
    FieldSet(const FieldSet&) = delete;
    FieldSet& operator=(const FieldSet&) = delete;

    /// Stands behind the label of each row that is made from now on; not translated.
    void SetLabelSuffix(const wxString& suffix) { m_labelSuffix = suffix; }
    /// Usual width in DIP of the fields that are made from now on.
    void SetFieldWidth(int width) { m_fieldWidth = width; }

    /// One row of label, field and unit in a grid of a multiple of three columns. Throws std::runtime_error
    /// for a key that the details lack, as do the others.
    FormCells AddRow(wxWindow* parent, wxSizer& grid, const FormRow& row)
    {
        return AddRow(parent, grid, row, m_details.At(row.key));
    }
    /// The row of a detail that stands elsewhere; it outlives the set, too.
    FormCells AddRow(wxWindow* parent, wxSizer& grid, const FormRow& row, DetailData& detail);
    void AddRows(wxWindow* parent, wxSizer& grid, std::span<const FormRow> rows);
    /// The field of a row alone, placed by the caller; a row with a unit of choice has no field alone.
    wxWindow* CreateField(wxWindow* parent, const FormRow& row)
    {
        return CreateField(parent, row, m_details.At(row.key));
    }
    wxWindow* CreateField(wxWindow* parent, const FormRow& row, DetailData& detail);

    /// A number that the user edits.
    TvTextCtrl* AddInput(wxWindow* parent, const NumberSpec& spec);
    /// A number that is only shown; the keyboard passes it by.
    TvTextCtrl* AddResult(wxWindow* parent, const NumberSpec& spec);
    /// A text, with its label as the hint.
    TvTextCtrl* AddText(wxWindow* parent, const std::string& key, const wxString& label);
    /// The choice of a unit; a number whose `unitKey` is this key is tied to it.
    tvUnitChoice* AddUnitChoice(wxWindow* parent, const std::string& key, const std::vector<wxString>& units,
                                const wxString& label);
    TvStaticText* AddLabel(wxWindow* parent, const wxString& label, const wxString& suffix = {});
    TvUnitLabel* AddUnitLabel(wxWindow* parent, const wxString& isoUnit, bool convert);
    template <typename Control>
    Control* AddLocalizable(Control* control)
    {
        m_localizables.push_back(MakeLocalizable(control));
        return control;
    }
    /// A control that stores what the user chooses in its detail and then processes a tvCHANGE_EVENT.
    template <typename Control>
    Control* AddSelfStoring(Control* control, const wxString& label)
    {
        m_selfStoring.push_back({control, label});
        AddSelfRefreshing(control);
        return AddLocalizable(control);
    }
    void AddSelfRefreshing(DetailContainerWindow* window) { m_selfRefreshing.push_back(window); }

    /// Gives every field its validator; once, after all were made.
    void SetValidators();
    /// Hands the binding of every field on.
    void VisitBindings(const std::function<void(TransferDetail&)>& visit) const;
    /// Shows the details through the bindings, and what the fields' limits make of them in the details.
    void ShowDetails(const std::string& unitSystem);
    /// Stores what the fields show; whether any detail changed.
    bool StoreFields(const std::string& unitSystem);
    /// The bar that shows the hints of every field that has the focus; not owned.
    void SetStatusBar(wxStatusBar* statusBar) const;
    /// Calls `typed` when the user committed a number or a text, which is then to be stored, and `stored`
    /// when a control has stored what the user chose in it. The event of the commit ends here.
    void OnCommit(const std::function<void()>& typed, const std::function<void()>& stored);

    /// Limits of a number whose unit the user chooses, which are the same amount in each unit.
    void SetUnitLimits(const std::string& key, const AmountLimits& limits);
    /// The limits of the numbers with a unit of choice, in the units that are chosen now.
    void ApplyUnitLimits();
    /// The limits of the other numbers, in that unit system.
    void ApplyLimits(const std::string& unitSystem);
    /// The currency of all money that fields show from now on; limits, units and names follow when they are
    /// asked to, values when they are shown.
    void SetCurrency(const costs::ShownCurrency& currency);
    /// The labels of the units, in that unit system.
    void ShowUnits(const std::string& unitSystem);
    const costs::ShownCurrency& GetCurrency() const { return m_currency; }
    /// Gives every field the accessible name that its label and unit make in the present language and unit
    /// system.
    void UpdateNames(const std::string& unitSystem);

    /// The number or text field of a detail, or null.
    TvTextCtrl* FindField(const std::string& key) const;
    TvTextCtrl* FindField(const DetailData& detail) const;
    /// The row with a unit of choice of a detail, or null.
    InputCombinationUnitChoice* FindUnitRow(const std::string& key) const;
    /// The variable of a field with `isTemperature`; throws std::runtime_error when there is none.
    Temperature& TemperatureOf(const std::string& key);
    /// Number fields in the order in which they were made.
    std::vector<TvTextCtrl*> GetNumbers() const;
    const std::vector<std::shared_ptr<LocalizableControl>>& Localizables() const { return m_localizables; }
    const std::vector<DetailContainerWindow*>& SelfRefreshing() const { return m_selfRefreshing; }
    DetailList& Details() { return m_details; }

private:
    struct Field;
    struct Named
    {
        wxWeakRef<wxWindow> control;
        wxString label;
    };

    TvTextCtrl* AddField(wxWindow* parent, DetailData& detail, const NumberSpec& spec, long style,
                         int transferFlags);
    TvTextCtrl* AddNumberInput(wxWindow* parent, DetailData& detail, const NumberSpec& spec);
    TvTextCtrl* AddTextField(wxWindow* parent, const FormRow& row, DetailData& detail);
    wxWindow* CreateChoice(wxWindow* parent, const FormRow& row, DetailData& detail);
    FormCells AddUnitRow(wxWindow* parent, wxSizer& grid, const FormRow& row, DetailData& detail);
    Field* Find(const std::string& key) const;

    DetailList& m_details;
    costs::ShownCurrency m_currency;
    std::vector<wxWeakRef<TvUnitLabel>> m_unitLabels;
    wxString m_labelSuffix;
    int m_fieldWidth = 0;
    std::vector<std::shared_ptr<Field>> m_fields;
    std::vector<std::unique_ptr<InputCombinationUnitChoice>> m_unitRows;
    /// Controls that store and tell of an edit themselves.
    std::vector<Named> m_selfStoring;
    std::vector<std::shared_ptr<LocalizableControl>> m_localizables;
    std::vector<DetailContainerWindow*> m_selfRefreshing;
};
