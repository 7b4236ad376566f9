#include "parser/FileParserStates.h"
#include "parser/SourceFileReview.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

using State = FileParserState;
using testing::PrintToString;

// A row names one way through the state table, with a source text that goes it.
struct TransitionRow {
    const char* Name;
    State From;
    State To;
    const char* Events;  // of the tick, event 4 of its line included
    FileType Type;
    const char* Text;
};

void PrintTo(const TransitionRow& row, std::ostream* out) {
    *out << row.Name << ": " << PrintToString(row.From) << " -> " << PrintToString(row.To)
         << " with " << row.Events;
}

class VB6ParserTransitions : public testing::TestWithParam<TransitionRow> {};

TEST_P(VB6ParserTransitions, TickGoesFromStateToStateWithItsEvents) {
    const TransitionRow& row = GetParam();
    SourceFileReview review(row.Type, row.Text);
    std::string seen;
    bool isFound = false;
    TickResult result = TickResult::Continue;
    while (result == TickResult::Continue) {
        const State from = review.Parser().CurrentState();
        review.Events().Clear();
        result = review.Tick();
        const State to = review.Parser().CurrentState();
        seen += PrintToString(from) + " -> " + PrintToString(to) + " with " +
                review.Events().Numbers() + "\n";
        isFound = isFound ||
                  (from == row.From && to == row.To && review.Events().Numbers() == row.Events);
    }
    EXPECT_TRUE(isFound) << seen;
    EXPECT_EQ(result, TickResult::EndOfFile);
}

constexpr const char* kForm =
    "VERSION 5.00\n"
    "Object = \"{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0\"; \"MSCOMCTL.OCX\"\n"
    "Begin VB.Form F\n"
    "   Begin VB.Label L\n"
    "   End\n"
    "End\n"
    "Attribute VB_Name = \"F\"\n";
constexpr const char* kProcedures = "Sub A(x, y)\n"
                                    "' note\n"
                                    "Const C = 1\n"
                                    "Dim v\n"
                                    "Here:\n"
                                    "End Sub\n"
                                    "stray\n"
                                    "Sub B(z)\n"
                                    "End Sub\n";

// clang-format off
INSTANTIATE_TEST_SUITE_P(Table, VB6ParserTransitions, testing::Values(
    TransitionRow{"BeginWithHeader", State::BeginSourceFile, State::SourceFileHeader, "3", FileType::Form, kForm},
    TransitionRow{"BeginWithoutHeader", State::BeginSourceFile, State::DeclarationLine, "3 9", FileType::Module, "Option Explicit\n"},
    TransitionRow{"LayoutStart", State::SourceFileHeader, State::Layout, "4 6", FileType::Form, kForm},
    TransitionRow{"OtherHeaderLine", State::SourceFileHeader, State::SourceFileHeader, "4", FileType::Form, kForm},
    TransitionRow{"ComponentLine", State::SourceFileHeader, State::SourceFileHeader, "4 5", FileType::Form, kForm},
    TransitionRow{"AnotherObject", State::Layout, State::Layout, "7", FileType::Form, kForm},
    TransitionRow{"NoMoreObjects", State::Layout, State::DeclarationLine, "8 9", FileType::Form, kForm},
    TransitionRow{"ProcedureInDeclarations", State::DeclarationLine, State::ProcedureBodyLine, "4 27 28 29 29", FileType::Module, kProcedures},
    TransitionRow{"EnumStart", State::DeclarationLine, State::EnumBodyLine, "4 10 14", FileType::Module, "Enum E\n"},
    TransitionRow{"TypeStart", State::DeclarationLine, State::TypeBodyLine, "4 10 21", FileType::Module, "Type T\n"},
    TransitionRow{"OtherDeclaration", State::DeclarationLine, State::DeclarationLine, "4 10", FileType::Module, "Option Explicit\n"},
    TransitionRow{"CommentInDeclarations", State::DeclarationLine, State::DeclarationLine, "4 10", FileType::Module, "' note\n"},
    TransitionRow{"ConstDeclaration", State::DeclarationLine, State::DeclarationLine, "4 10 11", FileType::Module, "Const C = 1\n"},
    TransitionRow{"DeclareStatement", State::DeclarationLine, State::DeclarationLine, "4 10 12 13", FileType::Module,
                  "Declare Sub S Lib \"k\" (ByVal a As Long)\n"},
    TransitionRow{"EventDeclaration", State::DeclarationLine, State::DeclarationLine, "4 10 18 19", FileType::Module, "Event E(a)\n"},
    TransitionRow{"ImplementsStatement", State::DeclarationLine, State::DeclarationLine, "4 10 20", FileType::Module, "Implements I\n"},
    TransitionRow{"VariableDeclaration", State::DeclarationLine, State::DeclarationLine, "4 10 25", FileType::Module, "Dim v\n"},
    TransitionRow{"EndOfEnum", State::EnumBodyLine, State::DeclarationLine, "4 17", FileType::Module, "Enum E\nEnd Enum\n"},
    TransitionRow{"EnumElementLine", State::EnumBodyLine, State::EnumBodyLine, "4 15 16", FileType::Module, "Enum E\nA = 1\nEnd Enum\n"},
    TransitionRow{"EndOfType", State::TypeBodyLine, State::DeclarationLine, "4 24", FileType::Module, "Type T\nEnd Type\n"},
    TransitionRow{"TypeElementLine", State::TypeBodyLine, State::TypeBodyLine, "4 22 23", FileType::Module, "Type T\nA As Long\nEnd Type\n"},
    TransitionRow{"EndOfProcedure", State::ProcedureBodyLine, State::ProcedureHeader, "4 34", FileType::Module, kProcedures},
    TransitionRow{"OtherBodyLine", State::ProcedureBodyLine, State::ProcedureBodyLine, "4 30", FileType::Module, kProcedures},
    TransitionRow{"LocalConst", State::ProcedureBodyLine, State::ProcedureBodyLine, "4 30 31", FileType::Module, kProcedures},
    TransitionRow{"LocalVariable", State::ProcedureBodyLine, State::ProcedureBodyLine, "4 30 33", FileType::Module, kProcedures},
    TransitionRow{"LineLabel", State::ProcedureBodyLine, State::ProcedureBodyLine, "4 32 30", FileType::Module, kProcedures},
    TransitionRow{"ProcedureAfterAProcedure", State::ProcedureHeader, State::ProcedureBodyLine, "4 28 29", FileType::Module, kProcedures},
    TransitionRow{"LineBetweenProcedures", State::ProcedureHeader, State::ProcedureHeader, "4", FileType::Module, kProcedures},
    TransitionRow{"EndOfFileInHeader", State::SourceFileHeader, State::EndSourceFile, "35", FileType::Form, "VERSION 5.00\n"},
    TransitionRow{"EndOfFileInDeclarations", State::DeclarationLine, State::EndSourceFile, "27 35", FileType::Module, "Option Explicit\n"},
    TransitionRow{"EndOfFileInEnum", State::EnumBodyLine, State::EndSourceFile, "35", FileType::Module, "Enum E\n"},
    TransitionRow{"EndOfFileInType", State::TypeBodyLine, State::EndSourceFile, "35", FileType::Module, "Type T\n"},
    TransitionRow{"EndOfFileInProcedure", State::ProcedureBodyLine, State::EndSourceFile, "35", FileType::Module, "Sub A()\n"},
    TransitionRow{"EndOfFileBetweenProcedures", State::ProcedureHeader, State::EndSourceFile, "35", FileType::Module, "Sub A()\nEnd Sub\n"}),
    [](const auto& rowInfo) { return std::string(rowInfo.param.Name); });
// clang-format on

}  // namespace
}  // namespace dorvik
