#include "workstation/filehost/FileCodeModule.h"

#include "base/BasicError.h"
#include "workstation/filehost/modCodeLines.h"

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
    m_steps.resize(m_step);
    m_steps.push_back(std::move(step));
    if (m_steps.size() > kMostSteps) {
        m_steps.erase(m_steps.begin());
    }
    m_step = m_steps.size();
    Take(m_steps.back());
}

void FileCodeModule::Undo() {
    if (CanUndo()) {
        --m_step;
        Take(m_steps[m_step]);
    }
}

void FileCodeModule::Redo() {
    if (CanRedo()) {
        ++m_step;
        Take(m_steps[m_step - 1]);
    }
}

void FileCodeModule::Take(Step& step) {
    LinesChange change;
    change.Start = step.Start;
    change.Removed = step.Count;
    change.Inserted = static_cast<std::int32_t>(step.Lines.Texts.size());
    step.Lines = m_file.Exchange(step.Start, step.Count, std::move(step.Lines));
    step.Count = change.Inserted;
    m_procedures.reset();
    SetVersion(std::exchange(step.Version, m_version));
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
