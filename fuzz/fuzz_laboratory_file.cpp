// SPDX-License-Identifier: MIT
// Analyses of laboratories: whatever the bytes, samples are as long as the parameters and what is written is
// read back.
#include "core/laboratory_file.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const laboratory::File file = laboratory::Read({reinterpret_cast<const char*>(data), size});
    for (std::size_t sample = 0; sample < file.samples.size(); ++sample) {
        if (file.samples[sample].size() != file.parameters.size())
            std::abort();
        for (std::size_t i = 0; i < file.parameters.size(); ++i)
            file.GetNumber(sample, i);
    }
    if (!file.samples.empty() && !file.parameters.empty()) {
        const auto& parameter = file.parameters.front();
        const auto again = laboratory::Read(
            laboratory::Write({{"Ca [mg/l]", "1"}, {parameter.title, file.samples.front().front()}}));
        if (again.samples.empty())
            std::abort();
    }
    return 0;
}
