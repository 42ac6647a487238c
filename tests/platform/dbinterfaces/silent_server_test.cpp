// SPDX-License-Identifier: MIT
// A server that stops in the middle of a call, as a machine does that is suspended: it takes what it is sent
// and says nothing.
#include "tests/support/stopped_server.h"
#include "tests/support/user_database_fixture.h"

#include <gmock/gmock.h>

#include <thread>

namespace {

using support::ErrorOf;
using support::Stopped;
using Clock = std::chrono::steady_clock;
using Kind = DatabaseError::Kind;
using namespace std::chrono_literals;

double Seconds(Clock::duration time)
{
    return std::chrono::duration<double>(time).count();
}

class SilentServer : public testing::Test, public support::DatabaseUnderTest
{
protected:
    SilentServer() : DatabaseUnderTest("postgresql") {}
    void SetUp() override
    {
        ProjectDatabase::Open(Text() + " tcp_user_timeout=1000 connect_timeout=2");
        ProjectDatabase::SetUserParameter("key", "before");
    }
};

TEST_F(SilentServer, EndsEveryCallAndTheNextOneConnectsAgain)
{
    const std::pair<const char*, std::function<void()>> calls[] = {
        {"read", [] { ProjectDatabase::GetUserParameter("key"); }},
        {"write", [] { ProjectDatabase::SetUserParameter("key", "after"); }},
        {"search", [] { ProjectDatabase::GetCompounds({}, {}, "sodium"); }},
        {"transaction", [] { const ProjectDatabase::Transaction transaction; }},
    };
    for (const auto& [name, call] : calls) {
        SCOPED_TRACE(name);
        Stopped server;
        const auto start = Clock::now();
        const auto error = ErrorOf(call);
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(error->GetKind(), Kind::TimedOut) << error->what();
        EXPECT_THAT(error->what(), testing::HasSubstr("did not answer within 1 s"));
        EXPECT_LT(Seconds(Clock::now() - start), 2.5);
        // It cannot be reached either; that ends, too.
        if (name == std::string("write")) {
            const auto again = ErrorOf(call);
            ASSERT_TRUE(again.has_value());
            EXPECT_LT(Seconds(Clock::now() - start), 6.0);
        }
        server.GoOn();
        EXPECT_EQ(ErrorOf(call), std::nullopt);
        ProjectDatabase::SetUserParameter("key", "before");
    }
}

TEST_F(SilentServer, LosesNoHalfOfATransaction)
{
    {
        ProjectDatabase::Transaction transaction;
        ProjectDatabase::SetUserParameter("first", "half");
        Stopped server;
        EXPECT_EQ(ErrorOf([] { ProjectDatabase::SetUserParameter("second", "half"); })->GetKind(),
                  Kind::TimedOut);
        server.GoOn();
        EXPECT_TRUE(ErrorOf([] { ProjectDatabase::SetUserParameter("second", "half"); }).has_value());
        EXPECT_TRUE(ErrorOf([&] { transaction.Commit(); }).has_value());
    }
    EXPECT_EQ(ProjectDatabase::GetUserParameter("first", "none"), "none");
    EXPECT_EQ(ProjectDatabase::GetUserParameter("key"), "before");
}

TEST_F(SilentServer, IsToldToStopWhatTakesTooLong)
{
    ProjectDatabase::SetUserParameter("slow", "no");
    Sql("CREATE FUNCTION slow() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN PERFORM pg_sleep(60); RETURN "
        "new; END $$");
    Sql("CREATE TRIGGER slow BEFORE UPDATE ON tarnvik_user_parameter FOR EACH ROW EXECUTE FUNCTION slow()");
    const auto start = Clock::now();
    const auto error = ErrorOf([] { ProjectDatabase::SetUserParameter("slow", "yes"); });
    EXPECT_LT(Seconds(Clock::now() - start), 2.5);
    EXPECT_EQ(error->GetKind(), Kind::TimedOut) << error->what();
    EXPECT_EQ(ProjectDatabase::GetUserParameter("slow"), "no");
}

TEST_F(SilentServer, ManyShortCallsMayTakeLongerThanOne)
{
    std::vector<DBObjects::Compound> compounds(1'200);
    for (std::size_t i = 0; i < compounds.size(); ++i) {
        compounds[i].name = "c" + std::to_string(i);
        compounds[i].formula = "X";
    }
    Sql("CREATE FUNCTION nap() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN PERFORM pg_sleep(0.0005); RETURN "
        "new; END $$");
    Sql("CREATE TRIGGER nap BEFORE INSERT ON tarnvik_compound FOR EACH ROW EXECUTE FUNCTION nap()");
    const auto start = Clock::now();
    EXPECT_EQ(ErrorOf([&] { ProjectDatabase::InsertOrReplaceCompounds(compounds); }), std::nullopt);
    EXPECT_GT(Seconds(Clock::now() - start), 1.0);
}

/// Counts how often it is asked, and gives up at some time.
struct Indicator : WaitIndicator
{
    Indicator(int& asked, int most) : m_asked(asked), m_most(most) {}
    bool Continue() override
    {
        m_inside = ErrorOf([] { ProjectDatabase::GetUserParameter("key"); });
        EXPECT_TRUE(m_inside.has_value() && m_inside->GetKind() == Kind::Locked);
        return ++m_asked < m_most;
    }
    int& m_asked;
    int m_most;
    std::optional<DatabaseError> m_inside;
};

TEST_F(SilentServer, LetsItsCallerShowThatItWaitsAndGiveUp)
{
    ProjectDatabase::Open(Text() + " tcp_user_timeout=30000");
    int asked = 0;
    int made = 0;
    ProjectDatabase::SetWaitIndicator([&] {
        ++made;
        return std::make_unique<Indicator>(asked, 5);
    });
    EXPECT_EQ(ProjectDatabase::GetUserParameter("key"), "before");
    EXPECT_EQ(made, 0);
    {
        Stopped server;
        const auto start = Clock::now();
        const auto error = ErrorOf([] { ProjectDatabase::SetUserParameter("key", "after"); });
        EXPECT_LT(Seconds(Clock::now() - start), 2.0);
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(error->GetKind(), Kind::Cancelled) << error->what();
    }
    EXPECT_EQ(made, 1);
    EXPECT_GE(asked, 5);
    EXPECT_EQ(ErrorOf([] { ProjectDatabase::SetUserParameter("key", "after"); }), std::nullopt);
    EXPECT_EQ(ProjectDatabase::GetUserParameter("key"), "after");
    ProjectDatabase::SetWaitIndicator({});
}

}  // namespace
