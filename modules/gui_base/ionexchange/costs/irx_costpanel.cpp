// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/costs/irx_costpanel.h"

#include "gui_base/graphics/chart/chart_export.h"
#include "gui_base/input/controls/flow_sizer.h"
#include "gui_base/input/controls/tv_staticboxsizer.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/form/form_grid.h"
#include "gui_base/input/form/shown_context.h"
#include "gui_base/ionexchange/costs/irx_chemicalcostspanel.h"
#include "gui_base/report/cost_chart.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/text_font.h"
#include "gui_base/support/translation.h"
#include "projectbase/costs/line_costs.h"
#include "projectbase/costs/project_costs.h"
#include "projectbase/whatif/what_if_rows.h"
#include "wxchartdir/wx_chart_viewer.h"

#include <fmt/format.h>
#include <wx/statbox.h>
#include <wx/translation.h>

#include <array>

namespace {

constexpr int kFieldWidth = 110;
constexpr int kChartWidth = 580;
constexpr int kChartHeight = 300;
constexpr int kMoney = PlainNumbers | GroupThousands;

constexpr FormRow Result(const char* key, const char* label)
{
    return {.key = key, .label = label, .field = FormField::Result};
}

/// An amount in the currency to the cent.
constexpr FormRow Money(const char* key, const char* label, FormField field)
{
    return {.key = key,
            .label = label,
            .field = field,
            .precision = 2,
            .format = TvTextCtrlFormat::Fixed,
            .validatorFlags = kMoney};
}

constexpr std::array kSystem{FormRow{.key = "cost/system.capacity", .label = wxTRANSLATE("System capacity")},
                             Result("project/wnetto", wxTRANSLATE("Net capacity")),
                             Result("project/qbrutto", wxTRANSLATE("Gross flow rate")),
                             Result("project/qnetto", wxTRANSLATE("Net flow rate"))};
constexpr std::array kEquipment{
    Money("cost/cc.cost.piping", wxTRANSLATE("Piping"), FormField::Input),
    Money("cost/cc.cost.pumps", wxTRANSLATE("Pumps"), FormField::Input),
    Money("cost/cc.cost.valves", wxTRANSLATE("Valves"), FormField::Input),
    Money("cost/cc.cost.measurement", wxTRANSLATE("Measurement and Controls"), FormField::Input),
    Money("cost/cc.cost.electrics", wxTRANSLATE("Electrics"), FormField::Input),
    Money("cost/cc.cost.vessels", wxTRANSLATE("Filter vessels"), FormField::Input),
    Money("cost/cc.cost.nozzles", wxTRANSLATE("Nozzles"), FormField::Input),
    Money("cost/cc.cost.logistics", wxTRANSLATE("Chemicals and neutralisation logistics"), FormField::Input)};
constexpr std::array kWaterCost{Result("cost/cc.watercost", wxTRANSLATE("Capital cost")),
                                Result("cost/op.watercost", wxTRANSLATE("Operating cost")),
                                Result("cost/system.watercost", wxTRANSLATE("Total water cost"))};
constexpr std::array kProjection{
    Money("cost/cost.system.total", wxTRANSLATE("Total system cost"), FormField::Result),
    FormRow{.key = "cost/cost.plant.life", .label = wxTRANSLATE("Projected plant life")},
    FormRow{.key = "cost/cost.interest.rate", .label = wxTRANSLATE("Interest rate")},
    Money("cost/cost.oper.annual", wxTRANSLATE("Annual operating cost"), FormField::Result),
    FormRow{.key = "cost/cost.oper.escalation", .label = wxTRANSLATE("Operating cost escalation")},
    Money("cost/cost.npv", wxTRANSLATE("Net present value"), FormField::Result)};
constexpr FormRow kUsed{.key = "cost/used", .label = wxTRANSLATE("Include in report")};

std::vector<cost_table::Line> ResinLines()
{
    std::vector<cost_table::Line> lines;
    const auto add = [&lines](const std::string& suffix) {
        lines.push_back({.nameKey = "cost/cc.name." + suffix,
                         .quantityKey = "cost/cc.volume." + suffix,
                         .priceKey = "cost/cc.cost." + suffix});
    };
    for (int n = 1; n <= costs::kResins; ++n)
        add(fmt::format("resin{}", n));
    for (const char* suffix : costs::kInertSuffixes)
        add(suffix);
    return lines;
}

}  // namespace

IRXCostsPanel::IRXCostsPanel() : m_chosen("currency", DetailType::String) {}

IRXCostsPanel::IRXCostsPanel(iex::IEXProject* project, wxWindow* parent, int id, const wxPoint& pos,
                             const wxSize& size, long style, bool isCalculated)
    : IRXCostsPanel()
{
    Create(project, parent, id, pos, size, style, isCalculated);
}

IRXCostsPanel::~IRXCostsPanel() = default;

void IRXCostsPanel::Create(iex::IEXProject* project, wxWindow* parent, int id, const wxPoint& pos,
                           const wxSize& size, long style, bool isCalculated)
{
    m_isCalculated = isCalculated;
    CreateWindow(project, project->GetDetails(), parent, id, pos, size, style, wxASCII_STR(wxPanelNameStr));
    ModulePanelBase::Create();
    // Controls know their size for good when they are shown.
    CallAfter([this] { UpdateUnits(false); });
}

void IRXCostsPanel::Prepare()
{
    CostFormPanel::Prepare();
    UpdateCurrencyConversionInfo(false);
    if (m_isCalculated)
        CalculateCost();
}

void IRXCostsPanel::CalculateCost()
{
    if (!Plant().IsReadyToCalculate())
        return;
    Plant().CalculateDesign();
    if (GetProjectStatus() >= StatusDesigned)
        Plant().ResetStatus(StatusCosts);
    TransferDetailsToWindow();
    Plant().SetChanged(false);
}

// What stands where

void IRXCostsPanel::AddSection(const char* title, std::initializer_list<wxSizer*> boxes)
{
    const int gap = FromDIP(form::kGap);
    TvStaticText* head = GetFields().AddLabel(this, title);
    text_font::Set(*head, head->GetFont().Bold().Larger());
    GetSizer()->Add(head, wxSizerFlags().Border(wxLEFT | wxTOP, 2 * gap));
    auto* line = new FlowSizer;
    for (wxSizer* box : boxes)
        line->Add(box, wxSizerFlags().Expand().Border(wxALL, gap));
    GetSizer()->Add(line);
}

wxSizer* IRXCostsPanel::MakeBox(const char* title, Rows rows)
{
    auto* box = AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, this, title));
    auto* grid = NewGrid();
    GetFields().AddRows(box->GetStaticBox(), *grid, rows);
    box->Add(grid, wxSizerFlags().Border(wxALL, FromDIP(form::kGap)));
    return box;
}

wxSizer* IRXCostsPanel::MakeResins()
{
    constexpr std::array kCost{cost_table::Result{wxTRANSLATE("Cost"), "EUR"}};
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, FromDIP(form::kGap));
    auto* box = AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, this, wxTRANSLATE("Resins")));
    m_resins = &AddTable(box->GetStaticBox(), wxTRANSLATE("Volume"), ResinLines(), kCost);
    box->Add(m_resins->GetSizer(), spaced);
    m_resinNote = new wxStaticText(box->GetStaticBox(), wxID_ANY, wxString());
    box->Add(m_resinNote, spaced);
    return box;
}

wxSizer* IRXCostsPanel::MakeCosts()
{
    const int gap = FromDIP(form::kGap);
    // Apart from the chart beside them, which is higher.
    auto* figures = new FlowSizer(2 * gap);
    figures->Add(MakeBox(wxTRANSLATE("Cost projection"), kProjection), wxSizerFlags().Expand());
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(MakeBox(wxTRANSLATE("Product water cost"), kWaterCost), wxSizerFlags().Expand());
    column->Add(GetFields().CreateField(this, kUsed), wxSizerFlags().Border(wxALL, gap));
    figures->Add(column, wxSizerFlags().Expand());
    return figures;
}

wxSizer* IRXCostsPanel::MakeChart()
{
    constexpr double kScale = 2.0;
    auto* column = new wxBoxSizer(wxVERTICAL);
    m_chart = new wxChartViewer(this, wxID_ANY);
    m_chart->SetMinSize(FromDIP(wxSize(kChartWidth, kChartHeight)));
    column->Add(m_chart);
    auto* copy = AddLocalizable(new TvButton(this, wxID_ANY, wxTRANSLATE("Copy Chart")));
    copy->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { chart_export::Copy(m_chart->GetPicture(kScale)); });
    column->Add(copy, wxSizerFlags().Border(wxTOP, FromDIP(form::kGap)));
    m_charted.clear();
    m_chartedTexts.clear();
    return column;
}

void IRXCostsPanel::ShowChart()
{
    const ReportContext context = ShownContext(GetCurrentDisplayUnitSystem());
    // Language and currency.
    const wxString texts = wxString::FromUTF8(context.Translated(wxTRANSLATE("Year")) + GetCurrency().code +
                                              context.separators.decimal);
    std::vector<double> values{GetCurrency().factor};
    for (const costs::YearOfCosts& year : costs::YearsOf(Plant()))
        values.insert(values.end(), {year.cost, year.discounted});
    if (values == m_charted && texts == m_chartedTexts)
        return;
    m_charted = std::move(values);
    m_chartedTexts = texts;
    m_chart->SetChart(cost_chart::Make(Plant(), context, GetCurrency()));
    accessibility::SetName(*m_chart, i18n::Translated("Operating cost of each year"));
}

void IRXCostsPanel::DoCreateForm()
{
    GetFields().SetLabelSuffix(":");
    GetFields().SetFieldWidth(kFieldWidth);
    SetSizer(new wxBoxSizer(wxVERTICAL));
    AddSection(wxTRANSLATE("Cost parameters"),
               {MakeBox(wxTRANSLATE("Designed system (Single line)"), kSystem), MakeCurrency()});
    AddSection(wxTRANSLATE("Cost components"), {MakeResins(), MakeBox(wxTRANSLATE("Equipment"), kEquipment)});
    AddSection(wxTRANSLATE("Regeneration"), {});
    m_chemicals = new IRXChemicalCostsPanel(&Plant(), this);
    GetSizer()->Add(m_chemicals);
    AddSection(wxTRANSLATE("Costs"), {MakeCosts(), MakeChart()});
}

// What it shows

void IRXCostsPanel::DoSetResults()
{
    m_resins->SetResults([costs = costs::CapitalCosts(Plant())](const std::string& price) {
        return std::vector{costs.at(price)};
    });
}

void IRXCostsPanel::ShowNote(wxStaticText& note, const wxString& text)
{
    if (text == note.GetLabelText() && note.IsShown() != text.empty())
        return;
    note.SetLabelText(text);
    note.Show(!text.empty());
    FitAndLayout();
}

void IRXCostsPanel::ShowResinNote()
{
    const int count = costs::CountResinsWithoutLine(Plant());
    const wxString text =
        count > 0 ? wxString::Format(i18n::Translated("Resins that are not counted: %d"), count) : wxString();
    ShowNote(*m_resinNote, text);
}

void IRXCostsPanel::DoTransferDetailsToWindows()
{
    CostFormPanel::DoTransferDetailsToWindows();
    ShowResinNote();
    ShowChart();
}

void IRXCostsPanel::TransferDetailsToWindow()
{
    CostFormPanel::TransferDetailsToWindow();
    m_chemicals->TransferDetailsToWindow();
}

void IRXCostsPanel::UpdateUnits(bool transferValues)
{
    CostFormPanel::UpdateUnits(transferValues);
    UpdateCurrencyLabels();
}

void IRXCostsPanel::Localize(const std::string& unitSystem)
{
    CostFormPanel::Localize(unitSystem);
    UpdateCurrencyConversionInfo(false);
}

void IRXCostsPanel::DoLocalize()
{
    CostFormPanel::DoLocalize();
    ShowResinNote();
    ShowChart();
    m_chemicals->Localize(GetCurrentDisplayUnitSystem());
    LoadCurrencies();
}

void IRXCostsPanel::DoUpdateUnits()
{
    CostFormPanel::DoUpdateUnits();
    m_chemicals->UpdateUnits(true);
}

bool IRXCostsPanel::DoHasWhatIf()
{
    return whatif::HasRows(*GetProject());
}

TvTextCtrl* IRXCostsPanel::FindField(const std::string& key) const
{
    TvTextCtrl* field = GetFields().FindField(key);
    return field != nullptr ? field : m_chemicals->FindField(key);
}

bool IRXCostsPanel::FocusDetail(const DetailAddress& address)
{
    return CostFormPanel::FocusDetail(address) || m_chemicals->FocusDetail(address);
}
