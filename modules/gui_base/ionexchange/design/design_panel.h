// SPDX-License-Identifier: MIT
#pragma once

/// The exchangers of a line in flow order, each as a block: what its bed and vessel are to be, what they come
/// to, where the capacity comes from, and what is to be looked at. GUI thread only.

#include "gui_base/input/form/form_panel.h"
#include "gui_base/ionexchange/design/exchanger_block.h"
#include "projectbase/project/iex_project.h"

#include <memory>
#include <vector>

class TVHelpFileProvider;

class GUI_BASE_EXPORT DesignPanel : public FormPanel
{
public:
    /// The project outlives the panel, and so does the user guide, which may be null.
    DesignPanel(iex::IEXProject& project, wxWindow* parent, const TVHelpFileProvider* help = nullptr);

    /// Whether the panel shows that value of the project, an exchanger or its parts.
    static bool Shows(std::string_view key);
    bool FocusDetail(const DetailAddress& address) override;
    /// The field of a detail, or null.
    TvTextCtrl* FindField(const DetailData& detail) const { return GetFields().FindField(detail); }
    /// What stands below the fields of an exchanger: capacity, corrections, leakages, messages.
    wxString GetNotes(std::size_t exchanger) const;

protected:
    void DoCreateForm() override;
    void DoTransferDetailsToWindows() override;
    void DoFollowProject() override;
    void DoLocalize() override;
    void DoUpdateUnits() override;
    // The project settles its own status.
    long GetPanelProjectStatus() override { return GetProjectStatus(); }
    bool DoHasWhatIf() override;
    void DoArrange(int width) override;

private:
    void ShowNotes();
    void ShowWaters();
    /// Whether the blocks are those of the exchangers that the project has now.
    bool IsUpToDate() const;
    std::vector<DetailOwner> PartsNow() const;

    iex::IEXProject& m_plant;
    const TVHelpFileProvider* m_help;
    tvChoice* m_water = nullptr;  ///< which of the waters feeds the plant; null where none does
    std::vector<std::unique_ptr<ExchangerBlock>> m_blocks;
    /// The fields hold on to the details of these, also after they left the project.
    std::vector<std::shared_ptr<OwnerNode>> m_kept;
    std::vector<DetailOwner> m_parts;
    bool m_recreating = false;
};
