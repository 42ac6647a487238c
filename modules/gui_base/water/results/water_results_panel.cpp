// SPDX-License-Identifier: MIT
#include "gui_base/water/results/water_results_panel.h"

#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/form/shown_context.h"
#include "gui_base/report/balance_text.h"
#include "gui_base/report/water_results.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/results/result_card.h"
#include "projectbase/project/project.h"
#include "projectbase/project/project_edit.h"

#include <wx/sizer.h>

#include <algorithm>

namespace wateranalysis {
namespace {

constexpr int kGap = 4;
constexpr int kTileWidth = 148;
constexpr int kLeastWidth = 240;
constexpr int kScrollStep = 12;

Mood MoodOf(advice::BalanceVerdict verdict)
{
    using advice::BalanceVerdict;
    switch (verdict) {
        case BalanceVerdict::InOrder:
        case BalanceVerdict::Closed:
            return Mood::Good;
        case BalanceVerdict::Doubtful:
            return Mood::Warn;
        case BalanceVerdict::OverLimit:
            return Mood::Bad;
        case BalanceVerdict::NotJudged:
            break;
    }
    return Mood::Plain;
}

wxString Text(const std::string& utf8)
{
    return wxString::FromUTF8(utf8);
}

/// What stands where nothing is known.
wxString OrDash(const std::string& utf8)
{
    return utf8.empty() ? wxString::FromUTF8("\u2013") : Text(utf8);
}

}  // namespace

WaterResultsPanel::WaterResultsPanel(wxWindow* parent, Lead lead)
    : wxScrolled<wxPanel>(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxVSCROLL),
      m_lead(std::move(lead))
{
    const int gap = FromDIP(kGap);
    m_badge = new ResultCard(this);
    m_balance = new TvButton(this, wxID_ANY, wxTRANSLATE("Balance"));
    m_balance->SetTranslatableToolTip(wxTRANSLATE(
        "Closes the balance with sodium or chloride, as automatic balancing of the analysis does"));
    m_balance->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Balance(); });
    m_grid = new wxFlexGridSizer(1, gap, gap);
    m_grid->SetFlexibleDirection(wxVERTICAL);
    auto* head = new wxBoxSizer(wxHORIZONTAL);
    head->Add(m_badge, wxSizerFlags(1).Expand());
    head->Add(m_balance, wxSizerFlags().CentreVertical().Border(wxLEFT, 2 * gap));
    auto* outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(head, wxSizerFlags().Expand().Border(wxALL, gap));
    outer->Add(m_grid, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    SetSizer(outer);
    SetScrollRate(0, FromDIP(kScrollStep));
    SetMinSize(FromDIP(wxSize(kLeastWidth, kLeastWidth / 2)));
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        Arrange();
    });
    ShowAll();
}

WaterResultsPanel::~WaterResultsPanel()
{
    SetWater(nullptr, {});
}

void WaterResultsPanel::SetWater(Project* project, DetailOwner water)
{
    if (m_project != project) {
        if (m_project != nullptr)
            m_project->RemoveObserver(*this);
        m_project = project;
        if (m_project != nullptr)
            m_project->AddObserver(*this);
    }
    m_water = water;
    if (!IsBeingDeleted())
        ShowAll();
}

void WaterResultsPanel::Localize()
{
    m_balance->Localize({});
    m_arrangedWidth = 0;
    ShowAll();
}

const LiquidData* WaterResultsPanel::FindWater() const
{
    const OwnerNode* node = m_project == nullptr ? nullptr : std::as_const(*m_project).FindOwner(m_water);
    return dynamic_cast<const LiquidData*>(node);
}

void WaterResultsPanel::OnProjectChanged(const ProjectChanges& changes)
{
    // Flow, number of lines and plant count in the load of a day.
    const bool isOfPlant = changes.Any([this](const DetailAddress& address) {
        const OwnerNode* owner = m_project->FindOwner(address.owner);
        return owner == nullptr || owner->GetKind() != OwnerKind::Water;
    });
    if (isOfPlant || changes.Touches(m_water) || changes.HasStructure())
        ShowAll();
}

void WaterResultsPanel::ShowAll()
{
    const ReportContext context =
        ShownContext(m_project == nullptr ? std::string("iso") : m_project->GetUnitSystemDisplay());
    const LiquidData* water = FindWater();
    accessibility::SetName(*this, i18n::Translated("Results of the water"));
    const std::size_t before = m_changed;
    ShowBalance(water, context);
    ShowTiles(water, context);
    if (m_changed != before || m_arrangedWidth == 0) {
        m_arrangedWidth = 0;
        Arrange();
    }
}

void WaterResultsPanel::ShowBalance(const LiquidData* water, const ReportContext& context)
{
    advice::BalanceJudgement judged;
    if (water != nullptr)
        judged = advice::JudgeBalance(*water->GetDetails(), advice::ChosenBalanceRule());
    const bool isJudged = judged.verdict != advice::BalanceVerdict::NotJudged;
    CardContent content{
        .caption = i18n::Translated("Ion balance"),
        .value = OrDash(BalanceErrorText(judged, context)),
        .unit = {},
        .text = Text(BalanceVerdictText(judged, context)),
        .tooltip = i18n::Translated("Difference of both sums in percent, as the rule counts it"),
        .mood = MoodOf(judged.verdict)};
    m_changed += m_badge->SetContent(std::move(content)) ? 1 : 0;
    m_badge->SetOnActivate(water == nullptr ? nullptr : std::function<void()>([this] {
        m_lead({m_water, "liquid/balance.auto"});
    }));
    const bool canBalance = isJudged && judged.verdict != advice::BalanceVerdict::Closed;
    if (m_balance->IsShown() != canBalance) {
        m_balance->Show(canBalance);
        ++m_changed;
    }
}

void WaterResultsPanel::ShowTiles(const LiquidData* water, const ReportContext& context)
{
    const auto tiles = water == nullptr ? EmptyTiles(context) : ResultTiles(*m_project, *water, context);
    while (m_tiles.size() < tiles.size()) {
        m_tiles.push_back(new ResultCard(this));
        m_grid->Add(m_tiles.back(), wxSizerFlags().Expand());
    }
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        const ResultTile& tile = tiles[i];
        ResultCard& card = *m_tiles[i];
        m_changed += card.SetContent({.caption = Text(tile.title),
                                      .value = OrDash(tile.value),
                                      .unit = tile.value.empty() ? wxString() : Text(tile.unit),
                                      .text = Text(tile.second),
                                      .tooltip = Text(tile.explanation),
                                      .mood = Mood::Plain})
                         ? 1
                         : 0;
        if (water != nullptr && tile.address)
            card.SetOnActivate([this, address = *tile.address] { m_lead(address); });
        else
            card.SetOnActivate(nullptr);
    }
}

void WaterResultsPanel::Arrange()
{
    const int width = GetClientSize().x;
    if (width <= 0 || width == m_arrangedWidth)
        return;
    m_arrangedWidth = width;
    const int gap = FromDIP(kGap);
    const int room = width - 2 * gap;
    const int columns =
        std::clamp((room + gap) / (FromDIP(kTileWidth) + gap), 1, static_cast<int>(m_tiles.size()));
    const int tileWidth = (room - (columns - 1) * gap) / columns;
    m_grid->SetCols(columns);
    for (ResultCard* card : m_tiles)
        card->SetMinSize({tileWidth, card->HeightFor(tileWidth)});
    const int button = m_balance->IsShown() ? m_balance->GetBestSize().x + 2 * gap : 0;
    m_badge->SetMinSize({1, m_badge->HeightFor(room - button)});
    FitInside();
    Layout();
}

void WaterResultsPanel::Balance()
{
    if (FindWater() == nullptr)
        return;
    const ProjectEdit edit(*m_project);
    m_project->FindOwner(m_water)->GetDetails()->At("liquid/balance.auto").SetValue(true);
}

}  // namespace wateranalysis
