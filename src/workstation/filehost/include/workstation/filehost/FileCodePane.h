#pragma once

#include "workstation/controls/Event.h"
#include "workstation/filehost/FileHostWindow.h"
#include "workstation/host/ICodeModule.h"

#include <cstdint>

namespace dorvik {

class FileCodeModule;

/// The window of a code module. Its top line and selection keep to their lines while lines above them come and go.
class FileCodePane final : public ICodePane {
public:
    /// The module owns its pane.
    explicit FileCodePane(const FileCodeModule& module) : m_module(module) {}

    void Show() override { m_window.SetVisible(true); }
    std::int32_t TopLine() const override { return m_topLine; }
    /// A line after the end is the last one. Raises `kSubscriptOutOfRange` below line 1.
    void SetTopLine(std::int32_t line) override;
    /// The user scrolled: as `SetTopLine`, but without the event.
    void TakeTopLine(std::int32_t line);
    /// Lines after the end are the last one, columns after the end of a line the one there. Raises
    /// `kSubscriptOutOfRange` below line 1.
    void SetSelection(const CodeRange& range) override;
    CodeRange Selection() const override { return m_selection; }
    FileHostWindow& Window() override { return m_window; }

    /// Called by the module after each change of its lines.
    void FollowLines(std::int32_t start, std::int32_t removed, std::int32_t inserted);

    Event<std::int32_t> TopLineChanged;  // set, maybe to the same line again
    Event<> SelectionChanged;

private:
    std::int32_t LastLine() const;
    std::int32_t Column(std::int32_t line, std::int32_t column) const;

    const FileCodeModule& m_module;
    FileHostWindow m_window;
    std::int32_t m_topLine = 1;
    CodeRange m_selection{1, 1, 1, 1};
};

}  // namespace dorvik
