// SPDX-License-Identifier: MIT
#pragma once

/// How the two resins of a mixed bed are regenerated: at once or one after the other, and whether their waste
/// is neutralised. GUI thread only.

#include "gui_base/input/panel/tv_panel.h"
#include "projectbase/details/detail_data.h"

#include <array>
#include <string>

class TvCheckBox;
class TvRadioButton;

class GUI_BASE_EXPORT MBRegenerationType : public TvPanel
{
public:
    static constexpr int kParallel = 6100;
    static constexpr int kAcidFirst = 6101;
    static constexpr int kCausticFirst = 6102;
    static constexpr int kNeutralization = 6103;

    /// The details ("parallel", "serial1" or "serial2"; a flag) are not owned and outlive the panel. A value
    /// that is none of the three selects none.
    MBRegenerationType(DetailData* type, DetailData* neutralisation, wxWindow* parent, int id = wxID_ANY,
                       const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                       long style = wxTAB_TRAVERSAL, const wxString& name = wxASCII_STR(wxPanelNameStr));

    /// Shows what the details hold.
    void TransferDetailsToWindow() override;

private:
    void OnType(int id);

    DetailData* m_type;
    std::array<TvRadioButton*, 3> m_buttons{};
    /// Selected where no button is to be: a group of the toolkit always has one.
    TvRadioButton* m_none = nullptr;
};
