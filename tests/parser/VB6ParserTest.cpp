#include "parser/VB6Parser.h"

#include "base/BasicError.h"
#include "parser/ParserEventTable.h"
#include "parser/SourceFileReview.h"
#include "platform/host/IHostInput.h"
#include "platform/host/ScopedInstall.h"
#include "source/VirtualObject.h"
#include "support/CapturedLog.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace dorvik {
namespace {

using Values = std::vector<std::string>;

TEST(VB6Parser, LinesOfAClassFilesHeaderAreDeclarationLinesOfLineOne) {
    const char* text = "VERSION 1.0 CLASS\nBEGIN\n  MultiUse = -1\nEND\n"
                       "Attribute VB_Name = \"C\"\nOption Explicit\nDim x\n";
    EXPECT_EQ(EventsOf(FileType::Class, text), "3 9 4 10 4 10 4 10 4 10 4 10 4 10 4 10 25 27 35");
    SourceFileReview review(FileType::Class, text);
    EXPECT_EQ(
        review.ValuesAt(ParserEvent::Declaration, "Source", "LineNumber"),
        (Values{"1", "1", "1", "1", "1", "1", "2"}));
}

TEST(VB6Parser, FormWhoseBeginLineNeverComesStaysInTheHeader) {
    EXPECT_EQ(
        EventsOf(FileType::Form, "VERSION 5.00\nAttribute VB_Name = \"F\"\nDim x\n"), "3 4 4 4 35");
}

TEST(VB6Parser, FileThatEndsInsideAProcedureHasNoClosingEvent) {
    const std::string text = ModuleText("Sub A()\nIf x Then\nIf y Then\nEnd Sub\n"
                                        "Sub B()\nIf x Then\nIf x Then\nIf x Then\nIf x Then\n");
    SourceFileReview review(FileType::Module, text);
    EXPECT_EQ(review.Run(), TickResult::EndOfFile);
    EXPECT_EQ(review.Events().Count(ParserEvent::EndProcedure), 1);
    EXPECT_EQ(review.Events().Count(ParserEvent::EndFile), 1);
    // The open procedure does not enter the figures.
    EXPECT_EQ(review.FileProperty("AverageCyclomatic"), "3");
    EXPECT_EQ(review.FileProperty("MaximumCyclomatic"), "3");
}

TEST(VB6Parser, FileThatEndsInsideAnEnumHasNeitherItsEndNorAnEndOfDeclarations) {
    EXPECT_EQ(EventsOf(FileType::Module, "Enum E\nA\n"), "3 9 4 10 14 4 15 16 35");
}

TEST(VB6Parser, EndOfDeclarationsIsFiredOnceWithAndWithoutAProcedure) {
    EXPECT_EQ(EventsOf(FileType::Module, "Dim x\n"), "3 9 4 10 25 27 35");
    EXPECT_EQ(
        EventsOf(FileType::Module, "Sub A()\nEnd Sub\nSub B()\nEnd Sub\n"),
        "3 9 4 27 28 4 34 4 28 4 34 35");
}

TEST(VB6Parser, EmptyFileHasItsFramingEventsOnly) {
    EXPECT_EQ(EventsOf(FileType::Module, ""), "3 9 27 35");
    EXPECT_EQ(EventsOf(FileType::Form, ""), "3 35");
}

TEST(VB6Parser, LastLineIsStillCurrentAtTheEndOfDeclarationsAndNoneAtTheEndOfTheFile) {
    SourceFileReview review(FileType::Module, ModuleText("' note\nDim x\n"));
    EXPECT_EQ(review.ValuesAt(ParserEvent::EndDeclarations, "Source", "Line"), Values{"Dim x"});
    SourceFileReview again(FileType::Module, ModuleText("' note\nDim x\n"));
    EXPECT_EQ(
        again.ValuesAt(ParserEvent::EndDeclarations, "Source", "CommentBlock"),
        Values{"' note\r\n"});
    SourceFileReview third(FileType::Module, ModuleText("' note\nDim x\n"));
    EXPECT_EQ(third.ValuesAt(ParserEvent::EndFile, "Source", "Line"), Values{""});
    EXPECT_EQ(third.State().CurrentLineType(), LineType::None);
}

TEST(VB6Parser, CommentLineBetweenProceduresFiresTheLineEventOnlyAndReachesTheNextProcedure) {
    const std::string text = ModuleText("Sub A()\nEnd Sub\n' about B\n\nSub B()\nEnd Sub\n");
    EXPECT_EQ(EventsOf(FileType::Module, text), "3 9 4 10 4 27 28 4 34 4 4 28 4 34 35");
    SourceFileReview review(FileType::Module, text);
    EXPECT_EQ(
        review.ValuesAt(ParserEvent::BeginProcedure, "Source", "CommentBlock"),
        (Values{"", "' about B\r\n"}));
}

TEST(VB6Parser, CommentBlockGrowsLineByLineAndEndsWithTheNextReadAfterCode) {
    SourceFileReview review(
        FileType::Module, ModuleText("Sub A()\n  ' one\n  Rem two\n  x = 1\n  y = 2\nEnd Sub\n"));
    EXPECT_EQ(
        review.ValuesAt(ParserEvent::ProcedureBody, "Source", "CommentBlock"),
        (Values{"' one\r\n", "' one\r\nRem two\r\n", "' one\r\nRem two\r\n", ""}));
}

TEST(VB6Parser, MultiStatementLineFiresItsLineOnceAndItsStatementsOneByOne) {
    const std::string text = ModuleText("Sub A()\nx = 1: y = 2\nz = 3\nEnd Sub\n");
    EXPECT_EQ(EventsOf(FileType::Module, text), "3 9 4 10 4 27 28 4 30 30 4 30 4 34 35");
    SourceFileReview review(FileType::Module, text);
    EXPECT_EQ(
        review.ValuesAt(ParserEvent::ProcedureBody, "Source", "Statement"),
        (Values{"x = 1", "y = 2", "z = 3"}));
    SourceFileReview again(FileType::Module, text);
    EXPECT_EQ(
        again.ValuesAt(ParserEvent::ProcedureBody, "Source", "Line"),
        (Values{"x = 1: y = 2", "x = 1: y = 2", "z = 3"}));
}

TEST(VB6Parser, CommentLineWithColonsIsOneStatementAndNoLabel) {
    for (const std::string_view comment : {"Rem x: y = 1", "'note: z", "'note:"}) {
        const std::string text = ModuleText("Sub A()\n" + std::string(comment) + "\nEnd Sub\n");
        EXPECT_EQ(EventsOf(FileType::Module, text), "3 9 4 10 4 27 28 4 30 4 34 35") << comment;
    }
}

TEST(VB6Parser, LastStatementOfAMultiStatementLineIsLeftEmptyUntilTheNextLine) {
    SourceFileReview review(FileType::Module, "Dim x: Dim y\n");
    review.Tick();
    EXPECT_EQ(review.Tick(), TickResult::Continue);
    EXPECT_EQ(review.State().SourceStatement(), "");
}

TEST(VB6Parser, BlankLineFiresNothingAndAdvancesTheLineNumber) {
    const std::string text = ModuleText("\nDim a\n \t\n\nDim b _\n  , c\nDim d\n");
    EXPECT_EQ(EventsOf(FileType::Module, text), "3 9 4 10 4 10 25 4 10 25 25 4 10 25 27 35");
    SourceFileReview review(FileType::Module, text);
    EXPECT_EQ(
        review.ValuesAt(ParserEvent::Declaration, "Source", "LineNumber"),
        (Values{"1", "2", "5", "7"}));
    EXPECT_EQ(review.File().FileStats()->LineStats().BlankLines(), 3);
    EXPECT_EQ(review.File().FileStats()->LineStats().TotalLines(), 6);
}

TEST(VB6Parser, LinesBeforeTheNameAttributeAreNotCounted) {
    SourceFileReview review(FileType::Module, "Dim a\n\nAttribute VB_Name = \"M\"\nDim b\n");
    review.Run();
    EXPECT_EQ(review.File().FileStats()->LineStats().TotalLines(), 1);
    SourceFileReview without(FileType::Module, "Dim a\nDim b\n");
    without.Run();
    EXPECT_EQ(without.File().FileStats()->LineStats().TotalLines(), 0);
}

TEST(VB6Parser, FirstCodeLineEndsTheHeaderComment) {
    SourceFileReview review(
        FileType::Module, ModuleText("' one\n\n' two\nOption Explicit\n' three\nDim x\n"));
    review.Run();
    EXPECT_EQ(review.FileProperty("HeaderComment"), "' one\r\n' two\r\n");
}

TEST(VB6Parser, HeaderCommentIsStoredOneReadLater) {
    SourceFileReview review(FileType::Module, ModuleText("' one\nOption Explicit\nDim x\n"));
    for (int tick = 0; tick < 4; ++tick) {
        EXPECT_EQ(review.FileProperty("HeaderComment"), "(none)");
        review.Tick();
    }
    EXPECT_EQ(review.State().SourceStatement(), "Option Explicit");
    EXPECT_EQ(review.FileProperty("HeaderComment"), "(none)");
    review.Tick();
    EXPECT_EQ(review.FileProperty("HeaderComment"), "' one\r\n");
}

TEST(VB6Parser, FileWithoutACommentAboveItsCodeHasAnEmptyHeaderComment) {
    SourceFileReview review(FileType::Module, ModuleText("Option Explicit\n' late\nDim x\n"));
    review.Run();
    EXPECT_EQ(review.FileProperty("HeaderComment"), "");
}

TEST(VB6Parser, FileOfCommentsOnlyHasNoHeaderComment) {
    SourceFileReview review(FileType::Module, ModuleText("' one\n' two\n\n"));
    review.Run();
    EXPECT_EQ(review.FileProperty("HeaderComment"), "(none)");
}

TEST(VB6Parser, AverageComplexityRoundsHalfToEven) {
    const auto average = [](std::string_view text) {
        SourceFileReview review(FileType::Module, text);
        review.Run();
        return review.FileProperty("AverageCyclomatic");
    };
    EXPECT_EQ(
        average("Sub A()\nIf x Then\nEnd Sub\nSub B()\nIf x Then\nIf x Then\nEnd Sub\n"), "2");
    EXPECT_EQ(
        average("Sub A()\nIf x Then\nIf x Then\nEnd Sub\n"
                "Sub B()\nIf x Then\nIf x Then\nIf x Then\nEnd Sub\n"),
        "4");
}

TEST(VB6Parser, FileWithoutProceduresStoresItsComplexityAsOne) {
    SourceFileReview review(FileType::Module, "Dim x\n");
    review.Run();
    EXPECT_EQ(review.FileProperty("AverageCyclomatic"), "1");
    EXPECT_EQ(review.FileProperty("MaximumCyclomatic"), "1");
}

TEST(VB6Parser, ReviewStatusIsStoredAsANumberAndTheLocationIsTheFile) {
    SourceFileReview review(FileType::Module, "Dim x\n");
    review.File().SetReviewStatus(SourceFileStatus::UnexpectedError);
    review.Run();
    EXPECT_EQ(
        review.File().FileStats()->Properties().Item("ReviewStatus"), Variant(std::int32_t{1}));
    EXPECT_EQ(review.State().CurrentLocation(), Location::File);
}

TEST(VB6Parser, DeclarationsAreInScopeFromTheBeginOfTheFile) {
    SourceFileReview review(FileType::Module, "");
    review.Run();
    EXPECT_EQ(review.Events().Records().front().Scope, (Values{"Project", "File", "Declarations"}));
    const auto declarations = review.State().GetVirtualObject("Declarations");
    EXPECT_TRUE(declarations->HasVLIST());
    EXPECT_EQ(declarations->ParentViolations(), "File");
}

TEST(VB6Parser, TickReturnsTheCharactersOfItsLine) {
    SourceFileReview review(FileType::Module, "Dim a _\n  , b\nDim c\n");
    review.Tick();
    EXPECT_EQ(review.Characters(), 0);
    review.Tick();
    EXPECT_EQ(review.Characters(), 14);
    review.Tick();
    EXPECT_EQ(review.Characters(), 5);
    review.Tick();
    EXPECT_EQ(review.Characters(), 0);
}

TEST(VB6Parser, TickThatEndsTheFileLeavesTheStateAsItWas) {
    SourceFileReview review(FileType::Module, "");
    EXPECT_EQ(review.Run(), TickResult::EndOfFile);
    EXPECT_EQ(review.Parser().CurrentState(), FileParserState::EndSourceFile);
}

TEST(VB6Parser, ErrorInAStateOperationIsLoggedAndFailsTheTick) {
    test::CapturedLog log;
    SourceFileReview review(FileType::Module, "Option Explicit\n");
    review.Events().SetHandler([](ParserEvent event) {
        if (event == ParserEvent::Declaration) {
            throw BasicError(13, "Type mismatch");
        }
    });
    EXPECT_EQ(review.Run(), TickResult::Failed);
    EXPECT_EQ(review.Parser().CurrentState(), FileParserState::DeclarationLine);
    ASSERT_EQ(log.Lines().size(), 1U);
    EXPECT_NE(log.Lines()[0].find("13 - Type mismatch"), std::string::npos);
    EXPECT_NE(log.Lines()[0].find("C_VB6Parser::State_DeclarationLine"), std::string::npos);
}

TEST(VB6Parser, ErrorInTheTickItselfIsLoggedAndFailsTheTick) {
    test::CapturedLog log;
    SourceFileReview review(FileType::Module, "Option Explicit\n");
    review.Events().SetHandler([](ParserEvent event) {
        if (event == ParserEvent::SourceLine) {
            throw BasicError(13, "Type mismatch");
        }
    });
    EXPECT_EQ(review.Run(), TickResult::Failed);
    ASSERT_EQ(log.Lines().size(), 1U);
    EXPECT_NE(log.Lines()[0].find("C_VB6Parser::ReviewTick"), std::string::npos);
}

TEST(VB6Parser, ParserThatWasNeverInitialisedFailsItsTick) {
    VB6Parser parser;
    std::int32_t characters = -1;
    TickResult result = TickResult::Continue;
    parser.ReviewTick(characters, result);
    EXPECT_EQ(result, TickResult::Failed);
    EXPECT_EQ(characters, 0);
}

class InputThatActs : public IHostInput {
public:
    bool InputIsWaiting() override { return true; }
    void ProcessInput() override {
        ++Calls;
        if (Act) {
            Act();
        }
    }

    int Calls = 0;
    std::function<void()> Act;
};

TEST(VB6Parser, WaitingInputIsLetInAfterEachRunOfAState) {
    InputThatActs input;
    const ScopedInstall<IHostInput> installed(input);
    SourceFileReview review(FileType::Module, "Dim a: Dim b: Dim c\n");
    review.Tick();
    EXPECT_EQ(input.Calls, 1);
    review.Tick();
    EXPECT_EQ(input.Calls, 4);
}

TEST(VB6Parser, ReviewThatInputEndsInsideATickStops) {
    InputThatActs input;
    const ScopedInstall<IHostInput> installed(input);
    SourceFileReview review(FileType::Module, "Dim a: Dim b\n");
    review.Tick();
    input.Act = [&] {
        review.Parser().UnhookCallback();
        review.Parser().Dispose();
    };
    EXPECT_EQ(review.Tick(), TickResult::Stopped);
}

TEST(VB6Parser, UnhookedParserContinuesWithoutReportingEvents) {
    SourceFileReview review(FileType::Module, "Dim a\n");
    review.Parser().UnhookCallback();
    EXPECT_EQ(review.Run(), TickResult::EndOfFile);
    EXPECT_EQ(review.Events().Numbers(), "");
}

/// The names in an "In scope: A, B." line, without "Source".
Values PromisedObjects(std::string_view line) {
    Values names;
    std::string_view rest =
        line.substr(0, line.find('.')).substr(std::string_view("In scope: ").size());
    while (!rest.empty()) {
        const std::size_t comma = std::min(rest.find(", "), rest.size());
        names.emplace_back(rest.substr(0, comma));
        rest.remove_prefix(std::min(comma + 2, rest.size()));
    }
    std::erase(names, "Source");
    return names;
}

TEST(VB6Parser, EveryEventFindsThePromisedObjectsInScope) {
    SourceFileReview review(
        FileType::Form,
        "VERSION 5.00\n"
        "Object = \"{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0\"; \"MSCOMCTL.OCX\"\n"
        "Begin VB.Form F\n   Begin VB.Label L\n   End\nEnd\n"
        "Attribute VB_Name = \"F\"\n"
        "Const C = 1\nDim v\nEvent E(a)\nImplements I\n"
        "Declare Sub S Lib \"k\" (ByVal a As Long)\n"
        "Enum En\nA\nEnd Enum\nType T\nA As Long\nEnd Type\n"
        "Sub P(a)\nConst C = 1\nDim v\nHere:\nEnd Sub\n");
    ASSERT_EQ(review.Run(), TickResult::EndOfFile);
    for (const auto& record : review.Events().Records()) {
        const auto& row = kParserEvents.at(static_cast<std::size_t>(record.Event) - 1);
        for (const std::string& name : PromisedObjects(row.InScope)) {
            EXPECT_NE(std::find(record.Scope.begin(), record.Scope.end(), name), record.Scope.end())
                << name << " at " << row.Text;
        }
    }
    for (int event = 3; event <= 35; ++event) {
        if (event != 26) {
            EXPECT_GT(review.Events().Count(static_cast<ParserEvent>(event)), 0) << event;
        }
    }
    EXPECT_EQ(review.State().ScopeNames(), (Values{"Project", "File", "Declarations"}));
}

TEST(VB6Parser, FailureWhileALineIsReadIsNoEndOfTheFile) {
    const test::CapturedLog log;
    SourceFileReview review(FileType::Module, ModuleText("Sub A()\nEnd Sub\n"));
    review.Tick();
    review.Tick();
    review.File().Disconnect();
    EXPECT_EQ(review.Run(), TickResult::Failed);
    EXPECT_EQ(review.FileProperty("AverageCyclomatic"), "(none)");
    EXPECT_TRUE(log.Contains("57 - Device I/O error"));
}

TEST(VB6Parser, FailureWhileALayoutIsReadIsNoEndOfTheFile) {
    const test::CapturedLog log;
    SourceFileReview review(FileType::Form, "VERSION 5.00\nBegin VB.Form F\nEnd\n");
    review.Tick();
    review.Tick();
    review.File().Disconnect();
    EXPECT_EQ(review.Run(), TickResult::Failed);
}

}  // namespace
}  // namespace dorvik
