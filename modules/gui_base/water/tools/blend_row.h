// SPDX-License-Identifier: MIT
#pragma once

/// One water of a blend: which, and how much of it, as a share or as a flow; and the button that removes it,
/// which stands in the parent.

#include "gui_base/input/form/form_block.h"
#include "projectbase/water/blend_recipe.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

class GUI_BASE_EXPORT BlendRow : public FormBlock
{
public:
    /// `waters` are the names to choose from; the amount of the part is a flow where `byFlow` says so, and
    /// may be NaN.
    BlendRow(wxWindow* parent, const std::vector<std::string>& waters, const water::BlendPart& part,
             bool byFlow);

    /// Called when the user wants the row to go, after the event in which that was said.
    void SetOnRemove(std::function<void()> handler) { m_onRemove = std::move(handler); }

    void ShowMode(bool byFlow);
    /// As the row shows it now; nothing while the amount that is shown is empty.
    std::optional<water::BlendPart> GetPart();
    /// The field of the amount that is shown.
    TvTextCtrl& GetAmount() { return *FindField(m_byFlow ? kFlow : kShare); }
    /// The fields of both.
    std::vector<TvTextCtrl*> GetAmounts() const { return {FindField(kShare), FindField(kFlow)}; }
    wxWindow& GetChoice() { return *m_choice; }
    std::string GetWater() { return GetFields().Details().At(kWater).GetStdStringValue(); }
    /// A child of the row's parent, to which it leaves the place and the order of Tab: whoever enters the
    /// amounts one after the other does not pass the buttons.
    wxWindow& GetRemoveButton() { return *m_remove; }

    void Localize(const std::string& unitSystem) override;

    /// Widths of an amount and of its unit, in DIP.
    static constexpr int kAmountWidth = 80;
    static constexpr int kUnitWidth = 48;
    /// The keys of the row's details.
    static constexpr const char* kWater = "water";
    static constexpr const char* kShare = "share";
    static constexpr const char* kFlow = "flow";

protected:
    void Signal() override;

private:
    wxSizer* AddAmount(bool byFlow, double amount);
    /// Screen readers tell alike rows apart by their waters.
    void NameControls();

    bool m_byFlow;
    std::function<void()> m_onRemove;
    wxWindow* m_choice = nullptr;
    wxWindow* m_remove = nullptr;
    wxSizer* m_share = nullptr;
    wxSizer* m_flow = nullptr;
};
