// SPDX-License-Identifier: MIT
#include "app/command_line/calc_command.h"

#include "app/command_line/project_output.h"
#include "app/command_line/project_setting.h"
#include "app/command_line/project_source.h"
#include "gui_base/messages/user_message.h"
#include "projectbase/project/project.h"

#include <optional>
#include <ostream>
#include <stdexcept>

namespace app {

namespace {

constexpr const char* kUsage =
    "usage: tarnvik calc FILE [--set [OWNER:]KEY=VALUE[UNIT]]... [--json]\n"
    "\n"
    "Calculates the project in FILE and prints the results. FILE is not changed.\n"
    "\n"
    "  --set na=12mg/l       sets a value first; the number has a decimal point.\n"
    "                        An empty value means that it is not known.\n"
    "        water.2:ph=7.4  ... of the second water; without an owner it is the first\n"
    "        ex.1.comp.1:level=80\n"
    "                        ... of a part of the plant: exchanger, compartment, row\n"
    "        feedcompound.1:conc=5mmol/l\n"
    "                        ... of a compound of the feed; conc.effluent of the effluent\n"
    "        balance.auto=true\n"
    "  --json                prints everything the project knows, in ISO units; FILE may\n"
    "                        be such a text\n"
    "  --help                prints this text\n";

struct Options
{
    std::string file;
    std::vector<std::string> settings;
    bool json = false;
    bool help = false;
};

struct UsageError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

Options ParseOptions(const std::vector<std::string>& args)
{
    Options options;
    std::optional<std::string> file;
    bool onlyFiles = false;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& word = args[i];
        if (onlyFiles || word.empty() || word[0] != '-') {
            if (file)
                throw UsageError("more than one file: '" + *file + "' and '" + word + "'");
            file = word;
        } else if (word == "--") {
            onlyFiles = true;
        } else if (word == "--json") {
            options.json = true;
        } else if (word == "--help" || word == "-h") {
            options.help = true;
        } else if (word == "--set" && i + 1 < args.size()) {
            options.settings.push_back(args[++i]);
        } else if (word.starts_with("--set=")) {
            options.settings.push_back(word.substr(6));
        } else {
            throw UsageError(word == "--set" ? "--set needs KEY=VALUE" : "unknown option '" + word + "'");
        }
    }
    if (!file && !options.help)
        throw UsageError("no file is given");
    options.file = file.value_or("");
    return options;
}

void Calculate(const Options& options, std::ostream& out, std::ostream& err)
{
    const auto project = LoadProject(options.file);
    project->GetLogger().SetSink(
        [&err](const Logger::Entry& entry) { err << "tarnvik: " << entry.text << '\n'; });
    for (const std::string& text : options.settings)
        ApplySetting(*project, ParseSetting(text));
    for (const std::string& warning : RangeWarnings(*project))
        err << "tarnvik: warning: " << warning << '\n';
    if (options.json)
        PrintJson(*project, options.file, out);
    else
        PrintTable(*project, out);
}

}  // namespace

int RunCalc(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    try {
        const Options options = ParseOptions(args);
        if (options.help)
            out << kUsage;
        else
            Calculate(options, out, err);
        return 0;
    } catch (const UsageError& error) {
        err << "tarnvik calc: " << error.what() << "\n\n" << kUsage;
        return 2;
    } catch (const SettingError& error) {
        err << "tarnvik calc: " << error.what() << '\n';
        return error.isSyntax ? 2 : 1;
    } catch (const std::exception& error) {
        err << "tarnvik calc: " << MessageOf(error).text.utf8_string() << '\n';
        return 1;
    }
}

}  // namespace app
