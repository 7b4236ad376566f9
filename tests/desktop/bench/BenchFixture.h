#pragma once

#include "workstation/bench/WorkbenchView.h"
#include "workstation/ide/IDEHelper.h"
#include "workstation/ide/IDEMenus.h"
#include "workstation/ide/udocDorvik.h"
#include "workstation/support/ScriptedHost.h"
#include "workstation/view/WorkbenchFixture.h"

#include <QString>
#include <QStringList>

#include <memory>

class QAbstractButton;
class QAction;
class QMenu;

namespace dorvik::test {

/// The results of `WorkbenchFixture` in the document of an add-in, shown by the window of the bench.
class BenchFixture : public WorkbenchFixture {
protected:
    void SetUp() override;
    /// Shows the results of the project "Billing".
    void OpenResults();

    udocDorvik& Document() { return *m_ide.DorvikUserDocument(); }
    WorkbenchControls& Controls() { return Document().Controls(); }
    GridView& List() { return m_bench->List(); }
    QAbstractButton& Button(const QString& text);
    QAction& Action(const QString& text);
    /// Of the rows of the list that show: the texts of groups, the titles of violations.
    QStringList Rows();
    QString FileText(const QString& file) const;
    /// Saves a picture where the variable DORVIK_PICTURES names a folder.
    static void Keep(QWidget& widget, const QString& name);

    ScriptedHost m_host;
    IDEHelper m_ide;
    std::unique_ptr<WorkbenchView> m_bench;
};

}  // namespace dorvik::test
