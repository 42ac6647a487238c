// SPDX-License-Identifier: MIT
#include "projectbase/feed/compounds_xml.h"

#include "projectbase/feed/compound_attributes.h"
#include "projectbase/feed/compounds_importer.h"
#include "tncommon/xml_check.h"

#include <fmt/format.h>

#include <algorithm>
#include <expat.h>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <strings.h>

namespace {

constexpr std::string_view kRoot = "compounds";
/// Longest tag or comment. A tag holds nine texts, each letter of which may be written in a few.
constexpr std::size_t kMostBytesOfMarkup = std::size_t{1} << 20;
/// How much the parser gets at once. It looks again at what was not complete.
constexpr std::size_t kPiece = std::size_t{1} << 18;

class Reader
{
public:
    Reader(const std::string& xml, wxXmlDocument* document)
        : m_xml(xml), m_parser(XML_ParserCreate("UTF-8"), &XML_ParserFree), m_document(document)
    {
        XML_SetUserData(m_parser.get(), this);
        XML_SetXmlDeclHandler(m_parser.get(), [](void* self, const char*, const char* encoding, int) {
            Guarded(self, [encoding](Reader& reader) { reader.TakeEncoding(encoding); });
        });
        XML_SetStartDoctypeDeclHandler(
            m_parser.get(), [](void* self, const char*, const char*, const char*, int) {
                Guarded(self, [](Reader&) { throw CompoundFileError("the document has a DTD"); });
            });
        XML_SetElementHandler(
            m_parser.get(),
            [](void* self, const char* name, const char** attributes) {
                Guarded(self, [&](Reader& reader) { reader.TakeElement(name, attributes); });
            },
            [](void* self, const char*) { --static_cast<Reader*>(self)->m_depth; });
        XML_SetCharacterDataHandler(m_parser.get(), [](void* self, const char* text, int size) {
            Guarded(self, [&](Reader& reader) { reader.TakeText({text, static_cast<std::size_t>(size)}); });
        });
    }

    void Read()
    {
        auto status = XML_STATUS_OK;
        for (std::size_t at = 0; at < m_xml.size() && status == XML_STATUS_OK; at += kPiece) {
            const std::size_t size = std::min(kPiece, m_xml.size() - at);
            const bool isLast = at + size == m_xml.size();
            status = XML_Parse(m_parser.get(), m_xml.data() + at, static_cast<int>(size), isLast ? 1 : 0);
            const auto complete = static_cast<std::size_t>(XML_GetCurrentByteIndex(m_parser.get()));
            if (status == XML_STATUS_OK && !isLast && at + size - complete > kMostBytesOfMarkup)
                throw CompoundFileError(fmt::format("line {}: a tag or comment is longer than {} bytes",
                                                    XML_GetCurrentLineNumber(m_parser.get()),
                                                    kMostBytesOfMarkup));
        }
        if (m_error)
            throw CompoundFileError(*m_error);
        if (status != XML_STATUS_OK)
            throw CompoundFileError(fmt::format("the document is no well-formed XML: line {}, {}",
                                                XML_GetCurrentLineNumber(m_parser.get()),
                                                XML_ErrorString(XML_GetErrorCode(m_parser.get()))));
    }

private:
    /// No exception passes through the parser.
    template <typename Call>
    static void Guarded(void* self, Call call)
    {
        auto& reader = *static_cast<Reader*>(self);
        if (reader.m_error)
            return;
        try {
            call(reader);
        } catch (const std::exception& error) {
            reader.m_error = error.what();
            XML_StopParser(reader.m_parser.get(), XML_FALSE);
        }
    }

    void TakeEncoding(const char* encoding)
    {
        if (encoding != nullptr && strcasecmp(encoding, "UTF-8") != 0)
            throw CompoundFileError("the document is not encoded in UTF-8");
    }

    void TakeElement(const char* name, const char** attributes)
    {
        if (m_depth++ == 0) {
            if (name != kRoot || attributes[0] != nullptr)
                throw CompoundFileError("the document is no list of compounds");
            if (m_document != nullptr)
                m_document->SetRoot(new wxXmlNode(wxXML_ELEMENT_NODE, wxString::FromUTF8(name)));
            return;
        }
        if (m_depth > 2)
            Refuse(fmt::format("'{}' in it is no compound", std::string_view(name).substr(0, 100)));
        if (m_count == kMostCompoundsOfFile)
            throw CompoundFileError(fmt::format("there are more than {} compounds", kMostCompoundsOfFile));
        ++m_count;
        if (m_document != nullptr) {
            Append(name, attributes);
            return;
        }
        std::vector<compound_attributes::Attribute> taken;
        // One too many is enough to refuse them.
        for (; attributes[0] != nullptr && taken.size() <= compound_attributes::kCount; attributes += 2)
            taken.emplace_back(attributes[0], attributes[1]);
        compound_attributes::Read(name, taken, m_count);
    }

    void Append(const char* name, const char** attributes)
    {
        auto* node = new wxXmlNode(wxXML_ELEMENT_NODE, wxString::FromUTF8(name));
        // Appending by way of the root would walk over all nodes before.
        m_document->GetRoot()->InsertChildAfter(node, m_last);
        m_last = node;
        for (; attributes[0] != nullptr; attributes += 2)
            node->AddAttribute(wxString::FromUTF8(attributes[0]), wxString::FromUTF8(attributes[1]));
    }

    void TakeText(std::string_view text)
    {
        if (text.find_first_not_of(" \t\r\n") != std::string_view::npos)
            Refuse("there is a text");
    }

    /// For what stands beside the compounds, or in the one that was read last.
    [[noreturn]] void Refuse(const std::string& reason) const
    {
        const std::size_t number = m_count + (m_depth < 2 ? 1 : 0);
        throw CompoundFileError(fmt::format("compound {}: {}", number, reason));
    }

    const std::string& m_xml;
    std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> m_parser;
    int m_depth = 0;
    wxXmlDocument* m_document;  ///< to be filled; null while the text is only checked
    wxXmlNode* m_last = nullptr;
    std::size_t m_count = 0;
    std::optional<std::string> m_error;
};

}  // namespace

std::unique_ptr<wxXmlDocument> ReadCompoundsXml(const std::string& xml)
{
    if (!tncommon::IsUtf8Text(xml))
        throw CompoundFileError("the document is not encoded in UTF-8");
    if (xml.empty())
        throw CompoundFileError("the document is no well-formed XML: it is empty");
    // A document takes ten times the room of its text: none is made of a text that is refused.
    Reader(xml, nullptr).Read();
    auto document = std::make_unique<wxXmlDocument>();
    Reader(xml, document.get()).Read();
    return document;
}
