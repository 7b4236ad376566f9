#pragma once

#include "workstation/code/MarkTip.h"
#include "workstation/controls/Event.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <cstdint>
#include <map>

namespace dorvik {

class CodeEditor;

/// The marks of violations as an editor shows them: the worst of each line, and the underlined statements. REQUIRES: editor
/// and marks outlive it.
class MarkLayer {
public:
    MarkLayer(CodeEditor& editor, ViolationMarks& marks);
    MarkLayer(const MarkLayer&) = delete;
    MarkLayer& operator=(const MarkLayer&) = delete;

    /// By line the worst severity.
    const std::map<std::int32_t, std::int32_t>& Lines() const { return m_lines; }
    void SetTips(MarkTipSource tips) { m_tips = std::move(tips); }
    /// Of all violations of a line; empty without one.
    QString TipOf(std::int32_t line) const;
    /// The line whose statement is underlined at a byte of the text; 0 where there is none.
    std::int32_t MarkAt(int position) const;
    void Choose(std::int32_t line);
    /// Shows now what has changed.
    void Refresh();
    void ShowTheme();

    Event<> Changed;
    /// The worst violation of a line whose mark was clicked.
    Event<const MarkedViolation&> Chosen;

private:
    /// Only what is shown: the rest when it is scrolled to.
    void UnderlineShown();
    void Underline(std::int32_t line, std::int32_t severity);
    std::int32_t StatementEnd(std::int32_t line) const;

    CodeEditor& m_editor;
    ViolationMarks& m_marks;
    MarkTipSource m_tips;
    QTimer m_later;
    std::int32_t m_shownFrom = 0;  // the lines that are underlined
    std::int32_t m_shownTo = 0;
    std::map<std::int32_t, std::int32_t> m_lines;
    Subscription m_changes;
    Subscription m_theme;
};

}  // namespace dorvik
