// SPDX-License-Identifier: MIT
#include "gui_base/network/data_sheet_lists.h"

#include "gui_base/network/xml_rows.h"
#include "tncommon/checksum_calculator.h"

#include <wx/tokenzr.h>

#include <algorithm>
#include <initializer_list>

namespace data_sheet_lists {

namespace {

using NetObjects::DataSheetInfo;
using xml_rows::Fields;

/// Letters of a name beside its beginning, checksum and ending.
constexpr std::size_t kMostReadable = 80;

wxString Text(const Fields& fields, std::string_view name)
{
    return wxString::FromUTF8(xml_rows::Field(fields, name));
}

bool IsHarmless(char letter)
{
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
           (letter >= '0' && letter <= '9') || letter == '_';
}

wxString FileName(const char* kind, std::initializer_list<wxString> parts)
{
    std::string readable;
    tncommon::ChecksumCalculator checksum;
    for (const wxString& part : parts) {
        const std::string bytes = part.utf8_string();
        checksum.Add(std::to_string(bytes.size()) + ":" + bytes);
        std::ranges::transform("-" + bytes, std::back_inserter(readable),
                               [](char letter) { return IsHarmless(letter) ? letter : '-'; });
    }
    return kind + readable.substr(0, kMostReadable) + "-" + checksum.GetText() + ".pdf";
}

}  // namespace

Rewriting::Rewriting(const wxString& table)
{
    wxStringTokenizer rows(table, ";", wxTOKEN_STRTOK);
    while (rows.HasMoreTokens()) {
        wxString to;
        wxString from = rows.GetNextToken().BeforeFirst('=', &to);
        from.Trim().Trim(false);
        to.Trim().Trim(false);
        if (!from.empty() && !to.empty())
            m_rows.emplace_back(from, to);
    }
}

wxString Rewriting::Of(const wxString& from) const
{
    const auto found =
        std::ranges::find_if(m_rows, [&](const auto& row) { return row.first.IsSameAs(from, false); });
    return found == m_rows.end() ? from : found->second;
}

wxString Rewriting::Back(const wxString& to) const
{
    const auto found =
        std::ranges::find_if(m_rows, [&](const auto& row) { return row.second.IsSameAs(to, false); });
    return found == m_rows.end() ? to : found->first;
}

std::optional<Sheets> ReadProductSheets(std::string_view answer, const Tables& tables)
{
    const xml_rows::Document document =
        xml_rows::Read(answer, {"tarnvik-pds-list", "sheet", {"prodid", "status", "language"}});
    if (document.problem != xml_rows::Problem::None)
        return std::nullopt;
    Sheets sheets;
    for (const Fields& row : document.rows) {
        DataSheetInfo sheet;
        sheet.productId = Text(row, "prodid");
        sheet.language = tables.productIso.Back(tables.productLanguage.Of(Text(row, "language")));
        if (const wxString status = Text(row, "status"); !status.empty())
            sheet.status = tables.productStatus.Of(status);
        if (!sheet.productId.empty())
            sheets.push_back(sheet);
    }
    return sheets;
}

std::optional<Sheets> ReadSafetySheets(std::string_view answer, const Tables& tables)
{
    const xml_rows::Document document = xml_rows::Read(
        answer, {"tarnvik-msds-list", "sheet", {"product", "legalarea", "company", "language", "address"}});
    if (document.problem != xml_rows::Problem::None)
        return std::nullopt;
    Sheets sheets;
    for (const Fields& row : document.rows) {
        DataSheetInfo sheet;
        sheet.productId = Text(row, "product");
        sheet.legalArea = Text(row, "legalarea");
        sheet.company = Text(row, "company");
        sheet.language = tables.safetyLanguage.Of(Text(row, "language"));
        sheet.address = Text(row, "address");
        if (!sheet.productId.empty() && !sheet.address.empty())
            sheets.push_back(sheet);
    }
    return sheets;
}

wxString ProductFileName(const DataSheetInfo& sheet)
{
    return FileName("pds", {sheet.productId, sheet.language});
}

wxString SafetyFileName(const DataSheetInfo& sheet)
{
    return FileName("msds", {sheet.productId, sheet.legalArea, sheet.language, sheet.address});
}

}  // namespace data_sheet_lists
