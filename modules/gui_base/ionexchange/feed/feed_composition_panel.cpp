// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/feed/feed_composition_panel.h"

#include "core/number_text.h"
#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/controls/tv_checkbox.h"
#include "gui_base/input/controls/tv_choice.h"
#include "gui_base/input/controls/tv_notebook.h"
#include "gui_base/input/controls/tv_searchctrl.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/input/validation/numeric_validator.h"
#include "gui_base/ionexchange/feed/feed_composition_grid.h"
#include "gui_base/ionexchange/feed/feed_medium_box.h"
#include "gui_base/ionexchange/feed/feed_total_box.h"
#include "gui_base/support/translation.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace {

constexpr int kDigits = 6;

FeedCompositionPanel::Selection::const_iterator Find(const FeedCompositionPanel::Selection& items,
                                                     const wxString& label)
{
    return std::find_if(items.begin(), items.end(), [&](const auto& item) { return item.second == label; });
}

/// Shows other items of a filter; the first one, which stands for all, where the chosen one is gone.
void ShowItems(tvChoice& choice, const FeedCompositionPanel::Selection& items)
{
    const wxString chosen = choice.GetStringUnlocalized();
    choice.Set(items);
    if (Find(items, chosen) != items.end())
        choice.SetStringSelectionFromUnlocalized(chosen);
    else if (!items.empty())
        choice.SetSelection(0);
}

}  // namespace

FeedCompositionPanel::FeedCompositionPanel(wxWindow* parent, int id, wxStatusBar* statusBar,
                                           const wxPoint& pos, const wxSize& size, long style)
    : ModulePanelBase(nullptr, parent, id, pos, size, style)
{
    if (statusBar != nullptr)
        ModulePanelBase::SetStatusBar(statusBar);
    Create();
}

FeedCompositionPanel::~FeedCompositionPanel()
{
    // The grids and fields show members of this panel, and an open cell must tell nobody any more.
    m_closing = true;
    DestroyChildren();
}

void FeedCompositionPanel::DoPrepare()
{
    UnSelectedCompound();
    UpdateTotalPhInputMode();
    m_effluentGrid->Enable(false);
    NameControls();
}

void FeedCompositionPanel::DoConnectTvTextCtrlsToStatusbar()
{
    ConnectControlToStatusBar(m_totalPh);
    m_medium->SetStatusBar(GetStatusBar());
}

void FeedCompositionPanel::SetStatusBar(wxStatusBar* statusBar)
{
    ModulePanelBase::SetStatusBar(statusBar);
    DoConnectTvTextCtrlsToStatusbar();
}

void FeedCompositionPanel::DoLocalize()
{
    NameControls();
    SetComposition(m_composition);
}

void FeedCompositionPanel::SetCategorySelection(const Selection& items)
{
    ShowItems(*m_category, items);
    ArrangeTop();
}

void FeedCompositionPanel::SetElementSelection(const Selection& items)
{
    ShowItems(*m_element, items);
}

void FeedCompositionPanel::SetMediumSelection(const Selection& items)
{
    m_medium->SetMediumSelection(items);
}

void FeedCompositionPanel::SetTemperatureUnitSelection(const Selection& items)
{
    m_medium->SetTemperatureUnitSelection(items);
}

void FeedCompositionPanel::ChooseTemperatureUnit(TemperatureUnit unit)
{
    m_medium->ChooseTemperatureUnit(unit);
}

void FeedCompositionPanel::SetCompoundSelection(CompoundList::Compounds compounds)
{
    m_list->SetCompounds(std::move(compounds));
    UnSelectedCompound();
}

void FeedCompositionPanel::SetComposition(const FeedComposition& composition)
{
    if (&m_composition != &composition)
        m_composition = composition;
    m_feedGrid->ShowComposition();
    m_effluentGrid->ShowComposition();
    SetMedium(m_composition.GetMedium());
    SetTotalCompositionResults(m_composition);
}

void FeedCompositionPanel::ShowEntry(std::size_t row)
{
    if (static_cast<int>(row) < m_feedGrid->GetNumberRows())
        m_feedGrid->GoToCell(static_cast<int>(row), kFeedFirstUnit);
}

void FeedCompositionPanel::SetMedium(const FeedMedium::Data& medium)
{
    m_medium->SetMedium(medium);
}

void FeedCompositionPanel::SetTotalCompositionResults(const FeedComposition& composition)
{
    m_feedTotals->SetTotals(composition.GetFeedTotals());
    m_effluentTotals->SetTotals(composition.GetEffluentTotals());
    FeedTotalBox::ShowNumber(*m_effluentPh, composition.GetEffluentTotals().pH);
    FeedTotalBox::ShowNumber(*m_adjustment, composition.GetFeedTotals().adjustment);
    m_adjustPh->SetValue(composition.IsPhAdjusted());
    m_useEffluent->SetValue(composition.UsesEffluent());
    m_phValue = composition.GetTotalPh();
    m_totalPh->TransferDataToWindow();
    UpdateTotalPhInputMode();
    if (m_effluentGrid->IsThisEnabled() != composition.UsesEffluent())
        m_effluentGrid->Enable(composition.UsesEffluent());
}

void FeedCompositionPanel::UpdateTotalPhInputMode()
{
    const bool adjust = m_adjustPh->GetValue();
    if (m_totalPh->IsEditable() != adjust)
        m_totalPh->SetEditable(adjust);
    m_adjustment->Enable(adjust);
    m_adjustmentLabel->Enable(adjust);
    m_feedGrid->UpdateGridColumnPhVisibility(adjust);
    m_effluentGrid->UpdateGridColumnPhVisibility(adjust);
}

void FeedCompositionPanel::ShowCompoundDetails(const DBObjects::Compound& compound, double molweight)
{
    const auto number = [](double value, const char* unit) {
        const wxString text = wxString::FromUTF8(
            numbertext::Format(value, {.precision = kDigits}, NumericValidator::LocaleSeparators()));
        return text.empty() ? text : text + unit;
    };
    const wxString texts[] = {wxString::Format(compound.ionicCharge > 0 ? "+%d" : "%d", compound.ionicCharge),
                              number(molweight, " g/mol"), wxString::Format("%d", compound.valency),
                              number(compound.pKa, "")};
    for (std::size_t i = 0; i < m_details.size(); ++i)
        m_details[i].second->SetLabel(texts[i]);
    ShowCompoundDetailFields(true);
}

void FeedCompositionPanel::ShowCompoundDetailFields(bool show)
{
    m_noSelection->Show(!show);
    for (const auto& [label, value] : m_details) {
        label->Show(show);
        value->Show(show);
    }
    m_side->Layout();
}

void FeedCompositionPanel::UnSelectedCompound()
{
    for (const auto& detail : m_details)
        detail.second->SetLabel(wxString());
    ShowCompoundDetailFields(false);
    EnableEditAndDeleteCompoundButtons(false, false);
}

wxString FeedCompositionPanel::GetDetailText(std::size_t row) const
{
    const auto& [label, value] = m_details.at(row);
    return value->IsShown() ? value->GetLabel() : wxString();
}

void FeedCompositionPanel::EnableEditAndDeleteCompoundButtons(bool edit, bool remove)
{
    GetButton(tvFEED_COMPOUND_EDIT).Enable(edit);
    GetButton(tvFEED_COMPOUND_DELETE).Enable(remove);
}

TvButton& FeedCompositionPanel::GetButton(wxEventType event) const
{
    for (const Button& button : m_buttons) {
        if (button.event == event)
            return *button.button;
    }
    throw std::invalid_argument("FeedCompositionPanel::GetButton: no button sends this event");
}

void FeedCompositionPanel::SelectElement(const wxString& element)
{
    if (Find(m_element->GetItems(), element) != m_element->GetItems().end())
        m_element->SetStringSelectionFromUnlocalized(element);
}

void FeedCompositionPanel::SelectCategory(const wxString& category)
{
    if (Find(m_category->GetItems(), category) != m_category->GetItems().end())
        m_category->SetStringSelectionFromUnlocalized(category);
}

FeedCompositionPanel::Data FeedCompositionPanel::GetData() const
{
    return {.medium = m_medium->GetMedium(),
            .adjustPh = m_adjustPh->GetValue(),
            .totalPh = m_phValue,
            .useEffluent = m_useEffluent->GetValue()};
}

wxString FeedCompositionPanel::GetSelectedElement() const
{
    return m_element->GetStringUnlocalized();
}

long FeedCompositionPanel::GetSelectedElementID() const
{
    return m_element->GetID();
}

wxString FeedCompositionPanel::GetSelectedCategory() const
{
    return m_category->GetStringUnlocalized();
}

long FeedCompositionPanel::GetSelectedCategoryID() const
{
    return m_category->GetID();
}

wxString FeedCompositionPanel::GetElementSearchString() const
{
    return m_search->GetValue();
}

void FeedCompositionPanel::CancelTextSearch()
{
    m_search->ChangeValue(wxString());
}

bool FeedCompositionPanel::FocusDetail(const DetailAddress& address)
{
    const std::string& key = address.key;
    if (address.entry >= 0) {
        ShowEntry(static_cast<std::size_t>(address.entry));
        m_feedGrid->SetFocus();
        return true;
    }
    if (key == "feed/ph" || key == "feed/adjust.ph") {
        m_tabs->SetSelection(0);
        m_adjustPh->SetFocus();
        return true;
    }
    if (key == "feed/use.effluent") {
        m_tabs->SetSelection(1);
        m_useEffluent->SetFocus();
        return true;
    }
    if (key == "feed/medium.temp") {
        m_medium->GetTemperatureField()->SetFocus();
        return true;
    }
    return false;
}
