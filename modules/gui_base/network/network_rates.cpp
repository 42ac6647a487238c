// SPDX-License-Identifier: MIT
// The service of exchange rates.
#include "dbinterfaces/master_database.h"
#include "dbinterfaces/project_database.h"
#include "gui_base/network/currency_rates.h"
#include "gui_base/network/endpoints.h"
#include "gui_base/network/network.h"
#include "gui_base/network/network_call.h"
#include "gui_base/support/translation.h"

#include <set>
#include <string>

namespace {

/// The currencies whose rates an answer must have: those that had one by the service before, as long as there
/// is such a currency. A rate that somebody typed needs no other one.
std::set<std::string> NeededCurrencies()
{
    std::set<std::string> existing;
    for (const DBObjects::Currency& currency : MasterDatabase::GetCurrencies())
        existing.insert(currency.code);
    std::set<std::string> needed;
    for (const DBObjects::ConversionRate& rate : ProjectDatabase::GetConversionRates()) {
        if (!rate.isTyped && existing.contains(rate.currency))
            needed.insert(rate.currency);
    }
    return needed;
}

wxString InvalidText(const std::set<std::string>& missing)
{
    wxString text = i18n::Translated("Invalid data received from currency server.");
    wxString codes;
    for (const std::string& currency : missing)
        codes += (codes.empty() ? "" : ", ") + wxString::FromUTF8(currency);
    if (!codes.empty())
        text += "\n" + wxString::Format(i18n::Translated("Rates are missing: %s."), codes);
    return text;
}

}  // namespace

bool Network::UpdateCurrencyConversionRates(wxString* error)
{
    return network_call::Guarded(error, [error] {
        const std::set<std::string> needed = NeededCurrencies();
        wxString connection;
        const Answer answer = Ask(endpoints::Get(endpoints::kCurrencyRates), {}, &connection);
        wxString problem;
        if (!answer.IsOk()) {
            problem = answer.code == 0 && !connection.empty()
                          ? connection
                          : i18n::Translated("Failed to connect to the currency server.");
        } else {
            const auto [fault, rates] = currency_rates::Read(answer.body);
            const auto missing = currency_rates::Missing(rates, needed);
            if (fault == currency_rates::Problem::NotWellFormed)
                problem = i18n::Translated("Not well formed response from currency server.");
            else if (fault != currency_rates::Problem::None)
                problem = InvalidText({});
            else if (!missing.empty())
                problem = InvalidText(missing);
            else
                ProjectDatabase::SetConversionRates(rates);
        }
        network_call::SetError(error, problem);
        return problem.empty();
    });
}
