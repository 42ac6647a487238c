// SPDX-License-Identifier: MIT
#include "app/frame/page_host.h"

#include "gui_base/input/panel/tv_modulepanelbase.h"

namespace app {

PageHost::PageHost(wxWindow* parent, const Module& module, DetailOwner owner,
                   std::function<ModulePage(wxWindow*)> make)
    : m_module(&module), m_owner(owner), m_make(std::move(make))
{
    // Hidden from the start, so that a page behind others is not taken for one in view.
    Hide();
    Create(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL, "page");
    Bind(wxEVT_SHOW, [this](wxShowEvent& event) {
        event.Skip();
        if (event.IsShown() && m_released)
            MakePage();
        // GTK leaves windows that were hidden when the order was made out of it.
        if (event.IsShown() && GetPrevSibling() != nullptr)
            MoveAfterInTabOrder(GetPrevSibling());
        // The page follows the project only while it is in view.
        if (m_page.panel != nullptr)
            m_page.panel->Show(event.IsShown());
    });
    Bind(wxEVT_CHILD_FOCUS, [this](wxChildFocusEvent& event) {
        event.Skip();
        m_lastFocused = event.GetWindow();
    });
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        FitPage();
    });
}

PageHost::~PageHost()
{
    DestroyChildren();
}

ModulePanelBase& PageHost::MakePage()
{
    if (m_page.panel == nullptr) {
        m_page = m_make(this);
        FitPage();
    }
    return *m_page.panel;
}

void PageHost::SetFocus()
{
    if (m_page.panel == nullptr)
        return wxPanel::SetFocus();
    m_page.panel->SetKeepsTop(true);
    if (m_lastFocused && m_lastFocused->CanAcceptFocus())
        m_lastFocused->SetFocus();
    else if (m_module->firstValue == nullptr || !m_page.panel->FocusDetail({m_owner, m_module->firstValue}))
        m_page.panel->SetFocus();
}

void PageHost::Release()
{
    m_released = true;
    if (IsShown())
        MakePage();
}

void PageHost::FitPage()
{
    // A new panel stands in the middle of its parent, wherever that is.
    if (m_page.panel != nullptr)
        m_page.panel->SetSize(wxRect(GetClientSize()));
}

}  // namespace app
