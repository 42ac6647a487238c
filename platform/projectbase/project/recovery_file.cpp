// SPDX-License-Identifier: MIT
#include "projectbase/project/recovery_file.h"

#include "projectbase/project/project.h"
#include "projectbase/project/project_file_io.h"
#include "tncommon/user_dirs.h"

#include <fmt/format.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <fcntl.h>
#include <functional>
#include <sstream>
#include <sys/file.h>
#include <system_error>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::system_clock;

constexpr const char* kExtension = ".tarnvik";
constexpr const char* kProjectNote = "recovery.project";
constexpr const char* kTimeNote = "recovery.time";
constexpr const char* kBaseNote = "recovery.base";
constexpr const char* kEditsNote = "recovery.edits";

fs::path FolderOrDefault(fs::path folder)
{
    return folder.empty() ? tncommon::UserStateDir() / "recovery" : folder;
}

fs::path LockOf(fs::path recovery)
{
    return recovery.replace_extension(".lock");
}

/// Tells the project, the process and, should its number come again, the moment.
std::string UniqueName(const fs::path& project)
{
    static std::atomic<unsigned> counter = 0;
    const auto key = project.empty() ? std::string("untitled")
                                     : fmt::format("{:016x}", std::hash<std::string>{}(project.string()));
    return fmt::format("{}-{}-{:x}-{}", key, getpid(), Clock::now().time_since_epoch().count(), ++counter);
}

/// Descriptor of the locked file, or -1 when it cannot be had, at once or at all.
int TryLock(const fs::path& path, int flags)
{
    const int descriptor = open(path.c_str(), flags | O_RDWR | O_CLOEXEC, 0600);
    if (descriptor >= 0 && flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        const int error = errno;
        close(descriptor);
        errno = error;
        return -1;
    }
    return descriptor;
}

std::string TimeToText(Clock::time_point time)
{
    return std::to_string(std::chrono::duration_cast<std::chrono::seconds>(time.time_since_epoch()).count());
}

Clock::time_point TimeFromText(const std::string& text)
{
    long long seconds = 0;
    std::from_chars(text.data(), text.data() + text.size(), seconds);
    return Clock::time_point(std::chrono::seconds(seconds));
}

std::vector<std::string> LinesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

RecoverableFile Describe(const fs::path& recovery, LoadedImage& loaded)
{
    const DetailData* title = loaded.project->GetDetails().GetDetail("project/title");
    // A path that depends on where the program was started could name a stranger's file now.
    const fs::path project = loaded.notes[kProjectNote];
    return {.recovery = recovery,
            .project = project.is_absolute() ? project : fs::path(),
            .savedAt = TimeFromText(loaded.notes[kTimeNote]),
            .title = title == nullptr ? std::string() : title->GetStdStringValue(),
            .work = {.base = FileStamp::FromText(loaded.notes[kBaseNote]),
                     .edits = LinesOf(loaded.notes[kEditsNote])}};
}

void RemoveBoth(const fs::path& recovery)
{
    std::error_code ignored;
    fs::remove(recovery, ignored);
    fs::remove(LockOf(recovery), ignored);
}

}  // namespace

RecoveryFile::RecoveryFile(const fs::path& project, fs::path folder)
    : m_project(project.empty() ? project : fs::absolute(project))
{
    folder = FolderOrDefault(std::move(folder));
    try {
        tncommon::CreatePrivateFolder(folder);
        tncommon::MakePrivate(folder);
        m_recovery = folder / (UniqueName(project) + kExtension);
        m_lock = TryLock(LockOf(m_recovery), O_CREAT);
        if (m_lock < 0)
            throw std::system_error(errno, std::generic_category());
    } catch (const std::system_error& error) {
        throw ProjectFileError("RecoveryFile", ProjectFileProblem::NotWritable, folder,
                               error.code().message());
    }
}

RecoveryFile::~RecoveryFile()
{
    std::error_code ignored;
    if (!fs::exists(m_recovery, ignored))
        fs::remove(LockOf(m_recovery), ignored);
    close(m_lock);
}

void RecoveryFile::Save(const Project& project, const UnsavedWork& work, tncommon::FileSystem& fileSystem)
{
    const ImageNotes notes{{kProjectNote, m_project.string()},
                           {kTimeNote, TimeToText(Clock::now())},
                           {kBaseNote, work.base ? work.base->ToText() : std::string()},
                           {kEditsNote, fmt::format("{}", fmt::join(work.edits, "\n"))}};
    WriteProject("SaveRecovery", project, notes, m_recovery, fileSystem, tncommon::Audience::OwnerOnly);
}

void RecoveryFile::Discard()
{
    std::error_code ignored;
    fs::remove(m_recovery, ignored);
}

std::vector<RecoverableFile> RecoveryFile::List(fs::path folder)
{
    std::vector<RecoverableFile> files;
    std::error_code ignored;
    folder = FolderOrDefault(std::move(folder));
    tncommon::MakePrivate(folder);
    for (const auto& entry : fs::directory_iterator(folder, ignored)) {
        if (entry.path().extension() != kExtension)
            continue;
        tncommon::MakePrivate(entry.path());  // an older version let the mask decide
        const int lock = TryLock(LockOf(entry.path()), O_CREAT);
        if (lock < 0)
            continue;  // its program is running
        try {
            LoadedImage loaded =
                ReadProject("ListRecovery", entry.path(), tncommon::FileSystem::Native()).image;
            files.push_back(Describe(entry.path(), loaded));
        } catch (const ProjectFileError&) {
            // Written by a newer version, perhaps; whoever can read it will find it.
        }
        close(lock);
    }
    std::sort(files.begin(), files.end(), [](const auto& a, const auto& b) { return a.savedAt > b.savedAt; });
    return files;
}

std::unique_ptr<Project> RecoveryFile::Load(const RecoverableFile& file)
{
    auto project = ReadProject("LoadRecovery", file.recovery, tncommon::FileSystem::Native()).image.project;
    project->SetChanged(true);
    return project;
}

void RecoveryFile::Discard(const RecoverableFile& file)
{
    RemoveBoth(file.recovery);
}
