// SPDX-License-Identifier: MIT
// What comes from a settings file: the arrangement of a notebook.
#include "core/notebook_perspective.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto arrangement = perspective::Parse({reinterpret_cast<const char*>(data), size});
    // What was understood is printed so that it is understood again.
    if (perspective::Parse(perspective::Print(arrangement)) != arrangement)
        std::abort();
    return 0;
}
