// SPDX-License-Identifier: MIT
#include "gui_base/support/help_file_provider.h"

#include <wx/filename.h>
#include <wx/filesys.h>
#include <wx/fs_zip.h>
#include <wx/html/helpctrl.h>
#include <wx/log.h>

#include <stdexcept>

TVHelpFileProvider::TVHelpFileProvider(std::string localePath, const std::string& helpFile)
    : m_localePath(std::move(localePath))
{
    if (m_localePath.empty())
        throw std::invalid_argument("TVHelpFileProvider: localePath must not be empty");
    if (!wxFileSystem::HasHandlerForPath("file:/x.htb#zip:y"))
        wxFileSystem::AddHandler(new wxZipFSHandler);
    m_controller = std::make_unique<wxHtmlHelpController>(wxHF_DEFAULT_STYLE | wxHF_OPEN_FILES);
    if (!ChangeHelpFile(helpFile))
        throw std::runtime_error("TVHelpFileProvider: Failed to load default help file");
}

TVHelpFileProvider::~TVHelpFileProvider() = default;

bool TVHelpFileProvider::ChangeHelpFile(const std::string& helpFile) const
{
    const wxFileName file(wxString::FromUTF8(m_localePath), wxString::FromUTF8(helpFile));
    // The controller asserts and opens message boxes about a book that it cannot read.
    const wxLogNull quiet;
    return file.FileExists() && Controller().AddBook(file, false);
}

void TVHelpFileProvider::DisplayHelpContent() const
{
    Controller().DisplayContents();
}

void TVHelpFileProvider::DisplayHelpSection(const std::string& section) const
{
    Controller().DisplaySection(wxString::FromUTF8(section));
}

wxHtmlHelpController& TVHelpFileProvider::Controller() const
{
    if (!m_controller)
        throw std::runtime_error("TVHelpFileProvider: Help controller not initialized");
    return *m_controller;
}
