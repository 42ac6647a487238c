// SPDX-License-Identifier: MIT
#include "tncommon/atomic_file.h"

#include <fmt/format.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <signal.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace tncommon {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void Throw(int error, const char* call)
{
    throw std::system_error(error, std::generic_category(), call);
}

/// The file that `path` means, which need not exist: the end of a chain of links.
fs::path FollowLinks(fs::path path)
{
    std::error_code error;
    for (int depth = 0; depth < 40; ++depth) {
        if (!fs::is_symlink(fs::symlink_status(path, error)))
            return path;
        const fs::path next = fs::read_symlink(path, error);
        if (error)
            Throw(error.value(), "readlink");
        path = next.is_absolute() ? next : path.parent_path() / next;
    }
    Throw(ELOOP, "readlink");
}

/// Temporaries carry host and process, so that those of a crash can be told from those in use.
std::string TemporaryPrefix()
{
    std::array<char, 65> host{};
    if (gethostname(host.data(), host.size() - 1) != 0)
        host[0] = '\0';
    return fmt::format(".tarnvik-save-{}-", host.data());
}

bool IsRunning(pid_t process)
{
    return kill(process, 0) == 0 || errno != ESRCH;
}

void RemoveStaleTemporaries(const fs::path& folder, FileSystem& fileSystem)
{
    const std::string prefix = TemporaryPrefix();
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(folder, ignored)) {
        const std::string name = entry.path().filename().string();
        if (!name.starts_with(prefix))
            continue;
        pid_t process = 0;
        const char* const end = name.data() + name.size();
        const auto parsed = std::from_chars(name.data() + prefix.size(), end, process);
        if (parsed.ec != std::errc() || parsed.ptr == end || *parsed.ptr != '-' || process <= 0 ||
            IsRunning(process))
            continue;
        try {
            fileSystem.Remove(entry.path());
        } catch (const std::system_error&) {
            // Not ours, then; it does not stand in the way.
        }
    }
}

fs::path TemporaryIn(const fs::path& folder)
{
    static std::atomic<unsigned> counter = 0;
    return folder / fmt::format("{}{}-{}", TemporaryPrefix(), getpid(), ++counter);
}

/// A file under construction; it is removed unless it was renamed.
class Temporary
{
public:
    Temporary(fs::path path, unsigned mode, FileSystem& fileSystem)
        : m_path(std::move(path)),
          m_fileSystem(fileSystem),
          m_descriptor(fileSystem.CreateExclusively(m_path, mode))
    {}
    ~Temporary()
    {
        try {
            if (m_descriptor >= 0)
                m_fileSystem.Close(m_descriptor);
        } catch (const std::system_error&) {
            // It is going to be removed.
        }
        try {
            if (!m_renamed)
                m_fileSystem.Remove(m_path);
        } catch (const std::system_error&) {
            // The error that led here is the one to report.
        }
    }
    Temporary(const Temporary&) = delete;
    Temporary& operator=(const Temporary&) = delete;

    int Descriptor() const { return m_descriptor; }
    void Write(const std::string& bytes)
    {
        for (std::size_t done = 0; done < bytes.size();)
            done += m_fileSystem.Write(m_descriptor, bytes.data() + done, bytes.size() - done);
    }
    void FinishAs(const fs::path& target)
    {
        m_fileSystem.Sync(m_descriptor);
        m_fileSystem.Close(std::exchange(m_descriptor, -1));
        m_fileSystem.Rename(m_path, target);
        m_renamed = true;
    }

private:
    fs::path m_path;
    FileSystem& m_fileSystem;
    int m_descriptor;
    bool m_renamed = false;
};

}  // namespace

void ReplaceFile(const fs::path& path, const std::string& bytes, FileSystem& fileSystem, Audience audience)
{
    constexpr unsigned kNewFile = 0666;    // narrowed by the process's mask
    constexpr unsigned kOwnerOnly = 0600;  // an existing file may be more private than the mask makes it

    const fs::path target = FollowLinks(path);
    auto existing = fileSystem.GetAttributes(target);
    if (existing && !existing->isRegular)
        Throw(existing->isFolder ? EISDIR : EINVAL, "open");
    if (existing && !fileSystem.MayWrite(target))
        Throw(EACCES, "access");  // a rename would get past the write protection

    const bool isPrivate = audience == Audience::OwnerOnly;
    if (existing && isPrivate)
        existing->mode = kOwnerOnly;
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    RemoveStaleTemporaries(folder, fileSystem);
    {
        Temporary temporary(TemporaryIn(folder), existing || isPrivate ? kOwnerOnly : kNewFile, fileSystem);
        temporary.Write(bytes);
        if (existing)
            fileSystem.SetAttributes(temporary.Descriptor(), *existing);
        temporary.FinishAs(target);
    }
    try {
        fileSystem.SyncFolder(folder);
    } catch (const std::system_error&) {
        // The new contents are in place and synced; a power cut right now may at worst bring back the old
        // ones whole.
    }
}

std::string ReadWholeFile(const fs::path& path, std::size_t limit, FileSystem& fileSystem)
{
    const auto attributes = fileSystem.GetAttributes(path);
    if (!attributes)
        Throw(ENOENT, "open");
    if (!attributes->isRegular)
        Throw(attributes->isFolder ? EISDIR : EINVAL, "open");

    struct Input
    {
        FileSystem& fileSystem;
        int descriptor;
        ~Input()
        {
            try {
                fileSystem.Close(descriptor);
            } catch (const std::system_error&) {
                // Nothing was written.
            }
        }
    };
    const Input input{fileSystem, fileSystem.OpenForReading(path)};
    std::string bytes;
    std::array<char, 1 << 16> buffer{};
    while (const std::size_t count = fileSystem.Read(input.descriptor, buffer.data(), buffer.size())) {
        if (bytes.size() + count > limit)
            Throw(EFBIG, "read");
        bytes.append(buffer.data(), count);
    }
    return bytes;
}

}  // namespace tncommon
