// SPDX-License-Identifier: MIT
#pragma once

/// A block of rows within a panel or dialog. Whatever the user commits is stored at once and told to the
/// parent by one queued tvCHANGE_EVENT with the id of the block, or to a handler in its place; an edit that
/// changes nothing tells nobody.
///
/// A derived block makes its rows in its constructor, which ends with CompleteForm.

#include "gui_base/input/form/field_set.h"
#include "gui_base/input/form/form_grid.h"
#include "gui_base/input/panel/tv_panel.h"

class GUI_BASE_EXPORT FormBlock : public TvPanel, public DetailContainerWindow
{
public:
    /// In the language of the user, and values and units in that unit system from now on.
    void Localize(const std::string& unitSystem) override;
    void TransferDetailsToWindow() override;
    void TransferDetailToWindow() override { TransferDetailsToWindow(); }
    void UpdateUnit(const std::string& unitSystem) override;
    /// Stores what the fields show; whether any detail changed.
    virtual bool TransferDetailsFromWindow();

    void SetStatusBar(wxStatusBar* statusBar);
    /// Called after a change was stored, in place of telling the parent.
    void SetOnChange(std::function<void()> handler) { m_onChange = std::move(handler); }
    /// The number or text field of a detail, or null.
    TvTextCtrl* FindField(const std::string& key) const { return m_fields.FindField(key); }

protected:
    /// `details` hold the values of the rows; they are not owned and outlive the block. Null for a list of
    /// the block's own, to which the derived block adds.
    FormBlock(DetailList* details, wxWindow* parent, int id = wxID_ANY,
              const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
              long style = wxTAB_TRAVERSAL);

    FieldSet& GetFields() { return m_fields; }
    /// Binds the rows and shows their details.
    void CompleteForm();
    /// Tells of a change that was stored.
    virtual void Signal();
    const std::string& GetUnitSystem() const { return m_unitSystem; }

private:
    void OnCommit();

    DetailList m_own;
    FieldSet m_fields;
    std::string m_unitSystem = "iso";
    std::function<void()> m_onChange;
};
