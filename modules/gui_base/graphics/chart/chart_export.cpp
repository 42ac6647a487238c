// SPDX-License-Identifier: MIT
#include "gui_base/graphics/chart/chart_export.h"

#include "gui_base/dialogs/questions.h"
#include "gui_base/messages/user_message.h"
#include "gui_base/support/file_path.h"
#include "gui_base/support/translation.h"

#include <wx/bitmap.h>
#include <wx/clipbrd.h>
#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/log.h>
#include <wx/translation.h>

#include <array>

namespace chart_export {

namespace {

/// In the order of the filters.
constexpr std::array kExtensions{"png", "jpg", "bmp", "gif"};

const char* Filters()
{
    return wxTRANSLATE(
        "png files (*.png)|*.png |JPG files(*.jpg; *.jpeg)|*.jpg;*.jpeg|BMP files(*.bmp)|*.bmp|GIF "
        "files(*.gif)|*.gif");
}

/// The toolkit takes a blank behind a pattern for a part of it, and then hides all files.
wxString WithoutBlanks(wxString filters)
{
    while (filters.Replace(" |", "|") > 0) {
    }
    return filters;
}

/// The file that the user chose; without a name where there is none.
wxFileName Ask(wxWindow& parent)
{
    const wxString title = i18n::Translated(wxTRANSLATE("Save Chart"));
    wxFileDialog dialog(&parent, title, wxString(), "export_chart",
                        WithoutBlanks(i18n::Translated(Filters())), wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
    if (dialog.ShowModal() != wxID_OK)
        return {};
    wxFileName file(dialog.GetPath());
    if (!file.HasName() || file.HasExt())
        return file;
    const auto filter = static_cast<std::size_t>(std::max(dialog.GetFilterIndex(), 0));
    file.SetExt(kExtensions[std::min(filter, kExtensions.size() - 1)]);
    // The dialog asked about the name without its ending.
    if (file.FileExists() &&
        !dialogs::ConfirmReplacing(&parent, ShownPath(PathOf(file.GetFullPath())), title))
        return {};
    return file;
}

}  // namespace

void AskAndWrite(wxWindow& parent, chartdir::BaseChart& chart)
{
    const wxFileName file = Ask(parent);
    if (!file.HasName())
        return;
    const std::filesystem::path path = PathOf(file.GetFullPath());
    // Documents are white, whatever the desktop is.
    const chartdir::Theme theme = chart.getTheme();
    chart.setTheme(chartdir::LightTheme());
    const bool isWritten = chart.makeChart(path);
    chart.setTheme(theme);
    if (!isWritten)
        wxLogError(i18n::Translated(wxTRANSLATE("Cannot save current contents in file '%s'.")),
                   ShownPath(path));
}

bool Copy(const wxImage& picture)
{
    if (!picture.IsOk())
        return false;
    const wxClipboardLocker locker;
    return !!locker && wxTheClipboard->SetData(new wxBitmapDataObject(wxBitmap(picture)));
}

}  // namespace chart_export
