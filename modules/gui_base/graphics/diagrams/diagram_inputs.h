// SPDX-License-Identifier: MIT
#pragma once

/// What is chosen beside the diagrams of waters: which of them, which waters, how they are drawn; and the
/// buttons that export. It tells of every choice by a callback. The options are settings of the user, of
/// which a change is sent to the host as well (tvCHANGESETTINGS_EVENT); diagrams and waters stay chosen for
/// as long as the page lives. GUI thread only.

#include "gui_base/gui_base_export.h"
#include "gui_base/input/controls/localizable.h"
#include "gui_base/input/controls/tv_checkbox.h"
#include "gui_base/input/controls/tv_choice.h"
#include "gui_base/report/water_diagram.h"
#include "projectbase/project/owner_node.h"

#include <wx/checklst.h>
#include <wx/panel.h>

#include <functional>
#include <set>
#include <utility>
#include <vector>

class GUI_BASE_EXPORT DiagramInputs : public wxPanel
{
public:
    struct Callbacks
    {
        std::function<void()> onKinds;
        std::function<void()> onContents;  ///< waters or options
        std::function<void()> onExport;
        std::function<void()> onCopy;
    };
    DiagramInputs(wxWindow* parent, Callbacks callbacks);

    /// All of them, or the one that was chosen.
    std::vector<water_diagram::Kind> GetKinds() const;

    /// A water with the name that is shown.
    using NamedWater = std::pair<DetailOwner, std::string>;
    /// Offers these waters; new ones are chosen.
    void SetWaters(const std::vector<NamedWater>& waters);
    bool IsChosen(DetailOwner water) const { return !m_hidden.contains(water); }

    void Localize(const std::string& unitSystem);

private:
    void CreateControls();
    void AddOption(wxSizer& column, wxWindow* parent, const water_diagram::OptionRow& row);
    wxSizer* CreateExport();
    void OnWater(wxCommandEvent& event);
    void UpdateNames();
    /// Shows of each water's name what the list has room for.
    void ShowNames();
    template <typename Control>
    Control* AddLocalizable(Control* control);

    Callbacks m_callbacks;
    tvChoice* m_kind = nullptr;
    wxCheckListBox* m_list = nullptr;
    std::vector<NamedWater> m_waters;
    std::set<DetailOwner> m_hidden;
    std::vector<std::shared_ptr<LocalizableControl>> m_localizables;
};
