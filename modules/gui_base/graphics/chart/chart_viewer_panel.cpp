// SPDX-License-Identifier: MIT
#include "gui_base/graphics/chart/chart_viewer_panel.h"

#include "gui_base/graphics/chart/chart_export.h"
#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/controls/tv_staticboxsizer.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/controls/wheel.h"
#include "gui_base/input/events.h"
#include "gui_base/input/form/form_grid.h"
#include "gui_base/input/validation/double_validator.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"
#include "tncommon/data_dir.h"

#include <wx/log.h>
#include <wx/settings.h>
#include <wx/statbox.h>
#include <wx/translation.h>

#include <limits>

wxDEFINE_EVENT(tvCHART_SELECTION_EVENT, wxCommandEvent);

namespace {

constexpr int kFieldWidth = 88;
constexpr int kChoiceWidth = 220;
constexpr int kDigits = 4;
constexpr int kScrollStep = 60;
constexpr double kFastest = 1000.0;
constexpr double kEmpty = std::numeric_limits<double>::quiet_NaN();
constexpr int kLeastChartWidth = 260;
constexpr int kLeastChartHeight = 220;

/// Of an image of the application; the name begins with a slash.
std::filesystem::path ImagePath(const char* name)
{
    return tncommon::DataDir().string() + "/images" + name;
}

}  // namespace

template <typename Control>
Control* ChartViewerPanel::AddLocalizable(Control* control)
{
    m_localizables.push_back(MakeLocalizable(control));
    return control;
}

ChartViewerPanel::ChartViewerPanel(const Choices& diagramTypes, const Choices& media, const Choices& resins,
                                   wxWindow* parent, int id, const wxPoint& pos, const wxSize& size,
                                   long style)
    : wxScrolled<wxPanel>(parent, id, pos, size, style)
{
    SetScrollRate(1, 1);
    LoadLogos();
    CreateControls(diagramTypes, media, resins);
    // What the fields say stays here: a commit is told as a selection.
    Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent& event) {
        const bool isRange = event.GetEventObject() == m_startField || event.GetEventObject() == m_endField;
        Tell(isRange ? ChartSelection::Range : ChartSelection::Parameter);
    });
    DoUseViscosityAndTemperaturePanel();
    TransferDataToWindow();
}

void ChartViewerPanel::LoadLogos()
{
    m_tarnvikLogo = std::make_shared<chartdir::DrawArea>();
    m_morvaneLogo = std::make_shared<chartdir::DrawArea>();
    // Without them charts have no marks.
    m_tarnvikLogo->loadPNG(ImagePath("/tarnvik-logo.png"));
    m_morvaneLogo->loadPNG(ImagePath("/morvane-logo.png"));
}

void ChartViewerPanel::CreateControls(const Choices& diagramTypes, const Choices& media,
                                      const Choices& resins)
{
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, FromDIP(form::kGap)).Expand();
    auto* outer = new wxBoxSizer(wxHORIZONTAL);
    // No box: one never becomes smaller than what it has held.
    auto* chart = new wxBoxSizer(wxVERTICAL);
    chart->Add(AddLocalizable(new TvStaticText(this, wxID_ANY, wxTRANSLATE("Chart"))),
               wxSizerFlags().Border(wxBOTTOM, FromDIP(form::kGap)));
    m_viewer = new wxChartViewer(this, wxID_ANY);
    m_viewer->SetMinSize(FromDIP(wxSize(kLeastChartWidth, kLeastChartHeight)));
    m_named.emplace_back(m_viewer, wxTRANSLATE("Chart"));
    chart->Add(m_viewer, wxSizerFlags(1).Expand());
    outer->Add(chart, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(form::kGap)));
    // The inputs scroll beside the chart, which stays in view.
    m_inputs =
        new wxScrolledWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxVSCROLL);
    m_inputs->SetScrollRate(0, FromDIP(kScrollStep));
    // Before those around it, which would scroll the page.
    m_inputs->Bind(wxEVT_MOUSEWHEEL, &ChartViewerPanel::OnWheelOverInputs, this);
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(CreateSelection(diagramTypes, media, resins), spaced);
    column->Add(CreateRange(), spaced);
    column->Add(CreateParameter(), spaced);
    column->Add(CreateExport(), spaced);
    m_inputs->SetSizer(column);
    outer->Add(m_inputs, wxSizerFlags().Expand());
    SetSizer(outer);
    UpdateNames();
}

tvChoice* ChartViewerPanel::AddChoice(wxWindow* parent, wxSizer& grid, const wxString& label,
                                      const Choices& items, ChartSelection selection)
{
    grid.Add(AddLocalizable(new TvStaticText(parent, wxID_ANY, label)));
    // Long names of resins do not widen the page.
    auto* choice = AddLocalizable(
        new tvChoice(items, nullptr, parent, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(kChoiceWidth, -1))));
    if (!items.empty())
        choice->SetSelection(0);
    choice->Bind(tvCHANGE_EVENT, [this, selection](wxCommandEvent&) { Tell(selection); });
    choice->Bind(wxEVT_MOUSEWHEEL, [this, choice](wxMouseEvent& event) {
        wheel::ScrollParentUnlessFocused(*choice, event, m_inputs);
    });
    m_named.emplace_back(choice, label);
    grid.Add(choice, wxSizerFlags().Expand());
    return choice;
}

wxSizer* ChartViewerPanel::CreateSelection(const Choices& diagramTypes, const Choices& media,
                                           const Choices& resins)
{
    auto* box = AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, m_inputs, wxTRANSLATE("Selection")));
    auto* grid = new wxBoxSizer(wxVERTICAL);
    wxWindow* parent = box->GetStaticBox();
    m_diagramType =
        AddChoice(parent, *grid, wxTRANSLATE("Diagram Type"), diagramTypes, ChartSelection::DiagramType);
    m_medium = AddChoice(parent, *grid, wxTRANSLATE("Medium"), media, ChartSelection::Medium);
    m_resin = AddChoice(parent, *grid, wxTRANSLATE("Resin"), resins, ChartSelection::Resin);
    box->Add(grid, wxSizerFlags().Expand().Border(wxALL, FromDIP(form::kGap)));
    return box;
}

TvTextCtrl* ChartViewerPanel::AddRangeField(wxWindow* parent, wxSizer& grid, const wxString& label,
                                            double* value)
{
    grid.Add(AddLocalizable(new TvStaticText(parent, wxID_ANY, label)), wxSizerFlags().CentreVertical());
    auto* field =
        new TvTextCtrl(parent, wxID_ANY, {}, wxDefaultPosition, FromDIP(wxSize(kFieldWidth, -1)), wxTE_RIGHT);
    field->SetValidator(DoubleValidator(value, TvTextCtrlFormat::General, kDigits, CheckMin | CheckMax, 0.0,
                                        kFastest, kEmpty));
    m_named.emplace_back(field, label);
    grid.Add(field, wxSizerFlags().CentreVertical());
    return field;
}

wxSizer* ChartViewerPanel::CreateRange()
{
    auto* box = AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, m_inputs, wxTRANSLATE("Abscissa range")));
    auto* grid = form::NewGrid(*this);
    wxWindow* parent = box->GetStaticBox();
    m_startField = AddRangeField(parent, *grid, wxTRANSLATE("Start value:"), &m_start);
    grid->Add(m_startUnit = new wxStaticText(parent, wxID_ANY, {}), wxSizerFlags().CentreVertical());
    m_endField = AddRangeField(parent, *grid, wxTRANSLATE("End value:"), &m_end);
    grid->Add(m_endUnit = new wxStaticText(parent, wxID_ANY, {}), wxSizerFlags().CentreVertical());
    box->Add(grid, wxSizerFlags().Border(wxALL, FromDIP(form::kGap)));
    return box;
}

wxSizer* ChartViewerPanel::CreateParameter()
{
    auto* box = AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, m_inputs, wxTRANSLATE("Parameter")));
    m_temperatures = new ChartViewerNonWaterParameterPdPanel(box->GetStaticBox());
    m_viscosities = new ChartViewerWaterParameterPdPanel(box->GetStaticBox());
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, FromDIP(form::kGap));
    box->Add(m_temperatures, spaced);
    box->Add(m_viscosities, spaced);
    return box;
}

wxSizer* ChartViewerPanel::CreateExport()
{
    auto* box = AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, m_inputs, wxTRANSLATE("Export")));
    wxWindow* parent = box->GetStaticBox();
    auto* file = AddLocalizable(new TvButton(parent, wxID_ANY, wxTRANSLATE("Export Chart")));
    file->SetTranslatableToolTip(wxTRANSLATE("Writes the chart to a file"));
    file->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { OnExport(); });
    auto* copy = AddLocalizable(new TvButton(parent, wxID_ANY, wxTRANSLATE("Copy Chart")));
    copy->SetTranslatableToolTip(wxTRANSLATE("Puts the chart on the clipboard as a picture"));
    copy->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { OnCopy(); });
    for (TvButton* button : {file, copy})
        box->Add(button, wxSizerFlags().Expand().Border(wxALL, FromDIP(form::kGap)));
    return box;
}

void ChartViewerPanel::UpdateNames()
{
    for (const auto& [window, label] : m_named) {
        const wxString text = i18n::Translated(label);
        if (window == m_startField || window == m_endField)
            (window == m_startField ? m_startField : m_endField)
                ->SetNameAndUnit(i18n::WithoutColon(text), m_rangeUnit);
        else
            accessibility::SetName(*window, text);
    }
}

void ChartViewerPanel::Localize(const std::string& unitSystem)
{
    for (const auto& holder : m_localizables)
        holder->Localize(unitSystem);
    m_temperatures->Localize();
    m_viscosities->Localize();
    UpdateNames();
    FitInputs();
}

void ChartViewerPanel::FitInputs()
{
    // As wide as the inputs and a bar that scrolls them; the height is what there is.
    const int bar = std::max(wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, m_inputs), 0);
    m_inputs->SetMinSize(wxSize(m_inputs->GetSizer()->CalcMin().x + bar, FromDIP(kLeastChartHeight)));
    m_inputs->FitInside();
    FitInside();
    Layout();
    m_inputs->Layout();
}

void ChartViewerPanel::OnWheelOverInputs(wxMouseEvent& event)
{
    if (event.GetWheelAxis() != wxMOUSE_WHEEL_VERTICAL || event.GetWheelDelta() == 0) {
        event.Skip();
        return;
    }
    // Fine wheels turn by parts of a step.
    m_wheelTurn += event.GetWheelRotation();
    const int steps = m_wheelTurn / event.GetWheelDelta();
    m_wheelTurn -= steps * event.GetWheelDelta();
    m_inputs->Scroll(wxDefaultCoord, std::max(0, m_inputs->GetViewStart().y - steps));
}

void ChartViewerPanel::Tell(ChartSelection selection)
{
    wxCommandEvent event(tvCHART_SELECTION_EVENT, GetId());
    event.SetEventObject(this);
    event.SetInt(static_cast<int>(selection));
    ProcessWindowEventLocally(event);
}

DIAGRAM_TYPE ChartViewerPanel::DoGetDiagramTypeSelection() const
{
    return static_cast<DIAGRAM_TYPE>(m_diagramType->GetID());
}

MEDIUM ChartViewerPanel::DoGetMediumSelection() const
{
    return static_cast<MEDIUM>(m_medium->GetID());
}

void ChartViewerPanel::DoSetMediumSelection(MEDIUM medium) const
{
    m_medium->SetDefault(static_cast<long>(medium));
}

void ChartViewerPanel::DoEnableMediumSelection(bool isEnabled) const
{
    m_medium->Enable(isEnabled);
}

std::string ChartViewerPanel::DoGetResinSelection() const
{
    return m_resin->GetStringUnlocalized().utf8_string();
}

void ChartViewerPanel::DoSetStartValue(double value)
{
    // What is just being typed stays.
    if (m_start == value && !m_startField->IsEmpty())
        return;
    m_start = value;
    m_startField->TransferDataToWindow();
}

void ChartViewerPanel::DoSetEndValue(double value)
{
    if (m_end == value && !m_endField->IsEmpty())
        return;
    m_end = value;
    m_endField->TransferDataToWindow();
}

void ChartViewerPanel::DoUpdateRangeUnit(const wxString& unit)
{
    m_rangeUnit = unit;
    m_startUnit->SetLabel(unit);
    m_endUnit->SetLabel(unit);
    UpdateNames();
    FitInputs();
}

ChartViewerPanel::SetParameters ChartViewerPanel::DoGetSetParameter() const
{
    return m_parameters->GetSetParameter();
}

void ChartViewerPanel::DoUpdateSetLabels(const wxString& label) const
{
    m_temperatures->UpdateSetLabels(label);
    m_viscosities->UpdateSetLabels(label);
}

void ChartViewerPanel::DoUpdateSetUnits(const wxString& unit) const
{
    m_temperatures->UpdateSetUnits(unit);
    m_viscosities->UpdateSetUnits(unit);
}

void ChartViewerPanel::UseParameterPanel(ChartViewerParameterPanel& used)
{
    if (m_parameters == &used)
        return;
    m_parameters = &used;
    m_temperatures->Show(&used == m_temperatures);
    m_viscosities->Show(&used == m_viscosities);
    FitInputs();
}

void ChartViewerPanel::DoUseTemperaturePanel()
{
    UseParameterPanel(*m_temperatures);
}

void ChartViewerPanel::DoUseViscosityAndTemperaturePanel()
{
    UseParameterPanel(*m_viscosities);
}

void ChartViewerPanel::DoShowChart(std::shared_ptr<chartdir::XYChart> chart, bool keepsView)
{
    if (chart) {
        chart->addDrawArea(m_tarnvikLogo);
        chart->addDrawArea(m_morvaneLogo);
    }
    m_viewer->SetChart(std::move(chart), keepsView);
}

void ChartViewerPanel::DoShowErrorMessage(const std::string& message) const
{
    wxLogError("%s", wxString::FromUTF8(message));
}

std::vector<TvTextCtrl*> ChartViewerPanel::GetFields() const
{
    std::vector<TvTextCtrl*> fields{m_startField, m_endField};
    for (const ChartViewerParameterPanel* panel : {static_cast<ChartViewerParameterPanel*>(m_temperatures),
                                                   static_cast<ChartViewerParameterPanel*>(m_viscosities)}) {
        for (TvTextCtrl* field : panel->GetFields())
            fields.push_back(field);
    }
    return fields;
}

void ChartViewerPanel::OnExport()
{
    if (m_viewer->GetChart())
        chart_export::AskAndWrite(*this, *m_viewer->GetChart());
}

void ChartViewerPanel::OnCopy()
{
    constexpr double kScale = 2.0;
    chart_export::Copy(m_viewer->GetPicture(kScale));
}
