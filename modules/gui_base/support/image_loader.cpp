// SPDX-License-Identifier: MIT
#include "gui_base/support/image_loader.h"

#include "tncommon/zip_archive.h"

#include <wx/base64.h>
#include <wx/log.h>
#include <wx/mstream.h>

#include <optional>
#include <system_error>

namespace {

constexpr const char* kArchiveName = "tnbase.zrc";
constexpr std::size_t kMostPictureBytes = std::size_t{16} << 20;

/// The archive of the pictures; nothing before it was named, or when it cannot be read.
std::optional<tncommon::ZipArchive>& Pictures()
{
    static std::optional<tncommon::ZipArchive> archive;
    return archive;
}

/// Pictures are kept once, whatever size their name asks for: "icons/i16/delete.png" is "icons/delete.png".
wxString EntryName(const wxString& name)
{
    wxString entry = name.StartsWith("/") ? name.Mid(1) : name;
    const wxString folder = entry.BeforeLast('/');
    long size = 0;
    if (folder.StartsWith("icons/i") && folder.Mid(7).ToCLong(&size))
        entry = "icons/" + entry.AfterLast('/');
    return entry;
}

/// The bytes of an archive entry, empty when there is none. Image handlers look at a stream more than once,
/// which a compressed entry does not allow. A missing picture is answered by an empty image; nobody needs a
/// message box about it.
std::string ReadEntry(const wxString& name)
{
    if (!Pictures())
        return {};
    const wxString entry = EntryName(name);
    try {
        auto bytes = Pictures()->Read(entry.utf8_string(), kMostPictureBytes);
        // Pictures are kept as PNG, whatever format the name asks for.
        if (!bytes && !entry.EndsWith(".png") && !entry.EndsWith(".svg"))
            bytes = Pictures()->Read((entry.BeforeLast('.') + ".png").utf8_string(), kMostPictureBytes);
        return bytes.value_or(std::string());
    } catch (const tncommon::ZipError&) {
        return {};
    }
}

bool LoadImage(wxImage& image, const void* data, std::size_t size, wxBitmapType type)
{
    if (size == 0)
        return false;
    wxMemoryInputStream stream(data, size);
    const wxLogNull quiet;
    return image.LoadFile(stream, type, -1);
}

}  // namespace

void ImageLoader::Init(const wxString& dataPath)
{
    try {
        Pictures().emplace(std::filesystem::path(dataPath.utf8_string()) / kArchiveName);
    } catch (const std::system_error&) {
        Pictures().reset();
    }
    static const bool registered = [] {
        wxInitAllImageHandlers();
        return true;
    }();
    wxUnusedVar(registered);
}

bool ImageLoader::LoadImageResource(wxImage& image, const wxString& name, wxBitmapType type)
{
    image = wxImage();
    const std::string bytes = ReadEntry(name);
    return LoadImage(image, bytes.data(), bytes.size(), type);
}

wxImage ImageLoader::LoadImageResource(const wxString& name)
{
    wxImage image;
    LoadImageResource(image, name, wxBITMAP_TYPE_ANY);
    return image;
}

wxBitmap ImageLoader::LoadBitmapResource(const wxString& name)
{
    const wxImage image = LoadImageResource(name);
    return image.IsOk() ? wxBitmap(image) : wxBitmap();
}

wxBitmapBundle ImageLoader::LoadBundle(const wxString& name, const wxSize& size)
{
    std::string svg = ReadEntry(name.BeforeLast('.') + ".svg");
    if (!svg.empty()) {
        const wxBitmapBundle bundle = wxBitmapBundle::FromSVG(svg.data(), size);
        if (bundle.IsOk())
            return bundle;
    }
    const wxBitmap bitmap = LoadBitmapResource(name);
    return bitmap.IsOk() ? wxBitmapBundle(bitmap) : wxBitmapBundle();
}

wxBitmap ImageLoader::FromBase64(const wxString& base64)
{
    const wxMemoryBuffer data = wxBase64Decode(base64, wxBase64DecodeMode_SkipWS);
    wxImage image;
    return LoadImage(image, data.GetData(), data.GetDataLen(), wxBITMAP_TYPE_ANY) ? wxBitmap(image)
                                                                                  : wxBitmap();
}
