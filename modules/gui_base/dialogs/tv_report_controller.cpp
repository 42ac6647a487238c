// SPDX-License-Identifier: MIT
#include "gui_base/dialogs/tv_report_controller.h"

#include "dbinterfaces/project_database.h"
#include "gui_base/dialogs/file_name_creator.h"
#include "gui_base/dialogs/info_message_dialog.h"
#include "gui_base/dialogs/page_selection_dialog.h"
#include "gui_base/dialogs/progress_window.h"
#include "gui_base/messages/user_message.h"
#include "gui_base/report/report_file.h"
#include "gui_base/support/file_path.h"
#include "gui_base/support/translation.h"

#include <wx/log.h>
#include <wx/msgdlg.h>
#include <wx/tokenzr.h>
#include <wx/utils.h>

#include <set>
#include <system_error>

namespace {

constexpr const char* kSkippedPages = "/Report/skipped.pages";
constexpr const char* kHideDisclaimer = "/Report/hide.disclaimer";

/// A choice that cannot be remembered is no reason not to print.
template <typename Access>
void TryDatabase(Access access)
{
    try {
        access();
    } catch (const std::exception& error) {
        wxLogWarning("%s", MessageOf(error).text);
    }
}

/// Names of the pages that the user did not want the last time. Pages that are new since then are wanted.
std::set<std::string> SkippedPages()
{
    std::set<std::string> names;
    TryDatabase([&names] {
        const std::string list = ProjectDatabase::GetUserParameter(kSkippedPages, "");
        for (const wxString& name : wxStringTokenize(wxString::FromUTF8(list), ","))
            names.insert(name.utf8_string());
    });
    return names;
}

void RememberSkippedPages(const std::vector<ReportPage>& pages, const std::vector<int>& chosen)
{
    // What this project does not have stays as it was.
    std::set<std::string> skipped = SkippedPages();
    for (const ReportPage& page : pages) {
        skipped.erase(page.name);
        if (std::find(chosen.begin(), chosen.end(), page.id) == chosen.end())
            skipped.insert(page.name);
    }
    std::string list;
    for (const std::string& name : skipped)
        list += (list.empty() ? "" : ",") + name;
    TryDatabase([&list] { ProjectDatabase::SetUserParameter(kSkippedPages, list); });
}

}  // namespace

bool TvReportController::Print(std::span<const ReportPageSource* const> sources, const ReportContext& context,
                               const ReportHead& head, const wxFileName& proposed)
{
    const ReportBuilder builder(sources, context);
    const std::vector<int> chosen = ChoosePages(builder.GetPages());
    if (chosen.empty() || !ConfirmDisclaimer())
        return false;
    const wxFileName file =
        FileNameCreator()(m_parent, i18n::Translated("Print to PDF"), proposed.GetPath(),
                          proposed.GetFullName(), i18n::Translated("PDF files") + " (*.pdf)|*.pdf", "pdf");
    if (!file.IsOk())
        return false;
    try {
        if (!Write(builder.Build(chosen, head), file))
            return false;
    } catch (const std::system_error& error) {
        ShowError(file, CauseText(error.code()));
        return false;
    } catch (const std::exception& error) {
        ShowError(file, ShownText(error.what()));
        return false;
    }
    OfferToOpen(file);
    return true;
}

std::vector<int> TvReportController::ChoosePages(const std::vector<ReportPage>& pages)
{
    const std::set<std::string> skipped = SkippedPages();
    std::vector<std::pair<wxString, int>> titles;
    std::vector<int> chosen;
    for (const ReportPage& page : pages) {
        titles.emplace_back(page.title, page.id);
        if (page.chosen && !skipped.contains(page.name))
            chosen.push_back(page.id);
    }
    PageSelectionDialog dialog(titles, m_parent);
    dialog.SetActiveReports(chosen);
    if (dialog.ShowModal() != wxID_OK)
        return {};
    chosen.clear();
    for (const ReportPage& page : dialog.GetActiveReports())
        chosen.push_back(page.id);
    if (!chosen.empty())
        RememberSkippedPages(pages, chosen);
    return chosen;
}

bool TvReportController::ConfirmDisclaimer()
{
    bool hidden = false;
    TryDatabase([&hidden] { hidden = ProjectDatabase::GetUserParameter(kHideDisclaimer, false); });
    if (hidden)
        return true;
    InfoMessageDialog dialog(ReportDisclaimer(), m_parent, wxID_ANY, "Print to PDF", wxDefaultPosition,
                             wxDefaultSize, wxDEFAULT_DIALOG_STYLE | wxCANCEL);
    if (dialog.ShowModal() != wxID_OK)
        return false;
    if (dialog.GetDontShowAgainValue())
        TryDatabase([] { ProjectDatabase::SetUserParameter(kHideDisclaimer, true); });
    return true;
}

bool TvReportController::Write(const report::Document& document, const wxFileName& file)
{
    dialogs::ProgressWindow progress(m_parent, i18n::Translated("Print to PDF"),
                                     i18n::Translated("The report is being written"), m_progressDelay);
    try {
        WriteReportFile(document, PathOf(file.GetFullPath()),
                        [&progress](double done) { return progress.Update(done); });
        return true;
    } catch (const report::Cancelled&) {
        return false;
    }
}

void TvReportController::ShowError(const wxFileName& file, const wxString& cause)
{
    wxMessageDialog dialog(
        m_parent,
        wxString::Format(i18n::Translated("The report could not be written to %s: %s. A file of that name "
                                          "is as it was."),
                         ShownPath(PathOf(file.GetFullPath())), cause),
        i18n::Translated("Print to PDF"), wxOK | wxICON_ERROR);
    dialog.ShowModal();
}

void TvReportController::OfferToOpen(const wxFileName& file)
{
    wxMessageDialog dialog(m_parent,
                           wxString::Format(i18n::Translated("The report was written to %s. Open it?"),
                                            ShownPath(PathOf(file.GetFullPath()))),
                           i18n::Translated("Print to PDF"), wxYES_NO | wxICON_INFORMATION);
    dialog.SetYesNoLabels(i18n::Translated("&Open"), i18n::Translated("&Close"));
    if (dialog.ShowModal() == wxID_YES && !wxLaunchDefaultApplication(file.GetFullPath()))
        wxLogError(i18n::Translated("There is no program that opens %s."),
                   ShownPath(PathOf(file.GetFullPath())));
}
