#include "cli/CommandLineFixture.h"
#include "cli/ReportPages.h"
#include "platform/database/Database.h"
#include "settings/ComponentVersion.h"
#include "support/FilesystemPaths.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace dorvik::test {

namespace {

namespace fs = std::filesystem;

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

/// `dorvik review --report` and `dorvik report`.
class ReviewReports : public CommandLineFixture {
protected:
    ReviewReports() {
        WriteModuleProject("One", "    Stop");
        WriteModuleProject("Two", "    Beep");
    }

    ProgramResult Review(std::vector<std::string> words) const {
        words.insert(words.begin(), "review");
        words.insert(
            words.end(),
            {"--rulebase", DORVIK_RULEBASE, "--conventions", "uk", "--severity", "1,2,3,4,5"});
        return Run(std::move(words));
    }

    /// Names of the pages below a folder.
    std::vector<std::string> Pages(const std::string& folder) const {
        std::vector<std::string> names;
        if (Exists(folder)) {
            for (const ReportPage& page : PagesBelow(Work(folder))) {
                names.push_back(page.File.filename().string());
            }
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    /// The rows of the tables of a page, with what stands in front of the first row of each.
    static std::vector<std::string> RowsOf(const std::string& page) {
        constexpr std::string_view kEnd = "</tr>";
        std::vector<std::string> rows;
        std::size_t begin = 0;
        for (auto end = page.find(kEnd); end != std::string::npos; end = page.find(kEnd, begin)) {
            rows.push_back(page.substr(begin, end - begin));
            begin = end + kEnd.size();
        }
        rows.push_back(page.substr(begin));
        return rows;
    }

    std::string NotWritten(const std::string& page) const {
        const std::string place = "'" + Work("out/" + page).string() + "'";
        return "dorvik: the report of '" + Work("One.vbp").string() + "' was not written to " +
               place + ": " + place + " is a folder where a file is needed";
    }

    std::string Wrote(const std::string& name) const {
        return "Wrote '" + Work(name).string() + "'\n";
    }
};

}  // namespace

TEST_F(ReviewReports, AReviewWritesNoneUnlessAsked) {
    EXPECT_EQ(Review({"One.vbp", "Two.vbp"}).ExitCode, 0);
    EXPECT_EQ(Review({"One.vbp", "Two.vbp", "--report", "none"}).ExitCode, 0);
    EXPECT_THAT(Pages("."), IsEmpty());
}

TEST_F(ReviewReports, ASummaryIsOnePageBesideTheProject) {
    const ProgramResult result = Review({"One.vbp", "--report", "summary"});
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_THAT(Pages("."), ElementsAre("One_Dorvik.html"));
    EXPECT_THAT(result.Output, ::testing::EndsWith(Wrote("Dorvik/One_Dorvik.html")));
}

TEST_F(ReviewReports, DetailedHasAPageForEachFileAndSaysWhich) {
    const ProgramResult result = Review({"One.vbp", "--report", "detailed", "--reports", "pages"});
    EXPECT_THAT(Pages("pages"), ElementsAre("One_Dorvik.html", "One_One_Detail.html"))
        << "module and project file share the name of their page";
    EXPECT_THAT(result.Output, HasSubstr(Wrote("pages/One_Dorvik.html")));
    EXPECT_THAT(Pages("Dorvik"), IsEmpty());
}

TEST_F(ReviewReports, PagesOfOneNameAreTold) {
    const ProgramResult result = Review({"One.vbp", "--report", "detailed", "--reports", "pages"});
    EXPECT_THAT(
        result.Error,
        HasSubstr(
            "the page '" + Work("pages/One_One_Detail.html").string() +
            "' was written more than once"));
    ExpectClearSentences(result);
}

TEST_F(ReviewReports, ManyPagesAreToldByTheirFolder) {
    CopySample("Billing");
    CopySample("Clinic");
    const ProgramResult result =
        Review({"Billing", "Clinic", "--report", "detailed", "--reports", "pages"});
    EXPECT_THAT(result.Output, HasSubstr("Wrote 18 pages into '" + Work("pages").string() + "'\n"));
}

TEST_F(ReviewReports, QuietSaysNothingOfThem) {
    EXPECT_EQ(Review({"One.vbp", "--report", "summary", "--quiet"}).Output, "");
    EXPECT_TRUE(Exists("Dorvik/One_Dorvik.html"));
}

TEST_F(ReviewReports, SeveralProjectsHaveAPageOfTheBatchBesideTheFirst) {
    const ProgramResult result = Review({"One.vbp", "Two.vbp", "--report", "summary"});
    EXPECT_THAT(
        Pages("Dorvik"),
        ElementsAre("One_Dorvik.html", "Review_batch_BatchSummary.html", "Two_Dorvik.html"));
    EXPECT_THAT(
        Bytes("Dorvik/Review_batch_BatchSummary.html"), HasSubstr("<h1>Review of 2 projects</h1>"));
    EXPECT_THAT(result.Output, HasSubstr(Wrote("Dorvik/Review_batch_BatchSummary.html")));
}

TEST_F(ReviewReports, ABatchTitleNamesThePageAlsoOfOneProject) {
    Review({"One.vbp", "--report", "summary", "--batch-title", "Night: 21/11", "--reports", "out"});
    EXPECT_THAT(
        Pages("out"), ElementsAre("Night_ 21_11_batch_BatchSummary.html", "One_Dorvik.html"));
    EXPECT_THAT(
        Bytes("out/Night_ 21_11_batch_BatchSummary.html"), HasSubstr("<h1>Night: 21/11</h1>"));
}

TEST_F(ReviewReports, AProjectGroupNamesItsBatch) {
    WriteLines("Shop.vbg", {"VBGROUP 5.0", "StartupProject=One.vbp", "Project=Two.vbp"});
    Review({"Shop.vbg", "--report", "summary"});
    EXPECT_THAT(
        Bytes("Dorvik/Shop_vbg_BatchSummary.html"),
        HasSubstr(
            "<td align=\"left\" width=\"30%\">Batch</td><td align=\"left\" width=\"70%\">" +
            Work("Shop.vbg").string() + "</td>"));
    EXPECT_THAT(Bytes("Dorvik/Shop_vbg_BatchSummary.html"), HasSubstr("<h1>Shop</h1>"));
    EXPECT_THAT(Bytes("Dorvik/Shop_vbg_BatchSummary.html"), Not(HasSubstr("30/12/1899")));
}

TEST_F(ReviewReports, AProjectThatCannotBeLoadedIsAnErrorOfTheBatch) {
    WriteLines("Bad.vbp", {"Module=a; a.bas", "Module=a; a.bas", "Name=\"Bad\""});
    const ProgramResult result = Review({"Bad.vbp", "One.vbp", "--report", "summary"});
    EXPECT_EQ(result.ExitCode, 3);
    EXPECT_THAT(
        Bytes("Dorvik/Review_batch_BatchSummary.html"),
        HasSubstr("<td align=\"left\">Bad.vbp</td><td align=\"left\" class=\"error\">Error</td>"));
}

TEST_F(ReviewReports, ResultsOfAnEarlierReviewOnThePageOfTheBatchAreTold) {
    EXPECT_EQ(Review({"One.vbp"}).ExitCode, 0);
    WriteLines("One.vbp", {"Module=a; a.bas", "Module=a; a.bas", "Name=\"One\""});
    const std::string older =
        "dorvik: the page of the batch shows the results of an earlier review";
    const ProgramResult result = Review({"One.vbp", "Two.vbp", "--report", "summary"});
    EXPECT_EQ(result.ExitCode, 3);
    EXPECT_THAT(
        Bytes("Dorvik/Review_batch_BatchSummary.html"),
        HasSubstr(">One.vbp</a></td><td class=\"pass\">Pass</td>"));
    EXPECT_THAT(
        result.Errors(),
        Contains(
            older + " of '" + Work("One.vbp").string() +
            "', because it could not be reviewed this time"));
    ExpectClearSentences(result);

    fs::remove(Work("Dorvik/One_DORVIK.mdb"));
    EXPECT_THAT(Review({"One.vbp", "Two.vbp", "--report", "summary"}).Error, Not(HasSubstr(older)));
    EXPECT_THAT(
        Bytes("Dorvik/Review_batch_BatchSummary.html"),
        HasSubstr("<td align=\"left\">One.vbp</td><td align=\"left\" class=\"error\">Error</td>"));
}

TEST_F(ReviewReports, WithoutAPageOfTheBatchNothingIsSaidOfEarlierResults) {
    Review({"One.vbp"});
    WriteLines("One.vbp", {"Module=a; a.bas", "Module=a; a.bas", "Name=\"One\""});
    EXPECT_THAT(Review({"One.vbp", "Two.vbp"}).Error, Not(HasSubstr("earlier review")));
}

TEST_F(ReviewReports, ModernAddsAPageAProjectToTheClassicOnes) {
    const std::vector<std::string> common = {
        "One.vbp", "Two.vbp", "--report-style", "modern", "--batch-title", "Night", "--report"};
    const auto review = [&](const std::string& detail, const std::string& folder) {
        std::vector<std::string> words = common;
        words.insert(words.end(), {detail, "--reports", folder});
        return Review(words);
    };
    const ProgramResult result = review("summary", "out");
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_THAT(
        Pages("out"),
        ElementsAre(
            "Night_batch_BatchSummary.html",
            "One_Dorvik.html",
            "One_Review.html",
            "Two_Dorvik.html",
            "Two_Review.html"));
    EXPECT_THAT(Pages("Dorvik"), IsEmpty());
    EXPECT_THAT(result.Output, HasSubstr(Wrote("out/One_Dorvik.html")));
    EXPECT_THAT(result.Output, HasSubstr(Wrote("out/One_Review.html")));
    EXPECT_THAT(Bytes("out/One_Review.html"), HasSubstr("<!DOCTYPE html>"));
    EXPECT_THAT(Bytes("out/Night_batch_BatchSummary.html"), HasSubstr("<h1>Night</h1>"));

    EXPECT_EQ(review("detailed", "all").ExitCode, 0);
    EXPECT_THAT(Pages("all"), SizeIs(7));
    EXPECT_TRUE(Exists("all/One_One_Detail.html"));
    EXPECT_TRUE(Exists("all/Two_Review.html"));
    EXPECT_EQ(review("none", "nothing").ExitCode, 0);
    EXPECT_FALSE(Exists("nothing"));
}

TEST_F(ReviewReports, APageThatCannotBeWrittenMakesTheReviewIncomplete) {
    fs::create_directories(Work("out/One_Dorvik.html"));
    fs::create_directories(Work("out/One_Review.html"));
    for (const std::string style : {"classic", "modern"}) {
        const ProgramResult result =
            Review({"One.vbp", "--report", "summary", "--report-style", style, "--reports", "out"});
        EXPECT_EQ(result.ExitCode, 3) << style;
        EXPECT_THAT(result.Errors(), SizeIs(style == "modern" ? 2 : 1));
        EXPECT_THAT(result.Error, HasSubstr(NotWritten("One_Dorvik.html")));
        EXPECT_THAT(result.Output, Not(HasSubstr("Wrote")));
        ExpectClearSentences(result);
        if (style == "modern") {
            EXPECT_THAT(result.Error, HasSubstr(NotWritten("One_Review.html")));
        }
    }
}

TEST_F(ReviewReports, ThePageOfTheBatchThatCannotBeWrittenIsTold) {
    fs::create_directories(Work("out/Review_batch_BatchSummary.html"));
    const ProgramResult result =
        Review({"One.vbp", "Two.vbp", "--report", "summary", "--reports", "out"});
    EXPECT_EQ(result.ExitCode, 3);
    EXPECT_THAT(result.Errors(), SizeIs(1));
    EXPECT_THAT(
        result.Error,
        HasSubstr(
            "the report of the batch was not written to '" +
            Work("out/Review_batch_BatchSummary.html").string() + "'"));
}

TEST_F(ReviewReports, PagesOfFilesThatCannotBeWrittenAreToldByBothCommands) {
    CopySample("Billing");
    for (const std::string page : {"modGlobals_modGlobals", "modPricing_modPricing"}) {
        fs::create_directories(Work("out/" + page + "_Detail.html"));
    }
    const std::vector<ProgramResult> results = {
        Review({"Billing", "--report", "detailed", "--reports", "out", "--tolerance", "CVC=0"}),
        Run({"report", "Billing/Dorvik/Billing_DORVIK.mdb", "--detailed", "--reports", "out"})};
    for (const ProgramResult& result : results) {
        EXPECT_EQ(result.ExitCode, 3) << result.Error;
        EXPECT_THAT(result.Errors(), SizeIs(2));
        for (const std::string page : {"modGlobals_modGlobals", "modPricing_modPricing"}) {
            const std::string place = "'" + Work("out/" + page + "_Detail.html").string() + "'";
            EXPECT_THAT(
                result.Error,
                HasSubstr(
                    "dorvik: the page of a source file was not written to " + place + ": " + place +
                    " is a folder where a file is needed"));
        }
        ExpectClearSentences(result);
        EXPECT_THAT(result.Output, HasSubstr(Wrote("out/Billing_Dorvik.html")));
    }
    EXPECT_TRUE(Exists("out/Billing_Dorvik.html"));
}

TEST_F(ReviewReports, OptionsOfReportsNeedAReport) {
    const std::vector<std::vector<std::string>> alone = {
        {"--reports", "out"}, {"--report-style", "modern"}, {"--batch-title", "Night"}};
    for (const std::vector<std::string>& words : alone) {
        const ProgramResult result = Run({"review", "One.vbp", words[0], words[1]});
        EXPECT_EQ(result.ExitCode, 2) << words[0];
        EXPECT_THAT(result.Error, HasSubstr(words[0] + " requires --report"));
    }
    EXPECT_EQ(Run({"review", "One.vbp", "--report", "full"}).ExitCode, 2);
    EXPECT_EQ(Run({"review", "One.vbp", "--report", "summary", "--report-style", "x"}).ExitCode, 2);
}

// ---- from finished databases ----

TEST_F(ReviewReports, ReportWritesThePagesAgainBesideTheDatabase) {
    Review({"One.vbp"});
    const ProgramResult result = Run({"report", "Dorvik/One_DORVIK.mdb"});
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_EQ(result.Output, Wrote("Dorvik/One_Dorvik.html"));
    EXPECT_THAT(Bytes("Dorvik/One_Dorvik.html"), HasSubstr("Not known"));
    EXPECT_THAT(Bytes("Dorvik/One_Dorvik.html"), HasSubstr(Work("Dorvik/One_DORVIK.txt").string()));
}

TEST_F(ReviewReports, ReportSaysTheSameAsTheReviewButForWhatOnlyThatKnew) {
    CopySample("Billing");
    Review({"Billing", "--report", "detailed", "--tolerance", "CVC=0"});
    Run({"report", "Billing/Dorvik/Billing_DORVIK.mdb", "--detailed", "--reports", "again"});
    const std::vector<std::string> names = Pages("again");
    EXPECT_EQ(names, Pages("Billing/Dorvik"));
    std::vector<std::string> differ;
    for (const std::string& name : names) {
        const std::vector<std::string> rows = RowsOf(Bytes("Billing/Dorvik/" + name));
        const std::vector<std::string> again = RowsOf(Bytes("again/" + name));
        ASSERT_EQ(rows.size(), again.size()) << name;
        for (std::size_t row = 0; row < rows.size(); ++row) {
            if (rows[row] != again[row]) {
                differ.push_back(name + ": " + rows[row]);
                differ.push_back(again[row]);
            }
        }
    }
    const std::string page = "Billing_Dorvik.html: ";
    const std::string file = "<tr><td align=\"left\">Rulebase Filename</td><td>";
    const std::string engine = "<tr><td align=\"left\">Rule Engine</td><td>";
    EXPECT_THAT(
        differ,
        ElementsAre(
            page + file + DORVIK_RULEBASE + "</td>",
            file + "Not known</td>",
            page + engine + "Dorvik Rule Engine " + ComponentVersion() + "</td>",
            engine + "Not known</td>",
            page + "<tr><td colspan=\"2\">All Source Files</td>",
            "<tr><td colspan=\"2\">8 Source Files Reviewed</td>"));
}

TEST_F(ReviewReports, ReportTakesSeveralDatabasesAndWritesNoPageOfABatch) {
    Review({"One.vbp", "Two.vbp", "--results", "results"});
    const ProgramResult result =
        Run({"report", "results/One_DORVIK.mdb", "results/Two_DORVIK.mdb", "--reports", "out"});
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_THAT(Pages("out"), ElementsAre("One_Dorvik.html", "Two_Dorvik.html"));
    EXPECT_EQ(
        Run({"report", "results/One_DORVIK.mdb", "--report-style", "modern", "--quiet"}).Output,
        "");
    EXPECT_THAT(Pages("results"), ElementsAre("One_Dorvik.html", "One_Review.html"));
}

TEST_F(ReviewReports, ReportGoesOnBehindADatabaseThatIsNone) {
    Review({"One.vbp"});
    WriteBytes("bad.mdb", "no database");
    const ProgramResult result =
        Run({"report", "bad.mdb", "missing.mdb", "Dorvik/One_DORVIK.mdb", "--reports", "out"});
    EXPECT_EQ(result.ExitCode, 3);
    EXPECT_THAT(result.Errors(), SizeIs(2));
    ExpectClearSentences(result);
    EXPECT_THAT(Pages("out"), ElementsAre("One_Dorvik.html"));
    EXPECT_EQ(Run({"report", "bad.mdb"}).ExitCode, 2);
    EXPECT_EQ(Run({"report"}).ExitCode, 2);
}

TEST_F(ReviewReports, ReportOfAnUnfinishedReviewIsRefused) {
    Review({"One.vbp"});
    Database database;
    database.Open(test::ProgramPath(Work("Dorvik/One_DORVIK.mdb")));
    database.Execute("UPDATE Review SET [End] = NULL");
    database.Close();
    const ProgramResult result = Run({"report", "Dorvik/One_DORVIK.mdb"});
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_THAT(result.Error, HasSubstr("did not finish"));
    ExpectClearSentences(result);
    EXPECT_THAT(Pages("."), IsEmpty());
}

TEST_F(ReviewReports, ReportThatCannotBeWrittenIsTold) {
    Review({"One.vbp"});
    fs::create_directories(Work("out/One_Dorvik.html"));
    const std::vector<std::string> words = {"report", "Dorvik/One_DORVIK.mdb", "--reports", "out"};
    const ProgramResult result = Run(words);
    EXPECT_EQ(result.ExitCode, 2) << "there is no page at all";
    EXPECT_THAT(result.Errors(), SizeIs(1));
    ExpectClearSentences(result);

    std::vector<std::string> modern = words;
    modern.insert(modern.end(), {"--report-style", "modern"});
    const ProgramResult other = Run(modern);
    EXPECT_EQ(other.ExitCode, 3) << "the modern page is there";
    EXPECT_EQ(other.Output, Wrote("out/One_Review.html"));
    EXPECT_EQ(other.Error, result.Error);
}

TEST_F(ReviewReports, ReportWritesTheModernPageBesideTheClassicOnes) {
    Review({"One.vbp"});
    Run({"report", "Dorvik/One_DORVIK.mdb", "--report-style", "modern", "--detailed"});
    EXPECT_THAT(
        Pages("Dorvik"), ElementsAre("One_Dorvik.html", "One_One_Detail.html", "One_Review.html"));
}

// ---- links ----

TEST_F(ReviewReports, EveryLinkAndAnchorOfTheSamplesMeetsItsTarget) {
    for (const std::string sample : {"Billing", "Clinic", "Warehouse"}) {
        CopySample(sample);
    }
    Review(
        {"Billing", "Clinic", "Warehouse", "--report", "detailed", "--tolerance", "CVC=0,HVC=0"});
    const std::vector<ReportPage> pages = PagesBelow(Work(""));
    EXPECT_THAT(pages, SizeIs(25));
    EXPECT_THAT(BrokenLinks(pages), IsEmpty());
    std::size_t links = 0;
    for (const ReportPage& page : pages) {
        links += page.Links.size();
    }
    EXPECT_GT(links, 200U) << "hardly any link was found";
}

TEST_F(ReviewReports, ThePagesOfOneFolderCanBeMovedAsAWhole) {
    for (const std::string sample : {"Billing", "Clinic", "Warehouse"}) {
        CopySample(sample);
    }
    Review({"Billing", "Clinic", "Warehouse", "--report", "detailed", "--reports", "pages"});
    fs::rename(Work("pages"), Work("somewhere else"));
    const std::vector<ReportPage> pages = PagesBelow(Work("somewhere else"));
    EXPECT_THAT(pages, SizeIs(25));
    EXPECT_THAT(BrokenLinks(pages, /*withFullPaths=*/false), IsEmpty());
    for (const ReportPage& page : pages) {
        for (const std::string& link : page.Links) {
            EXPECT_TRUE(!link.starts_with('/') || link.ends_with("_DORVIK.txt"))
                << page.File << " links to a full path other than that of the log: " << link;
        }
    }
}

TEST_F(ReviewReports, LinksOfAwkwardNamesMeetTheirTargets) {
    WriteLines(
        "100% #1 & more/Größe?.vbp",
        {"Type=Exe",
         "Module=modA; Stra\xDF"
         "e 50%.bas",
         "Module=modB; #b&c.bas",
         "Name=\"Awkward\""});
    for (const std::string name : {"Straße 50%.bas", "#b&c.bas"}) {
        WriteLines(
            "100% #1 & more/" + name,
            {"Attribute VB_Name = \"modA\"", "Sub Work()", "    Stop", "End Sub"});
    }
    const ProgramResult result = Review({"100% #1 & more/Größe?.vbp", "--report", "detailed"});
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    const std::vector<ReportPage> pages = PagesBelow(Work("100% #1 & more"));
    EXPECT_THAT(pages, SizeIs(4));
    EXPECT_THAT(BrokenLinks(pages), IsEmpty());
}

}  // namespace dorvik::test
