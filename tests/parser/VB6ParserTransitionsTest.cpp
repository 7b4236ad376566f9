#include "parser/SourceFileReview.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

// A row names one way through the state table, with a source text that goes it.
struct TransitionRow {
    const char* Name;
    int From;
    int To;
    const char* Events;  // of the tick, event 4 of its line included
    FileType Type;
    const char* Text;
};

void PrintTo(const TransitionRow& row, std::ostream* out) {
    *out << row.Name << ": " << row.From << " -> " << row.To << " with " << row.Events;
}

class VB6ParserTransitions : public testing::TestWithParam<TransitionRow> {};

TEST_P(VB6ParserTransitions, TickGoesFromStateToStateWithItsEvents) {
    const TransitionRow& row = GetParam();
    SourceFileReview review(row.Type, row.Text);
    std::string seen;
    bool isFound = false;
    TickResult result = TickResult::GoesOn;
    while (result == TickResult::GoesOn) {
        const int from = static_cast<int>(review.Parser().CurrentState());
        review.Events().Clear();
        result = review.Tick();
        const int to = static_cast<int>(review.Parser().CurrentState());
        seen += std::to_string(from) + " -> " + std::to_string(to) + " with " +
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
    TransitionRow{"BeginWithHeader", 15, 16, "3", FileType::Form, kForm},
    TransitionRow{"BeginWithoutHeader", 15, 19, "3 9", FileType::Module, "Option Explicit\n"},
    TransitionRow{"LayoutStart", 16, 18, "4 6", FileType::Form, kForm},
    TransitionRow{"OtherHeaderLine", 16, 16, "4", FileType::Form, kForm},
    TransitionRow{"ComponentLine", 16, 16, "4 5", FileType::Form, kForm},
    TransitionRow{"AnotherObject", 18, 18, "7", FileType::Form, kForm},
    TransitionRow{"NoMoreObjects", 18, 19, "8 9", FileType::Form, kForm},
    TransitionRow{"ProcedureInDeclarations", 19, 22, "4 27 28 29 29", FileType::Module, kProcedures},
    TransitionRow{"EnumStart", 19, 20, "4 10 14", FileType::Module, "Enum E\n"},
    TransitionRow{"TypeStart", 19, 21, "4 10 21", FileType::Module, "Type T\n"},
    TransitionRow{"OtherDeclaration", 19, 19, "4 10", FileType::Module, "Option Explicit\n"},
    TransitionRow{"CommentInDeclarations", 19, 19, "4 10", FileType::Module, "' note\n"},
    TransitionRow{"ConstDeclaration", 19, 19, "4 10 11", FileType::Module, "Const C = 1\n"},
    TransitionRow{"DeclareStatement", 19, 19, "4 10 12 13", FileType::Module,
                  "Declare Sub S Lib \"k\" (ByVal a As Long)\n"},
    TransitionRow{"EventDeclaration", 19, 19, "4 10 18 19", FileType::Module, "Event E(a)\n"},
    TransitionRow{"ImplementsStatement", 19, 19, "4 10 20", FileType::Module, "Implements I\n"},
    TransitionRow{"VariableDeclaration", 19, 19, "4 10 25", FileType::Module, "Dim v\n"},
    TransitionRow{"EndOfEnum", 20, 19, "4 17", FileType::Module, "Enum E\nEnd Enum\n"},
    TransitionRow{"EnumElementLine", 20, 20, "4 15 16", FileType::Module, "Enum E\nA = 1\nEnd Enum\n"},
    TransitionRow{"EndOfType", 21, 19, "4 24", FileType::Module, "Type T\nEnd Type\n"},
    TransitionRow{"TypeElementLine", 21, 21, "4 22 23", FileType::Module, "Type T\nA As Long\nEnd Type\n"},
    TransitionRow{"EndOfProcedure", 22, 23, "4 34", FileType::Module, kProcedures},
    TransitionRow{"OtherBodyLine", 22, 22, "4 30", FileType::Module, kProcedures},
    TransitionRow{"LocalConst", 22, 22, "4 30 31", FileType::Module, kProcedures},
    TransitionRow{"LocalVariable", 22, 22, "4 30 33", FileType::Module, kProcedures},
    TransitionRow{"LineLabel", 22, 22, "4 32 30", FileType::Module, kProcedures},
    TransitionRow{"ProcedureBehindAProcedure", 23, 22, "4 28 29", FileType::Module, kProcedures},
    TransitionRow{"LineBetweenProcedures", 23, 23, "4", FileType::Module, kProcedures},
    TransitionRow{"EndOfFileInHeader", 16, 24, "35", FileType::Form, "VERSION 5.00\n"},
    TransitionRow{"EndOfFileInDeclarations", 19, 24, "27 35", FileType::Module, "Option Explicit\n"},
    TransitionRow{"EndOfFileInEnum", 20, 24, "35", FileType::Module, "Enum E\n"},
    TransitionRow{"EndOfFileInType", 21, 24, "35", FileType::Module, "Type T\n"},
    TransitionRow{"EndOfFileInProcedure", 22, 24, "35", FileType::Module, "Sub A()\n"},
    TransitionRow{"EndOfFileBetweenProcedures", 23, 24, "35", FileType::Module, "Sub A()\nEnd Sub\n"}),
    [](const auto& rowInfo) { return std::string(rowInfo.param.Name); });
// clang-format on

}  // namespace
}  // namespace dorvik
