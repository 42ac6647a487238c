// SPDX-License-Identifier: MIT
// The box of the currencies: which one is on display, its listed rate and the project's own.
#include "core/conversion_rate.h"
#include "dbinterfaces/project_database.h"
#include "gui_base/dialogs/field_fault.h"
#include "gui_base/dialogs/questions.h"
#include "gui_base/input/controls/tv_staticboxsizer.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/form/form_grid.h"
#include "gui_base/ionexchange/costs/irx_chemicalcostspanel.h"
#include "gui_base/ionexchange/costs/irx_costpanel.h"
#include "gui_base/messages/user_message.h"
#include "gui_base/network/rates_dialog.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"
#include "projectbase/project/project_edit.h"

#include <wx/statbox.h>
#include <wx/translation.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kRateWidth = 110;
constexpr int kChoiceWidth = 240;
constexpr std::size_t kMostLetters = 40;
const std::string kBase(conversion_rate::kBase);

/// Runs what asks the database; false, with a message, when that fails.
bool Guarded(wxWindow* parent, const std::function<void()>& action)
{
    try {
        action();
        return true;
    } catch (const std::exception& error) {
        dialogs::ShowMessage(parent, MessageOf(error), i18n::Translated("Currency"), wxICON_ERROR);
        return false;
    }
}

}  // namespace

TvButton* IRXCostsPanel::NewButton(wxWindow* parent, const char* label, const char* tip,
                                   void (IRXCostsPanel::*action)())
{
    auto* button = AddLocalizable(new TvButton(parent, wxID_ANY, label));
    button->SetTranslatableToolTip(tip);
    button->Bind(wxEVT_BUTTON, [this, action](wxCommandEvent&) { (this->*action)(); });
    return button;
}

wxSizer* IRXCostsPanel::MakeCurrency()
{
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, FromDIP(form::kGap));
    auto* box = AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, this, wxTRANSLATE("Currency")));
    wxWindow* parent = box->GetStaticBox();
    auto* chosen = new wxBoxSizer(wxHORIZONTAL);
    m_choice = std::make_unique<tvAutoComboBoxCombination>(parent, wxID_ANY, wxTRANSLATE("Select currency"),
                                                           ":", tvAutoComboBox::Entries(), &m_chosen, chosen,
                                                           FromDIP(wxSize(kChoiceWidth, -1)));
    AddLocalizable(m_choice.get());
    parent->Bind(
        tvCHANGE_EVENT, [this](wxCommandEvent&) { OnCurrencySelected(); }, m_choice->GetControlId());
    box->Add(chosen, spaced);
    m_codes.clear();
    auto* grid = NewGrid(4);
    MakeListedRate(parent, *grid);
    MakeProjectRate(parent, *grid);
    box->Add(grid, spaced);
    box->Add(NewButton(parent, wxTRANSLATE("Update rates"), wxTRANSLATE("Update conversion rates"),
                       &IRXCostsPanel::OnUpdateRatesClick),
             spaced);
    m_currencyNote = new wxStaticText(parent, wxID_ANY, wxString());
    box->Add(m_currencyNote, spaced);
    LoadCurrencies();
    return box;
}

wxWindow* IRXCostsPanel::MakeListedRate(wxWindow* parent, wxSizer& grid)
{
    const wxSizerFlags cell = wxSizerFlags().CentreVertical();
    grid.Add(GetFields().AddLabel(parent, wxTRANSLATE("1 EUR =")), cell);
    m_listedRate = new TvTextCtrl(parent, wxID_ANY, wxString(), wxDefaultPosition,
                                  FromDIP(wxSize(kRateWidth, -1)), wxTE_RIGHT | wxTE_READONLY);
    m_listedRate->DisableFocusFromKeyboard();
    grid.Add(m_listedRate, cell);
    m_codes.push_back(new wxStaticText(parent, wxID_ANY, wxString::FromUTF8(kBase)));
    grid.Add(m_codes.back(), cell);
    m_copy = NewButton(parent, wxTRANSLATE("Copy rate"), wxTRANSLATE("Copy conversion rate to project"),
                       &IRXCostsPanel::OnCopyRateClick);
    grid.Add(m_copy, wxSizerFlags(cell).Expand());
    return m_listedRate;
}

void IRXCostsPanel::MakeProjectRate(wxWindow* parent, wxSizer& grid)
{
    const wxSizerFlags cell = wxSizerFlags().CentreVertical();
    grid.Add(GetFields().AddLabel(parent, wxTRANSLATE("Project"), ":"), cell);
    m_projectRate = new TvTextCtrl(parent, wxID_ANY, wxString(), wxDefaultPosition,
                                   FromDIP(wxSize(kRateWidth, -1)), wxTE_RIGHT | wxTE_PROCESS_ENTER);
    m_projectRate->SetMaxLength(kMostLetters);
    m_projectRate->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { OnConversionRateUpdate(); });
    m_projectRate->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) { OnSetRateClick(); });
    grid.Add(m_projectRate, cell);
    m_codes.push_back(new wxStaticText(parent, wxID_ANY, wxString::FromUTF8(kBase)));
    grid.Add(m_codes.back(), cell);
    m_set = NewButton(parent, wxTRANSLATE("Set rate"),
                      wxTRANSLATE("Set user-defined conversion rate for project"),
                      &IRXCostsPanel::OnSetRateClick);
    grid.Add(m_set, wxSizerFlags(cell).Expand());
}

void IRXCostsPanel::LoadCurrencies()
{
    try {
        m_currencies = currency_table::Load();
        m_chosen.SetValue(ProjectDatabase::GetUserParameter(costs::kCurrencyParameter, kBase));
    } catch (const std::exception& error) {
        // The panel is of use without the database, in euro.
        GetProject()->GetLogger().Error(error.what());
        m_chosen.SetValue(kBase);
    }
    tvAutoComboBox::Entries entries;
    for (const currency_table::Currency& currency : m_currencies)
        entries.emplace_back(currency.code,
                             currency.name.empty() ? currency.code : currency.code + " - " + currency.name);
    if (entries != m_choice->GetComboBox()->GetEntries())
        m_choice->SetEntries(entries);
    else
        m_choice->TransferDetailToWindow();
}

double IRXCostsPanel::ListedRate() const
{
    const auto found =
        std::ranges::find(m_currencies, m_chosen.GetStringValue(), &currency_table::Currency::code);
    if (ChosenCode() == kBase)
        return 1.0;
    return found != m_currencies.end() ? found->rate : std::nan("");
}

double IRXCostsPanel::ProjectRate() const
{
    const DetailList& details = GetProject()->GetDetails();
    return details.At("cost/currency").GetStdStringValue() == ChosenCode()
               ? details.At("cost/currency.rate").GetDoubleValue()
               : std::nan("");
}

void IRXCostsPanel::UpdateCurrencyDisplay()
{
    LoadCurrencies();
    UpdateCurrencyConversionInfo(true);
}

void IRXCostsPanel::UpdateCurrencyConversionInfo(bool showsAmounts)
{
    if (showsAmounts) {
        // Its parts first: the page is laid out once, when they have their size.
        const costs::ShownCurrency currency = costs::ChosenCurrency(*GetProject());
        m_chemicals->ShowIn(currency);
        ShowIn(currency);
    }
    const auto text = [](double rate) {
        return std::isfinite(rate) ? currency_table::RateText(rate) : wxString();
    };
    m_listedRate->ChangeValue(text(ListedRate()));
    m_projectRate->ChangeValue(text(ProjectRate()));
    m_projectRate->DiscardEdits();
    const bool isForeign = ChosenCode() != kBase;
    m_projectRate->Enable(isForeign);
    m_copy->Enable(conversion_rate::IsRateOf(ChosenCode(), ListedRate()));
    OnConversionRateUpdate();
    UpdateCurrencyLabels();
}

void IRXCostsPanel::UpdateCurrencyLabels()
{
    const wxString code = wxString::FromUTF8(ChosenCode());
    for (wxStaticText* label : m_codes)
        label->SetLabelText(code);
    const auto name = [&code](wxWindow& field, const wxString& label) {
        accessibility::SetName(field, accessibility::NameWithUnit(label, code));
    };
    name(*m_listedRate, i18n::Translated("Rate for 1 EUR"));
    name(*m_projectRate, i18n::Translated("Rate of the project for 1 EUR"));
    const bool hasRate = GetCurrency().code == ChosenCode();
    const wxString note =
        hasRate ? wxString()
                : wxString::Format(i18n::Translated("No rate of %s is known: amounts are in EUR."), code);
    ShowNote(*m_currencyNote, note);
}

void IRXCostsPanel::OnCurrencySelected()
{
    const std::string code = ChosenCode();
    if (!Guarded(this, [&] { ProjectDatabase::SetUserParameter(costs::kCurrencyParameter, code); }))
        LoadCurrencies();
    UpdateCurrencyConversionInfo(true);
}

void IRXCostsPanel::OnUpdateRatesClick()
{
    if (!UpdateConversionRates(this))
        return;
    // What was typed counts by the rate that was on display.
    SynchronizeProject();
    LoadCurrencies();
    UpdateCurrencyConversionInfo(true);
}

void IRXCostsPanel::OnConversionRateUpdate()
{
    const bool isGood = currency_table::ParseRate(m_projectRate->GetValue()).has_value();
    const bool isFault = m_projectRate->IsEnabled() && !isGood && !m_projectRate->IsEmpty();
    dialogs::ShowFault(
        *m_projectRate,
        isFault ? i18n::Translated("A rate is a number from 0.000001 to 1,000,000,000.") : wxString());
    m_set->Enable(m_projectRate->IsEnabled() && isGood);
}

void IRXCostsPanel::SetProjectRate(double rate)
{
    {
        const ProjectEdit edit(*GetProject(), wxTRANSLATE("set conversion rate"));
        DetailList& details = GetProject()->GetDetails();
        details.At("cost/currency").SetValue(ChosenCode());
        details.At("cost/currency.rate").SetValue(rate);
    }
    UpdateCurrencyConversionInfo(true);
    SendChangeEvent();
}

void IRXCostsPanel::OnCopyRateClick()
{
    if (m_copy->IsEnabled())
        SetProjectRate(ListedRate());
}

void IRXCostsPanel::OnSetRateClick()
{
    const auto rate = currency_table::ParseRate(m_projectRate->GetValue());
    // A rate that nobody touched keeps the digits that are not shown.
    if (!rate || !m_set->IsEnabled() || m_projectRate->GetValue() == currency_table::RateText(ProjectRate()))
        return;
    if (!Guarded(this, [&] { ProjectDatabase::SetConversionRate(ChosenCode(), *rate); }))
        return;
    LoadCurrencies();
    SetProjectRate(*rate);
}
