#include "workstation/window/StartPage.h"

#include "workstation/look/modPictures.h"
#include "workstation/look/modQt.h"

#include <QDir>
#include <QDirIterator>
#include <QEvent>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLayoutItem>
#include <QPushButton>
#include <QScrollArea>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>

namespace dorvik {

namespace {

constexpr int kFoldersAbove = 4;  // build/PRESET/bin and the repository
constexpr double kTitleSize = 1.8;
constexpr double kHeadingSize = 1.2;

}  // namespace

StartPage::StartPage(QWidget* parent)
    : QWidget(parent), m_recent(modQt::Make<QVBoxLayout>()), m_samples(modQt::Make<QVBoxLayout>()) {
    auto& whole = modQt::Make<QVBoxLayout>(this);
    whole.setContentsMargins(0, 0, 0, 0);
    auto& scroll = modQt::Make<QScrollArea>();
    scroll.setWidgetResizable(true);
    scroll.setFrameShape(QFrame::NoFrame);
    scroll.setFocusPolicy(Qt::NoFocus);
    whole.addWidget(&scroll);
    auto& page = modQt::Make<QWidget>();
    scroll.setWidget(&page);

    auto& grid = modQt::Make<QGridLayout>(&page);
    const int margin = fontMetrics().height() * 2;
    grid.setContentsMargins(margin, margin, margin, margin);
    grid.setHorizontalSpacing(margin * 2);
    grid.setVerticalSpacing(fontMetrics().height());
    grid.addWidget(&Heading("Dorvik Workstation", kTitleSize), 0, 0, 1, 2);
    auto& hint = modQt::Make<QLabel>(modQt::Text(
        "Open a project, a group or a folder, or drop it onto this window. F5 reviews what is "
        "open."));
    hint.setWordWrap(true);
    grid.addWidget(&hint, 1, 0, 1, 2);

    auto& buttons = modQt::Make<QHBoxLayout>();
    auto& open = modQt::Make<QPushButton>(modQt::Text("&Open..."));
    open.setIcon(modPictures::Icon("OpenFile"));
    auto& openFolder = modQt::Make<QPushButton>(modQt::Text("Open &folder..."));
    openFolder.setIcon(modPictures::Icon("Folder"));
    buttons.addWidget(&open);
    buttons.addWidget(&openFolder);
    buttons.addStretch();
    grid.addLayout(&buttons, 2, 0, 1, 2);
    connect(&open, &QPushButton::clicked, this, [this] { OpenRequested.Raise(); });
    connect(&openFolder, &QPushButton::clicked, this, [this] { OpenFolderRequested.Raise(); });

    grid.addWidget(&Heading("Recent", kHeadingSize), 3, 0);
    grid.addWidget(&Heading("Samples", kHeadingSize), 3, 1);
    grid.addLayout(&m_recent, 4, 0, Qt::AlignTop);
    grid.addLayout(&m_samples, 4, 1, Qt::AlignTop);
    grid.setColumnStretch(0, 1);
    grid.setColumnStretch(1, 1);
    grid.setRowStretch(5, 1);
    SetRecentFiles({});
    SetSamples({});
}

QLabel& StartPage::Heading(const char* text, double size) {
    auto& label = modQt::Make<QLabel>(modQt::Text(text), this);
    m_headings.push_back({&label, size});
    SizeHeadings();
    return label;
}

void StartPage::SizeHeadings() {
    for (const auto& [label, size] : m_headings) {
        QFont scaled = font();
        scaled.setPointSizeF(scaled.pointSizeF() * size);
        scaled.setBold(true);
        label->setFont(scaled);
    }
}

void StartPage::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        SizeHeadings();
    }
}

void StartPage::SetRecentFiles(const std::vector<std::string>& files) {
    Fill(m_recent, files, "Nothing was opened yet.");
}

void StartPage::SetSamples(const std::vector<std::string>& files) {
    Fill(m_samples, files, "The samples are not installed.");
}

void StartPage::Fill(
    QVBoxLayout& list, const std::vector<std::string>& files, const char* placeholder) {
    while (QLayoutItem* const item = list.takeAt(0)) {
        const std::unique_ptr<QLayoutItem> taken(item);
        if (QWidget* const widget = taken->widget()) {
            widget->hide();
            widget->deleteLater();  // it may be the button that was clicked
        }
    }
    if (files.empty()) {
        auto& label = modQt::Make<QLabel>(modQt::Text(placeholder));
        label.setEnabled(false);
        list.addWidget(&label);
    }
    for (const std::string& file : files) {
        const QFileInfo info(modQt::Text(file));
        QString text = info.fileName() + modQt::Text("\n") + QDir::toNativeSeparators(info.path());
        // A button for links would keep a size of text of its own.
        auto& button = modQt::Make<QToolButton>();
        button.setText(text.replace(modQt::Text("&"), modQt::Text("&&")));
        button.setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button.setAutoRaise(true);
        button.setFocusPolicy(Qt::StrongFocus);
        button.setIcon(modPictures::Icon(info.isDir() ? "Folder" : "Project"));
        button.setAccessibleName(info.fileName());
        list.addWidget(&button);
        connect(&button, &QToolButton::clicked, this, [this, file] { FileRequested.Raise(file); });
    }
}

std::vector<std::string> SampleProjects(const std::string& programFolder) {
    QDir folder(modQt::Text(programFolder));
    for (int above = 0; above < kFoldersAbove; ++above) {
        for (const char* const name : {"Samples", "samples"}) {
            const QDir samples(folder.filePath(modQt::Text(name)));
            if (!samples.exists()) {
                continue;
            }
            std::vector<std::string> files;
            const QStringList patterns{modQt::Text("*.vbg"), modQt::Text("*.vbp")};
            QDirIterator found(samples.path(), patterns, QDir::Files, QDirIterator::Subdirectories);
            while (found.hasNext()) {
                files.push_back(modQt::Utf8(found.next()));
            }
            std::ranges::sort(files);
            if (!files.empty()) {
                return files;
            }
        }
        folder.cdUp();
    }
    return {};
}

}  // namespace dorvik
