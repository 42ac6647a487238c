// SPDX-License-Identifier: MIT
#pragma once

#include "projectbase/project/logger.h"

#include <wx/splitter.h>
#include <wx/toplevel.h>

namespace water_library {

/// How the user arranged the water library: its size and both sashes, kept by this installation. A database
/// that cannot be reached leaves the usual arrangement, with a warning to the logger.
class Arrangement
{
public:
    Arrangement(wxTopLevelWindow& window, wxSplitterWindow& vertical, wxSplitterWindow& horizontal,
                Logger& logger)
        : m_window(window), m_vertical(vertical), m_horizontal(horizontal), m_logger(logger)
    {}

    void Restore();
    void Keep();

private:
    wxTopLevelWindow& m_window;
    wxSplitterWindow& m_vertical;
    wxSplitterWindow& m_horizontal;
    Logger& m_logger;
};

}  // namespace water_library
