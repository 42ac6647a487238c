// SPDX-License-Identifier: MIT
#include "projectbase/feed/compounds_importer.h"

#include "dbinterfaces/master_database.h"
#include "tests/support/bounded_work.h"
#include "tests/support/locale_scope.h"
#include "tests/support/temp_folder.h"
#include "tncommon/atomic_file.h"
#include "tncommon/zip_container.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/xml/xml.h>

#include <cmath>

namespace {

using DBObjects::Compound;

const std::string kAttributes =
    R"(name="a" formula="Na" baseElement="Na" pka="1.0000000000000000e+00" valency="1" oxidationNrCommon="1" )"
    R"(conjugate="0" ionicCharge="1" category="c")";

std::string Document(const std::string& body)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + body;
}
std::string Compounds(const std::string& attributes)
{
    return Document("<compounds><compound " + attributes + "/></compounds>");
}
std::string Replaced(const std::string& from, const std::string& to)
{
    std::string text = kAttributes;
    text.replace(text.find(from), from.size(), to);
    return Compounds(text);
}

std::vector<Compound> CompoundsIn(const wxXmlDocument& document)
{
    return CompoundsImporter::Import(document.GetRoot());
}

std::string ErrorOf(const std::string& xml)
{
    try {
        CompoundsIn(*FromCompoundFile(tncommon::SaveToZip({{"compounds", xml}})));
        return "";
    } catch (const CompoundFileError& error) {
        return error.what();
    }
}

TEST(CompoundFile, HasOneFormInEveryLocale)
{
    Compound compound{.id = 7,
                      .baseElement = "Fe",
                      .name = "A <b> & \"c\" 'd' \u00e4\u6c34",
                      .formula = "Fe2(SO4)3·9H2O",
                      .pKa = 1234567.891,
                      .valency = 1234567,
                      .oxidationNrCommon = -3,
                      .conjugate = 4,
                      .ionicCharge = -2147483647,
                      .category = ""};
    std::string expected;
    for (const char* locale : {"C", "de_DE.UTF-8", "fr_FR.UTF-8"}) {
        const support::LocaleScope scope(locale);
        const auto parts = tncommon::LoadFromZip(ToCompoundFile({compound}));
        ASSERT_EQ(parts.size(), 1U);
        EXPECT_EQ(parts[0].name, "compounds");
        EXPECT_EQ(
            parts[0].bytes,
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<compounds>\n"
            "  <compound name=\"A &lt;b&gt; &amp; &quot;c&quot; 'd' \u00e4\u6c34\" "
            "formula=\"Fe2(SO4)3·9H2O\" "
            "baseElement=\"Fe\" pka=\"1.2345678910000001e+06\" valency=\"1234567\" oxidationNrCommon=\"-3\" "
            "conjugate=\"4\" ionicCharge=\"-2147483647\" category=\"\"/>\n</compounds>\n")
            << locale;
        const auto back = CompoundsIn(*FromCompoundFile(ToCompoundFile({compound})));
        ASSERT_EQ(back.size(), 1U);
        EXPECT_EQ(back[0].id, -1);
        EXPECT_EQ(back[0].name, compound.name);
        EXPECT_EQ(back[0].pKa, compound.pKa) << locale;
    }
}

TEST(CompoundFile, BringsEverySuppliedCompoundBack)
{
    const support::TempFolder folder;
    const auto path = folder / "compounds.mvcf";
    const auto supplied = MasterDatabase::GetSuppliedCompounds();
    SaveCompoundFile(path, supplied);
    const auto back = CompoundsIn(*LoadCompoundFile(path));
    ASSERT_EQ(back.size(), supplied.size());
    for (std::size_t i = 0; i < back.size(); ++i) {
        EXPECT_EQ(back[i].formula, supplied[i].formula);
        EXPECT_EQ(back[i].category, supplied[i].category);
        EXPECT_EQ(back[i].ionicCharge, supplied[i].ionicCharge);
        EXPECT_TRUE(back[i].pKa == supplied[i].pKa ||
                    (std::isnan(back[i].pKa) && std::isnan(supplied[i].pKa)));
    }
    EXPECT_TRUE(CompoundsIn(*FromCompoundFile(ToCompoundFile({}))).empty());
    EXPECT_THROW(LoadCompoundFile(folder / "missing"), std::system_error);
    tncommon::ReplaceFile(path, std::string(17 << 20, 'x'));
    EXPECT_THROW(LoadCompoundFile(path), std::system_error);
}

TEST(CompoundFile, ReadsAFileThatAnotherProgramMade)
{
    const auto compounds =
        CompoundsIn(*LoadCompoundFile(TARNVIK_SOURCE_DIR "/fuzz/corpus/compound_file/two.mvcf"));
    ASSERT_EQ(compounds.size(), 2U);
    EXPECT_EQ(compounds[0].name, "soda <a> \u00e4");
    EXPECT_EQ(compounds[0].pKa, 10.329);
    EXPECT_EQ(compounds[1].ionicCharge, -2);
    EXPECT_TRUE(std::isnan(compounds[1].pKa));
}

TEST(CompoundFile, RefusesWhatDeviatesAndSaysWhere)
{
    EXPECT_EQ(ErrorOf(Compounds(kAttributes)), "");
    EXPECT_EQ(ErrorOf(Document("<!-- c --><compounds><!-- < --><compound " + kAttributes +
                               "></compound></compounds>")),
              "");
    const std::pair<std::string, const char*> cases[] = {
        {"", "well-formed"},
        {"no XML", "well-formed"},
        {Document("<compounds>"), "well-formed"},
        {Document("<compounds><compound " + kAttributes), "unclosed token"},
        {Document("<other/>"), "no list"},
        {Document("<compounds version=\"2\"/>"), "no list"},
        {Document("<compounds><other/></compounds>"), "compound 1: 'other'"},
        {Document("<compounds>text</compounds>"), "compound 1"},
        {Document("<compounds><compound " + kAttributes + "><x/></compound></compounds>"), "compound 1"},
        {Document("<!DOCTYPE compounds [<!ENTITY e SYSTEM \"/etc/passwd\">]><compounds/>"), "DTD"},
        {Document("<compounds>&unknown;</compounds>"), "well-formed"},
        {"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><compounds/>", "UTF-8"},
        {std::string("\xff\xfe<\0c\0/\0>\0", 10), "UTF-8"},
        {Document("<compounds>\xe4</compounds>"), "UTF-8"},
        {Replaced("category=\"c\"", ""), "'category' is missing"},
        {Replaced("category", "Category"), "'category' is missing"},
        {Compounds(kAttributes + " extra=\"1\""), "compound 1: an attribute"},
        {Compounds(kAttributes + " name=\"b\""), "well-formed"},
        {Replaced("name=\"a\"", "name=\"\""), "empty"},
        {Replaced("name=\"a\"", "name=\"" + std::string(1'001, 'a') + "\""),
         "'name' has more than 1000 letters"},
        {Replaced("1.0000000000000000e+00", "1,0"), "'pka' cannot be read"},
        {Replaced("1.0000000000000000e+00", "1.0 "), "'pka' cannot be read"},
        {Replaced("1.0000000000000000e+00", ""), "'pka' cannot be read"},
        {Replaced("1.0000000000000000e+00", "inf"), "'pka' cannot be read"},
        {Replaced("1.0000000000000000e+00", "1e999"), "'pka' cannot be read"},
        {Replaced("1.0000000000000000e+00", "0x1p3"), "'pka' cannot be read"},
        {Replaced("valency=\"1\"", "valency=\"1.0\""), "'valency' cannot be read"},
        {Replaced("valency=\"1\"", "valency=\"+1\""), "'valency' cannot be read"},
        {Replaced("valency=\"1\"", "valency=\"2147483648\""), "'valency' cannot be read"},
        {Replaced("ionicCharge=\"1\"", "ionicCharge=\"\u0661\""), "'ionicCharge' cannot be read"},
    };
    for (const auto& [xml, text] : cases)
        EXPECT_THAT(ErrorOf(xml), testing::HasSubstr(text)) << xml.substr(0, 200);
}

TEST(CompoundFile, RefusesNestingAndOtherContainers)
{
    std::string deep;
    for (int i = 0; i < 500'000; ++i)
        deep += "<a>";
    EXPECT_THAT(ErrorOf(Document(deep)), testing::HasSubstr("no list"));
    EXPECT_THAT(ErrorOf(Document("<compounds><compound " + kAttributes + ">" + deep)),
                testing::HasSubstr("compound 1: 'a' in it"));
    for (const auto& parts : {std::vector<tncommon::ZipPart>{{"other", Compounds(kAttributes)}},
                              {{"compounds", Compounds(kAttributes)}, {"compounds", ""}}})
        EXPECT_THROW(FromCompoundFile(tncommon::SaveToZip(parts)), tncommon::ZipError);
    Compound control;
    control.name = "a\x01";
    EXPECT_THROW(ToCompoundFile({control}), std::invalid_argument);
}

std::string Repeated(std::size_t count, const std::function<std::string(std::size_t)>& part)
{
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        text += part(i);
    return text;
}

TEST(CompoundFile, RefusesAHostileFileCheaply)
{
    const std::string letters(4 << 20, 'x');
    const std::string compound = "<compound " + kAttributes + "/>";
    const struct
    {
        std::string body;
        const char* reason;
    } cases[] = {
        {"<compound " + Repeated(80'000, [](std::size_t i) { return " a" + std::to_string(i) + "=\"\""; }) +
             "/>",
         "compound 1: the attribute 'name' is missing"},
        {"<compound " + kAttributes +
             Repeated(80'000, [](std::size_t i) { return " a" + std::to_string(i) + "=\"\""; }) + "/>",
         "compound 1: an attribute"},
        {compound + letters, "compound 2: there is a text"},
        {"<compound " + kAttributes + ">" + letters + "</compound>", "compound 1: there is a text"},
        {compound + "<compound name=\"" + letters + "\"/>",
         "line 2: a tag or comment is longer than 1048576 bytes"},
        {"<" + letters + "/>", "line 2: a tag or comment is longer"},
        {"<compound " + kAttributes + ">" + Repeated(1'000'000, [](std::size_t) { return "<!---->&#32;"; }) +
             "<a/></compound>",
         "compound 1: 'a' in it"},
        {Repeated(100'001, [&compound](std::size_t) { return compound; }), "more than 100000 compounds"},
        {compound + Repeated(8'000'000, [](std::size_t) { return "<a/>"; }),
         "compound 2: 'a' is no compound"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.reason);
        const std::string file =
            tncommon::SaveToZip({{"compounds", Document("<compounds>" + row.body + "</compounds>")}});
        support::ExpectRefusedCheaply([&] {
            try {
                CompoundsIn(*FromCompoundFile(file));
                return false;
            } catch (const CompoundFileError& error) {
                if (std::string_view(error.what()).find(row.reason) == std::string_view::npos)
                    std::fprintf(stderr, "%s\n", error.what());
                return std::string_view(error.what()).find(row.reason) != std::string_view::npos;
            }
        });
    }
}

}  // namespace
