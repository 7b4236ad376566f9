#pragma once

#include "workstation/controls/Event.h"

#include <QFrame>

class QLabel;
class QLineEdit;
class QPushButton;

namespace dorvik {

class CodeEditor;

/// Says above the code what is the matter with its file.
class NoticeBar final : public QFrame {
public:
    explicit NoticeBar(QWidget* parent);

    void ShowReadOnly();
    void ShowConflict();
    void ShowFailure(const QString& text);

    Event<> LoadChosen;  // what is on disk
    Event<> KeepChosen;  // what is here

private:
    void ShowText(const QString& text, bool isQuestion);

    QLabel& m_text;
    QPushButton& m_load;
    QPushButton& m_keep;
};

/// Takes the number of a line to go to.
class LineBar final : public QFrame {
public:
    LineBar(CodeEditor& editor, QWidget* parent);

    void Open();
    void Close();

    Event<std::int32_t> LineChosen;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Choose();

    CodeEditor& m_editor;
    QLabel& m_label;
    QLineEdit& m_line;
};

}  // namespace dorvik
