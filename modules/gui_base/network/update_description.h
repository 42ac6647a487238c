// SPDX-License-Identifier: MIT
#pragma once

/// What the update site says of the newest version:
///
/// <tarnvik-update version="1.2.0" file="tarnvik-1.2.0-setup.run" size="104857600" sha256="…">
///   <note lang="en">What is new</note>
/// </tarnvik-update>

#include "gui_base/gui_base_export.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

struct UpdateDescription
{
    std::string version;  ///< numbers with points between them
    std::string file;     ///< of the setup program; a name without a folder
    std::int64_t size = 0;
    std::string sha256;                        ///< hexadecimal digits in lower case
    std::map<std::string, std::string> notes;  ///< by language
};

/// Nothing for what is no such document, or one that lacks something but the notes.
GUI_BASE_EXPORT std::optional<UpdateDescription> ReadUpdateDescription(std::string_view bytes);

/// Whether a version comes after another one: "1.10" after "1.9.3". A text that is no version comes before
/// all others.
GUI_BASE_EXPORT bool IsNewerVersion(std::string_view version, std::string_view than);
