// SPDX-License-Identifier: MIT
#include "app/frame/module_book.h"

#include "app/frame/page_item.h"
#include "gui_base/input/panel/aui_notebook.h"
#include "gui_base/input/panel/tv_modulepanelbase.h"
#include "gui_base/ionexchange/exchanger_name.h"
#include "gui_base/messages/user_message.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/image_loader.h"
#include "gui_base/support/translation.h"
#include "projectbase/advice/balance_judgement.h"
#include "projectbase/project/project.h"

#include <wx/aui/auibook.h>

#include <algorithm>
#include <array>

namespace app {

namespace {

constexpr int kIconSize = 16;

/// In the order of `advice::BalanceMark`.
constexpr std::array kBalancePictures{"icons/balance_unknown.svg", "icons/balance_good.svg",
                                      "icons/balance_doubtful.svg", "icons/balance_over.svg"};

}  // namespace

struct ModuleBook::Item
{
    const Module* module;
    DetailOwner owner;
};

ModuleBook::ModuleBook(wxTreeCtrl& tree, AuiNotebook& notebook) : m_tree(tree), m_notebook(notebook)
{
    m_tree.Bind(wxEVT_TREE_SEL_CHANGED, &ModuleBook::OnTreeSelection, this);
    m_notebook.Bind(wxEVT_AUINOTEBOOK_PAGE_CHANGED, [this](wxAuiNotebookEvent& event) {
        event.Skip();
        MarkInTree();
    });
}

void ModuleBook::Open(Project& project, TVHelpFileProvider* help, wxStatusBar* statusBar,
                      const wxString& arrangement)
{
    m_project = &project;
    m_help = help;
    m_statusBar = statusBar;
    Arrange();
    SelectFirst();
    if (!arrangement.empty())
        m_notebook.LoadPerspective(arrangement);
    MakeShownPages();
}

void ModuleBook::Close()
{
    // The items of the tree point to the pages.
    m_filling = true;
    m_tree.DeleteAllItems();
    m_filling = false;
    for (PageHost* host : m_hosts)
        host->Hold();
    m_hosts.clear();
    m_notebook.DeleteAllPages();
    m_project = nullptr;
}

std::vector<ModuleBook::Item> ModuleBook::WantedItems() const
{
    std::vector<Item> items;
    for (const Module& module : Modules()) {
        if (!module.isFor(*m_project))
            continue;
        if (module.pageOf == OwnerKind::Project) {
            items.push_back({&module, {}});
            continue;
        }
        for (const auto& owner : m_project->GetRoot().GetChildren(module.pageOf)) {
            if (module.hasPage == nullptr || module.hasPage(*owner))
                items.push_back({&module, owner->GetOwner()});
        }
    }
    return items;
}

void ModuleBook::AddPage(const Item& item, std::size_t place)
{
    auto* host = new PageHost(&m_notebook, *item.module, item.owner, [this, item](wxWindow* parent) {
        return item.module->makePage({*m_project, parent, m_help, m_statusBar,
                                      [this](const DetailAddress& address) { ShowDetail(address); }},
                                     *m_project->FindOwner(item.owner));
    });
    m_hosts.insert(m_hosts.begin() + static_cast<std::ptrdiff_t>(place), host);
    // Its name follows, with its tip.
    m_notebook.InsertPage(std::min(place, m_notebook.GetPageCount()), host, wxString());
}

void ModuleBook::Follow()
{
    Arrange();
    MakeShownPages();
}

void ModuleBook::MakeShownPages()
{
    // A window that is still to be shown may get another project first.
    if (!m_notebook.IsShownOnScreen())
        return;
    for (PageHost* host : m_hosts)
        host->Release();
}

void ModuleBook::Cover(bool isCovered)
{
    for (const PageHost* host : m_hosts) {
        if (host->GetPanel() != nullptr)
            host->GetPanel()->Show(!isCovered && host->IsShown());
    }
}

void ModuleBook::Arrange()
{
    const std::vector<Item> wanted = WantedItems();
    const auto is = [](const PageHost& host, const Item& item) {
        return &host.GetModule() == item.module && host.GetOwner() == item.owner;
    };
    m_filling = true;
    m_tree.DeleteAllItems();
    m_filling = false;
    const auto firstGone = std::stable_partition(m_hosts.begin(), m_hosts.end(), [&](const PageHost* host) {
        return std::ranges::any_of(wanted, [&](const Item& item) { return is(*host, item); });
    });
    const std::vector<PageHost*> gone(firstGone, m_hosts.end());
    m_hosts.erase(firstGone, m_hosts.end());
    for (PageHost* host : gone)
        host->Hold();
    for (PageHost* host : gone)
        m_notebook.DeletePage(static_cast<std::size_t>(m_notebook.GetPageIndex(host)));
    for (std::size_t place = 0; place < wanted.size(); ++place) {
        const auto found =
            std::ranges::find_if(m_hosts, [&](const PageHost* host) { return is(*host, wanted[place]); });
        if (found == m_hosts.end())
            AddPage(wanted[place], place);
        else
            std::rotate(m_hosts.begin() + static_cast<std::ptrdiff_t>(place), found, found + 1);
    }
    Localize();
}

void ModuleBook::SelectFirst()
{
    // Work begins with a water.
    const auto water = std::ranges::find_if(
        m_hosts, [](const PageHost* host) { return host->GetModule().pageOf == OwnerKind::Water; });
    if (water != m_hosts.end())
        m_notebook.SetSelection(static_cast<std::size_t>(m_notebook.GetPageIndex(*water)));
}

wxString ModuleBook::NameOf(const PageHost& host) const
{
    const OwnerNode* owner = m_project->FindOwner(host.GetOwner());
    if (owner != nullptr && owner->GetKind() == OwnerKind::Exchanger)
        return ExchangerName(*owner);
    const bool named = owner != nullptr && !owner->GetName().empty();
    return i18n::Translated(named ? ShownText(owner->GetName()) : wxString(host.GetModule().title));
}

wxString ModuleBook::TabNameOf(const PageHost& host) const
{
    // Several modules have a page for each exchanger.
    const OwnerNode* owner = m_project->FindOwner(host.GetOwner());
    if (owner != nullptr && owner->GetKind() == OwnerKind::Exchanger)
        return wxString::Format("%s %zu", i18n::Translated(host.GetModule().title), owner->GetPosition() + 1);
    return NameOf(host);
}

void ModuleBook::Localize()
{
    for (PageHost* host : m_hosts) {
        const auto page = static_cast<std::size_t>(m_notebook.GetPageIndex(host));
        const wxString name = TabNameOf(*host);
        // The toolkit draws all tabs anew for each text.
        if (m_notebook.GetPageText(page) != name)
            m_notebook.SetPageText(page, name);
        accessibility::SetName(*host, name);
    }
    for (wxWindow* child : m_notebook.GetChildren()) {
        if (dynamic_cast<wxAuiTabCtrl*>(child) != nullptr)
            accessibility::SetName(*child, i18n::Translated("Pages"));
    }
    FillTree();
}

void ModuleBook::FillTree()
{
    m_filling = true;
    m_tree.DeleteAllItems();
    wxVector<wxBitmapBundle> images;
    const wxTreeItemId root = m_tree.AddRoot(wxString());
    const Module* last = nullptr;
    wxTreeItemId branch;
    for (PageHost* host : m_hosts) {
        const Module& module = host->GetModule();
        if (&module != last) {
            images.push_back(ImageLoader::LoadBundle(module.icon, wxSize(kIconSize, kIconSize)));
            const int image = static_cast<int>(images.size()) - 1;
            const bool isPage = module.pageOf == OwnerKind::Project;
            const wxString title = i18n::Translated(module.title);
            branch = m_tree.AppendItem(root, title, image, image,
                                       new PageItem(title, wxELLIPSIZE_END, isPage ? host : nullptr));
            last = &module;
        }
        if (module.pageOf == OwnerKind::Project)
            continue;
        const wxString name = NameOf(*host);
        const bool isUsers = module.pageOf == OwnerKind::Water;
        m_tree.AppendItem(branch, name, -1, -1,
                          new PageItem(name, isUsers ? wxELLIPSIZE_MIDDLE : wxELLIPSIZE_END, host));
    }
    m_balancePictures = static_cast<int>(images.size());
    for (const char* name : kBalancePictures)
        images.push_back(ImageLoader::LoadBundle(name, wxSize(kIconSize, kIconSize)));
    m_tree.SetImages(images);
    ShowBalances();
    m_tree.ExpandAll();
    FitNames(m_tree);
    m_filling = false;
    MarkInTree();
}

void ModuleBook::ShowBalances()
{
    if (m_tree.IsEmpty())
        return;
    VisitItems(m_tree, m_tree.GetRootItem(), [this](const wxTreeItemId& item) {
        const PageHost* page = PageOfItem(m_tree, item);
        const auto* water =
            page == nullptr ? nullptr : dynamic_cast<LiquidData*>(m_project->FindOwner(page->GetOwner()));
        if (water == nullptr)
            return false;
        const advice::BalanceMark mark =
            advice::MarkOf(advice::JudgeBalance(*water->GetDetails(), advice::ChosenBalanceRule()));
        const int picture = m_balancePictures + static_cast<int>(mark);
        if (m_tree.GetItemImage(item) != picture)
            m_tree.SetItemImage(item, picture);
        return false;
    });
}

void ModuleBook::MarkInTree()
{
    const PageHost* current = GetCurrent();
    wxTreeItemId item;
    if (!m_filling && current != nullptr && !m_tree.IsEmpty()) {
        VisitItems(m_tree, m_tree.GetRootItem(), [&](const wxTreeItemId& candidate) {
            if (PageOfItem(m_tree, candidate) != current)
                return false;
            item = candidate;
            return true;
        });
    }
    if (item.IsOk())
        // The items are drawn; what is chosen is said with the name of the whole.
        accessibility::SetName(m_tree,
                               i18n::Translated("Navigator") + i18n::Colon() + " " + WholeName(m_tree, item));
    if (!item.IsOk() || m_tree.IsSelected(item))
        return;
    m_filling = true;
    m_tree.SelectItem(item);
    m_filling = false;
}

PageHost* ModuleBook::Find(const std::string& module, DetailOwner owner) const
{
    const auto found = std::ranges::find_if(m_hosts, [&](const PageHost* host) {
        return host->GetModule().id == module && host->GetOwner() == owner;
    });
    return found == m_hosts.end() ? nullptr : *found;
}

void ModuleBook::Select(PageHost& host)
{
    m_notebook.SetSelection(static_cast<std::size_t>(m_notebook.GetPageIndex(&host)));
    host.MakePage();
    host.SetFocus();
}

ModulePanelBase* ModuleBook::Show(const std::string& module, DetailOwner owner)
{
    PageHost* host = Find(module, owner);
    if (host == nullptr)
        return nullptr;
    Select(*host);
    return host->GetPanel();
}

ModulePanelBase* ModuleBook::Show(DetailOwner owner)
{
    const auto found = std::ranges::find(m_hosts, owner, &PageHost::GetOwner);
    return found == m_hosts.end() ? nullptr : Show((*found)->GetModule().id, owner);
}

bool ModuleBook::ShowDetail(const DetailAddress& address)
{
    const auto holds = [&](const PageHost* host) {
        const OwnerNode* owner = host == nullptr ? nullptr : m_project->FindOwner(host->GetOwner());
        return owner != nullptr && host->GetModule().holds(*m_project, *owner, address);
    };
    // Where several pages show a value, nobody is led away from the one in front.
    const PageHost* shown = GetCurrent();
    if (!holds(shown)) {
        const auto found = std::ranges::find_if(m_hosts, holds);
        if (found == m_hosts.end())
            return false;
        Select(**found);
        shown = *found;
    }
    // A page has no panel as long as something else, such as the start page, stands in its place.
    ModulePanelBase* const panel = shown->GetPanel();
    if (panel == nullptr)
        return false;
    panel->SetKeepsTop(false);
    return panel->FocusDetail(address);
}

void ModuleBook::ShowPlace(std::size_t place)
{
    if (place < m_hosts.size())
        Select(*m_hosts[place]);
}

void ModuleBook::ShowBeside(int step)
{
    const auto current = std::ranges::find(m_hosts, GetCurrent());
    if (current == m_hosts.end())
        return;
    const auto count = static_cast<std::ptrdiff_t>(m_hosts.size());
    const std::ptrdiff_t place = (current - m_hosts.begin() + step % count + count) % count;
    ShowPlace(static_cast<std::size_t>(place));
}

const PageHost* ModuleBook::GetCurrent() const
{
    return dynamic_cast<const PageHost*>(m_notebook.GetCurrentPage());
}

ModulePanelBase* ModuleBook::GetCurrentPanel() const
{
    const PageHost* host = GetCurrent();
    return host == nullptr ? nullptr : host->GetPanel();
}

void ModuleBook::SendToPages(wxEventType type)
{
    for (const PageHost* host : m_hosts) {
        ModulePanelBase* panel = host->GetPanel();
        if (panel == nullptr)
            continue;
        wxCommandEvent event(type, panel->GetId());
        // To the panel alone: it would climb back to the frame.
        event.StopPropagation();
        panel->GetEventHandler()->ProcessEvent(event);
    }
}

void ModuleBook::UpdateCurrencyDisplay()
{
    for (const PageHost* host : m_hosts) {
        if (host->GetPage().panel != nullptr)
            host->GetPage().panel->UpdateCurrencyDisplay();
    }
}

void ModuleBook::RefreshDatabase()
{
    for (const PageHost* host : m_hosts) {
        if (host->GetPage().refreshDatabase)
            host->GetPage().refreshDatabase();
    }
}

void ModuleBook::OnTreeSelection(wxTreeEvent& event)
{
    PageHost* const host = m_filling ? nullptr : PageOfItem(m_tree, event.GetItem());
    if (host != nullptr)
        Select(*host);
}

}  // namespace app
