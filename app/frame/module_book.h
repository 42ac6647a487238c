// SPDX-License-Identifier: MIT
#pragma once

/// The pages of the open project: a notebook, and the tree that leads to them. It follows the project: a page
/// for each module, or for each water of it, comes and goes with its owner. Pages are made when they are
/// first shown. The windows belong to their parents; the book goes before them and before the project.

#include "app/frame/page_host.h"

#include <wx/treectrl.h>

#include <string>
#include <vector>

class AuiNotebook;

namespace app {

class ModuleBook
{
public:
    /// `tree` and `notebook` are not owned.
    ModuleBook(wxTreeCtrl& tree, AuiNotebook& notebook);
    ModuleBook(const ModuleBook&) = delete;
    ModuleBook& operator=(const ModuleBook&) = delete;

    /// Shows the pages of a project as `arrangement` says, by itself the first water in front. No page is
    /// made that is not in view then.
    void Open(Project& project, TVHelpFileProvider* help, wxStatusBar* statusBar,
              const wxString& arrangement);
    /// Closes every page.
    void Close();
    /// Makes the pages that are in view; nothing while the window around them is not shown.
    void MakeShownPages();
    /// Whether something covers the notebook, behind which no page follows the project.
    void Cover(bool isCovered);
    /// Brings pages, tree and names into agreement with the owners that the project has now.
    void Follow();
    /// Shows in the tree how the balance of each water stands.
    void ShowBalances();
    /// The names of pages and tree in the present language.
    void Localize();

    /// Brings the page of a module and an owner to the front; null where there is none.
    ModulePanelBase* Show(const std::string& module, DetailOwner owner);
    /// The first page of an owner, whichever module it belongs to.
    ModulePanelBase* Show(DetailOwner owner);
    /// Brings the page to the front on which a value is edited, and puts the focus into its field; false
    /// where no page has it.
    bool ShowDetail(const DetailAddress& address);
    /// Brings the page at a place of the tree to the front, counted from 0; nothing where there is none.
    void ShowPlace(std::size_t place);
    /// Brings that page to the front which stands so many places further in the tree; behind the last one the
    /// first one follows.
    void ShowBeside(int step);
    /// The page in front, or null.
    const PageHost* GetCurrent() const;
    ModulePanelBase* GetCurrentPanel() const;
    /// Sends a command event to every page that was made; it does not climb.
    void SendToPages(wxEventType type);
    /// Lets every page read again what it shows of the user database.
    void RefreshDatabase();
    /// Shows money by the currency and the rates that there are now.
    void UpdateCurrencyDisplay();

private:
    struct Item;

    std::vector<Item> WantedItems() const;
    /// Gives every module and owner its place in the notebook and in the tree.
    void Arrange();
    void AddPage(const Item& item, std::size_t place);
    void SelectFirst();
    void FillTree();
    /// Selects what stands for the page in front.
    void MarkInTree();
    wxString NameOf(const PageHost& host) const;
    wxString TabNameOf(const PageHost& host) const;
    PageHost* Find(const std::string& module, DetailOwner owner) const;
    void Select(PageHost& host);
    void OnTreeSelection(wxTreeEvent& event);

    wxTreeCtrl& m_tree;
    AuiNotebook& m_notebook;
    Project* m_project = nullptr;
    TVHelpFileProvider* m_help = nullptr;
    wxStatusBar* m_statusBar = nullptr;
    /// In the order of the tree; the user may drag the pages of the notebook into another one.
    std::vector<PageHost*> m_hosts;
    /// Where the pictures of the balance begin among those of the tree.
    int m_balancePictures = 0;
    bool m_filling = false;
};

}  // namespace app
