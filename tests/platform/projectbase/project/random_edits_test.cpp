// SPDX-License-Identifier: MIT
// Whatever is edited, the history leads back and forth through the same states, and files keep them.
#include "tests/support/random_edits.h"

#include "projectbase/project/project_file.h"
#include "projectbase/project/project_json.h"
#include "tests/support/project_fixture.h"
#include "tests/support/project_history.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

namespace {

/// What the program writes on disk; a second time what it read of that.
void ExpectSameFiles(const Project& project)
{
    const support::TempFolder folder;
    const auto path = folder / "plant.tarnvik";
    ProjectFile::Save(project, path);
    const std::string saved = support::ReadBytes(path);
    const auto loaded = ProjectFile::Load(path);
    EXPECT_EQ(support::Difference(project, *loaded, false), "") << "file";
    ProjectFile::Save(*loaded, path);
    EXPECT_TRUE(support::ReadBytes(path) == saved) << "file, written again";

    const std::string json = ProjectToJson(project, {}, {});
    const auto read = ProjectFromJson(json);
    read->ResetStatus(project.GetStatus());
    EXPECT_EQ(support::Difference(project, *read, false), "") << "JSON";
    EXPECT_TRUE(ProjectToJson(*read, {}, {}) == json) << "JSON, written again";
}

/// A project with its history, and the states that the history leads to: the first before all edits.
class Walk
{
public:
    Walk(const char* type, std::uint32_t seed) : m_project(type), m_edits(m_project, seed)
    {
        m_states.push_back(m_project.Clone());
    }

    void Edit()
    {
        const int told = m_history.told;
        m_edits.Edit();
        EXPECT_LE(m_history.told, told + 1) << "one step an edit";
        if (m_history.told == told)
            return;
        m_states.resize(++m_done);
        m_states.push_back(m_project.Clone());
    }
    /// Some steps back; what is edited then forgets them.
    void GoBack()
    {
        for (std::size_t steps = m_edits.Pick(4); steps > 0 && m_done > 0; --steps)
            Back();
    }
    void Back()
    {
        EXPECT_TRUE(m_history.stack.Undo());
        --m_done;
        Check("undone");
    }
    void Forth()
    {
        EXPECT_TRUE(m_history.stack.Redo());
        ++m_done;
        Check("done again");
    }
    bool IsAtStart() const { return m_done == 0; }
    bool IsAtEnd() const { return m_done + 1 == m_states.size(); }
    bool MayEdit(std::size_t oneIn) { return !m_edits.OneIn(oneIn); }
    UndoRedoDetailStack& Stack() { return m_history.stack; }
    const Project& GetProject() const { return m_project; }

private:
    void Check(const char* how)
    {
        EXPECT_EQ(support::Difference(*m_states[m_done], m_project, true), "")
            << how << " to state " << m_done << " of " << m_states.size();
    }

    iex::IEXProject m_project;
    support::History m_history{m_project, 1000};
    support::RandomEdits m_edits;
    std::vector<std::unique_ptr<Project>> m_states;
    std::size_t m_done = 0;
};

class RandomEditsTest : public testing::TestWithParam<const char*>
{};

TEST_P(RandomEditsTest, AreUndoneDoneAgainAndKept)
{
    constexpr std::uint32_t kSeeds = 12;
    constexpr int kEdits = 40;
    for (std::uint32_t seed = 1; seed <= kSeeds && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Walk walk(GetParam(), seed);
        for (int i = 0; i < kEdits && !HasFailure(); ++i)
            walk.MayEdit(8) ? walk.Edit() : walk.GoBack();
        while (!walk.IsAtEnd() && !HasFailure())
            walk.Forth();
        ExpectSameFiles(walk.GetProject());
        while (!walk.IsAtStart() && !HasFailure())
            walk.Back();
        EXPECT_FALSE(walk.Stack().CanUndo());
        while (!walk.IsAtEnd() && !HasFailure())
            walk.Forth();
        EXPECT_FALSE(walk.Stack().CanRedo());
    }
}

INSTANTIATE_TEST_SUITE_P(Plants, RandomEditsTest, testing::Values("iex", "DEMI", "MB"),
                         [](const auto& plant) { return std::string(plant.param); });

}  // namespace
