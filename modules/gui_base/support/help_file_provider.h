// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <map>
#include <memory>
#include <string>

class wxHtmlHelpController;
class wxString;

/// Shows the user guide in the language of the texts. Owns the help windows, of which one is shown at a time.
/// The book of a language lies in the folder of that name below the given one, beside the English book; a
/// page that it lacks is shown in English. GUI thread only.
class GUI_BASE_EXPORT TVHelpFileProvider
{
public:
    /// `localePath` is the folder of the English book. Throws std::invalid_argument for an empty path and
    /// std::runtime_error when the English book cannot be loaded.
    explicit TVHelpFileProvider(std::string localePath, const std::string& helpFile = "tarnvik6.htb");
    ~TVHelpFileProvider();
    TVHelpFileProvider(const TVHelpFileProvider&) = delete;
    TVHelpFileProvider& operator=(const TVHelpFileProvider&) = delete;

    /// Loads another English book beside the ones that are loaded; false when it cannot be read.
    bool ChangeHelpFile(const std::string& helpFile) const;
    void DisplayHelpContent() const;
    /// Shows the page with that name, "page.html" or "page.html#anchor", or that title.
    void DisplayHelpSection(const std::string& section) const;
    /// Shows the page of an open help window in the language that the texts have now.
    void Localize() const;

    /// Where the page lies that an open help window shows, "…/de/tarnvik6.htb#zip:page.html#anchor"; empty
    /// without one.
    wxString GetShownPage() const;

private:
    struct Book;

    /// Throws std::runtime_error without the English book.
    Book& English() const;
    /// The book of the present language, loaded when it is first wanted; the English one where there is none.
    Book& Present() const;
    Book& BookWith(const wxString& page) const;
    /// Where another book had its window, this one gets its own.
    void Front(Book& book) const;
    std::unique_ptr<Book> Load(const wxString& folder, const std::string& helpFile) const;

    std::string m_localePath;
    std::string m_helpFile;
    /// By language, the English one under an empty text; nothing for a language without a book.
    mutable std::map<std::string, std::unique_ptr<Book>> m_books;
    mutable Book* m_shown = nullptr;
};
