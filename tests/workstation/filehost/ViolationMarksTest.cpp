#include "workstation/filehost/ViolationMarks.h"

#include "workstation/filehost/FileHost.h"
#include "workstation/filehost/HostFolder.h"

#include <gtest/gtest.h>

namespace dorvik {

namespace {

using Lines = std::vector<std::int32_t>;

/// A module of a procedure A with x = 1 in line 2 and x = 2 in line 3, and marks at both.
class MarkedModule {
public:
    MarkedModule() {
        m_folder.Write(
            "m.bas", test::Dos("Attribute VB_Name = \"m\"\nSub A()\nx = 1\nx = 2\nEnd Sub\n"));
        m_host.Open(m_folder.Write("P.vbp", test::Dos("Module=m; m.bas\nName=\"P\"\n")));
        Marks.emplace(Module());
        Marks->Set({
            {11, 4, {"x = 1", 2, 4, "A"}},
            {12, 2, {"x = 2", 9, 4, "A"}},  // it was elsewhere once
            {13, 1, {"x = 3", 3, 4, "A"}},  // it is not there any more
            {14, 5, {"", 0, 3, ""}},
            {15, 1, {"x = 1", 2, 4, "A"}},
        });
    }

    FileCodeModule& Module() { return m_host.Project(1).Component(1).CodeModule(); }
    Lines Now() const {
        Lines lines;
        for (const MarkedViolation& violation : Marks->Violations()) {
            lines.push_back(violation.Line);
        }
        return lines;
    }

    std::optional<ViolationMarks> Marks;

private:
    test::TemporaryFolder m_folder;
    FileHost m_host;
};

}  // namespace

TEST(ViolationMarks, AreAtTheLinesWhereGoingToTheSourceWouldLead) {
    const MarkedModule marked;
    EXPECT_EQ(marked.Now(), (Lines{2, 3, 0, 1, 2}));
}

TEST(ViolationMarks, WorstSeverityOfALineComesFirst) {
    const MarkedModule marked;
    ASSERT_EQ(marked.Marks->AtLine(2).size(), 2U);
    EXPECT_EQ(marked.Marks->AtLine(2)[0]->ViolationID, 15);
    EXPECT_EQ(marked.Marks->SeverityOf(2), 1);
    EXPECT_EQ(marked.Marks->SeverityOf(4), 0);
    EXPECT_TRUE(marked.Marks->AtLine(0).empty()) << "those without a line are at none";
}

TEST(ViolationMarks, KeepToTheirLinesWhileLinesAboveChange) {
    MarkedModule marked;
    int changes = 0;
    const Subscription watch = marked.Marks->Changed.Subscribe([&] { ++changes; });
    marked.Module().InsertLines(2, "a\nb");
    EXPECT_EQ(marked.Now(), (Lines{4, 5, 0, 1, 4}));
    marked.Module().DeleteLines(2, 1);
    EXPECT_EQ(marked.Now(), (Lines{3, 4, 0, 1, 3}));
    marked.Module().ReplaceLine(3, "y = 1");
    EXPECT_EQ(marked.Now(), (Lines{3, 4, 0, 1, 3}));
    EXPECT_EQ(changes, 2) << "a line that is edited moves nothing";
    marked.Module().InsertLines(1, "' top");
    EXPECT_EQ(marked.Now(), (Lines{4, 5, 0, 2, 4}));
}

TEST(ViolationMarks, GoWithADeletedLineAndAreFoundAgain) {
    MarkedModule marked;
    marked.Module().DeleteLines(2, 1);
    EXPECT_EQ(marked.Now(), (Lines{0, 2, 0, 1, 0}));
    marked.Module().Undo();
    EXPECT_EQ(marked.Now(), (Lines{0, 3, 0, 1, 0}));
    marked.Marks->FindAgain();
    EXPECT_EQ(marked.Now(), (Lines{2, 3, 0, 1, 2}));
}

TEST(ViolationMarks, NextAndPreviousLinesWithAMark) {
    const MarkedModule marked;
    EXPECT_EQ(marked.Marks->NextLine(0), 1);
    EXPECT_EQ(marked.Marks->NextLine(2), 3);
    EXPECT_EQ(marked.Marks->NextLine(3), 0);
    EXPECT_EQ(marked.Marks->PreviousLine(3), 2);
    EXPECT_EQ(marked.Marks->PreviousLine(1), 0);
}

}  // namespace dorvik
