// SPDX-License-Identifier: MIT
#include "gui_base/support/image_loader.h"

#include <wx/base64.h>
#include <wx/filesys.h>
#include <wx/fs_zip.h>
#include <wx/log.h>
#include <wx/mstream.h>

#include <memory>

wxString ImageLoader::m_dataPath;

namespace {

const wxString& ArchiveName()
{
    static const wxString name("tnbase.zrc");
    return name;
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
/// which a compressed entry does not allow.
std::string ReadEntry(const wxString& dataPath, const wxString& name)
{
    // A missing picture is answered by an empty image; nobody needs a message box about it.
    const wxLogNull quiet;
    wxFileSystem fileSystem;
    const wxString location = wxFileSystem::FileNameToURL(wxFileName(dataPath, ArchiveName())) + "#zip:";
    const wxString entry = EntryName(name);
    std::unique_ptr<wxFSFile> file(fileSystem.OpenFile(location + entry));
    // Pictures are kept as PNG, whatever format the name asks for.
    if (!file && !entry.EndsWith(".png") && !entry.EndsWith(".svg"))
        file.reset(fileSystem.OpenFile(location + entry.BeforeLast('.') + ".png"));
    if (!file || file->GetStream() == nullptr)
        return {};
    wxMemoryOutputStream memory;
    memory.Write(*file->GetStream());
    std::string bytes(memory.GetSize(), '\0');
    memory.CopyTo(bytes.data(), bytes.size());
    return bytes;
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
    m_dataPath = dataPath;
    static const bool registered = [] {
        if (!wxFileSystem::HasHandlerForPath("file:/x.zrc#zip:y"))
            wxFileSystem::AddHandler(new wxZipFSHandler);
        wxInitAllImageHandlers();
        return true;
    }();
    wxUnusedVar(registered);
}

bool ImageLoader::LoadImageResource(wxImage& image, const wxString& name, wxBitmapType type)
{
    image = wxImage();
    const std::string bytes = ReadEntry(m_dataPath, name);
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
    std::string svg = ReadEntry(m_dataPath, name.BeforeLast('.') + ".svg");
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
