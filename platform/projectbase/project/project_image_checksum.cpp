// SPDX-License-Identifier: MIT
#include "projectbase/project/project_image_checksum.h"

#include "projectbase/project/project_image_values.h"

#include <fmt/format.h>

namespace {

/// FNV-1a over all that a reader looks at. A change of any one byte changes it for certain, any other damage
/// with a probability that leaves nothing to be desired.
class Checksum
{
public:
    void Add(std::string_view bytes)
    {
        for (const char byte : bytes)
            AddByte(static_cast<unsigned char>(byte));
        AddByte(0xff);  // occurs in no UTF-8 text, so it ends one
    }
    std::string Text() const { return fmt::format("{:016x}", m_hash); }

private:
    void AddByte(unsigned char byte) { m_hash = (m_hash ^ byte) * 0x100000001b3ULL; }

    std::uint64_t m_hash = 0xcbf29ce484222325ULL;
};

void AddRows(SqliteImage& image, Checksum& checksum, const std::string& query, int columns)
{
    SqliteStatement rows = image.Prepare(query);
    std::string bytes;
    while (rows.Step()) {
        for (int column = 0; column < columns; ++column) {
            TakeColumnBytes(rows, column, bytes);
            checksum.Add(bytes);
        }
    }
    checksum.Add("end");
}

}  // namespace

std::string ComputeChecksum(SqliteImage& image)
{
    Checksum checksum;
    AddRows(image, checksum,
            fmt::format("SELECT name, text FROM note WHERE name <> '{}' ORDER BY name", kChecksum), 2);
    AddRows(image, checksum, "SELECT id, name FROM liquid ORDER BY id", 2);
    AddRows(image, checksum, "SELECT liquid, name, type, unit, value FROM detail ORDER BY liquid, name", 5);
    return checksum.Text();
}

std::string ComputeGroupChecksum(SqliteImage& image)
{
    Checksum checksum;
    AddRows(image, checksum,
            "SELECT kind, position, name, type, unit, value FROM detail_group ORDER BY kind, position, name",
            6);
    return checksum.Text();
}

std::string ComputeOwnerChecksum(SqliteImage& image)
{
    Checksum checksum;
    AddRows(image, checksum, "SELECT id, parent, kind FROM owner ORDER BY id", 3);
    AddRows(image, checksum, "SELECT owner, name, type, unit, value FROM owner_detail ORDER BY owner, name",
            5);
    return checksum.Text();
}
