#pragma once

#include "workstation/host/ICodeModule.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace dorvik::test {

/// What was asked of the environment, each call a text, in order.
using HostCalls = std::vector<std::string>;

/// A window that notes what is done to it as "<name> shown", "<name> hidden", "<name> focus", "<name> closed".
class ScriptedWindow : public IHostWindow {
public:
    ScriptedWindow(HostCalls& calls, std::string name) : m_calls(calls), m_name(std::move(name)) {}

    bool Visible() const override { return m_visible; }
    void SetVisible(bool visible) override {
        m_visible = visible;
        Note(visible ? "shown" : "hidden");
        if (visible && OnShown) {
            OnShown();
        }
    }
    void SetFocus() override { Note("focus"); }
    void Close() override {
        m_visible = false;
        Note("closed");
    }

    std::function<void()> OnShown;

protected:
    void Note(std::string_view what) { m_calls.push_back(m_name + " " + std::string(what)); }

private:
    HostCalls& m_calls;
    std::string m_name;
    bool m_visible = false;
};

/// Notes "pane C shown", "pane C top LINE", "pane C selection SL SC EL EC" and, by its window, "pane C focus".
class ScriptedPane final : public ICodePane {
public:
    ScriptedPane(HostCalls& calls, const std::string& component)
        : m_calls(calls), m_name("pane " + component), m_window(calls, m_name) {}

    void Show() override { m_calls.push_back(m_name + " shown"); }
    std::int32_t TopLine() const override { return m_topLine; }
    /// Raises `kSubscriptOutOfRange` below line 1.
    void SetTopLine(std::int32_t line) override;
    void SetSelection(const CodeRange& range) override;
    CodeRange Selection() const override { return m_selection; }
    IHostWindow& Window() override { return m_window; }

    /// Keeps to its lines while `count` lines come in front of `line`; a negative count: while they go from there on.
    void FollowLines(std::int32_t line, std::int32_t count, std::int32_t lastLine);

    std::function<void(std::int32_t line)> OnTopLine;

private:
    HostCalls& m_calls;
    std::string m_name;
    ScriptedWindow m_window;
    std::int32_t m_topLine = 1;
    CodeRange m_selection{1, 1, 1, 1};
};

/// A code module over a plain text, which a test may replace at any time, and in which it may type. Procedures are told
/// by how their lines begin.
class ScriptedModule final : public ICodeModule {
public:
    ScriptedModule(HostCalls& calls, const std::string& component) : m_pane(calls, component) {}

    /// Lines end in LF or CR LF; a line end at the end of the text begins no further line.
    void SetText(std::string_view text);

    // What the user does. Each raises `kSubscriptOutOfRange` for a line that is not there.
    void ReplaceLine(std::int32_t line, std::string_view text);
    /// In front of `line`; the one after the last is allowed.
    void InsertLine(std::int32_t line, std::string_view text);
    void DeleteLine(std::int32_t line);
    bool IsEdited() const { return m_isEdited; }
    void SetSaved() { m_isEdited = false; }

    std::string Lines(std::int32_t start, std::int32_t count) const override;
    std::int32_t CountOfLines() const override { return static_cast<std::int32_t>(m_lines.size()); }
    std::int32_t CountOfDeclarationLines() const override;
    std::int32_t ProcStartLine(std::string_view name, ProcedureKind kind) const override;
    std::int32_t ProcCountLines(std::string_view name, ProcedureKind kind) const override;
    /// REQUIRES: no options; it is not asked for more.
    std::optional<CodeRange>
    Find(std::string_view text, const CodeRange& within, const FindOptions& options) const override;
    ScriptedPane& CodePane() override { return m_pane; }

private:
    struct Procedure {
        std::string Name;
        ProcedureKind Kind = ProcedureKind::SubOrFunction;
        std::int32_t DefinitionLine = 0;
        std::int32_t EndLine = 0;
    };

    const std::string& Line(std::int32_t line) const;
    std::vector<Procedure> Procedures() const;
    /// Its first and its last line; nothing for an unknown one.
    std::optional<std::pair<std::int32_t, std::int32_t>>
    Extent(std::string_view name, ProcedureKind kind) const;

    std::vector<std::string> m_lines;
    bool m_isEdited = false;
    ScriptedPane m_pane;
};

}  // namespace dorvik::test
