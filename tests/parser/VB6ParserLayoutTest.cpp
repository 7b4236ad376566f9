#include "parser/SourceFileReview.h"
#include "source/VirtualObject.h"
#include "support/CapturedLog.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

using Values = std::vector<std::string>;

Values FormValues(
    std::string_view controls,
    ParserEvent event,
    std::string_view object,
    std::string_view property) {
    SourceFileReview review(FileType::Form, FormText(controls, ""));
    return review.ValuesAt(event, object, property);
}

TEST(VB6ParserLayout, FormWithoutControlsHasNoControlEvent) {
    EXPECT_EQ(EventsOf(FileType::Form, "Begin VB.Form F\nEnd\n"), "3 4 6 8 9 27 35");
    EXPECT_EQ(FormValues("", ParserEvent::BeginLayout, "Layout", "ControlCount"), Values{"0"});
}

TEST(VB6ParserLayout, StatementsAfterTheBeginOfALayoutOutliveItsLines) {
    SourceFileReview review(
        FileType::Form,
        "Begin VB.Form F: the second: the third\n"
        "   Caption = \"longer than the line that opens the layout\"\nEnd\n");
    EXPECT_EQ(review.ValuesAt(ParserEvent::EndLayout, "Source", "Statement"), Values{"the second"});
    SourceFileReview again(
        FileType::Form,
        "Begin VB.Form F: the second: the third\n"
        "   Caption = \"longer than the line that opens the layout\"\nEnd\n");
    EXPECT_EQ(again.ValuesAt(ParserEvent::Declaration, "Source", "Statement"), Values{"the third"});
}

TEST(VB6ParserLayout, LinesOfALayoutFireNoLineEventAndTellTheirCharactersTogether) {
    SourceFileReview review(
        FileType::Form, "VERSION 5.00\nBegin VB.Form F\n   Caption = \"x\"\nEnd\n");
    review.Tick();
    review.Tick();
    review.Tick();
    EXPECT_EQ(review.Events().Numbers(), "3 4 4 6");
    EXPECT_EQ(review.Characters(), 15 + 16 + 3);
    review.Tick();
    EXPECT_EQ(review.Characters(), 0);
}

TEST(VB6ParserLayout, AttributeLinesOfAFormComeAsDeclarations) {
    EXPECT_EQ(
        EventsOf(
            FileType::Form,
            FormText("", "Attribute VB_GlobalNameSpace = False\nOption Explicit\n")),
        "3 4 4 6 8 9 4 10 4 10 4 10 27 35");
}

TEST(VB6ParserLayout, ControlsOfTheSameNameInsideAFrameAndBesideItAreTwoObjects) {
    const std::string controls = "   Begin VB.Frame Fr\n"
                                 "      Begin VB.Label L\n"
                                 "      End\n"
                                 "   End\n"
                                 "   Begin VB.Label L\n"
                                 "   End\n";
    EXPECT_EQ(
        FormValues(controls, ParserEvent::Control, "Control", "Name"), (Values{"Fr", "L", "L"}));
    EXPECT_EQ(
        FormValues(controls, ParserEvent::Control, "Control", "Container"),
        (Values{"F", "Fr", "F"}));
    // The layout ends at the form's own `End` only.
    EXPECT_EQ(
        EventsOf(FileType::Form, FormText(controls, "Dim x\n")),
        "3 4 4 6 7 7 7 8 9 4 10 4 10 25 27 35");
}

TEST(VB6ParserLayout, LabelNestedInAFrameMakesTwoObjects) {
    const std::string controls =
        "   Begin VB.Frame Fr\n      Begin VB.Label L\n      End\n   End\n";
    EXPECT_EQ(
        FormValues(controls, ParserEvent::BeginLayout, "Layout", "ControlCount"), Values{"2"});
    EXPECT_EQ(FormValues(controls, ParserEvent::Control, "Control", "Name"), (Values{"Fr", "L"}));
}

TEST(VB6ParserLayout, LayoutWithoutIndentationEndsAtTheFormsOwnEndOnly) {
    EXPECT_EQ(
        EventsOf(
            FileType::Form, FormText("Begin VB.Frame Fr\nBegin VB.Label L\nEnd\nEnd\n", "Dim x\n")),
        "3 4 4 6 7 7 8 9 4 10 4 10 25 27 35");
}

TEST(VB6ParserLayout, ControlHasItsClassItsLibraryAndItsContainer) {
    const std::string controls =
        "   Begin MSComctlLib.TreeView tvw.x\n      Index           =   3\n   End\n";
    const std::pair<const char*, const char*> rows[] = {
        {"ProgID", "MSComctlLib.TreeView"},
        {"Class", "TreeView"},
        {"Library", "MSComctlLib"},
        {"Index", "3"},
    };
    for (const auto& [property, value] : rows) {
        EXPECT_EQ(FormValues(controls, ParserEvent::Control, "Control", property), Values{value});
    }
}

TEST(VB6ParserLayout, ControlsBagHoldsItsPropertiesInOrder) {
    SourceFileReview review(FileType::Form, FormText("   Begin VB.Label L\n   End\n", ""));
    std::string names;
    review.Events().SetHandler([&](ParserEvent event) {
        if (event == ParserEvent::Control) {
            names = PropertyNames(*review.State().FindVirtualObject("Control"));
        }
    });
    review.Run();
    EXPECT_EQ(names, "Name ProgID Class Library Container Index");
}

TEST(VB6ParserLayout, LayoutsBagHoldsItsPropertiesInOrder) {
    SourceFileReview review(FileType::Form, FormText("   MDIChild = -1\n", ""));
    std::string names;
    review.Events().SetHandler([&](ParserEvent event) {
        if (event == ParserEvent::BeginLayout) {
            names = PropertyNames(*review.State().FindVirtualObject("Layout"));
        }
    });
    review.Run();
    EXPECT_EQ(names, "ControlCount Name IsMDIParent IsMDIChild");
}

TEST(VB6ParserLayout, PropertiesOfTheFormAndItsControlsStandInTheirOwnBags) {
    const std::string controls = "   Caption = \"Main\"\n"
                                 "   Begin VB.Label L\n      Caption = \"Text\"\n   End\n";
    EXPECT_EQ(
        FormValues(controls, ParserEvent::BeginLayout, "LayoutProperties", "Caption"),
        Values{"Main"});
    EXPECT_EQ(
        FormValues(controls, ParserEvent::BeginLayout, "LayoutProperties", "Name"), Values{"F"});
    EXPECT_EQ(
        FormValues(controls, ParserEvent::Control, "ControlProperties", "Caption"), Values{"Text"});
}

TEST(VB6ParserLayout, ControlArrayRepeatsItsNameAndNothingIsRaised) {
    SourceFileReview review(
        FileType::Form,
        FormText(
            "   Begin VB.Label L\n      Index = 0\n   End\n"
            "   Begin VB.Label l\n      Index = 1\n   End\n",
            ""));
    Values names;
    review.Events().SetHandler([&](ParserEvent event) {
        if (event == ParserEvent::Control) {
            names.push_back(review.State().CurrentControlName());
        }
    });
    EXPECT_EQ(review.Run(), TickResult::EndOfFile);
    EXPECT_EQ(names, (Values{"L(0)", "l(1)"}));
    EXPECT_EQ(review.File().EventItems().Count(), 2);  // "Form" and "L"
}

TEST(VB6ParserLayout, LocationAndControlNameFollowTheLayout) {
    SourceFileReview review(FileType::Form, FormText("   Begin VB.Label L\n   End\n", ""));
    Values seen;
    review.Events().SetHandler([&](ParserEvent event) {
        if (event != ParserEvent::SourceLine) {
            seen.push_back(
                std::to_string(static_cast<int>(event)) + " at " +
                std::to_string(static_cast<int>(review.State().CurrentLocation())) + " on " +
                review.State().CurrentControlName());
        }
    });
    review.Run();
    const Values expected = {
        "3 at 3 on ",
        "6 at 2 on F",
        "7 at 5 on L",
        "8 at 2 on F",
        "9 at 3 on F",
        "10 at 3 on F",
        "27 at 3 on F",
        "35 at 3 on F"};
    EXPECT_EQ(seen, expected);
}

TEST(VB6ParserLayout, ParentsOfTheLayoutsObjectsAreSet) {
    SourceFileReview review(FileType::Form, FormText("   Begin VB.Label L\n   End\n", ""));
    Values parents;
    bool layoutKeepsViolations = false;
    review.Events().SetHandler([&](ParserEvent event) {
        if (event == ParserEvent::Control) {
            for (const char* name :
                 {"Layout", "LayoutProperties", "Control", "ControlProperties"}) {
                parents.push_back(review.State().FindVirtualObject(name)->ParentViolations());
            }
            layoutKeepsViolations = review.State().FindVirtualObject("Layout")->HasVLIST();
        }
    });
    review.Run();
    EXPECT_EQ(parents, (Values{"File", "File", "Layout", "Control"}));
    EXPECT_TRUE(layoutKeepsViolations);
}

TEST(VB6ParserLayout, ComponentLineIsAnnouncedInsideALayout) {
    const char* text =
        "VERSION 5.00\n"
        "Object = \"{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0\"; \"MSCOMCTL.OCX\"\n"
        "Begin VB.Form F\nEnd\n";
    SourceFileReview review(FileType::Form, text);
    EXPECT_EQ(
        review.ValuesAt(ParserEvent::Component, "Component", "Filename"), Values{"MSCOMCTL.OCX"});
    EXPECT_EQ(review.FileProperty("ComponentCount"), "1");
    EXPECT_EQ(review.Events().Numbers(), "3 4 4 5 4 6 8 9 27 35");
    EXPECT_EQ(
        review.Events().Records()[3].Scope,
        (Values{"Project", "File", "Declarations", "Layout", "Component"}));
}

struct StartRow {
    FileType Type;
    const char* Line;
    bool IsStart;
};

TEST(VB6ParserLayout, EachFileTypeKnowsTheStartOfItsLayout) {
    const StartRow rows[] = {
        {FileType::Form, "Begin VB.Form F", true},
        {FileType::Form, "begin vb.form F", true},
        {FileType::Form, "Begin VB.MDIForm F", true},
        {FileType::Form, " Begin VB.Form F", false},
        {FileType::Form, "Begin VB.UserControl F", false},
        {FileType::Designer, "Begin {C0E45035-5775-11D0-B388-00A0C9055D8E} D", true},
        {FileType::Designer, "Begin VB.Form F", false},
        {FileType::PropertyPage, "Begin VB.PropertyPage P", true},
        {FileType::UserDocument, "Begin VB.UserDocument U", true},
        {FileType::UserControl, "Begin VB.UserControl U", true},
        {FileType::MDIForm, "Begin VB.MDIForm M", true},
        {FileType::MDIForm, "Begin VB.Form M", false},
    };
    for (const StartRow& row : rows) {
        SourceFileReview review(row.Type, std::string(row.Line) + "\nEnd\n");
        EXPECT_EQ(review.Run(), TickResult::EndOfFile) << row.Line;
        EXPECT_EQ(review.Events().Count(ParserEvent::BeginLayout), row.IsStart ? 1 : 0) << row.Line;
    }
}

TEST(VB6ParserLayout, MDIFormUnderTheKeyOfAFormBecomesAnMDIForm) {
    SourceFileReview review(FileType::Form, "Begin VB.MDIForm M\nEnd\n");
    EXPECT_EQ(review.ValuesAt(ParserEvent::BeginLayout, "Layout", "IsMDIParent"), Values{"True"});
    EXPECT_EQ(review.File().FileType(), FileType::MDIForm);
}

TEST(VB6ParserLayout, MDIChildIsKnownByItsProperty) {
    EXPECT_EQ(
        FormValues("   MDIChild = -1\n", ParserEvent::BeginLayout, "Layout", "IsMDIChild"),
        Values{"True"});
    EXPECT_EQ(FormValues("", ParserEvent::BeginLayout, "Layout", "IsMDIChild"), Values{"False"});
    EXPECT_EQ(FormValues("", ParserEvent::BeginLayout, "Layout", "IsMDIParent"), Values{"False"});
}

TEST(VB6ParserLayout, PropertyBlocksDoNotNestTheLayout) {
    EXPECT_EQ(
        EventsOf(
            FileType::Form,
            FormText("   BeginProperty Font\n      Name = \"Arial\"\n   EndProperty\n", "Dim x\n")),
        "3 4 4 6 8 9 4 10 4 10 25 27 35");
}

TEST(VB6ParserLayout, ControlTypeWithoutAPointFailsTheFile) {
    test::CapturedLog log;
    SourceFileReview review(FileType::Form, FormText("   Begin Label L\n   End\n", ""));
    EXPECT_EQ(review.Run(), TickResult::Failed);
    EXPECT_EQ(review.Events().Numbers(), "3 4 4 6");
    ASSERT_EQ(log.Lines().size(), 1U);
    EXPECT_NE(log.Lines()[0].find("C_VB6Parser::State_Layout"), std::string::npos);
}

constexpr const char* kFailingControl = "   Begin VB.Label L\n      no property\n   End\n"
                                        "   Begin VB.Label M\n   End\n";

TEST(VB6ParserLayout, FailingExtractionEndsTheLayoutAndLeavesTheControlInScope) {
    test::CapturedLog log;
    SourceFileReview review(FileType::Form, FormText(kFailingControl, ""));
    EXPECT_EQ(review.Run(), TickResult::EndOfFile);
    EXPECT_EQ(review.Events().Numbers(), "3 4 4 6 8 9 4 10 27 35");
    EXPECT_NE(review.State().FindVirtualObject("Control"), nullptr);
    EXPECT_EQ(log.Lines().size(), 1U);
}

TEST(VB6ParserLayout, ControlLeftInScopeFailsTheNextFileThatHasOne) {
    test::CapturedLog log;
    SourceFileReview first(FileType::Form, FormText(kFailingControl, ""));
    first.Run();
    first.State().Detach("File");
    first.State().Detach("Declarations");
    SourceFileReview module(FileType::Module, "Dim x\n", first.SharedState());
    EXPECT_EQ(module.Run(), TickResult::EndOfFile);
    EXPECT_NE(module.State().FindVirtualObject("Control"), nullptr);
    module.State().Detach("File");
    module.State().Detach("Declarations");
    SourceFileReview second(
        FileType::Form, FormText("   Begin VB.Label L\n   End\n", ""), first.SharedState());
    EXPECT_EQ(second.Run(), TickResult::Failed);
}

TEST(VB6ParserLayout, LayoutLeftOpenByAHeaderWithoutBeginStaysInScope) {
    SourceFileReview review(
        FileType::Form,
        "Object = \"{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0\"; \"MSCOMCTL.OCX\"\n");
    EXPECT_EQ(review.Run(), TickResult::EndOfFile);
    EXPECT_NE(review.State().FindVirtualObject("Layout"), nullptr);
}

// Required: only an `End` in column 1 ends the layout, so that one that is indented swallows the file.
TEST(VB6ParserLayout, LayoutWhoseLastEndIsIndentedContinuesToTheEndOfTheFile) {
    EXPECT_EQ(
        EventsOf(FileType::Form, "Begin VB.Form F\n End\nAttribute VB_Name = \"F\"\nSub S()\n"),
        "3 4 6 8 9 27 35");
}

TEST(VB6ParserLayout, LayoutThatIsCutOffEndsWithTheFile) {
    for (const char* text :
         {"Begin VB.Form F\n",
          "Begin VB.Form F\n   Caption = \"x\"\n",
          "Begin VB.Form F\n   Begin VB.Label L\n",
          "Begin VB.Form F\n   Begin VB.Label L\n      Caption = \"x"}) {
        test::CapturedLog log;
        SourceFileReview review(FileType::Form, text);
        EXPECT_EQ(review.Run(), TickResult::EndOfFile) << text;
        EXPECT_EQ(review.Events().Numbers(), "3 4 6 8 9 27 35") << text;
    }
}

TEST(VB6ParserLayout, LastLineOfALayoutThatIsCutOffIsJudgedTwice) {
    test::CapturedLog log;
    SourceFileReview review(FileType::Form, "Begin VB.Form F\n   Begin VB.Label L\n   End\n");
    EXPECT_EQ(review.ValuesAt(ParserEvent::BeginLayout, "Layout", "ControlCount"), Values{"1"});
    EXPECT_EQ(review.Events().Count(ParserEvent::Control), 1);
}

TEST(VB6ParserLayout, TwoThousandNestedObjectsAreAllAnnounced) {
    std::string controls;
    for (int i = 0; i < 2000; ++i) {
        controls += "Begin VB.Frame Fr" + std::to_string(i) + "\n";
    }
    for (int i = 0; i < 2000; ++i) {
        controls += " End\n";
    }
    SourceFileReview review(FileType::Form, FormText(controls, ""));
    EXPECT_EQ(review.Run(), TickResult::EndOfFile);
    EXPECT_EQ(review.Events().Count(ParserEvent::Control), 2000);
}

struct LayoutFaultRow {
    const char* Name;
    const char* Text;
    const char* Clause;  // empty: the layout has no fault
};

void PrintTo(const LayoutFaultRow& row, std::ostream* out) {
    *out << row.Name;
}

class LayoutFaultOf : public testing::TestWithParam<LayoutFaultRow> {};

TEST_P(LayoutFaultOf, NamesThePhysicalLineAndWhatIsWrongInIt) {
    const test::CapturedLog log;
    SourceFileReview review(FileType::Form, GetParam().Text);
    review.Run();
    const auto& fault = review.File().FoundLayoutFault();
    EXPECT_EQ(fault ? fault->Clause() : "", GetParam().Clause);
}

INSTANTIATE_TEST_SUITE_P(
    Layouts,
    LayoutFaultOf,
    testing::Values(
        LayoutFaultRow{
            "None", "VERSION 5.00\nBegin VB.Form F\n   Begin VB.Label L\n   End\nEnd\n", ""},
        LayoutFaultRow{
            "PropertyTwice",
            "VERSION 5.00\n\nBegin VB.Form F\n   Begin My.Grid G\n      Rows = 1\n\n      Cols = "
            "2\n"
            "      rows = 3\n   End\nEnd\n",
            "in line 8 the property 'rows' of 'G' is set twice"},
        LayoutFaultRow{
            "PropertyOfABlockTwice",
            "Begin VB.Form F\n   Begin My.Grid G\n      BeginProperty Font {0BE3}\n"
            "         Size = 1\n         Size = 2\n      EndProperty\n   End\nEnd\n",
            "in line 5 the property 'Font.Size' of 'G' is set twice"},
        LayoutFaultRow{
            "PropertyOfTheFormTwice",
            "Begin VB.Form F\n   Tag = 1\n   Tag = 2\nEnd\n",
            "in line 3 the property 'Tag' of 'F' is set twice"},
        LayoutFaultRow{
            "FirstOfSeveral",
            "Begin VB.Form F\n   Tag = 1\n   Tag = 2\n   Begin VB.Label L\n   Tag = 1\n   Tag = 2\n"
            "   End\nEnd\n",
            "in line 3 the property 'Tag' of 'F' is set twice"},
        LayoutFaultRow{
            "LineThatIsNoProperty",
            "Begin VB.Form F\n   Begin VB.Label L\n<<<<<<< HEAD\n   End\nEnd\n",
            "in line 3 there is no property of the form 'name = value'"},
        LayoutFaultRow{
            "BeginWithoutAName",
            "Begin VB.Form F\n   Begin VB.Label\n   End\nEnd\n",
            "in line 2 a 'Begin' names no control"},
        LayoutFaultRow{
            "TypeWithoutALibrary",
            "Begin VB.Form F\n   Begin Label L\n   End\nEnd\n",
            "in line 2 the type 'Label' of 'L' names no library"}),
    [](const auto& row) { return row.param.Name; });

}  // namespace
}  // namespace dorvik
