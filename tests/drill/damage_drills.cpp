// SPDX-License-Identifier: MIT
// Every kind of file that is read, cut short and with single bits turned: refused, or the same as before;
// never a crash, never without an end.
#include "core/laboratory_file.h"
#include "dbinterfaces/master_database.h"
#include "dbinterfaces/project_database.h"
#include "projectbase/feed/compounds_importer.h"
#include "projectbase/project/project_file.h"
#include "projectbase/project/project_json.h"
#include "projectbase/project/recovery_file.h"
#include "svg/svg_document.h"
#include "tests/drill/drill.h"
#include "tests/support/project_fixture.h"
#include "tests/support/temp_folder.h"
#include "tncommon/data_dir.h"
#include "tncommon/zip_archive.h"

#include <fmt/format.h>
#include <wx/log.h>
#include <wx/xml/xml.h>

#include <unistd.h>

namespace drill {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kVariants = 300;
constexpr std::size_t kOfOneProcess = 25;
constexpr unsigned kSeconds = 60;
constexpr const char* kImage = "icons/save.png";
constexpr std::size_t kLargestImage = 1'000'000;

/// What a reader makes of bytes; throws what refuses them.
using Read = std::function<std::string(const std::string& bytes)>;

/// Cut at many lengths, and with one bit turned at many places.
std::string Variant(const std::string& bytes, std::size_t number)
{
    const std::size_t at = (number / 2) * bytes.size() / (kVariants / 2);
    if (number % 2 == 0)
        return bytes.substr(0, at);
    std::string turned = bytes;
    turned[at] = static_cast<char>(turned[at] ^ (1 << (number / 2 % 8)));
    return turned;
}

/// Whether the reader refuses the bytes or, where it must, finds the same in them.
bool Holds(const Read& read, const std::string& bytes, const std::string& same)
{
    try {
        const std::string found = read(bytes);
        return same.empty() || found == same;
    } catch (const std::exception&) {
        return true;
    }
}

/// `isChecked`: what is damaged must be noticed, unless it does not matter.
Result Damage(const std::string& bytes, const Read& read, bool isChecked)
{
    const wxLogNull noLog;
    const std::string whole = read(bytes);
    Result result;
    for (std::size_t first = 0; first < kVariants; first += kOfOneProcess) {
        const bool batch = EndsWell(
            [&] {
                for (std::size_t i = first; i < first + kOfOneProcess; ++i) {
                    if (!Holds(read, Variant(bytes, i), isChecked ? whole : std::string()))
                        _exit(1);
                }
            },
            kSeconds);
        // Only a batch that fails is looked at one by one.
        for (std::size_t i = first; i < first + kOfOneProcess; ++i) {
            const bool survives =
                batch || EndsWell(
                             [&] {
                                 if (!Holds(read, Variant(bytes, i), isChecked ? whole : ""))
                                     _exit(1);
                             },
                             kSeconds);
            result.Count(survives, fmt::format("variant {}", i));
        }
    }
    return result;
}

DBObjects::Compound CompoundOf(const char* name, const char* formula)
{
    DBObjects::Compound compound;
    compound.name = name;
    compound.formula = formula;
    return compound;
}

/// For readers of files.
Read FromFile(const fs::path& path, const std::function<std::string()>& read)
{
    return [path, read](const std::string& bytes) {
        support::WriteBytes(path, bytes);
        return read();
    };
}

Result DamagedProjects()
{
    const support::TempFolder folder;
    const fs::path path = folder / "plant.tarnvik";
    ProjectFile::Save(*support::MakeSampleProject(), path);
    return Damage(support::ReadBytes(path),
                  FromFile(path, [&] { return ProjectToJson(*ProjectFile::Load(path), {}, {}); }), true);
}

Result DamagedRecoveryCopies()
{
    const support::TempFolder folder;
    RecoveryFile(fs::path(), folder.Path()).Save(*support::MakeSampleProject());
    const fs::path path = RecoveryFile::List(folder.Path()).at(0).recovery;
    return Damage(support::ReadBytes(path),
                  FromFile(path,
                           [&] {
                               const auto files = RecoveryFile::List(folder.Path());
                               return files.empty() ? throw std::runtime_error("none")
                                                    : ProjectToJson(*RecoveryFile::Load(files[0]), {}, {});
                           }),
                  true);
}

Result DamagedCompoundFiles()
{
    const std::string bytes = ToCompoundFile({CompoundOf("table salt", "NaCl"), CompoundOf("lime", "CaO")});
    return Damage(
        bytes,
        [](const std::string& damaged) {
            return ToCompoundFile(CompoundsImporter::Import(FromCompoundFile(damaged)->GetRoot()));
        },
        true);
}

Result DamagedAnalyses()
{
    return Damage(
        support::ReadBytes(fs::path(TARNVIK_SOURCE_DIR) / "fuzz/corpus/laboratory_file/across.csv"),
        [](const std::string& bytes) { return std::to_string(laboratory::Read(bytes).samples.size()); },
        false);
}

Result DamagedJson()
{
    return Damage(
        ProjectToJson(*support::MakeSampleProject(), {}, {}),
        [](const std::string& bytes) { return ProjectToJson(*ProjectFromJson(bytes), {}, {}); }, false);
}

Result DamagedGraphics()
{
    return Damage(
        support::ReadBytes(fs::path(TARNVIK_SOURCE_DIR) / "fuzz/corpus/svg_document/plant.svg"),
        [](const std::string& bytes) {
            return ParseSvgDocument(bytes, "plant").GetRoot()->GetName().utf8_string();
        },
        false);
}

Result DamagedArchives()
{
    const support::TempFolder folder;
    const fs::path path = folder / "images.zrc";
    return Damage(
        support::ReadBytes(tncommon::DataDir() / "tnbase.zrc"),
        FromFile(path,
                 [&] { return tncommon::ZipArchive(path).Read(kImage, kLargestImage).value_or("none"); }),
        false);
}

Result DamagedUserDatabases()
{
    const support::TempFolder folder;
    const fs::path path = folder / "user.db";
    ProjectDatabase::Open(path.string());
    ProjectDatabase::InsertOrReplaceCompound(CompoundOf("table salt", "NaCl"));
    ProjectDatabase::Close();
    const Result result = Damage(support::ReadBytes(path),
                                 FromFile(path,
                                          [&] {
                                              ProjectDatabase::Open(path.string());
                                              const auto count = ProjectDatabase::GetCompounds().size();
                                              ProjectDatabase::Close();
                                              return std::to_string(count);
                                          }),
                                 false);
    ProjectDatabase::Close();
    return result;
}

Result DamagedProgramData()
{
    const support::TempFolder folder;
    const fs::path path = folder / "master.db";
    const Result result =
        Damage(support::ReadBytes(tncommon::DataDir() / "master.db"),
               FromFile(path,
                        [&] {
                            MasterDatabase::SetPath(path);
                            return std::to_string(MasterDatabase::GetIons("%", "%", "%").size() +
                                                  MasterDatabase::GetElementsFromPeriodicSystem().size());
                        }),
               false);
    MasterDatabase::SetPath({});
    return result;
}

}  // namespace

std::vector<Drill> DamageDrills()
{
    return {{"damaged projects", DamagedProjects},
            {"damaged recovery copies", DamagedRecoveryCopies},
            {"damaged exchange files of compounds", DamagedCompoundFiles},
            {"damaged analyses of laboratories", DamagedAnalyses},
            {"damaged projects as JSON", DamagedJson},
            {"damaged graphics", DamagedGraphics},
            {"damaged archives of images", DamagedArchives},
            {"damaged user databases", DamagedUserDatabases},
            {"damaged data of the program", DamagedProgramData}};
}

}  // namespace drill
