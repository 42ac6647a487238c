// SPDX-License-Identifier: MIT
#include "gui_base/support/help_file_provider.h"

#include "gui_base/support/translation.h"

#include <wx/display.h>
#include <wx/filename.h>
#include <wx/filesys.h>
#include <wx/frame.h>
#include <wx/fs_zip.h>
#include <wx/html/helpctrl.h>
#include <wx/html/helpfrm.h>
#include <wx/html/helpwnd.h>
#include <wx/html/htmlfilt.h>
#include <wx/html/htmlwin.h>
#include <wx/log.h>
#include <wx/splitter.h>
#include <wx/sstream.h>

#include <stdexcept>

namespace {

/// Desktops hold "page.htm" for XHTML, which the toolkit would show as plain text.
class XhtmlFilter : public wxHtmlFilter
{
public:
    bool CanRead(const wxFSFile& file) const override
    {
        return file.GetMimeType().IsSameAs("application/xhtml+xml", false);
    }
    /// All pages are UTF-8.
    wxString ReadFile(const wxFSFile& file) const override
    {
        wxStringOutputStream text(nullptr, wxConvUTF8);
        file.GetStream()->Read(text);
        return text.GetString();
    }
};

/// What the toolkit needs for books, once in a process.
void PrepareToolkit()
{
    static const bool prepared = [] {
        wxHtmlWindow::AddFilter(new XhtmlFilter);
        return true;
    }();
    static_cast<void>(prepared);
    if (!wxFileSystem::HasHandlerForPath("file:/x.htb#zip:y"))
        wxFileSystem::AddHandler(new wxZipFSHandler);
}

/// A text that is no file name is a title, which only the contents of a book can tell.
bool HasPage(const wxFileName& book, const wxString& section)
{
    const wxString page = section.BeforeFirst('#');
    wxFileSystem files;
    const std::unique_ptr<wxFSFile> file(files.OpenFile(wxFileSystem::FileNameToURL(book) + "#zip:" + page));
    return file != nullptr;
}

// Device-independent pixels: a line of text beside a list that shows most headings whole.
constexpr int kGuideWidth = 1050;
constexpr int kGuideHeight = 760;
constexpr int kContentsWidth = 300;

/// The toolkit's own size is that of old screens and cuts the headings of the contents.
void GiveRoom(wxHtmlHelpFrame& frame)
{
    wxSize size = frame.FromDIP(wxSize(kGuideWidth, kGuideHeight));
    size.DecTo(wxDisplay(&frame).GetClientArea().GetSize());
    frame.SetSize(size);
    if (wxSplitterWindow* const splitter = frame.GetHelpWindow()->GetSplitterWindow())
        splitter->SetSashPosition(frame.FromDIP(kContentsWidth));
}

/// Makes windows with room for a page, which Escape closes as it does the dialogs that open the guide.
class HelpController : public wxHtmlHelpController
{
public:
    HelpController() : wxHtmlHelpController(wxHF_DEFAULT_STYLE | wxHF_OPEN_FILES) {}

protected:
    wxHtmlHelpFrame* CreateHelpFrame(wxHtmlHelpData* data) override
    {
        wxHtmlHelpFrame* const frame = wxHtmlHelpController::CreateHelpFrame(data);
        GiveRoom(*frame);
        frame->Bind(wxEVT_CHAR_HOOK, [frame](wxKeyEvent& event) {
            if (event.GetKeyCode() == WXK_ESCAPE && !event.HasAnyModifiers())
                frame->Close();
            else
                event.Skip();
        });
        return frame;
    }
};

}  // namespace

struct TVHelpFileProvider::Book
{
    wxFileName file;
    HelpController controller;

    bool Add(const wxFileName& other)
    {
        // The controller asserts and opens message boxes about a book that it cannot read.
        const wxLogNull quiet;
        return other.FileExists() && controller.AddBook(other, false);
    }
    wxFrame* GetFrame() { return controller.GetHelpWindow() != nullptr ? controller.GetFrame() : nullptr; }
};

TVHelpFileProvider::TVHelpFileProvider(std::string localePath, const std::string& helpFile)
    : m_localePath(std::move(localePath)), m_helpFile(helpFile)
{
    if (m_localePath.empty())
        throw std::invalid_argument("TVHelpFileProvider: localePath must not be empty");
    PrepareToolkit();
    auto book = Load(wxString::FromUTF8(m_localePath), helpFile);
    if (!book)
        throw std::runtime_error("TVHelpFileProvider: Failed to load default help file");
    m_books.emplace("", std::move(book));
}

TVHelpFileProvider::~TVHelpFileProvider() = default;

std::unique_ptr<TVHelpFileProvider::Book> TVHelpFileProvider::Load(const wxString& folder,
                                                                   const std::string& helpFile) const
{
    auto book = std::make_unique<Book>();
    book->file = wxFileName(folder, wxString::FromUTF8(helpFile));
    if (!book->Add(book->file))
        book.reset();
    return book;
}

bool TVHelpFileProvider::ChangeHelpFile(const std::string& helpFile) const
{
    return English().Add(wxFileName(wxString::FromUTF8(m_localePath), wxString::FromUTF8(helpFile)));
}

TVHelpFileProvider::Book& TVHelpFileProvider::English() const
{
    const auto found = m_books.find("");
    if (found == m_books.end())
        throw std::runtime_error("TVHelpFileProvider: Help controller not initialized");
    return *found->second;
}

TVHelpFileProvider::Book& TVHelpFileProvider::Present() const
{
    const wxString exact = i18n::TextLanguage();
    for (const wxString& language : {exact, exact.BeforeFirst('_')}) {
        const auto [found, isNew] = m_books.try_emplace(language.utf8_string());
        if (isNew)
            found->second =
                Load(wxFileName(wxString::FromUTF8(m_localePath), language).GetFullPath(), m_helpFile);
        if (found->second)
            return *found->second;
    }
    return English();
}

TVHelpFileProvider::Book& TVHelpFileProvider::BookWith(const wxString& page) const
{
    Book& present = Present();
    const wxLogNull quiet;
    return !HasPage(present.file, page) && HasPage(English().file, page) ? English() : present;
}

void TVHelpFileProvider::Front(Book& book) const
{
    if (m_shown == &book)
        return;
    wxFrame* const other = m_shown != nullptr ? m_shown->GetFrame() : nullptr;
    m_shown = &book;
    if (other == nullptr)
        return;
    book.controller.DisplayContents();
    book.GetFrame()->SetSize(other->GetRect());
    other->Destroy();
}

void TVHelpFileProvider::DisplayHelpContent() const
{
    Book& book = Present();
    Front(book);
    book.controller.DisplayContents();
}

void TVHelpFileProvider::DisplayHelpSection(const std::string& section) const
{
    const wxString page = wxString::FromUTF8(section);
    Book& book = BookWith(page);
    Front(book);
    if (book.controller.DisplaySection(page) || &book == &English())
        return;
    // A title of the English book.
    Front(English());
    English().controller.DisplaySection(page);
}

wxString TVHelpFileProvider::GetShownPage() const
{
    if (m_shown == nullptr || m_shown->GetFrame() == nullptr)
        return {};
    const wxHtmlWindow* page = m_shown->controller.GetHelpWindow()->GetHtmlWindow();
    const wxString anchor = page->GetOpenedAnchor();
    return page->GetOpenedPage() + (anchor.empty() ? wxString() : "#" + anchor);
}

void TVHelpFileProvider::Localize() const
{
    const wxString shown = GetShownPage();
    if (shown.empty())
        return;
    const auto place = shown.rfind("#zip:");
    if (place == wxString::npos)
        DisplayHelpContent();
    else
        DisplayHelpSection(shown.Mid(place + wxString("#zip:").length()).utf8_string());
}
