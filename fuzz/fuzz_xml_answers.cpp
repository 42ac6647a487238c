// SPDX-License-Identifier: MIT
// What services answer with: rates of currencies, lists of data sheets, updates, errors.
#include "core/conversion_rate.h"
#include "gui_base/network/currency_rates.h"
#include "gui_base/network/data_sheet_lists.h"
#include "gui_base/network/error_answer.h"
#include "gui_base/network/update_description.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

void ReadRates(std::string_view bytes)
{
    const auto [problem, rates] = currency_rates::Read(bytes);
    Require(rates.empty() == (problem != currency_rates::Problem::None));
    for (const auto& [currency, rate] : rates)
        Require(conversion_rate::IsCode(currency) && conversion_rate::IsRateOf(currency, rate));
}

void ReadLists(std::string_view bytes)
{
    using data_sheet_lists::Rewriting;
    static const data_sheet_lists::Tables tables{.productLanguage = Rewriting("English=E;German=D"),
                                                 .productIso = Rewriting("en=E;de=D"),
                                                 .productStatus = Rewriting("F=final"),
                                                 .safetyLanguage = Rewriting("E=en;D=de")};
    for (const auto& sheet :
         data_sheet_lists::ReadProductSheets(bytes, tables).value_or(data_sheet_lists::Sheets())) {
        const wxString name = data_sheet_lists::ProductFileName(sheet);
        Require(name.size() <= 120 && name.find_first_of("/\\:") == wxString::npos);
        Require(!sheet.productId.empty() && !sheet.status.empty());
    }
    for (const auto& sheet :
         data_sheet_lists::ReadSafetySheets(bytes, tables).value_or(data_sheet_lists::Sheets())) {
        const wxString name = data_sheet_lists::SafetyFileName(sheet);
        Require(name.size() <= 120 && name.find_first_of("/\\:") == wxString::npos);
        Require(!sheet.productId.empty() && !sheet.address.empty());
    }
}

void ReadUpdate(std::string_view bytes)
{
    const auto update = ReadUpdateDescription(bytes);
    if (!update)
        return;
    Require(!update->file.empty() && update->file.front() != '.' && update->size >= 0);
    Require(update->file.find_first_of("/\\:") == std::string::npos && update->sha256.size() == 64);
    Require(!IsNewerVersion(update->version, update->version));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    ReadRates(bytes);
    ReadLists(bytes);
    ReadUpdate(bytes);
    // A root that is an error is none of the others.
    Require(!IsErrorAnswer(bytes) || !ReadUpdateDescription(bytes));
    return 0;
}
