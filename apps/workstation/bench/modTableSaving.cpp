#include "workstation/bench/modTableSaving.h"

#include "workstation/controls/modWorkstationMessage.h"
#include "workstation/look/modQt.h"
#include "workstation/widgets/modSlices.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QSaveFile>

namespace dorvik::modTableSaving {

namespace {

/// False where the user cancels.
bool WriteAll(TableExport& table, std::size_t count, QWidget& parent) {
    const bool isWritten =
        modSlices::Run(parent, QStringLiteral("Writing rows..."), count, [&table](std::size_t) {
            table.WriteNext(1);
        });
    table.WriteNext(0);  // the end of an empty table
    return isWritten;
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
    modWorkstationMessage::Show(
        MessageIcon::Critical,
        modQt::Utf8(QStringLiteral("The file '%1' could not be written: %2")
                        .arg(file, saved.errorString())));
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
