// SPDX-License-Identifier: MIT
#include "app/tour/tour_pictures.h"

#include "app/document/templates.h"
#include "app/language/language.h"
#include "gui_base/support/window_picture.h"

#include <wx/app.h>
#include <wx/control.h>
#include <wx/dcmemory.h>
#include <wx/stopwatch.h>
#include <wx/utils.h>

#include <algorithm>
#include <fstream>
#include <stdexcept>

namespace app {
namespace {

constexpr long kSettleMilliseconds = 70;

/// A line of text below a picture: what it shows, as the window itself says.
wxImage WithCaption(const wxImage& picture, const wxString& caption)
{
    constexpr int kLine = 24;
    constexpr int kIndent = 8;
    wxBitmap whole(picture.GetWidth(), picture.GetHeight() + kLine);
    wxMemoryDC dc(whole);
    dc.SetBackground(*wxWHITE_BRUSH);
    dc.Clear();
    dc.DrawBitmap(wxBitmap(picture), 0, 0);
    dc.SetFont(*wxNORMAL_FONT);
    dc.SetTextForeground(*wxBLACK);
    dc.DrawText(wxControl::Ellipsize(caption, dc, wxELLIPSIZE_END, picture.GetWidth() - 2 * kIndent), kIndent,
                picture.GetHeight() + (kLine - dc.GetCharHeight()) / 2);
    dc.SelectObject(wxNullBitmap);
    return whole.ConvertToImage();
}

std::filesystem::path CaptionsFile(const std::filesystem::path& folder, const std::string& look)
{
    return folder / ("captions-" + look + ".txt");
}

}  // namespace

void Settle()
{
    const wxStopWatch watch;
    while (watch.Time() < kSettleMilliseconds) {
        wxTheApp->Yield();
        wxTheApp->ProcessIdle();
        wxMilliSleep(5);
    }
}

bool HasLanguage(const wxString& code)
{
    return std::ranges::any_of(AvailableLanguages(),
                               [&](const Language& language) { return language.code == code; });
}

std::unique_ptr<Project> NewExample()
{
    const WaterTemplate* river = FindWaterTemplate("world_river_livingstone");
    return river != nullptr ? NewProjectFrom(*river) : NewEmptyProject();
}

Pictures::Pictures(std::filesystem::path folder, std::string look)
    : m_folder(std::move(folder)), m_look(std::move(look))
{
    // A tour begins its own list: captions of one before are not of these pictures.
    const std::ofstream emptied(CaptionsFile(m_folder, m_look), std::ios::trunc);
}

void Pictures::Save(wxWindow& window, const std::string& name, const wxString& caption) const
{
    wxImage picture = window_picture::Take(window);
    const std::filesystem::path file = m_folder / (name + "-" + m_look + ".png");
    // A picture of one colour is one of a window that has not been drawn.
    if (!picture.IsOk() || picture.CountColours(1) <= 1)
        throw std::runtime_error("Pictures::Save: " + file.string() + " would be empty");
    if (!caption.empty())
        picture = WithCaption(picture, caption);
    if (!picture.SaveFile(wxString::FromUTF8(file.string()), wxBITMAP_TYPE_PNG))
        throw std::runtime_error("Pictures::Save: " + file.string() + " could not be made");
    if (caption.empty())
        return;
    std::ofstream captions(CaptionsFile(m_folder, m_look), std::ios::app);
    if (!(captions << name << '\t' << caption.utf8_string() << std::endl))
        throw std::runtime_error("Pictures::Save: the caption of " + file.string() + " could not be written");
}

void Tour::Visit(wxWindow& window, const std::string& name, const wxString& caption)
{
    Settle();
    m_visitor(window, name, caption);
}

void Tour::TakeDialog(wxDialog& dialog, const std::string& name)
{
    dialog.Show();
    Visit(dialog, "dialog_" + name + m_dialogSuffix, dialog.GetTitle());
    dialog.Hide();
}

}  // namespace app
