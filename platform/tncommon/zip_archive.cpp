// SPDX-License-Identifier: MIT
#include "tncommon/zip_archive.h"

#include "tncommon/atomic_file.h"
#include "tncommon/zip_entry.h"

#include <wx/log.h>
#include <wx/mstream.h>
#include <wx/zipstrm.h>

#include <utility>

namespace tncommon {
namespace {

constexpr std::size_t kLargestArchive = std::size_t{64} << 20;
constexpr std::size_t kMostEntries = 65535;

}  // namespace

std::string ReadOpenEntry(wxZipInputStream& zip, std::size_t limit)
{
    std::string bytes;
    char buffer[16384];
    while (!zip.Eof()) {
        zip.Read(buffer, sizeof buffer);
        bytes.append(buffer, zip.LastRead());
        if (bytes.size() > limit)
            throw ZipError(ZipError::Problem::TooLarge);
        if (zip.GetLastError() == wxSTREAM_READ_ERROR)
            throw ZipError(ZipError::Problem::ChecksumWrong);
    }
    return bytes;
}

ZipArchive::ZipArchive(const std::filesystem::path& path) : m_bytes(ReadWholeFile(path, kLargestArchive)) {}

ZipArchive::~ZipArchive() = default;

void ZipArchive::ReadDirectory() const
{
    if (!m_bytes.starts_with(kZipSignature))
        throw ZipError(ZipError::Problem::StructureWrong);
    wxMemoryInputStream memory(m_bytes.data(), m_bytes.size());
    wxZipInputStream zip(memory, wxConvUTF8);
    std::map<std::string, std::unique_ptr<wxZipEntry>> entries;
    for (std::size_t count = 1; std::unique_ptr<wxZipEntry> entry{zip.GetNextEntry()}; ++count) {
        if (count > kMostEntries)
            throw ZipError(ZipError::Problem::TooLarge);
        if (!entry->IsDir())
            entries.try_emplace(entry->GetInternalName().utf8_string(), std::move(entry));
    }
    if (zip.GetLastError() == wxSTREAM_READ_ERROR)
        throw ZipError(ZipError::Problem::StructureWrong);
    m_entries = std::move(entries);
}

std::optional<std::string> ZipArchive::Read(const std::string& entry, std::size_t limit) const
{
    // Whatever the archive code has to say is said by the exception.
    const wxLogNull noLog;
    std::call_once(m_isDirectoryRead, [this] { ReadDirectory(); });
    const auto found = m_entries.find(entry);
    if (found == m_entries.end())
        return std::nullopt;
    wxMemoryInputStream memory(m_bytes.data(), m_bytes.size());
    wxZipInputStream zip(memory, wxConvUTF8);
    if (!zip.OpenEntry(*found->second))
        throw ZipError(ZipError::Problem::StructureWrong);
    return ReadOpenEntry(zip, limit);
}

}  // namespace tncommon
