// SPDX-License-Identifier: MIT
#include "gui_base/network/xml_rows.h"

#include "core/number_text.h"

#include <algorithm>
#include <expat.h>
#include <memory>
#include <new>

namespace xml_rows {

namespace {

class Reader
{
public:
    Reader(const Shape& shape, const Limits& limits)
        : m_shape(shape), m_limits(limits), m_parser(XML_ParserCreate(nullptr), &XML_ParserFree)
    {
        if (m_parser == nullptr)
            throw std::bad_alloc();
        XML_SetUserData(m_parser.get(), this);
        XML_SetStartDoctypeDeclHandler(m_parser.get(), [](void* self, const char*, const char*, const char*,
                                                          int) { static_cast<Reader*>(self)->Refuse(); });
        XML_SetElementHandler(
            m_parser.get(),
            [](void* self, const char* name, const char** attributes) {
                Guarded(self, [&](Reader& reader) { reader.Begin(name, attributes); });
            },
            [](void* self, const char*) { Guarded(self, [](Reader& reader) { reader.End(); }); });
        XML_SetCharacterDataHandler(m_parser.get(), [](void* self, const char* text, int size) {
            Guarded(self, [&](Reader& reader) { reader.TakeText({text, static_cast<std::size_t>(size)}); });
        });
    }

    Document Read(std::string_view bytes)
    {
        // All at once: a tag that came in pieces would be looked at anew with each of them.
        const auto status = XML_Parse(m_parser.get(), bytes.data(), static_cast<int>(bytes.size()), 1);
        if (m_document.problem == Problem::None && status != XML_STATUS_OK)
            m_document.problem = Problem::NotWellFormed;
        if (m_document.problem != Problem::None)
            return {.problem = m_document.problem, .attributes = {}, .rows = {}};
        return std::move(m_document);
    }

private:
    static constexpr int kRoot = 1;
    static constexpr int kRow = 2;
    static constexpr int kField = 3;

    /// No exception passes through the parser.
    template <typename Call>
    static void Guarded(void* self, Call call)
    {
        auto& reader = *static_cast<Reader*>(self);
        if (reader.m_document.problem != Problem::None)
            return;
        try {
            call(reader);
        } catch (const std::exception&) {
            reader.Refuse();
        }
    }

    void Refuse()
    {
        m_document.problem = Problem::Unexpected;
        XML_StopParser(m_parser.get(), XML_FALSE);
    }

    void Begin(std::string_view name, const char** attributes)
    {
        if (++m_depth > m_limits.depth) {
            Refuse();
        } else if (m_depth == kRoot) {
            m_fieldCount = 0;
            if (name == m_shape.root)
                TakeAttributes(m_document.attributes, attributes, true);
            else
                Refuse();
        } else if (m_depth == kRow) {
            BeginRow(name, attributes);
        } else if (m_depth == kField && m_isInRow) {
            m_text.clear();
            m_field = name;
            CountField();
        }
    }

    void BeginRow(std::string_view name, const char** attributes)
    {
        m_isInRow = name == m_shape.row;
        m_fieldCount = 0;
        m_rowText.clear();
        if (++m_rowCount > m_limits.rows)
            Refuse();
        else if (m_isInRow)
            TakeAttributes(m_document.rows.emplace_back(), attributes, false);
    }

    void End()
    {
        if (m_depth == kField && m_isInRow)
            Store(m_document.rows.back(), m_field, m_text, false);
        else if (m_depth == kRow && m_isInRow)
            Store(m_document.rows.back(), {}, m_rowText, false);
        m_isInRow = m_isInRow && m_depth > kRow;
        --m_depth;
    }

    void TakeText(std::string_view text)
    {
        if (!m_isInRow || m_depth > kField)
            return;
        std::string& whole = m_depth == kField ? m_text : m_rowText;
        // The blanks between the fields of a row are no text.
        if (m_depth == kRow && whole.empty() && text.find_first_not_of(" \t\r\n") == std::string_view::npos)
            return;
        whole += text;
    }

    void TakeAttributes(Fields& fields, const char** attributes, bool takesAll)
    {
        for (; attributes[0] != nullptr && m_document.problem == Problem::None; attributes += 2) {
            CountField();
            Store(fields, attributes[0], attributes[1], takesAll);
        }
    }

    void CountField()
    {
        if (++m_fieldCount > m_limits.fields)
            Refuse();
    }

    void Store(Fields& fields, std::string_view name, std::string_view text, bool takesAll)
    {
        if (!takesAll && std::ranges::find(m_shape.fields, name) == m_shape.fields.end())
            return;
        if (text.size() > m_limits.text || !fields.emplace(name, text).second)
            Refuse();
    }

    const Shape& m_shape;
    const Limits& m_limits;
    std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> m_parser;
    Document m_document;
    int m_depth = 0;
    bool m_isInRow = false;  ///< one of those that are asked for
    std::size_t m_rowCount = 0;
    std::size_t m_fieldCount = 0;
    std::string m_field;
    std::string m_text;     ///< of the field
    std::string m_rowText;  ///< of the row itself
};

}  // namespace

std::string Field(const Fields& fields, std::string_view name)
{
    const auto found = fields.find(name);
    return found == fields.end() ? std::string() : numbertext::Trim(found->second);
}

Document Read(std::string_view bytes, const Shape& shape, const Limits& limits)
{
    if (bytes.size() > limits.bytes)
        return {.problem = Problem::Unexpected, .attributes = {}, .rows = {}};
    return Reader(shape, limits).Read(bytes);
}

}  // namespace xml_rows
