#include "modFileChoice.h"

#include "modPathText.h"
#include "workstation/look/modQt.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>

#include <memory>

namespace dorvik::modFileChoice {

namespace {

void StartAt(QFileDialog& dialog, std::string_view place) {
    if (place.empty()) {
        return;
    }
    const QFileInfo start(modPathText::Shown(place));
    if (start.isDir()) {
        dialog.setDirectory(start.absoluteFilePath());
    } else if (start.dir().exists()) {
        dialog.setDirectory(start.absolutePath());
        dialog.selectFile(start.fileName());
    }
}

/// What the dialog belongs to may go while it is open, and the dialog with it.
std::optional<std::string> Answer(QFileDialog& dialog) {
    const QPointer<QFileDialog> kept(&dialog);
    const bool isTaken = dialog.exec() == QDialog::Accepted;
    const std::unique_ptr<QFileDialog> gone(kept.data());
    if (gone == nullptr || !isTaken || gone->selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    return modPathText::Typed(gone->selectedFiles().constFirst());
}

}  // namespace

QString FilterOf(std::string_view filter) {
    const std::size_t bar = filter.find('|');
    if (bar == std::string_view::npos) {
        return modQt::Text(filter);
    }
    const QString text = modQt::Text(filter.substr(0, filter.substr(0, bar).rfind('('))).trimmed();
    QStringList patterns = modQt::Text(filter.substr(bar + 1)).split(QLatin1Char(';'));
    patterns.replaceInStrings(QStringLiteral("*.*"), QStringLiteral("*"));
    return text + QStringLiteral(" (") + patterns.join(QLatin1Char(' ')) + QLatin1Char(')');
}

std::optional<std::string> File(const FileRequest& request, QWidget* owner) {
    QFileDialog& dialog = modQt::Make<QFileDialog>(owner, modQt::Text(request.Title));
    dialog.setAcceptMode(request.ForSaving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(request.ForSaving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    QStringList filters;
    for (const std::string& filter : request.Filters) {
        filters.append(FilterOf(filter));
    }
    dialog.setNameFilters(filters);
    const std::string& extension = request.DefaultExtension;
    dialog.setDefaultSuffix(modQt::Text(extension.substr(extension.rfind('.') + 1)));
    StartAt(dialog, request.StartAt);
    return Answer(dialog);
}

std::optional<std::string>
Folder(std::string_view title, std::string_view startAt, QWidget* owner) {
    QFileDialog& dialog = modQt::Make<QFileDialog>(owner, modQt::Text(title));
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    StartAt(dialog, startAt);
    return Answer(dialog);
}

}  // namespace dorvik::modFileChoice
