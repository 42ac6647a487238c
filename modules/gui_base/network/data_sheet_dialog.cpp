// SPDX-License-Identifier: MIT
#include "gui_base/network/data_sheet_dialog.h"

#include "gui_base/dialogs/questions.h"
#include "gui_base/input/controls/tv_searchctrl.h"
#include "gui_base/network/data_sheet_lists.h"
#include "gui_base/network/network.h"
#include "gui_base/network/network_failure.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/button_label.h"
#include "gui_base/support/file_path.h"
#include "gui_base/support/translation.h"
#include "projectbase/design/resins.h"
#include "projectbase/details/date_text.h"
#include "tncommon/user_dirs.h"

#include <wx/filename.h>
#include <wx/infobar.h>
#include <wx/intl.h>
#include <wx/log.h>
#include <wx/sizer.h>
#include <wx/utils.h>

#include <algorithm>
#include <array>
#include <set>

namespace {

using i18n::Translated;
using NetObjects::DataSheetInfo;

constexpr int kGap = 8;
constexpr std::size_t kMostLetters = 100;
/// What the settings make of the codes of states.
const std::array kStates{wxTRANSLATE("unknown"), wxTRANSLATE("final"), wxTRANSLATE("preliminary")};

/// "Strong-acid cation resin, gel (sac_gel)"; the identifier alone where no resin is known by it.
wxString ProductText(const wxString& id)
{
    const design::Resin* resin = design::FindResin(id.utf8_string());
    return resin == nullptr ? id : Translated(wxString::FromUTF8(resin->name)) + " (" + id + ")";
}

wxString LanguageText(const wxString& code)
{
    const wxLanguageInfo* info = code.empty() ? nullptr : wxLocale::FindLanguageInfo(code);
    return info != nullptr ? info->DescriptionNative : code;
}

wxString StatusText(const wxString& status)
{
    const bool isKnown = std::ranges::any_of(kStates, [&](const char* state) { return status == state; });
    return isKnown ? Translated(status) : status;
}

wxString KindText(bool isSafety)
{
    return isSafety ? Translated("Safety data sheet") : Translated("Product data sheet");
}

wxString SheetFolder()
{
    return DialogPath(tncommon::UserCacheDir() / "sheets");
}

bool OpenBySystem(const wxString& file)
{
    const wxLogNull quiet;
    return wxLaunchDefaultApplication(file);
}

/// Fills a choice with "all" and the texts of what there is; `chosen` stays so, the first is all.
void Fill(wxChoice& choice, const wxString& all, const std::vector<wxString>& items,
          wxString (*textOf)(const wxString&), const wxString& chosen)
{
    wxArrayString texts;
    texts.Add(all);
    for (const wxString& item : items)
        texts.Add(textOf(item));
    choice.Set(texts);
    const auto found = std::ranges::find(items, chosen);
    choice.SetSelection(found == items.end() ? 0 : static_cast<int>(found - items.begin()) + 1);
}

/// What is chosen of the items behind "all"; empty for all.
wxString Chosen(const wxChoice& choice, const std::vector<wxString>& items)
{
    const int selected = choice.GetSelection();
    return selected > 0 ? items.at(static_cast<std::size_t>(selected) - 1) : wxString();
}

}  // namespace

DataSheetDialog::DataSheetDialog(wxWindow* parent, const wxString& product)
    : SearchedListDialog(parent, Translated("Data sheets"), "datasheets.html"), m_opener(OpenBySystem)
{
    m_problem = new wxInfoBar(this);
    auto* outer = new wxBoxSizer(wxVERTICAL);
    const wxSizerFlags spaced = wxSizerFlags().Expand().Border(wxALL, FromDIP(kGap));
    outer->Add(m_problem, wxSizerFlags().Expand());
    outer->Add(MakeFilterRow(), spaced);
    outer->Add(MakeList({{Translated("Product"), 320},
                         {Translated("Sheet"), 164},
                         {Translated("Language"), 100},
                         {Translated("Status"), 100},
                         {Translated("Legal area"), 104},
                         {Translated("Company"), 130}},
                        0, GetTitle(), {970, 300}),
               wxSizerFlags(spaced).Proportion(1));
    outer->Add(MakeButtonRow(), spaced);
    for (wxChoice* choice : {m_product, m_language})
        choice->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { ShowRows(); });
    for (const auto& type : {wxEVT_LIST_ITEM_SELECTED, wxEVT_LIST_ITEM_DESELECTED})
        m_list->Bind(type, [this](wxListEvent&) { RefreshButtons(); });
    m_list->Bind(wxEVT_LIST_ITEM_ACTIVATED, [this](wxListEvent&) { OpenSelected(); });
    if (!product.empty()) {
        m_productIds.push_back(product);
        Fill(*m_product, wxString(), m_productIds, ProductText, product);
    }
    SetSheets({}, {});
    Finish(*outer);
}

void DataSheetDialog::ShowFor(wxWindow* parent, const wxString& product, const TVHelpFileProvider* help)
{
    DataSheetDialog dialog(wxGetTopLevelParent(parent), product);
    dialog.SetHelp(help);
    // The window stands while the services are asked.
    dialog.CallAfter(&DataSheetDialog::LoadLists);
    dialog.ShowModal();
}

wxSizer* DataSheetDialog::MakeFilterRow()
{
    auto* row = new wxFlexGridSizer(2, FromDIP(wxSize(kGap, kGap)));
    row->AddGrowableCol(1);
    const auto add = [&](const wxString& label, wxWindow* window) {
        row->Add(new wxStaticText(this, wxID_ANY, label), wxSizerFlags().CentreVertical());
        row->Add(window, wxSizerFlags().Expand());
        accessibility::SetName(*window, label);
    };
    m_product = new wxChoice(this, wxID_ANY);
    add(Translated("Product"), m_product);
    m_language = new wxChoice(this, wxID_ANY);
    add(Translated("Language"), m_language);
    add(Translated("Search"), MakeSearch(wxTRANSLATE("Words of any column"), kMostLetters));
    return row;
}

wxSizer* DataSheetDialog::MakeButtonRow()
{
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    const wxSizerFlags beside = wxSizerFlags().Border(wxLEFT | wxRIGHT, FromDIP(kGap / 2));
    const auto add = [&](int id, const wxString& label, std::function<void()> action) {
        wxButton* const button = button_label::NewButton(this, id, label);
        if (action)
            button->Bind(wxEVT_BUTTON, [action = std::move(action)](wxCommandEvent&) { action(); });
        row->Add(button, beside);
        return button;
    };
    row->Add(MakeHelpButton(), beside);
    add(wxID_ANY, Translated("&Renew list"), [this] { LoadLists(); });
    m_settings = add(wxID_ANY, network_failure::SettingsLabel(), [this] {
        if (network_failure::ChangeSettings(this))
            LoadLists();
    });
    m_settings->Hide();
    m_count = new wxStaticText(this, wxID_ANY, wxString());
    row->Add(m_count, wxSizerFlags(1).CentreVertical().Border(wxLEFT | wxRIGHT, FromDIP(kGap)));
    m_open = add(wxID_OPEN, Translated("&Open"), [this] { OpenSelected(); });
    m_open->SetDefault();
    add(wxID_CANCEL, Translated("&Close"), {});
    return row;
}

// Lists

void DataSheetDialog::LoadLists()
{
    wxString error;
    Sheets products = m_products;
    Sheets safety = m_safety;
    const wxBusyCursor busy;
    const bool isLoaded = Network::LoadDataSheetLists(products, safety, &error);
    if (isLoaded) {
        m_problem->Dismiss();
    } else {
        wxLogWarning("%s", error);
        m_problem->ShowMessage(error + "\n" + network_failure::NextStep(), wxICON_WARNING);
    }
    ShowSettingsButton(!isLoaded);
    SetSheets(std::move(products), std::move(safety));
}

void DataSheetDialog::ShowSettingsButton(bool shown)
{
    // The keyboard stays in the window.
    if (!shown && m_settings->HasFocus())
        m_list->SetFocus();
    m_settings->Show(shown);
    Layout();
}

void DataSheetDialog::SetSheets(Sheets products, Sheets safety)
{
    m_products = std::move(products);
    m_safety = std::move(safety);
    FillChoices();
    ShowRows();
}

void DataSheetDialog::FillChoices()
{
    const wxString product = Chosen(*m_product, m_productIds);
    const wxString language = Chosen(*m_language, m_languages);
    std::set<wxString> others;
    std::set<wxString> languages;
    for (const Sheets* sheets : {&m_products, &m_safety}) {
        for (const DataSheetInfo& sheet : *sheets) {
            others.insert(sheet.productId);
            languages.insert(sheet.language);
        }
    }
    languages.erase(wxString());
    if (!product.empty())
        others.insert(product);
    m_productIds.clear();
    for (const design::Resin& resin : design::Resins()) {
        m_productIds.push_back(wxString::FromUTF8(resin.key));
        others.erase(m_productIds.back());
    }
    m_productIds.insert(m_productIds.end(), others.begin(), others.end());
    m_languages.assign(languages.begin(), languages.end());
    Fill(*m_product, Translated("All products"), m_productIds, ProductText, product);
    Fill(*m_language, Translated("All languages"), m_languages, LanguageText, language);
}

void DataSheetDialog::ShowRows()
{
    const wxString product = Chosen(*m_product, m_productIds);
    const wxString language = Chosen(*m_language, m_languages);
    m_entries.clear();
    for (const bool isSafety : {false, true}) {
        for (const DataSheetInfo& sheet : isSafety ? m_safety : m_products) {
            if ((product.empty() || sheet.productId == product) &&
                (language.empty() || sheet.language == language))
                m_entries.push_back({sheet, isSafety});
        }
    }
    std::vector<RowList::Row> rows;
    for (const auto& [sheet, isSafety] : m_entries)
        rows.push_back({ProductText(sheet.productId), KindText(isSafety), LanguageText(sheet.language),
                        isSafety ? wxString() : StatusText(sheet.status), sheet.legalArea, sheet.company});
    m_list->SetRows(std::move(rows));
    RefreshButtons();
}

void DataSheetDialog::RefreshButtons()
{
    m_open->Enable(Selected() != nullptr);
    m_count->SetLabel(wxString::Format(Translated("Data sheets: %d"), m_list->GetItemCount()));
}

const DataSheetDialog::Entry* DataSheetDialog::Selected() const
{
    const auto row = m_list->GetSelectedRow();
    return row ? &m_entries.at(*row) : nullptr;
}

// Files

wxString DataSheetDialog::Fetch(const Entry& entry)
{
    const auto& [sheet, isSafety] = entry;
    wxString error;
    wxString file;
    {
        const wxBusyCursor busy;
        file = isSafety ? Network::LoadMsdsFile(sheet, SheetFolder(), &error)
                        : Network::LoadPdsFile(sheet, SheetFolder(), &error);
    }
    if (!file.empty())
        return file;
    const wxFileName former(SheetFolder(), isSafety ? data_sheet_lists::SafetyFileName(sheet)
                                                    : data_sheet_lists::ProductFileName(sheet));
    if (!former.FileExists()) {
        // The settings may have been mended.
        return network_failure::Show(this, Translated("The data sheet could not be fetched."), GetTitle(),
                                     error)
                   ? Fetch(entry)
                   : wxString();
    }
    const wxString question = wxString::Format(Translated("Open the sheet as it was fetched on %s?"),
                                               DateText(former.GetModificationTime()));
    return dialogs::AskYesNo(this, question, GetTitle(), wxICON_WARNING, error) == wxID_YES
               ? former.GetFullPath()
               : wxString();
}

void DataSheetDialog::OpenSelected()
{
    const Entry* entry = Selected();
    if (entry == nullptr)
        return;
    const wxString file = Fetch(*entry);
    if (!file.empty() && !m_opener(file))
        dialogs::ShowMessage(
            this, wxString::Format(Translated("There is no program that opens %s."), ShownPath(PathOf(file))),
            GetTitle(), wxICON_ERROR);
}
