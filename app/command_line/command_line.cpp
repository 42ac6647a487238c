// SPDX-License-Identifier: MIT
#include "app/command_line/command_line.h"

#include "app/command_line/printable_output.h"
#include "tncommon/printable_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <iterator>
#include <ostream>
#include <sstream>

namespace app {

namespace {

/// Options of the window (of the program itself and of the toolkit) that may stand before a file.
constexpr std::array<std::string_view, 8> kWindowOptions{
    "--measure-start", "--tour", "--tour-look", "--tour-modules", "--display", "--gtk-", "--g-", "--verbose"};

std::string Usage(std::span<const Command> commands)
{
    std::string text = "usage: tarnvik [FILE]\n";
    for (const Command& command : commands)
        fmt::format_to(std::back_inserter(text), "       tarnvik {} {}\n", command.name, command.arguments);
    text += "\nWithout a command a window opens, with FILE if there is one.\n\n";
    for (const Command& command : commands)
        fmt::format_to(std::back_inserter(text), "  {:<10} {}\n", command.name, command.purpose);
    text +=
        "\n"
        "  --help     prints this text; after a command, that of the command\n"
        "  --version  prints the version\n";
    return text;
}

bool IsWindowOption(std::string_view word)
{
    return std::ranges::any_of(kWindowOptions, [word](std::string_view option) {
        return option.ends_with('-') ? word.starts_with(option) : word.substr(0, word.find('=')) == option;
    });
}

/// Whether a word without a folder or an ending that no file bears: a command that there is not.
bool IsNoFile(const std::string& word)
{
    std::error_code ignored;
    return word.find_first_of("/\\.") == std::string::npos && !std::filesystem::exists(word, ignored);
}

}  // namespace

std::optional<int> RunCommandLine(std::span<const Command> commands, const std::vector<std::string>& args,
                                  std::ostream& out, std::ostream& err)
{
    if (args.empty())
        return std::nullopt;
    const std::string& first = args.front();
    if (first == "--help" || first == "-h") {
        out << Usage(commands) << std::flush;
        return 0;
    }
    if (first == "--version") {
        out << "Tarnvik " TARNVIK_VERSION "\n" << std::flush;
        return 0;
    }
    const auto named = std::ranges::find(commands, first, &Command::name);
    if (named != commands.end()) {
        std::ostringstream messages;
        int code = 0;
        {
            PrintableOutput results(out);
            std::ostream stream(&results);
            code = named->run({args.begin() + 1, args.end()}, stream, messages);
            err << tncommon::PrintableLines(messages.view()) << std::flush;
        }
        if (out)
            return code;
        err << "tarnvik " << first << ": the results could not be written\n";
        return 1;
    }
    if (IsWindowOption(first))
        return std::nullopt;
    const auto refuse = [&](const std::string& why) {
        err << "tarnvik: " << tncommon::PrintableText(why) << "\n\n" << Usage(commands);
        return 2;
    };
    if (first.starts_with('-') && first != "--")
        return refuse(fmt::format("unknown option '{}'", first));
    if (first != "--" && IsNoFile(first))
        return refuse(fmt::format("'{}' is neither a command nor a file", first));
    if (args.size() > (first == "--" ? 2U : 1U))
        return refuse(fmt::format("'{}' is more than one file", args.back()));
    return std::nullopt;
}

}  // namespace app
