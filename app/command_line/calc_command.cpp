// SPDX-License-Identifier: MIT
#include "app/command_line/calc_command.h"

#include "app/command_line/project_output.h"
#include "app/command_line/project_setting.h"
#include "app/command_line/project_source.h"
#include "app/command_line/sweep_command.h"
#include "app/command_line/user_settings.h"
#include "gui_base/messages/user_message.h"
#include "projectbase/project/project.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <ostream>
#include <stdexcept>

namespace app {

namespace {

constexpr const char* kUsage =
    "usage: tarnvik calc FILE [--set [OWNER:]KEY=VALUE[UNIT]]... [--json]\n"
    "       tarnvik calc FILE [--set ...]... --sweep [OWNER:]KEY=FROM:TO[UNIT]:N ...\n"
    "                    [--columns KEY,...] [--json] [--shard K/N]\n"
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
    "                        be such a text; of rows a line for each\n"
    "  --sweep ex.1.comp.1:level=50:120:8\n"
    "                        calculates a row for each of N values from FROM to TO; of\n"
    "                        several sweeps every combination. Rows are CSV, in ISO units\n"
    "  --columns KEY,...     what the rows show beside what is swept; alone, a single row\n"
    "  --shard K/N           the K-th of N parts of the rows, which make the whole\n"
    "  --help                prints this text\n";

struct Options
{
    std::string file;
    std::vector<std::string> settings;
    std::vector<std::string> sweeps;
    std::vector<std::string> columns;
    std::optional<Shard> shard;
    bool json = false;
    bool help = false;
};

struct UsageError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

std::vector<std::string> SplitColumns(const std::string& text)
{
    std::vector<std::string> columns;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(',', begin), text.size());
        if (end == begin)
            throw UsageError("--columns needs KEY,KEY,...");
        columns.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return columns;
}

/// Takes an option that has a value; false for another word.
bool TakeOption(Options& options, const std::string& name, const std::string& value)
{
    if (name == "--set")
        options.settings.push_back(value);
    else if (name == "--sweep")
        options.sweeps.push_back(value);
    else if (name == "--columns")
        std::ranges::move(SplitColumns(value), std::back_inserter(options.columns));
    else if (name == "--shard")
        options.shard = ParseShard(value);
    else
        return false;
    return true;
}

/// What an option with a value needs; null for one that has none.
const char* NeededBy(const std::string& option)
{
    constexpr std::array<std::pair<std::string_view, const char*>, 4> kNeeds{{{"--set", "KEY=VALUE"},
                                                                              {"--sweep", "KEY=FROM:TO:N"},
                                                                              {"--columns", "KEY,KEY,..."},
                                                                              {"--shard", "K/N"}}};
    const auto found = std::ranges::find(kNeeds, option, &std::pair<std::string_view, const char*>::first);
    return found == kNeeds.end() ? nullptr : found->second;
}

void CheckOptions(const Options& options, const std::optional<std::string>& file)
{
    if (!file && !options.help)
        throw UsageError("no file is given");
    if (options.shard && options.sweeps.empty())
        throw UsageError("--shard is for parts of a sweep");
}

Options ParseOptions(const std::vector<std::string>& args)
{
    Options options;
    std::optional<std::string> file;
    bool onlyFiles = false;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& word = args[i];
        const std::size_t equals = word.find('=');
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
        } else if (NeededBy(word) != nullptr && i + 1 < args.size()) {
            TakeOption(options, word, args[++i]);
        } else if (NeededBy(word) != nullptr) {
            throw UsageError(word + " needs " + NeededBy(word));
        } else if (equals == std::string::npos ||
                   !TakeOption(options, word.substr(0, equals), word.substr(equals + 1))) {
            throw UsageError("unknown option '" + word + "'");
        }
    }
    CheckOptions(options, file);
    options.file = file.value_or("");
    return options;
}

/// "ex.1:step/v", as a column is named.
std::string ColumnOf(const SweepRange& range)
{
    return range.key.owner.empty() ? range.key.key : range.key.owner + ":" + range.key.key;
}

/// Returns the exit code.
int CalculateVariants(const Options& options, Project& project, std::ostream& out, std::ostream& err)
{
    std::vector<SweepRange> ranges;
    std::ranges::transform(options.sweeps, std::back_inserter(ranges), ParseSweep);
    const Sweep sweep(std::move(ranges));
    sweep.Check(project);
    std::vector<std::string> swept;
    std::ranges::transform(sweep.GetRanges(), std::back_inserter(swept), ColumnOf);
    const VariantRow row(project, swept, options.columns,
                         options.json ? VariantRow::Form::JsonLine : VariantRow::Form::Csv);
    const std::uint64_t failed =
        WriteVariants(project, sweep, options.shard.value_or(Shard()), row, out, err);
    if (failed > 0)
        err << "tarnvik calc: " << failed << " variants could not be set\n";
    return failed > 0 ? 1 : 0;
}

/// Returns the exit code.
int Calculate(const Options& options, std::ostream& out, std::ostream& err)
{
    const auto project = LoadProject(options.file);
    project->GetLogger().SetSink(
        [&err](const Logger::Entry& entry) { err << "tarnvik: " << entry.text << '\n'; });
    for (const std::string& text : options.settings)
        ApplySetting(*project, ParseSetting(text));
    if (!options.sweeps.empty() || !options.columns.empty())
        return CalculateVariants(options, *project, out, err);
    for (const std::string& warning : RangeWarnings(*project))
        err << "tarnvik: warning: " << warning << '\n';
    if (options.json)
        PrintJson(*project, options.file, out);
    else
        PrintTable(*project, out);
    return 0;
}

}  // namespace

int RunCalc(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    try {
        const Options options = ParseOptions(args);
        if (options.help) {
            out << kUsage << std::flush;
            return 0;
        }
        TakeUserSettings(err);
        return Calculate(options, out, err);
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
