#include "workstation/filehost/CodeSearch.h"

#include "workstation/filehost/FileHost.h"
#include "workstation/filehost/HostFolder.h"
#include "workstation/filehost/modCodeEdits.h"

#include <gtest/gtest.h>

#include <optional>

namespace dorvik {

namespace {

/// A module of four lines, and a search in it.
class SearchedModule {
public:
    SearchedModule() {
        m_folder.Write(
            "m.bas",
            test::Dos("\xEF\xBB\xBF"
                      "Attribute VB_Name = \"m\"\nab Ab\n\n  'äb abc\nend\n"));
        m_host.Open(m_folder.Write("P.vbp", test::Dos("Module=m; m.bas\nName=\"P\"\n")));
        Search.emplace(Module());
        Search->SetText("ab");
    }

    FileCodeModule& Module() { return m_host.Project(1).Component(1).CodeModule(); }

    std::optional<CodeSearch> Search;

private:
    test::TemporaryFolder m_folder;
    FileHost m_host;
};

using Ranges = std::vector<CodeRange>;

const CodeRange kFirst{1, 1, 1, 3};
const CodeRange kSecond{1, 4, 1, 6};
const CodeRange kThird{3, 7, 3, 9};

}  // namespace

TEST(CodeSearch, FindsAllPlacesInCharacters) {
    SearchedModule searched;
    EXPECT_EQ(searched.Search->Hits(), (Ranges{kFirst, kSecond, kThird}));
    FindOptions options;
    options.MatchCase = true;
    searched.Search->SetOptions(options);
    EXPECT_EQ(searched.Search->Hits(), (Ranges{kFirst, kThird}));
    options.WholeWord = true;
    searched.Search->SetOptions(options);
    EXPECT_EQ(searched.Search->Hits(), Ranges{kFirst});
    searched.Search->SetText("");
    EXPECT_TRUE(searched.Search->Hits().empty());
}

TEST(CodeSearch, GoesOnFromAHitAndAroundTheEnd) {
    const SearchedModule searched;
    using Hit = CodeSearch::Hit;
    EXPECT_EQ(searched.Search->Next({1, 1, 1, 1}), (Hit{kFirst, 1, false}));
    EXPECT_EQ(searched.Search->Next(kFirst), (Hit{kSecond, 2, false}));
    EXPECT_EQ(searched.Search->Next({1, 2, 1, 2}), (Hit{kSecond, 2, false}));
    EXPECT_EQ(searched.Search->Next(kThird), (Hit{kFirst, 1, true}));
    EXPECT_EQ(searched.Search->Previous(kThird), (Hit{kSecond, 2, false}));
    EXPECT_EQ(searched.Search->Previous(kFirst), (Hit{kThird, 3, true}));
    EXPECT_EQ(searched.Search->NumberOf(kSecond), 2U);
    EXPECT_EQ(searched.Search->NumberOf({1, 2, 1, 4}), 0U);
}

TEST(CodeSearch, StopsAtTheEndsWhereItIsToldTo) {
    SearchedModule searched;
    searched.Search->SetWraps(false);
    EXPECT_EQ(searched.Search->Next(kThird), std::nullopt);
    EXPECT_EQ(searched.Search->Previous(kFirst), std::nullopt);
    EXPECT_EQ(searched.Search->Next(kFirst)->Number, 2U);
}

TEST(CodeSearch, ReplacesAHitOnly) {
    SearchedModule searched;
    EXPECT_FALSE(searched.Search->Replace({1, 2, 1, 4}, "x"));
    EXPECT_TRUE(searched.Search->Replace(kThird, "€"));
    EXPECT_EQ(searched.Module().Texts()[2], "  'äb €c");
    EXPECT_EQ(searched.Search->Hits(), (Ranges{kFirst, kSecond}));
}

TEST(CodeSearch, ReplacesAllInOneStep) {
    SearchedModule searched;
    EXPECT_EQ(searched.Search->ReplaceAll("abab"), 3U);
    EXPECT_EQ(searched.Module().Lines(1, 9), "abab abab\r\n\r\n  'äb ababc\r\nend");
    searched.Module().Undo();
    EXPECT_EQ(searched.Module().Lines(1, 9), "ab Ab\r\n\r\n  'äb abc\r\nend");
    EXPECT_FALSE(searched.Module().CanUndo());
    EXPECT_FALSE(searched.Module().IsDirty());
    searched.Search->SetText("none");
    EXPECT_EQ(searched.Search->ReplaceAll("x"), 0U);
    EXPECT_FALSE(searched.Module().IsDirty());
}

TEST(CodeSearch, ScopeMovesWithItsLines) {
    SearchedModule searched;
    searched.Search->SetScope(CodeRange{1, 3, 3, 9});
    EXPECT_EQ(searched.Search->Hits(), (Ranges{kSecond, kThird}));
    searched.Module().InsertLines(1, "ab");
    EXPECT_EQ(searched.Search->Hits(), (Ranges{{2, 4, 2, 6}, {4, 7, 4, 9}}));
    EXPECT_EQ(searched.Search->ReplaceAll("abab"), 2U);
    EXPECT_EQ(searched.Module().Lines(1, 9), "ab\r\nab abab\r\n\r\n  'äb ababc\r\nend");
    EXPECT_EQ(searched.Search->Hits().size(), 4U) << "the scope has grown with its last line";
    searched.Search->SetScope(std::nullopt);
    EXPECT_EQ(searched.Search->Hits().size(), 6U);
}

TEST(modCodeEdits, LinesBecomeCommentsAndCodeAgain) {
    SearchedModule searched;
    FileCodeModule& module = searched.Module();
    modCodeEdits::Comment(module, 0, 3);
    EXPECT_EQ(module.Lines(1, 9), "'ab Ab\r\n'\r\n'  'äb abc\r\nend");
    modCodeEdits::Uncomment(module, 1, 99);
    EXPECT_EQ(module.Lines(1, 9), "ab Ab\r\n\r\n  'äb abc\r\nend");
    modCodeEdits::Uncomment(module, 3, 3);
    EXPECT_EQ(module.Texts()[2], "  äb abc");
    module.Undo();
    module.Undo();
    module.Undo();
    EXPECT_FALSE(module.IsDirty());
    modCodeEdits::Uncomment(module, 1, 2);
    EXPECT_FALSE(module.IsDirty()) << "nothing to take away";
    EXPECT_EQ(modCodeEdits::Indentation("  \tx y"), "  \t");
    EXPECT_EQ(modCodeEdits::Indentation("  "), "  ");
}

}  // namespace dorvik
