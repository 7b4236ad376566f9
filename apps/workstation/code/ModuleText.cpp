#include "ModuleText.h"

#include "CodeEditor.h"
#include "base/BasicError.h"
#include "base/modText.h"
#include "base/modUtf8.h"

#include <QScopedValueRollback>
#include <QTimer>

#include <algorithm>

namespace dorvik {

namespace {

std::string JoinedLines(const FileCodeModule& module, std::int32_t start, std::int32_t count) {
    std::string text;
    for (std::int32_t line = start; line < start + count; ++line) {
        text += line > start ? "\n" : "";
        text += module.Texts()[static_cast<std::size_t>(line) - 1];
    }
    return text;
}

bool IsContinuationByte(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

}  // namespace

ModuleText::ModuleText(CodeEditor& editor, FileCodeModule& module)
    : m_editor(editor), m_module(module) {
    ShowAll();
    m_changes = module.Changed.Subscribe([this](const LinesChange& change) { Follow(change); });
    m_begins = editor.InputBegins.Subscribe([this] {
        m_group.emplace(m_module);
        m_isInInput = true;
        m_hasTypedInInput = false;
    });
    m_ends = editor.InputEnds.Subscribe([this] {
        m_group.reset();
        m_isInInput = false;
    });
    QObject::connect(
        &editor,
        &QsciScintillaBase::SCN_MODIFIED,
        &m_context,
        [this](int position, int type, const char*, int length, int added) {
            constexpr int kEdits =
                QsciScintillaBase::SC_MOD_INSERTTEXT | QsciScintillaBase::SC_MOD_DELETETEXT;
            if ((type & kEdits) != 0 && !m_isFollowing) {
                const bool isInsertion = (type & QsciScintillaBase::SC_MOD_INSERTTEXT) != 0;
                Mirror({position, length, added, isInsertion});
            }
        });
}

ModuleText::~ModuleText() = default;

void ModuleText::Mirror(const Modification& modification) {
    const QScopedValueRollback<bool> mirroring(m_isMirroring, true);
    if (!ContinuesTyping(modification)) {
        m_module.EndTyping();
    }
    try {
        MirrorLines(modification);
    } catch (const BasicError&) {
        ShowAllLater();
    }
    m_hasTypedInInput = true;
    m_typed = modification;
    if (m_editor.LineCount() != std::max(m_module.CountOfLines(), 1)) {
        ShowAllLater();
    }
}

/// Characters one after the other are one step, until a new word begins; so is deleting in one direction.
bool ModuleText::ContinuesTyping(const Modification& modification) const {
    if (m_isInInput && m_hasTypedInInput) {
        return true;
    }
    constexpr int kLongestCharacter = 4;
    if (!m_typed || m_typed->IsInsertion != modification.IsInsertion ||
        modification.Length > kLongestCharacter) {
        return false;
    }
    if (!modification.IsInsertion) {
        return modification.Position == m_typed->Position ||
               modification.Position + modification.Length == m_typed->Position;
    }
    if (modification.Position != m_typed->Position + m_typed->Length) {
        return false;
    }
    const auto isBlank = [this](int position) {
        return m_editor.SendScintilla(
                   QsciScintillaBase::SCI_GETCHARAT, static_cast<unsigned long>(position)) == ' ';
    };
    return !isBlank(modification.Position - 1) || isBlank(modification.Position);
}

void ModuleText::MirrorLines(const Modification& modification) {
    const int line = m_editor.LineOf(modification.Position);
    const int oldCount = modification.IsInsertion ? 1 : 1 - modification.LinesAdded;
    const int newCount = modification.IsInsertion ? 1 + modification.LinesAdded : 1;
    const auto first = static_cast<std::size_t>(line) - 1;
    const auto last = std::min(first + static_cast<std::size_t>(oldCount), m_module.Texts().size());
    const std::vector<std::string> before(
        m_module.Texts().begin() + static_cast<std::ptrdiff_t>(std::min(first, last)),
        m_module.Texts().begin() + static_cast<std::ptrdiff_t>(last));
    std::vector<std::string> after;
    after.reserve(static_cast<std::size_t>(newCount));
    for (int index = 0; index < newCount; ++index) {
        after.push_back(m_editor.LineText(line + index));
    }
    const LinesChange change = modCodeLines::Difference(before, after);
    const auto inserted = after.begin() + (change.Start - 1);
    const std::string text = modText::Join(
        std::vector<std::string>(inserted, inserted + change.Inserted), modText::kLineEnd);
    const std::int32_t start = line + change.Start - 1;
    if (change.Removed == 1 && change.Inserted == 1) {
        m_module.TypeLine(start, text);
    } else if (change.Inserted == 0) {
        m_module.DeleteLines(start, change.Removed);
    } else if (change.Removed == 0) {
        m_module.InsertLines(start, text);
    } else {
        m_module.ReplaceLines(start, change.Removed, text);
    }
}

void ModuleText::Follow(const LinesChange& change) {
    if (m_isMirroring) {
        return;
    }
    const QScopedValueRollback<bool> following(m_isFollowing, true);
    m_typed.reset();
    FollowLines(change);
    if (m_editor.LineCount() != std::max(m_module.CountOfLines(), 1)) {
        ShowAll();
    }
}

void ModuleText::FollowLines(const LinesChange& change) {
    const std::int32_t countBefore = m_module.CountOfLines() - change.Inserted + change.Removed;
    const std::int32_t last = change.Start + change.Removed - 1;
    if (countBefore == change.Removed || m_module.CountOfLines() == 0) {
        ShowAll();
        return;
    }
    const std::string text = JoinedLines(m_module, change.Start, change.Inserted);
    if (change.Removed == 0 && change.Start <= countBefore) {
        Put(m_editor.LineStart(change.Start), m_editor.LineStart(change.Start), text + "\n");
    } else if (change.Removed == 0) {
        Put(m_editor.LineEnd(countBefore), m_editor.LineEnd(countBefore), "\n" + text);
    } else if (change.Inserted > 0) {
        Put(m_editor.LineStart(change.Start), m_editor.LineEnd(last), text);
    } else if (last < countBefore) {
        Put(m_editor.LineStart(change.Start), m_editor.LineStart(last + 1), text);
    } else {
        Put(m_editor.LineEnd(change.Start - 1), m_editor.LineEnd(last), text);
    }
}

/// Only what differs, so that selection and marks stay where the text does.
void ModuleText::Put(int start, int end, const std::string& text) {
    const auto* bytes = static_cast<const char*>(
        m_editor.SendScintillaPtrResult(QsciScintillaBase::SCI_GETCHARACTERPOINTER));
    const std::string_view old(bytes + start, static_cast<std::size_t>(end - start));
    const std::size_t both = std::min(old.size(), text.size());
    std::size_t front = 0;
    while (front < both && old[front] == text[front]) {
        ++front;
    }
    while (front > 0 && ((front < old.size() && IsContinuationByte(old[front])) ||
                         (front < text.size() && IsContinuationByte(text[front])))) {
        --front;
    }
    std::size_t back = 0;
    while (back < both - front && old[old.size() - 1 - back] == text[text.size() - 1 - back]) {
        ++back;
    }
    while (back > 0 && IsContinuationByte(text[text.size() - back])) {
        --back;
    }
    const std::string middle = text.substr(front, text.size() - front - back);
    const int from = start + static_cast<int>(front);
    m_editor.PutText(from, end - static_cast<int>(back), middle);
    m_followedEnd = from + static_cast<int>(middle.size());
}

void ModuleText::ShowAll() {
    const QScopedValueRollback<bool> following(m_isFollowing, true);
    m_editor.SetAll(m_module.Texts());
    m_followedEnd = 0;
}

void ModuleText::ShowAllLater() {
    QTimer::singleShot(0, &m_context, [this] { ShowAll(); });
}

void ModuleText::Undo() {
    m_followedEnd = -1;
    m_module.Undo();
    GoToFollowed();
}

void ModuleText::Redo() {
    m_followedEnd = -1;
    m_module.Redo();
    GoToFollowed();
}

void ModuleText::GoToFollowed() {
    if (m_followedEnd >= 0) {
        m_editor.SendScintilla(
            QsciScintillaBase::SCI_GOTOPOS, static_cast<unsigned long>(m_followedEnd));
        Undone.Raise();
    }
}

}  // namespace dorvik
