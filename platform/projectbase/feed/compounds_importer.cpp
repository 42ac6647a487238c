// SPDX-License-Identifier: MIT
#include "projectbase/feed/compounds_importer.h"

#include "projectbase/feed/compound_attributes.h"
#include "projectbase/feed/compounds_xml.h"
#include "tncommon/atomic_file.h"
#include "tncommon/zip_container.h"

#include <fmt/format.h>
#include <wx/mstream.h>
#include <wx/xml/xml.h>

namespace {

using DBObjects::Compound;

constexpr const char* kRoot = "compounds";

}  // namespace

CompoundFileError::~CompoundFileError() = default;

std::vector<Compound> CompoundsImporter::Import(const wxXmlNode* root)
{
    if (root == nullptr || root->GetName() != kRoot || root->GetAttributes() != nullptr)
        throw CompoundFileError("the document is no list of compounds");
    std::vector<Compound> compounds;
    for (const wxXmlNode* node = root->GetChildren(); node != nullptr; node = node->GetNext()) {
        if (node->GetType() == wxXML_COMMENT_NODE)
            continue;
        if (compounds.size() == kMostCompoundsOfFile)
            throw CompoundFileError(fmt::format("there are more than {} compounds", kMostCompoundsOfFile));
        std::vector<std::pair<std::string, std::string>> texts;
        // One too many is enough to refuse them.
        for (const wxXmlAttribute* attribute = node->GetAttributes();
             attribute != nullptr && texts.size() <= compound_attributes::kCount;
             attribute = attribute->GetNext())
            texts.emplace_back(attribute->GetName().utf8_string(), attribute->GetValue().utf8_string());
        const std::vector<compound_attributes::Attribute> attributes(texts.begin(), texts.end());
        const std::string name = node->GetChildren() == nullptr ? node->GetName().utf8_string() : "a list";
        compounds.push_back(compound_attributes::Read(name, attributes, compounds.size() + 1));
    }
    return compounds;
}

std::unique_ptr<wxXmlDocument> CompoundsImporter::Export(const std::vector<Compound>& compounds)
{
    auto document = std::make_unique<wxXmlDocument>();
    auto* root = new wxXmlNode(wxXML_ELEMENT_NODE, kRoot);
    document->SetRoot(root);
    wxXmlNode* last = nullptr;
    for (const Compound& compound : compounds) {
        auto node = std::make_unique<wxXmlNode>(wxXML_ELEMENT_NODE, compound_attributes::kElement);
        for (const auto& [name, value] : compound_attributes::Write(compound))
            node->AddAttribute(wxString::FromUTF8(name), wxString::FromUTF8(value));
        // Appending by way of the parent would walk over all nodes before.
        root->InsertChildAfter(node.get(), last);
        last = node.release();
    }
    return document;
}

std::string ToCompoundFile(const std::vector<Compound>& compounds)
{
    const std::unique_ptr<wxXmlDocument> document = CompoundsImporter::Export(compounds);
    wxMemoryOutputStream memory;
    if (!document->Save(memory, 2))
        throw std::runtime_error("ToCompoundFile: the document could not be written");
    std::string xml(memory.GetSize(), '\0');
    memory.CopyTo(xml.data(), xml.size());
    return tncommon::SaveToZip({{kRoot, std::move(xml)}});
}

std::unique_ptr<wxXmlDocument> FromCompoundFile(const std::string& bytes)
{
    const std::vector<tncommon::ZipPart> parts = tncommon::LoadFromZip(bytes);
    if (parts.size() != 1 || parts.front().name != kRoot)
        throw tncommon::ZipError(tncommon::ZipError::Problem::StructureWrong);
    return ReadCompoundsXml(parts.front().bytes);
}

void SaveCompoundFile(const std::filesystem::path& path, const std::vector<Compound>& compounds,
                      tncommon::FileSystem& fileSystem)
{
    tncommon::ReplaceFile(path, ToCompoundFile(compounds), fileSystem);
}

std::unique_ptr<wxXmlDocument> LoadCompoundFile(const std::filesystem::path& path,
                                                tncommon::FileSystem& fileSystem)
{
    return FromCompoundFile(tncommon::ReadWholeFile(path, kLargestCompoundFile, fileSystem));
}
