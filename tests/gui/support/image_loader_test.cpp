// SPDX-License-Identifier: MIT
#include "gui_base/support/image_loader.h"

#include "tests/support/gui_test.h"
#include "tests/support/temp_folder.h"
#include "tests/support/zip_bytes.h"
#include "tncommon/data_dir.h"

#include <wx/base64.h>
#include <wx/mstream.h>

#include <fstream>

namespace {

using namespace gui_test;

using ImageLoaderTest = GuiTest;

TEST_F(ImageLoaderTest, ImagesComeFromTheArchive)
{
    for (const char* name : {"/icons/arrowdown.xpm", "icons/arrowdown.xpm", "icons/arrowdown.png"}) {
        EXPECT_TRUE(ImageLoader::LoadImageResource(name).IsOk()) << name;
        EXPECT_TRUE(ImageLoader::LoadBitmapResource(name).IsOk()) << name;
        EXPECT_TRUE(ImageLoader::LoadBundle(name, wxSize(16, 16)).IsOk()) << name;
    }
    wxImage image(3, 3);
    EXPECT_TRUE(ImageLoader::LoadImageResource(image, "/icons/arrowdown.xpm", wxBITMAP_TYPE_XPM));
    EXPECT_FALSE(ImageLoader::LoadImageResource(image, "/icons/nosuch.png", wxBITMAP_TYPE_PNG));
    EXPECT_FALSE(image.IsOk());
    EXPECT_FALSE(ImageLoader::LoadImageResource(image, "/icons/arrowdown.svg", wxBITMAP_TYPE_PNG));
    EXPECT_FALSE(ImageLoader::LoadBundle("nosuch.png", wxSize(16, 16)).IsOk());
}

TEST_F(ImageLoaderTest, ADamagedArchiveGivesNoImage)
{
    const support::TempFolder folder;
    std::ifstream good(tncommon::DataDir() / "tnbase.zrc", std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(good), {}};
    const auto loads = [&](const std::string& content) {
        std::ofstream(folder / "tnbase.zrc", std::ios::binary) << content;
        ImageLoader::Init(wxString::FromUTF8((folder / "").string()));
        return ImageLoader::LoadImageResource("/icons/arrowdown.png").IsOk();
    };
    EXPECT_TRUE(loads(bytes));
    EXPECT_FALSE(loads(bytes.substr(0, bytes.size() / 2)));
    EXPECT_FALSE(loads("no archive"));
    EXPECT_FALSE(loads(""));
    ImageLoader::Init(wxString::FromUTF8(tncommon::DataDir().string()));
}

TEST_F(ImageLoaderTest, AnEntryOfJustThatNameComesFirst)
{
    const support::TempFolder folder;
    const auto png = [](int width) {
        wxMemoryOutputStream stream;
        wxImage(width, 1).SaveFile(stream, wxBITMAP_TYPE_PNG);
        std::string bytes(stream.GetSize(), '\0');
        stream.CopyTo(bytes.data(), bytes.size());
        return bytes;
    };
    std::ofstream(folder / "tnbase.zrc", std::ios::binary)
        << support::ZipBytes({{"icons/i16/one.png", "", png(16)}, {"icons/one.png", "", png(1)}});
    ImageLoader::Init(wxString::FromUTF8((folder / "").string()));
    const std::vector<std::pair<const char*, int>> cases{
        {"icons/i16/one.png", 16}, {"icons/i24/one.png", 1}, {"icons/one.png", 1}, {"icons/i24/one.xpm", 1}};
    for (const auto& [name, width] : cases) {
        const wxImage image = ImageLoader::LoadImageResource(name);
        ASSERT_TRUE(image.IsOk()) << name;
        EXPECT_EQ(image.GetWidth(), width) << name;
    }
    ImageLoader::Init(wxString::FromUTF8(tncommon::DataDir().string()));
}

TEST_F(ImageLoaderTest, Base64Images)
{
    wxImage image(2, 3);
    image.SetRGB(wxRect(0, 0, 2, 3), 10, 20, 30);
    wxMemoryOutputStream stream;
    image.SaveFile(stream, wxBITMAP_TYPE_PNG);
    std::string bytes(stream.GetSize(), '\0');
    stream.CopyTo(bytes.data(), bytes.size());
    const wxBitmap bitmap = ImageLoader::FromBase64(wxBase64Encode(bytes.data(), bytes.size()));
    ASSERT_TRUE(bitmap.IsOk());
    EXPECT_EQ(bitmap.GetSize(), wxSize(2, 3));
    for (const char* text : {"", "!!!", "aGVsbG8="})
        EXPECT_FALSE(ImageLoader::FromBase64(text).IsOk()) << text;
}

}  // namespace
