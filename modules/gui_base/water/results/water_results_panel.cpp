// SPDX-License-Identifier: MIT
#include "gui_base/water/results/water_results_panel.h"

#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/form/shown_context.h"
#include "gui_base/report/advice_text.h"
#include "gui_base/report/balance_text.h"
#include "gui_base/report/blend_tiles.h"
#include "gui_base/report/water_results.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/text_font.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/results/result_card.h"
#include "projectbase/advice/evaluation.h"
#include "projectbase/project/project.h"
#include "projectbase/project/project_edit.h"

#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>
#include <iterator>
#include <optional>

namespace wateranalysis {
namespace {

constexpr int kGap = 4;
constexpr int kTileWidth = 148;
constexpr int kLeastWidth = 240;
constexpr int kScrollStep = 12;

Mood MoodOf(const advice::BalanceJudgement& judgement)
{
    switch (advice::MarkOf(judgement)) {
        case advice::BalanceMark::Good:
            return Mood::Good;
        case advice::BalanceMark::Doubtful:
            return Mood::Warn;
        case advice::BalanceMark::Over:
            return Mood::Bad;
        case advice::BalanceMark::Unknown:
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

WaterResultsPanel::WaterResultsPanel(wxWindow* parent, Lead lead, ShowHelp showHelp)
    : wxScrolled<wxPanel>(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxVSCROLL),
      m_lead(std::move(lead)),
      m_showHelp(std::move(showHelp))
{
    const int gap = FromDIP(kGap);
    m_name = new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                              wxST_ELLIPSIZE_MIDDLE | wxST_NO_AUTORESIZE);
    text_font::Set(*m_name, m_name->GetFont().Bold());
    m_recipe = new ResultCard(this);
    m_badge = new ResultCard(this);
    m_balance = new TvButton(this, wxID_ANY, wxTRANSLATE("Balance"));
    m_balance->SetTranslatableToolTip(wxTRANSLATE(
        "Closes the balance with sodium or chloride, as automatic balancing of the analysis does"));
    m_balance->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Balance(); });
    m_grid = new wxFlexGridSizer(1, gap, gap);
    m_grid->SetFlexibleDirection(wxVERTICAL);
    auto* head = new wxBoxSizer(wxVERTICAL);
    head->Add(m_name, wxSizerFlags().Expand().Border(wxBOTTOM, gap));
    head->Add(m_recipe, wxSizerFlags().Expand().Border(wxBOTTOM, gap));
    head->Add(m_badge, wxSizerFlags().Expand());
    head->Add(m_balance, wxSizerFlags().Border(wxTOP, gap));
    auto* outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(head, wxSizerFlags().Expand().Border(wxALL, gap));
    const wxSizerFlags below = wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap);
    // What has to be minded comes before the figures, which fill the pane; what is only noted behind them.
    m_warnings = new wxBoxSizer(wxVERTICAL);
    outer->Add(m_warnings, wxSizerFlags().Expand());
    outer->Add(m_grid, below);
    ShowTiles(EmptyTiles(ShownContext("iso")));
    m_minerals = new ResultCard(this);
    outer->Add(m_minerals, below);
    m_notes = new wxBoxSizer(wxVERTICAL);
    outer->Add(m_notes, wxSizerFlags().Expand());
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

void WaterResultsPanel::AllowBalancing(bool allow)
{
    m_balance->Enable(allow);
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
    std::optional<advice::Evaluation> evaluation;
    if (water != nullptr)
        evaluation = advice::Evaluate(*m_project, *water);
    const advice::Evaluation* const shown = evaluation ? &*evaluation : nullptr;
    ShowName(water, context);
    ShowBalance(shown, context);
    ShowTiles(shown == nullptr ? EmptyTiles(context) : ResultTiles(*shown, *water, context));
    ShowSaturation(shown, context);
    ShowAdvice(shown, context);
    Arrange();
}

void WaterResultsPanel::ShowName(const LiquidData* water, const ReportContext& context)
{
    const bool isOneOfSeveral = water != nullptr && m_project->GetLiquidCount() > 1;
    if (const wxString name = isOneOfSeveral ? Text(water->GetName()) : wxString();
        name != m_name->GetLabelText()) {
        m_name->SetLabelText(name);
        m_name->SetToolTip(name);
    }
    ShowWindow(*m_name, isOneOfSeveral);
    const bool isMixed = water != nullptr && m_project->IsMixed(*water);
    if (isMixed)
        SetContent(*m_recipe, {.caption = i18n::Translated("Blend"),
                               .value = {},
                               .unit = {},
                               .text = Text(RecipeText(water::RecipeOf(*water->GetDetails()), context)),
                               .tooltip = {},
                               .mood = Mood::Plain});
    ShowWindow(*m_recipe, isMixed);
}

void WaterResultsPanel::SetContent(ResultCard& card, CardContent content)
{
    if (!card.SetContent(std::move(content)))
        return;
    ++m_changed;
    // Most changes leave a card as high as it was.
    if (card.HeightFor(card.GetSize().x) != card.GetMinSize().y)
        m_arrangedWidth = 0;
}

void WaterResultsPanel::ShowWindow(wxWindow& window, bool show)
{
    if (!window.Show(show))
        return;
    ++m_changed;
    m_arrangedWidth = 0;
}

void WaterResultsPanel::ShowBalance(const advice::Evaluation* evaluation, const ReportContext& context)
{
    const advice::BalanceJudgement judged =
        evaluation == nullptr ? advice::BalanceJudgement() : evaluation->balance;
    SetContent(*m_badge,
               {.caption = i18n::Translated("Ion balance"),
                .value = OrDash(BalanceErrorText(judged, context)),
                .unit = {},
                .text = Text(BalanceVerdictText(judged, context)),
                .tooltip = i18n::Translated("Difference of both sums in percent, as the rule counts it"),
                .mood = MoodOf(judged)});
    if (evaluation != nullptr)
        m_badge->SetOnActivate([this] { m_lead({m_water, "liquid/balance.auto"}); });
    else
        m_badge->SetOnActivate(nullptr);
    // A mixture follows its waters.
    const LiquidData* water = FindWater();
    const bool isTyped = water != nullptr && !m_project->IsMixed(*water);
    ShowWindow(*m_balance, isTyped && judged.verdict != advice::BalanceVerdict::NotJudged &&
                               judged.verdict != advice::BalanceVerdict::Closed);
}

void WaterResultsPanel::ShowTiles(const std::vector<ResultTile>& tiles)
{
    while (m_tiles.size() < tiles.size()) {
        m_tiles.push_back(new ResultCard(this));
        m_grid->Add(m_tiles.back(), wxSizerFlags().Expand());
    }
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        const ResultTile& tile = tiles[i];
        ResultCard& card = *m_tiles[i];
        SetContent(card, {.caption = Text(tile.title),
                          .value = OrDash(tile.value),
                          .unit = tile.value.empty() ? wxString() : Text(tile.unit),
                          .text = Text(tile.second),
                          .tooltip = Text(tile.explanation),
                          .mood = Mood::Plain});
        if (tile.address)
            card.SetOnActivate([this, address = *tile.address] { m_lead(address); });
        else
            card.SetOnActivate(nullptr);
    }
}

void WaterResultsPanel::ShowSaturation(const advice::Evaluation* evaluation, const ReportContext& context)
{
    const auto minerals = [&](int decimals) {
        return evaluation == nullptr ? std::string() : MineralText(evaluation->saturation, decimals, context);
    };
    wxString tooltip =
        i18n::Translated("Above 0 the water holds more of a mineral than dissolves; opens the user guide");
    if (const std::string exact = minerals(2); !exact.empty())
        tooltip += "\n" + wxString::FromUTF8(exact);
    SetContent(*m_minerals, {.caption = i18n::Translated("Saturation indices"),
                             .value = {},
                             .unit = {},
                             .text = OrDash(minerals(1)),
                             .tooltip = tooltip,
                             .mood = Mood::Plain});
    m_minerals->SetOnActivate([this] { OpenHelp("saturation"); });
}

void WaterResultsPanel::ShowAdvice(const advice::Evaluation* evaluation, const ReportContext& context)
{
    const std::vector<advice::Advice> advices =
        evaluation == nullptr ? std::vector<advice::Advice>() : evaluation->advice;
    const wxSizerFlags below = wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(kGap));
    const auto warnings = static_cast<std::size_t>(std::ranges::count_if(advices, &advice::IsWarning));
    if (warnings != m_warnings->GetItemCount())
        m_arrangedWidth = 0;
    m_warnings->Clear();
    m_notes->Clear();
    while (m_advice.size() < advices.size())
        m_advice.push_back(new ResultCard(this));
    for (std::size_t i = 0; i < m_advice.size(); ++i) {
        ShowWindow(*m_advice[i], i < advices.size());
        if (i >= advices.size())
            continue;
        const advice::Advice& advice = advices[i];
        (i < warnings ? m_warnings : m_notes)->Add(m_advice[i], below);
        // Tab goes through them as they are read.
        if (i < warnings)
            m_advice[i]->MoveBeforeInTabOrder(m_tiles.front());
        else
            m_advice[i]->MoveAfterInTabOrder(i == warnings ? m_minerals : m_advice[i - 1]);
        SetContent(*m_advice[i], {.caption = Text(SeverityText(advice.severity, context)),
                                  .value = {},
                                  .unit = {},
                                  .text = Text(AdviceSentence(advice, context)),
                                  .tooltip = Text(AdviceReason(advice, context)) + "\n" +
                                             i18n::Translated("Opens the user guide"),
                                  .mood = i < warnings ? Mood::Warn : Mood::Note});
        m_advice[i]->SetOnActivate([this, anchor = std::string(advice.anchor)] { OpenHelp(anchor); });
    }
}

std::vector<ResultCard*> WaterResultsPanel::GetAdvice() const
{
    std::vector<ResultCard*> shown;
    std::ranges::copy_if(m_advice, std::back_inserter(shown),
                         [](ResultCard* card) { return card->IsShown(); });
    return shown;
}

void WaterResultsPanel::OpenHelp(const std::string& anchor) const
{
    if (m_showHelp)
        m_showHelp(std::string(advice::kAdviceHelpPage) + "#" + anchor);
}

void WaterResultsPanel::Arrange()
{
    const int width = GetClientSize().x;
    // The size comes before the cards are made.
    if (m_notes == nullptr || width <= 0 || width == m_arrangedWidth)
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
    for (ResultCard* card : {m_recipe, m_badge})
        card->SetMinSize({1, card->HeightFor(room)});
    m_minerals->SetMinSize({1, m_minerals->HeightFor(room)});
    for (ResultCard* card : m_advice)
        card->SetMinSize({1, card->HeightFor(room)});
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
