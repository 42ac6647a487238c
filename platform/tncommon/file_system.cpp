// SPDX-License-Identifier: MIT
#include "tncommon/file_system.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace tncommon {

namespace {

template <typename Result>
Result Checked(Result result, const char* call)
{
    if (result < 0)
        throw std::system_error(errno, std::generic_category(), call);
    return result;
}

/// Repeats a call that a signal interrupted.
template <typename Call>
auto Uninterrupted(Call call)
{
    for (;;) {
        const auto result = call();
        if (result >= 0 || errno != EINTR)
            return result;
    }
}

}  // namespace

std::optional<FileAttributes> FileSystem::GetAttributes(const std::filesystem::path& path)
{
    struct stat data = {};
    if (stat(path.c_str(), &data) != 0) {
        if (errno == ENOENT)
            return std::nullopt;
        throw std::system_error(errno, std::generic_category(), "stat");
    }
    return FileAttributes{.isRegular = S_ISREG(data.st_mode),
                          .isFolder = S_ISDIR(data.st_mode),
                          .mode = data.st_mode & 07777U,
                          .owner = data.st_uid,
                          .group = data.st_gid};
}

bool FileSystem::MayWrite(const std::filesystem::path& path)
{
    return access(path.c_str(), W_OK) == 0;
}

int FileSystem::OpenForReading(const std::filesystem::path& path)
{
    return Checked(Uninterrupted([&] { return open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK); }),
                   "open");
}

int FileSystem::CreateExclusively(const std::filesystem::path& path, unsigned mode)
{
    return Checked(
        Uninterrupted([&] { return open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode); }),
        "open");
}

std::size_t FileSystem::Read(int descriptor, char* buffer, std::size_t size)
{
    return static_cast<std::size_t>(
        Checked(Uninterrupted([&] { return read(descriptor, buffer, size); }), "read"));
}

std::size_t FileSystem::Write(int descriptor, const char* bytes, std::size_t size)
{
    const auto written = Checked(Uninterrupted([&] { return write(descriptor, bytes, size); }), "write");
    if (written == 0 && size > 0)
        throw std::system_error(ENOSPC, std::generic_category(), "write");
    return static_cast<std::size_t>(written);
}

void FileSystem::SetAttributes(int descriptor, const FileAttributes& attributes)
{
    // Only root may give files away; the owner of a shared file changes then, which is no reason not to save
    // it.
    [[maybe_unused]] const int ignored = fchown(descriptor, attributes.owner, attributes.group);
    Checked(fchmod(descriptor, attributes.mode), "fchmod");
}

void FileSystem::Sync(int descriptor)
{
    Checked(Uninterrupted([&] { return fsync(descriptor); }), "fsync");
}

void FileSystem::Close(int descriptor)
{
    // Not repeated after an interruption: the descriptor is released even then.
    if (close(descriptor) != 0 && errno != EINTR)
        throw std::system_error(errno, std::generic_category(), "close");
}

void FileSystem::Rename(const std::filesystem::path& from, const std::filesystem::path& to)
{
    Checked(std::rename(from.c_str(), to.c_str()), "rename");
}

void FileSystem::Remove(const std::filesystem::path& path)
{
    Checked(unlink(path.c_str()), "unlink");
}

void FileSystem::SyncFolder(const std::filesystem::path& folder)
{
    const int descriptor = Checked(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC), "open");
    const int result = fsync(descriptor);
    const int error = errno;
    close(descriptor);
    if (result != 0)
        throw std::system_error(error, std::generic_category(), "fsync");
}

FileSystem& FileSystem::Native()
{
    static FileSystem native;
    return native;
}

}  // namespace tncommon
