// SPDX-License-Identifier: MIT
#include "app/frame/settings_dialog.h"

#include "app/frame/unit_system_name.h"
#include "app/language/language.h"
#include "gui_base/dialogs/dialog_buttons.h"
#include "gui_base/input/controls/tv_searchctrl.h"
#include "gui_base/input/controls/tv_validated_textctrl.h"
#include "gui_base/input/panel/advanced_input_options.h"
#include "gui_base/input/validation/validator.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"
#include "projectbase/units/unit_system_manager.h"

#include <wx/stattext.h>

namespace app {
namespace {

constexpr double kMostMinutes = 240.0;

wxString Tr(const char* source)
{
    return i18n::Translated(source);
}

tvChoice* NewChoice(wxWindow* parent, const std::vector<wxString>& labels, std::size_t selected)
{
    tvChoice::Items items;
    for (const wxString& label : labels)
        items.emplace_back(static_cast<long>(items.size()), label);
    auto* choice = new tvChoice(items, nullptr, parent, wxID_ANY);
    choice->SetDefault(static_cast<long>(selected));
    return choice;
}

wxFlexGridSizer* NewGrid(wxWindow* window)
{
    auto* grid = new wxFlexGridSizer(2, window->FromDIP(wxSize(12, 8)));
    grid->AddGrowableCol(1);
    return grid;
}

template <typename Texts, typename Text>
std::size_t IndexOf(const Texts& texts, const Text& text)
{
    const auto found = std::find(texts.begin(), texts.end(), text);
    return found == texts.end() ? 0 : static_cast<std::size_t>(found - texts.begin());
}

}  // namespace

SettingsDialog::SettingsDialog(wxWindow* parent, const ProgramSettings& settings)
    : wxDialog(parent, wxID_ANY, Tr("Settings"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER)
{
    m_autosave.SetValue(settings.autosaveMinutes);
    m_database.SetValue(settings.database);

    m_search = new TvSearchControl(this, wxID_ANY);
    m_search->SetTranslatableHint(wxTRANSLATE("Search settings"));
    m_search->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { OnSearch(); });
    wxFlexGridSizer* grid = NewGrid(this);

    std::vector<wxString> names;
    for (const Language& language : AvailableLanguages()) {
        m_languages.push_back(language.code);
        names.push_back(language.name);
    }
    m_language = NewChoice(this, names, IndexOf(m_languages, settings.language));
    AddRow(*grid, wxTRANSLATE("Language"), m_language, wxTRANSLATE("Of all texts, also of the messages"));

    std::vector<wxString> unitSystems;
    for (const std::string& unitSystem : UnitSystemManager::GetUnitSystems())
        unitSystems.push_back(UnitSystemName(unitSystem));
    m_unitSystem =
        NewChoice(this, unitSystems, IndexOf(UnitSystemManager::GetUnitSystems(), settings.unitSystem));
    AddRow(*grid, wxTRANSLATE("Unit system"), m_unitSystem,
           wxTRANSLATE("In which values are shown and typed"));

    m_autosaveField = new TvValidatedDoubleTextCtrl({.parent = this,
                                                     .style = wxTE_RIGHT,
                                                     .maxValue = kMostMinutes,
                                                     .format = TvTextCtrlFormat::Fixed,
                                                     .precision = 0,
                                                     .detail = &m_autosave});
    AddRow(*grid, wxTRANSLATE("Minutes between recovery copies"), m_autosaveField,
           wxTRANSLATE("0 to 240; 0 writes no copies"));

    m_advanced = new AdvancedInputOptions(this);
    wxFlexGridSizer* advancedGrid = NewGrid(m_advanced->GetOptions());
    m_advanced->GetOptions()->SetSizer(advancedGrid);
    m_databaseField = new TvValidatedTextCtrl(
        {.parent = m_advanced->GetOptions(), .size = FromDIP(wxSize(360, -1)), .detail = &m_database});
    AddRow(*advancedGrid, wxTRANSLATE("Database of the user"), m_databaseField,
           wxTRANSLATE("Empty for a file of your own; postgresql://... for one that a team shares"));

    auto* outer = new wxBoxSizer(wxVERTICAL);
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, FromDIP(12)).Expand();
    outer->Add(m_search, spaced);
    outer->Add(grid, spaced);
    outer->Add(m_advanced, wxSizerFlags(spaced).Proportion(1));
    outer->Add(dialogs::CreateButtons(*this, true), spaced);
    SetSizerAndFit(outer);
    CentreOnParent();
}

SettingsDialog::~SettingsDialog()
{
    // The fields are bound to details of this object.
    DestroyChildren();
}

void SettingsDialog::AddRow(wxFlexGridSizer& grid, const char* label, wxWindow* control,
                            const char* explanation)
{
    wxWindow* parent = control->GetParent();
    auto* text = new wxStaticText(parent, wxID_ANY, Tr(label));
    auto* hint = new wxStaticText(parent, wxID_ANY, Tr(explanation));
    hint->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
    accessibility::SetName(*control, Tr(label));
    auto* cell = new wxBoxSizer(wxVERTICAL);
    cell->Add(control, wxSizerFlags().Expand());
    cell->Add(hint);
    grid.Add(text, wxSizerFlags().Top().Border(wxTOP, FromDIP(6)));
    grid.Add(cell, wxSizerFlags().Expand());
    m_rows.push_back({{text, control, hint}, (Tr(label) + " " + Tr(explanation)).Lower(), parent != this});
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

ProgramSettings SettingsDialog::GetSettings() const
{
    for (TvTextCtrl* field :
         {static_cast<TvTextCtrl*>(m_autosaveField), static_cast<TvTextCtrl*>(m_databaseField)})
        field->TransferDataFromWindow();
    return {m_languages[static_cast<std::size_t>(std::max(m_language->GetSelection(), 0))],
            UnitSystemManager::GetUnitSystems()[static_cast<std::size_t>(
                std::max(m_unitSystem->GetSelection(), 0))],
            m_autosave.GetLongValue(), m_database.GetStdStringValue()};
}

}  // namespace app
