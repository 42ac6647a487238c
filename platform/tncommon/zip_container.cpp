// SPDX-License-Identifier: MIT
#include "tncommon/zip_container.h"

#include "tncommon/checksum_calculator.h"
#include "tncommon/zip_entry.h"

#include <fmt/format.h>
#include <wx/log.h>
#include <wx/mstream.h>
#include <wx/zipstrm.h>

#include <memory>
#include <optional>

namespace tncommon {

namespace {

using Problem = ZipError::Problem;

constexpr const char* kChecksumEntry = "checksum";
constexpr std::size_t kMostOfChecksum = 64;
constexpr std::size_t kMostOfName = 1000;

std::string TextOf(Problem problem)
{
    switch (problem) {
        case Problem::ChecksumWrong:
            return "Checksum wrong";
        case Problem::StructureWrong:
            return "File structure wrong";
        case Problem::NoEntries:
            return "No entries found";
        case Problem::TooLarge:
            break;
    }
    return "File too large";
}

std::string ChecksumOf(const std::vector<ZipPart>& parts)
{
    ChecksumCalculator checksum;
    for (const ZipPart& part : parts) {
        checksum.Add(fmt::format("{} {} ", part.name.size(), part.bytes.size()));
        checksum.Add(part.name);
        checksum.Add(part.bytes);
    }
    return checksum.GetText();
}

wxString PartEntry(std::size_t index)
{
    return wxString::FromUTF8(fmt::format("{}.dat", index));
}

void WriteEntry(wxZipOutputStream& zip, const wxString& name, const std::string& comment,
                const std::string& bytes)
{
    // A fixed date, so that equal contents give equal files.
    auto entry = std::make_unique<wxZipEntry>(name, wxDateTime(1, wxDateTime::Jan, 1980));
    entry->SetComment(wxString::FromUTF8(comment));
    if (!zip.PutNextEntry(entry.release()) || !zip.WriteAll(bytes.data(), bytes.size()) || !zip.CloseEntry())
        throw std::runtime_error("SaveToZip: an entry could not be written");
}

struct Contents
{
    std::vector<ZipPart> parts;
    std::optional<std::string> checksum;
};

Contents ReadEntries(wxZipInputStream& zip, const ZipLimits& limits)
{
    Contents contents;
    std::size_t left = limits.bytes;
    while (const std::unique_ptr<wxZipEntry> entry{zip.GetNextEntry()}) {
        // The checksum ends a container.
        if (contents.checksum)
            throw ZipError(Problem::StructureWrong);
        const wxString name = entry->GetInternalName();
        if (name == kChecksumEntry) {
            contents.checksum = ReadOpenEntry(zip, kMostOfChecksum);
            continue;
        }
        if (contents.parts.size() == limits.parts)
            throw ZipError(Problem::TooLarge);
        const std::string comment = entry->GetComment().utf8_string();
        if (name != PartEntry(contents.parts.size()) || comment.size() > kMostOfName)
            throw ZipError(Problem::StructureWrong);
        contents.parts.push_back({comment, ReadOpenEntry(zip, left)});
        left -= contents.parts.back().bytes.size();
    }
    return contents;
}

}  // namespace

ZipError::ZipError(Problem problem) : std::runtime_error(TextOf(problem)), m_problem(problem) {}

ZipError::~ZipError() = default;

std::string SaveToZip(const std::vector<ZipPart>& parts)
{
    wxMemoryOutputStream memory;
    {
        wxZipOutputStream zip(memory, 9, wxConvUTF8);
        for (std::size_t i = 0; i < parts.size(); ++i) {
            if (parts[i].name.size() > kMostOfName)
                throw std::invalid_argument("SaveToZip: the name of a part is too long");
            WriteEntry(zip, PartEntry(i), parts[i].name, parts[i].bytes);
        }
        WriteEntry(zip, kChecksumEntry, {}, ChecksumOf(parts));
        if (!zip.Close())
            throw std::runtime_error("SaveToZip: the archive could not be finished");
    }
    std::string bytes(memory.GetSize(), '\0');
    memory.CopyTo(bytes.data(), bytes.size());
    return bytes;
}

std::vector<ZipPart> LoadFromZip(const std::string& bytes, const ZipLimits& limits)
{
    if (!bytes.starts_with(kZipSignature))
        throw ZipError(Problem::StructureWrong);
    // Whatever the archive code has to say is said by the exception.
    const wxLogNull noLog;
    wxMemoryInputStream memory(bytes.data(), bytes.size());
    wxZipInputStream zip(memory, wxConvUTF8);
    Contents contents = ReadEntries(zip, limits);
    if (contents.parts.empty() && contents.checksum)
        throw ZipError(Problem::NoEntries);
    if (!contents.checksum)
        throw ZipError(Problem::StructureWrong);
    if (*contents.checksum != ChecksumOf(contents.parts))
        throw ZipError(Problem::ChecksumWrong);
    return std::move(contents.parts);
}

}  // namespace tncommon
