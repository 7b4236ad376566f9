#include "workstation/filehost/FileCodeModule.h"

#include "base/BasicError.h"
#include "workstation/filehost/modCodeLines.h"

#include <algorithm>
#include <utility>

namespace dorvik {

FileCodeModule::FileCodeModule(CodeFile file) : m_file(std::move(file)), m_pane(*this) {}

std::string FileCodeModule::Lines(std::int32_t start, std::int32_t count) const {
    return modCodeLines::Joined(Texts(), start, count);
}

const ProcedureList& FileCodeModule::Procedures() const {
    if (!m_procedures) {
        m_procedures.emplace(Texts());
    }
    return *m_procedures;
}

std::int32_t FileCodeModule::CountOfDeclarationLines() const {
    return Procedures().CountOfDeclarationLines();
}

std::int32_t FileCodeModule::ProcStartLine(std::string_view name, ProcedureKind kind) const {
    const CodeProcedure* procedure = Procedures().Find(name, kind);
    return procedure == nullptr ? 0 : procedure->StartLine;
}

std::int32_t FileCodeModule::ProcCountLines(std::string_view name, ProcedureKind kind) const {
    const CodeProcedure* procedure = Procedures().Find(name, kind);
    return procedure == nullptr ? 0 : procedure->CountLines();
}

std::optional<CodeRange> FileCodeModule::Find(
    std::string_view text, const CodeRange& within, const FindOptions& options) const {
    return modCodeLines::Find(Texts(), text, within, options);
}

void FileCodeModule::CheckLines(std::int32_t start, std::int32_t count) const {
    if (start < 1 || count < 0 || std::int64_t{start} + count - 1 > CountOfLines()) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
    }
}

void FileCodeModule::ReplaceLines(std::int32_t start, std::int32_t count, std::string_view text) {
    CheckLines(start, count);
    Change(start, count, modCodeLines::SplitText(text));
}

void FileCodeModule::InsertLines(std::int32_t line, std::string_view text) {
    CheckLines(line, 0);
    Change(line, 0, modCodeLines::SplitText(text));
}

void FileCodeModule::DeleteLines(std::int32_t start, std::int32_t count) {
    CheckLines(start, count);
    Change(start, count, {});
}

void FileCodeModule::Change(
    std::int32_t start, std::int32_t count, std::vector<std::string> texts) {
    if (count == 0 && texts.empty()) {
        return;
    }
    if (Texts().size() - static_cast<std::size_t>(count) + texts.size() >
        static_cast<std::size_t>(CodeFile::kMostLines)) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
    }
    Step step;
    step.Start = start;
    step.Count = count;
    step.Lines = m_file.ForTexts(start, count, std::move(texts));
    step.Version = ++m_lastVersion;
    if (m_groupDepth == 0) {
        ++m_group;
    }
    step.Group = m_group;
    m_isTyping = false;
    m_steps.resize(m_step);
    m_steps.push_back(std::move(step));
    ForgetOldSteps();
    m_step = m_steps.size();
    Take(m_steps.back());
}

/// Never a part of a group.
void FileCodeModule::ForgetOldSteps() {
    const std::int64_t oldest = m_steps.front().Group;
    if (m_steps.size() <= kMostSteps || oldest == m_group) {
        return;
    }
    const auto kept =
        std::ranges::find_if(m_steps, [oldest](const Step& step) { return step.Group != oldest; });
    m_steps.erase(m_steps.begin(), kept);
}

bool FileCodeModule::JoinsTyping(std::int32_t line) const {
    return m_isTyping && m_step == m_steps.size() && m_step > 0 && m_version != m_savedVersion &&
           m_steps.back().Start == line && m_steps.back().Count == 1 &&
           m_steps.back().Lines.Texts.size() == 1;
}

void FileCodeModule::TypeLine(std::int32_t line, std::string_view text) {
    CheckLines(line, 1);
    if (!JoinsTyping(line)) {
        Change(line, 1, {std::string(text)});
        m_isTyping = true;
        return;
    }
    const LinesChange change{line, 1, 1};
    Exchange(change, m_file.ForTexts(line, 1, {std::string(text)}));
    SetVersion(++m_lastVersion);
    Report(change);
}

void FileCodeModule::BeginGroup() {
    if (m_groupDepth++ == 0) {
        ++m_group;
    }
}

void FileCodeModule::EndGroup() {
    --m_groupDepth;
}

void FileCodeModule::Undo() {
    m_isTyping = false;
    const std::int64_t group = CanUndo() ? m_steps[m_step - 1].Group : 0;
    while (CanUndo() && m_steps[m_step - 1].Group == group) {
        --m_step;
        Take(m_steps[m_step]);
    }
}

void FileCodeModule::Redo() {
    m_isTyping = false;
    const std::int64_t group = CanRedo() ? m_steps[m_step].Group : 0;
    while (CanRedo() && m_steps[m_step].Group == group) {
        ++m_step;
        Take(m_steps[m_step - 1]);
    }
}

void FileCodeModule::Take(Step& step) {
    LinesChange change;
    change.Start = step.Start;
    change.Removed = step.Count;
    change.Inserted = static_cast<std::int32_t>(step.Lines.Texts.size());
    step.Lines = Exchange(change, std::move(step.Lines));
    step.Count = change.Inserted;
    SetVersion(std::exchange(step.Version, m_version));
    Report(change);
}

FileLines FileCodeModule::Exchange(const LinesChange& change, FileLines lines) {
    m_procedures.reset();
    return m_file.Exchange(change.Start, change.Removed, std::move(lines));
}

void FileCodeModule::Report(const LinesChange& change) {
    m_pane.FollowLines(change.Start, change.Removed, change.Inserted);
    Changed.Raise(change);
}

void FileCodeModule::SetVersion(std::int64_t version) {
    const bool wasDirty = IsDirty();
    m_version = version;
    if (IsDirty() != wasDirty) {
        DirtyChanged.Raise();
    }
}

void FileCodeModule::Rename(std::string_view name) {
    m_file.Rename(name);
    m_isRenamed = true;
    DirtyChanged.Raise();
}

void FileCodeModule::Load(CodeFile file) {
    const bool wasDirty = IsDirty();
    const LinesChange change = modCodeLines::Difference(Texts(), file.Texts());
    m_file = std::move(file);
    m_procedures.reset();
    m_steps.clear();
    m_step = 0;
    m_isTyping = false;
    m_version = ++m_lastVersion;
    m_savedVersion = m_version;
    m_isRenamed = false;
    if (change.Removed > 0 || change.Inserted > 0) {
        Report(change);
    }
    if (wasDirty) {
        DirtyChanged.Raise();
    }
}

void FileCodeModule::Write(const std::string& bytes) {
    m_file.Write(bytes);
    const bool wasDirty = IsDirty();
    m_savedVersion = m_version;
    m_isRenamed = false;
    if (wasDirty) {
        DirtyChanged.Raise();
    }
}

}  // namespace dorvik
