#include "workstation/support/ScriptedCode.h"

#include "base/BasicError.h"
#include "base/modText.h"
#include "base/modTextCase.h"
#include "support/LineText.h"

#include <algorithm>
#include <array>

namespace dorvik::test {

namespace {

struct KindRow {
    std::string_view Begin;
    ProcedureKind Kind;
};
constexpr std::array<KindRow, 5> kKinds{{
    {"Sub ", ProcedureKind::SubOrFunction},
    {"Function ", ProcedureKind::SubOrFunction},
    {"Property Get ", ProcedureKind::PropertyGet},
    {"Property Let ", ProcedureKind::PropertyLet},
    {"Property Set ", ProcedureKind::PropertySet},
}};
constexpr std::array<std::string_view, 4> kModifiers{"Public ", "Private ", "Friend ", "Static "};
constexpr std::array<std::string_view, 3> kEnds{"End Sub", "End Function", "End Property"};

std::string_view WithoutModifiers(std::string_view line) {
    line = modText::Trim(line);
    for (const std::string_view modifier : kModifiers) {
        if (modTextCase::StartsWith(line, modifier)) {
            return WithoutModifiers(line.substr(modifier.size()));
        }
    }
    return line;
}

bool IsEnd(std::string_view line) {
    return std::ranges::any_of(kEnds, [&](std::string_view end) {
        return modTextCase::StartsWith(modText::Trim(line), end);
    });
}

bool HasCode(std::string_view line) {
    const std::string_view text = modText::Trim(line);
    return !text.empty() && !text.starts_with('\'');
}

void CheckLine(std::int32_t line, std::size_t count) {
    if (line < 1 || static_cast<std::size_t>(line) > count) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
    }
}

}  // namespace

void ScriptedPane::SetTopLine(std::int32_t line) {
    if (line < 1) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
    }
    m_topLine = line;
    m_calls.push_back(m_name + " top " + std::to_string(line));
    if (OnTopLine) {
        OnTopLine(line);
    }
}

void ScriptedPane::SetSelection(const CodeRange& range) {
    m_selection = range;
    m_calls.push_back(
        m_name + " selection " + std::to_string(range.StartLine) + " " +
        std::to_string(range.StartColumn) + " " + std::to_string(range.EndLine) + " " +
        std::to_string(range.EndColumn));
}

void ScriptedPane::FollowLines(std::int32_t line, std::int32_t count, std::int32_t lastLine) {
    const auto follow = [&](std::int32_t& kept) {
        if (kept >= line) {
            kept = std::max(kept + count, line);
        }
        kept = std::clamp(kept, 1, std::max(lastLine, 1));
    };
    follow(m_topLine);
    follow(m_selection.StartLine);
    follow(m_selection.EndLine);
}

void ScriptedModule::SetText(std::string_view text) {
    m_lines = LinesOf(text);
}

void ScriptedModule::ReplaceLine(std::int32_t line, std::string_view text) {
    CheckLine(line, m_lines.size());
    m_lines[static_cast<std::size_t>(line) - 1] = text;
    m_isEdited = true;
}

void ScriptedModule::InsertLine(std::int32_t line, std::string_view text) {
    CheckLine(line, m_lines.size() + 1);
    m_lines.emplace(m_lines.begin() + (line - 1), text);
    m_isEdited = true;
    m_pane.FollowLines(line, 1, CountOfLines());
}

void ScriptedModule::DeleteLine(std::int32_t line) {
    CheckLine(line, m_lines.size());
    m_lines.erase(m_lines.begin() + (line - 1));
    m_isEdited = true;
    m_pane.FollowLines(line, -1, CountOfLines());
}

std::string ScriptedModule::Lines(std::int32_t start, std::int32_t count) const {
    std::string text;
    const std::int32_t last = std::min(start + count - 1, CountOfLines());
    for (std::int32_t line = std::max(start, 1); line <= last; ++line) {
        text.append(line > start ? "\r\n" : "").append(Line(line));
    }
    return text;
}

const std::string& ScriptedModule::Line(std::int32_t line) const {
    return m_lines.at(static_cast<std::size_t>(line) - 1);
}

std::vector<ScriptedModule::Procedure> ScriptedModule::Procedures() const {
    std::vector<Procedure> procedures;
    bool isInside = false;
    for (std::int32_t line = 1; line <= CountOfLines(); ++line) {
        if (isInside) {
            procedures.back().EndLine = line;
            isInside = !IsEnd(Line(line));
            continue;
        }
        const std::string_view text = WithoutModifiers(Line(line));
        for (const KindRow& row : kKinds) {
            if (modTextCase::StartsWith(text, row.Begin)) {
                const std::string_view name = text.substr(row.Begin.size());
                procedures.push_back(
                    {std::string(name.substr(0, name.find('('))), row.Kind, line, line});
                isInside = true;
            }
        }
    }
    return procedures;
}

std::int32_t ScriptedModule::CountOfDeclarationLines() const {
    const std::vector<Procedure> procedures = Procedures();
    if (procedures.empty()) {
        return CountOfLines();
    }
    std::int32_t line = procedures.front().DefinitionLine - 1;
    while (line > 0 && !HasCode(Line(line))) {
        --line;
    }
    return line;
}

std::optional<std::pair<std::int32_t, std::int32_t>>
ScriptedModule::Extent(std::string_view name, ProcedureKind kind) const {
    std::int32_t start = CountOfDeclarationLines() + 1;
    for (const Procedure& procedure : Procedures()) {
        if (procedure.Kind == kind && modTextCase::Equal(procedure.Name, name)) {
            return std::pair(start, procedure.EndLine);
        }
        start = procedure.EndLine + 1;
    }
    return std::nullopt;
}

std::int32_t ScriptedModule::ProcStartLine(std::string_view name, ProcedureKind kind) const {
    const auto extent = Extent(name, kind);
    return extent ? extent->first : 0;
}

std::int32_t ScriptedModule::ProcCountLines(std::string_view name, ProcedureKind kind) const {
    const auto extent = Extent(name, kind);
    return extent ? extent->second - extent->first + 1 : 0;
}

std::optional<CodeRange> ScriptedModule::Find(
    std::string_view text, const CodeRange& within, const FindOptions& /*options*/) const {
    if (within.StartLine < 1 || text.empty()) {
        return std::nullopt;
    }
    const std::string sought = modTextCase::ToLower(text);
    const std::int32_t last = std::min(within.EndLine, CountOfLines());
    for (std::int32_t line = within.StartLine; line <= last; ++line) {
        const std::size_t place = modTextCase::ToLower(Line(line)).find(sought);
        if (place != std::string::npos) {
            const auto column = static_cast<std::int32_t>(place) + 1;
            return CodeRange{line, column, line, column + static_cast<std::int32_t>(text.size())};
        }
    }
    return std::nullopt;
}

}  // namespace dorvik::test
