#include "basic/ScriptRun.h"

#include <gtest/gtest.h>

namespace dorvik::basic {

namespace {

struct LockedArrayRow {
    const char* What;
    const char* Text;
    const char* Output;
};

void PrintTo(const LockedArrayRow& row, std::ostream* stream) {
    *stream << row.What;
}

class LockedArrays : public testing::TestWithParam<LockedArrayRow> {};

}  // namespace

TEST_P(LockedArrays, AreLockedAsLongAsTheyAreUsed) {
    EXPECT_EQ(RunModule(GetParam().Text).Output(), GetParam().Output);
}

constexpr const char* kLocked = "Error 10: This array is fixed or temporarily locked\n";

constexpr LockedArrayRow kLockedArrayRows[] = {
    {"For Each locks", "Sub Main\nReDim a(2)\nFor Each x In a\nReDim a(9)\nNext\nEnd Sub", kLocked},
    {"GoTo out of For Each lets go",
     "Sub Main\nReDim a(2)\nFor Each x In a\nGoTo Out\nNext\nOut:\nReDim a(9)\n"
     "Debug.Print UBound(a)\nEnd Sub",
     " 9 \n"},
    {"GoTo out of two For Each lets go of both",
     "Sub Main\nReDim a(2)\nReDim b(2)\nFor Each x In a\nFor Each y In b\nGoTo Out\nNext\nNext\n"
     "Out:\nReDim a(9)\nReDim b(8)\nDebug.Print UBound(a); UBound(b)\nEnd Sub",
     " 9  8 \n"},
    {"GoTo within a For Each keeps it",
     "Sub Main\nReDim a(2)\nFor Each x In a\nGoTo Skip\nSkip:\nReDim a(9)\nNext\nEnd Sub",
     kLocked},
    {"GoTo out of the inner For Each keeps the outer one",
     "Sub Main\nReDim a(2)\nReDim b(2)\nFor Each x In a\nFor Each y In b\nGoTo Inner\nNext\n"
     "Inner:\nReDim b(7)\nDebug.Print UBound(b)\nReDim a(9)\nNext\nEnd Sub",
     " 7 \nError 10: This array is fixed or temporarily locked\n"},
    {"Exit Do out of a For Each lets go",
     "Sub Main\nReDim a(2)\nDo\nFor Each x In a\nExit Do\nNext\nLoop\nReDim a(9)\n"
     "Debug.Print UBound(a)\nEnd Sub",
     " 9 \n"},
    {"a jump back goes on where the loop stood, locked again",
     "Sub Main\na = Array(1, 2, 3)\nFor Each x In a\nDebug.Print x;\nIf x = 1 Then GoTo Out\n"
     "Back:\nIf x = 2 Then ReDim a(1)\nNext\nOut:\nGoTo Back\nEnd Sub",
     " 1  2 \nError 10: This array is fixed or temporarily locked\n"},
    {"Resume to a label from within lets go",
     "Sub Main\nOn Error GoTo Failed\nReDim a(2)\nFor Each x In a\nIf IsEmpty(x) Then GoTo Bad\n"
     "Next\nExit Sub\nBad:\nReDim a(9)\nDebug.Print UBound(a)\nExit Sub\nFailed:\n"
     "Debug.Print Err.Number\nEnd Sub",
     " 9 \n"},
    {"With on an element locks its array",
     "Private Type Item\nN As Long\nEnd Type\nSub Main\nDim a() As Item\nReDim a(2)\nWith a(1)\n"
     ".N = 1\nReDim a(9)\n.N = 2\nEnd With\nEnd Sub",
     kLocked},
    {"With on a part of an element locks the array",
     "Private Type Part\nN As Long\nEnd Type\nPrivate Type Item\nP As Part\nEnd Type\nSub Main\n"
     "Dim a() As Item\nReDim a(2)\nWith a(1).P\nErase a\nEnd With\nEnd Sub",
     kLocked},
    {"End With lets go",
     "Private Type Item\nN As Long\nEnd Type\nSub Main\nDim a() As Item\nReDim a(2)\nWith a(1)\n"
     ".N = 4\nEnd With\nDebug.Print a(1).N;\nReDim a(9)\nDebug.Print UBound(a)\nEnd Sub",
     " 4  9 \n"},
    {"GoTo out of the With lets go",
     "Private Type Item\nN As Long\nEnd Type\nSub Main\nDim a() As Item\nReDim a(2)\nWith a(1)\n"
     "GoTo Out\nEnd With\nOut:\nReDim a(9)\nDebug.Print UBound(a)\nEnd Sub",
     " 9 \n"},
    {"Exit For out of the With lets go",
     "Private Type Item\nN As Long\nEnd Type\nSub Main\nDim a() As Item\nReDim a(2)\nFor i = 0 To "
     "1\n"
     "With a(i)\nExit For\nEnd With\nNext\nReDim a(9)\nDebug.Print UBound(a)\nEnd Sub",
     " 9 \n"},
    {"an error in the With keeps the lock",
     "Private Type Item\nN As Long\nEnd Type\nSub Main\nDim a() As Item\nReDim a(2)\n"
     "On Error Resume Next\nWith a(1)\nx = 1 \\ 0\nErr.Clear\nReDim a(9)\nDebug.Print Err.Number\n"
     "End With\nEnd Sub",
     " 10 \n"},
    {"a number for a Variant whose array is walked",
     "Sub Main\na = Array(1, 2)\nFor Each x In a\na = 5\nNext\nEnd Sub",
     kLocked},
    {"a sum for it", "Sub Main\na = Array(1)\nFor Each x In a\na = x + 1\nNext\nEnd Sub", kLocked},
    {"an object for it",
     "Sub Main\na = Array(1)\nFor Each x In a\nSet a = Nothing\nNext\nEnd Sub",
     kLocked},
    {"another array for it",
     "Sub Main\na = Array(1)\nFor Each x In a\na = Array(2)\nNext\nEnd Sub",
     kLocked},
    {"behind the loop it is free",
     "Sub Main\na = Array(1)\nFor Each x In a\nNext\na = 5\nDebug.Print a\nEnd Sub",
     " 5 \n"},
    {"a module variable that a caller walks",
     "Dim a\nSub Change()\na = 5\nEnd Sub\nSub Main\na = Array(1)\nFor Each x In a\nChange\nNext\n"
     "End Sub",
     kLocked},
};
INSTANTIATE_TEST_SUITE_P(Rows, LockedArrays, testing::ValuesIn(kLockedArrayRows));

}  // namespace dorvik::basic
