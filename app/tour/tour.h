// SPDX-License-Identifier: MIT
#pragma once

/// The pictures of one look; see tour_command.h for the whole.

#include <filesystem>
#include <string>

namespace app {

/// What is pictured.
enum class TourPart
{
    All,
    Modules
};

/// Takes the pictures into `folder` as "NAME-LOOK.png", and "captions-LOOK.txt", which says what each shows,
/// one a line behind its name and a tab. Needs the running event loop. Throws std::runtime_error when one
/// cannot be taken or written.
void TakeTour(const std::filesystem::path& folder, const std::string& look, TourPart part);

}  // namespace app
