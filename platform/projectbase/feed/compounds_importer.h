// SPDX-License-Identifier: MIT
#pragma once

/// Exchange of compounds between users: their form as XML, and the exchange file around it.
///
/// An exchange file (*.mvcf) is a checksummed container (tncommon/zip_container.h) with one part "compounds":
/// a UTF-8 document with the root "compounds" and an element "compound" for each, whose data are attributes.
/// Numbers are written in one form, whatever the locale. Reading is strict: a document that deviates is
/// refused as a whole, with a text that says where. There are no DTD, no entities and no other encodings.

#include "dbinterfaces/db_objects.h"
#include "projectbase/projectbase_export.h"
#include "tncommon/file_system.h"

#include <wx/string.h>

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

class wxXmlDocument;
class wxXmlNode;

/// The document or file cannot be read; the text is in English.
class PROJECTBASE_EXPORT CompoundFileError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
    ~CompoundFileError() override;
};

class PROJECTBASE_EXPORT CompoundsImporter
{
public:
    /// The compounds of a document; their identifiers are -1. Throws CompoundFileError.
    static std::vector<DBObjects::Compound> Import(const wxXmlNode* root);
    /// The document of compounds. Throws std::invalid_argument for a text with a control character, which XML
    /// cannot hold.
    static std::unique_ptr<wxXmlDocument> Export(const std::vector<DBObjects::Compound>& compounds);
};

/// The bytes of an exchange file and the document that they hold, for CompoundsImporter::Import. Throw as
/// above; reading also throws tncommon::ZipError.
PROJECTBASE_EXPORT std::string ToCompoundFile(const std::vector<DBObjects::Compound>& compounds);
PROJECTBASE_EXPORT std::unique_ptr<wxXmlDocument> FromCompoundFile(const std::string& bytes);

/// The same with a file, which is replaced as a whole or not at all; also throw std::system_error. At most
/// 16 MiB are read.
PROJECTBASE_EXPORT void SaveCompoundFile(const std::filesystem::path& path,
                                         const std::vector<DBObjects::Compound>& compounds,
                                         tncommon::FileSystem& fileSystem = tncommon::FileSystem::Native());
PROJECTBASE_EXPORT std::unique_ptr<wxXmlDocument> LoadCompoundFile(
    const std::filesystem::path& path, tncommon::FileSystem& fileSystem = tncommon::FileSystem::Native());

/// Most bytes and compounds of one file.
inline constexpr std::size_t kLargestCompoundFile = std::size_t{16} << 20;
inline constexpr std::size_t kMostCompoundsOfFile = 100'000;
