// SPDX-License-Identifier: MIT
#pragma once

#include <wx/mstream.h>

#include <string>

/// Collects what is written. The toolkit's stream in memory grows by a kilobyte at a time, which takes long
/// for documents that are written in many small pieces.
class TextOutputStream : public wxOutputStream
{
public:
    const std::string& GetText() const { return m_text; }

protected:
    std::size_t OnSysWrite(const void* bytes, std::size_t size) override
    {
        m_text.append(static_cast<const char*>(bytes), size);
        return size;
    }

private:
    std::string m_text;
};
