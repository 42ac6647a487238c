// SPDX-License-Identifier: MIT
#include "tncommon/zip_container.h"

#include "tests/support/zip_bytes.h"
#include "tncommon/checksum_calculator.h"

#include <gtest/gtest.h>
#include <wx/log.h>

#include <optional>

namespace {

using tncommon::ZipError;
using tncommon::ZipPart;
using Entry = support::ZipEntryText;
using support::ZipBytes;
using Problem = ZipError::Problem;

std::optional<Problem> ProblemOf(const std::string& bytes, const tncommon::ZipLimits& limits = {})
{
    try {
        tncommon::LoadFromZip(bytes, limits);
        return std::nullopt;
    } catch (const ZipError& error) {
        return error.GetProblem();
    }
}

TEST(ChecksumCalculator, IsCrc64OfXz)
{
    tncommon::ChecksumCalculator checksum;
    EXPECT_EQ(checksum.GetText(), "0000000000000000");
    checksum.Add("1234");
    checksum.Add("56789");
    EXPECT_EQ(checksum.GetText(), "995dc9bbdf1939fa");  // the check value of the catalogue of CRCs

    // Whatever the bytes come in: whole blocks are worked off another way than single bytes.
    std::string bytes;
    tncommon::ChecksumCalculator single;
    for (int i = 0; i < 1000; ++i) {
        bytes += static_cast<char>(i * 37);
        single.Add(std::string_view(bytes).substr(bytes.size() - 1));
        tncommon::ChecksumCalculator whole;
        whole.Add(bytes);
        ASSERT_EQ(whole.GetText(), single.GetText()) << i;
    }
}

TEST(ZipContainer, BringsPartsBack)
{
    const std::vector<ZipPart> parts{{"compounds", std::string("a\0b\xff", 4)},
                                     {"Gr\u00f6\u00dfe \u6c34", ""},
                                     {"", std::string(3'000'000, 'x')}};
    const std::string bytes = tncommon::SaveToZip(parts);
    EXPECT_LT(bytes.size(), 10'000U) << "compressed";
    EXPECT_EQ(bytes, tncommon::SaveToZip(parts));
    const auto back = tncommon::LoadFromZip(bytes);
    ASSERT_EQ(back.size(), parts.size());
    for (std::size_t i = 0; i < parts.size(); ++i) {
        EXPECT_EQ(back[i].name, parts[i].name);
        EXPECT_EQ(back[i].bytes, parts[i].bytes);
    }
}

TEST(ZipContainer, RefusesEveryOtherArchive)
{
    const std::string sum = "0123456789abcdef";
    const std::tuple<const char*, std::string, Problem> cases[] = {
        {"nothing", "", Problem::StructureWrong},
        {"text", "compounds", Problem::StructureWrong},
        {"no entries", tncommon::SaveToZip({}), Problem::NoEntries},
        {"no checksum", ZipBytes({{"0.dat", "a", "b"}}), Problem::StructureWrong},
        {"other checksum", ZipBytes({{"0.dat", "a", "b"}, {"checksum", "", sum}}), Problem::ChecksumWrong},
        {"long checksum", ZipBytes({{"0.dat", "a", "b"}, {"checksum", "", std::string(1000, '0')}}),
         Problem::TooLarge},
        {"outside the folder", ZipBytes({{"../0.dat", "a", "b"}, {"checksum", "", sum}}),
         Problem::StructureWrong},
        {"an absolute name", ZipBytes({{"/etc/0.dat", "a", "b"}, {"checksum", "", sum}}),
         Problem::StructureWrong},
        {"a gap", ZipBytes({{"1.dat", "a", "b"}, {"checksum", "", sum}}), Problem::StructureWrong},
        {"twice", ZipBytes({{"0.dat", "a", "b"}, {"0.dat", "a", "b"}, {"checksum", "", sum}}),
         Problem::StructureWrong},
        {"foreign entry", ZipBytes({{"0.dat", "a", "b"}, {"x", "", ""}, {"checksum", "", sum}}),
         Problem::StructureWrong},
        {"after the end", ZipBytes({{"0.dat", "a", "b"}, {"checksum", "", sum}, {"1.dat", "a", ""}}),
         Problem::StructureWrong},
    };
    for (const auto& [what, bytes, problem] : cases)
        EXPECT_EQ(ProblemOf(bytes), problem) << what;
}

TEST(ZipContainer, ReadsNoMoreThanItsLimits)
{
    const std::string bomb =
        tncommon::SaveToZip({{"a", std::string(1 << 20, '0')}, {"b", std::string(1 << 20, '0')}});
    EXPECT_FALSE(ProblemOf(bomb, {.parts = 2, .bytes = 2U << 20}).has_value());
    EXPECT_EQ(ProblemOf(bomb, {.parts = 2, .bytes = (2U << 20) - 1}), Problem::TooLarge);
    EXPECT_EQ(ProblemOf(bomb, {.parts = 1, .bytes = 2U << 20}), Problem::TooLarge);
}

TEST(ZipContainer, NoticesEveryCutAndEverySpoiledByteThatMatters)
{
    const std::vector<ZipPart> parts{{"compounds", "<compounds>some text</compounds>"},
                                     {"more", "1234567890"}};
    const std::string whole = tncommon::SaveToZip(parts);
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_TRUE(ProblemOf(whole.substr(0, length)).has_value()) << length;
    for (std::size_t i = 0; i < whole.size(); ++i) {
        for (const char flip : {'\x01', '\x80', '\xff'}) {
            std::string spoiled = whole;
            spoiled[i] = static_cast<char>(spoiled[i] ^ flip);
            try {
                // Some bytes (dates, versions) mean nothing to the contents; then they must be the same.
                const auto back = tncommon::LoadFromZip(spoiled);
                ASSERT_EQ(back.size(), parts.size()) << i;
                EXPECT_EQ(back[0].name + back[0].bytes + back[1].name + back[1].bytes,
                          parts[0].name + parts[0].bytes + parts[1].name + parts[1].bytes)
                    << i;
            } catch (const ZipError&) {
            }
        }
    }
}

}  // namespace
