// SPDX-License-Identifier: MIT
#pragma once

/// SVG documents of unknown origin: bounded before they are parsed, and parsed without anything that they
/// refer to.

#include "svg/svg_export.h"

#include <wx/xml/xml.h>

#include <cstddef>
#include <stdexcept>
#include <string>

/// A graphic that cannot be loaded; the text says which one and why.
class SVG_EXPORT SvgLoadError : public std::runtime_error
{
public:
    enum class Problem
    {
        Missing,   ///< there is no such file, archive or entry, or it cannot be opened
        TooLarge,  ///< beyond kMostSvgBytes
        Damaged,   ///< the archive is spoiled, or the document is none that is read
    };

    SvgLoadError(Problem problem, const std::string& graphic, const std::string& reason);
    ~SvgLoadError() override;
    Problem GetProblem() const { return m_problem; }

private:
    Problem m_problem;
};

inline constexpr std::size_t kMostSvgBytes = std::size_t{4} << 20;
/// Elements inside of elements, the root counted: the tree is walked recursively.
inline constexpr int kMostSvgDepth = 256;
/// Elements, comments and the like, and attributes of one of them.
inline constexpr std::size_t kMostSvgNodes = 10'000;
inline constexpr std::size_t kMostSvgAttributes = 200;
/// Bytes of a text, a style sheet for example, and of all texts.
inline constexpr std::size_t kMostSvgText = std::size_t{16} << 10;
inline constexpr std::size_t kMostSvgTexts = std::size_t{128} << 10;

/// The document in these bytes. `graphic` names it in the SvgLoadError that bytes meet which are none.
SVG_EXPORT wxXmlDocument ParseSvgDocument(const std::string& bytes, const std::string& graphic);
