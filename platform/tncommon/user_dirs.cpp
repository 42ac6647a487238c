// SPDX-License-Identifier: MIT
#include "tncommon/user_dirs.h"

#include <cstdlib>
#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tncommon {

namespace {

namespace fs = std::filesystem;

fs::path FromEnvironment(const char* name)
{
    const char* value = std::getenv(name);
    return value == nullptr ? fs::path() : fs::path(value);
}

fs::path Home()
{
    if (fs::path home = FromEnvironment("HOME"); !home.empty())
        return home;
    const passwd* entry = getpwuid(getuid());
    return entry != nullptr && entry->pw_dir != nullptr ? fs::path(entry->pw_dir) : fs::path("/");
}

fs::path UserDir(const char* variable, const char* fallback)
{
    fs::path base = FromEnvironment(variable);
    if (!base.is_absolute())  // the rules say to ignore a relative one
        base = Home() / fallback;
    return base / "tarnvik";
}

}  // namespace

fs::path UserDataDir()
{
    const fs::path own = FromEnvironment("TARNVIK_USER_DATA");
    return own.empty() ? UserDir("XDG_DATA_HOME", ".local/share") : own;
}

fs::path UserStateDir()
{
    const fs::path own = FromEnvironment("TARNVIK_USER_DATA");
    return own.empty() ? UserDir("XDG_STATE_HOME", ".local/state") : own / "state";
}

fs::path UserCacheDir()
{
    const fs::path own = FromEnvironment("TARNVIK_USER_DATA");
    return own.empty() ? UserDir("XDG_CACHE_HOME", ".cache") : own / "cache";
}

void CreatePrivateFolder(const fs::path& folder)
{
    if (folder.empty() || fs::is_directory(folder))
        return;
    CreatePrivateFolder(folder.parent_path());
    if (fs::create_directory(folder))
        fs::permissions(folder, fs::perms::owner_all);
}

void MakePrivate(const fs::path& path)
{
    constexpr mode_t kOthers = S_IRWXG | S_IRWXO;
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0 || status.st_uid != geteuid() || (status.st_mode & S_ISVTX) != 0 ||
        !(S_ISREG(status.st_mode) || S_ISDIR(status.st_mode)) || (status.st_mode & kOthers) == 0)
        return;
    [[maybe_unused]] const int ignored = chmod(path.c_str(), status.st_mode & 07777 & ~kOthers);
}

void EnsurePrivateFile(const fs::path& file)
{
    const int descriptor = open(file.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (descriptor >= 0)
        close(descriptor);
    else
        MakePrivate(file);
}

}  // namespace tncommon
