// SPDX-License-Identifier: MIT
// The compounds in both kinds of databases, and the master data that they begin with.
#include "dbinterfaces/compound_names.h"
#include "dbinterfaces/master_database.h"
#include "dbinterfaces/project_database.h"
#include "projectbase/feed/known_elements.h"
#include "projectbase/library/compound_import.h"
#include "tests/support/user_database_fixture.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <cmath>
#include <set>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using DBObjects::Compound;
using support::ErrorOf;
using testing::ElementsAre;
using testing::IsEmpty;

Compound Make(const std::string& name, const std::string& formula, const std::string& element = "X",
              const std::string& category = "Test")
{
    return {.baseElement = element,
            .name = name,
            .formula = formula,
            .pKa = 4.756,
            .valency = 2,
            .oxidationNrCommon = -3,
            .conjugate = 2,
            .ionicCharge = -1,
            .category = category};
}

bool Same(const Compound& a, const Compound& b)
{
    return a.id == b.id && a.baseElement == b.baseElement && a.name == b.name && a.formula == b.formula &&
           (a.pKa == b.pKa || (std::isnan(a.pKa) && std::isnan(b.pKa))) && a.valency == b.valency &&
           a.oxidationNrCommon == b.oxidationNrCommon && a.conjugate == b.conjugate &&
           a.ionicCharge == b.ionicCharge && a.category == b.category;
}

class Compounds : public support::UserDatabaseTest
{
protected:
    void SetUp() override
    {
        UserDatabaseTest::SetUp();
        ProjectDatabase::Open(Text());
    }
    static std::vector<std::string> Names(const std::string& element, const std::string& category,
                                          const std::string& search)
    {
        std::vector<std::string> names;
        for (const Compound& compound : ProjectDatabase::GetCompounds(element, category, search))
            names.push_back(compound.name);
        return names;
    }
};

INSTANTIATE_TEST_SUITE_P(Backends, Compounds, testing::Values("sqlite", "postgresql"),
                         [](const auto& backend) { return std::string(backend.param); });

TEST_P(Compounds, BeginWithTheSuppliedOnes)
{
    const auto supplied = MasterDatabase::GetSuppliedCompounds();
    ASSERT_GT(supplied.size(), 100U);
    const auto all = ProjectDatabase::GetCompounds();
    EXPECT_EQ(all.size(), supplied.size());
    for (const Compound& compound : supplied)
        EXPECT_TRUE(Same(ProjectDatabase::GetCompound(compound.id), compound)) << compound.name;
    EXPECT_THAT(ProjectDatabase::GetCompoundCategories(),
                ElementsAre("Acid", "Anion", "Base", "Cation", "Gas", "Oxidant", "Salt", "Solvent"));
    // What a user deletes does not come back.
    EXPECT_TRUE(ProjectDatabase::DeleteCompound(supplied.front().id));
    ProjectDatabase::Open(Text());
    EXPECT_EQ(ProjectDatabase::GetCompounds().size(), supplied.size() - 1);
}

TEST_P(Compounds, AreFoundByTheElementsOfTheirFormulas)
{
    ProjectDatabase::InsertOrReplaceCompounds(
        {Make("a cobalt C", "Co3(PO4)2", "C", "Test"), Make("b carbonyl", "Co2(CO)8", "Co", "Test"),
         Make("c carbide", "Ca4C", "Ca", "Test"), Make("d last", "NaC", "Na", "Test")});
    const auto expect = [](const char* element, const std::vector<std::string>& names) {
        EXPECT_EQ(Names(element, "Test", {}), names) << element;
    };
    const auto expectAll = [&expect] {
        expect("C", {"b carbonyl", "c carbide", "d last"});
        expect("Co", {"a cobalt C", "b carbonyl"});
        expect("Ca", {"c carbide"});
        expect("c", {});
        EXPECT_EQ(Names("C", "Test", "carb"), (std::vector<std::string>{"b carbonyl", "c carbide"}));
    };
    expectAll();
    // Within a transaction the database is asked.
    const ProjectDatabase::Transaction transaction;
    expectAll();
}

TEST_P(Compounds, AreStoredUnderANewIdentifierOrTheirOwn)
{
    Compound compound = Make("O'Neill \"acid\"; DROP TABLE tarnvik_compound -- \u00e4\u6c34", "H2X");
    compound.id = ProjectDatabase::InsertOrReplaceCompound(compound);
    EXPECT_GT(compound.id, 0);
    EXPECT_TRUE(Same(ProjectDatabase::GetCompound(compound.id), compound));

    compound.pKa = std::nan("");
    compound.category.clear();
    compound.valency = std::numeric_limits<std::int32_t>::max();
    compound.ionicCharge = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(ProjectDatabase::InsertOrReplaceCompound(compound), compound.id);
    EXPECT_TRUE(Same(ProjectDatabase::GetCompound(compound.id), compound));

    // An identifier that a file or a colleague brings is never handed out again.
    Compound far = Make("far", "F");
    far.id = compound.id + 10;
    EXPECT_EQ(ProjectDatabase::InsertOrReplaceCompound(far), far.id);
    EXPECT_EQ(ProjectDatabase::InsertOrReplaceCompound(Make("next", "N")), far.id + 1);

    EXPECT_TRUE(ProjectDatabase::DeleteCompound(compound.id));
    EXPECT_FALSE(ProjectDatabase::DeleteCompound(compound.id));
    EXPECT_EQ(ProjectDatabase::GetCompound(compound.id).id, -1);
    EXPECT_THAT(Names({}, {}, "DROP TABLE"), IsEmpty()) << "the index forgets what is deleted";
}

TEST_P(Compounds, AreFilteredByElementCategoryAndAnyPartOfNameAndFormula)
{
    for (const Compound& compound : ProjectDatabase::GetCompounds())
        ProjectDatabase::DeleteCompound(compound.id);
    ProjectDatabase::InsertOrReplaceCompound(Make("sodium sulfate", "Na2SO4", "Na", "Salt"));
    ProjectDatabase::InsertOrReplaceCompound(Make("sulfate", "SO4", "S", "Anion"));
    ProjectDatabase::InsertOrReplaceCompound(Make("Calcium hydroxide", "Ca(OH)2", "Ca", "Base"));
    ProjectDatabase::InsertOrReplaceCompound(Make("100 % test_substance\\", "X\"Y'", "X", "Salt"));
    const int edited = ProjectDatabase::InsertOrReplaceCompound(Make("temporary", "Tmp", "X", "Other"));
    Compound renamed = Make("Zinc", "Zn", "Zn", "Cation");
    renamed.id = edited;
    ProjectDatabase::InsertOrReplaceCompound(renamed);

    EXPECT_THAT(Names({}, {}, {}), ElementsAre("100 % test_substance\\", "Calcium hydroxide",
                                               "sodium sulfate", "sulfate", "Zinc"));
    EXPECT_THAT(Names("S", {}, {}), ElementsAre("sodium sulfate", "sulfate"));
    EXPECT_THAT(Names({}, "Salt", {}), ElementsAre("100 % test_substance\\", "sodium sulfate"));
    EXPECT_THAT(Names("Na", "Salt", "sulf"), ElementsAre("sodium sulfate"));
    EXPECT_THAT(Names("Na", "Anion", {}), IsEmpty());
    const std::pair<const char*, std::vector<std::string>> searches[] = {
        {"ULFAT", {"sodium sulfate", "sulfate"}},
        {"so4", {"sodium sulfate", "sulfate"}},
        {"(OH)", {"Calcium hydroxide"}},
        {"z", {"Zinc"}},
        {"Na", {"sodium sulfate"}},
        {"%", {"100 % test_substance\\"}},
        {"_", {"100 % test_substance\\"}},
        {"t_s", {"100 % test_substance\\"}},
        {"\\", {"100 % test_substance\\"}},
        {"\"", {"100 % test_substance\\"}},
        {"X\"Y'", {"100 % test_substance\\"}},
        {"temporary", {}},
        {"sulfate OR zinc", {}},
        {"name:sulfate", {}},
        {"*ulf", {}},
    };
    for (const auto& [search, expected] : searches) {
        // Once by the database, once from what was fetched for a longer list.
        ProjectDatabase::Open(Text());
        EXPECT_EQ(Names({}, {}, search), expected) << search;
        ProjectDatabase::GetCompounds();
        EXPECT_EQ(Names({}, {}, search), expected) << search;
    }
}

TEST_P(Compounds, AreFoundInWhateverCaseAlsoBeyondAscii)
{
    ProjectDatabase::InsertOrReplaceCompound(Make("Gro\u00dfe S\u00e4uling \u0416", "Xx"));
    for (const char* search : {"S\u00c4ULING", "s\u00e4uling \u0436", "\u00dfE"}) {
        ProjectDatabase::GetCompounds();
        EXPECT_EQ(Names({}, {}, search).size(), 1U) << search;
        ProjectDatabase::Open(Text());
        EXPECT_EQ(Names({}, {}, search).size(), 1U) << search;
    }
}

TEST_P(Compounds, AreFoundByTheirNamesInEveryLanguage)
{
    ProjectDatabase::InsertOrReplaceCompounds(
        {Make("Sodium Chloride", "NaCl"), Make("sodium chloride", "NaClX"), Make("mein Gips", "CaSO4")});
    const std::pair<const char*, std::vector<std::string>> searches[] = {
        {"atriumchlorid", {"sodium chloride", "Sodium Chloride"}},
        {"CHLORURE DE SOD", {"sodium chloride", "Sodium Chloride"}},
        {"s\u00c4URE (H", {}},
        {"Kohlens\u00c4ure", {"carbonic acid"}},
        {"hydrog\u00c9nocarbonate de c", {"calcium bicarbonate"}},
        {"gips", {"gypsum", "mein Gips"}},
        {"Zinn", {}},
    };
    for (const auto& [search, expected] : searches) {
        // Once by the database, once from what was fetched for a longer list.
        ProjectDatabase::Open(Text());
        EXPECT_EQ(Names({}, {}, search), expected) << search;
        ProjectDatabase::GetCompounds();
        EXPECT_EQ(Names({}, {}, search), expected) << search;
        const ProjectDatabase::Transaction transaction;
        EXPECT_EQ(Names({}, {}, search), expected) << search << ", within a transaction";
    }
    // Two letters are in no index.
    ProjectDatabase::Open(Text());
    EXPECT_THAT(Names("Ca", "Salt", "Gi"), ElementsAre("gypsum"));
}

TEST_P(Compounds, ShowWhatOthersChangedAndNothingThatWasTakenBack)
{
    const std::size_t before = ProjectDatabase::GetCompounds().size();
    {
        ProjectDatabase::Transaction transaction;
        ProjectDatabase::InsertOrReplaceCompound(Make("taken back", "X"));
        EXPECT_EQ(ProjectDatabase::GetCompounds().size(), before + 1);
    }
    EXPECT_EQ(ProjectDatabase::GetCompounds().size(), before);
    const pid_t child = fork();
    if (child == 0) {
        int status = 0;
        try {
            ProjectDatabase::Open(Text());
            ProjectDatabase::InsertOrReplaceCompounds({Make("first", "X"), Make("second", "X")});
        } catch (const std::exception&) {
            status = 1;
        }
        _exit(status);
    }
    int status = -1;
    waitpid(child, &status, 0);
    ASSERT_EQ(status, 0);
    ProjectDatabase::Open(Text());
    EXPECT_EQ(ProjectDatabase::GetCompounds().size(), before + 2);
    EXPECT_THAT(Names({}, "Test", {}), ElementsAre("first", "second"));

    // Past the facade, as another program would.
    const auto raw = Raw();
    *raw << "BEGIN";
    *raw << "DELETE FROM tarnvik_compound WHERE name = 'first'";
    *raw << "UPDATE tarnvik_counter SET last_id = last_id + 1 WHERE name = 'compound.change'";
    *raw << "COMMIT";
    EXPECT_THAT(Names({}, "Test", {}), ElementsAre("second"));
}

TEST_P(Compounds, AreImportedAsAWholeOrNotAtAll)
{
    const Compound known = ProjectDatabase::GetCompounds("Na", "Salt", "NaCl").at(0);
    Compound better = known;
    better.id = -1;
    better.pKa = 1.5;
    const std::vector<Compound> incoming{Make("new one", "N"), better, better, better};
    const auto plan = compound_import::MakePlan(incoming, ProjectDatabase::GetCompounds());
    ASSERT_EQ(plan.added.size(), 1U);
    ASSERT_EQ(plan.duplicates.size(), 3U);
    EXPECT_EQ(plan.duplicates[1].index, 2U);
    EXPECT_EQ(plan.duplicates[1].existing.id, known.id);

    using compound_import::Decision;
    const std::size_t before = ProjectDatabase::GetCompounds().size();
    EXPECT_THROW(compound_import::CarryOut(plan, {}), std::invalid_argument);
    Sql(IsSqlite() ? "CREATE TRIGGER bad BEFORE INSERT ON tarnvik_compound WHEN new.name LIKE '%(imported)' "
                     "BEGIN SELECT RAISE(ABORT, 'no'); END"
                   : "ALTER TABLE tarnvik_compound ADD CONSTRAINT bad CHECK (name NOT LIKE '%(imported)')");
    const std::vector<Decision> decisions{Decision::Replace, Decision::KeepBoth, Decision::Skip};
    EXPECT_TRUE(ErrorOf([&] { compound_import::CarryOut(plan, decisions); }).has_value());
    EXPECT_EQ(ProjectDatabase::GetCompounds().size(), before);
    EXPECT_FALSE(ProjectDatabase::GetCompound(known.id).pKa == 1.5);

    Sql(IsSqlite() ? "DROP TRIGGER bad" : "ALTER TABLE tarnvik_compound DROP CONSTRAINT bad");
    EXPECT_EQ(compound_import::CarryOut(plan, decisions), 3U);
    EXPECT_EQ(ProjectDatabase::GetCompounds().size(), before + 2);
    EXPECT_EQ(ProjectDatabase::GetCompound(known.id).pKa, 1.5);
    EXPECT_THAT(Names({}, {}, "(imported)"), ElementsAre("sodium chloride (imported)"));
}

TEST_P(Compounds, GetDifferentIdentifiersInSeveralPrograms)
{
    constexpr int kEach = 40;
    ProjectDatabase::Close();
    std::vector<pid_t> children;
    for (int child = 0; child < 3; ++child) {
        const pid_t pid = fork();
        if (pid == 0) {
            int status = 0;
            try {
                ProjectDatabase::Open(Text());
                for (int i = 0; i < kEach; ++i)
                    ProjectDatabase::InsertOrReplaceCompound(Make(fmt::format("c{} {}", child, i), "X"));
            } catch (const std::exception&) {
                status = 1;
            }
            _exit(status);
        }
        children.push_back(pid);
    }
    for (const pid_t child : children) {
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    ProjectDatabase::Open(Text());
    EXPECT_EQ(ProjectDatabase::GetCompounds({}, "Test", {}).size(), 3U * kEach);
}

class CompoundTables : public support::UserDatabaseTest
{};
INSTANTIATE_TEST_SUITE_P(Backends, CompoundTables, testing::Values("sqlite", "postgresql"),
                         [](const auto& backend) { return std::string(backend.param); });

TEST_P(CompoundTables, ComeOnlyWhenTheSuppliedCompoundsCanBeRead)
{
    MakeVersion2();
    MasterDatabase::SetPath("/nowhere/master.db");
    const auto error = ErrorOf([this] { ProjectDatabase::Open(Text()); });
    MasterDatabase::SetPath({});
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(Number("SELECT version FROM tarnvik_schema"), 2);
    ProjectDatabase::Open(Text());
    EXPECT_GT(ProjectDatabase::GetCompounds().size(), 100U);
    EXPECT_EQ(ProjectDatabase::GetUserParameter("language"), "de");
}

TEST_P(CompoundTables, ComeAlsoWhereTheServerGrantsNoTrigrams)
{
    if (IsSqlite())
        return;
    Sql("DO $$ BEGIN IF NOT EXISTS (SELECT 1 FROM pg_roles WHERE rolname = 'plain') THEN "
        "CREATE ROLE plain LOGIN; END IF; END $$");
    Sql("GRANT ALL ON SCHEMA public TO plain");
    std::string text = Text();
    const std::string owner = "user=tarnvik";
    ASSERT_NE(text.find(owner), std::string::npos) << text;
    ProjectDatabase::Open(text.replace(text.find(owner), owner.size(), "user=plain"));
    EXPECT_EQ(Number("SELECT count(*) FROM pg_extension WHERE extname = 'pg_trgm'"), 0);
    EXPECT_EQ(ProjectDatabase::GetCompounds({}, {}, "sodium chl").size(), 1U);
    EXPECT_EQ(ProjectDatabase::GetCompounds({}, {}, "NaC").size(), 1U);
}

TEST(CompoundNames, AreThoseOfTheLanguageForSuppliedCompoundsOnly)
{
    const std::tuple<const char*, const char*, const char*, const char*> shown[] = {
        {"sodium chloride", "NaCl", "de", "Natriumchlorid"},
        {"sodium chloride", "NaCl", "de_AT", "Natriumchlorid"},
        {"Sodium chloride", "NaCl", "fr", "chlorure de sodium"},
        {"sodium chloride", "NaCl", "", "sodium chloride"},
        {"sodium chloride", "NaCl", "xx", "sodium chloride"},
        {"sodium chloride", "NACL", "de", "sodium chloride"},
        {"my salt", "NaCl", "de", "my salt"},
    };
    for (const auto& [name, formula, language, expected] : shown)
        EXPECT_EQ(compound_names::Shown(name, formula, language), expected) << name << formula << language;
    for (const std::string language : {"", "de", "fr", "de_AT"}) {
        for (const Compound& compound : MasterDatabase::GetSuppliedCompounds()) {
            const std::string name = compound_names::Shown(compound.name, compound.formula, language);
            EXPECT_EQ(compound_names::Filed(name, compound.formula, language), compound.name) << name;
        }
    }
    EXPECT_EQ(compound_names::Filed("Natriumchlorid", "NaCl", "fr"), "Natriumchlorid");
    EXPECT_EQ(compound_names::Filed("Natriumchlorid", "KCl", "de"), "Natriumchlorid");
    MasterDatabase::SetPath("/nowhere/master.db");
    EXPECT_EQ(compound_names::Shown("sodium chloride", "NaCl", "de"), "sodium chloride");
    MasterDatabase::SetPath({});
    EXPECT_EQ(compound_names::Shown("sodium chloride", "NaCl", "de"), "Natriumchlorid");
}

TEST(CompoundNames, AreListedInTheOrderOfTheLanguage)
{
    std::vector<Compound> compounds{Make("calcium", "Ca"),  Make("Iod", "I2"),    Make("iron(II)", "Fe"),
                                    Make("k\u00e4se", "X"), Make("silver", "Ag"), Make("zzz", "Z"),
                                    Make("water", "H2O")};
    const auto expect = [&compounds](const char* language, const std::vector<std::string>& formulas) {
        compound_names::SortAsShown(compounds, language);
        std::vector<std::string> order;
        for (const Compound& compound : compounds)
            order.push_back(compound.formula);
        EXPECT_EQ(order, formulas) << language;
    };
    expect("de", {"Ca", "Fe", "I2", "X", "Ag", "H2O", "Z"});
    expect("fr", {"Ag", "Ca", "H2O", "Fe", "I2", "X", "Z"});
    expect("", {"Ca", "I2", "Fe", "X", "Ag", "H2O", "Z"});
    // acétate, acide acétique, chlorure d’aluminium, chlorure de calcium
    compounds = {Make("acetic acid", "CH3COOH"), Make("calcium chloride", "CaCl2"), Make("acetate", "CH3COO"),
                 Make("aluminium chloride", "AlCl3")};
    expect("fr", {"CH3COO", "CH3COOH", "AlCl3", "CaCl2"});
}

TEST(SuppliedCompounds, HaveFormulasThatAgreeWithTheirData)
{
    std::set<std::string> keys;
    for (const Compound& compound : MasterDatabase::GetSuppliedCompounds()) {
        EXPECT_TRUE(keys.insert(compound_import::Key(compound)).second) << compound.name;
        EXPECT_GT(MolarMassOfFormula(compound.formula), 1.0) << compound.formula;
        const auto elements = FormulaParser().Parse(compound.formula);
        EXPECT_TRUE(std::any_of(elements.begin(), elements.end(), [&](const CompoundElement& element) {
            return element.symbol == compound.baseElement;
        })) << compound.formula;
        const bool isIon = compound.category == "Cation" || compound.category == "Anion";
        EXPECT_EQ(compound.ionicCharge > 0, compound.category == "Cation") << compound.name;
        EXPECT_EQ(compound.ionicCharge < 0, compound.category == "Anion") << compound.name;
        EXPECT_TRUE(!isIon || std::abs(compound.ionicCharge) == compound.valency) << compound.name;
        // A hydrolysis constant is none of an acid.
        EXPECT_TRUE(compound.conjugate != 0 || std::isnan(compound.pKa)) << compound.name;
    }
    const std::tuple<const char*, double, double> known[] = {{"H3PO4", 97.994, 2.15},
                                                             {"CaSO4·2H2O", 172.164, std::nan("")},
                                                             {"NH3", 17.031, 9.25},
                                                             {"Al2(SO4)3·18H2O", 666.402, std::nan("")},
                                                             {"B(OH)3", 61.831, 9.24}};
    const auto all = MasterDatabase::GetSuppliedCompounds();
    for (const auto& [formula, mass, pKa] : known) {
        const auto found =
            std::find_if(all.begin(), all.end(), [f = formula](const Compound& c) { return c.formula == f; });
        ASSERT_NE(found, all.end()) << formula;
        EXPECT_NEAR(MolarMassOfFormula(formula), mass, 2e-3) << formula;
        EXPECT_TRUE(found->pKa == pKa || (std::isnan(found->pKa) && std::isnan(pKa))) << formula;
    }
}

TEST(FeedMediums, AreOfferedByModuleAndUsage)
{
    const auto feeds = MasterDatabase::GetFeedMediums("iex", "INPUT_FEED");
    const auto organics = MasterDatabase::GetFeedMediums("iex", "INPUT_ORGANICS");
    EXPECT_GT(feeds.size(), organics.size());
    EXPECT_GT(organics.size(), 3U);
    EXPECT_TRUE(MasterDatabase::GetFeedMediums("ro", "INPUT_FEED").empty());
    for (const auto& medium : feeds) {
        EXPECT_TRUE(medium.density > 0.9 && medium.density < 1.3) << medium.name;
        EXPECT_EQ(MasterDatabase::GetFeedMedium(medium.id).name, medium.name);
    }
    EXPECT_EQ(MasterDatabase::GetFeedMedium(4711).id, -1);
}

}  // namespace
