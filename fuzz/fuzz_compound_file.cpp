// SPDX-License-Identifier: MIT
// An exchange file of compounds: the container, and the document in a whole container.
#include "projectbase/feed/compounds_importer.h"
#include "tncommon/zip_container.h"

#include <wx/xml/xml.h>

#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

void Read(const std::string& bytes)
{
    std::vector<DBObjects::Compound> compounds;
    try {
        compounds = CompoundsImporter::Import(FromCompoundFile(bytes)->GetRoot());
    } catch (const CompoundFileError&) {
        return;
    } catch (const tncommon::ZipError&) {
        return;
    }
    // What can be read can be written, and is then the same. Texts with line ends cannot be written.
    std::string again;
    try {
        again = ToCompoundFile(compounds);
    } catch (const std::invalid_argument&) {
        return;
    }
    if (ToCompoundFile(CompoundsImporter::Import(FromCompoundFile(again)->GetRoot())) != again)
        std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    Read(bytes);
    Read(tncommon::SaveToZip({{"compounds", bytes}}));
    return 0;
}
