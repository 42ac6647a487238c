// SPDX-License-Identifier: MIT
#include "app/command_line/settings_command.h"

#include "dbinterfaces/project_database.h"
#include "gui_base/messages/user_message.h"
#include "projectbase/advice/resin_limits.h"
#include "projectbase/settings/settings.h"

#include <fmt/format.h>

#include <algorithm>
#include <ostream>
#include <stdexcept>
#include <string_view>

namespace app {

namespace {

constexpr const char* kUsage =
    "usage: tarnvik settings [NAME=VALUE]... [--reset NAME]...\n"
    "\n"
    "Prints the settings of the program, or those that are named. They belong to the user; a\n"
    "window that is open takes them when it is started next.\n"
    "\n"
    "  NAME=VALUE            stores a value; numbers have a decimal point\n"
    "  --reset NAME          stores the value that the program comes with\n"
    "  --help                prints this text\n";

struct UsageError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

/// A connection text and an address may hold a password, which nobody needs to read.
std::string WithoutPassword(std::string text)
{
    constexpr std::string_view kStruck = "***";
    constexpr std::string_view kWord = "password=";
    const auto strike = [&](std::size_t from, std::size_t to) { text.replace(from, to - from, kStruck); };
    if (const std::size_t scheme = text.find("://"); scheme != std::string::npos) {
        const std::size_t user = scheme + 3;
        const std::size_t end = std::min(text.find_first_of("/?#", user), text.size());
        const std::size_t at = text.substr(0, end).rfind('@');
        const std::size_t colon = text.find(':', user);
        if (at != std::string::npos && colon < at)
            strike(colon + 1, at);
    }
    if (const std::size_t word = text.find(kWord); word != std::string::npos) {
        const std::size_t value = word + kWord.size();
        const bool isQuoted = text.substr(value, 1) == "'";
        strike(value, std::min(text.find_first_of(isQuoted ? "'" : " &", value + 1), text.size()));
    }
    return text;
}

DetailData& Find(const std::string& name)
{
    if (DetailData* setting = Settings::GetSettings().GetDetail(name))
        return *setting;
    throw UsageError(fmt::format("there is no setting '{}'", name));
}

void Set(const std::string& name, const std::string& value)
{
    Find(name);
    if (!Settings::SetFromText(name, value))
        throw UsageError(fmt::format("'{}' is no value of '{}'", value, name));
}

/// A limit of advice stands with another one, whichever of both is changed.
void CheckLimits(const std::vector<std::string>& args)
{
    const auto isChanged = [&args](const std::string& name) {
        for (std::size_t i = 0; i < args.size(); ++i) {
            if (args[i].starts_with(name + "=") || (i > 0 && args[i] == name && args[i - 1] == "--reset"))
                return true;
        }
        return false;
    };
    for (const advice::LimitRow& row : advice::LimitRows()) {
        const bool isConcerned = isChanged(advice::NoteSetting(row)) || isChanged(advice::WarnSetting(row));
        if (isConcerned && !advice::IsInOrder(advice::LimitsOf(row)))
            throw UsageError(
                fmt::format("'{}' is above '{}'", advice::NoteSetting(row), advice::WarnSetting(row)));
    }
}

/// A database that cannot be reached is no reason to keep its name: the setting that holds it stays on this
/// machine.
void OpenDatabase(const std::vector<std::string>& args)
{
    try {
        ProjectDatabase::OpenConfigured();
    } catch (const std::exception&) {
        constexpr std::string_view kName = "database.connection";
        const bool isAboutIt = std::ranges::any_of(args, [&](const std::string& word) {
            return word == kName || word.starts_with(std::string(kName) + "=");
        });
        if (!isAboutIt)
            throw;
        ProjectDatabase::Open({});
    }
    Settings::Load();
}

/// Carries the words out; the names that they hold.
std::vector<std::string> Take(const std::vector<std::string>& args)
{
    std::vector<std::string> names;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::size_t equals = args[i].find('=');
        if (args[i] == "--reset") {
            if (++i == args.size())
                throw UsageError("--reset needs a name");
            Find(args[i]);
            Settings::Reset(args[i]);
            names.push_back(args[i]);
        } else if (args[i].starts_with('-')) {
            throw UsageError(fmt::format("unknown option '{}'", args[i]));
        } else {
            names.push_back(args[i].substr(0, equals));
            if (equals == std::string::npos)
                Find(args[i]);
            else
                Set(names.back(), args[i].substr(equals + 1));
        }
    }
    return names;
}

}  // namespace

int RunSettings(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    for (const std::string& word : args) {
        if (word == "--help" || word == "-h") {
            out << kUsage;
            return 0;
        }
    }
    try {
        OpenDatabase(args);
        const std::vector<std::string> names = Take(args);
        CheckLimits(args);
        Settings::Save();
        const auto print = [&out](const std::string& name) {
            out << name << '=' << WithoutPassword(Settings::TextOf(name)) << '\n';
        };
        for (const std::string& name : names)
            print(name);
        if (names.empty()) {
            for (const auto& [name, setting] : Settings::GetSettings())
                print(name);
        }
        return 0;
    } catch (const UsageError& error) {
        err << "tarnvik settings: " << error.what() << "\n\n" << kUsage;
        return 2;
    } catch (const std::exception& error) {
        err << "tarnvik settings: " << MessageOf(error).text.utf8_string() << '\n';
        return 1;
    }
}

}  // namespace app
