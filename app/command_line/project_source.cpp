// SPDX-License-Identifier: MIT
#include "app/command_line/project_source.h"

#include "projectbase/project/project.h"
#include "projectbase/project/project_file.h"
#include "projectbase/project/project_json.h"
#include "tncommon/atomic_file.h"

namespace app {

std::unique_ptr<Project> LoadProject(const std::filesystem::path& path)
{
    if (path.extension() != ".json")
        return ProjectFile::Load(path);
    return ProjectFromJson(tncommon::ReadWholeFile(path, kMostJsonBytes));
}

}  // namespace app
