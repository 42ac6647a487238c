// SPDX-License-Identifier: MIT
// The services of product and safety data sheets.
#include "gui_base/network/data_sheet_lists.h"
#include "gui_base/network/endpoints.h"
#include "gui_base/network/network.h"
#include "gui_base/network/network_call.h"
#include "gui_base/network/part_file.h"
#include "gui_base/support/translation.h"
#include "tncommon/user_dirs.h"

#include <wx/filename.h>

#include <filesystem>

namespace {

using data_sheet_lists::Rewriting;
using data_sheet_lists::Sheets;

data_sheet_lists::Tables TablesOfSettings()
{
    const auto table = [](const char* setting) { return Rewriting(endpoints::Get(setting)); };
    return {.productLanguage = table("pds.language.repl"),
            .productIso = table("pds.language.iso2ib"),
            .productStatus = table("pds.status.repl"),
            .safetyLanguage = table("msds.language.repl")};
}

bool IsPdf(const std::string& bytes)
{
    return bytes.starts_with("%PDF-");
}

/// Puts the bytes in the place of a file, or leaves what was there.
bool Store(const std::string& bytes, const wxString& target, wxString* error)
{
    try {
        tncommon::CreatePrivateFolder(wxFileName(target).GetPath().utf8_string());
    } catch (const std::filesystem::filesystem_error&) {
        // Then no file can be made there, either.
    }
    PartFile file(target);
    if (file.IsOk())
        file.GetStream().Write(bytes.data(), bytes.size());
    if (file.Commit())
        return true;
    network_call::SetError(error, network_call::WriteError(target));
    return false;
}

wxString InFolder(const wxString& folder, const wxString& name)
{
    return wxFileName(folder, name).GetFullPath();
}

}  // namespace

/// What a list of sheets is asked of and what is said where it is none.
struct Network::SheetService
{
    const char* list;
    std::optional<Sheets> (*read)(std::string_view, const data_sheet_lists::Tables&);
    wxString invalid;
    wxString unavailable;
};

bool Network::LoadSheetList(const SheetService& service, Sheets& sheets, wxString* error)
{
    return network_call::Guarded(error, [&] {
        wxString connection;
        const Answer answer = Ask(endpoints::Get(service.list), {}, &connection);
        wxString problem;
        if (answer.IsOk()) {
            if (auto read = service.read(answer.body, TablesOfSettings()))
                sheets = std::move(*read);
            else
                problem = service.invalid;
        } else {
            problem = answer.code == 0 && !connection.empty()
                          ? connection
                          : service.unavailable + wxString::Format(" (%ld)", answer.code);
        }
        network_call::SetError(error, problem);
        return problem.empty();
    });
}

bool Network::LoadPdsList(Sheets& sheets, wxString* error)
{
    return LoadSheetList({endpoints::kProductSheetList, &data_sheet_lists::ReadProductSheets,
                          i18n::Translated("Product Data Sheet list invalid."),
                          i18n::Translated("Product Data Sheet list currently not available.")},
                         sheets, error);
}

bool Network::LoadMsdsList(Sheets& sheets, wxString* error)
{
    return LoadSheetList({endpoints::kSafetySheetList, &data_sheet_lists::ReadSafetySheets,
                          i18n::Translated("Material Safety Data Sheet list invalid."),
                          i18n::Translated("Material Safety Data Sheet list currently not available.")},
                         sheets, error);
}

bool Network::LoadDataSheetLists(Sheets& pds, Sheets& msds, wxString* error)
{
    wxString ofProducts;
    wxString ofSafety;
    const bool hasProducts = LoadPdsList(pds, &ofProducts);
    const bool hasSafety = LoadMsdsList(msds, &ofSafety);
    const bool isSame = ofProducts == ofSafety || ofSafety.empty() || ofProducts.empty();
    network_call::SetError(error,
                           isSame ? (hasProducts ? ofSafety : ofProducts) : ofProducts + "\n" + ofSafety);
    return hasProducts && hasSafety;
}

bool Network::LoadSheetFile(const wxString& url, const Form& form, const wxString& unavailable,
                            const wxString& target, wxString* error)
{
    return network_call::Guarded(error, [&] {
        wxString connection;
        const Answer answer = Ask(url, form, &connection);
        if (answer.IsOk() && IsPdf(answer.body))
            return Store(answer.body, target, error);
        network_call::SetError(error, answer.code == 0 && !connection.empty()
                                          ? connection
                                          : unavailable + wxString::Format(" (%ld)", answer.code));
        return false;
    });
}

bool Network::GetSheetvaultFile(const wxString& productId, const wxString& language, const wxString& target,
                                wxString* error)
{
    return LoadSheetFile(
        endpoints::Get(endpoints::kProductSheet), {{"prodid", productId}, {"language", language}},
        i18n::Translated("Morvane Sheetvault error: Product data sheet currently not available."), target,
        error);
}

bool Network::GetLabhouseFile(const wxString& legalArea, const wxString& address, const wxString& target,
                              wxString* error)
{
    return LoadSheetFile(
        endpoints::Get(endpoints::kSafetySheet), {{"legalarea", legalArea}, {"msdsurl", address}},
        i18n::Translated("Morvane Labhouse error: Material safety data sheet currently not available."),
        target, error);
}

wxString Network::LoadPdsFile(const NetObjects::DataSheetInfo& sheet, const wxString& folder, wxString* error)
{
    const wxString target = InFolder(folder, data_sheet_lists::ProductFileName(sheet));
    const wxString language =
        network_call::Guarded(error, [&] { return TablesOfSettings().productIso.Of(sheet.language); });
    return GetSheetvaultFile(sheet.productId, language, target, error) ? target : wxString();
}

wxString Network::LoadMsdsFile(const NetObjects::DataSheetInfo& sheet, const wxString& folder,
                               wxString* error)
{
    const wxString target = InFolder(folder, data_sheet_lists::SafetyFileName(sheet));
    return GetLabhouseFile(sheet.legalArea, sheet.address, target, error) ? target : wxString();
}
