#pragma once

#include "workstation/filehost/ProcedureList.h"
#include "workstation/filehost/modCodeLines.h"
#include "workstation/host/ICodeModule.h"

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
    }
    void SetFocus() override { Note("focus"); }
    void Close() override {
        m_visible = false;
        Note("closed");
    }

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

private:
    HostCalls& m_calls;
    std::string m_name;
    ScriptedWindow m_window;
    std::int32_t m_topLine = 1;
    CodeRange m_selection{1, 1, 1, 1};
};

/// A code module over a plain text, which a test may replace at any time.
class ScriptedModule final : public ICodeModule {
public:
    ScriptedModule(HostCalls& calls, const std::string& component) : m_pane(calls, component) {}

    /// Lines end in LF or CR LF; a line end at the end of the text begins no further line.
    void SetText(std::string_view text);

    std::string Lines(std::int32_t start, std::int32_t count) const override {
        return modCodeLines::Joined(m_lines, start, count);
    }
    std::int32_t CountOfLines() const override { return static_cast<std::int32_t>(m_lines.size()); }
    std::int32_t CountOfDeclarationLines() const override {
        return m_procedures.CountOfDeclarationLines();
    }
    std::int32_t ProcStartLine(std::string_view name, ProcedureKind kind) const override;
    std::int32_t ProcCountLines(std::string_view name, ProcedureKind kind) const override;
    std::optional<CodeRange> Find(
        std::string_view text, const CodeRange& within, const FindOptions& options) const override {
        return modCodeLines::Find(m_lines, text, within, options);
    }
    ScriptedPane& CodePane() override { return m_pane; }

private:
    std::vector<std::string> m_lines;
    ProcedureList m_procedures;
    ScriptedPane m_pane;
};

}  // namespace dorvik::test
