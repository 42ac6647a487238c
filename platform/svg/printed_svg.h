// SPDX-License-Identifier: MIT
#pragma once

/// A graphic as programs other than this one draw it.

#include "svg/svg_export.h"

#include <wx/xml/xml.h>

#include <functional>
#include <string>

struct PrintedGraphic
{
    std::string svg;
    bool isTurned = false;
};

/// The document of a graphic with its values in it, as SVG text. Texts of a graphic have their top at their
/// place, elsewhere their baseline stands there: they come down by `ascent`, in sizes of their font. `textOf`
/// tells what stands for the text of an id (empty for one without) that the document has. A graphic that is
/// much wider than high is turned by a quarter, as on a page of a book.
SVG_EXPORT PrintedGraphic
PrintedSvg(const wxXmlDocument& document,
           const std::function<wxString(const wxString& id, const wxString& text)>& textOf, double ascent);
