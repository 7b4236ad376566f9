#include "FindBar.h"

#include "CodeEditor.h"
#include "workstation/look/modQt.h"
#include "workstation/look/modTheme.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace dorvik {

namespace {

using Base = QsciScintillaBase;

constexpr unsigned long kIndicator = Base::INDIC_CONTAINER + 7;
constexpr std::size_t kMostShown = 20'000;
constexpr int kIdle = 100;  // milliseconds without an edit

}  // namespace

FindBar::FindBar(CodeEditor& editor, CodeSearch& search, QWidget* parent)
    : QWidget(parent),
      m_editor(editor),
      m_search(search),
      m_text(modQt::Make<QLineEdit>(this)),
      m_replacement(modQt::Make<QLineEdit>(this)),
      m_matchCase(Option("Match &case")),
      m_wholeWord(Option("&Whole word")),
      m_wraps(Option("W&rap around")),
      m_inSelection(Option("In &selection")),
      m_count(modQt::Make<QLabel>(this)),
      m_replaceRow(modQt::Make<QWidget>(this)) {
    Arrange();
    Connect();
    hide();
}

QCheckBox& FindBar::Option(const char* text) {
    return modQt::Make<QCheckBox>(modQt::Text(text), this);
}

QPushButton& FindBar::Button(const char* text, void (FindBar::*run)()) {
    auto& button = modQt::Make<QPushButton>(modQt::Text(text), this);
    button.setAutoDefault(false);
    connect(&button, &QPushButton::clicked, this, [this, run] { (this->*run)(); });
    return button;
}

void FindBar::Arrange() {
    auto& column = modQt::Make<QVBoxLayout>(this);
    const int gap = fontMetrics().height() / 3;
    column.setContentsMargins(gap, gap, gap, gap);
    column.setSpacing(gap);
    const auto labelled = [this](QHBoxLayout& row, const char* text, QLineEdit& box) {
        auto& label = modQt::Make<QLabel>(modQt::Text(text), this);
        label.setBuddy(&box);
        label.setMinimumWidth(fontMetrics().horizontalAdvance(modQt::Text("Replace with:")));
        row.addWidget(&label);
        row.addWidget(&box, 1);
    };
    auto& findRow = modQt::Make<QHBoxLayout>();
    labelled(findRow, "&Find:", m_text);
    m_text.setAccessibleName(modQt::Text("Find"));
    m_text.setClearButtonEnabled(true);
    findRow.addWidget(&Button("&Previous", &FindBar::FindPrevious));
    findRow.addWidget(&Button("&Next", &FindBar::FindNext));
    findRow.addWidget(&Button("C&lose", &FindBar::Close));
    column.addLayout(&findRow);

    auto& replaceLine = modQt::Make<QHBoxLayout>(&m_replaceRow);
    replaceLine.setContentsMargins(0, 0, 0, 0);
    labelled(replaceLine, "Replace w&ith:", m_replacement);
    m_replacement.setAccessibleName(modQt::Text("Replace with"));
    replaceLine.addWidget(&Button("R&eplace", &FindBar::Replace));
    replaceLine.addWidget(&Button("Replace &all", &FindBar::ReplaceAll));
    column.addWidget(&m_replaceRow);

    auto& options = modQt::Make<QHBoxLayout>();
    for (QCheckBox* box : {&m_matchCase, &m_wholeWord, &m_wraps, &m_inSelection}) {
        options.addWidget(box);
    }
    m_wraps.setChecked(true);
    options.addStretch(1);
    m_count.setTextFormat(Qt::PlainText);
    options.addWidget(&m_count);
    column.addLayout(&options);
    QWidget* before = &m_text;
    for (QWidget* box :
         {static_cast<QWidget*>(&m_replacement), static_cast<QWidget*>(&m_matchCase)}) {
        setTabOrder(before, box);
        before = box;
    }
}

void FindBar::Connect() {
    connect(&m_text, &QLineEdit::textEdited, this, [this] {
        TakeText();
        Go(m_search.Next({m_origin.StartLine, m_origin.StartColumn, m_origin.StartLine, 0}));
    });
    connect(&m_text, &QLineEdit::returnPressed, this, [this] { FindNext(); });
    connect(&m_replacement, &QLineEdit::returnPressed, this, [this] { Replace(); });
    for (QCheckBox* box : {&m_matchCase, &m_wholeWord, &m_wraps}) {
        connect(box, &QCheckBox::toggled, this, [this] { TakeOptions(); });
    }
    connect(&m_inSelection, &QCheckBox::toggled, this, [this](bool isOn) { TakeScope(isOn); });
    m_later.setSingleShot(true);
    m_later.setInterval(kIdle);
    connect(&m_later, &QTimer::timeout, this, [this] { ShowHits(); });
    m_changes = m_search.Changed.Subscribe([this] {
        if (isVisible()) {
            m_later.start();
        }
    });
    m_theme = modTheme::Changed().Subscribe([this] { ShowHits(); });
    connect(&m_editor, &QsciScintilla::selectionChanged, this, [this] {
        if (isVisible() && !m_later.isActive()) {
            ShowSelected();
            ShowCount({});
        }
    });
}

void FindBar::Open(bool withReplace) {
    const CodeRange range = m_editor.Range();
    const bool isNew = !isVisible();
    m_replaceRow.setVisible(withReplace);
    show();
    if (range.StartLine != range.EndLine && isNew) {
        m_inSelection.setChecked(true);
        TakeScope(true);
    } else if (range.StartLine == range.EndLine && range.StartColumn != range.EndColumn) {
        m_text.setText(m_editor.selectedText());
    }
    m_origin = range;
    TakeText();
    ShowHits();
    m_text.setFocus();
    m_text.selectAll();
}

void FindBar::Close() {
    hide();
    ClearHits();
    m_inSelection.setChecked(false);
    m_search.SetScope(std::nullopt);
    m_editor.setFocus();
}

void FindBar::TakeText() {
    m_search.SetText(modQt::Utf8(m_text.text()));
}

void FindBar::TakeOptions() {
    FindOptions options;
    options.MatchCase = m_matchCase.isChecked();
    options.WholeWord = m_wholeWord.isChecked();
    m_search.SetWraps(m_wraps.isChecked());
    m_search.SetOptions(options);
}

void FindBar::TakeScope(bool isWanted) {
    const CodeRange range = m_editor.Range();
    const bool isSelected =
        range.StartLine != range.EndLine || range.StartColumn != range.EndColumn;
    if (!isWanted) {
        m_search.SetScope(std::nullopt);
    } else if (isSelected) {
        m_search.SetScope(range);
    } else {
        m_inSelection.setChecked(false);
        ShowCount(modQt::Text("Nothing is selected"));
    }
}

bool FindBar::HasText() {
    if (m_text.text().isEmpty()) {
        Open(m_replaceRow.isVisible());
    }
    TakeText();
    return !m_text.text().isEmpty();
}

void FindBar::FindNext() {
    if (HasText()) {
        Go(m_search.Next(m_editor.Range()));
    }
}

void FindBar::FindPrevious() {
    if (HasText()) {
        Go(m_search.Previous(m_editor.Range()));
    }
}

void FindBar::Go(const std::optional<CodeSearch::Hit>& hit) {
    if (hit) {
        m_editor.Reveal(hit->Range);
        ShowCount(hit->HasWrapped ? modQt::Text(" (from the other end)") : QString());
        return;
    }
    const bool isEnd = !m_search.Hits().empty();
    ShowCount(isEnd ? modQt::Text("No more matches in this direction") : QString());
}

void FindBar::Replace() {
    TakeText();
    const CodeRange range = m_editor.Range();
    if (!m_editor.isReadOnly() && m_search.Replace(range, modQt::Utf8(m_replacement.text()))) {
        const auto end = range.StartColumn + static_cast<int>(m_replacement.text().toUcs4().size());
        m_editor.Select({range.StartLine, end, range.StartLine, end});
    }
    Go(m_search.Next(m_editor.Range()));
}

void FindBar::ReplaceAll() {
    TakeText();
    if (m_editor.isReadOnly()) {
        ShowCount(modQt::Text("The file is read-only"));
        return;
    }
    const std::size_t count = m_search.ReplaceAll(modQt::Utf8(m_replacement.text()));
    m_later.stop();
    ShowHits();
    ShowCount(
        count == 1 ? modQt::Text("1 match replaced")
                   : modQt::Text("%1 matches replaced").arg(count));
}

void FindBar::ShowCount(const QString& message) {
    const std::size_t count = m_search.Hits().size();
    const std::size_t number = m_search.NumberOf(m_editor.Range());
    if (!message.isEmpty() && !message.startsWith(QLatin1Char(' '))) {
        m_count.setText(message);
    } else if (m_search.Text().empty()) {
        m_count.clear();
    } else if (count == 0) {
        m_count.setText(modQt::Text("No matches"));
    } else if (number > 0) {
        m_count.setText(modQt::Text("%1 of %2").arg(number).arg(count) + message);
    } else {
        m_count.setText(count == 1 ? modQt::Text("1 match") : modQt::Text("%1 matches").arg(count));
    }
}

void FindBar::ClearHits() {
    m_editor.SendScintilla(Base::SCI_SETINDICATORCURRENT, kIndicator);
    m_editor.SendScintilla(
        Base::SCI_INDICATORCLEARRANGE, 0UL, m_editor.SendScintilla(Base::SCI_GETLENGTH));
}

void FindBar::Paint(const CodeRange& hit, bool isShown) {
    const int start = m_editor.Position(hit.StartLine, hit.StartColumn);
    const int end = m_editor.Position(hit.EndLine, hit.EndColumn);
    m_editor.SendScintilla(Base::SCI_SETINDICATORCURRENT, kIndicator);
    m_editor.SendScintilla(
        isShown ? Base::SCI_INDICATORFILLRANGE : Base::SCI_INDICATORCLEARRANGE,
        static_cast<unsigned long>(start),
        static_cast<long>(end - start));
}

void FindBar::ShowSelected() {
    if (m_selected && m_search.NumberOf(*m_selected) > 0) {
        Paint(*m_selected, true);
    }
    m_selected.reset();
    const CodeRange range = m_editor.Range();
    if (m_search.NumberOf(range) > 0) {
        Paint(range, false);
        m_selected = range;
    }
}

void FindBar::ShowHits() {
    ClearHits();
    m_selected.reset();
    if (!isVisible()) {
        return;
    }
    m_editor.SendScintilla(
        Base::SCI_INDICSETSTYLE, kIndicator, static_cast<long>(Base::INDIC_STRAIGHTBOX));
    m_editor.SendScintilla(Base::SCI_INDICSETFORE, kIndicator, modTheme::Colours().FoundText);
    m_editor.SendScintilla(Base::SCI_INDICSETALPHA, kIndicator, 255L);
    m_editor.SendScintilla(Base::SCI_INDICSETOUTLINEALPHA, kIndicator, 255L);
    m_editor.SendScintilla(Base::SCI_INDICSETUNDER, kIndicator, 1L);
    std::size_t shown = 0;
    for (const CodeRange& hit : m_search.Hits()) {
        if (++shown > kMostShown) {
            break;
        }
        Paint(hit, true);
    }
    ShowSelected();
    ShowCount({});
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        Close();
    } else {
        QWidget::keyPressEvent(event);
    }
}

}  // namespace dorvik
