// SPDX-License-Identifier: MIT
#pragma once

/// The pages of a feed composition: the grid of one side, its totals and its pH. The composition that they
/// show is not owned and outlives them; what the user does they tell by the events of feed_events.h.

#include "gui_base/input/form/field_set.h"
#include "gui_base/input/panel/tv_panel.h"
#include "gui_base/ionexchange/feed/feed_events.h"
#include "projectbase/feed/feed_composition.h"

#include <functional>

class EffluentCompositionGrid;
class FeedCompositionGrid;
class FeedCompositionGridBase;
class FeedTotalBox;
class TvCheckBox;
class TvStaticText;
class TvTextCtrl;
class wxBoxSizer;
class wxStaticBoxSizer;

/// What both pages share.
class GUI_BASE_EXPORT FeedTabBase : public TvPanel
{
public:
    using Post = std::function<void(FeedEvent)>;

    /// Takes as many columns of totals as have room in that width.
    virtual void ArrangeFor(int width);

protected:
    FeedTabBase(wxWindow* parent, Post post);

    void AddGridCtrl(FeedCompositionGridBase* grid, wxEventType edited);
    void PostCompositionChangedEvent(FeedEvent event) { m_post(std::move(event)); }
    /// The box of the totals, to which the page adds its pH.
    wxStaticBoxSizer* AddTotalBox(const char* title);
    void SetTotals(const FeedComposition::Totals& totals);
    void Tell(wxEventType type) { m_post(FeedEvent(type)); }

private:
    Post m_post;
    FeedTotalBox* m_totals = nullptr;
};

class GUI_BASE_EXPORT FeedTab : public FeedTabBase
{
public:
    FeedTab(wxWindow* parent, Post post, const FeedComposition& composition);

    void Localize(const std::string& unitSystem) override;
    void ArrangeFor(int width) override;
    /// Shows the composition as it now is.
    void ShowComposition();
    void ShowTotals(const FeedComposition& composition);
    void ConnectStatusBar(wxStatusBar* statusBar);
    /// As the user set them; the pH is NaN while none is stated.
    bool IsPhAdjusted() const;
    double GetTotalPh();
    void FocusPh();
    FeedCompositionGrid& GetGrid() const { return *m_grid; }

private:
    void AddFeedGridCtrl();
    void AddFeedTotalBox();
    void AddPhRow(wxStaticBoxSizer& box);
    void UpdateTotalPhInputMode();
    void OnAdjustPhChecked();
    void NameControls();
    void OnTotalPhEnter();

    const FeedComposition& m_composition;
    DetailList m_values;
    FieldSet m_fields{m_values};
    FeedCompositionGrid* m_grid = nullptr;
    wxBoxSizer* m_phRow = nullptr;
    TvCheckBox* m_adjustPh = nullptr;
    TvTextCtrl* m_totalPh = nullptr;
    TvStaticText* m_adjustmentLabel = nullptr;
    TvTextCtrl* m_adjustment = nullptr;
};

class GUI_BASE_EXPORT EffluentTab : public FeedTabBase
{
public:
    EffluentTab(wxWindow* parent, Post post, const FeedComposition& composition);

    void Localize(const std::string& unitSystem) override;
    void ShowComposition();
    void ShowTotals(const FeedComposition& composition);
    bool IsUsed() const;
    void FocusUse();

private:
    void AddUseCheckBox();
    void AddEffluentGridCtrl();
    void AddEffluentTotalBox();
    void NameControls();
    void OnUseEffluentChecked();

    const FeedComposition& m_composition;
    TvCheckBox* m_useEffluent = nullptr;
    EffluentCompositionGrid* m_grid = nullptr;
    TvTextCtrl* m_ph = nullptr;
};

/// Side by side where the width allows it, else one below the other; whether that changed.
bool SetFeedOrientationFor(wxBoxSizer& sizer, int width);
