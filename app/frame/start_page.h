// SPDX-License-Identifier: MIT
#pragma once

/// What the program begins with when no project was named: new projects by type of plant, example waters, the
/// files used last. Its contents are made when it is first shown. The frame outlives the page.

#include <wx/bitmap.h>
#include <wx/scrolwin.h>

#include <functional>
#include <string>
#include <vector>

class wxBitmapBundle;
class wxButton;
class wxSizer;

namespace app {

class MainFrame;

class StartPage : public wxScrolledWindow
{
public:
    StartPage(wxWindow* parent, MainFrame& frame);

    /// With the files that there are now, in the present language.
    void ShowFresh();
    void Localize();
    /// After the theme became another one.
    void TakeColours();

private:
    void Build();
    wxSizer* BuildPlants();
    wxSizer* BuildExamples();
    /// Pictures of the example waters. Each takes the calculation of a project, and none depends on language
    /// or theme: they are made once for each scale of the display.
    const std::vector<wxBitmap>& ExampleStrips();
    wxSizer* BuildRecent();
    wxSizer* NewSection(const char* title, wxSizer* content);
    /// A wide flat button with a picture, a name and a line of explanation.
    wxButton* NewTile(const wxBitmapBundle& picture, const wxString& name, const wxString& explanation,
                      std::function<void()> action);

    MainFrame& m_frame;
    std::vector<wxBitmap> m_strips;
    bool m_isBuilt = false;
};

}  // namespace app
