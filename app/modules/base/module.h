// SPDX-License-Identifier: MIT
#pragma once

/// A module of the program as a value. Frame, tree, tour, report, command line and help know modules only by
/// this; a new one is a file beside the others and a line in the list. Reading the list needs no window.

#include "projectbase/project/owner_node.h"

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

class ModulePanelBase;
class Project;
class ReportPageSource;
class TVHelpFileProvider;
class wxStatusBar;
class wxWindow;

namespace app {

/// What a page is made with. Nothing of it is owned; all of it outlives the page.
struct PageContext
{
    Project& project;
    wxWindow* parent = nullptr;
    TVHelpFileProvider* help = nullptr;
    wxStatusBar* statusBar = nullptr;
    /// Brings the page to the front on which a value is edited, and leads to its field.
    std::function<void(const DetailAddress& address)> showDetail = nullptr;
};

/// A page that was made: its window, which belongs to its parent, and what else lives as long.
struct ModulePage
{
    ModulePanelBase* panel = nullptr;
    /// Goes after the panel: the toolkit does not like handlers to vanish while windows close.
    std::shared_ptr<void> controller = nullptr;
    /// Reads lists of the user database again, after it was replaced.
    std::function<void()> refreshDatabase = nullptr;
    /// Puts a column of the system's clipboard into the fields, where the page can take one.
    std::function<void()> pasteColumn = nullptr;
    /// Lets the user choose one unit for all values of the page, where it has such.
    std::function<void()> chooseUnitForAll = nullptr;
};

struct Module
{
    std::string id;        ///< the same in every language
    const char* title;     ///< source text
    const char* icon;      ///< archive entry of the picture in the tree
    const char* helpPage;  ///< in the user guide
    /// The value with which work on a page begins; null for the first field of the page.
    const char* firstValue = nullptr;
    /// Owners that have a page each: the project, or every water, or exchangers.
    OwnerKind pageOf = OwnerKind::Project;
    /// Whether an owner of that kind has a page; null where each has.
    bool (*hasPage)(const OwnerNode& owner) = nullptr;
    /// Whether projects of that type of plant have the module.
    bool (*isFor)(const Project& project) = nullptr;
    /// Whether a value is shown and edited on the page of the owner.
    bool (*holds)(const Project& project, const OwnerNode& owner, const DetailAddress& address) = nullptr;
    ModulePage (*makePage)(const PageContext& context, OwnerNode& owner) = nullptr;
    /// Null for a module without pages in a report. The project outlives the source.
    std::unique_ptr<ReportPageSource> (*makeReport)(const Project& project) = nullptr;
};

/// All modules in the order of the tree and of the report.
std::span<const Module> Modules();

/// The pages of the modules that a project has, and at the end what is out of range. The project outlives
/// them.
std::vector<std::unique_ptr<ReportPageSource>> ReportSources(const Project& project);

}  // namespace app
