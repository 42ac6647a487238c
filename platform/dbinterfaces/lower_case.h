// SPDX-License-Identifier: MIT
#pragma once

/// Letters without their case, as searches compare them. Internal to this library.

#include <string>
#include <string_view>

/// The same letters in lower case, whatever the user's locale; bytes that are no UTF-8 stay as they are.
std::string LowerCase(std::string_view utf8);
