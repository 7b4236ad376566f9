#include "NoticeBar.h"

#include "CodeEditor.h"
#include "workstation/look/modQt.h"

#include <QHBoxLayout>
#include <QIntValidator>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

namespace dorvik {

NoticeBar::NoticeBar(QWidget* parent)
    : QFrame(parent),
      m_text(modQt::Make<QLabel>(this)),
      m_load(modQt::Make<QPushButton>(modQt::Text("&Load from disk"), this)),
      m_keep(modQt::Make<QPushButton>(modQt::Text("&Keep my changes"), this)) {
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    m_text.setForegroundRole(QPalette::ToolTipText);
    m_text.setWordWrap(true);
    m_text.setTextFormat(Qt::PlainText);
    auto& row = modQt::Make<QHBoxLayout>(this);
    const int gap = fontMetrics().height() / 3;
    row.setContentsMargins(gap, gap, gap, gap);
    row.addWidget(&m_text, 1);
    row.addWidget(&m_load);
    row.addWidget(&m_keep);
    connect(&m_load, &QPushButton::clicked, this, [this] {
        hide();
        LoadChosen.Raise();
    });
    connect(&m_keep, &QPushButton::clicked, this, [this] {
        hide();
        KeepChosen.Raise();
    });
    hide();
}

void NoticeBar::ShowText(const QString& text, bool isQuestion) {
    m_text.setText(text);
    setAccessibleName(text);
    m_load.setVisible(isQuestion);
    m_keep.setVisible(isQuestion);
    show();
}

void NoticeBar::ShowReadOnly() {
    ShowText(modQt::Text("This file is read-only."), false);
}

void NoticeBar::ShowConflict() {
    ShowText(
        modQt::Text("Another program has changed this file, and there are changes here that are "
                    "not saved. Which are to be kept?"),
        true);
}

void NoticeBar::ShowFailure(const QString& text) {
    ShowText(text, false);
}

LineBar::LineBar(CodeEditor& editor, QWidget* parent)
    : QFrame(parent),
      m_editor(editor),
      m_label(modQt::Make<QLabel>(this)),
      m_line(modQt::Make<QLineEdit>(this)) {
    auto& row = modQt::Make<QHBoxLayout>(this);
    const int gap = fontMetrics().height() / 3;
    row.setContentsMargins(gap, gap, gap, gap);
    row.addWidget(&m_label);
    row.addWidget(&m_line);
    row.addStretch(1);
    m_label.setBuddy(&m_line);
    m_line.setAccessibleName(modQt::Text("Line"));
    m_line.setValidator(&modQt::Make<QIntValidator>(1, 99'999'999, &m_line));
    m_line.setMaximumWidth(fontMetrics().averageCharWidth() * 14);
    connect(&m_line, &QLineEdit::returnPressed, this, [this] { Choose(); });
    hide();
}

void LineBar::Open() {
    m_label.setText(modQt::Text("&Go to line (1 to %1):").arg(m_editor.LineCount()));
    m_line.setText(QString::number(m_editor.CaretLine()));
    show();
    m_line.setFocus();
    m_line.selectAll();
}

void LineBar::Close() {
    hide();
    m_editor.setFocus();
}

void LineBar::Choose() {
    const int line = m_line.text().toInt();
    Close();
    if (line > 0) {
        LineChosen.Raise(std::min(line, m_editor.LineCount()));
    }
}

void LineBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        Close();
    } else {
        QFrame::keyPressEvent(event);
    }
}

}  // namespace dorvik
