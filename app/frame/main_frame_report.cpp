// SPDX-License-Identifier: MIT
// The report of the open project.
#include "app/frame/main_frame.h"
#include "app/language/language.h"
#include "gui_base/dialogs/tv_report_controller.h"
#include "gui_base/input/validation/commit.h"
#include "gui_base/input/validation/numeric_validator.h"
#include "gui_base/report/feed_report.h"
#include "gui_base/report/water_report.h"
#include "gui_base/support/translation.h"
#include "projectbase/settings/settings.h"

namespace app {
namespace {

/// In the language and with the numbers of the window, in the units of printouts.
ReportContext WindowContext()
{
    ReportContext context;
    context.unitSystem = Settings::GetSetting("unit.system.printout").GetStdStringValue();
    context.language = CurrentLanguage().utf8_string();
    context.separators = NumericValidator::LocaleSeparators();
    context.translate = [](const char* source) { return i18n::Translated(source).utf8_string(); };
    return context;
}

}  // namespace

void MainFrame::PrintReport()
{
    CommitFocusedField();
    const std::string name = m_document->GetName();
    const wxString title = name.empty() ? i18n::Translated("Untitled") : wxString::FromUTF8(name);
    const ReportHead head =
        MakeReportHead(m_document->GetProject(), title.utf8_string(), "Tarnvik " TARNVIK_VERSION);
    const wxFileName proposed(wxString::FromUTF8(m_document->GetPath().parent_path().string()), title, "pdf");
    const WaterReport waters(m_document->GetProject());
    const FeedReport feed(m_document->GetProject());
    const ReportPageSource* const sources[] = {&waters, &feed};
    try {
        TvReportController(this).Print(sources, WindowContext(), head, proposed);
    } catch (const std::exception& error) {
        ReportError(wxString::FromUTF8(error.what()));
    }
}

}  // namespace app
