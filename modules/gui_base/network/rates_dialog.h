// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/dialogs/searched_list_dialog.h"
#include "gui_base/gui_base_export.h"
#include "gui_base/network/currency_table.h"

#include <wx/button.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <functional>
#include <vector>

/// Renews the conversion rates by the service, with a busy cursor, and says what came of it; where it failed
/// also what to do, and tries again with other settings of the connection. Whether they were renewed;
/// otherwise the old ones stay.
GUI_BASE_EXPORT bool UpdateConversionRates(wxWindow* parent);

/// The conversion rates of all currencies: searched, renewed by the service, copied, or typed. Modal. What is
/// set is stored at once, for everybody who uses the database.
class GUI_BASE_EXPORT RatesDialog : public SearchedListDialog
{
public:
    explicit RatesDialog(wxWindow* parent);

private:
    wxSizer* MakeRateRow();
    wxSizer* MakeButtonRow();
    /// Reads the rates anew; the selected currency stays.
    void LoadRates();
    void QueueSelected();
    void DoShowFound() override { ShowSelected(); }
    void ShowSelected();
    void RefreshButtons();
    /// Runs what asks the database; false, with a message, when that fails.
    bool Guarded(const std::function<void()>& action);
    void UpdateRates();
    void SetRate();
    void CopyRate();
    /// The one that is selected, or null.
    const currency_table::Currency* Selected() const;

    std::vector<currency_table::Currency> m_currencies;
    wxTextCtrl* m_rate = nullptr;
    wxStaticText* m_code = nullptr;
    wxButton* m_set = nullptr;
    wxButton* m_copy = nullptr;
    bool m_isQueued = false;
};
