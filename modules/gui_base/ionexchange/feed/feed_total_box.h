// SPDX-License-Identifier: MIT
#pragma once

/// The sums of one side of a feed composition in all units, as fields that can be read and copied.

#include "gui_base/input/panel/tv_panel.h"
#include "projectbase/feed/feed_composition.h"

#include <array>

class TvTextCtrl;
class wxFlexGridSizer;
class wxStaticText;

class GUI_BASE_EXPORT FeedTotalBox : public TvPanel
{
public:
    explicit FeedTotalBox(wxWindow* parent, int id = wxID_ANY);

    void SetTotals(const FeedComposition::Totals& totals);
    void Localize(const std::string& unitSystem) override;

    /// Takes as many columns as have room in that width.
    void ArrangeFor(int width);

    /// A field that shows a number and lets the keyboard pass by.
    static TvTextCtrl* NewResultField(wxWindow* parent);
    static void ShowNumber(TvTextCtrl& field, double value);
    /// A number as the module shows it: large ones without an exponent while they have room.
    static wxString NumberText(double value);

private:
    TvTextCtrl* AddField(const wxString& text);
    void UpdateNames();

    wxFlexGridSizer* m_grid;
    std::array<TvTextCtrl*, FeedComposition::kUnitCount> m_units{};
    TvTextCtrl* m_cations = nullptr;
    TvTextCtrl* m_anions = nullptr;
    wxStaticText* m_cationsText = nullptr;
    wxStaticText* m_anionsText = nullptr;
};
