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

wxString EntryName(const wxString& name)
{
    return name.StartsWith("/") ? name.Mid(1) : name;
}

std::unique_ptr<wxFSFile> OpenEntry(const wxString& dataPath, const wxString& name)
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
    return file;
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
    const std::unique_ptr<wxFSFile> file = OpenEntry(m_dataPath, name);
    if (!file || file->GetStream() == nullptr)
        return false;
    const wxLogNull quiet;
    return image.LoadFile(*file->GetStream(), type, -1);
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
    const std::unique_ptr<wxFSFile> file = OpenEntry(m_dataPath, name.BeforeLast('.') + ".svg");
    if (file && file->GetStream() != nullptr) {
        wxMemoryOutputStream memory;
        memory.Write(*file->GetStream());
        std::string text(memory.GetSize(), '\0');
        memory.CopyTo(text.data(), text.size());
        const wxBitmapBundle bundle = wxBitmapBundle::FromSVG(text.data(), size);
        if (bundle.IsOk())
            return bundle;
    }
    const wxBitmap bitmap = LoadBitmapResource(name);
    return bitmap.IsOk() ? wxBitmapBundle(bitmap) : wxBitmapBundle();
}

wxBitmap ImageLoader::FromBase64(const wxString& base64)
{
    const wxMemoryBuffer data = wxBase64Decode(base64, wxBase64DecodeMode_SkipWS);
    if (data.IsEmpty())
        return {};
    wxMemoryInputStream stream(data.GetData(), data.GetDataLen());
    const wxLogNull quiet;
    wxImage image;
    return image.LoadFile(stream, wxBITMAP_TYPE_ANY) ? wxBitmap(image) : wxBitmap();
}
