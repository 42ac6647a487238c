// SPDX-License-Identifier: MIT
#pragma once

/// A small picture of what a water holds: the bars of its cations above those of its anions.

#include <wx/bitmap.h>

class DetailList;

namespace app {

/// `size` in pixels. The water is calculated; one without ions is an empty picture.
wxBitmap IonStrip(const DetailList& water, const wxSize& size);

}  // namespace app
