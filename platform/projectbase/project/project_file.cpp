// SPDX-License-Identifier: MIT
#include "projectbase/project/project_file.h"

#include "projectbase/project/project.h"
#include "projectbase/project/project_file_io.h"
#include "tncommon/atomic_file.h"

#include <cerrno>
#include <system_error>

namespace {

ProjectFileProblem SavingProblem(int error)
{
    switch (error) {
        case ENOSPC:
        case EDQUOT:
            return ProjectFileProblem::DiskFull;
        case ENOENT:
        case ENOTDIR:
            return ProjectFileProblem::FolderMissing;
        case EISDIR:
            return ProjectFileProblem::Folder;
        case EINVAL:
            return ProjectFileProblem::NoRegularFile;
        case EACCES:
        case EPERM:
        case EROFS:
            return ProjectFileProblem::NotWritable;
        default:
            return ProjectFileProblem::WriteFailed;
    }
}

ProjectFileProblem LoadingProblem(int error)
{
    switch (error) {
        case ENOENT:
        case ENOTDIR:
            return ProjectFileProblem::Missing;
        case EISDIR:
            return ProjectFileProblem::Folder;
        case EINVAL:
            return ProjectFileProblem::NoRegularFile;
        case EFBIG:
            return ProjectFileProblem::TooLarge;
        default:
            return ProjectFileProblem::NotReadable;
    }
}

}  // namespace

FileStamp WriteProject(const char* method, const Project& project, const ImageNotes& notes,
                       const std::filesystem::path& path, tncommon::FileSystem& fileSystem,
                       tncommon::Audience audience)
{
    try {
        const std::string bytes = ToImage(project, notes);
        tncommon::ReplaceFile(path, bytes, fileSystem, audience);
        return FileStamp::OfBytes(bytes);
    } catch (const std::system_error& error) {
        throw ProjectFileError(method, SavingProblem(error.code().value()), path, error.code().message());
    } catch (const ProjectFileError&) {
        throw;
    } catch (const std::exception& error) {
        throw ProjectFileError(method, ProjectFileProblem::WriteFailed, path, error.what());
    }
}

ReadImage ReadProject(const char* method, const std::filesystem::path& path, tncommon::FileSystem& fileSystem)
{
    try {
        const std::string bytes = tncommon::ReadWholeFile(path, ProjectFile::kMaxSize, fileSystem);
        ReadImage read{FromImage(bytes), FileStamp::OfBytes(bytes)};
        read.image.project->SetChanged(false);
        return read;
    } catch (const ImageError& error) {
        throw ProjectFileError(method, error.problem, path, error.what());
    } catch (const std::system_error& error) {
        throw ProjectFileError(method, LoadingProblem(error.code().value()), path, error.code().message());
    }
}

FileStamp ProjectFile::Save(const Project& project, const std::filesystem::path& path,
                            tncommon::FileSystem& fileSystem)
{
    return WriteProject("Save", project, {}, path, fileSystem);
}

ProjectFile::Opened ProjectFile::Open(const std::filesystem::path& path, tncommon::FileSystem& fileSystem)
{
    ReadImage read = ReadProject("Load", path, fileSystem);
    return {std::move(read.image.project), std::move(read.stamp)};
}

std::unique_ptr<Project> ProjectFile::Load(const std::filesystem::path& path,
                                           tncommon::FileSystem& fileSystem)
{
    return Open(path, fileSystem).project;
}
