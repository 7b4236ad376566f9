#include "workstation/filehost/FormLayout.h"

#include "workstation/filehost/FileDesigner.h"
#include "workstation/filehost/modCodeLines.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

namespace {

/// A form in pixels with a frame, in it a box and a timer; a picture with a line; tabs; menus.
constexpr std::string_view kLayout = "VERSION 5.00\n"
                                     "Begin VB.Form frmAll \n"
                                     "   BackColor       =   &H80000005&\n"
                                     "   Caption         =   \"The \"\"form\"\"\"\n"
                                     "   ClientHeight    =   3000\n"
                                     "   ClientWidth     =   4500\n"
                                     "   BeginProperty Font \n"
                                     "      Size            =   9.75\n"
                                     "   EndProperty\n"
                                     "   Icon            =   \"frmAll.frx\":0000\n"
                                     "   ScaleHeight     =   200\n"
                                     "   ScaleMode       =   3  'Pixel\n"
                                     "   ScaleWidth      =   300\n"
                                     "   Begin VB.Label lblBelow \n"
                                     "      Height          =   20\n"
                                     "      Left            =   10\n"
                                     "      Top             =   10\n"
                                     "      Width           =   100\n"
                                     "   End\n"
                                     "   Begin VB.Frame fraIn \n"
                                     "      ForeColor       =   &H000000FF&\n"
                                     "      Height          =   100\n"
                                     "      Left            =   10\n"
                                     "      Top             =   20\n"
                                     "      Width           =   100\n"
                                     "      Begin VB.TextBox txtIn \n"
                                     "         Height          =   300\n"
                                     "         Left            =   150\n"
                                     "         Top             =   300\n"
                                     "         Width           =   9000\n"
                                     "      End\n"
                                     "      Begin VB.Timer tmr \n"
                                     "         Left            =   0\n"
                                     "         Top             =   900\n"
                                     "      End\n"
                                     "   End\n"
                                     "   Begin VB.PictureBox pic \n"
                                     "      BorderStyle     =   0  'None\n"
                                     "      Height          =   50\n"
                                     "      Left            =   200\n"
                                     "      ScaleHeight     =   100\n"
                                     "      ScaleMode       =   0  'User\n"
                                     "      ScaleWidth      =   100\n"
                                     "      Top             =   0\n"
                                     "      Width           =   50\n"
                                     "      Begin VB.Line linIn \n"
                                     "         X1              =   100\n"
                                     "         X2              =   0\n"
                                     "         Y1              =   0\n"
                                     "         Y2              =   50\n"
                                     "      End\n"
                                     "   End\n"
                                     "   Begin TabDlg.SSTab tab \n"
                                     "      Height          =   750\n"
                                     "      Left            =   3000\n"
                                     "      Top             =   1500\n"
                                     "      Width           =   1200\n"
                                     "      Tab             =   1\n"
                                     "      TabCaption(0)   =   \"One\"\n"
                                     "      TabCaption(1)   =   \"T&wo\"\n"
                                     "      Begin VB.CommandButton cmdHidden \n"
                                     "         Height          =   300\n"
                                     "         Left            =   -74880\n"
                                     "         Width           =   300\n"
                                     "      End\n"
                                     "      Begin VB.CommandButton cmdShown \n"
                                     "         Height          =   300\n"
                                     "         Left            =   120\n"
                                     "         Width           =   300\n"
                                     "      End\n"
                                     "   End\n"
                                     "   Begin VB.Menu mnuFile \n"
                                     "      Caption         =   \"&File\"\n"
                                     "      Begin VB.Menu mnuExit \n"
                                     "         Caption         =   \"E&xit\"\n"
                                     "      End\n"
                                     "   End\n"
                                     "   Begin VB.Menu mnuPopup \n"
                                     "      Visible         =   0   'False\n"
                                     "   End\n"
                                     "End\n";

FileDesigner Designed(std::string_view layout) {
    return FileDesigner(modCodeLines::SplitText(layout), true);
}

TwipRect BoundsOf(FileDesigner& designer, const FormLayout& layout, std::string_view name) {
    for (const PlacedControl& placed : layout.Controls()) {
        if (designer.Control(placed.Control).Name() == name) {
            return placed.Bounds;
        }
    }
    ADD_FAILURE() << name << " is not placed";
    return {};
}

std::string NameAt(FileDesigner& designer, const FormLayout& layout, double x, double y) {
    const std::int32_t control = layout.ControlAt(x, y);
    return control == 0 ? "" : designer.Control(control).Name();
}

}  // namespace

TEST(DesignerProperties, AreReadFromTheLayout) {
    FileDesigner designer = Designed(kLayout);
    const DesignerProperties& form = designer.Properties();
    EXPECT_EQ(designer.Name(), "frmAll");
    EXPECT_EQ(form.Text("caption"), "The \"form\"");
    EXPECT_EQ(form.Number("Font.Size"), 9.75);
    EXPECT_EQ(form.Text("Icon"), "") << "it is in another file";
    EXPECT_EQ(form.WholeNumber("ScaleMode"), 3);
    EXPECT_EQ(form.Colour("BackColor", 0), 0xFFFFFFU);
    EXPECT_EQ(form.Colour("ForeColor", 7), 7U);
    EXPECT_EQ(
        designer.FindControl("fraIn", std::nullopt)->Properties().Colour("ForeColor", 0),
        0xFF0000U);
    EXPECT_FALSE(
        designer.FindControl("mnuPopup", std::nullopt)->Properties().Flag("Visible", true));
    EXPECT_TRUE(form.Flag("Visible", true));
}

TEST(DesignerProperties, NumbersThatAreNoneAreNotThere) {
    DesignerProperties properties;
    properties.Add("a", "x");
    properties.Add("b", "&HFFFFFFFFFF&");
    properties.Add("c", "1e999");
    properties.Add("d", "&H800000FF&");
    properties.Add("e", "\"open");
    EXPECT_EQ(properties.Number("a"), std::nullopt);
    EXPECT_EQ(properties.Number("b"), std::nullopt);
    EXPECT_EQ(properties.WholeNumber("c", 4), 4);
    EXPECT_EQ(properties.Colour("d", 5), 5U) << "no such colour of the system";
    EXPECT_EQ(properties.Text("e"), "open");
}

TEST(FormLayout, EachControlIsInTheScaleOfItsContainer) {
    FileDesigner designer = Designed(kLayout);
    const FormLayout layout(designer);
    EXPECT_EQ(layout.Width(), 4500);
    EXPECT_EQ(layout.Height(), 3000);
    EXPECT_EQ(BoundsOf(designer, layout, "fraIn"), (TwipRect{150, 300, 1500, 1500}));
    EXPECT_EQ(BoundsOf(designer, layout, "txtIn"), (TwipRect{300, 600, 9000, 300}));
    EXPECT_EQ(BoundsOf(designer, layout, "tmr"), (TwipRect{150, 1200, 420, 420}));
    EXPECT_EQ(BoundsOf(designer, layout, "linIn"), (TwipRect{3000, 0, 750, 375}));
    EXPECT_EQ(BoundsOf(designer, layout, "tab"), (TwipRect{3000, 1500, 1200, 750}))
        << "one of another library is in twips";
}

TEST(FormLayout, TheControlInFrontIsAtAPlace) {
    FileDesigner designer = Designed(kLayout);
    const FormLayout layout(designer);
    EXPECT_EQ(NameAt(designer, layout, 200, 160), "lblBelow");
    EXPECT_EQ(NameAt(designer, layout, 200, 350), "fraIn") << "labels are below what has a window";
    EXPECT_EQ(NameAt(designer, layout, 400, 700), "txtIn");
    EXPECT_EQ(NameAt(designer, layout, 1700, 700), "") << "the frame cuts the box";
    EXPECT_EQ(NameAt(designer, layout, 3380, 190), "linIn");
    EXPECT_EQ(NameAt(designer, layout, 3130, 1510), "cmdShown");
    EXPECT_EQ(NameAt(designer, layout, 4400, 2900), "");
    EXPECT_EQ(NameAt(designer, layout, -10, -10), "");
}

TEST(FormLayout, HasTheVisibleMenusAndTheTabs) {
    FileDesigner designer = Designed(kLayout);
    const FormLayout layout(designer);
    ASSERT_EQ(layout.Menus().size(), 1U);
    EXPECT_EQ(designer.Control(layout.Menus()[0]).Name(), "mnuFile");
    EXPECT_EQ(layout.Find(layout.Menus()[0]), nullptr);
    const DesignerProperties& tab = designer.FindControl("tab", std::nullopt)->Properties();
    EXPECT_EQ(TabCaptions(tab), (std::vector<std::string>{"One", "T&wo"}));
    EXPECT_EQ(ShownTab(tab), 1U);
}

TEST(FormLayout, KindsAreKnownByTheirClass) {
    EXPECT_EQ(LookOf("VB.OptionButton"), ControlLook::Option);
    EXPECT_EQ(LookOf("VB.CommandButton"), ControlLook::Button);
    EXPECT_EQ(LookOf("Library.LabelX"), ControlLook::Label);
    EXPECT_EQ(LookOf("VB.Line"), ControlLook::Line);
    EXPECT_EQ(LookOf("MSComctlLib.ListView"), ControlLook::ListView);
    EXPECT_EQ(LookOf("Billing.ctlPulse"), ControlLook::Unknown);
    EXPECT_EQ(LookOf(""), ControlLook::Unknown);
}

TEST(FormLayout, HostileSizesAreLimited) {
    FileDesigner designer =
        Designed("Begin VB.Form f\nClientWidth = 1e300\nClientHeight = -4\nScaleMode = 99\n"
                 "Begin VB.Label l\nLeft = -1e300\nWidth = 1e300\nHeight = -1\nEnd\nEnd\n");
    const FormLayout layout(designer);
    EXPECT_EQ(layout.Width(), 1'000'000);
    EXPECT_EQ(layout.Height(), 4800);
    EXPECT_EQ(layout.Controls()[0].Bounds, (TwipRect{-1'000'000, 0, 1'000'000, 0}));
    std::vector<std::string> deep{"Begin VB.Form f"};
    deep.resize(20'000, "Begin VB.Frame x");
    FileDesigner frames(deep, true);
    EXPECT_EQ(FormLayout(frames).Controls().size(), 19'999U);
}

}  // namespace dorvik
