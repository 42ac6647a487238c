// SPDX-License-Identifier: MIT
#pragma once

/// "Print to PDF": lets the user choose the pages and the file, and writes the report.
///
/// The choice of pages and whether the reservation is shown again are remembered as user parameters. A step
/// that is cancelled ends the whole; a file of that name is then as it was. GUI thread.

#include "gui_base/gui_base_export.h"
#include "gui_base/report/report_builder.h"

#include <wx/filename.h>
#include <wx/window.h>

#include <chrono>
#include <span>

class GUI_BASE_EXPORT TvReportController
{
public:
    explicit TvReportController(wxWindow* parent) : m_parent(parent) {}

    /// Goes through all steps, beginning with `proposed` as the file. Returns whether the file was written;
    /// the user has been told otherwise.
    bool Print(std::span<const ReportPageSource* const> sources, const ReportContext& context,
               const ReportHead& head, const wxFileName& proposed);

    /// Writing that takes longer shows its progress, and a button to cancel it.
    void SetProgressDelay(std::chrono::milliseconds delay) { m_progressDelay = delay; }

private:
    /// The identifiers of the chosen pages; none when the user cancelled.
    std::vector<int> ChoosePages(const std::vector<ReportPage>& pages);
    bool ConfirmDisclaimer();
    bool Write(const report::Document& document, const wxFileName& file);
    void ShowError(const wxFileName& file, const wxString& cause);
    void OfferToOpen(const wxFileName& file);

    wxWindow* m_parent;
    std::chrono::milliseconds m_progressDelay{500};
};
