// SPDX-License-Identifier: MIT
#pragma once

#include <wx/mstream.h>
#include <wx/zipstrm.h>

#include <string>
#include <vector>

namespace support {

struct ZipEntryText
{
    std::string name;
    std::string comment;
    std::string bytes;
};

/// An archive of whatever entries.
inline std::string ZipBytes(const std::vector<ZipEntryText>& entries)
{
    wxMemoryOutputStream memory;
    {
        // Memory grows with each writing.
        wxBufferedOutputStream buffered(memory, std::size_t{1} << 20);
        wxZipOutputStream zip(buffered, -1, wxConvUTF8);
        for (const ZipEntryText& entry : entries) {
            auto* made = new wxZipEntry(wxString::FromUTF8(entry.name));
            made->SetComment(wxString::FromUTF8(entry.comment));
            // To compress nothing takes as large a buffer as to compress much.
            if (entry.bytes.empty())
                made->SetMethod(wxZIP_METHOD_STORE);
            zip.PutNextEntry(made);
            zip.WriteAll(entry.bytes.data(), entry.bytes.size());
        }
    }
    std::string bytes(memory.GetSize(), '\0');
    memory.CopyTo(bytes.data(), bytes.size());
    return bytes;
}

}  // namespace support
