// SPDX-License-Identifier: MIT
#pragma once

/// The recipe of a water that is mixed of two others: which, and by what share. Changes nothing itself.

#include "gui_base/gui_base_export.h"

#include <wx/dialog.h>

#include <string>
#include <vector>

class TvDoubleSlider;
class tvChoice;

struct BlendRecipe
{
    std::string first;
    std::string second;
    double share = 50.0;  ///< percent of the first
};

class GUI_BASE_EXPORT BlendDialog : public wxDialog
{
public:
    /// `waters` are the names to choose from, at least two.
    BlendDialog(wxWindow* parent, const std::vector<std::string>& waters, const BlendRecipe& recipe);

    BlendRecipe GetRecipe() const;

private:
    tvChoice* AddWater(wxSizer& form, const char* label, const std::string& selected);
    /// Two different waters are needed.
    void EnableOk();

    std::vector<std::string> m_waters;
    tvChoice* m_first;
    tvChoice* m_second;
    TvDoubleSlider* m_share;
};
