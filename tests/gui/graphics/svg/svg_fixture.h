// SPDX-License-Identifier: MIT
#pragma once

/// Graphics for tests, from their text, with values that tests set.

#include "gui_base/graphics/svg/svg_panel.h"
#include "gui_base/graphics/svg/svg_parser.h"
#include "svg/svg_document.h"

#include <gtest/gtest.h>
#include <wx/base64.h>
#include <wx/mstream.h>

#include <string>

namespace svg_test {

/// A value that tells how often it was asked for.
class Value : public TextReplaceMapping
{
public:
    Value(wxString id, wxString iso, wxString us = {})
        : m_id(std::move(id)), m_iso(std::move(iso)), m_us(std::move(us))
    {}
    wxString GetId() const override { return m_id; }
    wxString GetText(const wxString& unitsystem) const override
    {
        ++asked;
        return unitsystem == "us" ? m_us : m_iso;
    }
    void Set(const wxString& iso) { m_iso = iso; }
    mutable int asked = 0;

private:
    wxString m_id;
    wxString m_iso;
    wxString m_us;
};

using Mappings = std::vector<std::shared_ptr<TextReplaceMapping>>;

inline SvgGraphicInfo<ArchiveLoadPolicy> Info(const std::string& svg, Mappings mappings = {})
{
    return {std::make_shared<const ArchiveLoadPolicy::Source>(), ParseSvgDocument(svg, "test"), "iso",
            std::move(mappings)};
}

/// A document with its parser, which the result belongs to.
class Parsed
{
public:
    explicit Parsed(const std::string& svg) : m_document(ParseSvgDocument(svg, "test"))
    {
        testing::internal::CaptureStdout();
        try {
            result = m_parser.ParseXml(&m_document);
        } catch (...) {
            testing::internal::GetCapturedStdout();
            throw;
        }
        trace = testing::internal::GetCapturedStdout();
    }
    const SvgParserBase::TextElement& Text(std::size_t index = 0) const
    {
        return dynamic_cast<const SvgParserBase::TextElement&>(*result->elements.at(index));
    }
    const SvgParserBase::ImageElement& Image(std::size_t index = 0) const
    {
        return dynamic_cast<const SvgParserBase::ImageElement&>(*result->elements.at(index));
    }

    SvgParserBase::ParserResult* result = nullptr;
    std::string trace;

private:
    wxXmlDocument m_document;
    SvgParser m_parser;
};

inline std::string InSvg(const std::string& content)
{
    return "<svg width=\"40\" height=\"20\">" + content + "</svg>";
}

/// A picture of one colour as a reference.
inline std::string PngReference(int width, int height, wxBitmapType type = wxBITMAP_TYPE_PNG)
{
    wxImage image(width, height);
    image.SetRGB(wxRect(0, 0, width, height), 255, 0, 0);
    wxMemoryOutputStream stream;
    image.SaveFile(stream, type);
    std::string bytes(stream.GetSize(), '\0');
    stream.CopyTo(bytes.data(), bytes.size());
    const std::string kind = type == wxBITMAP_TYPE_PNG ? "png" : "jpeg";
    return "data:image/" + kind + ";base64," + wxBase64Encode(bytes.data(), bytes.size()).utf8_string();
}

}  // namespace svg_test
