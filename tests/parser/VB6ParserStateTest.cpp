#include "parser/VB6ParserState.h"

#include "base/BasicError.h"
#include "base/modKyErrors.h"
#include "source/VirtualObject.h"
#include "support/CapturedLog.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

struct Answer {
    Variant Value;
    bool Ok = false;
    std::string ErrorText;
};

Answer Ask(const VB6ParserState& state, std::string_view object, std::string_view property) {
    Answer answer;
    answer.Value = state.GetObjectProperty(object, property, answer.Ok, answer.ErrorText);
    return answer;
}

std::shared_ptr<VirtualObject> AttachNew(VB6ParserState& state, std::string_view name) {
    auto object = std::make_shared<VirtualObject>();
    state.Attach(object, name);
    return object;
}

TEST(VB6ParserState, NoLineIsCurrentAndNoLocationKnownBeforeTheFirstLineOfTheFirstFile) {
    const VB6ParserState state;
    EXPECT_EQ(static_cast<int>(state.CurrentLineType()), 5);
    EXPECT_EQ(static_cast<int>(state.CurrentLocation()), 0);
    EXPECT_EQ(static_cast<int>(state.ParserEvent()), 0);
    EXPECT_TRUE(state.ScopeNames().empty());
    EXPECT_EQ(Ask(state, "Source", "IsBlank").Value, Variant(false));
}

TEST(VB6ParserState, LineStatisticAnswersWhereTheBagOfAProcedureHasNoSuchProperty) {
    VB6ParserState state;
    for (const char* name : {"Enum", "File", "Procedure", "Project", "Type"}) {
        const auto object = AttachNew(state, name);
        object->LineStats().IncrementCount(LineType::Code);
        object->LineStats().IncrementCount(LineType::CodeWithComment);
        const Answer answer = Ask(state, name, "codelinecount");
        EXPECT_TRUE(answer.Ok) << name;
        EXPECT_EQ(answer.Value, Variant(std::int32_t{2})) << name;
    }
}

TEST(VB6ParserState, LineStatisticOfAControlIsNotFound) {
    VB6ParserState state;
    AttachNew(state, "Control");
    const Answer answer = Ask(state, "Control", "CodeLineCount");
    EXPECT_FALSE(answer.Ok);
    EXPECT_EQ(answer.Value, Variant(""));
    EXPECT_EQ(answer.ErrorText, "Virtual object property 'Control.CodeLineCount' not found.");
}

TEST(VB6ParserState, PropertyInTheBagShadowsALineStatisticOfTheSameName) {
    VB6ParserState state;
    const auto object = AttachNew(state, "Procedure");
    object->LineStats().IncrementCount(LineType::Code);
    object->Properties().Add("CodeLineCount", "shadow", false);
    EXPECT_EQ(Ask(state, "Procedure", "CodeLineCount").Value, Variant("shadow"));
}

TEST(VB6ParserState, MissingWorkfieldIsReportedWithItsKindAndItsPrefix) {
    VB6ParserState state;
    AttachNew(state, "File");
    const Answer answer = Ask(state, "File", "WF.x");
    EXPECT_FALSE(answer.Ok);
    EXPECT_EQ(answer.Value, Variant(""));
    EXPECT_EQ(answer.ErrorText, "Virtual object workfield 'File.WF.x' not found.");
}

TEST(VB6ParserState, WorkfieldNamedLikeALineStatisticIsMissingAllTheSame) {
    VB6ParserState state;
    AttachNew(state, "File");
    EXPECT_FALSE(Ask(state, "File", "WF.CodeLineCount").Ok);
}

TEST(VB6ParserState, WorkfieldIsReadAfterItsPrefixInAnyCase) {
    VB6ParserState state;
    AttachNew(state, "File")->Workfields().Add("x", std::int32_t{7}, false);
    const Answer answer = Ask(state, "file", "wf.X");
    EXPECT_TRUE(answer.Ok);
    EXPECT_EQ(answer.Value, Variant(std::int32_t{7}));
}

TEST(VB6ParserState, ObjectOutOfScopeIsReportedInQuotes) {
    const VB6ParserState state;
    const Answer answer = Ask(state, "Enum", "Name");
    EXPECT_FALSE(answer.Ok);
    EXPECT_EQ(answer.Value, Variant(""));
    EXPECT_EQ(answer.ErrorText, "Unknown virtual object 'Enum' or object not in scope.");
}

TEST(VB6ParserState, SourceKeepsTheLineWhileTheStatementChanges) {
    VB6ParserState state;
    state.SetCurrentSourceLine(
        {.PhysicalText = "x = 1: y = \"2\" ' z",
         .PhysicalLineCount = 1,
         .LogicalText = "x = 1: y = \"2\" ' z",
         .LineNumber = 12,
         .Type = LineType::CodeWithComment,
         .IsMultiStatement = true,
         .CommentBlock = nullptr});
    EXPECT_EQ(state.SourceStatement(), "");
    state.SetSourceStatement("x = 1");
    EXPECT_EQ(state.StrippedSourceStatement(), "x = 1");
    state.SetSourceStatement("y = \"2\" ' z");
    EXPECT_EQ(state.StrippedSourceStatement(), "y = \"\"");
    EXPECT_EQ(Ask(state, "Source", "Statement").Value, Variant("y = \"2\" ' z"));
    EXPECT_EQ(Ask(state, "Source", "StrippedStatement").Value, Variant("y = \"\""));
    EXPECT_EQ(Ask(state, "Source", "Line").Value, Variant("x = 1: y = \"2\" ' z"));
    EXPECT_EQ(Ask(state, "Source", "StrippedLine").Value, Variant("x = 1: y = \"\""));
}

TEST(VB6ParserState, NewLineForgetsTheStrippedTextsOfTheLineBefore) {
    VB6ParserState state;
    CurrentSourceLine line;
    line.LogicalText = "a ' 1";
    state.SetCurrentSourceLine(line);
    state.SetSourceStatement("a ' 1");
    EXPECT_EQ(Ask(state, "Source", "StrippedLine").Value, Variant("a"));
    EXPECT_EQ(state.StrippedSourceStatement(), "a");
    line.LogicalText = "b ' 2";
    state.SetCurrentSourceLine(line);
    EXPECT_EQ(Ask(state, "Source", "StrippedLine").Value, Variant("b"));
    EXPECT_EQ(state.StrippedSourceStatement(), "");
}

struct SourceRow {
    const char* Property;
    Variant Value;
};

TEST(VB6ParserState, SourceAnswersEveryQuestionAboutTheLine) {
    VB6ParserState state;
    state.SetCurrentSourceLine(
        {.PhysicalText = "a = _\r\n  1",
         .PhysicalLineCount = 2,
         .LogicalText = "a = 1",
         .LineNumber = 40,
         .Type = LineType::Code,
         .IsMultiStatement = false,
         .CommentBlock = std::make_shared<std::string>("' note\r\n")});
    state.SetSourceStatement("a = 1");
    const SourceRow rows[] = {
        {"IsBlank", false},
        {"IsCode", true},
        {"IsComment", false},
        {"IsMultiStatement", false},
        {"PhysicalLine", "a = _\r\n  1"},
        {"PhysicalLineCount", std::int32_t{2}},
        {"Line", "a = 1"},
        {"LineNumber", std::int32_t{40}},
        {"StrippedLine", "a = 1"},
        {"Statement", "a = 1"},
        {"StrippedStatement", "a = 1"},
        {"CommentBlock", "' note\r\n"},
        {"COMMENTBLOCK", "' note\r\n"},
    };
    for (const SourceRow& row : rows) {
        const Answer answer = Ask(state, "source", row.Property);
        EXPECT_TRUE(answer.Ok) << row.Property;
        EXPECT_EQ(answer.Value, row.Value) << row.Property;
    }
}

TEST(VB6ParserState, LineTypesTellCodeCommentAndBlankApart) {
    struct Row {
        LineType Type;
        bool IsBlank;
        bool IsCode;
        bool IsComment;
    };
    for (const Row& row : {
             Row{LineType::Blank, true, false, false},
             Row{LineType::CommentOnly, false, false, true},
             Row{LineType::CodeWithComment, false, true, false},
             Row{LineType::Code, false, true, false},
             Row{LineType::Continued, false, false, false},
         }) {
        VB6ParserState state;
        CurrentSourceLine line;
        line.Type = row.Type;
        state.SetCurrentSourceLine(line);
        EXPECT_EQ(Ask(state, "Source", "IsBlank").Value, Variant(row.IsBlank));
        EXPECT_EQ(Ask(state, "Source", "IsCode").Value, Variant(row.IsCode));
        EXPECT_EQ(Ask(state, "Source", "IsComment").Value, Variant(row.IsComment));
    }
}

TEST(VB6ParserState, OutsideALineItIsNeitherBlankNorCodeNorComment) {
    VB6ParserState state;
    state.SetCurrentSourceLine(
        {.PhysicalText = "x",
         .PhysicalLineCount = 1,
         .LogicalText = "x",
         .LineNumber = 3,
         .Type = LineType::Code,
         .IsMultiStatement = true,
         .CommentBlock = std::make_shared<std::string>("' a\r\n")});
    state.SetSourceStatement("x");
    state.ResetCurrentSourceLine();
    for (const char* property : {"IsBlank", "IsCode", "IsComment", "IsMultiStatement"}) {
        EXPECT_EQ(Ask(state, "Source", property).Value, Variant(false)) << property;
    }
    for (const char* property :
         {"PhysicalLine",
          "Line",
          "StrippedLine",
          "Statement",
          "StrippedStatement",
          "CommentBlock"}) {
        EXPECT_EQ(Ask(state, "Source", property).Value, Variant("")) << property;
    }
    EXPECT_EQ(state.SourceLineNumber(), 0);
    EXPECT_EQ(state.CurrentLineType(), LineType::None);
}

TEST(VB6ParserState, UnknownSourcePropertyHasNoValueAtAll) {
    const Answer answer = Ask(VB6ParserState(), "Source", "Colour");
    EXPECT_FALSE(answer.Ok);
    EXPECT_TRUE(answer.Value.IsEmpty());
    EXPECT_EQ(answer.ErrorText, "Invalid Source property 'Colour' specified.");
}

TEST(VB6ParserState, CommentBlockStaysAsItWasWhenItsOwnerAppendsToIt) {
    VB6ParserState state;
    const auto block = std::make_shared<std::string>("' a\r\n");
    CurrentSourceLine line;
    line.CommentBlock = block;
    state.SetCurrentSourceLine(line);
    block->append("' b\r\n");
    EXPECT_EQ(Ask(state, "Source", "CommentBlock").Value, Variant("' a\r\n"));
}

TEST(VB6ParserState, NamingConventionGivesTheFourTags) {
    VB6ParserState state;
    state.SetArrayTag("a");
    state.SetControlTag("c");
    state.SetScopeTag("m_");
    state.SetDataTypeTag("str");
    EXPECT_EQ(Ask(state, "NamingConvention", "ArrayTag").Value, Variant("a"));
    EXPECT_EQ(Ask(state, "namingconvention", "ControlTag").Value, Variant("c"));
    EXPECT_EQ(Ask(state, "NamingConvention", "scopetag").Value, Variant("m_"));
    EXPECT_EQ(Ask(state, "NamingConvention", "DataTypeTag").Value, Variant("str"));
}

TEST(VB6ParserState, UnknownTagIsReportedByName) {
    const Answer answer = Ask(VB6ParserState(), "NamingConvention", "SizeTag");
    EXPECT_FALSE(answer.Ok);
    EXPECT_EQ(answer.Value, Variant(""));
    EXPECT_EQ(answer.ErrorText, "Invalid NamingConvention property 'SizeTag' specified.");
}

TEST(VB6ParserState, AttachingANameTwiceRaisesTheErrorOfADuplicateKey) {
    VB6ParserState state;
    AttachNew(state, "Control");
    for (const char* name : {"Control", "CONTROL"}) {
        try {
            AttachNew(state, name);
            ADD_FAILURE() << name << " was attached twice";
        } catch (const BasicError& error) {
            EXPECT_EQ(error.Number(), modKyErrors::kyErrKeyInUse);
        }
    }
    EXPECT_EQ(state.ScopeNames().size(), 1U);
}

TEST(VB6ParserState, NamesComeInTheOrderOfAttachment) {
    VB6ParserState state;
    AttachNew(state, "Project");
    AttachNew(state, "File");
    AttachNew(state, "Declarations");
    state.Detach("file");
    AttachNew(state, "File");
    EXPECT_EQ(state.ScopeNames(), (std::vector<std::string>{"Project", "Declarations", "File"}));
}

TEST(VB6ParserState, ObjectIsFoundInAnyCaseOrNotAtAll) {
    VB6ParserState state;
    const auto object = AttachNew(state, "Procedure");
    EXPECT_EQ(state.GetVirtualObject("PROCEDURE"), object);
    EXPECT_EQ(state.FindVirtualObject("procedure"), object.get());
    EXPECT_EQ(state.GetVirtualObject("Enum"), nullptr);
    EXPECT_EQ(state.FindVirtualObject("Enum"), nullptr);
}

TEST(VB6ParserState, DetachingAnUnknownNameIsLoggedAndNoMore) {
    test::CapturedLog log;
    VB6ParserState state;
    AttachNew(state, "File");
    state.Detach("Enum");
    ASSERT_EQ(log.Lines().size(), 1U);
    EXPECT_NE(log.Lines().front().find("No such item."), std::string::npos);
    EXPECT_NE(log.Lines().front().find("C_VB6ParserState::Detach"), std::string::npos);
    EXPECT_EQ(state.ScopeNames().size(), 1U);
}

TEST(VB6ParserState, LineCountsOnEveryObjectInScopeThatKeepsLineStatistics) {
    VB6ParserState state;
    const auto project = AttachNew(state, "Project");
    const auto layout = AttachNew(state, "Layout");
    const auto file = AttachNew(state, "File");
    project->SetHasLSTATS(true);
    file->SetHasLSTATS(true);
    state.IncrementLineStats(LineType::CommentOnly);
    EXPECT_EQ(project->LineStats().CommentOnlyLines(), 1);
    EXPECT_EQ(file->LineStats().TotalLines(), 1);
    EXPECT_EQ(layout->LineStats().TotalLines(), 0);
}

TEST(VB6ParserState, MemberCountGoesUpOnTheNamedObject) {
    VB6ParserState state;
    const auto object = AttachNew(state, "Enum");
    state.IncrementMemberStats("Enum", "ElementCount");
    state.IncrementMemberStats("enum", "ElementCount");
    EXPECT_EQ(object->Properties().Item("ElementCount"), Variant(std::int32_t{2}));
    EXPECT_THROW(state.IncrementMemberStats("Type", "ElementCount"), BasicError);
}

TEST(VB6ParserState, EndOfAProcedureForgetsItsNameAndItsFirstLine) {
    VB6ParserState state;
    state.SetCurrentProcedureName("Foo");
    state.SetObjectStartLine(17, "Sub Foo()");
    EXPECT_EQ(state.ObjectStartLineNumber(), 17);
    EXPECT_EQ(state.ObjectStartSourceLine(), "Sub Foo()");
    state.ResetCurrentProcedure();
    EXPECT_EQ(state.CurrentProcedureName(), "");
    EXPECT_EQ(state.ObjectStartLineNumber(), 0);
    EXPECT_EQ(state.ObjectStartSourceLine(), "Sub Foo()");
}

TEST(VB6ParserState, EventTextIsThatOfTheCurrentEvent) {
    VB6ParserState state;
    EXPECT_EQ(state.GetParserEventText(), "Unknown Event");
    state.SetParserEvent(ParserEvent::BeginProcedure);
    EXPECT_EQ(state.GetParserEventText(), "begin Procedure");
}

}  // namespace
}  // namespace dorvik
