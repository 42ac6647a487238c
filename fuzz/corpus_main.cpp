// SPDX-License-Identifier: MIT
// Runs a fuzz target over every file of its corpus: as it is, cut at many lengths, and with single bytes
// spoiled. The steps are chosen so that a file of any size takes a bounded number of runs.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr std::size_t kMostVariants = 200;

void Run(const std::string& bytes)
{
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

std::size_t RunVariants(const std::string& bytes)
{
    Run(bytes);
    std::size_t runs = 1;
    const std::size_t step = std::max<std::size_t>(1, bytes.size() / kMostVariants);
    for (std::size_t at = 0; at < bytes.size(); at += step, runs += 2) {
        Run(bytes.substr(0, at));
        std::string spoiled = bytes;
        spoiled[at] = static_cast<char>(spoiled[at] ^ (1 << (at % 8)));
        Run(spoiled);
    }
    return runs;
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s CORPUS\n", argv[0]);
        return 2;
    }
    std::size_t files = 0;
    std::size_t runs = 0;
    for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
        std::ifstream file(entry.path(), std::ios::binary);
        runs += RunVariants({std::istreambuf_iterator<char>(file), {}});
        ++files;
    }
    std::printf("%zu files, %zu runs\n", files, runs);
    return files == 0 ? 1 : 0;
}
