// SPDX-License-Identifier: MIT
// What comes from a disk or a colleague: a project file.
#include "projectbase/project/project.h"
#include "projectbase/project/project_file.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

std::filesystem::path ScratchFile()
{
    // In memory where there is such a folder: a disk would be the slowest part.
    const std::filesystem::path memory = "/dev/shm";
    const auto parent = std::filesystem::exists(memory) ? memory : std::filesystem::temp_directory_path();
    std::string folder = (parent / "tarnvik-fuzz-XXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr)
        std::abort();
    return std::filesystem::path(folder) / "input.tarnvik";
}

/// Removes the scratch folder at the end of the program.
struct Scratch
{
    std::filesystem::path file = ScratchFile();
    ~Scratch() { std::filesystem::remove_all(file.parent_path()); }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Scratch scratch;
    std::ofstream(scratch.file, std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    try {
        // Whatever is taken must be calculable.
        ProjectFile::Load(scratch.file)->CalculateDesign();
    } catch (const ProjectFileError&) {
    }
    return 0;
}
