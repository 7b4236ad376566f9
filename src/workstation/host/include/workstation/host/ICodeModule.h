#pragma once

#include "workstation/host/ProcedureKind.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace dorvik {

/// Lines and columns from 1; the end column is the one after the last character, -1 stands for the end of the line.
struct CodeRange {
    std::int32_t StartLine = 0;
    std::int32_t StartColumn = 0;
    std::int32_t EndLine = 0;
    std::int32_t EndColumn = 0;

    friend bool operator==(const CodeRange&, const CodeRange&) = default;
};

struct FindOptions {
    bool WholeWord = false;
    bool MatchCase = false;
    bool PatternSearch = false;
};

/// A window of the environment.
class IHostWindow {
public:
    virtual ~IHostWindow() = default;
    virtual bool Visible() const = 0;
    virtual void SetVisible(bool visible) = 0;
    virtual void SetFocus() = 0;
    virtual void Close() = 0;
};

/// The window in which a code module is edited.
class ICodePane {
public:
    virtual ~ICodePane() = default;
    virtual void Show() = 0;
    virtual std::int32_t TopLine() const = 0;
    virtual void SetTopLine(std::int32_t line) = 0;
    virtual void SetSelection(const CodeRange& range) = 0;
    virtual CodeRange Selection() const = 0;
    virtual IHostWindow& Window() = 0;
};

/// The code of a component as the environment's code window has it: without the layout and the attributes above it.
/// Lines count from 1.
class ICodeModule {
public:
    virtual ~ICodeModule() = default;
    /// The lines joined by CR LF. A line after the end reads empty.
    virtual std::string Lines(std::int32_t start, std::int32_t count) const = 0;
    virtual std::int32_t CountOfLines() const = 0;
    virtual std::int32_t CountOfDeclarationLines() const = 0;
    /// The line after the end of the procedure before, of the first procedure the one after the declarations: comments
    /// and blank lines in front of a procedure are its own. 0 for an unknown procedure.
    virtual std::int32_t ProcStartLine(std::string_view name, ProcedureKind kind) const = 0;
    /// From `ProcStartLine` to the end of the procedure; 0 for an unknown one.
    virtual std::int32_t ProcCountLines(std::string_view name, ProcedureKind kind) const = 0;
    /// The first place of a text within one line of a range of whole lines; nothing where it is not found, or the range
    /// begins before the first line.
    virtual std::optional<CodeRange>
    Find(std::string_view text, const CodeRange& within, const FindOptions& options) const = 0;
    virtual ICodePane& CodePane() = 0;
};

}  // namespace dorvik
