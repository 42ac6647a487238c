// SPDX-License-Identifier: MIT
#pragma once

/// What the arguments of the program ask for: a command, its help or version, or the window.

#include <iosfwd>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace app {

/// What `tarnvik NAME ...` does without a window of this process.
struct Command
{
    std::string_view name;
    std::string_view arguments;  ///< how they are written
    std::string_view purpose;
    /// Returns the exit code: 0, 1 for what could not be done, 2 for arguments that mean nothing.
    int (*run)(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
};

/// Does what `args` (without the program's name) ask for and returns the exit code; nothing where they ask
/// for the window: no arguments, a file, options of the window or of the toolkit.
std::optional<int> RunCommandLine(std::span<const Command> commands, const std::vector<std::string>& args,
                                  std::ostream& out, std::ostream& err);

}  // namespace app
