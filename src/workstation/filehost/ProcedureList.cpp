#include "workstation/filehost/ProcedureList.h"

#include "base/modText.h"
#include "base/modTextCase.h"
#include "source/modLogicalLine.h"
#include "source/modSource.h"
#include "source/modStatementFront.h"

#include <algorithm>
#include <cstddef>
#include <optional>

namespace dorvik {

namespace {

constexpr std::string_view kTypeCharacters = "!$#%&@";

std::string_view PlainName(std::string_view name) {
    name = modText::Trim(name);
    name = name.substr(0, name.find_first_of(" \t("));
    if (!name.empty() && kTypeCharacters.find(name.back()) != std::string_view::npos) {
        name.remove_suffix(1);
    }
    return name;
}

}  // namespace

class ProcedureList::Builder {
public:
    explicit Builder(ProcedureList& list) : m_list(list) {}

    void Run(const std::vector<std::string>& lines) {
        const auto count = static_cast<std::int32_t>(lines.size());
        for (std::int32_t line = 1; line <= count; line = m_lastLine + 1) {
            m_firstLine = line;
            TakeLogicalLine(lines);
        }
        if (m_place == Place::InProcedure) {
            m_list.m_procedures.back().EndLine = count;
        }
        if (m_list.m_procedures.empty()) {
            m_list.m_declarationLines = count;
        }
    }

private:
    enum class Place { Declarations, InBlock, InProcedure, BetweenProcedures };

    void TakeLogicalLine(const std::vector<std::string>& lines) {
        m_lastLine = m_firstLine;
        std::string_view physical = PhysicalLine(lines);
        const LineType type = modSource::SourceLineType(physical);
        if (type == LineType::Blank || type == LineType::CommentOnly) {
            return;
        }
        bool isContinued = modLogicalLine::IsContinued(physical);
        m_logical = isContinued ? modLogicalLine::WithoutContinuation(physical) : physical;
        while (isContinued && static_cast<std::size_t>(m_lastLine) < lines.size()) {
            ++m_lastLine;
            physical = PhysicalLine(lines);
            isContinued = modLogicalLine::IsContinued(physical);
            modLogicalLine::AppendJoined(
                m_logical, isContinued ? modLogicalLine::WithoutContinuation(physical) : physical);
        }
        modLogicalLine::RemoveLineNumber(m_logical);
        TakeStatements(m_logical);
        if (m_place == Place::Declarations || m_place == Place::InBlock) {
            m_list.m_declarationLines = m_lastLine;
        }
    }

    /// The last line of the logical one so far, valid until the next call.
    std::string_view PhysicalLine(const std::vector<std::string>& lines) {
        return modStatementFront::WithBlanks(
            lines[static_cast<std::size_t>(m_lastLine) - 1], m_blankedLine);
    }

    void TakeStatements(std::string_view logical) {
        if (!modSource::IsMultiStatementLine(logical)) {
            TakeStatement(logical);
            return;
        }
        bool more = true;
        while (more) {
            const std::string_view statement =
                modSource::NextStatementFromSourceLine(logical, more);
            TakeStatement(statement);
        }
    }

    void TakeStatement(std::string_view statement) {
        switch (m_place) {
            case Place::Declarations:
                if (!BeginsProcedure(statement) &&
                    (modSource::IsEnumDef(statement) || modSource::IsTypeDef(statement))) {
                    m_place = Place::InBlock;
                }
                break;
            case Place::InBlock:
                if (modSource::IsEnumDefEnd(statement) || modSource::IsTypeDefEnd(statement)) {
                    m_place = Place::Declarations;
                }
                break;
            case Place::InProcedure:
                if (modSource::IsProcedureDefinitionEnd(statement)) {
                    m_list.m_procedures.back().EndLine = m_lastLine;
                    m_place = Place::BetweenProcedures;
                }
                break;
            case Place::BetweenProcedures: BeginsProcedure(statement); break;
        }
    }

    bool BeginsProcedure(std::string_view statement) {
        const std::optional<modSource::ProcedureDefinition> definition =
            modSource::IsProcedureDefinition(statement);
        if (!definition) {
            return false;
        }
        CodeProcedure procedure;
        procedure.Name = PlainName(modSource::StripInLineComment(definition->Name));
        procedure.Kind = ProcedureKindOf(definition->ProcedureType);
        procedure.StartLine = m_list.m_procedures.empty() ? m_list.m_declarationLines + 1
                                                          : m_list.m_procedures.back().EndLine + 1;
        // Two procedures in one line: the second has no line of its own in front of its definition.
        procedure.StartLine = std::min(procedure.StartLine, m_firstLine);
        procedure.DefinitionLine = m_firstLine;
        procedure.EndLine = m_lastLine;
        m_list.m_procedures.push_back(std::move(procedure));
        m_place = Place::InProcedure;
        return true;
    }

    ProcedureList& m_list;
    Place m_place = Place::Declarations;
    std::int32_t m_firstLine = 1;  // of the logical line at hand
    std::int32_t m_lastLine = 0;
    std::string m_logical;
    std::string m_blankedLine;
};

ProcedureList::ProcedureList(const std::vector<std::string>& lines) {
    Builder(*this).Run(lines);
}

const CodeProcedure* ProcedureList::Find(std::string_view name, ProcedureKind kind) const {
    const std::string_view plain = PlainName(name);
    const auto found = std::ranges::find_if(m_procedures, [&](const CodeProcedure& procedure) {
        return procedure.Kind == kind && modTextCase::Equal(procedure.Name, plain);
    });
    return found == m_procedures.end() ? nullptr : &*found;
}

const CodeProcedure* ProcedureList::AtLine(std::int32_t line) const {
    const auto found = std::ranges::lower_bound(m_procedures, line, {}, &CodeProcedure::EndLine);
    return found == m_procedures.end() || line < found->StartLine ? nullptr : &*found;
}

}  // namespace dorvik
