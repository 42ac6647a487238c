// SPDX-License-Identifier: MIT
#pragma once

/// Makes a PDF of a document: real text with embedded fonts, an outline, and a list of contents that leads to
/// the sections. Needs no display. Documents may be written by several threads at once.

#include "report/document.h"
#include "report/report_export.h"

#include <functional>
#include <stdexcept>
#include <string>

namespace report {

/// The progress function asked to stop.
class REPORT_EXPORT Cancelled : public std::runtime_error
{
public:
    Cancelled();
    ~Cancelled() override;
};

/// Called now and then with what is done (0 to 1); false stops the writing.
using Progress = std::function<bool(double done)>;

/// The bytes of the PDF, complete or not at all. Throws Cancelled, std::runtime_error for a drawing that is
/// no SVG, and whatever a figure throws.
REPORT_EXPORT std::string WritePdf(const Document& document, const Progress& progress = {});

}  // namespace report
