// SPDX-License-Identifier: MIT
#pragma once

/// What stands between menus and status bar: the pages in the middle, panes around them that can be moved,
/// closed and shown again, and the strip of messages below. It arranges windows and knows nothing of what is
/// in them. The arrangement is kept over restarts by `KeepLayout`. GUI thread only.

#include <wx/aui/framemanager.h>
#include <wx/simplebook.h>
#include <wx/splitter.h>

#include <array>

class AuiNotebook;
class wxTreeCtrl;

namespace app {

class MessageStrip;

enum class WorkPane
{
    Navigator,
    Results,
    Diagram
};

constexpr std::size_t kWorkPanes = 3;

class WorkArea : public wxSplitterWindow
{
public:
    explicit WorkArea(wxWindow* parent);
    ~WorkArea() override;

    wxTreeCtrl& GetTree() { return *m_tree; }
    AuiNotebook& GetNotebook() { return *m_notebook; }
    MessageStrip& GetMessages() const { return *m_messages; }
    /// Parent of what is put into a pane.
    wxWindow* GetDesk() { return m_desk; }
    /// Puts a child of the desk into a pane that is empty so far.
    void AddPane(WorkPane pane, wxWindow* content);
    bool IsPaneShown(WorkPane pane) const;
    void ShowPane(WorkPane pane, bool show);
    /// Those of the present theme.
    void TakeColours();
    /// What is shown instead of the pages while `ShowCover` says so; a child of `GetCoverParent`.
    wxWindow* GetCoverParent() { return m_middle; }
    void SetCover(wxWindow* cover);
    void ShowCover(bool show);
    bool IsCoverShown() const;

    /// All panes in their usual places, for the present width of the window.
    void ArrangeAsUsual();
    /// After other names have come into the tree: makes room for them, unless the user has his own
    /// arrangement.
    void FitPanes();
    /// Takes the arrangement that an earlier window kept, or the usual one.
    void TakeKeptLayout();
    /// Once the window is shown: only then do windows that came before it know that they belong to it.
    void ShowFloating();
    void KeepLayout();
    void Localize();

private:
    /// Panes that float belong to the whole window, and so stay in front of it.
    class Docking : public wxAuiManager
    {
    public:
        wxAuiFloatingFrame* CreateFloatingFrame(wxWindow* parent, const wxAuiPaneInfo& pane) override
        {
            return wxAuiManager::CreateFloatingFrame(wxGetTopLevelParent(parent), pane);
        }
    };

    wxAuiPaneInfo UsualPlace(WorkPane pane) const;
    bool IsNarrow() const;
    int UsualWidth(WorkPane pane) const;
    std::array<int, kWorkPanes> UsualWidths() const;
    bool IsUsual();
    /// Whether the usual arrangement, if it still stands, wants other widths by now.
    bool HasOtherWidths();
    void OnSize(wxSizeEvent& event);
    void OnMessagesToggled();

    wxPanel* m_desk;
    wxSimplebook* m_middle = nullptr;
    wxTreeCtrl* m_tree = nullptr;
    AuiNotebook* m_notebook = nullptr;
    MessageStrip* m_messages = nullptr;
    Docking m_docking;
    /// The usual arrangement as it was made last, and its widths: who changed it keeps what he has.
    wxString m_usual;
    std::array<int, kWorkPanes> m_usualWidths{};
};

}  // namespace app
