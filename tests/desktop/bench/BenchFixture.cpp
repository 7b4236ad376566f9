#include "BenchFixture.h"

#include <QAbstractButton>
#include <QAction>
#include <QFile>

namespace dorvik::test {

void BenchFixture::SetUp() {
    m_ide.Initialise(m_host, m_screen);
    m_bench = std::make_unique<WorkbenchView>(Document());
    m_bench->resize(1100, 500);
    m_bench->show();
}

void BenchFixture::OpenResults() {
    AddProject("Billing");
    m_host.AddProject("Billing", ProjectFile("Billing"));
    WriteResults("Billing");
    Document().VisibleChanged(true);
    Document().Results().PopulateResults(m_criteria, /*afterReview=*/false);
    ASSERT_TRUE(Document().Results().ResultsAvailable());
}

QAbstractButton& BenchFixture::Button(const QString& text) {
    for (QAbstractButton* const button : m_bench->findChildren<QAbstractButton*>()) {
        if (button->text().remove(QLatin1Char('&')) == text) {
            return *button;
        }
    }
    throw std::runtime_error("no such button");
}

QAction& BenchFixture::Action(const QString& text) {
    for (QAction* const action : m_bench->findChildren<QAction*>()) {
        if (action->text().remove(QLatin1Char('&')) == text) {
            return *action;
        }
    }
    throw std::runtime_error("no such action");
}

QStringList BenchFixture::Rows() {
    QStringList rows;
    const QAbstractItemModel& model = *List().model();
    for (int row = 0; row < model.rowCount(); ++row) {
        const QString group = model.index(row, 0).data().toString();
        rows.append(group.isEmpty() ? model.index(row, 2).data().toString() : group);
    }
    return rows;
}

QString BenchFixture::FileText(const QString& file) const {
    QFile opened(file);
    return opened.open(QIODevice::ReadOnly) ? QString::fromUtf8(opened.readAll()) : QString();
}

void BenchFixture::Keep(QWidget& widget, const QString& name) {
    const QString folder = qEnvironmentVariable("DORVIK_PICTURES");
    if (!folder.isEmpty()) {
        widget.grab().save(folder + QLatin1Char('/') + name + QStringLiteral(".png"));
    }
}

}  // namespace dorvik::test
