// SPDX-License-Identifier: MIT
#pragma once

/// What the program begins with when no project was named: new projects by type of plant, example waters, the
/// files used last. Its contents are made when it is first shown. The frame outlives the page.

#include <wx/scrolwin.h>

#include <functional>
#include <string>

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

private:
    void Build();
    wxSizer* BuildPlants();
    wxSizer* BuildExamples();
    wxSizer* BuildRecent();
    wxSizer* NewSection(const char* title, wxSizer* content);
    /// A wide flat button with a picture, a name and a line of explanation.
    wxButton* NewTile(const wxBitmapBundle& picture, const wxString& name, const wxString& explanation,
                      std::function<void()> action);

    MainFrame& m_frame;
    bool m_isBuilt = false;
};

}  // namespace app
