// SPDX-License-Identifier: MIT
#include "svg/svg_document.h"

#include "tncommon/xml_check.h"

#include <wx/log.h>
#include <wx/mstream.h>

SvgLoadError::SvgLoadError(Problem problem, const std::string& graphic, const std::string& reason)
    : std::runtime_error(graphic + ": " + reason), m_problem(problem)
{}

SvgLoadError::~SvgLoadError() = default;

wxXmlDocument ParseSvgDocument(const std::string& bytes, const std::string& graphic)
{
    using Problem = SvgLoadError::Problem;
    if (bytes.size() > kMostSvgBytes)
        throw SvgLoadError(Problem::TooLarge, graphic, "the graphic is too large");
    const std::string problem = tncommon::FindXmlProblem(bytes, {.depth = kMostSvgDepth,
                                                                 .acceptsDoctype = true,
                                                                 .nodes = kMostSvgNodes,
                                                                 .attributes = kMostSvgAttributes,
                                                                 .text = kMostSvgText,
                                                                 .texts = kMostSvgTexts});
    if (!problem.empty())
        throw SvgLoadError(Problem::Damaged, graphic, problem);
    const wxLogNull noLog;
    wxMemoryInputStream memory(bytes.data(), bytes.size());
    wxXmlDocument document;
    if (!document.Load(memory))
        throw SvgLoadError(Problem::Damaged, graphic, "the document is no well-formed XML");
    return document;
}
