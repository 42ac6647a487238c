// SPDX-License-Identifier: MIT
#pragma once

/// A plant graphic with what it shows: its document, the values in place of its texts, and the unit system
/// of these values. A value that is copied with its document; copies share source and mappings. No windows.

#include "svg/load_policy.h"
#include "tncommon/text_replace_mapping.h"

#include <memory>
#include <utility>
#include <vector>

template <typename LoadPolicy>
struct SvgGraphicInfo
{
    using Source = typename LoadPolicy::Source;

    /// Loads the document; throws SvgLoadError when it cannot be had.
    static SvgGraphicInfo Load(Source from, const wxString& unitsystem,
                               std::vector<std::shared_ptr<TextReplaceMapping>> mappings)
    {
        const auto source = std::make_shared<const Source>(std::move(from));
        return {source, LoadPolicy::Load(*source), unitsystem, std::move(mappings)};
    }

    std::shared_ptr<const Source> source;
    wxXmlDocument document;
    wxString unitsystem;
    /// May hold null; the first of several with one identifier counts.
    std::vector<std::shared_ptr<TextReplaceMapping>> mappings;
};
