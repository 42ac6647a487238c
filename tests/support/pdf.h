// SPDX-License-Identifier: MIT
#pragma once

/// What other programs find in a PDF.

#include "tests/support/temp_folder.h"

#include <array>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>

namespace support {

/// What a shell command prints; throws when it fails.
inline std::string OutputOf(const std::string& command)
{
    FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr)
        throw std::runtime_error("OutputOf: cannot run " + command);
    std::string output;
    std::array<char, 4096> buffer;
    while (const std::size_t size = fread(buffer.data(), 1, buffer.size(), pipe))
        output.append(buffer.data(), size);
    if (pclose(pipe) != 0)
        throw std::runtime_error("OutputOf: failed: " + command + "\n" + output);
    return output;
}

class PdfFile
{
public:
    explicit PdfFile(const std::string& bytes) : m_path((m_folder / "report.pdf").string())
    {
        WriteBytes(m_path, bytes);
    }

    /// The text as it stands on the page; all pages, separated by form feeds, for page 0.
    std::string Text(int page = 0) const
    {
        const std::string only =
            page == 0 ? "" : " -f " + std::to_string(page) + " -l " + std::to_string(page);
        return Run("pdftotext -layout" + only, " -");
    }
    /// Words with their places on the page: <word xMin="..." ...>.
    std::string Places() const { return Run("pdftotext -bbox", " -"); }
    std::string Fonts() const { return Run("pdffonts", ""); }
    std::string Info() const { return Run("pdfinfo -isodates", ""); }
    std::string LinkTargets() const { return Run("pdfinfo -dests", ""); }
    /// The outline as pdftohtml writes it.
    std::string Outline() const
    {
        const std::string out = (m_folder / "outline").string();
        OutputOf("pdftohtml -xml -i -q '" + m_path + "' '" + out + "' >/dev/null");
        const std::string xml = ReadBytes(out + ".xml");
        const auto begin = xml.find("<outline>");
        return begin == std::string::npos ? std::string() : xml.substr(begin);
    }
    int Pages() const
    {
        const std::string info = Info();
        return std::stoi(info.substr(info.find("Pages:") + 6));
    }

private:
    std::string Run(const std::string& program, const std::string& after) const
    {
        return OutputOf(program + " '" + m_path + "'" + after);
    }

    TempFolder m_folder;
    std::string m_path;
};

}  // namespace support
