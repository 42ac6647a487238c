// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/dialogs/searched_list_dialog.h"
#include "gui_base/gui_base_export.h"
#include "gui_base/network/data_sheet_info.h"

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/stattext.h>

#include <functional>
#include <vector>

class wxInfoBar;

/// Product and safety data sheets of the services: found by product, language and search, fetched into the
/// user's cache and opened with the system's program. The key of a resin is the identifier of its product.
/// Modal.
class GUI_BASE_EXPORT DataSheetDialog : public SearchedListDialog
{
public:
    using Sheets = std::vector<NetObjects::DataSheetInfo>;
    /// Opens a file; false where nothing does.
    using Opener = std::function<bool(const wxString& file)>;

    /// `product` is the one whose sheets are shown first; all are when it is empty. The lists are empty until
    /// LoadLists or SetSheets.
    explicit DataSheetDialog(wxWindow* parent, const wxString& product = {});

    /// Shows the dialog, which asks the services then.
    static void ShowFor(wxWindow* parent, const wxString& product, const TVHelpFileProvider* help);

    void SetOpener(Opener opener) { m_opener = std::move(opener); }
    /// Asks both services. What a service does not answer is told, with a button to the settings of the
    /// connection, and what is shown of it stays.
    void LoadLists();
    void SetSheets(Sheets products, Sheets safety);

private:
    /// A sheet of either list.
    struct Entry
    {
        NetObjects::DataSheetInfo sheet;
        bool isSafety = false;
    };

    wxSizer* MakeFilterRow();
    wxSizer* MakeButtonRow();
    /// The choices follow the sheets; what is chosen stays.
    void FillChoices();
    void ShowRows();
    /// Beside the lists that could not be loaded.
    void ShowSettingsButton(bool shown);
    void RefreshButtons();
    /// The one that is selected, or null.
    const Entry* Selected() const;
    void OpenSelected();
    /// The file of a sheet that was fetched now, or before if the user wants that; empty for none.
    wxString Fetch(const Entry& entry);
    void DoShowFound() override { RefreshButtons(); }

    Sheets m_products;
    Sheets m_safety;
    std::vector<Entry> m_entries;  ///< in the order of the list's rows
    std::vector<wxString> m_productIds;
    std::vector<wxString> m_languages;
    Opener m_opener;
    wxInfoBar* m_problem = nullptr;
    wxChoice* m_product = nullptr;   ///< all, then m_productIds
    wxChoice* m_language = nullptr;  ///< all, then m_languages
    wxStaticText* m_count = nullptr;
    wxButton* m_settings = nullptr;
    wxButton* m_open = nullptr;
};
