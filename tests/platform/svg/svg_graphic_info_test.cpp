// SPDX-License-Identifier: MIT
// Plant graphics from files and archives: what is read, and what is said about everything else.
#include "svg/svg_graphic_info.h"

#include "tests/support/temp_folder.h"
#include "tests/support/zip_bytes.h"
#include "tncommon/zip_archive.h"

#include <gtest/gtest.h>

#include <optional>

namespace {

using support::ZipBytes;
using Problem = SvgLoadError::Problem;
namespace fs = std::filesystem;

constexpr const char* kGraphic = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE svg PUBLIC "-//W3C//DTD SVG 1.1//EN" "http://www.w3.org/Graphics/SVG/1.1/DTD/svg11.dtd">
<svg viewBox="0 0 10 10"><g><text id="feed.q" x="1" y="2">Fl&#252;sse</text></g></svg>)";

std::string Nested(int depth)
{
    std::string xml;
    for (int i = 0; i < depth; ++i)
        xml += "<g>";
    for (int i = 0; i < depth; ++i)
        xml += "</g>";
    return xml;
}

class Flow : public TextReplaceMapping
{
public:
    wxString GetId() const override { return "feed.q"; }
    wxString GetText(const wxString& unitsystem) const override
    {
        return unitsystem == "us" ? "44 gpm" : wxString::FromUTF8("10 m³/h");
    }
};

class SvgGraphicInfoTest : public testing::Test
{
protected:
    fs::path Write(const std::string& name, const std::string& bytes)
    {
        const fs::path path = m_folder / name;
        support::WriteBytes(path, bytes);
        return path;
    }

    static SvgGraphicInfo<FileLoadPolicy> FromFile(const fs::path& path)
    {
        return SvgGraphicInfo<FileLoadPolicy>::Load({path}, "iso", {});
    }

    static SvgGraphicInfo<ArchiveLoadPolicy> FromArchive(const fs::path& path, const std::string& entry)
    {
        return SvgGraphicInfo<ArchiveLoadPolicy>::Load({ArchiveLoadPolicy::Open(path), entry}, "iso",
                                                       {std::make_shared<Flow>(), nullptr});
    }

    template <typename Load>
    static std::optional<Problem> ProblemOf(const Load& load)
    {
        try {
            load();
            return std::nullopt;
        } catch (const SvgLoadError& error) {
            return error.GetProblem();
        }
    }

    static wxString TextOf(const wxXmlDocument& document)
    {
        return document.GetRoot()->GetChildren()->GetChildren()->GetNodeContent();
    }

    support::TempFolder m_folder;
};

TEST_F(SvgGraphicInfoTest, FilesAndEntriesGiveTheSameDocument)
{
    const wxString text = wxString::FromUTF8("Flüsse");
    const fs::path archive =
        Write("graphics.zrc",
              ZipBytes({{"graphics/other.svg", "", "<svg/>"}, {"graphics/werk-ö.svg", "", kGraphic}}));
    EXPECT_EQ(TextOf(FromFile(Write("plant.svg", kGraphic)).document), text);
    const auto info = FromArchive(archive, "graphics/werk-ö.svg");
    EXPECT_EQ(TextOf(info.document), text);
    EXPECT_EQ(info.unitsystem, "iso");
    EXPECT_EQ(info.mappings.front()->GetText("us"), "44 gpm");
    // The graphic does not need its archive any more.
    fs::remove(archive);
    EXPECT_EQ(ArchiveLoadPolicy::Load(*info.source).GetRoot()->GetName(), "svg");
}

TEST_F(SvgGraphicInfoTest, CopiesHaveTheirOwnDocumentAndShareTheRest)
{
    const auto info = FromArchive(Write("graphics.zrc", ZipBytes({{"a.svg", "", kGraphic}})), "a.svg");
    SvgGraphicInfo<ArchiveLoadPolicy> copy = info;
    copy.unitsystem = "us";
    copy.document.GetRoot()->SetName("changed");
    EXPECT_EQ(info.document.GetRoot()->GetName(), "svg");
    EXPECT_EQ(info.unitsystem, "iso");
    EXPECT_EQ(TextOf(copy.document), TextOf(info.document));
    EXPECT_EQ(copy.source, info.source);
    EXPECT_EQ(copy.mappings, info.mappings);
}

TEST_F(SvgGraphicInfoTest, WhatIsNotThereOrTooLargeIsNamed)
{
    const std::string huge(kMostSvgBytes + 1, ' ');
    const fs::path archive = Write(
        "graphics.zrc", ZipBytes({{"folder/", "", ""}, {"huge.svg", "", huge}, {"a.svg", "", kGraphic}}));
    EXPECT_LT(fs::file_size(archive), 100'000u) << "small in the archive, large behind it";
    EXPECT_EQ(ProblemOf([&] { FromArchive(archive, "huge.svg"); }), Problem::TooLarge);
    EXPECT_EQ(ProblemOf([&] { FromFile(Write("huge.svg", huge)); }), Problem::TooLarge);
    for (const char* entry : {"b.svg", "A.svg", "folder/", "../graphics.zrc", ""})
        EXPECT_EQ(ProblemOf([&] { FromArchive(archive, entry); }), Problem::Missing) << entry;
    std::vector<support::ZipEntryText> many(65'535, {"a.svg", "", ""});
    many.front().bytes = kGraphic;
    EXPECT_EQ(TextOf(FromArchive(Write("many.zrc", ZipBytes(many)), "a.svg").document),
              TextOf(FromArchive(archive, "a.svg").document));
    many.push_back({"a.svg", "", ""});
    EXPECT_EQ(ProblemOf([&] { FromArchive(Write("too_many.zrc", ZipBytes(many)), "a.svg"); }),
              Problem::TooLarge);
    EXPECT_EQ(ProblemOf([&] { FromArchive(m_folder / "none.zrc", "a.svg"); }), Problem::Missing);
    EXPECT_EQ(ProblemOf([&] { FromFile(m_folder.Path()); }), Problem::Missing) << "a folder";
    EXPECT_EQ(ProblemOf([] { ArchiveLoadPolicy::Load({nullptr, "a.svg"}); }), Problem::Missing);
    try {
        FromArchive(archive, "b.svg");
        FAIL();
    } catch (const SvgLoadError& error) {
        EXPECT_STREQ(error.what(), "b.svg: the archive has no such graphic");
    }
}

TEST_F(SvgGraphicInfoTest, SpoiledArchivesAreRefusedWhereverTheyAreSpoiled)
{
    EXPECT_EQ(ProblemOf([&] { FromArchive(Write("text.zrc", kGraphic), "a.svg"); }), Problem::Damaged);
    EXPECT_EQ(ProblemOf([&] { FromArchive(Write("empty.zrc", ""), "a.svg"); }), Problem::Damaged);
    const std::string whole = ZipBytes({{"a.svg", "", kGraphic}});
    const wxString text = TextOf(FromArchive(Write("whole.zrc", whole), "a.svg").document);
    for (std::size_t i = 0; i < whole.size(); ++i) {
        std::string spoiled = whole;
        spoiled[i] = static_cast<char>(~spoiled[i]);
        // What the reader does not need may be spoiled; what it hands on is whole, checked by its checksum.
        for (const std::string& bytes : {spoiled, whole.substr(0, i)}) {
            const fs::path path = Write("spoiled.zrc", bytes);
            try {
                EXPECT_EQ(TextOf(FromArchive(path, "a.svg").document), text) << i;
            } catch (const SvgLoadError& error) {
                EXPECT_NE(error.GetProblem(), Problem::TooLarge) << i;
            }
        }
    }
    std::string content = whole;
    content[whole.find("a.svg") + 60] ^= 1;
    EXPECT_EQ(ProblemOf([&] { FromArchive(Write("content.zrc", content), "a.svg"); }), Problem::Damaged);
}

TEST_F(SvgGraphicInfoTest, OnlyHarmlessDocumentsAreParsed)
{
    const std::vector<std::pair<std::string, bool>> cases{
        {kGraphic, true},
        {Nested(kMostSvgDepth), true},
        {Nested(kMostSvgDepth + 1), false},
        {"", false},
        {"no markup", false},
        {"<svg>", false},
        {"<svg></g>", false},
        {"<svg text='\xfc'/>", false},
        {"<!DOCTYPE svg [<!ENTITY a \"b\">]><svg>&a;</svg>", false},
        {"<!DOCTYPE svg SYSTEM \"file:///etc/hostname\"><svg/>", true},
        {"<!ENTITY a \"b\"><svg/>", false},
    };
    for (const auto& [bytes, isRead] : cases)
        EXPECT_EQ(ProblemOf([&] { ParseSvgDocument(bytes, "g"); }),
                  isRead ? std::nullopt : std::optional(Problem::Damaged))
            << bytes.substr(0, 60);
}

}  // namespace
