// SPDX-License-Identifier: MIT
#pragma once

/// Named parts in one compressed, checksummed file.
///
/// The container is a zip archive: the parts are its entries "0.dat", "1.dat", ... in their order, the name
/// of each is the comment of its entry, and the last entry "checksum" holds the checksum over lengths, names
/// and contents of all parts. Nothing else may be in it. Nothing is ever unpacked into files. Equal parts
/// give equal bytes.

#include "tncommon/tncommon_export.h"

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

namespace tncommon {

struct ZipPart
{
    std::string name;  ///< UTF-8, up to 1000 bytes
    std::string bytes;
};

/// What is read at most, whatever the archive says about itself.
struct ZipLimits
{
    std::size_t parts = 16;
    std::size_t bytes = std::size_t{64} << 20;  ///< of all parts, unpacked
};

/// Its text is one of "Checksum wrong", "File structure wrong", "No entries found" and "File too large".
class TNCOMMON_EXPORT ZipError : public std::runtime_error
{
public:
    enum class Problem
    {
        ChecksumWrong,
        StructureWrong,
        NoEntries,
        TooLarge
    };

    explicit ZipError(Problem problem);
    ~ZipError() override;
    Problem GetProblem() const { return m_problem; }

private:
    Problem m_problem;
};

/// The bytes of a container.
TNCOMMON_EXPORT std::string SaveToZip(const std::vector<ZipPart>& parts);
/// The parts of a container. Throws ZipError for bytes that are none.
TNCOMMON_EXPORT std::vector<ZipPart> LoadFromZip(const std::string& bytes, const ZipLimits& limits = {});

}  // namespace tncommon
