// The objects of a layout, by the plain function and by the reader that goes on from one to the next.

#include "BagText.h"
#include "RandomText.h"
#include "source/LayoutReader.h"
#include "source/modVOSource.h"
#include "support/CapturedLog.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace dorvik {

namespace {

using modVOSource::LayoutControl;
using Lines = std::vector<std::string>;

std::string ControlText(bool extracted, const LayoutControl& control, VirtualObject& object) {
    return std::string(extracted ? "" : "failed: ") + control.Name + "," + control.ControlType +
           "," + control.Container + "," + control.Index + "; " + BagText(object);
}

std::string Extract(const Lines& lines, std::int32_t ordinal) {
    VirtualObject object;
    LayoutControl control;
    const bool extracted = modVOSource::ExtractControlFromLayout(lines, object, ordinal, control);
    return ControlText(extracted, control, object);
}

std::string ExtractNext(LayoutReader& reader, std::int32_t ordinal) {
    VirtualObject object;
    LayoutControl control;
    const bool extracted = reader.Extract(ordinal, object, control);
    return ControlText(extracted, control, object);
}

const Lines& BillingForm() {
    static const Lines lines = {
        "Begin VB.Form frmBill ",
        "   Caption         =   \"Bill: it's \"\"due\"\"\"",
        "   BeginProperty Font {0BE35203-8F91-11CE-9DE3-00AA004BB851} ",
        "      Name            =   \"Arial\"",
        "      Size            =   8.25",
        "   EndProperty",
        "   Begin VB.Frame fraItems ",
        "      Begin VB.TextBox txtItem ",
        "         Index           =   2",
        "         Text            =   \"\"",
        "      End",
        "      Begin {831FDD16-0C5C-11D2} lstItems ",
        "         Tab(0)          =   \"One\"   'first",
        "      End",
        "   End",
        "   Begin VB.Label lblTotal ",
        "      Caption         =   \"Total\"",
        "   End",
        "End"};
    return lines;
}

}  // namespace

TEST(modVOSourceLayout, OutermostObjectHasItsOwnPropertiesOnly) {
    EXPECT_EQ(
        Extract(BillingForm(), 1),
        "frmBill,VB.Form,,; Caption=Bill: it's \"\"due\"\"|Font.Name=Arial|Font.Size=8.25");
}

TEST(modVOSourceLayout, ControlHasNameTypeContainerAndIndex) {
    EXPECT_EQ(Extract(BillingForm(), 3), "txtItem,VB.TextBox,fraItems,2; Index=2|Text=");
}

TEST(modVOSourceLayout, GuidIsATypeAndBracketsLeaveTheKey) {
    EXPECT_EQ(Extract(BillingForm(), 4), "lstItems,{831FDD16-0C5C-11D2},fraItems,; Tab0=One");
}

TEST(modVOSourceLayout, EndOfAPropertyBlockLeavesTheContainerToo) {
    // The block of the form's font has emptied the path, so its controls have no container.
    EXPECT_EQ(Extract(BillingForm(), 2), "fraItems,VB.Frame,,; ");
    EXPECT_EQ(Extract(BillingForm(), 5), "lblTotal,VB.Label,,; Caption=Total");
    Lines withoutBlock = BillingForm();
    withoutBlock.erase(withoutBlock.begin() + 2, withoutBlock.begin() + 6);
    EXPECT_EQ(Extract(withoutBlock, 5), "lblTotal,VB.Label,frmBill,; Caption=Total");
}

TEST(modVOSourceLayout, OnlyTheLineEndAloneEndsAnObject) {
    const Lines lines = {
        "Begin VB.Form F", "EndColour = 3", "End Of = 5", "  eND  ", "Other = 4", "End"};
    EXPECT_EQ(Extract(lines, 1), "F,VB.Form,,; EndColour=3|End Of=5");
}

TEST(modVOSourceLayout, TabInFrontOfALayoutLineIsNotTrimmed) {
    const Lines lines = {"Begin VB.Form F", "\tEnd = 1", " Begin VB.Label L", "End", "End"};
    EXPECT_EQ(Extract(lines, 1), "F,VB.Form,,; \tEnd=1");
    EXPECT_EQ(Extract(lines, 2), "L,VB.Label,F,; ");
}

TEST(modVOSourceLayout, NestedPropertyBlocksMakeAPath) {
    const Lines lines = {
        "Begin MSComctl.ListView L",
        "BeginProperty Headers(0) {A}",
        "BeginProperty Header(1) {B} x",
        "Text(0) = \"a\"",
        "EndProperty",
        "Count{x} = 1",
        "EndProperty",
        "Index = \"7\"",
        "End"};
    EXPECT_EQ(
        Extract(lines, 1),
        "L,MSComctl.ListView,,7; Headers0.Header1.Text0=a|Headers0.Count=1|Index=7");
}

TEST(modVOSourceLayout, PropertyLineWithoutAnEqualsSignFails) {
    test::CapturedLog log;
    EXPECT_EQ(
        Extract({"Begin VB.Form F", "A = 1", "nonsense", "End"}, 1), "failed: F,VB.Form,,; A=1");
    ASSERT_EQ(log.Lines().size(), 1U);
    EXPECT_NE(log.Lines()[0].find("C_VOSource::ExtractControlFromLayout"), std::string::npos);
}

TEST(modVOSourceLayout, PropertyThatStandsTwiceFails) {
    test::CapturedLog log;
    EXPECT_EQ(Extract({"Begin VB.Form F", "A = 1", "a = 2", "End"}, 1), "failed: F,VB.Form,,; A=1");
    ASSERT_EQ(log.Lines().size(), 1U);
    EXPECT_NE(log.Lines()[0].find("C_VOSource::ExtractControlFromLayout"), std::string::npos);
}

TEST(modVOSourceLayout, LayoutThatBreaksOffFails) {
    const test::CapturedLog log;
    EXPECT_EQ(Extract({"Begin VB.Form F", "A = 1"}, 1), "failed: F,VB.Form,,; A=1");
    EXPECT_EQ(Extract({"Begin VB.Form F", "End"}, 2), "failed: ,,,; ");
    EXPECT_EQ(Extract({"Begin VB.Form F", "End"}, 0), "failed: ,,,; ");
    EXPECT_EQ(Extract({"Begin VB.Form", "End"}, 1), "failed: ,,,; ");
    EXPECT_EQ(Extract({}, 1), "failed: ,,,; ");
}

TEST(modVOSourceLayout, ReaderGivesWhatThePlainFunctionGivesOnLayoutsOfChance) {
    const test::CapturedLog log;
    const std::vector<std::string_view> pieces = {
        "Begin VB.Label a",
        "  Begin X.Y b c",
        "Begin VB.Frame f.g",
        "begin Z z",
        "Begin Q.R ",
        "End",
        "   End",
        "End",
        "End",
        "EndProperty",
        "BeginProperty P {",
        "EndAngle = 1",
        "Index = 3",
        "A = \"x\"",
        "B(1) = 2",
        "C = 3 ' n",
        "D = 4",
        "E = 5"};
    RandomText random;
    for (int layout = 0; layout < 150; ++layout) {
        Lines lines = {"Begin VB.Form F"};
        for (std::size_t i = random.Number(30); i > 0; --i) {
            const bool ofBytes = random.Number(20) == 0;
            lines.emplace_back(
                ofBytes ? random.Bytes(random.Number(20))
                        : std::string(pieces[random.Number(pieces.size())]));
        }
        LayoutReader reader(lines);
        std::int32_t ordinal = 1;
        for (int i = 0; i < 8; ++i) {
            EXPECT_EQ(ExtractNext(reader, ordinal), Extract(lines, ordinal));
            // Mostly onwards, now and then again or back.
            ordinal =
                random.Number(5) == 0 ? static_cast<std::int32_t>(random.Number(5)) : ordinal + 1;
        }
    }
}

TEST(modVOSourceLayout, FormOfFiveThousandControlsIsRead) {
    Lines lines = {"Begin VB.Form F"};
    for (int i = 0; i < 5000; ++i) {
        lines.emplace_back("   Begin VB.Label lbl ");
        for (const char* property : {"Caption", "Height", "Index", "Left", "TabIndex", "Top"}) {
            lines.push_back("      " + std::string(property) + "  =  " + std::to_string(i));
        }
        lines.emplace_back("   End");
    }
    lines.emplace_back("End");
    LayoutReader reader(lines);
    for (std::int32_t ordinal = 2; ordinal <= 5001; ++ordinal) {
        VirtualObject object;
        LayoutControl control;
        ASSERT_TRUE(reader.Extract(ordinal, object, control));
        ASSERT_EQ(control.Index, std::to_string(ordinal - 2));
        ASSERT_EQ(control.Container, "F");
    }
}

TEST(modVOSourceLayout, TwoThousandNestedObjectsAreRead) {
    Lines lines;
    for (int i = 0; i < 2000; ++i) {
        lines.push_back("Begin VB.Frame fra" + std::to_string(i));
        lines.push_back("Index = " + std::to_string(i));
    }
    lines.insert(lines.end(), 2000, "End");
    LayoutReader reader(lines);
    for (std::int32_t ordinal = 1; ordinal <= 2000; ++ordinal) {
        VirtualObject object;
        LayoutControl control;
        ASSERT_TRUE(reader.Extract(ordinal, object, control));
        ASSERT_EQ(control.Index, std::to_string(ordinal - 1));
        ASSERT_EQ(control.Container, ordinal == 1 ? "" : "fra" + std::to_string(ordinal - 2));
    }
}

}  // namespace dorvik
