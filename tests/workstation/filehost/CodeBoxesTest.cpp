#include "workstation/filehost/CodeBoxes.h"

#include "workstation/filehost/FileHost.h"
#include "workstation/filehost/HostFolder.h"
#include "workstation/filehost/modCodeLines.h"

#include <gtest/gtest.h>

namespace dorvik {

namespace {

using Texts = std::vector<std::string>;
using Place = CodeBoxes::Place;

constexpr std::string_view kText = "Dim x\n"                                         // 1
                                   "Private Sub Text1_Change(Index As Integer)\n"    // 2
                                   "End Sub\n"                                       // 3
                                   "' Sums up.\n"                                    // 4
                                   "Property Get Total_Sum()\n"                      // 5
                                   "End Property\n"                                  // 6
                                   "Sub text1_Click()\nEnd Sub\n"                    // 7
                                   "Sub my_box_Click()\nEnd Sub\n"                   // 9
                                   "Sub _x()\nEnd Sub\nSub Alpha()\nEnd Sub\n' end"  // 11, 13
    ;

CodeBoxes Boxes() {
    return CodeBoxes(
        ProcedureList(modCodeLines::SplitText(kText)),
        {"my", "Text1", "TEXT1", "", "my_box", "fra"});
}

Texts Described(const std::vector<CodeBoxes::Entry>& entries) {
    Texts texts;
    for (const CodeBoxes::Entry& entry : entries) {
        texts.push_back(entry.Text + " " + std::to_string(entry.Line));
    }
    return texts;
}

}  // namespace

TEST(CodeBoxes, ObjectsAreListedOnceByNameAfterTheGeneralOnes) {
    EXPECT_EQ(Boxes().Objects(), (Texts{"(General)", "fra", "my", "my_box", "Text1"}));
}

TEST(CodeBoxes, ProceduresAreThoseOfTheObject) {
    const CodeBoxes boxes = Boxes();
    EXPECT_EQ(
        Described(boxes.ProceduresOf("(General)")),
        (Texts{"(Declarations) 1", "_x 11", "Alpha 13", "Total_Sum [PropertyGet] 5"}));
    EXPECT_EQ(Described(boxes.ProceduresOf("TEXT1")), (Texts{"Change 2", "Click 7"}));
    EXPECT_EQ(Described(boxes.ProceduresOf("my_box")), Texts{"Click 9"});
    EXPECT_EQ(Described(boxes.ProceduresOf("my")), Texts{});
    EXPECT_EQ(Described(boxes.ProceduresOf("fra")), Texts{});
}

TEST(CodeBoxes, LineIsInItsProcedure) {
    const CodeBoxes boxes = Boxes();
    EXPECT_EQ(boxes.PlaceOf(1), (Place{"(General)", "(Declarations)"}));
    EXPECT_EQ(boxes.PlaceOf(3), (Place{"Text1", "Change"}));
    EXPECT_EQ(boxes.PlaceOf(4), (Place{"(General)", "Total_Sum [PropertyGet]"}));
    EXPECT_EQ(boxes.PlaceOf(15), (Place{"(General)", "(Declarations)"}));
}

TEST(CodeBoxes, ObjectsOfAComponentAreItselfItsControlsAndWhatItDeclares) {
    const test::HostFolder folder;
    folder.Folder.Write(
        "c.cls",
        test::Dos(
            "Attribute VB_Name = \"c\"\nImplements Lib.IThing ' note\nPublic WithEvents app As X\n"
            "' Implements Nothing\nDim notWithEvents As Long\n"));
    FileHost host;
    host.Open(folder.Project());
    EXPECT_EQ(
        ObjectNamesOf(host.Project(1).Component("frmMain")),
        (Texts{"Form", "fra", "Text1", "Text1", "mnuFile", "mobjThing"}));
    EXPECT_EQ(ObjectNamesOf(host.Project(1).Component("modMain")), Texts{""});
    host.Open(folder.Folder.Write("Q.vbp", test::Dos("Class=c; c.cls\nName=\"Q\"\n")));
    EXPECT_EQ(ObjectNamesOf(host.Project(2).Component("c")), (Texts{"Class", "Lib", "app"}));
}

}  // namespace dorvik
