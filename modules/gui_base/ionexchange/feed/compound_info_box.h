// SPDX-License-Identifier: MIT
#pragma once

/// What is known of the compound that is selected in the list.

#include "dbinterfaces/db_objects.h"
#include "gui_base/input/panel/tv_panel.h"

#include <utility>
#include <vector>

class TvStaticText;
class wxStaticText;

class GUI_BASE_EXPORT CompoundInfoBox : public TvPanel
{
public:
    explicit CompoundInfoBox(wxWindow* parent);

    /// `molweight` in g/mol; NaN where the formula cannot be read.
    void ShowCompound(const DBObjects::Compound& compound, double molweight);
    void ShowFields(bool show);
    void Clear();

private:
    TvStaticText* m_noSelection = nullptr;
    std::vector<std::pair<TvStaticText*, wxStaticText*>> m_details;
};
