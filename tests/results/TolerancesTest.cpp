#include "results/ResultsDBFixture.h"
#include "results/modTolerances.h"

namespace dorvik {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TolerancesTest : public test::ResultsDBFixture {
protected:
    /// Measures, stores and returns the file.
    std::unique_ptr<VirtualObject>
    Finish(std::unique_ptr<VirtualObject> file, bool isProjectFile = false) {
        modTolerances::SetTolerancePassValue(*file, m_criteria, isProjectFile);
        m_results.Writer().LogVirtualObjectProperties(*file);
        return file;
    }

    std::unique_ptr<VirtualObject>
    FileWithViolations(std::string_view name, std::int32_t severity, std::int32_t count) {
        auto file = SetUpFile(name);
        for (std::int32_t number = 0; number < count; ++number) {
            file->ViolationStats().IncrementCount(severity, 100);
        }
        return file;
    }

    static bool Pass(const VirtualObject& object, std::string_view measure) {
        return object.Properties().Item(std::string(measure) + "Pass").AsBoolean();
    }

    /// The comment percentage that is measured for these counts.
    std::int32_t Percentage(std::int32_t code, std::int32_t comments, std::int32_t inLine = 0) {
        VirtualObject file;
        file.LineStats().SetCodeLines(code);
        file.LineStats().SetCommentOnlyLines(comments);
        file.LineStats().SetInLineCommentLines(inLine);
        file.LineStats().SetBlankLines(50);
        m_criteria.SetTolerancePercentageComments(10);
        modTolerances::SetTolerancePassValue(file, m_criteria, false);
        return file.Properties().Item("PC").AsLong();
    }
};

TEST_F(TolerancesTest, WithoutTolerancesNothingIsAdded) {
    VirtualObject file;
    file.Properties().Add("MaximumCyclomatic", 99);
    modTolerances::SetTolerancePassValue(file, m_criteria, false);
    EXPECT_EQ(file.Properties().Count(), 1);
}

TEST_F(TolerancesTest, ALimitOfZeroIsSetAndFailsAtTheFirstViolation) {
    m_criteria.SetToleranceCount(1, 0);
    VirtualObject file;
    modTolerances::SetTolerancePassValue(file, m_criteria, false);
    EXPECT_TRUE(Pass(file, "CVC"));
    VirtualObject other;
    other.ViolationStats().IncrementCount(1, 900);
    modTolerances::SetTolerancePassValue(other, m_criteria, false);
    EXPECT_FALSE(Pass(other, "CVC"));
}

TEST_F(TolerancesTest, ALimitEqualToTheActualValuePasses) {
    m_criteria.SetToleranceCount(3, 2);
    m_criteria.SetToleranceImpact(3, 1000);
    m_criteria.SetTolerancePercentageComments(25);
    m_criteria.SetToleranceCyclomaticComplexity(7);
    VirtualObject file;
    file.ViolationStats().IncrementCount(3, 500);
    file.ViolationStats().IncrementCount(3, 500);
    file.LineStats().SetCodeLines(3);
    file.LineStats().SetCommentOnlyLines(1);
    file.Properties().Add("MaximumCyclomatic", 7);
    modTolerances::SetTolerancePassValue(file, m_criteria, false);
    for (const std::string_view measure : {"MVC", "MVI", "PC", "CC"}) {
        EXPECT_TRUE(Pass(file, measure)) << measure;
    }
}

TEST_F(TolerancesTest, EachMeasureTakesItsOwnFigureAndLimit) {
    VirtualObject file;
    for (std::int32_t severity = 1; severity <= 5; ++severity) {
        for (std::int32_t number = 0; number < severity; ++number) {
            file.ViolationStats().IncrementCount(severity, 10);
        }
    }
    for (std::int32_t index = 1; index <= 6; ++index) {
        m_criteria.SetToleranceCount(index, 100 + index);
        m_criteria.SetToleranceImpact(index, 200 + index);
    }
    modTolerances::SetTolerancePassValue(file, m_criteria, false);
    constexpr std::array<std::int32_t, 12> kActual = {1, 2, 3, 4, 5, 15, 10, 20, 30, 40, 50, 150};
    for (std::size_t index = 0; index < kActual.size(); ++index) {
        const std::string name(modTolerances::kMeasures[index].Name);
        const auto place = static_cast<std::int32_t>(index % 6) + 1;
        EXPECT_EQ(file.Properties().Item(name).AsLong(), kActual[index]) << name;
        EXPECT_EQ(file.Properties().Item(name + "Limit").AsLong(), (index < 6 ? 100 : 200) + place)
            << name;
        EXPECT_TRUE(Pass(file, name)) << name;
    }
}

TEST_F(TolerancesTest, AFileOfBlankLinesOnlyHasPercentageZero) {
    EXPECT_EQ(Percentage(0, 0), 0);
    VirtualObject file;
    file.LineStats().SetBlankLines(10);
    m_criteria.SetTolerancePercentageComments(1);
    modTolerances::SetTolerancePassValue(file, m_criteria, false);
    EXPECT_FALSE(Pass(file, "PC"));
}

TEST_F(TolerancesTest, HalfAPercentagePointRoundsToTheEvenNeighbour) {
    EXPECT_EQ(Percentage(7, 1), 12);     // 12.5
    EXPECT_EQ(Percentage(173, 27), 14);  // 13.5
}

TEST_F(TolerancesTest, InLineCommentsCountAsComments) {
    EXPECT_EQ(Percentage(6, 1, 3), 40);  // 4 of 10
}

TEST_F(TolerancesTest, AFileWithoutProceduresHasNoComplexityMeasure) {
    m_criteria.SetToleranceCyclomaticComplexity(0);
    VirtualObject file;
    modTolerances::SetTolerancePassValue(file, m_criteria, false);
    EXPECT_FALSE(file.Properties().Contains("CC"));
}

TEST_F(TolerancesTest, TheProjectFileNeverFailsForCommentsOrComplexity) {
    m_criteria.SetTolerancePercentageComments(90);
    m_criteria.SetToleranceCyclomaticComplexity(0);
    m_criteria.SetToleranceCount(1, 0);
    Start();
    SetUpProject();
    auto projectFile = SetUpFile("Billing", "VBP");
    projectFile->ViolationStats().IncrementCount(1, 900);
    projectFile = Finish(std::move(projectFile), true);
    EXPECT_THAT(
        Rows(
            "SELECT PC, PCLimit, PCPass, CC, CCLimit, CCPass, CVC, CVCLimit, CVCPass FROM "
            "SourceFiles",
            9),
        ElementsAre("0|0|-1|0|0|-1|1|0|0"));
}

TEST_F(TolerancesTest, TheTwelveMeasuresOfAProjectFileAreJudgedLikeThoseOfAFile) {
    // Counts 1 to 5 and impacts 10 to 50; each limit is the figure itself or one below it.
    constexpr std::array<std::int32_t, 12> kActual = {1, 2, 3, 4, 5, 15, 10, 20, 30, 40, 50, 150};
    m_criteria.SetTolerancePercentageComments(90);
    m_criteria.SetToleranceCyclomaticComplexity(0);
    Start();
    SetUpProject();
    for (const std::int32_t below : {0, 1}) {
        for (std::size_t index = 0; index < kActual.size(); ++index) {
            const auto place = static_cast<std::int32_t>(index % 6) + 1;
            const std::int32_t limit = kActual[index] - below;
            if (index < 6) {
                m_criteria.SetToleranceCount(place, limit);
            } else {
                m_criteria.SetToleranceImpact(place, limit);
            }
        }
        auto projectFile = SetUpFile("Billing" + std::to_string(below), "VBP");
        for (std::int32_t severity = 1; severity <= 5; ++severity) {
            for (std::int32_t number = 0; number < severity; ++number) {
                projectFile->ViolationStats().IncrementCount(severity, 10);
            }
        }
        projectFile = Finish(std::move(projectFile), true);
        const std::string passes = below == 0 ? "-1" : "0";
        for (std::size_t index = 0; index < kActual.size(); ++index) {
            const std::string name(modTolerances::kMeasures[index].Name);
            EXPECT_THAT(
                Rows(
                    "SELECT " + name + ", " + name + "Limit, " + name +
                        "Pass, PCPass, CCPass FROM SourceFiles WHERE SourceID = " +
                        std::to_string(projectFile->ObjectID()),
                    5),
                ElementsAre(
                    std::to_string(kActual[index]) + "|" + std::to_string(kActual[index] - below) +
                    "|" + passes + "|-1|-1"))
                << name;
        }
        EXPECT_EQ(
            m_results.Verdict().TolerancePass(ItemType::File, projectFile->ObjectID()), below == 0);
    }
}

TEST_F(TolerancesTest, TheProjectFileHasBothMeasuresWithoutAnyTolerance) {
    VirtualObject projectFile;
    modTolerances::SetTolerancePassValue(projectFile, m_criteria, true);
    EXPECT_EQ(projectFile.Properties().Count(), 6);
    EXPECT_TRUE(Pass(projectFile, "PC"));
    EXPECT_TRUE(Pass(projectFile, "CC"));
}

TEST_F(TolerancesTest, MeasuringTwiceIsLoggedAndRaisesNothing) {
    m_criteria.SetToleranceCount(1, 0);
    VirtualObject file;
    modTolerances::SetTolerancePassValue(file, m_criteria, false);
    modTolerances::SetTolerancePassValue(file, m_criteria, false);
    EXPECT_TRUE(m_log.Contains("#C_VB6ProjectReview::SetTolerancePassValue"));
}

// ---- verdicts ----

TEST_F(TolerancesTest, OneFailingFileFailsTheProject) {
    m_criteria.SetToleranceCount(1, 0);
    m_criteria.SetToleranceCount(2, 5);
    Start();
    SetUpProject();
    const auto good = Finish(FileWithViolations("modA", 1, 0));
    const auto bad = Finish(FileWithViolations("modB", 1, 3));
    std::vector<ToleranceFailure> failures;
    EXPECT_FALSE(m_results.Verdict().TolerancePass(ItemType::Project, 0, failures));
    EXPECT_THAT(failures, ElementsAre(ToleranceFailure{"Critical Violation Count", 0, 0}));
    EXPECT_TRUE(m_results.Verdict().TolerancePass(ItemType::File, good->ObjectID()));
    failures.clear();
    EXPECT_FALSE(m_results.Verdict().TolerancePass(ItemType::File, bad->ObjectID(), failures));
    EXPECT_THAT(failures, ElementsAre(ToleranceFailure{"Critical Violation Count", 3, 0}));
}

TEST_F(TolerancesTest, AProjectWhoseFilesAllPassPasses) {
    m_criteria.SetToleranceCount(1, 1);
    Start();
    SetUpProject();
    Finish(FileWithViolations("modA", 1, 1));
    Finish(FileWithViolations("modB", 1, 0));
    EXPECT_TRUE(m_results.Verdict().TolerancePass(ItemType::Project, 0));
    EXPECT_THAT(Rows("SELECT MAX(CVCPass) As CVCResult FROM SourceFiles"), ElementsAre("-1"));
}

TEST_F(TolerancesTest, AMeasureThatNoFileHasIsNoFailure) {
    Start();
    SetUpProject();
    Finish(FileWithViolations("modA", 1, 5));
    std::vector<ToleranceFailure> failures;
    EXPECT_TRUE(m_results.Verdict().TolerancePass(ItemType::Project, 0, failures));
    EXPECT_THAT(failures, IsEmpty());
    EXPECT_TRUE(m_results.Verdict().TolerancePass(ItemType::File, 1, failures));
    EXPECT_TRUE(m_results.Verdict().TolerancePass(ItemType::File, 99, failures));  // no such file
    EXPECT_THAT(failures, IsEmpty());
    EXPECT_THAT(m_log.Entries(), IsEmpty());
}

TEST_F(TolerancesTest, FailuresComeInTheOrderOfTheMeasures) {
    m_criteria.SetToleranceCyclomaticComplexity(5);
    m_criteria.SetToleranceImpact(4, 50);
    m_criteria.SetToleranceCount(6, 0);
    Start();
    SetUpProject();
    auto file = FileWithViolations("modA", 4, 1);
    file->Properties().Add("MaximumCyclomatic", 6);
    file = Finish(std::move(file));
    std::vector<ToleranceFailure> failures;
    EXPECT_FALSE(m_results.Verdict().TolerancePass(ItemType::File, file->ObjectID(), failures));
    EXPECT_THAT(
        failures,
        ElementsAre(
            ToleranceFailure{"Total Violation Count", 1, 0},
            ToleranceFailure{"Low Violation Impact", 100, 50},
            ToleranceFailure{"Cyclomatic Complexity", 6, 5}));
}

TEST_F(TolerancesTest, AnErrorIsLoggedAndPasses) {
    EXPECT_TRUE(m_results.Verdict().TolerancePass(ItemType::Project, 0));
    EXPECT_TRUE(m_log.Contains("#C_ResultsDB::TolerancePass"));
}

// Required: the totals do not count as a tolerance here, while files still fail on them.
TEST_F(TolerancesTest, OnlyTheTotalSetCountsAsNoTolerance) {
    m_criteria.SetToleranceCount(6, 0);
    Start();
    SetUpProject();
    const auto file = Finish(FileWithViolations("modA", 3, 1));
    EXPECT_FALSE(m_results.Verdict().TolerancesSet());
    EXPECT_FALSE(m_results.Verdict().TolerancePass(ItemType::File, file->ObjectID()));
}

TEST_F(TolerancesTest, AnyOtherToleranceCounts) {
    EXPECT_FALSE(m_results.Verdict().TolerancesSet());  // nothing is open
    Start();
    EXPECT_FALSE(m_results.Verdict().TolerancesSet());
    for (const std::string_view column :
         {"ToleranceCount1",
          "ToleranceCount5",
          "ToleranceImpact1",
          "ToleranceImpact5",
          "ToleranceCyclomaticComplexity",
          "TolerancePercentageComments"}) {
        Database database;
        database.Open(m_path);
        database.Execute("UPDATE Review SET " + std::string(column) + " = 0");
        EXPECT_TRUE(m_results.Verdict().TolerancesSet()) << column;
        database.Execute("UPDATE Review SET " + std::string(column) + " = -1");
        EXPECT_FALSE(m_results.Verdict().TolerancesSet()) << column;
    }
}

}  // namespace
}  // namespace dorvik
