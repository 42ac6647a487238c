// SPDX-License-Identifier: MIT
// Analyses of laboratories: whatever the bytes, samples are as long as the parameters, a table too large is
// refused, and what is written is read back, texts as they were.
#include "core/laboratory_file.h"

#include <cstdint>
#include <cstdlib>

namespace {

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

/// Any text may stand in a cell.
void WriteAndRead(const std::string& text)
{
    const laboratory::File again = laboratory::Read(laboratory::Write(
        {{{"Sample", text}, {"Ca [mg/l]", "1"}, {"pH", ""}}, {{"Sample", "B"}, {"Ca [mg/l]", "-2.5"}}}));
    Require(again.samples.size() == 2 && again.GetSampleName(0) == text);
    Require(again.GetNumber(0, 1)->value == 1.0 && again.GetNumber(1, 1)->value == -2.5);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    WriteAndRead(std::string(bytes));
    try {
        const laboratory::File file = laboratory::Read(bytes);
        for (std::size_t sample = 0; sample < file.samples.size(); ++sample) {
            Require(file.samples[sample].size() == file.parameters.size());
            file.GetSampleName(sample);
            for (std::size_t i = 0; i < file.parameters.size(); ++i)
                file.GetNumber(sample, i);
        }
    } catch (const delimited::TooLarge&) {
    }
    return 0;
}
