// SPDX-License-Identifier: MIT
#pragma once

/// A panel of controls that belongs to no module: a page of a dialog, a block within a module panel. It keeps
/// its localizable and self-refreshing parts and asks them all at once.
///
/// Controls belong to the panel as their parent window and may go before it; combinations, which are no
/// windows, are owned by it. GUI thread only.

#include "gui_base/gui_base_export.h"
#include "gui_base/input/binding/detail_container_window.h"
#include "gui_base/input/controls/localizable.h"

#include <wx/panel.h>
#include <wx/weakref.h>

#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

class GUI_BASE_EXPORT TvPanel : public wxPanel
{
public:
    explicit TvPanel(wxWindow* parent, int id = wxID_ANY, const wxPoint& pos = wxDefaultPosition,
                     const wxSize& size = wxDefaultSize, long style = wxTAB_TRAVERSAL,
                     const wxString& name = wxASCII_STR(wxPanelNameStr))
        : wxPanel(parent, id, pos, size, style, name)
    {}
    ~TvPanel() override;

    /// Registers a control or box that has `Localize`, and one that is bound to a detail for refreshing.
    template <typename Control>
    Control* AddControl(Control* control)
    {
        m_localizables.push_back(MakeLocalizable(control));
        if constexpr (std::is_base_of_v<DetailContainerWindow, Control>)
            m_refreshers.push_back([held = wxWeakRef<Control>(control)] {
                if (held)
                    held->TransferDetailToWindow();
            });
        return control;
    }

    /// Takes a combination over and registers it.
    template <typename Combination>
    Combination* AddCombination(std::unique_ptr<Combination> combination)
    {
        Combination* added = combination.get();
        m_localizables.push_back(MakeLocalizable(added));
        m_refreshers.push_back([added] { added->TransferDetailToWindow(); });
        m_combinations.push_back(std::move(combination));
        return added;
    }

    /// Shows all texts and units in the present language and that unit system, and lays out again.
    virtual void Localize(const std::string& unitSystem);
    /// Shows the present values of all details.
    virtual void TransferDetailsToWindow();

private:
    std::vector<std::shared_ptr<LocalizableControl>> m_localizables;
    std::vector<std::function<void()>> m_refreshers;
    std::vector<std::unique_ptr<DetailContainerWindow>> m_combinations;
};
