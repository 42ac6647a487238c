// SPDX-License-Identifier: MIT
#include "app/frame/settings_dialog.h"

#include "app/frame/limits_dialog.h"
#include "app/frame/unit_system_name.h"
#include "app/language/language.h"
#include "gui_base/dialogs/dialog_buttons.h"
#include "gui_base/input/controls/tv_searchctrl.h"
#include "gui_base/input/panel/advanced_input_options.h"
#include "gui_base/input/validation/validator.h"
#include "gui_base/support/hint_colour.h"
#include "gui_base/support/translation.h"
#include "projectbase/advice/balance_judgement.h"
#include "projectbase/units/unit_system_manager.h"

#include <wx/button.h>
#include <wx/settings.h>
#include <wx/stattext.h>

#include <array>

namespace app {
namespace {

constexpr const char* kLanguage = "language";
constexpr const char* kUnitSystem = "unit.system";
constexpr const char* kDensity = "density";
constexpr const char* kAutosave = "autosave";
constexpr const char* kDatabase = "database";
constexpr const char* kBalanceRule = "balance.rule";
constexpr const char* kIso = "iso";

tvChoiceAdv::Items Languages()
{
    tvChoiceAdv::Items items;
    for (const Language& language : AvailableLanguages())
        items.emplace_back(language.code, language.name);
    return items;
}

tvChoiceAdv::Items UnitSystems()
{
    tvChoiceAdv::Items items;
    for (const std::string& unitSystem : UnitSystemManager::GetUnitSystems())
        items.emplace_back(wxString::FromUTF8(unitSystem), UnitSystemName(unitSystem));
    return items;
}

tvChoiceAdv::Items Densities()
{
    return {{"compact", wxTRANSLATE("Compact")}, {"comfortable", wxTRANSLATE("Comfortable")}};
}

tvChoiceAdv::Items BalanceRules()
{
    tvChoiceAdv::Items items;
    for (const char* code : {"SM1030E", "DVWK", "5/10"})
        items.emplace_back(code, advice::NameOf(advice::BalanceRuleOf(code)));
    return items;
}

struct SettingRow
{
    FormRow row;
    const char* explanation;
    bool isAdvanced = false;
};

constexpr std::array kRows{
    SettingRow{
        {.key = kLanguage, .label = wxTRANSLATE("Language"), .field = FormField::Choice, .items = Languages},
        wxTRANSLATE("Of all texts, also of the messages")},
    SettingRow{{.key = kUnitSystem,
                .label = wxTRANSLATE("Unit system"),
                .field = FormField::Choice,
                .items = UnitSystems},
               wxTRANSLATE("In which values are shown and typed")},
    SettingRow{{.key = kDensity,
                .label = wxTRANSLATE("Density of forms"),
                .field = FormField::Choice,
                .items = Densities},
               wxTRANSLATE("How close rows and fields stand")},
    SettingRow{{.key = kAutosave,
                .label = wxTRANSLATE("Minutes between recovery copies"),
                .unit = "",
                .limits = FormLimits{0.0, 240.0},
                .format = TvTextCtrlFormat::Fixed,
                .validatorFlags = ClampToLimits},
               wxTRANSLATE("0 to 240; 0 writes no copies")},
    SettingRow{{.key = kBalanceRule,
                .label = wxTRANSLATE("Rule of the ion balance"),
                .field = FormField::Choice,
                .items = BalanceRules},
               wxTRANSLATE("By which the charges of an analysis are judged")},
    SettingRow{{.key = kDatabase, .label = wxTRANSLATE("Database of the user"), .width = 360},
               wxTRANSLATE("Empty for a file of your own; postgresql://... for one that a team shares"),
               true},
};

wxString Tr(const char* source)
{
    return i18n::Translated(source);
}

wxFlexGridSizer* NewGrid(wxWindow* window)
{
    auto* grid = new wxFlexGridSizer(2, window->FromDIP(wxSize(12, 8)));
    grid->AddGrowableCol(1);
    return grid;
}

}  // namespace

SettingsDialog::SettingsDialog(wxWindow* parent, const ProgramSettings& settings)
    : wxDialog(parent, wxID_ANY, Tr("Settings"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER)
{
    m_values.Add(DetailData(kLanguage, DetailType::String)).SetValue(settings.language);
    m_values.Add(DetailData(kUnitSystem, DetailType::String)).SetValue(settings.unitSystem);
    m_values.Add(DetailData(kDensity, DetailType::String)).SetValue(settings.density);
    m_values.Add(DetailData(kAutosave, DetailType::Long)).SetValue(settings.autosaveMinutes);
    m_values.Add(DetailData(kDatabase, DetailType::String)).SetValue(settings.database);
    m_values.Add(DetailData(kBalanceRule, DetailType::String)).SetValue(settings.balanceRule);

    m_search = new TvSearchControl(this, wxID_ANY);
    m_search->SetTranslatableHint(wxTRANSLATE("Search settings"));
    m_search->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { OnSearch(); });
    wxFlexGridSizer* grid = NewGrid(this);
    // In the order in which the keyboard goes through them.
    AddRows(this, *grid, false);
    AddLimits(*grid);
    m_advanced = new AdvancedInputOptions(this);
    wxFlexGridSizer* advancedGrid = NewGrid(m_advanced->GetOptions());
    m_advanced->GetOptions()->SetSizer(advancedGrid);
    AddRows(m_advanced->GetOptions(), *advancedGrid, true);
    m_fields.SetValidators();
    m_fields.ShowDetails(kIso);
    m_fields.UpdateNames(kIso);

    auto* outer = new wxBoxSizer(wxVERTICAL);
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, FromDIP(12)).Expand();
    outer->Add(m_search, spaced);
    outer->Add(grid, spaced);
    outer->Add(m_advanced, wxSizerFlags(spaced).Proportion(1));
    outer->Add(dialogs::CreateButtons(*this, true), spaced);
    SetSizerAndFit(outer);
    CentreOnParent();
}

void SettingsDialog::AddRows(wxWindow* parent, wxFlexGridSizer& grid, bool areAdvanced)
{
    for (const SettingRow& setting : kRows) {
        if (setting.isAdvanced == areAdvanced)
            AddRow(parent, grid, setting.row, setting.explanation);
    }
}

void SettingsDialog::AddRow(wxWindow* parent, wxFlexGridSizer& grid, const FormRow& row,
                            const char* explanation)
{
    auto* text = new wxStaticText(parent, wxID_ANY, Tr(row.label));
    wxWindow* field = m_fields.CreateField(parent, row);
    auto* hint = new wxStaticText(parent, wxID_ANY, Tr(explanation));
    hint->SetForegroundColour(HintColour());
    auto* cell = new wxBoxSizer(wxVERTICAL);
    cell->Add(field, wxSizerFlags().Expand());
    cell->Add(hint);
    grid.Add(text, wxSizerFlags().Top().Border(wxTOP, FromDIP(6)));
    grid.Add(cell, wxSizerFlags().Expand());
    m_rows.push_back({{text, field, hint}, (Tr(row.label) + " " + Tr(explanation)).Lower(), parent != this});
}

void SettingsDialog::AddLimits(wxFlexGridSizer& grid)
{
    constexpr const char* kLimits = wxTRANSLATE("Limits ahead of resins");
    auto* text = new wxStaticText(this, wxID_ANY, Tr(kLimits));
    auto* button = new wxButton(this, wxID_ANY, Tr("Limits..."));
    button->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
        LimitsDialog dialog(this, m_limits);
        if (dialog.ShowModal() == wxID_OK)
            m_limits = dialog.GetChanged();
    });
    grid.Add(text, wxSizerFlags().CentreVertical());
    grid.Add(button);
    m_rows.push_back({{text, button}, Tr(kLimits).Lower(), false});
}

void SettingsDialog::OnSearch()
{
    const wxString wanted = m_search->GetValue().Lower();
    bool advancedFits = false;
    for (const Row& row : m_rows) {
        const bool visible = wanted.empty() || row.words.Contains(wanted);
        advancedFits |= visible && row.isAdvanced;
        for (wxWindow* window : row.windows)
            window->Show(visible);
    }
    m_advanced->Show(advancedFits);
    if (advancedFits && !wanted.empty())
        m_advanced->SetOpen(true);
    Layout();
}

ProgramSettings SettingsDialog::GetSettings()
{
    m_fields.StoreFields(kIso);
    return {m_values.At(kLanguage).GetStringValue(),
            m_values.At(kUnitSystem).GetStdStringValue(),
            m_values.At(kDensity).GetStdStringValue(),
            m_values.At(kAutosave).GetLongValue(),
            m_values.At(kDatabase).GetStdStringValue(),
            m_values.At(kBalanceRule).GetStdStringValue(),
            m_limits};
}

}  // namespace app
