#include "workstation/filehost/FileDesigner.h"

#include "base/BasicError.h"
#include "workstation/filehost/FileHost.h"
#include "workstation/filehost/HostFolder.h"
#include "workstation/filehost/modCodeLines.h"

#include <gtest/gtest.h>

namespace dorvik {

namespace {

using Texts = std::vector<std::string>;

Texts Described(FileDesigner& designer) {
    Texts all;
    for (std::int32_t number = 1; number <= designer.ControlCount(); ++number) {
        const FileDesignerControl& control = designer.Control(number);
        all.push_back(
            control.Type() + " " + control.Name() +
            (control.Index() ? "(" + std::to_string(*control.Index()) + ")" : "") + " in " +
            std::to_string(control.Container()));
    }
    return all;
}

}  // namespace

TEST(FileDesigner, HasTheControlsOfTheLayoutAsATree) {
    FileDesigner designer(modCodeLines::SplitText(test::HostFolder::kForm), true);
    EXPECT_EQ(designer.Type(), "VB.Form");
    EXPECT_EQ(
        Described(designer),
        (Texts{
            "VB.Frame fra in 0",
            "VB.TextBox Text1(0) in 1",
            "VB.TextBox Text1(3) in 1",
            "VB.Menu mnuFile in 0"}));
}

TEST(FileDesigner, ControlIsFoundByNameAndIndex) {
    FileDesigner designer(modCodeLines::SplitText(test::HostFolder::kForm), true);
    EXPECT_EQ(designer.FindControl("TEXT1", 3), &designer.Control(3));
    EXPECT_EQ(designer.FindControl("Text1", std::nullopt), &designer.Control(2));
    EXPECT_EQ(designer.FindControl("Text1", 1), nullptr);
    EXPECT_EQ(designer.FindControl("fra", 0), nullptr);
    EXPECT_EQ(designer.FindControl("frmMain", std::nullopt), nullptr);
    EXPECT_THROW(designer.Control(0), BasicError);
    EXPECT_THROW(designer.Control(5), BasicError);
}

TEST(FileDesigner, SelectionIsReportedOnce) {
    FileDesigner designer(modCodeLines::SplitText(test::HostFolder::kForm), true);
    Texts said;
    const Subscription watch = designer.SelectionChanged.Subscribe(
        [&](FileDesignerControl& control) { said.push_back(control.Name()); });
    designer.Control(1).SetSelected(true);
    designer.Control(1).SetSelected(true);
    designer.Control(1).SetSelected(false);
    designer.Control(2).SetSelected(false);
    EXPECT_EQ(said, (Texts{"fra", "fra"}));
}

TEST(FileDesigner, ClassicDesignerIsNoFormDesigner) {
    const test::TemporaryFolder folder;
    folder.Write(
        "d.Dsr",
        test::Dos("VERSION 5.00\nBegin {C0E45035} d \n   Index = 1\nEnd\nAttribute VB_Name = "
                  "\"d\"\nDim x\n"));
    FileHost host;
    host.Open(folder.Write("P.vbp", test::Dos("Designer=d.Dsr\nName=\"P\"\n")));
    FileComponent& component = host.Project(1).Component("d");
    ASSERT_NE(component.Designer(), nullptr);
    EXPECT_FALSE(component.Designer()->IsFormDesigner());
    EXPECT_EQ(component.Designer()->ControlCount(), 0);
    EXPECT_NE(component.DesignerWindow(), nullptr);
}

TEST(FileDesigner, DeepAndBrokenLayoutsEnd) {
    Texts lines{"Begin VB.Form f"};
    for (int depth = 0; depth < 50'000; ++depth) {
        lines.emplace_back("Begin VB.Frame x");
    }
    lines.emplace_back("EndProperty");
    lines.emplace_back("Begin ");
    FileDesigner deep(lines, true);
    EXPECT_EQ(deep.ControlCount(), 50'000);
    FileDesigner none({}, true);
    EXPECT_EQ(none.ControlCount(), 0);
    FileDesigner stray(
        {"End", "Index = 3", "Begin x", "Begin y", "Index = 99999999999", "End"}, true);
    EXPECT_EQ(Described(stray), Texts{"y  in 0"});
}

}  // namespace dorvik
