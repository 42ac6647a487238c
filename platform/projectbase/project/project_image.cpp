// SPDX-License-Identifier: MIT
#include "projectbase/project/project_image.h"

#include "projectbase/project/iex_project.h"
#include "projectbase/project/project_edit.h"
#include "projectbase/project/project_file.h"
#include "projectbase/project/project_image_checksum.h"
#include "projectbase/project/project_image_values.h"
#include "projectbase/project/sqlite_image.h"

#include <fmt/format.h>

#include <algorithm>

namespace {

constexpr std::int64_t kApplicationId = 0x54565052;  // "TVPR"
constexpr std::int64_t kMajor = 1;
constexpr std::int64_t kFirstVersion = kMajor * 100;
/// The groups of details came with minor version 1.
constexpr std::int64_t kVersionWithGroups = kMajor * 100 + 1;
/// The owners of a plant came with minor version 2.
constexpr std::int64_t kVersionWithOwners = kMajor * 100 + 2;
constexpr std::int64_t kSchemaVersion = kVersionWithOwners;
constexpr std::string_view kHeader{"SQLite format 3\0", 16};

// Bounds of what a file may hold, far above any real project.
constexpr std::int64_t kMaxLiquids = 1'000;
constexpr std::int64_t kMaxDetails = 500'000;
constexpr std::int64_t kMaxOwners = 20'000;

constexpr const char* kSchema =
    "CREATE TABLE note (name TEXT PRIMARY KEY, text TEXT NOT NULL) WITHOUT ROWID;"
    "CREATE TABLE liquid (id INTEGER PRIMARY KEY, name TEXT NOT NULL);"
    // The value has no declared type: what is stored is what is read, to the last bit.
    "CREATE TABLE detail (liquid INTEGER NOT NULL, name TEXT NOT NULL, type TEXT NOT NULL, unit TEXT NOT "
    "NULL, value, "
    "PRIMARY KEY (liquid, name)) WITHOUT ROWID;"
    "CREATE TABLE detail_group (kind TEXT NOT NULL, position INTEGER NOT NULL, name TEXT NOT NULL, "
    "type TEXT NOT NULL, unit TEXT NOT NULL, value, PRIMARY KEY (kind, position, name)) WITHOUT ROWID;"
    // Parents stand before their children; 0 is the project.
    "CREATE TABLE owner (id INTEGER PRIMARY KEY, parent INTEGER NOT NULL, kind TEXT NOT NULL);"
    "CREATE TABLE owner_detail (owner INTEGER NOT NULL, name TEXT NOT NULL, type TEXT NOT NULL, "
    "unit TEXT NOT NULL, value, PRIMARY KEY (owner, name)) WITHOUT ROWID;";

constexpr const char* kModule = "module";
constexpr const char* kUnitSystem = "unit.system";
constexpr const char* kStatus = "status";
constexpr const char* kOwnerChecksum = "checksum.owners";
constexpr const char* kGroupChecksum = "checksum.groups";  // apart, so that version 1.0 reads the rest
constexpr int kProjectDetails = -1;

void WriteNotes(SqliteImage& image, const ImageNotes& notes)
{
    SqliteStatement insert = image.Prepare("INSERT INTO note (name, text) VALUES (?, ?)");
    for (const auto& [name, text] : notes) {
        insert.Bind(1, name);
        insert.Bind(2, text);
        insert.Step();
        insert.Reset();
    }
}

void WriteDetails(SqliteStatement& insert, std::int64_t owner, const DetailList& details)
{
    for (const auto& [name, detail] : details) {
        insert.Bind(1, owner);
        insert.Bind(2, name);
        insert.Bind(3, detail.GetTypeName());
        insert.Bind(4, detail.GetUnit());
        BindValue(insert, 5, detail);
        insert.Step();
        insert.Reset();
    }
}

void WriteLiquids(SqliteImage& image, const Project& project)
{
    SqliteStatement liquid = image.Prepare("INSERT INTO liquid (id, name) VALUES (?, ?)");
    SqliteStatement detail =
        image.Prepare("INSERT INTO detail (liquid, name, type, unit, value) VALUES (?, ?, ?, ?, ?)");
    WriteDetails(detail, kProjectDetails, project.GetDetails());
    for (std::size_t i = 0; i < project.GetLiquidCount(); ++i) {
        const auto id = static_cast<std::int64_t>(i);
        liquid.Bind(1, id);
        liquid.Bind(2, project.GetLiquid(i).GetName());
        liquid.Step();
        liquid.Reset();
        WriteDetails(detail, id, *project.GetLiquid(i).GetDetails());
    }
}

/// Writes the owners below a node; waters have tables of their own. Returns the last identifier.
std::int64_t WriteOwners(SqliteStatement& owner, SqliteStatement& detail, const OwnerNode& parent,
                         std::int64_t parentId, std::int64_t lastId)
{
    for (std::size_t kind = 0; kind < kOwnerKinds; ++kind) {
        if (static_cast<OwnerKind>(kind) == OwnerKind::Water)
            continue;
        for (const auto& node : parent.GetChildren(static_cast<OwnerKind>(kind))) {
            const std::int64_t id = ++lastId;
            owner.Bind(1, id);
            owner.Bind(2, parentId);
            owner.Bind(3, OwnerWord(node->GetKind()));
            owner.Step();
            owner.Reset();
            WriteDetails(detail, id, *node->GetDetails());
            lastId = WriteOwners(owner, detail, *node, id, lastId);
        }
    }
    return lastId;
}

void WriteOwners(SqliteImage& image, const Project& project)
{
    SqliteStatement owner = image.Prepare("INSERT INTO owner (id, parent, kind) VALUES (?, ?, ?)");
    SqliteStatement detail =
        image.Prepare("INSERT INTO owner_detail (owner, name, type, unit, value) VALUES (?, ?, ?, ?, ?)");
    WriteOwners(owner, detail, project.GetRoot(), 0, 0);
}

void WriteGroups(SqliteImage& image, const Project& project)
{
    SqliteStatement insert = image.Prepare(
        "INSERT INTO detail_group (kind, position, name, type, unit, value) "
        "VALUES (?, ?, ?, ?, ?, ?)");
    for (const auto& [kind, groups] : project.GetAllDetailGroups()) {
        for (std::size_t position = 0; position < groups->size(); ++position) {
            for (const DetailData& detail : *(*groups)[position]) {
                insert.Bind(1, kind);
                insert.Bind(2, static_cast<std::int64_t>(position));
                insert.Bind(3, detail.GetName());
                insert.Bind(4, detail.GetTypeName());
                insert.Bind(5, detail.GetUnit());
                BindValue(insert, 6, detail);
                insert.Step();
                insert.Reset();
            }
        }
    }
}

/// As the head of an SQLite file has it: big-endian, at a fixed place.
std::int64_t ApplicationIdOf(std::string_view bytes)
{
    constexpr std::size_t kPlace = 68;
    std::uint32_t id = 0;
    for (const char byte : bytes.substr(std::min(kPlace, bytes.size()), 4))
        id = id << 8 | static_cast<unsigned char>(byte);
    return id;
}

[[noreturn]] void Damaged(const std::string& detail)
{
    throw ImageError(ProjectFileProblem::Damaged, detail);
}

/// Returns the version.
std::int64_t CheckVersion(SqliteImage& image)
{
    const std::int64_t version = image.Pragma("user_version");
    if (version / 100 > kMajor)
        throw ImageError(ProjectFileProblem::NewerVersion,
                         fmt::format("schema {}.{}", version / 100, version % 100));
    if (version < kFirstVersion)
        Damaged(fmt::format("schema version {} does not exist", version));
    return version;
}

void CheckBounds(SqliteImage& image, std::int64_t version)
{
    const auto count = [&image](const char* table) {
        SqliteStatement rows = image.Prepare(fmt::format("SELECT count(*) FROM {}", table));
        return rows.Step() ? rows.Integer(0) : 0;
    };
    const std::int64_t inGroups = version >= kVersionWithGroups ? count("detail_group") : 0;
    const bool hasOwners = version >= kVersionWithOwners;
    const std::int64_t inOwners = hasOwners ? count("owner_detail") : 0;
    if (count("liquid") > kMaxLiquids || count("detail") + inGroups + inOwners > kMaxDetails ||
        count("note") > kMaxDetails || (hasOwners && count("owner") > kMaxOwners))
        throw ImageError(ProjectFileProblem::TooLarge, {});
}

ImageNotes ReadNotes(SqliteImage& image)
{
    ImageNotes notes;
    SqliteStatement rows = image.Prepare("SELECT name, text FROM note");
    while (rows.Step())
        notes.emplace(rows.Text(0), rows.Text(1));
    return notes;
}

[[noreturn]] void Missing(const char* note)
{
    Damaged(fmt::format("the entry '{}' is missing", note));
}

std::string ReadNote(SqliteImage& image, const char* name)
{
    SqliteStatement rows = image.Prepare("SELECT text FROM note WHERE name = ?");
    rows.Bind(1, name);
    if (!rows.Step())
        Missing(name);
    return std::string(rows.Text(0));
}

/// Takes a note that this program writes out of the others.
std::string Extract(ImageNotes& notes, const char* name)
{
    const auto node = notes.extract(name);
    if (node.empty())
        Missing(name);
    return node.mapped();
}

std::unique_ptr<Project> MakeProject(const std::string& type)
{
    if (!iex::IEXProject::FindType(type))
        throw ImageError(ProjectFileProblem::UnknownModule, type);
    auto project = std::make_unique<iex::IEXProject>(type);
    while (project->GetLiquidCount() > 0)
        project->RemoveLiquid(0);
    while (project->NumberSteps() > 0)
        project->RemoveOwner(project->GetStep(0));
    return project;
}

void ReadLiquids(SqliteImage& image, Project& project)
{
    SqliteStatement rows = image.Prepare("SELECT id, name FROM liquid ORDER BY id");
    while (rows.Step()) {
        if (rows.Integer(0) != static_cast<std::int64_t>(project.GetLiquidCount()))
            Damaged("a water is missing");
        project.AddLiquid(std::string(rows.Text(1)));
    }
}

void ReadDetails(SqliteImage& image, Project& project)
{
    SqliteStatement rows = image.Prepare("SELECT liquid, name, type, unit, value FROM detail");
    while (rows.Step()) {
        const std::int64_t liquid = rows.Integer(0);
        if (liquid < kProjectDetails || liquid >= static_cast<std::int64_t>(project.GetLiquidCount()))
            Damaged("a value belongs to no water");
        const auto detail = ReadDetail(rows, 1);
        if (!detail)
            Damaged(fmt::format("the value of '{}' cannot be read", rows.Text(1)));
        DetailList& list = liquid == kProjectDetails
                               ? project.GetDetails()
                               : *project.GetLiquid(static_cast<std::size_t>(liquid)).GetDetails();
        list.Add(DetailData(*detail)).CopyValue(*detail);
    }
}

/// By the identifiers of the file.
using Owners = std::map<std::int64_t, OwnerNode*>;

Owners ReadOwners(SqliteImage& image, Project& project)
{
    Owners owners{{0, &project.GetRoot()}};
    SqliteStatement rows = image.Prepare("SELECT id, parent, kind FROM owner ORDER BY id");
    while (rows.Step()) {
        const auto parent = owners.find(rows.Integer(1));
        const auto kind = OwnerKindFromWord(rows.Text(2));
        if (rows.Integer(0) < 1 || parent == owners.end() || !kind || *kind == OwnerKind::Water ||
            ParentKind(*kind) != parent->second->GetKind())
            Damaged("a part of the plant belongs nowhere");
        owners[rows.Integer(0)] = &project.AddOwner(*parent->second, *kind);
    }
    return owners;
}

void ReadOwnerDetails(SqliteImage& image, const Owners& owners)
{
    SqliteStatement rows = image.Prepare("SELECT owner, name, type, unit, value FROM owner_detail");
    while (rows.Step()) {
        const auto owner = owners.find(rows.Integer(0));
        const auto detail = ReadDetail(rows, 1);
        if (owner == owners.end() || !detail)
            Damaged(fmt::format("the value of '{}' cannot be read", rows.Text(1)));
        owner->second->GetDetails()->Add(DetailData(*detail)).CopyValue(*detail);
    }
}

void ReadGroups(SqliteImage& image, Project& project)
{
    std::map<std::string, std::vector<DetailGroup>> kinds;
    SqliteStatement rows = image.Prepare(
        "SELECT kind, position, name, type, unit, value FROM detail_group "
        "ORDER BY kind, position, name");
    while (rows.Step()) {
        std::vector<DetailGroup>& groups = kinds[std::string(rows.Text(0))];
        const auto position = static_cast<std::size_t>(rows.Integer(1));
        if (position == groups.size())
            groups.emplace_back();
        else if (groups.empty() || position != groups.size() - 1)
            Damaged("a group of values is missing");
        const auto detail = ReadDetail(rows, 2);
        if (!detail)
            Damaged(fmt::format("the value of '{}' cannot be read", rows.Text(2)));
        groups.back().push_back(*detail);
    }
    for (auto& [kind, groups] : kinds)
        project.SetDetailGroups(kind, std::move(groups));
}

void CheckChecksums(SqliteImage& image, bool hasGroups, bool hasOwners)
{
#ifdef FUZZING_BUILD_MODE_UNSAFE_FOR_PRODUCTION
    // Random input would never come past them.
    static_cast<void>(image), static_cast<void>(hasGroups), static_cast<void>(hasOwners);
#else
    if (ReadNote(image, kChecksum) != ComputeChecksum(image))
        Damaged("its checksum does not match its contents");
    if (hasGroups && ReadNote(image, kGroupChecksum) != ComputeGroupChecksum(image))
        Damaged("the checksum of its lists does not match their contents");
    if (hasOwners && ReadNote(image, kOwnerChecksum) != ComputeOwnerChecksum(image))
        Damaged("the checksum of its plant does not match its contents");
#endif
}

LoadedImage Read(SqliteImage& image)
{
    const std::int64_t version = CheckVersion(image);
    const bool hasGroups = version >= kVersionWithGroups;
    const bool hasOwners = version >= kVersionWithOwners;
    CheckBounds(image, version);
    LoadedImage loaded;
    // Before anything of a damaged file is kept.
    CheckChecksums(image, hasGroups, hasOwners);
    loaded.notes = ReadNotes(image);
    for (const char* checksum : {kChecksum, kGroupChecksum, kOwnerChecksum})
        loaded.notes.erase(checksum);
    loaded.project = MakeProject(Extract(loaded.notes, kModule));
    loaded.project->SetUnitSystemDisplay(Extract(loaded.notes, kUnitSystem));
    const long status = std::strtol(Extract(loaded.notes, kStatus).c_str(), nullptr, 10);
    {
        // The values belong together as they are.
        const ProjectEdit edit(*loaded.project, {}, EditKind::Copied);
        ReadLiquids(image, *loaded.project);
        ReadDetails(image, *loaded.project);
        if (hasGroups)
            ReadGroups(image, *loaded.project);
        if (hasOwners)
            ReadOwnerDetails(image, ReadOwners(image, *loaded.project));
    }
    loaded.project->ResetStatus(status);
    loaded.project->SetChanged(false);
    return loaded;
}

}  // namespace

std::string ToImage(const Project& project, const ImageNotes& notes)
{
    SqliteImage image;
    image.Execute(fmt::format("PRAGMA application_id = {}; PRAGMA user_version = {}; BEGIN;", kApplicationId,
                              kSchemaVersion) +
                  kSchema);
    ImageNotes all = notes;
    all[kModule] = project.GetModuleType();
    all[kUnitSystem] = project.GetUnitSystemDisplay();
    all[kStatus] = std::to_string(project.GetStatus());
    WriteGroups(image, project);
    all[kGroupChecksum] = ComputeGroupChecksum(image);
    WriteOwners(image, project);
    all[kOwnerChecksum] = ComputeOwnerChecksum(image);
    WriteNotes(image, all);
    WriteLiquids(image, project);
    WriteNotes(image, {{kChecksum, ComputeChecksum(image)}});
    image.Execute("COMMIT");
    std::string bytes = image.Bytes();
    // What could not be opened again is not saved.
    if (bytes.size() > ProjectFile::kMaxSize)
        throw SqliteFailure("the project is larger than a project file may be");
    return bytes;
}

LoadedImage FromImage(const std::string& bytes)
{
    // Before SQLite sees it: a file of another program need not be one that can be read from memory.
    if (!std::string_view(bytes).starts_with(kHeader) || ApplicationIdOf(bytes) != kApplicationId)
        throw ImageError(ProjectFileProblem::NoProject, {});
    try {
        SqliteImage image(bytes);
        return Read(image);
    } catch (const SqliteFailure& error) {
        throw ImageError(ProjectFileProblem::Damaged, error.what());
    }
}
