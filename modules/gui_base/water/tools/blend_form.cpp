// SPDX-License-Identifier: MIT
#include "gui_base/water/tools/blend_form.h"

#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/controls/tv_unitlabel.h"
#include "gui_base/support/translation.h"

#include <algorithm>
#include <limits>

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
constexpr const char* kShare = "SHARE";
constexpr const char* kFlow = "FLOW";
constexpr std::size_t kLeastRows = 2;

std::vector<std::pair<wxString, wxString>> Modes()
{
    return {{kShare, wxTRANSLATE("By share")}, {kFlow, wxTRANSLATE("By flow rate")}};
}

std::string SumKey(bool byFlow)
{
    return byFlow ? "flow.sum" : "share.sum";
}

}  // namespace

BlendForm::BlendForm(wxWindow* parent, const std::vector<std::string>& waters,
                     const water::BlendRecipe& recipe)
    : FormBlock(nullptr, parent), m_waters(waters), m_rowSizer(new wxBoxSizer(wxVERTICAL))
{
    GetFields().Details().Add(DetailData(kMode, DetailType::String)).SetValue(recipe.byFlow ? kFlow : kShare);
    auto* outer = new wxBoxSizer(wxVERTICAL);
    SetSizer(outer);
    auto* mode = form::NewGrid(*this);
    GetFields().AddRow(
        this, *mode,
        {.key = kMode, .label = wxTRANSLATE("Amounts"), .field = FormField::Choice, .items = &Modes});
    const wxSizerFlags line = wxSizerFlags().Border(wxBOTTOM, FromDIP(2 * form::kGap));
    outer->Add(mode, line);
    outer->Add(m_rowSizer, wxSizerFlags().Expand());
    for (const water::BlendPart& part : recipe.parts) {
        if (std::ranges::find(m_waters, part.water) != m_waters.end())
            AppendRow(part, recipe.byFlow);
    }
    while (m_rows.size() < kLeastRows)
        AppendRow({m_waters.at(m_rows.size()), kUnknown}, recipe.byFlow);
    m_add = GetFields().AddLocalizable(new TvButton(this, wxID_ADD, wxTRANSLATE("Add water")));
    m_add->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { AddWater(); });
    outer->Add(m_add, line);
    AddSum(false);
    AddSum(true);
    CompleteForm();
    RowsChanged();
}

BlendRow* BlendForm::AppendRow(const water::BlendPart& part, bool byFlow)
{
    auto* row = new BlendRow(this, m_waters, part, byFlow);
    m_rows.push_back(row);
    auto* line = new wxBoxSizer(wxHORIZONTAL);
    line->Add(row, wxSizerFlags(1).CentreVertical());
    line->Add(&row->GetRemoveButton(), wxSizerFlags().CentreVertical());
    m_rowSizer->Add(line, wxSizerFlags().Expand().Border(wxBOTTOM, FromDIP(form::kGap)));
    row->SetOnChange([this] { Signal(); });
    row->SetOnRemove([this, row] { RemoveRow(row); });
    return row;
}

void BlendForm::AddWater()
{
    const auto isFree = [this](const std::string& name) {
        return std::ranges::none_of(m_rows, [&](BlendRow* row) { return row->GetWater() == name; });
    };
    const auto free = std::ranges::find_if(m_waters, isFree);
    BlendRow* row = AppendRow({free == m_waters.end() ? m_waters.front() : *free, kUnknown}, IsByFlow());
    row->UpdateUnit(GetUnitSystem());
    RowsChanged();
    row->GetAmount().SetFocus();
}

void BlendForm::RemoveRow(BlendRow* row)
{
    const auto found = std::ranges::find(m_rows, row);
    if (found == m_rows.end() || m_rows.size() <= kLeastRows)
        return;
    const auto place = static_cast<std::size_t>(found - m_rows.begin());
    m_rows.erase(found);
    // The keyboard stays where the row was.
    m_rows[std::min(place, m_rows.size() - 1)]->GetAmount().SetFocus();
    wxWindow& remove = row->GetRemoveButton();
    m_rowSizer->Remove(static_cast<int>(place));
    row->Destroy();
    remove.Destroy();
    RowsChanged();
}

void BlendForm::RowsChanged()
{
    m_keys.Clear();
    std::vector<ValueKeys::Cell> cells;
    for (BlendRow* row : m_rows) {
        row->GetRemoveButton().Enable(m_rows.size() > kLeastRows);
        for (TvTextCtrl* amount : row->GetAmounts())
            cells.push_back({amount});
    }
    m_keys.AddColumn(cells);
    OrderTabs();
    m_add->Enable(m_rows.size() < water::kMostBlendParts);
    Signal();
}

void BlendForm::OrderTabs()
{
    wxWindow* last = m_rows.front();
    const auto append = [&last](wxWindow& window) {
        if (&window != last)
            window.MoveAfterInTabOrder(last);
        last = &window;
    };
    for (BlendRow* row : m_rows)
        append(*row);
    for (BlendRow* row : m_rows)
        append(row->GetRemoveButton());
    append(*m_add);
}

void BlendForm::AddSum(bool byFlow)
{
    const std::string key = SumKey(byFlow);
    GetFields().Details().Add(DetailData(key, DetailType::Double, byFlow ? "m3/h" : "%"));
    // Below the amounts: before them stands the choice of a water, behind them the button of its row.
    auto* line = new wxBoxSizer(wxHORIZONTAL);
    const wxSizerFlags cell = wxSizerFlags().CentreVertical().Border(wxRIGHT, FromDIP(2 * form::kGap));
    const FormRow row{.key = key.c_str(),
                      .label = wxTRANSLATE("Sum"),
                      .field = FormField::Result,
                      .precision = 6,
                      .width = BlendRow::kAmountWidth};
    line->AddStretchSpacer();
    line->Add(GetFields().AddLabel(this, row.label), cell);
    line->Add(GetFields().CreateField(this, row), cell);
    auto* unit = GetFields().AddUnitLabel(this, byFlow ? "m3/h" : "%", true);
    unit->SetMinSize(FromDIP(wxSize(BlendRow::kUnitWidth, -1)));
    line->Add(unit, cell);
    line->AddSpacer(m_rows.front()->GetRemoveButton().GetBestSize().x);
    (byFlow ? m_flowSum : m_shareSum) = line;
    GetSizer()->Add(line, wxSizerFlags().Expand());
}

bool BlendForm::IsByFlow()
{
    return GetFields().Details().At(kMode).GetStdStringValue() == kFlow;
}

void BlendForm::ShowMode()
{
    const bool byFlow = IsByFlow();
    for (BlendRow* row : m_rows)
        row->ShowMode(byFlow);
    GetSizer()->Show(m_shareSum, !byFlow);
    GetSizer()->Show(m_flowSum, byFlow);
    Layout();
}

void BlendForm::UpdateSum()
{
    double sum = 0.0;
    for (const water::BlendPart& part : GetRecipe().parts)
        sum += part.amount;
    GetFields().Details().At(SumKey(IsByFlow())).SetValue(sum);
    TransferDetailsToWindow();
}

void BlendForm::Localize(const std::string& unitSystem)
{
    FormBlock::Localize(unitSystem);
    for (BlendRow* row : m_rows)
        row->Localize(unitSystem);
}

void BlendForm::Signal()
{
    ShowMode();
    UpdateSum();
    FormBlock::Signal();
}

water::BlendRecipe BlendForm::GetRecipe()
{
    TransferDetailsFromWindow();
    water::BlendRecipe recipe{.parts = {}, .byFlow = IsByFlow()};
    for (BlendRow* row : m_rows) {
        if (auto part = row->GetPart())
            recipe.parts.push_back(std::move(*part));
    }
    return recipe;
}

wxString BlendForm::GetShareRemark()
{
    const water::BlendRecipe recipe = GetRecipe();
    // As it is shown: three times 33.3333333 is as good as all.
    const wxString sum = FindField(SumKey(false))->GetValue();
    if (recipe.byFlow || !recipe.IsComplete() || sum == "100")
        return {};
    return wxString::Format(
        i18n::Translated(wxTRANSLATE("The shares add up to %s %%; they are counted in proportion")), sum);
}
