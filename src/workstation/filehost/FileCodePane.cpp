#include "workstation/filehost/FileCodePane.h"

#include "base/BasicError.h"
#include "base/modUtf8.h"
#include "workstation/filehost/FileCodeModule.h"

#include <algorithm>
#include <cstddef>

namespace dorvik {

namespace {

void CheckLine(std::int32_t line) {
    if (line < 1) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
    }
}

}  // namespace

std::int32_t FileCodePane::LastLine() const {
    return std::max(m_module.CountOfLines(), 1);
}

std::int32_t FileCodePane::Column(std::int32_t line, std::int32_t column) const {
    const std::vector<std::string>& texts = m_module.Texts();
    const auto index = static_cast<std::size_t>(line) - 1;
    const std::size_t length = index < texts.size() ? modUtf8::Length(texts[index]) : 0;
    const auto last = static_cast<std::int32_t>(length) + 1;
    return column == -1 ? last : std::clamp(column, 1, last);
}

void FileCodePane::SetTopLine(std::int32_t line) {
    TakeTopLine(line);
    TopLineChanged.Raise(m_topLine);
}

void FileCodePane::TakeTopLine(std::int32_t line) {
    CheckLine(line);
    m_topLine = std::min(line, LastLine());
}

void FileCodePane::SetSelection(const CodeRange& range) {
    CheckLine(range.StartLine);
    CheckLine(range.EndLine);
    CodeRange selection = range;
    selection.StartLine = std::min(range.StartLine, LastLine());
    selection.EndLine = std::min(range.EndLine, LastLine());
    selection.StartColumn = Column(selection.StartLine, range.StartColumn);
    selection.EndColumn = Column(selection.EndLine, range.EndColumn);
    m_selection = selection;
    SelectionChanged.Raise();
}

void FileCodePane::FollowLines(std::int32_t start, std::int32_t removed, std::int32_t inserted) {
    const auto follow = [&](std::int32_t line) {
        if (line >= start + removed) {
            line += inserted - removed;
        } else if (line >= start + inserted) {
            line = start + inserted;
        }
        return std::clamp(line, 1, LastLine());
    };
    m_topLine = follow(m_topLine);
    CodeRange selection = m_selection;
    selection.StartLine = follow(selection.StartLine);
    selection.EndLine = follow(selection.EndLine);
    SetSelection(selection);
}

}  // namespace dorvik
