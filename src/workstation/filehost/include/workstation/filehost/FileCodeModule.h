#pragma once

#include "workstation/controls/Event.h"
#include "workstation/filehost/CodeFile.h"
#include "workstation/filehost/FileCodePane.h"
#include "workstation/filehost/ProcedureList.h"
#include "workstation/filehost/modCodeLines.h"
#include "workstation/host/ICodeModule.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// The code of a file, to be read and edited. Each change can be undone; what was saved is known, so that a module that
/// was brought back to it is not dirty. What is undone comes back with what the file has besides the text of its lines.
class FileCodeModule final : public ICodeModule {
public:
    /// How many changes can be undone; older ones are forgotten.
    static constexpr std::size_t kMostSteps = 1000;

    explicit FileCodeModule(CodeFile file);
    FileCodeModule(const FileCodeModule&) = delete;
    FileCodeModule& operator=(const FileCodeModule&) = delete;

    std::string Lines(std::int32_t start, std::int32_t count) const override;
    std::int32_t CountOfLines() const override {
        return static_cast<std::int32_t>(m_file.Texts().size());
    }
    std::int32_t CountOfDeclarationLines() const override;
    std::int32_t ProcStartLine(std::string_view name, ProcedureKind kind) const override;
    std::int32_t ProcCountLines(std::string_view name, ProcedureKind kind) const override;
    std::optional<CodeRange>
    Find(std::string_view text, const CodeRange& within, const FindOptions& options) const override;
    FileCodePane& CodePane() override { return m_pane; }

    const std::vector<std::string>& Texts() const { return m_file.Texts(); }
    const ProcedureList& Procedures() const;
    const CodeFile& File() const { return m_file; }

    // All of these raise `kSubscriptOutOfRange` for a line that is not there. A text may have several lines.
    void ReplaceLine(std::int32_t line, std::string_view text) { ReplaceLines(line, 1, text); }
    void ReplaceLines(std::int32_t start, std::int32_t count, std::string_view text);
    /// In front of `line`; the one after the last is allowed.
    void InsertLines(std::int32_t line, std::string_view text);
    void DeleteLines(std::int32_t start, std::int32_t count);
    /// Replaces a line as one who types in it: changes of the same line in succession are undone together, until
    /// `EndTyping` or any other change.
    void TypeLine(std::int32_t line, std::string_view text);
    void EndTyping() { m_isTyping = false; }

    bool CanUndo() const { return m_step > 0; }
    bool CanRedo() const { return m_step < m_steps.size(); }
    /// Nothing happens where there is nothing to undo or redo.
    void Undo();
    void Redo();
    /// All changes between these two are undone together. They nest; see `ChangeGroup`.
    void BeginGroup();
    void EndGroup();

    bool IsDirty() const { return m_isRenamed || m_version != m_savedVersion; }
    /// Since the file was written.
    bool IsRenamed() const { return m_isRenamed; }
    /// Cannot be undone. Raises as `CodeFile::Rename`.
    void Rename(std::string_view name);
    /// Raises where the file cannot be written. See `CodeFile`.
    void Write(const std::string& bytes);
    /// Takes the file as it was read anew. Nothing can be undone then.
    void Load(CodeFile file);
    /// The file on disk may be overwritten, whatever another program made of it.
    void AcceptFileOnDisk() { m_file.AcceptFileOnDisk(); }

    Event<const LinesChange&> Changed;
    Event<> DirtyChanged;

private:
    /// A change, and at the same time the one that takes it back: what is to be put in the place of what.
    struct Step {
        std::int32_t Start = 0;
        std::int32_t Count = 0;
        FileLines Lines;
        std::int64_t Version = 0;  // of the text once this step is taken
        std::int64_t Group = 0;    // those with the same are taken together
    };

    void CheckLines(std::int32_t start, std::int32_t count) const;
    void Change(std::int32_t start, std::int32_t count, std::vector<std::string> texts);
    bool JoinsTyping(std::int32_t line) const;
    void ForgetOldSteps();
    FileLines Exchange(const LinesChange& change, FileLines lines);
    void Report(const LinesChange& change);
    /// Takes a step and makes it the one back.
    void Take(Step& step);
    void SetVersion(std::int64_t version);

    CodeFile m_file;
    FileCodePane m_pane;
    mutable std::optional<ProcedureList>
        m_procedures;           // nothing after a change, until it is needed
    std::vector<Step> m_steps;  // up to m_step to be undone, then to be redone
    std::size_t m_step = 0;
    std::int64_t m_version = 0;
    std::int64_t m_lastVersion = 0;
    std::int64_t m_savedVersion = 0;
    bool m_isRenamed = false;
    bool m_isTyping = false;  // the last step takes what is typed next
    std::int64_t m_group = 0;
    std::int32_t m_groupDepth = 0;
};

/// Changes that are undone together, as long as it lives. REQUIRES: the module outlives it.
class ChangeGroup {
public:
    explicit ChangeGroup(FileCodeModule& module) : m_module(module) { m_module.BeginGroup(); }
    ChangeGroup(const ChangeGroup&) = delete;
    ChangeGroup& operator=(const ChangeGroup&) = delete;
    ~ChangeGroup() { m_module.EndGroup(); }

private:
    FileCodeModule& m_module;
};

}  // namespace dorvik
