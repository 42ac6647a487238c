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
    std::string folder = (std::filesystem::temp_directory_path() / "tarnvik-fuzz-XXXXXX").string();
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
