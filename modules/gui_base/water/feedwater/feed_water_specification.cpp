// SPDX-License-Identifier: MIT
#include "gui_base/water/feedwater/feed_water_specification.h"

#include "gui_base/input/controls/tv_staticboxsizer.h"
#include "gui_base/input/events.h"
#include "gui_base/input/validation/double_validator.h"
#include "gui_base/input/validation/integer_validator.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/events.h"
#include "gui_base/support/translation.h"
#include "projectbase/project/project_edit.h"
#include "projectbase/units/unit_system_manager.h"

#include <wx/sizer.h>

#include <cmath>
#include <limits>
#include <stdexcept>

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
constexpr double kLargest = 999999.0;
constexpr double kNoCurrency = 1.0;
constexpr int kDigits = 7;
constexpr int kFieldWidth = 88;
constexpr int kGap = 4;
constexpr int kLimits = CheckMin | CheckMax;
constexpr std::size_t kLines = FeedQuantities::kCount;

struct RowText
{
    const char* key;
    const char* label;  ///< source text
};

constexpr std::array<RowText, FeedWaterSpecification::kRows> kRowTexts{
    RowText{"project/qbrutto", wxTRANSLATE("Source flow rate")},
    RowText{"project/lz", wxTRANSLATE("Running time")},
    RowText{"project/wbrutto", wxTRANSLATE("Water volume")},
    RowText{"project/nlines", wxTRANSLATE("Number of lines")},
};

DetailData& RequireDetail(Project* project, const char* key)
{
    if (project == nullptr)
        throw std::invalid_argument("FeedWaterSpecification::FeedWaterSpecification: a feed needs a project");
    return project->GetDetails().At(key);
}

}  // namespace

FeedWaterSpecification::FeedWaterSpecification(Project* project, int liquid, wxWindow* parent, int id,
                                               const wxPoint& pos, const wxSize& size, long style,
                                               bool flowRateOnly)
    : wxPanel(parent, id, pos, size, style),
      m_project(project),
      m_liquid(liquid),
      m_flowRateOnly(flowRateOnly)
{
    for (std::size_t i = 0; i < kRows; ++i)
        m_rows[i].detail = &RequireDetail(project, kRowTexts[i].key);
    CreateControls();
    SetValidators();
    UpdateUnit(m_project->GetUnitSystemDisplay());
}

FeedWaterSpecification::~FeedWaterSpecification()
{
    // The fields edit variables of this object.
    DestroyChildren();
}

void FeedWaterSpecification::CreateControls()
{
    // Two rows beside each other: the block stands above an analysis that wants the height.
    auto* grid = new wxFlexGridSizer(6, FromDIP(wxSize(2 * kGap, kGap)));
    const wxSizerFlags cell = wxSizerFlags().CentreVertical();
    for (std::size_t i = 0; i < kRows; ++i) {
        Row& row = m_rows[i];
        row.label = new TvStaticText(this, wxID_ANY, kRowTexts[i].label, ":");
        row.field = new TvTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition,
                                   FromDIP(wxSize(kFieldWidth, -1)), wxTE_RIGHT);
        row.unit = new TvUnitLabel(this, wxString::FromUTF8(row.detail->GetUnit()), true, true);
        row.field->Bind(wxEVT_TEXT_ENTER, &FeedWaterSpecification::OnCommit, this);
        for (wxWindow* window : {static_cast<wxWindow*>(row.label), static_cast<wxWindow*>(row.field),
                                 static_cast<wxWindow*>(row.unit)}) {
            window->Show(i == FeedQuantities::Flow || !m_flowRateOnly);
            grid->Add(window, cell);
        }
    }
    SetSizer(grid);
}

void FeedWaterSpecification::SetValidators()
{
    const int flags = TransferToDetail | TransferCountsAsChange;
    for (std::size_t i = 0; i < kLines; ++i) {
        m_rows[i].field->SetValidator(DoubleValidator(&m_values[i], TvTextCtrlFormat::General, kDigits,
                                                      kLimits | ShowPreciseValue, 0.0, kLargest, kUnknown));
        m_transfers.AddTransfer(
            std::make_unique<TransferDetail>(flags, &m_values[i], m_rows[i].field, m_rows[i].detail));
    }
    const DetailData& lines = *m_rows[kLines].detail;
    m_rows[kLines].field->SetValidator(
        IntegerValidator(&m_lines, TvTextCtrlFormat::Fixed, kLimits, std::lround(lines.GetMinValue()),
                         std::lround(lines.GetMaxValue()), std::lround(lines.GetMinValue())));
    m_transfers.AddTransfer(
        std::make_unique<TransferDetail>(flags, &m_lines, m_rows[kLines].field, m_rows[kLines].detail));
}

double FeedWaterSpecification::Known(std::size_t row) const
{
    const double value = m_rows[row].detail->GetDoubleValue();
    return std::isnan(value) ? 0.0 : value;
}

bool FeedWaterSpecification::Check() const
{
    if (Known(FeedQuantities::Flow) == 0.0)
        return false;
    return m_flowRateOnly || Known(FeedQuantities::Time) != 0.0;
}

void FeedWaterSpecification::EnableFlowRate(bool enable)
{
    m_rows[FeedQuantities::Flow].field->Enable(enable);
}

void FeedWaterSpecification::Localize()
{
    const std::string unitSystem = m_project->GetUnitSystemDisplay();
    for (const Row& row : m_rows)
        row.label->Localize(unitSystem);
    UpdateNames();
    Layout();
}

void FeedWaterSpecification::UpdateNames()
{
    const std::string unitSystem = m_project->GetUnitSystemDisplay();
    for (std::size_t i = 0; i < kRows; ++i) {
        const std::string unit = UnitSystemManager::GetUnit(m_rows[i].detail->GetUnit(), unitSystem, true);
        wxString name = i18n::Translated(kRowTexts[i].label);
        if (!unit.empty())
            name += " [" + wxString::FromUTF8(unit) + "]";
        accessibility::SetName(*m_rows[i].field, name);
    }
}

void FeedWaterSpecification::UpdateUnit(const std::string& unitSystem)
{
    for (const Row& row : m_rows)
        row.unit->Localize(unitSystem);
    Localize();
    TransferDetailToWindow();
}

void FeedWaterSpecification::TransferDetailToWindow()
{
    m_transfers.TransferToWindow(wxString::FromUTF8(m_project->GetUnitSystemDisplay()), kNoCurrency);
    for (const Row& row : m_rows)
        row.field->TransferDataToWindow();
    m_transfers.TransferRangeFlags();
}

bool FeedWaterSpecification::TransferDetailsFromWindow()
{
    const ProjectEdit edit(*m_project);
    for (const Row& row : m_rows)
        row.field->TransferDataFromWindow();
    bool changed = false;
    m_transfers.TransferFromWindow(wxString::FromUTF8(m_project->GetUnitSystemDisplay()), changed,
                                   kNoCurrency);
    return changed;
}

void FeedWaterSpecification::OnCommit(wxCommandEvent&)
{
    const bool changed = TransferDetailsFromWindow();
    TransferDetailToWindow();
    if (!changed)
        return;
    events::SendEvent(GetParent(), tvCHANGE_EVENT, GetId(), 0, wxString());
}

void FeedWaterSpecification::SetStatusBar(wxStatusBar* statusBar)
{
    for (const Row& row : m_rows)
        row.field->SetStatusBar(statusBar);
}

TvTextCtrl* FeedWaterSpecification::FindField(const std::string& key) const
{
    for (const Row& row : m_rows) {
        if (row.detail->GetName() == key)
            return row.field;
    }
    return nullptr;
}
