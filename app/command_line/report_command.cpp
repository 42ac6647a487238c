// SPDX-License-Identifier: MIT
#include "app/command_line/report_command.h"

#include "app/command_line/project_source.h"
#include "app/command_line/user_settings.h"
#include "app/language/language.h"
#include "app/modules/base/module.h"
#include "gui_base/messages/user_message.h"
#include "gui_base/report/report_builder.h"
#include "gui_base/report/report_file.h"
#include "projectbase/project/project.h"
#include "projectbase/units/unit_system_manager.h"

#include <fmt/format.h>
#include <wx/translation.h>

#include <algorithm>
#include <ostream>
#include <stdexcept>

namespace app {

namespace {

constexpr const char* kUsage =
    "usage: tarnvik report FILE -o OUT.pdf [--units iso|us|imperial] [--language CODE]\n"
    "                      [--pages NAME,...] [--paper a4|letter]\n"
    "\n"
    "Calculates the project in FILE and writes its report to OUT.pdf. FILE is not changed.\n"
    "\n"
    "  -o OUT.pdf            the file to write; one of that name is replaced\n"
    "  --units us            units of the report; those of the project are the default\n"
    "  --language de         language of the report, which also has its decimal sign; English\n"
    "                        is the default\n"
    "  --pages analysis      writes these pages only, by their names in the report of this project:\n"
    "                        project, analysis, diagrams, feed, ... A name that it does not\n"
    "                        have is answered by those that it has.\n"
    "          1:properties  ... of the second water only\n"
    "  --paper letter        A4 is the default\n"
    "  --help                prints this text\n";

constexpr const char* kProgram = "Tarnvik " TARNVIK_VERSION;

struct Options
{
    std::string file;
    std::string output;
    std::string units;
    std::string language = "en";
    std::string paper = "a4";
    std::vector<std::string> pages;
    bool help = false;
};

struct UsageError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

std::vector<std::string> SplitNames(const std::string& list)
{
    std::vector<std::string> names;
    for (std::size_t begin = 0; begin <= list.size();) {
        const std::size_t end = std::min(list.find(',', begin), list.size());
        names.push_back(list.substr(begin, end - begin));
        begin = end + 1;
    }
    return names;
}

void SetOption(Options& options, const std::string& name, const std::string& value)
{
    if (value.empty())
        throw UsageError(fmt::format("{} needs a value", name));
    if (name == "-o" || name == "--output")
        options.output = value;
    else if (name == "--units")
        options.units = value;
    else if (name == "--language")
        options.language = value;
    else if (name == "--paper")
        options.paper = value;
    else if (name == "--pages")
        options.pages = SplitNames(value);
    else
        throw UsageError(fmt::format("unknown option '{}'", name));
}

void CheckOptions(const Options& options)
{
    if (options.file.empty())
        throw UsageError("no file is given");
    if (options.output.empty())
        throw UsageError("no file to write is given");
    const auto& systems = UnitSystemManager::GetUnitSystems();
    if (!options.units.empty() && std::find(systems.begin(), systems.end(), options.units) == systems.end())
        throw UsageError(fmt::format("there is no unit system '{}'", options.units));
    if (options.paper != "a4" && options.paper != "letter")
        throw UsageError(fmt::format("there is no paper '{}'", options.paper));
    const auto languages = AvailableLanguages();
    const auto isWanted = [&](const Language& language) {
        return language.code.utf8_string() == options.language;
    };
    if (std::none_of(languages.begin(), languages.end(), isWanted))
        throw UsageError(fmt::format("there is no language '{}'", options.language));
}

Options ParseOptions(const std::vector<std::string>& args)
{
    Options options;
    bool onlyFiles = false;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& word = args[i];
        if (onlyFiles || word.empty() || word[0] != '-') {
            if (!options.file.empty())
                throw UsageError(fmt::format("more than one file: '{}' and '{}'", options.file, word));
            options.file = word;
        } else if (word == "--") {
            onlyFiles = true;
        } else if (word == "--help" || word == "-h") {
            options.help = true;
            return options;
        } else if (const auto equals = word.find('=');
                   word.starts_with("--") && equals != std::string::npos) {
            SetOption(options, word.substr(0, equals), word.substr(equals + 1));
        } else {
            SetOption(options, word, i + 1 < args.size() ? args[i + 1] : std::string());
            ++i;
        }
    }
    CheckOptions(options);
    return options;
}

/// In the language in effect.
ReportContext MakeContext(const Options& options, const Project& project)
{
    ReportContext context;
    context.unitSystem = options.units.empty() ? project.GetUnitSystemDisplay() : options.units;
    context.language = options.language;
    context.separators.decimal = DecimalSign();
    context.translate = [](const char* source) {
        const wxString text = wxString::FromUTF8(source);
        const wxTranslations* catalogue = wxTranslations::Get();
        const wxString* found =
            catalogue == nullptr || text.empty() ? nullptr : catalogue->GetTranslatedString(text);
        return (found != nullptr && !found->empty() ? *found : text).utf8_string();
    };
    return context;
}

/// The names of all pages, each once.
std::string PageNames(const ReportBuilder& builder)
{
    std::vector<std::string> names;
    for (const ReportPage& page : builder.GetPages()) {
        if (std::ranges::find(names, page.name) == names.end())
            names.push_back(page.name);
    }
    return fmt::format("{}", fmt::join(names, ", "));
}

std::vector<int> ChosenPages(const ReportBuilder& builder, const Options& options)
{
    std::vector<int> chosen;
    for (const std::string& name : options.pages) {
        const auto found = builder.FindPages(name);
        if (found.empty())
            throw UsageError(fmt::format("there is no page '{}'; there are {}", name, PageNames(builder)));
        chosen.insert(chosen.end(), found.begin(), found.end());
    }
    for (const ReportPage& page : builder.GetPages()) {
        if (options.pages.empty() && page.chosen)
            chosen.push_back(page.id);
    }
    return chosen;
}

/// The project must not be replaced by its own report.
void CheckOutput(const Options& options)
{
    std::error_code ignored;
    if (std::filesystem::equivalent(options.file, options.output, ignored))
        throw std::runtime_error(fmt::format("{} is the project itself", options.output));
}

void Write(const Options& options, std::ostream& err)
{
    const auto project = LoadProject(options.file);
    project->GetLogger().SetSink(
        [&err](const Logger::Entry& entry) { err << "tarnvik: " << entry.text << '\n'; });
    CheckOutput(options);
    SwitchLanguage(wxString::FromUTF8(options.language));
    const std::vector<std::unique_ptr<ReportPageSource>> owned = ReportSources(*project);
    std::vector<const ReportPageSource*> sources;
    for (const auto& source : owned)
        sources.push_back(source.get());
    const ReportBuilder builder(sources, MakeContext(options, *project));
    const std::string name = std::filesystem::path(options.file).stem().string();
    report::Document document =
        builder.Build(ChosenPages(builder, options), MakeReportHead(*project, name, kProgram));
    document.paper = options.paper == "letter" ? report::PaperSize::Letter : report::PaperSize::A4;
    try {
        WriteReportFile(document, options.output);
    } catch (const std::system_error& error) {
        throw std::runtime_error(fmt::format("the report could not be written to {}: {}", options.output,
                                             CauseText(error.code()).utf8_string()));
    }
}

}  // namespace

int RunReport(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    try {
        const Options options = ParseOptions(args);
        if (options.help) {
            out << kUsage << std::flush;
            return 0;
        }
        TakeUserSettings(err);
        Write(options, err);
        return 0;
    } catch (const UsageError& error) {
        err << "tarnvik report: " << error.what() << "\n\n" << kUsage;
        return 2;
    } catch (const std::exception& error) {
        err << "tarnvik report: " << MessageOf(error).text.utf8_string() << '\n';
        return 1;
    }
}

}  // namespace app
