#include "workstation/controls/CheckList.h"
#include "workstation/controls/CheckTree.h"
#include "workstation/look/modQt.h"
#include "workstation/widgets/CheckListView.h"
#include "workstation/widgets/CheckTreeView.h"

#include <QTest>
#include <gtest/gtest.h>

namespace dorvik::test {

namespace {

Qt::CheckState MarkOf(const QModelIndex& index) {
    return static_cast<Qt::CheckState>(index.data(Qt::CheckStateRole).toInt());
}

std::string TextOf(const QModelIndex& index) {
    return modQt::Utf8(index.data().toString());
}

class CheckTreeViewTest : public testing::Test {
protected:
    CheckTreeViewTest() {
        m_project = &m_tree.Add(nullptr, {.Text = "Demo", .Checked = true, .Expanded = true});
        m_type = &m_tree.Add(m_project, {.Text = "Forms", .Checked = true});
        m_file = &m_tree.Add(m_type, {.Text = "frmMain", .Checked = false});
        m_view.show();
    }

    QModelIndex Project() const { return m_view.model()->index(0, 0); }
    QModelIndex Type() const { return m_view.model()->index(0, 0, Project()); }
    QModelIndex File() const { return m_view.model()->index(0, 0, Type()); }

    CheckTree m_tree;
    CheckNode* m_project = nullptr;
    CheckNode* m_type = nullptr;
    CheckNode* m_file = nullptr;
    CheckTreeView m_view{m_tree, nullptr};
};

TEST_F(CheckTreeViewTest, ShowsTheNodesBelowTheirParents) {
    EXPECT_EQ(TextOf(Project()), "Demo");
    EXPECT_EQ(TextOf(Type()), "Forms");
    EXPECT_EQ(TextOf(File()), "frmMain");
    EXPECT_EQ(MarkOf(Type()), Qt::Checked);
    EXPECT_EQ(MarkOf(File()), Qt::Unchecked);
    EXPECT_EQ(File().parent(), Type());
}

TEST_F(CheckTreeViewTest, NodesAreOpenAsTheyAreInTheTree) {
    EXPECT_TRUE(m_view.isExpanded(Project()));
    EXPECT_FALSE(m_view.isExpanded(Type()));
    m_view.setCurrentIndex(Type());
    QTest::keyClick(&m_view, Qt::Key_Right);
    EXPECT_TRUE(m_type->Expanded);
    m_tree.Add(m_project, {.Text = "Modules"});
    EXPECT_TRUE(m_view.isExpanded(Type())) << "what the user opened stays open";
    m_view.setCurrentIndex(Type());
    QTest::keyClick(&m_view, Qt::Key_Left);
    EXPECT_FALSE(m_type->Expanded);
}

TEST_F(CheckTreeViewTest, SpaceIsAMarkOfTheUser) {
    const CheckNode* checked = nullptr;
    const Subscription heard =
        m_tree.NodeChecked.Subscribe([&](const CheckNode& node) { checked = &node; });
    m_view.setCurrentIndex(Type());
    QTest::keyClick(&m_view, Qt::Key_Space);
    EXPECT_EQ(checked, m_type);
    EXPECT_FALSE(m_type->Checked);
    EXPECT_EQ(MarkOf(Type()), Qt::Unchecked);
}

TEST_F(CheckTreeViewTest, AClickOnTheMarkChecks) {
    const QRect row = m_view.visualRect(Project());
    const int mark = row.height() / 2;
    QTest::mouseClick(m_view.viewport(), Qt::LeftButton, {}, row.topLeft() + QPoint(mark, mark));
    EXPECT_FALSE(m_project->Checked);
}

TEST_F(CheckTreeViewTest, MarksOfTheProgramAreShown) {
    std::vector<QModelIndex> changed;
    QObject::connect(
        m_view.model(), &QAbstractItemModel::dataChanged, &m_view, [&](const QModelIndex& index) {
            changed.push_back(index);
        });
    m_tree.SetChecked(*m_file, true);
    EXPECT_EQ(changed, std::vector<QModelIndex>{File()});
    EXPECT_EQ(MarkOf(File()), Qt::Checked);
    m_tree.Clear();
    EXPECT_EQ(m_view.model()->rowCount(), 0);
}

class CheckListViewTest : public testing::Test {
protected:
    CheckListViewTest() {
        m_list.Fill(
            {{.Key = "1K", .Text = "Jumps", .Checked = true}, {.Key = "2K", .Text = "Clarity"}});
        m_view.show();
    }
    QModelIndex At(int row, int column = 0) const { return m_view.model()->index(row, column); }

    CheckList m_list;
    CheckListView m_view{m_list, nullptr};
};

TEST_F(CheckListViewTest, ShowsTheItemsAndTheirMarks) {
    EXPECT_EQ(m_view.model()->rowCount(), 2);
    EXPECT_EQ(TextOf(At(0)), "Jumps");
    EXPECT_EQ(MarkOf(At(0)), Qt::Checked);
    EXPECT_EQ(MarkOf(At(1)), Qt::Unchecked);
}

TEST_F(CheckListViewTest, SpaceAndClicksSetTheMark) {
    m_view.setCurrentIndex(At(1));
    QTest::keyClick(&m_view, Qt::Key_Space);
    EXPECT_TRUE(m_list.Item(1).Checked);
    const QRect row = m_view.visualRect(At(0));
    const int mark = row.height() / 2;
    QTest::mouseClick(m_view.viewport(), Qt::LeftButton, {}, row.topLeft() + QPoint(mark, mark));
    EXPECT_FALSE(m_list.Item(0).Checked);
}

TEST_F(CheckListViewTest, MarksForAllKeepThePlaceOfTheUser) {
    m_view.setCurrentIndex(At(1));
    m_list.SetAll(true);
    EXPECT_EQ(MarkOf(At(1)), Qt::Checked);
    EXPECT_EQ(m_view.currentIndex().row(), 1);
    m_list.SetChecked(0, false);
    EXPECT_EQ(MarkOf(At(0)), Qt::Unchecked);
}

TEST_F(CheckListViewTest, DescriptionsHaveAColumnWhereThereAreAny) {
    EXPECT_EQ(m_view.model()->columnCount(), 1);
    m_list.Fill({{.Key = "1K", .Text = "Jumps", .Description = "Jumps of the code."}});
    ASSERT_EQ(m_view.model()->columnCount(), 2);
    EXPECT_EQ(TextOf(At(0, 1)), "Jumps of the code.");
    EXPECT_EQ(
        modQt::Utf8(At(0).data(Qt::AccessibleDescriptionRole).toString()), "Jumps of the code.");
}

}  // namespace

}  // namespace dorvik::test
