// SPDX-License-Identifier: MIT
#include "gui_base/network/rates_dialog.h"

#include "core/conversion_rate.h"
#include "dbinterfaces/project_database.h"
#include "gui_base/dialogs/field_fault.h"
#include "gui_base/dialogs/questions.h"
#include "gui_base/input/controls/tv_searchctrl.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/network/network.h"
#include "gui_base/network/network_failure.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/button_label.h"
#include "gui_base/support/translation.h"

#include <wx/clipbrd.h>
#include <wx/log.h>
#include <wx/sizer.h>
#include <wx/utils.h>

#include <cmath>

namespace {

using currency_table::Currency;
using currency_table::RateText;

constexpr int kGap = 8;
constexpr std::size_t kMostLetters = 40;

enum Column
{
    kCode,
    kName,
    kRate,
    kDay,
    kOrigin
};

wxString OriginText(const Currency& currency)
{
    if (currency.day.empty())
        return {};
    return currency.isTyped ? i18n::Translated("typed") : i18n::Translated("service");
}

bool Renew(wxString& error)
{
    const wxBusyCursor busy;
    return Network::UpdateCurrencyConversionRates(&error);
}

wxButton* NewButton(wxWindow* parent, const wxString& label, const wxString& tip,
                    std::function<void()> action)
{
    auto* button = new wxButton(parent, wxID_ANY, label);
    button->SetToolTip(tip);
    button->Bind(wxEVT_BUTTON, [action = std::move(action)](wxCommandEvent&) { action(); });
    return button;
}

}  // namespace

bool UpdateConversionRates(wxWindow* parent)
{
    for (;;) {
        wxString error;
        if (Renew(error))
            break;
        if (!error.empty())
            wxLogWarning("%s", error);
        const wxString nextStep =
            network_failure::NextStep() + " " +
            i18n::Translated("A rate can also be typed: Tools, Currency rates, Set rate.");
        if (!network_failure::Show(parent, i18n::Translated("Update of conversion rates failed."),
                                   i18n::Translated("Conversion Rate Update Error"), error, nextStep))
            return false;
    }
    dialogs::ShowMessage(parent, i18n::Translated("Conversion rates have been updated successfully."),
                         i18n::Translated("Conversion Rate Update Info"), wxICON_INFORMATION);
    return true;
}

RatesDialog::RatesDialog(wxWindow* parent)
    : SearchedListDialog(parent, i18n::Translated("Currency rates"), "currencyrates.html")
{
    auto* outer = new wxBoxSizer(wxVERTICAL);
    const wxSizerFlags spaced = wxSizerFlags().Expand().Border(wxALL, FromDIP(kGap));
    outer->Add(MakeSearch(wxTRANSLATE("Code or name of a currency"), kMostLetters), spaced);
    outer->Add(MakeList({{i18n::Translated("Code"), 64},
                         {i18n::Translated("Currency"), 220},
                         {i18n::Translated("Rate for 1 EUR"), 136, wxLIST_FORMAT_RIGHT},
                         {i18n::Translated("Stored on"), 124},
                         {i18n::Translated("Origin"), 90}},
                        kName, i18n::Translated("Currencies"), {680, 300}),
               wxSizerFlags(spaced).Proportion(1));
    outer->Add(MakeRateRow(), spaced);
    outer->Add(MakeButtonRow(), spaced);
    for (const auto& type : {wxEVT_LIST_ITEM_SELECTED, wxEVT_LIST_ITEM_DESELECTED})
        m_list->Bind(type, [this](wxListEvent&) { QueueSelected(); });
    m_list->Bind(wxEVT_LIST_ITEM_ACTIVATED, [this](wxListEvent&) { m_rate->SetFocus(); });
    LoadRates();
    Finish(*outer);
}

wxSizer* RatesDialog::MakeRateRow()
{
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    const wxSizerFlags next = wxSizerFlags().CentreVertical().Border(wxRIGHT, FromDIP(kGap));
    row->Add(new wxStaticText(this, wxID_ANY, i18n::Translated("1 EUR =")), next);
    m_rate =
        new TvTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, FromDIP(wxSize(128, -1)), wxTE_RIGHT);
    m_rate->SetMaxLength(kMostLetters);
    row->Add(m_rate, next);
    m_code = new wxStaticText(this, wxID_ANY, "XXX");
    row->Add(m_code, next);
    m_set = NewButton(this, i18n::Translated("&Set rate"),
                      i18n::Translated("Store the typed rate of this currency"), [this] { SetRate(); });
    row->Add(m_set, next);
    m_copy = NewButton(this, i18n::Translated("&Copy rate"),
                       i18n::Translated("Copy the rate to the clipboard"), [this] { CopyRate(); });
    row->Add(m_copy);
    m_rate->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { RefreshButtons(); });
    m_rate->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) { SetRate(); });
    return row;
}

wxSizer* RatesDialog::MakeButtonRow()
{
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(MakeHelpButton(), wxSizerFlags().Border(wxRIGHT, FromDIP(kGap)));
    row->Add(NewButton(this, i18n::Translated("&Update rates"), i18n::Translated("Update conversion rates"),
                       [this] { UpdateRates(); }));
    row->AddStretchSpacer();
    row->Add(button_label::NewButton(this, wxID_CANCEL, i18n::Translated("C&lose")));
    return row;
}

bool RatesDialog::Guarded(const std::function<void()>& action)
{
    try {
        action();
        return true;
    } catch (const std::exception& error) {
        dialogs::ShowMessage(this, MessageOf(error), GetTitle(), wxICON_ERROR);
        return false;
    }
}

void RatesDialog::LoadRates()
{
    Guarded([this] { m_currencies = currency_table::Load(); });
    std::vector<RowList::Row> rows;
    for (const Currency& currency : m_currencies)
        rows.push_back(
            {currency.code, currency.name, RateText(currency.rate), currency.day, OriginText(currency)});
    m_list->SetRows(std::move(rows));
    ShowSelected();
}

const Currency* RatesDialog::Selected() const
{
    const auto row = m_list->GetSelectedRow();
    return row ? &m_currencies.at(*row) : nullptr;
}

void RatesDialog::QueueSelected()
{
    // Between one row and the next none is selected, and the field would lose the focus.
    if (m_isQueued)
        return;
    m_isQueued = true;
    CallAfter([this] {
        m_isQueued = false;
        ShowSelected();
    });
}

void RatesDialog::ShowSelected()
{
    const Currency* currency = Selected();
    m_rate->ChangeValue(currency != nullptr ? RateText(currency->rate) : wxString());
    m_rate->DiscardEdits();
    m_code->SetLabel(currency != nullptr ? currency->code : wxString());
    accessibility::SetName(
        *m_rate, accessibility::NameWithUnit(i18n::Translated("Rate for 1 EUR"), m_code->GetLabel()));
    RefreshButtons();
}

void RatesDialog::RefreshButtons()
{
    const Currency* currency = Selected();
    const bool isFree = currency != nullptr && currency->code != conversion_rate::kBase.data();
    const bool isGood = currency_table::ParseRate(m_rate->GetValue()).has_value();
    const bool isFault = isFree && !isGood && !m_rate->IsEmpty();
    m_rate->Enable(isFree);
    dialogs::ShowFault(*m_rate, isFault
                                    ? i18n::Translated("A rate is a number from 0.000001 to 1,000,000,000.")
                                    : wxString());
    m_set->Enable(isFree && isGood);
    m_copy->Enable(currency != nullptr && !std::isnan(currency->rate));
}

void RatesDialog::UpdateRates()
{
    if (UpdateConversionRates(this))
        LoadRates();
}

void RatesDialog::SetRate()
{
    const Currency* currency = Selected();
    const auto rate = currency_table::ParseRate(m_rate->GetValue());
    // A rate that nobody touched keeps the digits that are not shown.
    if (currency == nullptr || !rate || !m_set->IsEnabled() || m_rate->GetValue() == RateText(currency->rate))
        return;
    if (Guarded([&] { ProjectDatabase::SetConversionRate(currency->code.utf8_string(), *rate); }))
        LoadRates();
}

void RatesDialog::CopyRate()
{
    wxClipboardLocker lock;
    if (!!lock && Selected() != nullptr)
        wxTheClipboard->SetData(new wxTextDataObject(RateText(Selected()->rate)));
}
