// SPDX-License-Identifier: MIT
#include "gui_base/support/accessibility.h"
#include "gui_base/support/events.h"
#include "gui_base/support/help_file_provider.h"
#include "gui_base/support/image_loader.h"
#include "gui_base/support/translation.h"
#include "tests/support/gui_test.h"
#include "tests/support/temp_folder.h"
#include "tests/support/zip_bytes.h"
#include "tncommon/data_dir.h"

#include <wx/base64.h>
#include <wx/mstream.h>
#include <wx/textctrl.h>

#include <fstream>

namespace {

using namespace gui_test;

class SupportTest : public GuiTest
{};

TEST_F(SupportTest, EventsAreQueued)
{
    wxDEFINE_EVENT(kEvent, wxCommandEvent);
    std::vector<std::string> heard;
    m_frame->Bind(kEvent, [&heard](wxCommandEvent& event) {
        heard.push_back(wxString::Format("%d %d %ld %s", event.GetId(), event.GetInt(), event.GetExtraLong(),
                                         event.GetString())
                            .utf8_string());
    });
    events::SendEvent(m_frame, kEvent, 7, 8, "text");
    events::SendEvent(nullptr, kEvent, 7, 8, "nobody");
    const events::WindowNotification notification(m_frame, kEvent);
    const events::WindowNotification copy = notification;
    copy.Send(1, 2, 3, "again");
    EXPECT_TRUE(heard.empty()) << "a handler that runs is not interrupted";
    Pump();
    EXPECT_EQ(heard, (std::vector<std::string>{"7 8 0 text", "1 2 3 again"}));

    auto* child = new wxTextCtrl(m_frame, wxID_ANY);
    const events::WindowNotification late(child, kEvent);
    child->Destroy();
    late.Send(1, 2, 3, "to a window that is gone");
    Pump();
    EXPECT_EQ(heard.size(), 2u);
}

TEST_F(SupportTest, MessageEventsKeepTheirContentWhenCloned)
{
    MessageEvent message(tv_MESSAGE, 5, "iex", "us", {"one", "two"});
    const std::unique_ptr<wxEvent> clone(message.Clone());
    const auto& copy = dynamic_cast<const MessageEvent&>(*clone);
    EXPECT_EQ(copy.GetEventType(), static_cast<wxEventType>(tv_MESSAGE));
    EXPECT_EQ(copy.GetModuleType(), "iex");
    EXPECT_EQ(copy.GetUnitSystem(), "us");
    EXPECT_EQ(copy.GetMessages(), (std::vector<std::string>{"one", "two"}));

    std::vector<std::string> heard;
    m_frame->Bind(tvVISUALIZE_MESSAGE,
                  [&heard](VisualizeMessageEvent& event) { heard = event.GetMessages(); });
    wxQueueEvent(m_frame, new VisualizeMessageEvent(tvVISUALIZE_MESSAGE, 5, "iex", "iso", {"liquid/ph"}));
    Pump();
    EXPECT_EQ(heard, std::vector<std::string>{"liquid/ph"});
}

TEST_F(SupportTest, ImagesComeFromTheArchive)
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

TEST_F(SupportTest, ADamagedArchiveGivesNoImage)
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

TEST_F(SupportTest, AnEntryOfJustThatNameComesFirst)
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

TEST_F(SupportTest, Base64Images)
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

TEST_F(SupportTest, TheHelpBookIsFound)
{
    const std::string folder = (tncommon::DataDir() / "help").string();
    EXPECT_NO_THROW(TVHelpFileProvider{folder});
    const auto failure = [](const std::string& path, const std::string& file) -> std::string {
        try {
            const TVHelpFileProvider provider(path, file);
        } catch (const std::exception& error) {
            return error.what();
        }
        return {};
    };
    EXPECT_EQ(failure("", "tarnvik6.htb"), "TVHelpFileProvider: localePath must not be empty");
    EXPECT_EQ(failure(folder, "nosuch.htb"), "TVHelpFileProvider: Failed to load default help file");
    const support::TempFolder empty;
    std::ofstream(empty / "tarnvik6.htb", std::ios::binary) << "no book";
    EXPECT_EQ(failure((empty / "").string(), "tarnvik6.htb"),
              "TVHelpFileProvider: Failed to load default help file");
    const TVHelpFileProvider provider(folder);
    EXPECT_FALSE(provider.ChangeHelpFile("nosuch.htb"));
}

TEST_F(SupportTest, TranslationFallsBackToTheSource)
{
    EXPECT_EQ(i18n::Translated(wxString()), "");
    EXPECT_EQ(i18n::Translated("No entry"), "No entry");
    const TestCatalogue catalogue(
        std::vector<std::pair<std::string, std::string>>{{"\u00b0d", "\u00b0dH"}, {"Empty", ""}});
    EXPECT_EQ(i18n::Translated("\u00b0d").utf8_string(), "\u00b0dH");
    EXPECT_EQ(i18n::Translated(""), "") << "the header of the catalogue is no translation";
    EXPECT_EQ(i18n::Translated("Empty"), "Empty");
}

}  // namespace
