// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/bitmap.h>
#include <wx/bmpbndl.h>
#include <wx/iconbndl.h>
#include <wx/image.h>

/// Images of the application, read by name from the archive "tnbase.zrc" in the data folder. A leading slash
/// of a name is optional, and so is an archive entry for every format: a name ending in ".xpm" finds the
/// picture drawn for it. GUI thread only.
class GUI_BASE_EXPORT ImageLoader
{
public:
    ImageLoader() = delete;

    /// Reads the archive in that folder and registers what decodes the pictures. Without an archive there are
    /// no pictures.
    static void Init(const wxString& dataPath);
    /// Loads an entry; false, and an empty image, when there is none or it cannot be read.
    static bool LoadImageResource(wxImage& image, const wxString& name, wxBitmapType type);
    static wxImage LoadImageResource(const wxString& name);
    static wxBitmap LoadBitmapResource(const wxString& name);
    /// A bundle that stays sharp at every scale, from the SVG entry of that name if there is one, else from
    /// the bitmap.
    static wxBitmapBundle LoadBundle(const wxString& name, const wxSize& size);
    /// The SVG entry of that name with its lines in a colour, so that it can be seen on whatever it stands.
    static wxBitmapBundle LoadTinted(const wxString& name, const wxSize& size, const wxColour& colour);
    /// The SVG entry of that name in all sizes that windows show icons in.
    static wxIconBundle LoadIcons(const wxString& name);
    /// Bitmap of image data in Base64; invalid for anything else.
    static wxBitmap FromBase64(const wxString& base64);
};
