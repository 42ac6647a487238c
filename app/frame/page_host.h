// SPDX-License-Identifier: MIT
#pragma once

/// The place of a page in the notebook. The page itself is made when the place is first shown.

#include "app/modules/base/module.h"

#include <wx/panel.h>
#include <wx/weakref.h>

#include <functional>

namespace app {

class PageHost : public wxPanel
{
public:
    /// `make` makes the page as a child of the host it is given; not before Release.
    PageHost(wxWindow* parent, const Module& module, DetailOwner owner,
             std::function<ModulePage(wxWindow*)> make);
    ~PageHost() override;

    const Module& GetModule() const { return *m_module; }
    DetailOwner GetOwner() const { return m_owner; }
    /// The page, or null while nobody has seen it.
    ModulePanelBase* GetPanel() const { return m_page.panel; }
    const ModulePage& GetPage() const { return m_page; }
    /// Makes the page if it was not made yet.
    ModulePanelBase& MakePage();
    /// Gives the keyboard to what had it last on the page, or to where work on the page begins.
    void SetFocus() override;
    /// From now on the page is made when it is shown, at once if it is already.
    void Release();
    /// From now on no page is made: pages behind come into view while those before them are closed.
    void Hold() { m_released = false; }

private:
    void FitPage();

    const Module* m_module;
    DetailOwner m_owner;
    std::function<ModulePage(wxWindow*)> m_make;
    ModulePage m_page;
    bool m_released = false;
    wxWeakRef<wxWindow> m_lastFocused;
};

}  // namespace app
