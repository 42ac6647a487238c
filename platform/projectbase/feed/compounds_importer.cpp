// SPDX-License-Identifier: MIT
#include "projectbase/feed/compounds_importer.h"

#include "tncommon/atomic_file.h"
#include "tncommon/xml_check.h"
#include "tncommon/zip_container.h"

#include <fmt/format.h>
#include <wx/log.h>
#include <wx/mstream.h>
#include <wx/xml/xml.h>

#include <array>
#include <charconv>
#include <cmath>
#include <variant>

namespace {

using DBObjects::Compound;

constexpr const char* kRoot = "compounds";
constexpr const char* kElement = "compound";
constexpr std::size_t kLargestFile = std::size_t{16} << 20;
constexpr std::size_t kLongestText = 10'000;
/// Elements inside of elements: a list is flat.
constexpr int kMostDepth = 8;

/// One attribute: its name and the field that it holds.
struct Attribute
{
    const char* name;
    std::variant<std::string Compound::*, std::int32_t Compound::*, double Compound::*> field;
};
/// In the order in which they are written.
const std::array<Attribute, 9> kAttributes{{
    {"name", &Compound::name},
    {"formula", &Compound::formula},
    {"baseElement", &Compound::baseElement},
    {"pka", &Compound::pKa},
    {"valency", &Compound::valency},
    {"oxidationNrCommon", &Compound::oxidationNrCommon},
    {"conjugate", &Compound::conjugate},
    {"ionicCharge", &Compound::ionicCharge},
    {"category", &Compound::category},
}};

/// An unknown number has this text, whatever its sign bit.
constexpr const char* kUnknownNumber = "nan";

std::string Write(const std::string& text)
{
    for (const char c : text) {
        if (static_cast<unsigned char>(c) < 0x20)
            throw std::invalid_argument(
                fmt::format("CompoundsImporter::Export: '{}' holds a control character", text));
    }
    return text;
}
std::string Write(std::int32_t number)
{
    return fmt::format("{}", number);
}
std::string Write(double number)
{
    return std::isnan(number) ? kUnknownNumber : fmt::format("{:.16e}", number);
}

template <typename Number>
bool ReadNumber(const std::string& text, Number& number)
{
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

bool Read(const std::string& text, std::string& field)
{
    field = text;
    return text.size() <= kLongestText;
}
bool Read(const std::string& text, std::int32_t& field)
{
    return ReadNumber(text, field);
}
bool Read(const std::string& text, double& field)
{
    if (text == kUnknownNumber) {
        field = std::nan("");
        return true;
    }
    return ReadNumber(text, field) && std::isfinite(field);
}

/// The compound of an element; `number` of it is for messages.
Compound ReadCompound(const wxXmlNode& node, std::size_t number)
{
    const auto fail = [number](const std::string& what) {
        throw CompoundFileError(fmt::format("compound {}: {}", number, what));
    };
    if (node.GetName() != kElement || node.GetChildren() != nullptr)
        fail(fmt::format("'{}' is no compound", node.GetName().utf8_string()));
    Compound compound;
    std::size_t known = 0;
    for (const Attribute& attribute : kAttributes) {
        wxString text;
        if (!node.GetAttribute(attribute.name, &text))
            fail(fmt::format("the attribute '{}' is missing", attribute.name));
        const std::string utf8 = text.utf8_string();
        if (!std::visit([&](auto field) { return Read(utf8, compound.*field); }, attribute.field))
            fail(fmt::format("the attribute '{}' cannot be read: '{}'", attribute.name, utf8.substr(0, 100)));
        ++known;
    }
    for (const wxXmlAttribute* attribute = node.GetAttributes(); attribute != nullptr;
         attribute = attribute->GetNext())
        --known;
    if (known != 0)
        fail("an attribute occurs twice or is not known");
    if (compound.name.empty() || compound.formula.empty())
        fail("name or formula is empty");
    return compound;
}

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
        compounds.push_back(ReadCompound(*node, compounds.size() + 1));
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
        auto node = std::make_unique<wxXmlNode>(wxXML_ELEMENT_NODE, kElement);
        for (const Attribute& attribute : kAttributes)
            node->AddAttribute(
                attribute.name,
                std::visit([&compound](auto field) { return wxString::FromUTF8(Write(compound.*field)); },
                           attribute.field));
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

std::vector<Compound> FromCompoundFile(const std::string& bytes)
{
    const std::vector<tncommon::ZipPart> parts = tncommon::LoadFromZip(bytes);
    if (parts.size() != 1 || parts.front().name != kRoot)
        throw tncommon::ZipError(tncommon::ZipError::Problem::StructureWrong);
    const std::string& xml = parts.front().bytes;
    if (const std::string problem = tncommon::FindXmlProblem(xml, {.depth = kMostDepth}); !problem.empty())
        throw CompoundFileError(problem);
    const wxLogNull noLog;
    wxMemoryInputStream memory(xml.data(), xml.size());
    wxXmlDocument document;
    if (!document.Load(memory))
        throw CompoundFileError("the document is no well-formed XML");
    if (document.GetFileEncoding().Upper() != "UTF-8")
        throw CompoundFileError("the document is not encoded in UTF-8");
    return CompoundsImporter::Import(document.GetRoot());
}

void SaveCompoundFile(const std::filesystem::path& path, const std::vector<Compound>& compounds)
{
    tncommon::ReplaceFile(path, ToCompoundFile(compounds));
}

std::vector<Compound> LoadCompoundFile(const std::filesystem::path& path)
{
    return FromCompoundFile(tncommon::ReadWholeFile(path, kLargestFile));
}
