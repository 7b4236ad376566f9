#include "WidgetHands.h"

#include "modUserHands.h"
#include "modWidgetComparison.h"
#include "workstation/application/Connect.h"
#include "workstation/controls/modGridOrder.h"
#include "workstation/ide/IDEHelper.h"
#include "workstation/ide/IDEMenus.h"
#include "workstation/ide/udocDorvik.h"
#include "workstation/look/modQt.h"
#include "workstation/session/Session.h"
#include "workstation/view/ResultsView.h"
#include "workstation/widgets/CommandMenu.h"
#include "workstation/widgets/GridModel.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenuBar>
#include <QPointer>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <stdexcept>

namespace dorvik::test {

namespace {

constexpr const char* kNotStarted = "bench that is not started";

/// Counted from 1; 0 for a word that is none.
std::size_t PositionIn(const std::string& word) {
    std::size_t number = 0;
    std::from_chars(word.data(), word.data() + word.size(), number);
    return number;
}

const IDEMenus* MenusOf(Session& session) {
    const IDEHelper* const helper = session.AddIn().IDEHelper();
    const IDEMenus* const menus = helper == nullptr ? nullptr : helper->DorvikMenus();
    return menus == nullptr || menus->DorvikMenu() == nullptr ? nullptr : menus;
}

/// In the widget or in a menu below it.
QMenu* FindMenu(const QWidget& widget, const QString& title) {
    for (const QAction* const action : widget.actions()) {
        QMenu* const menu = action->menu();
        if (menu == nullptr) {
            continue;
        }
        if (action->text() == title) {
            return menu;
        }
        if (QMenu* const below = FindMenu(*menu, title)) {
            return below;
        }
    }
    return nullptr;
}

/// The column as the view has it; -1 for one that does not show.
int SectionOf(const GridView& list, std::int32_t column) {
    const auto& model = static_cast<const GridModel&>(*list.model());
    for (int section = 0; section < model.columnCount(); ++section) {
        if (model.ColumnOf(section) == column) {
            return section;
        }
    }
    return -1;
}

/// The row among those that show; nothing for one in a closed group.
std::optional<std::size_t> ShownRow(const Grid& grid, std::size_t dataRow) {
    const std::int32_t key = grid.KeyOfDataRow(dataRow);
    for (std::size_t row = 0; row < grid.RowCount(); ++row) {
        if (grid.KeyOfRow(row) == key) {
            return row;
        }
    }
    return std::nullopt;
}

}  // namespace

struct WidgetHands::Command {
    std::string_view Name;
    bool (WidgetHands::*Do)(const SessionWords&, SessionRefusal&);
};

const WidgetHands::Command WidgetHands::kCommands[] = {
    {"stop", &WidgetHands::Stop},
    {"menu", &WidgetHands::Menu},
    {"file", &WidgetHands::File},
    {"procedure", &WidgetHands::Procedure},
    {"view", &WidgetHands::View},
    {"row", &WidgetHands::Row},
    {"complete", &WidgetHands::Complete},
    {"sort", &WidgetHands::Sort},
    {"group", &WidgetHands::Group},
    {"ungroup", &WidgetHands::Ungroup},
    {"header", &WidgetHands::Header},
    {"item", &WidgetHands::Item},
    {"goto", &WidgetHands::GoToSource},
    {"summary", &WidgetHands::Summary},
    {"cancel", &WidgetHands::Cancel},
};

/// An action of a bar, and whether it and all menus around it are enabled.
struct WidgetHands::FoundAction {
    QAction* Action = nullptr;
    bool IsEnabled = false;

    static FoundAction In(const QWidget& widget, const QString& tag) {
        for (QAction* const action : widget.actions()) {
            if (action->objectName() == tag) {
                return {action, action->isEnabled()};
            }
            const FoundAction below =
                action->menu() == nullptr ? FoundAction() : In(*action->menu(), tag);
            if (below.Action != nullptr) {
                return {below.Action, below.IsEnabled && action->isEnabled()};
            }
        }
        return {};
    }
};

WidgetHands::WidgetHands(Session& session, Fallbacks& fallbacks)
    : m_session(session),
      m_fallbacks(fallbacks),
      m_forms(fallbacks),
      m_messages(session.Messages(), fallbacks, [this] { return m_forms.ShowsProgress(); }),
      m_bar(*m_window.menuBar()),
      m_menuBar(std::make_unique<CommandMenuBar>(
          session.Host().Environment().MenuBar(),
          m_bar,
          CommandMenuBar::OwnMenus{{hostcommand::kToolsMenu, &m_tools}})) {
    m_stepRefused = session.Screen().Refused.Subscribe(
        [this](std::int32_t, const std::string&) { m_fallbacks.Refused(); });
    m_window.resize(1200, 700);
    m_window.show();
}

WidgetHands::~WidgetHands() {
    modUserHands::Settle();
}

bool WidgetHands::Do(const std::string& name, const SessionWords& words, SessionRefusal& refusal) {
    const auto* const command = std::ranges::find_if(
        kCommands, [&](const Command& candidate) { return candidate.Name == name; });
    return command != std::end(kCommands) && Counted(name, (this->*command->Do)(words, refusal));
}

void WidgetHands::Done(const SessionRefusal& refusal) {
    // Whatever there is has a widget.
    if (refusal) {
        m_fallbacks.Refused();
    }
    EXPECT_EQ(m_fallbacks.TakeDone(), 0);
    modUserHands::Settle();
    FollowDocument();
    CompareBench();
    CompareBars();
    m_forms.Compare();
}

void WidgetHands::FollowDocument() {
    udocDorvik* const document = m_session.Document();
    if (document == m_document) {
        return;
    }
    m_bench.reset();
    m_toolBar.reset();
    m_document = document;
    if (document != nullptr) {
        m_bench = std::make_unique<WorkbenchView>(*document, &m_window);
        m_bench->resize(m_window.size());
        m_bench->show();
    }
    if (const IDEMenus* const menus = MenusOf(m_session); document != nullptr && menus != nullptr) {
        m_toolBar = std::make_unique<CommandToolBar>(*menus->Toolbar(), &m_window);
        m_window.addToolBar(m_toolBar.get());
    }
    modUserHands::Settle();
}

/// What shows the document goes before it.
bool WidgetHands::Stop(const SessionWords& /*words*/, SessionRefusal& /*refusal*/) {
    m_bench.reset();
    m_toolBar.reset();
    m_document = nullptr;
    return false;
}

WorkbenchControls& WidgetHands::Controls() const {
    return m_session.Document()->Controls();
}

bool WidgetHands::IsList() const {
    return m_bench != nullptr &&
           m_session.Document()->Results().ViewType() == viewtype::kViolationList;
}

// ---- menus ----

QMenu* WidgetHands::DorvikMenu() const {
    const IDEMenus* const menus = MenusOf(m_session);
    return menus == nullptr ? nullptr
                            : FindMenu(m_bar, modQt::Text(menus->DorvikMenu()->Look().Caption));
}

bool WidgetHands::Trigger(const FoundAction& found, std::string_view tag, SessionRefusal& refusal) {
    if (!found.IsEnabled) {
        refusal = "the menu item '" + std::string(tag) + "' is disabled";
    } else {
        found.Action->trigger();
    }
    return true;
}

/// The menu is opened, the toolbar is there, the popup comes by a click with the right button.
bool WidgetHands::Menu(const SessionWords& words, SessionRefusal& refusal) {
    const IDEMenus* const menus = MenusOf(m_session);
    if (menus == nullptr) {
        return m_fallbacks.Leave(kNotStarted);
    }
    const QString tag = modQt::Text(words[0]);
    QMenu* const menu = DorvikMenu();
    if (menu == nullptr) {
        ADD_FAILURE() << "the menu bar has no menu of the add-in";
        return false;
    }
    const bool isMenu = words[0] == menus->DorvikMenu()->Look().Tag;
    if (isMenu || FoundAction::In(*menu, tag).Action != nullptr) {
        menu->popup(m_window.mapToGlobal(QPoint(0, 0)));
        const FoundAction found = FoundAction::In(*menu, tag);
        menu->close();
        return isMenu || Trigger(found, words[0], refusal);
    }
    if (const FoundAction found = FoundAction::In(*m_toolBar, tag); found.Action != nullptr) {
        return Trigger(found, words[0], refusal);
    }
    if (menus->ListPopupMenu()->FindTag(words[0]) == nullptr) {
        return m_fallbacks.Leave("menu item that is not there");
    }
    QContextMenuEvent event(
        QContextMenuEvent::Mouse,
        QPoint(5, 5),
        m_bench->List().viewport()->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(m_bench->List().viewport(), &event);
    QWidget* const popup = QApplication::activePopupWidget();
    if (popup == nullptr) {
        return m_fallbacks.Leave("popup of a list that has none");
    }
    const auto& shown = static_cast<const CommandMenu&>(*popup);
    modWidgetComparison::Compare(shown.Commands().Actions(), *menus->ListPopupMenu());
    const FoundAction found = FoundAction::In(*popup, tag);
    popup->close();
    return found.Action == nullptr ? m_fallbacks.Leave("item that the popup does not have")
                                   : Trigger(found, words[0], refusal);
}

// ---- boxes and buttons ----

QComboBox& WidgetHands::Box(std::string_view name) const {
    for (QComboBox* const box : m_bench->findChildren<QComboBox*>()) {
        if (box->accessibleName() == modQt::Text(name)) {
            return *box;
        }
    }
    throw std::runtime_error("no box " + std::string(name));
}

bool WidgetHands::ChooseIn(std::string_view name, const ComboBox& items, const std::string& key) {
    const std::optional<std::size_t> index = items.Find(key);
    QComboBox& box = Box(name);
    if (!index) {
        return m_fallbacks.Leave("item that a box does not have");
    }
    if (!box.isEnabled()) {
        return m_fallbacks.Leave("box that is disabled");
    }
    modUserHands::ChooseItem(box, static_cast<int>(*index));
    return true;
}

bool WidgetHands::File(const SessionWords& words, SessionRefusal& /*refusal*/) {
    return m_bench == nullptr ? m_fallbacks.Leave(kNotStarted)
                              : ChooseIn("Source file", Controls().Files, words[0]);
}

bool WidgetHands::Procedure(const SessionWords& words, SessionRefusal& /*refusal*/) {
    return m_bench == nullptr ? m_fallbacks.Leave(kNotStarted)
                              : ChooseIn("Procedure", Controls().Procedures, words[0]);
}

void WidgetHands::ClickButton(std::string_view text) const {
    for (QToolButton* const button : m_bench->findChildren<QToolButton*>()) {
        if (button->text().remove(QLatin1Char('&')) == modQt::Text(text)) {
            EXPECT_TRUE(button->isVisible() && button->isEnabled()) << text;
            modUserHands::Click(*button);
            return;
        }
    }
    throw std::runtime_error("no button " + std::string(text));
}

bool WidgetHands::View(const SessionWords& words, SessionRefusal& /*refusal*/) {
    if (m_bench == nullptr) {
        return m_fallbacks.Leave(kNotStarted);
    }
    ClickButton(words[0] == "list" ? "Violation list" : "Hotspots");
    return true;
}

bool WidgetHands::GoToSource(const SessionWords& /*words*/, SessionRefusal& /*refusal*/) {
    if (m_bench == nullptr) {
        return m_fallbacks.Leave(kNotStarted);
    }
    ClickButton("Go To Source");
    return true;
}

// ---- the list ----

bool WidgetHands::ClickRow(std::size_t row) {
    GridView& list = m_bench->List();
    const int section = SectionOf(list, Controls().List.FindColumn("Title").value());
    modUserHands::ClickCell(list, list.model()->index(static_cast<int>(row), std::max(0, section)));
    return true;
}

bool WidgetHands::Row(const SessionWords& words, SessionRefusal& /*refusal*/) {
    const std::size_t number = PositionIn(words[0]);
    if (!IsList() || number < 1 || number > Controls().List.DataRowCount()) {
        return m_fallbacks.Leave("row that is not there");
    }
    const std::optional<std::size_t> row = ShownRow(Controls().List, number - 1);
    return row ? ClickRow(*row) : m_fallbacks.Leave("row in a closed group");
}

/// By a click on the mark, and by Space, back and forth; the user then goes back to where he was.
bool WidgetHands::Complete(const SessionWords& words, SessionRefusal& /*refusal*/) {
    const std::size_t number = PositionIn(words[0]);
    if (!IsList() || number < 1 || number > Controls().List.DataRowCount()) {
        return m_fallbacks.Leave("row that is not there");
    }
    Grid& grid = Controls().List;
    const std::int32_t key = grid.KeyOfDataRow(number - 1);
    const std::int32_t column = grid.FindColumn("Completed").value();
    if ((grid.Value(key, column).AsLong() != 0) == (words[1] == "on")) {
        return m_fallbacks.Leave("mark that is set already");
    }
    const std::optional<std::size_t> row = ShownRow(Controls().List, number - 1);
    if (!row) {
        return m_fallbacks.Leave("row in a closed group");
    }
    const std::optional<std::size_t> before = grid.CurrentRow();
    GridView& list = m_bench->List();
    const auto isMarked = [&] {
        return grid.Value(key, column).AsLong() != 0;
    };
    modUserHands::ClickCell(
        list, list.model()->index(static_cast<int>(*row), SectionOf(list, column)));
    EXPECT_EQ(isMarked(), words[1] == "on");
    QTest::keyClick(&list, Qt::Key_Space);
    EXPECT_EQ(isMarked(), words[1] != "on");
    QTest::keyClick(&list, Qt::Key_Space);
    EXPECT_EQ(isMarked(), words[1] == "on");
    if (before && before != row && *before < grid.RowCount()) {
        ClickRow(*before);
    }
    return true;
}

bool WidgetHands::Sort(const SessionWords& words, SessionRefusal& /*refusal*/) {
    const auto column = IsList() ? Controls().List.FindColumn(words[0]) : std::nullopt;
    if (!column) {
        return m_fallbacks.Leave("column that is not there");
    }
    const int section = SectionOf(m_bench->List(), *column);
    if (section < 0) {
        return m_fallbacks.Leave("heading of a column that does not show");
    }
    const std::vector<GridOrderKey> wanted{{*column, words.size() > 1}};
    // Up, down, and up again.
    for (int clicks = 0; clicks < 3 && Controls().List.SortKeys() != wanted; ++clicks) {
        modUserHands::ClickHeading(*m_bench->List().header(), section);
    }
    EXPECT_EQ(Controls().List.SortKeys(), wanted);
    return true;
}

bool WidgetHands::Group(const SessionWords& words, SessionRefusal& /*refusal*/) {
    const auto column = IsList() ? Controls().List.FindColumn(words[0]) : std::nullopt;
    if (!column) {
        return m_fallbacks.Leave("column that is not there");
    }
    const Grid& grid = Controls().List;
    GroupByBar& bar = m_bench->Groups();
    if (!grid.HasGroup(*column)) {
        QMenu& menu = *bar.AddButton().menu();
        menu.popup(m_window.mapToGlobal(QPoint(0, 0)));
        menu.close();
        const QString title = modQt::Text(modGridOrder::TitleOf(grid, *column));
        const auto actions = menu.actions();
        const auto found = std::ranges::find_if(
            actions, [&](const QAction* action) { return action->text() == title; });
        if (found == actions.end()) {
            return m_fallbacks.Leave("column that cannot be grouped by");
        }
        (*found)->trigger();
    }
    const auto group = std::ranges::find_if(
        grid.Groups(), [&](const GridOrderKey& key) { return key.Column == *column; });
    if (group != grid.Groups().end() && group->Descending != (words.size() > 1)) {
        const auto place = static_cast<std::size_t>(group - grid.Groups().begin());
        QTest::keyClick(bar.Chips().at(place), Qt::Key_Space);
    }
    return true;
}

bool WidgetHands::Ungroup(const SessionWords& words, SessionRefusal& /*refusal*/) {
    const auto column = IsList() ? Controls().List.FindColumn(words[0]) : std::nullopt;
    if (!column || !Controls().List.HasGroup(*column)) {
        return m_fallbacks.Leave("column that is not there");
    }
    const std::vector<GridOrderKey>& groups = Controls().List.Groups();
    const auto group = std::ranges::find_if(
        groups, [&](const GridOrderKey& key) { return key.Column == *column; });
    QTest::keyClick(
        m_bench->Groups().Chips().at(static_cast<std::size_t>(group - groups.begin())),
        Qt::Key_Delete);
    return true;
}

// ---- hotspots ----

bool WidgetHands::Header(const SessionWords& words, SessionRefusal& /*refusal*/) {
    const std::size_t number = PositionIn(words[0]);
    if (m_bench == nullptr || IsList() || number < 1 ||
        number > Controls().Hotspots.Columns().size()) {
        return m_fallbacks.Leave("column that is not there");
    }
    modUserHands::ClickHeading(*m_bench->Hotspots().header(), static_cast<int>(number) - 1);
    return true;
}

bool WidgetHands::Item(const SessionWords& words, SessionRefusal& /*refusal*/) {
    const std::size_t number = PositionIn(words[0]);
    if (m_bench == nullptr || IsList() || number < 1 || number > Controls().Hotspots.Count()) {
        return m_fallbacks.Leave("row that is not there");
    }
    ListTableView& table = m_bench->Hotspots();
    modUserHands::ClickCell(table, table.model()->index(static_cast<int>(number) - 1, 0));
    return true;
}

// ---- forms that stay open ----

bool WidgetHands::Summary(const SessionWords& words, SessionRefusal& refusal) {
    return m_forms.Summary(words, refusal);
}

bool WidgetHands::Cancel(const SessionWords& /*words*/, SessionRefusal& /*refusal*/) {
    return m_session.BackgroundReview() == nullptr ? m_fallbacks.Leave("review that does not run")
                                                   : m_forms.CancelReview();
}

// ---- widgets and models ----

void WidgetHands::CompareBench() {
    if (m_bench == nullptr) {
        return;
    }
    modWidgetComparison::Compare(Box("Source file"), Controls().Files);
    modWidgetComparison::Compare(Box("Procedure"), Controls().Procedures);
    modWidgetComparison::Compare(*m_bench, m_session.Document()->Results(), Controls());
}

void WidgetHands::CompareBars() {
    const IDEMenus* const menus = MenusOf(m_session);
    if (menus == nullptr || m_toolBar == nullptr) {
        return;
    }
    if (const QMenu* const menu = DorvikMenu()) {
        modWidgetComparison::Compare(*menu, *menus->DorvikMenu());
    }
    modWidgetComparison::Compare(*m_toolBar, *menus->Toolbar());
}

}  // namespace dorvik::test
