// SPDX-License-Identifier: MIT
#include "gui_base/support/image_loader.h"

#include "gui_base/support/svg_bundle.h"
#include "tncommon/zip_archive.h"

#include <wx/app.h>
#include <wx/base64.h>
#include <wx/log.h>
#include <wx/mstream.h>
#include <wx/settings.h>

#include <array>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

namespace {

constexpr const char* kArchiveName = "tnbase.zrc";
/// Of the lines of all icons; what means more, as the red of an error, has another one.
constexpr const char* kLineColour = "#2b6ca3";

/// A colour of the icons, and what stands out as much on a dark background.
struct Ink
{
    const char* onLight;
    const char* onDark;
};
constexpr std::array kInks{Ink{kLineColour, "#78b6ea"}, Ink{"#5a6b7b", "#c3ccd4"}, Ink{"#2f7fdb", "#78b6ea"},
                           Ink{"#b7791f", "#f0b14a"}, Ink{"#c53030", "#f28b82"}};
constexpr std::size_t kMostPictureBytes = std::size_t{16} << 20;

/// The archive of the pictures; nothing before it was named, or when it cannot be read.
std::optional<tncommon::ZipArchive>& Pictures()
{
    static std::optional<tncommon::ZipArchive> archive;
    return archive;
}

/// Where a picture may be, the best place first. Most are kept once, as PNG, whatever size or format their
/// name asks for: "icons/i16/delete.xpm" is "icons/delete.png", unless the archive has one of just that name.
std::vector<wxString> EntryNames(const wxString& name)
{
    const wxString entry = name.StartsWith("/") ? name.Mid(1) : name;
    std::vector<wxString> names{entry};
    const wxString folder = entry.BeforeLast('/');
    long size = 0;
    if (folder.StartsWith("icons/i") && folder.Mid(7).ToCLong(&size))
        names.push_back("icons/" + entry.AfterLast('/'));
    if (!entry.EndsWith(".png") && !entry.EndsWith(".svg"))
        names.push_back(names.back().BeforeLast('.') + ".png");
    return names;
}

struct Picture
{
    std::string bytes;           ///< empty when there is none
    bool isOtherFormat = false;  ///< than the name says
};

/// Image handlers look at a stream more than once, which a compressed entry does not allow. A missing picture
/// is answered by an empty image; nobody needs a message box about it.
Picture ReadEntry(const wxString& name)
{
    if (!Pictures())
        return {};
    try {
        for (const wxString& entry : EntryNames(name)) {
            if (auto bytes = Pictures()->Read(entry.utf8_string(), kMostPictureBytes))
                return {std::move(*bytes), entry.AfterLast('.') != name.AfterLast('.')};
        }
    } catch (const tncommon::ZipError&) {
    }
    return {};
}

void RegisterFormats()
{
    static const bool registered = [] {
        wxInitAllImageHandlers();
        return true;
    }();
    wxUnusedVar(registered);
}

bool LoadImage(wxImage& image, const void* data, std::size_t size, wxBitmapType type)
{
    if (size == 0)
        return false;
    RegisterFormats();
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
    RegisterFormats();
}

bool ImageLoader::LoadImageResource(wxImage& image, const wxString& name, wxBitmapType type)
{
    image = wxImage();
    const Picture picture = ReadEntry(name);
    return LoadImage(image, picture.bytes.data(), picture.bytes.size(),
                     picture.isOtherFormat ? wxBITMAP_TYPE_ANY : type);
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
    const std::string bytes = ReadEntry(name.BeforeLast('.') + ".svg").bytes;
    if (!bytes.empty()) {
        wxString svg = wxString::FromUTF8(bytes);
        if (wxTheApp != nullptr && wxSystemSettings::GetAppearance().IsUsingDarkBackground())
            for (const Ink& ink : kInks)
                svg.Replace(ink.onLight, ink.onDark);
        const wxBitmapBundle bundle = svg_bundle::Make(svg.utf8_str(), size);
        if (bundle.IsOk())
            return bundle;
    }
    const wxBitmap bitmap = LoadBitmapResource(name);
    return bitmap.IsOk() ? wxBitmapBundle(bitmap) : wxBitmapBundle();
}

wxBitmapBundle ImageLoader::LoadTinted(const wxString& name, const wxSize& size, const wxColour& colour)
{
    wxString svg = wxString::FromUTF8(ReadEntry(name).bytes);
    if (svg.empty())
        return {};
    svg.Replace(kLineColour, colour.GetAsString(wxC2S_HTML_SYNTAX));
    return svg_bundle::Make(svg.utf8_str(), size);
}

wxIconBundle ImageLoader::LoadIcons(const wxString& name)
{
    wxIconBundle icons;
    const wxBitmapBundle bundle = LoadBundle(name, wxSize(16, 16));
    for (const int size : {16, 24, 32, 48, 64, 128}) {
        if (bundle.IsOk())
            icons.AddIcon(bundle.GetIcon(wxSize(size, size)));
    }
    return icons;
}

wxBitmap ImageLoader::FromBase64(const wxString& base64)
{
    const wxMemoryBuffer data = wxBase64Decode(base64, wxBase64DecodeMode_SkipWS);
    wxImage image;
    return LoadImage(image, data.GetData(), data.GetDataLen(), wxBITMAP_TYPE_ANY) ? wxBitmap(image)
                                                                                  : wxBitmap();
}
