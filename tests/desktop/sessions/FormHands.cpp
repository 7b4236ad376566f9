#include "FormHands.h"

#include "modUserHands.h"
#include "modWidgetComparison.h"
#include "platform/host/modHostPath.h"
#include "workstation/dialogs/frmAbout.h"
#include "workstation/dialogs/frmOptions.h"
#include "workstation/dialogs/frmProgress.h"
#include "workstation/dialogs/frmReviewOptions.h"
#include "workstation/dialogs/frmReviewSummary.h"
#include "workstation/forms/AboutWindow.h"
#include "workstation/forms/OptionsWindow.h"
#include "workstation/forms/ProgressWindow.h"
#include "workstation/forms/ReviewOptionsWindow.h"
#include "workstation/forms/SummaryWindow.h"
#include "workstation/forms/modPathText.h"
#include "workstation/look/modQt.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTreeView>
#include <gtest/gtest.h>

#include <charconv>
#include <stdexcept>

namespace dorvik::test {

namespace {

template <typename Control>
Control& Find(const QWidget& window, const std::string& name) {
    auto* const found = window.findChild<Control*>(modQt::Text(name));
    if (found == nullptr) {
        throw std::runtime_error("no control " + name);
    }
    return *found;
}

/// Of a box with a text of its own, the line that is typed into.
QLineEdit* LineOf(const QWidget& window, const std::string& name) {
    const auto* const box = window.findChild<QComboBox*>(modQt::Text(name));
    return box == nullptr ? window.findChild<QLineEdit*>(modQt::Text(name)) : box->lineEdit();
}

/// The page of a control is put in front by a click on its tab.
void TurnTo(const QWidget& window, const QWidget& control) {
    QTabWidget& pages = *window.findChild<QTabWidget*>();
    for (int page = 0; page < pages.count(); ++page) {
        if (pages.widget(page)->isAncestorOf(&control) && pages.currentIndex() != page) {
            modUserHands::ClickTab(*pages.tabBar(), page);
            EXPECT_EQ(pages.currentIndex(), page);
        }
    }
}

int NumberIn(const std::string& word) {
    int number = 0;
    std::from_chars(word.data(), word.data() + word.size(), number);
    return number;
}

QModelIndex
IndexOf(const QAbstractItemModel& model, const QModelIndex& parent, const CheckNode& node) {
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        if (index.internalPointer() == &node) {
            return index;
        }
        if (const QModelIndex below = IndexOf(model, index, node); below.isValid()) {
            return below;
        }
    }
    return {};
}

// ---- what windows show ----

void ExpectChecked(const QWidget& window, const std::string& name, bool checked) {
    EXPECT_EQ(Find<QAbstractButton>(window, name).isChecked(), checked) << name;
}

void ExpectText(const QWidget& window, const std::string& name, const std::string& text) {
    EXPECT_EQ(modQt::Utf8(LineOf(window, name)->text()), text) << name;
}

void ExpectPath(const QWidget& window, const std::string& name, const std::string& path) {
    EXPECT_EQ(modPathText::Typed(LineOf(window, name)->text()), path) << name;
}

void ExpectPage(const QWidget& window, const TabStrip& tabs) {
    EXPECT_EQ(window.findChild<QTabWidget*>()->currentIndex() + 1, tabs.Shown.Value());
}

void CompareOptions(const QWidget& window, const frmOptions& form) {
    const std::pair<const char*, bool> checks[] = {
        {"chkShowWorkbench", form.chkShowWorkbench.Value()},
        {"chkShowSummary", form.chkShowSummary.Value()},
        {"chkResultsFolder", form.chkResultsFolder.Value()},
        {"chkReportsFolder", form.chkReportsFolder.Value()},
        {"optCompleted1", form.optCompleted.Value() == 1},
        {"optCompleted2", form.optCompleted.Value() == 2},
        {"chkSynchronise", form.chkSynchronise.Value()},
        {"optPMOrderAscending", form.optPMOrder.Value()},
        {"optPMOrderDescending", !form.optPMOrder.Value()},
        {"chkPMZero", form.chkPMZero.Value()},
        {"optFMOrderAscending", form.optFMOrder.Value()},
        {"optFMOrderDescending", !form.optFMOrder.Value()},
        {"chkFMZero", form.chkFMZero.Value()},
        {"chkClearLog", form.chkClearLog.Value()},
        {"chkBackground", form.chkBackground.Value()},
    };
    for (const auto& [name, checked] : checks) {
        ExpectChecked(window, name, checked);
    }
    modWidgetComparison::Compare(Find<QComboBox>(window, "cboReports"), form.cboReports);
    modWidgetComparison::Compare(
        Find<QComboBox>(window, "lstProjectMember"), form.lstProjectMember);
    modWidgetComparison::Compare(Find<QComboBox>(window, "lstFileMember"), form.lstFileMember);
    ExpectPath(window, "txtResultsFolder", form.txtResultsFolder.Value());
    ExpectPath(window, "txtReportsFolder", form.txtReportsFolder.Value());
    ExpectPath(window, "txtRBDoc", form.txtRBDoc.Value());
    ExpectText(window, "txtTickCount", form.txtTickCount.Value());
    EXPECT_EQ(
        LineOf(window, "txtResultsFolder")->isEnabledTo(&window),
        form.ResultsFolderEnabled.Value());
    EXPECT_EQ(
        LineOf(window, "txtReportsFolder")->isEnabledTo(&window),
        form.ReportsFolderEnabled.Value());
    ExpectPage(window, form.tbsOptions);
}

void CompareReviewOptions(const QWidget& window, const frmReviewOptions& form) {
    EXPECT_EQ(modQt::Utf8(window.windowTitle()), form.Caption.Value());
    ExpectChecked(window, "chkBackground", form.chkBackground.Value());
    ExpectChecked(window, "chkClearLog", form.chkClearLog.Value());
    ExpectChecked(window, "chkResultsFolder", form.chkResultsFolder.Value());
    ExpectChecked(window, "chkReportsFolder", form.chkReportsFolder.Value());
    for (int report = 0; report < 3; ++report) {
        ExpectChecked(
            window, "optReports" + std::to_string(report), form.optReports.Value() == report);
    }
    ExpectText(window, "txtTitle", form.txtTitle.Value());
    ExpectPath(window, "cboRulebase", form.cboRulebase.Value());
    ExpectPath(window, "txtResultsFolder", form.txtResultsFolder.Value());
    ExpectPath(window, "txtReportsFolder", form.txtReportsFolder.Value());
    for (std::size_t place = 0; place < form.txtCount.size(); ++place) {
        const std::string number = std::to_string(place + 1);
        ExpectText(window, "txtCount" + number, form.txtCount.at(place).Value());
        ExpectText(window, "txtImpact" + number, form.txtImpact.at(place).Value());
    }
    ExpectText(window, "txtComments", form.txtComments.Value());
    ExpectText(window, "txtComplexity", form.txtComplexity.Value());
    modWidgetComparison::Compare(Find<QTreeView>(window, "tvwProjects"), form.tvwProjects);
    modWidgetComparison::Compare(Find<QTreeView>(window, "lvwConventions"), form.lvwConventions);
    modWidgetComparison::Compare(Find<QTreeView>(window, "lvwCategories"), form.lvwCategories);
    modWidgetComparison::Compare(Find<QTreeView>(window, "lvwSeverities"), form.lvwSeverities);
    EXPECT_EQ(
        Find<QCheckBox>(window, "chkBackground").isEnabledTo(&window),
        form.BackgroundEnabled.Value());
    ExpectPage(window, form.tbsOptions);
}

void CompareSummary(const QWidget& window, const frmReviewSummary& form) {
    EXPECT_EQ(modQt::Utf8(window.windowTitle()), form.Caption.Value());
    EXPECT_EQ(Find<QTabBar>(window, "tbsReview").currentIndex() + 1, form.CurrentTab());
    modWidgetComparison::Compare(Find<QTreeView>(window, "lvwReview"), form.lvwReview);
    const auto& files = Find<QComboBox>(window, "cboSourceFiles");
    modWidgetComparison::Compare(files, form.cboSourceFiles);
    EXPECT_EQ(files.isVisible(), form.SourceFilesVisible.Value());
    EXPECT_EQ(Find<QPushButton>(window, "cmdViewLog").isEnabled(), form.ViewLogEnabled.Value());
    EXPECT_EQ(
        Find<QPushButton>(window, "cmdViewReport").isEnabled(), form.ViewReportEnabled.Value());
}

void CompareProgress(const QWidget& window, const frmProgress& form) {
    const std::pair<const char*, const Observable<std::string>*> lines[] = {
        {"lblAction", &form.lblAction},
        {"lblProject", &form.lblProject},
        {"lblProjectData", &form.lblProjectData},
        {"lblSourceFile", &form.lblSourceFile},
        {"lblSourceFileData", &form.lblSourceFileData},
        {"lblComplete", &form.lblComplete},
        {"lblMessage", &form.lblMessage},
    };
    for (const auto& [name, text] : lines) {
        EXPECT_EQ(modQt::Utf8(Find<QLabel>(window, name).text()), text->Value()) << name;
    }
    EXPECT_EQ(Find<QProgressBar>(window, "prgProject").value(), form.prgProject.Value());
}

}  // namespace

FormHands::FormHands(Fallbacks& fallbacks) : m_fallbacks(fallbacks) {}

FormHands::~FormHands() = default;

// ---- windows ----

void FormHands::Keep(
    const void* form, std::unique_ptr<FormWindow> window, std::function<void()> compare) {
    Drop(form);
    window->show();
    modUserHands::Settle();
    m_shown[form] = {std::move(window), std::move(compare)};
    m_shown[form].Compare();
}

/// One of its buttons may be at work.
void FormHands::Drop(const void* form) {
    const auto found = m_shown.find(form);
    if (found != m_shown.end()) {
        FormWindow* const window = found->second.Window.release();
        m_shown.erase(found);
        window->Detach();
        window->hide();
        window->deleteLater();
    }
    m_summary = form == m_summary ? nullptr : m_summary;
    m_progress = form == m_progress ? nullptr : m_progress;
}

FormWindow& FormHands::WindowOf(const void* form) const {
    return *m_shown.at(form).Window;
}

void FormHands::Compare() {
    for (const auto& [form, shown] : m_shown) {
        shown.Compare();
    }
}

void FormHands::Show(frmAbout& form) {
    auto window = std::make_unique<AboutWindow>(form, nullptr, [](const std::string&) {});
    Keep(&form, std::move(window), [this, &form] {
        const QWidget& shown = WindowOf(&form);
        EXPECT_EQ(modQt::Utf8(Find<QLabel>(shown, "lblProductName").text()), form.ProductName());
        EXPECT_EQ(modQt::Utf8(Find<QLabel>(shown, "lblVersion").text()), form.Version());
    });
}

void FormHands::Show(frmOptions& form) {
    Keep(&form, std::make_unique<OptionsWindow>(form, nullptr), [this, &form] {
        CompareOptions(WindowOf(&form), form);
    });
}

void FormHands::Show(frmReviewOptions& form) {
    Keep(&form, std::make_unique<ReviewOptionsWindow>(form, nullptr), [this, &form] {
        CompareReviewOptions(WindowOf(&form), form);
    });
}

/// Its lines follow the review from time to time, and no time passes here: they are compared when it opens.
void FormHands::Show(frmProgress& form) {
    Keep(&form, std::make_unique<ProgressWindow>(form, nullptr), [this, &form] {
        EXPECT_EQ(modQt::Utf8(WindowOf(&form).windowTitle()), form.Caption.Value());
    });
    m_progress = &form;
    CompareProgress(WindowOf(&form), form);
}

void FormHands::Show(frmReviewSummary& form) {
    if (m_summary == &form) {
        return;
    }
    Keep(&form, std::make_unique<SummaryWindow>(form, nullptr), [this, &form] {
        CompareSummary(WindowOf(&form), form);
    });
    m_summary = &form;
}

// ---- steps ----

bool FormHands::Leave(const SessionWords& words, QWidget& window) {
    const auto button = words[0] == "ok" ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel;
    modUserHands::Click(*window.findChild<QDialogButtonBox*>()->button(button));
    return true;
}

bool FormHands::SetButton(QWidget& window, const std::string& name, bool checked) {
    auto& button = Find<QAbstractButton>(window, name);
    TurnTo(window, button);
    if (!button.isEnabled()) {
        return m_fallbacks.Leave("control that is disabled");
    }
    modUserHands::SetChecked(button, checked);
    return true;
}

QLineEdit* FormHands::Reachable(QWidget& window, const std::string& name) {
    QLineEdit* const box = LineOf(window, name);
    if (box == nullptr) {
        throw std::runtime_error("no box " + name);
    }
    TurnTo(window, *box);
    return box->isEnabled() && box->isVisible() ? box : nullptr;
}

bool FormHands::SetText(QWidget& window, const std::string& name, const std::string& text) {
    QLineEdit* const box = Reachable(window, name);
    if (box == nullptr) {
        return m_fallbacks.Leave("control that is disabled");
    }
    modUserHands::TypeText(*box, modQt::Text(text));
    return true;
}

bool FormHands::SetPath(QWidget& window, const std::string& name, const std::string& word) {
    QLineEdit* const box = Reachable(window, name);
    if (box == nullptr) {
        return m_fallbacks.Leave("control that is disabled");
    }
    const std::string path =
        word.empty() ? word : modHostPath::ToProgram(modHostPath::FromUser(word));
    modUserHands::PasteText(*box, modPathText::Shown(path));
    return true;
}

bool FormHands::Step(const SessionWords& words, frmAbout& form) {
    return Leave({"ok"}, WindowOf(&form)) && words.size() == 1;
}

bool FormHands::Step(const SessionWords& words, frmOptions& form) {
    FormWindow& window = WindowOf(&form);
    if (words[0] == "ok" || words[0] == "cancel") {
        return Leave(words, window);
    }
    if (words[0] != "set") {
        return m_fallbacks.Leave("field that a form does not have");
    }
    const std::string& name = words[1];
    const std::string& value = words[2];
    bool isDone = false;
    if (name == "optCompleted") {
        isDone = (value == "1" || value == "2") && SetButton(window, name + value, true);
    } else if (name == "optPMOrder" || name == "optFMOrder") {
        isDone =
            SetButton(window, name + (NumberIn(value) == 1 ? "Ascending" : "Descending"), true);
    } else if (name == "txtTickCount") {
        isDone = SetText(window, name, value);
    } else if (name.starts_with("txt")) {
        isDone = SetPath(window, name, value);
    } else if (name.starts_with("chk")) {
        isDone = SetButton(window, name, value == "on");
    } else {
        const ComboBox& items = name == "cboReports"         ? form.cboReports
                                : name == "lstProjectMember" ? form.lstProjectMember
                                                             : form.lstFileMember;
        auto& box = Find<QComboBox>(window, name);
        TurnTo(window, box);
        if (!items.Find(value)) {
            return m_fallbacks.Leave("item that a box does not have");
        }
        modUserHands::ChooseItem(box, static_cast<int>(*items.Find(value)));
        isDone = true;
    }
    m_shown.at(&form).Compare();
    return isDone;
}

bool FormHands::SetMarks(const SessionWords& words, frmReviewOptions& form) {
    FormWindow& window = WindowOf(&form);
    const bool isOn = words[2] == "on";
    if (words[0] == "project" || words[0] == "file") {
        const std::size_t slash = words[1].find('/');
        CheckNode* node = nullptr;
        if (words[0] == "project") {
            node = form.Projects().FindProjectNode(words[1]);
        } else if (slash != std::string::npos) {
            node = form.Projects().FindSourceFileNode(
                words[1].substr(0, slash), words[1].substr(slash + 1));
        }
        if (node == nullptr) {
            return m_fallbacks.Leave("item that a list does not have");
        }
        auto& tree = Find<QTreeView>(window, "tvwProjects");
        TurnTo(window, tree);
        modUserHands::SetMark(tree, IndexOf(*tree.model(), {}, *node), isOn);
        return true;
    }
    const bool isConvention = words[0] == "convention";
    const bool isCategory = words[0] == "category";
    const CheckList& list = isConvention ? form.lvwConventions
                            : isCategory ? form.lvwCategories
                                         : form.lvwSeverities;
    const std::string key = isConvention                    ? words[1]
                            : isCategory && words[1] == "0" ? "-1K"
                            : isCategory                    ? words[1] + "K"
                                                            : words[1] + "Key";
    const auto item = list.Find(key);
    if (!item) {
        return m_fallbacks.Leave("item that a list does not have");
    }
    auto& view = Find<QTreeView>(
        window,
        isConvention ? "lvwConventions"
        : isCategory ? "lvwCategories"
                     : "lvwSeverities");
    TurnTo(window, view);
    modUserHands::SetMark(view, view.model()->index(static_cast<int>(*item), 0), isOn);
    return true;
}

bool FormHands::Step(const SessionWords& words, frmReviewOptions& form) {
    FormWindow& window = WindowOf(&form);
    const std::string& field = words[0];
    if (field == "ok" || field == "cancel") {
        return Leave(words, window);
    }
    static const std::map<std::string, std::string> kChecks{
        {"background", "chkBackground"},
        {"clear-log", "chkClearLog"},
        {"project-results", "chkResultsFolder"},
        {"project-reports", "chkReportsFolder"}};
    static const std::map<std::string, std::string> kPaths{
        {"rulebase", "cboRulebase"},
        {"results", "txtResultsFolder"},
        {"reports", "txtReportsFolder"}};
    static const std::map<std::string, std::string> kTexts{
        {"title", "txtTitle"}, {"comments", "txtComments"}, {"complexity", "txtComplexity"}};
    bool isDone = true;
    if (const auto check = kChecks.find(field); check != kChecks.end()) {
        isDone = SetButton(window, check->second, words[1] == "on");
    } else if (const auto path = kPaths.find(field); path != kPaths.end()) {
        isDone = SetPath(window, path->second, words[1]);
    } else if (const auto text = kTexts.find(field); text != kTexts.end()) {
        isDone = SetText(window, text->second, words[1]);
    } else if (field == "report") {
        isDone = SetButton(window, "optReports" + words[1], true);
    } else if (field == "count" || field == "impact") {
        const std::string box = field == "count" ? "txtCount" : "txtImpact";
        isDone = SetText(window, box + words[1], words[2]);
    } else if (field == "reset") {
        modUserHands::Click(Find<QPushButton>(window, "cmdReset"));
    } else if (words.size() == 3) {
        isDone = SetMarks(words, form);
    } else {
        isDone = m_fallbacks.Leave("field that a form does not have");
    }
    m_shown.at(&form).Compare();
    return isDone;
}

// ---- forms that stay open ----

bool FormHands::Summary(const SessionWords& words, SessionRefusal& refusal) {
    if (m_summary == nullptr) {
        return m_fallbacks.Leave("summary that is not open");
    }
    FormWindow& window = WindowOf(m_summary);
    auto& list = Find<QTreeView>(window, "lvwReview");
    auto& tabs = Find<QTabBar>(window, "tbsReview");
    const std::string& command = words[0];
    const int number = NumberIn(words.back());
    if (command == "log" || command == "report") {
        auto& button = Find<QPushButton>(window, command == "log" ? "cmdViewLog" : "cmdViewReport");
        if (!button.isEnabled()) {
            refusal = "The button is disabled.";
        }
        modUserHands::Click(button);
    } else if (command == "close") {
        modUserHands::Click(Find<QPushButton>(window, "cmdClose"));
    } else if (command == "next") {
        QApplication::setActiveWindow(&window);
        QTest::keyClick(&window, Qt::Key_Tab, Qt::ControlModifier);
    } else if (command == "file") {
        auto& box = Find<QComboBox>(window, "cboSourceFiles");
        const auto item = m_summary->cboSourceFiles.Find(words[1]);
        if (!box.isVisible() || !item) {
            return m_fallbacks.Leave("item that a box does not have");
        }
        modUserHands::ChooseItem(box, static_cast<int>(*item));
    } else if (command == "column" || command == "double") {
        const int count =
            command == "column" ? list.model()->columnCount() : list.model()->rowCount();
        if (number < 1 || number > count) {
            return m_fallbacks.Leave("row that is not there");
        }
        if (command == "column") {
            modUserHands::ClickHeading(*list.header(), number - 1);
        } else {
            modUserHands::DoubleClickCell(list, list.model()->index(number - 1, 0));
        }
    } else if (number >= 1 && number <= tabs.count()) {
        modUserHands::ClickTab(tabs, number - 1);
    } else {
        return m_fallbacks.Leave("page that is not there");
    }
    return true;
}

bool FormHands::CancelReview() {
    if (m_progress == nullptr) {
        return m_fallbacks.Leave("progress that does not show");
    }
    return Leave({"cancel"}, WindowOf(m_progress));
}

}  // namespace dorvik::test
