// SPDX-License-Identifier: MIT
// Files that are written: kills in the middle, and every call to the system that fails.
#include "dbinterfaces/db_objects.h"
#include "projectbase/feed/compounds_importer.h"
#include "projectbase/project/project_file.h"
#include "projectbase/project/recovery_file.h"
#include "projectbase/water/laboratory_import.h"
#include "tests/drill/drill.h"
#include "tests/support/failing_file_system.h"
#include "tests/support/project_fixture.h"
#include "tests/support/temp_folder.h"
#include "tncommon/atomic_file.h"

#include <fmt/format.h>
#include <wx/xml/xml.h>

#include <cerrno>

namespace drill {

namespace {

namespace fs = std::filesystem;

constexpr int kKills = 200;
constexpr int kMostMilliseconds = 30;

void SetTitle(Project& project, int number)
{
    project.GetDetails().At("project/title").SetValue(std::to_string(number));
}

int TitleOf(const Project& project)
{
    return std::stoi(project.GetDetails().GetDetail("project/title")->GetStdStringValue());
}

/// What is stored is the last that was said to be, or the one that was on its way.
bool IsLastOrNext(int found, int last)
{
    return found == last || found == last + 1;
}

Result KillsWhileSaving()
{
    const support::TempFolder folder;
    const fs::path path = folder / "plant.tarnvik";
    const auto project = support::MakeSampleProject();
    Result result;
    int number = 0;
    for (int i = 0; i < kKills; ++i) {
        number = KillAtSomeMoment(
            [&](const auto& stored) {
                for (int n = number;;) {
                    SetTitle(*project, ++n);
                    ProjectFile::Save(*project, path);
                    stored(n);
                }
            },
            kMostMilliseconds);
        const int found = TitleOf(*ProjectFile::Load(path));
        result.Count(IsLastOrNext(found, number), fmt::format("kill {}: {} instead of {}", i, found, number));
        number = found;
    }
    ProjectFile::Save(*project, path);
    const auto files = std::distance(fs::directory_iterator(folder.Path()), {});
    result.Count(files == 1, fmt::format("{} files beside the project", files - 1));
    return result;
}

Result KillsWhileAutosaving()
{
    const support::TempFolder folder;
    const fs::path state = folder / "state";
    const auto project = support::MakeSampleProject();
    Result result;
    for (int i = 0; i < kKills; ++i) {
        const int number = KillAtSomeMoment(
            [&](const auto& stored) {
                RecoveryFile recovery({}, state);
                for (int n = 0;;) {
                    SetTitle(*project, ++n);
                    recovery.Save(*project);
                    stored(n);
                }
            },
            kMostMilliseconds);
        const auto offered = RecoveryFile::List(state);
        const int found = offered.size() == 1 ? TitleOf(*RecoveryFile::Load(offered[0])) : -1;
        result.Count(IsLastOrNext(found, number), fmt::format("kill {}: {} instead of {}", i, found, number));
        for (const RecoverableFile& file : offered)
            RecoveryFile::Discard(file);
    }
    return result;
}

/// `write` writes the new state by way of a file system of which each call fails in turn; `read` says what is
/// there.
Result FailEveryWrite(const std::function<void()>& writeOld,
                      const std::function<void(tncommon::FileSystem&)>& writeNew,
                      const std::function<std::string()>& read)
{
    support::FailingFileSystem counting(0);
    writeOld();
    const std::string old = read();
    writeNew(counting);
    const std::string changed = read();
    Result result;
    for (const int error : {EIO, ENOSPC}) {
        for (const bool onwards : {false, true}) {
            for (int call = 1; call <= counting.Calls(); ++call) {
                writeOld();
                support::FailingFileSystem failing(call, error, onwards);
                bool failed = false;
                try {
                    writeNew(failing);
                } catch (const std::exception&) {
                    failed = true;
                }
                const std::string found = read();
                // A save that failed may have come so far that the new file is in place.
                result.Count(failed ? found == old || found == changed : found == changed,
                             fmt::format("call {}, error {}", call, error));
            }
        }
    }
    return result;
}

Result FailingSaves()
{
    const support::TempFolder folder;
    const fs::path path = folder / "plant.tarnvik";
    const auto project = support::MakeSampleProject();
    return FailEveryWrite(
        [&] {
            SetTitle(*project, 1);
            ProjectFile::Save(*project, path);
        },
        [&](tncommon::FileSystem& fileSystem) {
            SetTitle(*project, 2);
            ProjectFile::Save(*project, path, fileSystem);
        },
        [&] { return std::to_string(TitleOf(*ProjectFile::Load(path))); });
}

Result FailingAutosaves()
{
    const support::TempFolder folder;
    const auto project = support::MakeSampleProject();
    std::unique_ptr<RecoveryFile> recovery;
    return FailEveryWrite(
        [&] {
            recovery = std::make_unique<RecoveryFile>(fs::path(), folder / "state");
            SetTitle(*project, 1);
            recovery->Save(*project);
        },
        [&](tncommon::FileSystem& fileSystem) {
            if (!recovery)
                recovery = std::make_unique<RecoveryFile>(fs::path(), folder / "state");
            SetTitle(*project, 2);
            recovery->Save(*project, {}, fileSystem);
        },
        [&] {
            // Offered as soon as its program is gone.
            recovery.reset();
            const auto offered = RecoveryFile::List(folder / "state");
            std::string titles;
            for (const RecoverableFile& file : offered) {
                titles += file.title + ";";
                RecoveryFile::Discard(file);
            }
            return titles;
        });
}

std::vector<DBObjects::Compound> Compounds(int count)
{
    std::vector<DBObjects::Compound> compounds(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        compounds[static_cast<std::size_t>(i)].name = fmt::format("compound {}", i);
        compounds[static_cast<std::size_t>(i)].formula = "NaCl";
    }
    return compounds;
}

std::vector<DBObjects::Compound> Read(const fs::path& path,
                                      tncommon::FileSystem& fileSystem = tncommon::FileSystem::Native())
{
    return CompoundsImporter::Import(LoadCompoundFile(path, fileSystem)->GetRoot());
}

Result FailingExportsOfCompounds()
{
    const support::TempFolder folder;
    const fs::path path = folder / "compounds.mvcf";
    return FailEveryWrite(
        [&] { SaveCompoundFile(path, Compounds(3)); },
        [&](tncommon::FileSystem& fileSystem) { SaveCompoundFile(path, Compounds(500), fileSystem); },
        [&] { return std::to_string(Read(path).size()); });
}

Result FailingExportsOfAnalyses()
{
    const support::TempFolder folder;
    const fs::path path = folder / "water.csv";
    const auto project = support::MakeSampleProject();
    const std::string analysis = water::WriteLaboratoryFile({{"Well", *project->GetLiquid(0).GetDetails()}});
    return FailEveryWrite(
        [&] { tncommon::ReplaceFile(path, "an older one"); },
        [&](tncommon::FileSystem& fileSystem) { tncommon::ReplaceFile(path, analysis, fileSystem); },
        [&] { return support::ReadBytes(path); });
}

/// Reading through a file system of which each call fails in turn: an error, or all of it.
template <typename Read>
void FailEveryRead(Result& result, const char* name, const Read& read)
{
    support::FailingFileSystem counting(0);
    const std::string whole = read(counting);
    for (int call = 1; call <= counting.Calls(); ++call) {
        support::FailingFileSystem failing(call);
        bool survives = true;
        try {
            survives = read(failing) == whole;
        } catch (const std::exception&) {
            survives = true;
        }
        result.Count(survives, fmt::format("{}: call {}", name, call));
    }
}

Result FailingReads()
{
    const support::TempFolder folder;
    const auto project = support::MakeSampleProject();
    SetTitle(*project, 7);
    ProjectFile::Save(*project, folder / "plant.tarnvik");
    SaveCompoundFile(folder / "compounds.mvcf", Compounds(500));
    Result result;
    FailEveryRead(result, "project", [&](tncommon::FileSystem& fileSystem) {
        return std::to_string(TitleOf(*ProjectFile::Load(folder / "plant.tarnvik", fileSystem)));
    });
    FailEveryRead(result, "compounds", [&](tncommon::FileSystem& fileSystem) {
        return std::to_string(Read(folder / "compounds.mvcf", fileSystem).size());
    });
    return result;
}

}  // namespace

std::vector<Drill> FileDrills()
{
    return {{"kills while saving a project", KillsWhileSaving},
            {"kills while keeping a recovery copy", KillsWhileAutosaving},
            {"every failing call of a save", FailingSaves},
            {"every failing call of a recovery copy", FailingAutosaves},
            {"every failing call of an export of compounds", FailingExportsOfCompounds},
            {"every failing call of an export of an analysis", FailingExportsOfAnalyses},
            {"every failing call of opening and importing", FailingReads}};
}

}  // namespace drill
