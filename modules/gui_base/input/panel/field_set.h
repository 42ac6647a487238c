// SPDX-License-Identifier: MIT
#pragma once

/// The fields of a panel: creates controls for details and keeps the variables, limits and texts that belong
/// to them, so that a panel is a table of rows. The controls belong to their parent window, the variables to
/// the set, which therefore lives as long as the controls. Nothing is bound here: the panel takes the lists
/// over into its own bindings, validators and localisation.

#include "core/number_text.h"
#include "gui_base/gui_base_export.h"
#include "gui_base/input/controls/localizable.h"
#include "gui_base/input/controls/tv_choice.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "projectbase/details/detail_list.h"

#include <deque>
#include <memory>
#include <string>
#include <vector>

class TvStaticText;
class TvUnitLabel;

/// How the number of a detail is shown; its limits are those of the detail.
struct NumberSpec
{
    std::string key = {};
    wxString label = {};       ///< source text; names the field for messages and screen readers
    wxString unit = {};        ///< shown with the label in the field's name
    std::string unitKey = {};  ///< detail that holds the unit instead, if not empty
    int validatorFlags = 0;    ///< limits that the detail has are checked in any case
    double undef = 0.0;        ///< stored for an empty field
    int precision = 4;
    TvTextCtrlFormat format = TvTextCtrlFormat::General;
    int width = 0;  ///< in DIP; 0 for the usual one
    bool inIsoUnits =
        false;  ///< the number is in the ISO unit, or a unit of its own, whatever system is shown
};

class GUI_BASE_EXPORT FieldSet
{
public:
    struct Number
    {
        NumberSpec spec;
        DetailData* detail;
        TvTextCtrl* control;
        int transferFlags;
        double value = 0.0;
    };
    struct Text
    {
        DetailData* detail;
        TvTextCtrl* control;
        wxString label;
        wxString value;
    };

    /// `details` is not owned and outlives the set.
    explicit FieldSet(DetailList& details) : m_details(details) {}
    FieldSet(const FieldSet&) = delete;
    FieldSet& operator=(const FieldSet&) = delete;

    /// A number that the user edits. Throws std::runtime_error for a key that the details lack, as do the
    /// others.
    TvTextCtrl* AddInput(wxWindow* parent, const NumberSpec& spec);
    /// A number that is only shown; the keyboard passes it by.
    TvTextCtrl* AddResult(wxWindow* parent, const NumberSpec& spec);
    TvTextCtrl* AddText(wxWindow* parent, const std::string& key, const wxString& label);
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
    void AddSelfRefreshing(DetailContainerWindow* window) { m_selfRefreshing.push_back(window); }

    std::deque<Number>& Numbers() { return m_numbers; }
    std::deque<Text>& Texts() { return m_texts; }
    const std::vector<tvUnitChoice*>& UnitChoices() const { return m_unitChoices; }
    const std::vector<std::shared_ptr<LocalizableControl>>& Localizables() const { return m_localizables; }
    const std::vector<DetailContainerWindow*>& SelfRefreshing() const { return m_selfRefreshing; }
    DetailList& Details() { return m_details; }

    /// Gives every field the accessible name that its label and unit make in the present language and unit
    /// system.
    void UpdateNames(const std::string& unitSystem);

private:
    TvTextCtrl* AddNumber(wxWindow* parent, const NumberSpec& spec, long style, int transferFlags);

    DetailList& m_details;
    std::deque<Number> m_numbers;
    std::deque<Text> m_texts;
    std::vector<tvUnitChoice*> m_unitChoices;
    std::vector<std::pair<tvUnitChoice*, wxString>> m_choiceLabels;
    std::vector<std::shared_ptr<LocalizableControl>> m_localizables;
    std::vector<DetailContainerWindow*> m_selfRefreshing;
};
