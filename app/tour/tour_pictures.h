// SPDX-License-Identifier: MIT
#pragma once

/// How the tour takes its pictures. Internal to the tour.

#include "projectbase/project/project.h"

#include <wx/dialog.h>
#include <wx/window.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace app {

struct Exhibit;
struct Module;
struct ModuleLook;

/// Lets the toolkit lay out, draw and end its short animations.
void Settle();

/// Whether the program has texts in a language.
bool HasLanguage(const wxString& code);

/// The pictures of a look in their folder.
class Pictures
{
public:
    Pictures(std::filesystem::path folder, std::string look);
    /// Saves a picture of the window as it is, with a line below that says what it shows, and adds the line
    /// to the captions. Throws std::runtime_error for an empty picture, and when it cannot be written.
    void Save(wxWindow& window, const std::string& name, const wxString& caption) const;

private:
    std::filesystem::path m_folder;
    std::string m_look;
};

/// A project whose water is a river.
std::unique_ptr<Project> NewExample();

/// Opens what the program shows, one after the other, in all languages.
class Tour
{
public:
    /// Is called with each window once it is laid out and drawn, with a name of its own, and with what it
    /// shows where that is to be told.
    using Visitor = std::function<void(wxWindow& window, const std::string& name, const wxString& caption)>;
    explicit Tour(Visitor visitor) : m_visitor(std::move(visitor)) {}

    void TakeControls();
    void TakeModules();
    void TakeDialogs();

private:
    void Visit(wxWindow& window, const std::string& name, const wxString& caption = {});
    void TakeExhibit(const Exhibit& exhibit);
    void TakeModule(const Module& module, const ModuleLook& look);
    void TakeDialog(wxDialog& dialog, const std::string& name);
    void TakeDialogsOfLanguage();
    void TakeStartPage();
    void TakeServices(wxWindow& owner);
    void TakeDataSheets(wxWindow& owner);
    void TakeRates(wxWindow& owner);
    void TakeWasteWater(wxWindow& owner);
    void TakeWhatIf(wxWindow& owner);

    Visitor m_visitor;
    std::string m_dialogSuffix;  ///< of the language that the dialogs are shown in
};

}  // namespace app
