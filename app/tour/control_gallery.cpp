// SPDX-License-Identifier: MIT
#include "app/tour/control_gallery.h"

#include "gui_base/dialogs/tv_gridcellchoiceeditor.h"
#include "gui_base/input/combinations/auto_combobox_combination.h"
#include "gui_base/input/combinations/choice_combination.h"
#include "gui_base/input/combinations/combo_combination.h"
#include "gui_base/input/combinations/country_place_combination.h"
#include "gui_base/input/combinations/dynamic_limit_ion_input.h"
#include "gui_base/input/combinations/input_combination_named_ion.h"
#include "gui_base/input/combinations/input_combination_unit_choice.h"
#include "gui_base/input/controls/check_tree.h"
#include "gui_base/input/controls/tv_bitmapbutton.h"
#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/controls/tv_datepickerctrl.h"
#include "gui_base/input/controls/tv_double_slider.h"
#include "gui_base/input/controls/tv_enablinggroup.h"
#include "gui_base/input/controls/tv_notebook.h"
#include "gui_base/input/controls/tv_optioncheckbox.h"
#include "gui_base/input/controls/tv_radiobutton.h"
#include "gui_base/input/controls/tv_searchctrl.h"
#include "gui_base/input/controls/tv_staticboxsizer.h"
#include "gui_base/input/controls/tv_statusbar.h"
#include "gui_base/input/controls/tv_unitlabel.h"
#include "gui_base/input/panel/advanced_input_options.h"
#include "gui_base/input/validation/double_validator.h"
#include "gui_base/support/image_loader.h"

#include <wx/grid.h>

namespace app {
namespace {

constexpr unsigned operator|(SpecimenState a, SpecimenState b)
{
    return static_cast<unsigned>(a) | static_cast<unsigned>(b);
}
constexpr unsigned operator|(unsigned a, SpecimenState b)
{
    return a | static_cast<unsigned>(b);
}

constexpr unsigned kShown = static_cast<unsigned>(SpecimenState::Normal);
constexpr unsigned kControl = SpecimenState::Normal | SpecimenState::Disabled | SpecimenState::Focused;
constexpr unsigned kText = kControl | SpecimenState::ReadOnly;
constexpr unsigned kNumber = kText | SpecimenState::Below | SpecimenState::Above;
constexpr unsigned kLimited = kControl | SpecimenState::Below | SpecimenState::Above;

constexpr double kMin = 1.0;
constexpr double kMax = 10.0;

const tvAutoComboBox::Entries kCountries{{"at", "Austria"}, {"de", "Germany"}, {"gr", "Greece"}};
const tvChoice::Items kPlacesOfFlow{{1, "Co-current"}, {2, "Counter-current"}};
const std::vector<wxString> kIonUnits{"meq/l", "mg/l", "ppm"};

bool IsReadOnly(const Specimen& specimen)
{
    return specimen.GetState() == SpecimenState::ReadOnly;
}

void BuildTextField(Specimen& specimen)
{
    auto* field = specimen.Add(new TvTextCtrl(specimen.GetParent(), wxID_ANY, "Well 3", wxDefaultPosition,
                                              wxSize(120, -1), IsReadOnly(specimen) ? wxTE_READONLY : 0));
    auto* empty = specimen.Add(new TvTextCtrl(specimen.GetParent(), wxID_ANY, wxString(), wxDefaultPosition,
                                              wxSize(120, -1), IsReadOnly(specimen) ? wxTE_READONLY : 0));
    empty->SetHint("Place");
    field->SetInsertionPointEnd();
}

void BuildNumberField(Specimen& specimen)
{
    auto* field = specimen.Add(new TvValidatedDoubleTextCtrl(
        {.parent = specimen.GetParent(),
         .size = wxSize(80, -1),
         .style = wxTE_RIGHT | (IsReadOnly(specimen) ? static_cast<long>(wxTE_READONLY) : 0),
         .precision = 4,
         .validatorFlags = CheckMin | CheckMax,
         .detail = specimen.NewNumber("flow", "m3/h")}));
    field->SetHint("Flow");
    specimen.Add(new TvUnitLabel(specimen.GetParent(), "m3/h", true, true));
}

void BuildNamedText(Specimen& specimen)
{
    specimen.Add(new TvValidatedTextCtrl({.parent = specimen.GetParent(),
                                          .size = wxSize(120, -1),
                                          .style = IsReadOnly(specimen) ? wxTE_READONLY : 0,
                                          .detail = specimen.NewText("place", "Harbour")}));
}

void BuildLabels(Specimen& specimen)
{
    specimen.Add(new TvStaticText(specimen.GetParent(), wxID_ANY, "Temperature", ":"));
    specimen.Add(new TvUnitLabel(specimen.GetParent(), wxString::FromUTF8("°C"), true, true));
}

void BuildButtons(Specimen& specimen)
{
    wxWindow* parent = specimen.GetParent();
    auto* button = specimen.Add(new TvButton(parent, wxID_ANY, "Water library"));
    specimen.Add(new TvBitmapButton(
        parent, wxID_ANY, ImageLoader::LoadBundle("icons/search.png", parent->FromDIP(wxSize(16, 16))),
        button));
}

void BuildCheckBoxes(Specimen& specimen)
{
    wxWindow* parent = specimen.GetParent();
    auto* box = specimen.Add(new TvCheckBox(parent, wxID_ANY, "Automatic balancing"));
    box->SetValue(true);
    specimen.Add(new TvCheckBox(parent, wxID_ANY, "Include H+ and OH-"));
}

void BuildOptionBoxes(Specimen& specimen)
{
    static TvOption chosen{.label = "Degasifier", .checked = true};
    static TvOption unavailable{.label = "Not for this process", .available = false};
    wxWindow* parent = specimen.GetParent();
    specimen.Add(new TvOptionCheckBox(parent, wxID_ANY, chosen));
    specimen.Add(new TvOptionCheckBox(parent, wxID_ANY, unavailable));
    specimen.Add(new TvProcessOptionCheckBox(parent, wxID_ANY, {.id = 7, .name = "Split regeneration"},
                                             specimen.NewText("options", "3 7")));
}

void BuildRadioButtons(Specimen& specimen)
{
    specimen.Add(new TvRadioButton(specimen.GetParent(), wxID_ANY, "Full analysis", wxDefaultPosition,
                                   wxDefaultSize, wxRB_GROUP));
    specimen.Add(new TvRadioButton(specimen.GetParent(), wxID_ANY, "Short analysis"));
}

void BuildEnablingGroup(Specimen& specimen)
{
    wxWindow* parent = specimen.GetParent();
    auto* box = specimen.Add(new TvCheckBox(parent, wxID_ANY, "Degasifier"));
    auto* field = specimen.Add(new TvTextCtrl(parent, wxID_ANY, "5", wxDefaultPosition, wxSize(60, -1)));
    // The group is needed only to give the field its state.
    TvEnablingGroup group;
    group.Add(field);
    group.Enable(box->GetValue());
}

void BuildSearch(Specimen& specimen)
{
    auto* search = specimen.Add(
        new TvSearchControl(specimen.GetParent(), wxID_ANY, wxString(), wxDefaultPosition, wxSize(200, -1)));
    search->SetTranslatableHint("Search settings");
}

void BuildChoices(Specimen& specimen)
{
    auto* choice = specimen.Add(new tvChoice(kPlacesOfFlow, nullptr, specimen.GetParent(), wxID_ANY));
    choice->SetDefault(2);
    auto* adv = specimen.Add(
        new tvChoiceAdv({{"a", "Strong"}, {"b", "Weak"}}, nullptr, specimen.GetParent(), wxID_ANY));
    adv->SelectKey("a");
    specimen.Add(
        new tvUnitChoice(kIonUnits, specimen.NewText("unit", "mg/l"), specimen.GetParent(), wxID_ANY));
}

void BuildDate(Specimen& specimen)
{
    DetailData* date = specimen.NewDetail("sampling", DetailType::Date);
    date->SetValue(wxDateTime(24, wxDateTime::Mar, 2020));
    specimen.Add(new TvDatePickerCtrl(specimen.GetParent(), wxID_ANY, date));
}

void BuildSlider(Specimen& specimen)
{
    specimen.Add(new TvDoubleSlider(specimen.GetParent(), wxID_ANY, 2, 125, 0, 500, wxDefaultPosition,
                                    wxSize(260, -1),
                                    wxSL_HORIZONTAL | wxSL_MIN_MAX_LABELS | wxSL_VALUE_LABEL));
}

void BuildAutoComboBox(Specimen& specimen)
{
    auto* box = specimen.Add(new tvAutoComboBox(kCountries, specimen.GetParent(), wxID_ANY));
    box->SetDefault("de");
}

void BuildCheckTree(Specimen& specimen)
{
    auto* tree = specimen.Add(
        new wxCheckTreeCtrl(specimen.GetParent(), wxID_ANY, wxDefaultPosition, wxSize(240, 150)));
    const wxTreeItemId root = tree->AddRoot("Report", wxCKTR_PARTIAL);
    const wxTreeItemId analysis = tree->AppendItem(root, "Water analysis", true);
    tree->AppendItem(root, "Costs", false);
    tree->AppendItem(analysis, "No box");
    tree->ExpandAll();
    tree->SelectItem(analysis);
}

void BuildNotebook(Specimen& specimen)
{
    auto* book =
        specimen.Add(new TvNotebook(specimen.GetParent(), wxID_ANY, wxDefaultPosition, wxSize(260, 80)));
    book->AddPage(new wxPanel(book), "Feed");
    book->AddPage(new wxPanel(book), "Effluent");
}

void BuildBoxWithOptions(Specimen& specimen)
{
    wxWindow* parent = specimen.GetParent();
    auto* box = new TvStaticBoxSizer(wxVERTICAL, parent, "Automatic balancing");
    auto* section = new AdvancedInputOptions(box->GetStaticBox());
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(new TvCheckBox(section->GetOptions(), wxID_ANY, "Include H+ and OH-"));
    section->GetOptions()->SetSizer(content);
    box->Add(section, wxSizerFlags().Expand().Border());
    specimen.GetSizer().Add(box);
    specimen.SetFocusWindow(section);
    section->SetOpen(true);
}

void BuildStatusBar(Specimen& specimen)
{
    auto* bar = specimen.Add(new TvStatusBar(specimen.GetParent()));
    bar->SetFieldsCount(3);
    bar->SetStatusText("Min: 1 m3/h", 0);
    bar->SetStatusText("Max: 10 m3/h", 1);
    bar->SetStatusText("Value: 5.25 m3/h", 2);
    bar->SetMinSize(wxSize(560, bar->GetBestSize().y));
}

void BuildGrid(Specimen& specimen)
{
    auto* grid = specimen.Add(new wxGrid(specimen.GetParent(), wxID_ANY));
    grid->CreateGrid(2, 2);
    grid->SetColLabelValue(0, "Step");
    grid->SetColLabelValue(1, "Flow");
    grid->SetCellValue(0, 0, "Backwash");
    grid->SetCellValue(1, 0, "Regeneration");
    grid->SetCellEditor(0, 1, new TvGridCellChoiceEditor({{"up", "Upward"}, {"down", "Downward"}}, false));
    grid->SetCellValue(0, 1, "Upward");
    grid->AutoSizeColumns();
    // The list of a choice has an arrow beside the longest of its texts.
    constexpr int kListWidth = 120;
    grid->SetColSize(1, grid->FromDIP(kListWidth));
    grid->SetGridCursor(0, 1);
    if (specimen.GetState() == SpecimenState::Focused)
        grid->Bind(wxEVT_SET_FOCUS, [grid](wxFocusEvent& event) {
            event.Skip();
            grid->CallAfter([grid] { grid->EnableCellEditControl(); });
        });
}

void BuildUnitChoiceRow(Specimen& specimen)
{
    const wxSizerFlags spaced = wxSizerFlags().CenterVertical().Border(wxRIGHT, 4);
    auto* row = specimen.Keep(std::make_unique<InputCombinationUnitChoice>(
        specimen.GetParent(), wxID_ANY, "Pressure",
        std::vector<std::pair<long, wxString>>{{1, "bar"}, {2, "psi"}}, specimen.NewNumber(),
        specimen.NewText("unit", "bar"), &specimen.GetSizer(), kMin, kMax, 4, TvTextCtrlFormat::General,
        CheckMin | CheckMax, wxSize(80, -1), wxNullColour, 0, wxNOT_FOUND, wxASCII_STR(wxTextCtrlNameStr),
        spaced, spaced, spaced));
    row->TransferDetailToWindow();
    specimen.SetFocusWindow(row->GetTextCtrl());
}

void BuildIonRow(Specimen& specimen)
{
    auto* row = specimen.Keep(std::make_unique<InputCombinationIonConcentrationCtrl>(
        specimen.GetParent(), wxID_ANY, "Calcium", ":", specimen.NewNumber("liquid/ca.orig"),
        specimen.NewText("liquid/ca.unit", "mg/l"), specimen.NewNumber("liquid/ca.meql"),
        &specimen.GetSizer(), kIonUnits, nullptr, 0.0, kMax));
    row->TransferDetailToWindow();
    specimen.SetFocusWindow(row->GetInput());
}

void BuildNamedIonRow(Specimen& specimen)
{
    auto* row = specimen.Keep(std::make_unique<InputCombinationNamedIonConcentrationCtrl>(
        specimen.GetParent(), wxID_ANY, "Cation 1", ":", specimen.NewText("liquid/cat1.name", "NH4"),
        specimen.NewNumber("liquid/cat1.orig"), specimen.NewText("liquid/cat1.unit", "mg/l"),
        specimen.NewNumber("liquid/cat1.meql"), &specimen.GetSizer(), kIonUnits, nullptr, 0.0, kMax));
    row->TransferDetailToWindow();
    specimen.SetFocusWindow(row->GetNameCtrl());
}

void BuildDynamicLimitRow(Specimen& specimen)
{
    DetailData* limit = specimen.NewNumber("limit", "meq/l");
    limit->SetValue(kMax);
    auto* row = specimen.Keep(std::make_unique<DynamicLimitIonInputCtrl>(
        specimen.GetParent(), wxID_ANY, "Magnesium", ":", specimen.NewNumber("liquid/mg.orig"),
        specimen.NewText("liquid/mg.unit", "meq/l"), specimen.NewNumber("liquid/mg.meql"), limit,
        &specimen.GetSizer(), kIonUnits, nullptr, 0.0, kMax));
    row->TransferDetailToWindow();
    specimen.SetFocusWindow(row->GetInput());
}

void BuildChoiceRows(Specimen& specimen)
{
    auto* byText = specimen.Keep(std::make_unique<ChoiceCombination>(
        specimen.GetParent(), wxID_ANY, "Resin", ":", tvChoiceAdv::Items{{"s", "Strong"}, {"w", "Weak"}},
        specimen.NewText("resin", "w"), &specimen.GetSizer()));
    byText->TransferDetailToWindow();
    specimen.GetSizer().AddSpacer(16);
    auto* byNumber = specimen.Keep(
        std::make_unique<TvChoiceCombination>(specimen.GetParent(), wxID_ANY, "Flow", ":", kPlacesOfFlow,
                                              specimen.NewText("flow", "Co-current"), &specimen.GetSizer()));
    byNumber->TransferDetailToWindow();
    specimen.SetFocusWindow(byText->GetChoice());
}

void BuildCountryRow(Specimen& specimen)
{
    auto* row = specimen.Keep(std::make_unique<CountryPlaceCombination>(
        specimen.GetParent(), wxID_ANY, wxID_ANY, "Country", "Place", ":",
        tvChoiceAdv::Items{{"AT", "Austria"}, {"DE", "Germany"}}, specimen.NewText("country", "DE"),
        specimen.NewText("place", "Harbour")));
    specimen.GetSizer().Add(row->GetSizer());
    row->TransferDetailToWindow();
    specimen.SetFocusWindow(row->GetPlace());
}

void BuildAutoComboRow(Specimen& specimen)
{
    auto* row = specimen.Keep(std::make_unique<tvAutoComboBoxCombination>(
        specimen.GetParent(), wxID_ANY, "Country", ":", kCountries, specimen.NewText("country", "gr"),
        &specimen.GetSizer()));
    specimen.SetFocusWindow(row->GetComboBox());
}

void BuildComboRow(Specimen& specimen)
{
    auto* row = specimen.Keep(std::make_unique<ComboCombination>(specimen.GetParent(), wxID_ANY, "Resin", ":",
                                                                 specimen.NewText("resin", "w"),
                                                                 &specimen.GetSizer(), wxSize(160, -1)));
    row->AppendColumn("Name");
    row->AppendColumn("Flow", wxLIST_FORMAT_RIGHT);
    row->InsertUnit(1, "m3/h");
    row->SetItem(row->InsertItem(-1, "Strong", "s"), 1, 12.5);
    row->SetItem(row->InsertItem(-1, "Weak", "w"), 1, 8.0);
    row->AdjustColumnsWidth();
    row->SetToDetailValue();
    specimen.SetFocusWindow(row->GetCombo());
}

}  // namespace

DetailData* Specimen::NewDetail(const std::string& name, DetailType type)
{
    return &m_details.emplace_back(name, type);
}

DetailData* Specimen::NewNumber(const std::string& name, const std::string& unit)
{
    DetailData& detail = m_details.emplace_back(name, DetailType::Double, unit);
    detail.SetLimits(kMin, kMax, unit);
    detail.SetValue(m_state == SpecimenState::Below ? 0.5 : m_state == SpecimenState::Above ? 25.0 : 5.25);
    return &detail;
}

DetailData* Specimen::NewText(const std::string& name, const std::string& value)
{
    DetailData& detail = m_details.emplace_back(name, DetailType::String);
    detail.SetValue(value);
    return &detail;
}

const std::vector<Exhibit>& ControlExhibits()
{
    static const std::vector<Exhibit> exhibits{
        {"text_field", kText, BuildTextField},
        {"number_field", kNumber, BuildNumberField},
        {"text_of_detail", kText, BuildNamedText},
        {"labels", kShown | SpecimenState::Disabled, BuildLabels},
        {"buttons", kControl, BuildButtons},
        {"check_boxes", kControl, BuildCheckBoxes},
        {"option_boxes", kControl, BuildOptionBoxes},
        {"radio_buttons", kControl, BuildRadioButtons},
        {"enabling_group", kControl, BuildEnablingGroup},
        {"search", kControl, BuildSearch},
        {"choices", kControl, BuildChoices},
        {"date", kControl, BuildDate},
        {"slider", kControl, BuildSlider},
        {"auto_combo_box", kControl, BuildAutoComboBox},
        {"check_tree", kControl, BuildCheckTree},
        {"notebook", kControl, BuildNotebook},
        {"box_with_options", kControl, BuildBoxWithOptions},
        {"status_bar", kShown, BuildStatusBar},
        {"grid_choice_editor", kControl, BuildGrid},
        {"row_unit_choice", kLimited, BuildUnitChoiceRow},
        {"row_ion", kControl, BuildIonRow},
        {"row_named_ion", kControl, BuildNamedIonRow},
        {"row_dynamic_limit", kControl, BuildDynamicLimitRow},
        {"row_choices", kControl, BuildChoiceRows},
        {"row_country_place", kControl, BuildCountryRow},
        {"row_auto_combo_box", kControl, BuildAutoComboRow},
        {"row_combo", kControl, BuildComboRow},
    };
    return exhibits;
}

const char* StateCaption(SpecimenState state)
{
    switch (state) {
        case SpecimenState::Normal:
            return "normal";
        case SpecimenState::ReadOnly:
            return "read-only";
        case SpecimenState::Below:
            return "below the minimum";
        case SpecimenState::Above:
            return "above the maximum";
        case SpecimenState::Disabled:
            return "disabled";
        case SpecimenState::Focused:
            return "with the focus";
    }
    return "";
}

}  // namespace app
