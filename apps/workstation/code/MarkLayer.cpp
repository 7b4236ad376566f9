#include "MarkLayer.h"

#include "CodeEditor.h"
#include "workstation/filehost/modCodeEdits.h"
#include "workstation/filehost/modLineTokens.h"
#include "workstation/look/modQt.h"
#include "workstation/look/modTheme.h"

#include <algorithm>

namespace dorvik {

namespace {

using Base = QsciScintillaBase;

constexpr int kWorst = 1;
constexpr int kLeast = 5;
constexpr std::int32_t kLongestStatement = 100;  // lines

unsigned long IndicatorOf(std::int32_t severity) {
    return static_cast<unsigned long>(Base::INDIC_CONTAINER + std::clamp(severity, kWorst, kLeast));
}

}  // namespace

MarkLayer::MarkLayer(CodeEditor& editor, ViolationMarks& marks) : m_editor(editor), m_marks(marks) {
    m_later.setSingleShot(true);
    m_later.setInterval(0);
    QObject::connect(&m_later, &QTimer::timeout, &m_later, [this] { Refresh(); });
    m_changes = marks.Changed.Subscribe([this] { m_later.start(); });
    QObject::connect(&editor, &Base::SCN_UPDATEUI, &m_later, [this] { UnderlineShown(); });
    m_theme = modTheme::Changed().Subscribe([this] { ShowTheme(); });
    ShowTheme();
    Refresh();
}

void MarkLayer::ShowTheme() {
    for (std::int32_t severity = kWorst; severity <= kLeast; ++severity) {
        const unsigned long indicator = IndicatorOf(severity);
        const int style = severity <= 2 ? Base::INDIC_SQUIGGLE : Base::INDIC_DOTS;
        m_editor.SendScintilla(Base::SCI_INDICSETSTYLE, indicator, static_cast<long>(style));
        m_editor.SendScintilla(
            Base::SCI_INDICSETFORE,
            indicator,
            modTheme::Colours().Severity.at(static_cast<std::size_t>(severity)));
    }
}

void MarkLayer::Refresh() {
    m_later.stop();
    m_lines.clear();
    for (const MarkedViolation& violation : m_marks.Violations()) {
        if (violation.Line > 0) {
            const auto [line, isNew] = m_lines.emplace(violation.Line, violation.Severity);
            line->second = std::min(line->second, violation.Severity);
        }
    }
    for (std::int32_t severity = kWorst; severity <= kLeast; ++severity) {
        m_editor.SendScintilla(Base::SCI_SETINDICATORCURRENT, IndicatorOf(severity));
        m_editor.SendScintilla(
            Base::SCI_INDICATORCLEARRANGE, 0UL, m_editor.SendScintilla(Base::SCI_GETLENGTH));
    }
    m_shownTo = 0;
    UnderlineShown();
    Changed.Raise();
}

void MarkLayer::UnderlineShown() {
    const std::int32_t from = std::max(1, m_editor.TopLine() - kLongestStatement);
    const std::int32_t to = m_editor.TopLine() + m_editor.VisibleLines() + 1;
    if (from == m_shownFrom && to == m_shownTo) {
        return;
    }
    m_shownFrom = from;
    m_shownTo = to;
    for (auto mark = m_lines.lower_bound(from); mark != m_lines.end() && mark->first <= to;
         ++mark) {
        Underline(mark->first, mark->second);
    }
}

std::int32_t MarkLayer::StatementEnd(std::int32_t line) const {
    using namespace modLineTokens;
    std::int32_t end = line;
    auto state = LineStart::Statement;
    while (end <= m_editor.LineCount() && end < line + kLongestStatement) {
        state = Tokenise(m_editor.LineText(end), state).Next;
        if (state == LineStart::Statement) {
            break;
        }
        ++end;
    }
    return std::min(end, m_editor.LineCount());
}

void MarkLayer::Underline(std::int32_t line, std::int32_t severity) {
    if (line > m_editor.LineCount()) {
        return;
    }
    m_editor.SendScintilla(Base::SCI_SETINDICATORCURRENT, IndicatorOf(severity));
    const std::int32_t end = StatementEnd(line);
    for (std::int32_t part = line; part <= end; ++part) {
        const std::string text = m_editor.LineText(part);
        const int start =
            m_editor.LineStart(part) + static_cast<int>(modCodeEdits::Indentation(text).size());
        const int size = m_editor.LineEnd(part) - start;
        if (size > 0) {
            m_editor.SendScintilla(
                Base::SCI_INDICATORFILLRANGE,
                static_cast<unsigned long>(start),
                static_cast<long>(size));
        }
    }
}

std::int32_t MarkLayer::MarkAt(int position) const {
    for (std::int32_t severity = kWorst; severity <= kLeast; ++severity) {
        const bool isThere =
            m_editor.SendScintilla(
                Base::SCI_INDICATORVALUEAT, IndicatorOf(severity), static_cast<long>(position)) !=
            0;
        // The statement may be continued: its mark is the last one at or above the line.
        const auto after = m_lines.upper_bound(m_editor.LineOf(position));
        if (isThere && after != m_lines.begin()) {
            return std::prev(after)->first;
        }
    }
    return 0;
}

QString MarkLayer::TipOf(std::int32_t line) const {
    QString text;
    for (const MarkedViolation* violation : m_marks.AtLine(line)) {
        const MarkTip tip = m_tips ? m_tips(*violation) : MarkTip();
        if (!tip.Title.empty()) {
            text += QStringLiteral("<p><b>%1</b>").arg(modQt::Text(tip.Title).toHtmlEscaped());
            if (!tip.Advice.empty()) {
                text += QStringLiteral("<br>") + modQt::Text(tip.Advice).toHtmlEscaped();
            }
            text += QStringLiteral("</p>");
        }
    }
    return text;
}

void MarkLayer::Choose(std::int32_t line) {
    const auto violations = m_marks.AtLine(line);
    if (!violations.empty()) {
        const MarkedViolation chosen = *violations.front();  // a handler may set others
        Chosen.Raise(chosen);
    }
}

}  // namespace dorvik
