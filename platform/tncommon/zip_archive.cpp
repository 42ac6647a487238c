// SPDX-License-Identifier: MIT
#include "tncommon/zip_archive.h"

#include "tncommon/atomic_file.h"
#include "tncommon/zip_entry.h"

#include <wx/log.h>
#include <wx/mstream.h>
#include <wx/zipstrm.h>

#include <memory>

namespace tncommon {
namespace {

constexpr std::size_t kLargestArchive = std::size_t{64} << 20;

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

std::optional<std::string> ZipArchive::Read(const std::string& entry, std::size_t limit) const
{
    if (!m_bytes.starts_with(kZipSignature))
        throw ZipError(ZipError::Problem::StructureWrong);
    // Whatever the archive code has to say is said by the exception.
    const wxLogNull noLog;
    wxMemoryInputStream memory(m_bytes.data(), m_bytes.size());
    wxZipInputStream zip(memory, wxConvUTF8);
    const wxString name = wxString::FromUTF8(entry);
    while (const std::unique_ptr<wxZipEntry> found{zip.GetNextEntry()}) {
        if (found->IsDir() || found->GetInternalName() != name)
            continue;
        return ReadOpenEntry(zip, limit);
    }
    if (zip.GetLastError() == wxSTREAM_READ_ERROR)
        throw ZipError(ZipError::Problem::StructureWrong);
    return std::nullopt;
}

}  // namespace tncommon
