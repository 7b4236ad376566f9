#include "workstation/bench/modTableSaving.h"

#include "platform/host/modHost.h"
#include "workstation/look/modQt.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QProgressDialog>
#include <QSaveFile>

namespace dorvik::modTableSaving {

namespace {

constexpr std::size_t kRowsAtOnce = 100;
constexpr int kMillisecondsBetweenInput = 40;
constexpr int kMillisecondsUntilShown = 400;

/// False where the user cancels.
bool WriteAll(TableExport& table, std::size_t count, QWidget& parent) {
    QProgressDialog progress(
        QStringLiteral("Writing rows..."),
        QStringLiteral("Cancel"),
        0,
        static_cast<int>(count),
        &parent);
    progress.setWindowTitle(QStringLiteral("Dorvik Workstation"));
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(kMillisecondsUntilShown);
    QElapsedTimer sinceInput;
    sinceInput.start();
    while (table.WriteNext(kRowsAtOnce)) {
        if (sinceInput.elapsed() >= kMillisecondsBetweenInput) {
            progress.setValue(static_cast<int>(table.Written()));
            if (progress.wasCanceled()) {
                return false;
            }
            sinceInput.restart();
        }
    }
    return true;
}

}  // namespace

bool SaveAs(
    const QString& file,
    ITableRows& rows,
    TableFormat format,
    const std::string& title,
    QWidget& parent) {
    QSaveFile saved(file);
    if (saved.open(QIODevice::WriteOnly)) {
        TableExport table(rows, format, title, [&saved](std::string_view text) {
            saved.write(text.data(), static_cast<qint64>(text.size()));
        });
        if (!WriteAll(table, rows.Count(), parent)) {
            return false;
        }
        if (saved.commit()) {
            return true;
        }
    }
    modHost::ShowMessage(
        {MessageIcon::Critical,
         "Dorvik Workstation",
         modQt::Utf8(QStringLiteral("The file '%1' could not be written: %2")
                         .arg(file, saved.errorString()))});
    return false;
}

bool CopyToClipboard(ITableRows& rows, QWidget& parent) {
    std::string text;
    TableExport table(
        rows, TableFormat::Text, "", [&text](std::string_view part) { text += part; });
    if (!WriteAll(table, rows.Count(), parent)) {
        return false;
    }
    QGuiApplication::clipboard()->setText(modQt::Text(text));
    return true;
}

}  // namespace dorvik::modTableSaving
