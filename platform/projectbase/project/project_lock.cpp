// SPDX-License-Identifier: MIT
#include "projectbase/project/project_lock.h"

#include <fmt/format.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <fcntl.h>
#include <pwd.h>
#include <sstream>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::system_clock;

/// The first line of a lock, by which it is told from a stranger's file of that name.
constexpr const char* kMark = "tarnvik lock";
constexpr std::size_t kLongest = 1024;
/// How often a lock may vanish between being opened and being locked.
constexpr int kTries = 10;

fs::path LockFileOf(const fs::path& project)
{
    std::error_code error;
    fs::path real = fs::weakly_canonical(project, error);
    if (error)
        real = project;
    return real.parent_path() / ("." + real.filename().string() + ".lock");
}

std::string ReadLock(int descriptor)
{
    std::array<char, kLongest> buffer{};
    const ssize_t read = pread(descriptor, buffer.data(), buffer.size(), 0);
    return {buffer.data(), read > 0 ? static_cast<std::size_t>(read) : 0};
}

ProjectLock::Holder HolderOf(const std::string& text)
{
    std::istringstream lines(text);
    std::string mark;
    std::string since;
    ProjectLock::Holder holder;
    std::getline(lines, mark);
    std::getline(lines, holder.user);
    std::getline(lines, holder.host);
    std::getline(lines, since);
    long long seconds = 0;
    std::from_chars(since.data(), since.data() + since.size(), seconds);
    holder.since = Clock::time_point(std::chrono::seconds(seconds));
    return holder;
}

/// Empty where nobody knows it.
std::string UserName()
{
    if (const char* user = std::getenv("USER"); user != nullptr && *user != '\0')
        return user;
    const passwd* entry = getpwuid(getuid());
    return entry != nullptr && entry->pw_name != nullptr ? entry->pw_name : "";
}

void WriteHolder(int descriptor)
{
    std::array<char, 256> host{};
    gethostname(host.data(), host.size() - 1);
    const auto now = std::chrono::duration_cast<std::chrono::seconds>(Clock::now().time_since_epoch());
    const std::string text = fmt::format("{}\n{}\n{}\n{}\n", kMark, UserName(), host.data(), now.count());
    // Who holds it is a courtesy: a lock without a name is still a lock.
    if (ftruncate(descriptor, 0) == 0)
        static_cast<void>(pwrite(descriptor, text.data(), text.size(), 0));
}

/// The lock file, made where there is none. That of another user, who may be the only one to write it, is
/// opened for reading, which is enough to see whether it is locked. No link is followed: it could lead to a
/// file that is dear to somebody.
int OpenLock(const fs::path& file, bool& isOurs)
{
    constexpr int kFlags = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    const int descriptor = open(file.c_str(), O_RDWR | O_CREAT | kFlags, 0666);
    isOurs = descriptor >= 0 || errno != EACCES;
    return isOurs ? descriptor : open(file.c_str(), O_RDONLY | kFlags);
}

bool IsStill(int descriptor, const fs::path& file)
{
    struct stat opened
    {};
    struct stat named
    {};
    return fstat(descriptor, &opened) == 0 && lstat(file.c_str(), &named) == 0 &&
           opened.st_ino == named.st_ino && opened.st_dev == named.st_dev;
}

}  // namespace

ProjectLock::ProjectLock(fs::path file, int descriptor) : m_file(std::move(file)), m_descriptor(descriptor) {}

ProjectLock::~ProjectLock()
{
    unlink(m_file.c_str());
    close(m_descriptor);
}

bool ProjectLock::IsOf(const fs::path& project) const
{
    return m_file == LockFileOf(project);
}

ProjectLock::Attempt ProjectLock::TryTake(const fs::path& project)
{
    const fs::path file = LockFileOf(project);
    for (int i = 0; i < kTries; ++i) {
        bool isOurs = true;
        const int descriptor = OpenLock(file, isOurs);
        if (descriptor < 0)
            return {};
        const bool locked = flock(descriptor, LOCK_EX | LOCK_NB) == 0;
        const int error = errno;
        const std::string text = ReadLock(descriptor);
        const bool foreign = !text.empty() && !text.starts_with(kMark);
        if (locked && !foreign && IsStill(descriptor, file)) {
            // What a crash of somebody else left cannot carry our name.
            if (!isOurs && unlink(file.c_str()) == 0) {
                close(descriptor);
                continue;
            }
            WriteHolder(descriptor);
            return {.lock = std::unique_ptr<ProjectLock>(new ProjectLock(file, descriptor)), .holder = {}};
        }
        close(descriptor);
        if (foreign || (!locked && error != EWOULDBLOCK))
            return {};
        if (!locked)
            return {.lock = nullptr, .holder = HolderOf(text)};
    }
    return {};
}
