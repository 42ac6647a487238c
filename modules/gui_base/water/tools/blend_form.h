// SPDX-License-Identifier: MIT
#pragma once

/// How much is taken of each water: shares in percent, or flows. A water whose field is empty takes no part.

#include "gui_base/input/form/form_block.h"
#include "projectbase/water/blend_recipe.h"

#include <string>
#include <vector>

class GUI_BASE_EXPORT BlendForm : public FormBlock
{
public:
    /// `waters` are the names to choose from.
    BlendForm(wxWindow* parent, const std::vector<std::string>& waters, const water::BlendRecipe& recipe);

    /// As the fields show it now.
    water::BlendRecipe GetRecipe();

    /// The keys of the form's own details: "mode", and the amounts of the waters in their order.
    static constexpr const char* kMode = "mode";
    static std::string AmountKey(bool byFlow, std::size_t water);

protected:
    void Signal() override;

private:
    void AddAmounts(bool byFlow, const water::BlendRecipe& recipe);
    bool IsByFlow();
    void ShowMode();
    void UpdateSum();

    std::vector<std::string> m_waters;
    wxSizer* m_byShare = nullptr;
    wxSizer* m_byFlow = nullptr;
};
