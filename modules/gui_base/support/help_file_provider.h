// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <memory>
#include <string>

class wxHtmlHelpController;

/// Shows the user guide. Owns the help window; the book is looked for in the folder of the language. GUI
/// thread only.
class GUI_BASE_EXPORT TVHelpFileProvider
{
public:
    /// Throws std::invalid_argument for an empty path and std::runtime_error when the book cannot be loaded.
    explicit TVHelpFileProvider(std::string localePath, const std::string& helpFile = "tarnvik6.htb");
    ~TVHelpFileProvider();
    TVHelpFileProvider(const TVHelpFileProvider&) = delete;
    TVHelpFileProvider& operator=(const TVHelpFileProvider&) = delete;

    /// Loads another book beside the ones that are loaded; false when it cannot be read.
    bool ChangeHelpFile(const std::string& helpFile) const;
    void DisplayHelpContent() const;
    /// Shows the page with that name or title.
    void DisplayHelpSection(const std::string& section) const;

private:
    wxHtmlHelpController& Controller() const;

    std::string m_localePath;
    std::unique_ptr<wxHtmlHelpController> m_controller;
};
