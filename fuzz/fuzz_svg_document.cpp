// SPDX-License-Identifier: MIT
// A plant graphic: what is parsed can be copied and taken down again.
#include "svg/svg_document.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    try {
        const wxXmlDocument document =
            ParseSvgDocument(std::string(reinterpret_cast<const char*>(data), size), "graphic");
        const wxXmlDocument copy(document);
        if (copy.GetRoot() == nullptr || copy.GetRoot()->GetName() != document.GetRoot()->GetName())
            std::abort();
    } catch (const SvgLoadError&) {
        // Said what is wrong with it.
    }
    return 0;
}
