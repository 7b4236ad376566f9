#include "WorkbenchFixture.h"
#include "support/LockedDatabase.h"

#include <chrono>
#include <optional>

namespace dorvik {
namespace {

using std::chrono::steady_clock;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;

/// The bench of a project whose results another program locks for a while.
class LockedResults : public test::WorkbenchFixture {
protected:
    void Lock() { m_other.emplace(DatabaseFile("Billing")); }
    void Unlock() { m_other.reset(); }
    std::vector<std::string> MessageTexts() const {
        std::vector<std::string> texts;
        for (const MessageText& message : m_boxes.Messages) {
            texts.push_back(message.Text);
        }
        return texts;
    }
    bool IsMarked(std::int32_t id) {
        return m_controls.List.Value(id, NumberOf(ViolationColumn::Completed)).AsLong() != 0;
    }

    /// The user waits for the bench: a review would wait for ten times as long.
    static constexpr std::chrono::seconds kShort{8};

private:
    std::optional<test::LockedDatabase> m_other;
};

TEST_F(LockedResults, OpeningThemEndsSoonWithWhatToDo) {
    AddProject("Billing");
    WriteResults("Billing");
    Lock();
    m_view.SetWorkbenchVisible(true);
    const auto start = steady_clock::now();
    m_view.PopulateResults(m_criteria, false);
    EXPECT_LT(steady_clock::now() - start, kShort);
    EXPECT_FALSE(m_view.ResultsAvailable());
    EXPECT_THAT(
        MessageTexts(),
        Contains(
            "The results database '" + DatabaseFile("Billing") +
            "' is locked by another program.  Please wait until that program has finished, or "
            "close it, and open the results again."));
    EXPECT_THAT(MessageTexts(), Not(Contains(HasSubstr("version"))));
    Unlock();
    m_view.PopulateResults(m_criteria, false);
    EXPECT_TRUE(m_view.ResultsAvailable());
}

TEST_F(LockedResults, AMarkEndsSoonAndIsAnErrorOfTheGrid) {
    OpenBench();
    Lock();
    const auto start = steady_clock::now();
    m_controls.List.Check(4, true);
    EXPECT_LT(steady_clock::now() - start, kShort);
    EXPECT_TRUE(m_log.Contains("Encountered the following error: 3260"));
    EXPECT_FALSE(IsMarked(4));
    Unlock();
    m_controls.List.Check(4, true);
    EXPECT_TRUE(IsMarked(4));
}

TEST_F(LockedResults, BrowsingThemEndsSoonAndGoesOnOnceTheyAreFree) {
    OpenBench();
    Lock();
    const auto start = steady_clock::now();
    ChooseFile("2SFKey");
    ChooseFile("3SFKey");
    ChooseFile("~AllItems~");
    EXPECT_LT(steady_clock::now() - start, kShort);
    Unlock();
    ChooseFile("2SFKey");
    EXPECT_FALSE(Violations().empty());
}

}  // namespace
}  // namespace dorvik
