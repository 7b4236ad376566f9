#include "SelectCompiler.h"

#include "ConditionCompiler.h"
#include "ExpressionCompiler.h"
#include "OperandCompiler.h"
#include "Relations.h"
#include "StatementCompiler.h"
#include "basic/values/ValueKinds.h"

#include <algorithm>
#include <utility>

namespace dorvik::basic {

namespace {

constexpr std::size_t kFewestKeys = 4;        // below that, tests are as quick as a table
constexpr std::int64_t kWidestRange = 1'000;  // of a `Case a To b` that is spread over a table
constexpr std::size_t kSpread = 4;            // entries of a table for each key

}  // namespace

/// All values of all tests with the bodies that they lead to, the first of equal ones in front.
/// False if a test is none of whole constants.
bool SelectCompiler::CollectKeys(
    const SelectStatement& node,
    std::vector<std::pair<std::int32_t, Label>>& keys,
    const std::vector<Label>& bodies) {
    for (std::size_t i = 0; i < node.Clauses.size(); ++i) {
        for (const CaseTest& test : node.Clauses[i].Tests) {
            if (test.Kind == CaseTestKind::Comparison) {
                return false;
            }
            const auto low = Expressions().LongConstantOf(*test.Value);
            const auto high =
                test.Kind == CaseTestKind::Range ? Expressions().LongConstantOf(*test.Upper) : low;
            if (!low || !high || std::int64_t{*high} - *low > kWidestRange) {
                return false;
            }
            for (std::int64_t key = *low; key <= *high; ++key) {
                keys.emplace_back(static_cast<std::int32_t>(key), bodies[i]);
            }
        }
    }
    std::stable_sort(keys.begin(), keys.end(), [](const auto& left, const auto& right) {
        return left.first < right.first;
    });
    keys.erase(
        std::unique(
            keys.begin(),
            keys.end(),
            [](const auto& left, const auto& right) { return left.first == right.first; }),
        keys.end());
    return true;
}

bool SelectCompiler::TrySwitch(
    const SelectStatement& node,
    const Operand& subject,
    const std::vector<Label>& bodies,
    Label otherwise) {
    const DeclaredKind kind = subject.Type.Kind;
    const bool isWhole =
        kind == DeclaredKind::Long || kind == DeclaredKind::Integer || kind == DeclaredKind::Byte;
    std::vector<std::pair<std::int32_t, Label>> keys;
    if (!isWhole || subject.Type.IsArray || !CollectKeys(node, keys, bodies) ||
        keys.size() < kFewestKeys) {
        return false;
    }
    SwitchTable table;
    table.Else = otherwise;
    table.First = keys.front().first;
    const std::int64_t width = std::int64_t{keys.back().first} - table.First + 1;
    const bool isDense = width <= static_cast<std::int64_t>(keys.size() * kSpread);
    if (isDense) {
        table.Targets.assign(static_cast<std::size_t>(width), otherwise);
    }
    for (const auto& [key, label] : keys) {
        if (isDense) {
            table.Targets[static_cast<std::size_t>(std::int64_t{key} - table.First)] = label;
        } else {
            table.Keys.push_back(key);
            table.Targets.push_back(label);
        }
    }
    m_code.EmitWide(
        isDense ? Opcode::SwitchDense : Opcode::SwitchSparse,
        Operands().SlotOf(subject),
        static_cast<std::int64_t>(m_code.AddSwitch(std::move(table))));
    return true;
}

void SelectCompiler::CompileTest(const CaseTest& test, const Operand& subject, Label body) {
    const std::size_t mark = m_code.TemporaryMark();
    const Operand value = Expressions().Evaluate(*test.Value);
    if (test.Kind == CaseTestKind::Range) {
        const Label outside = m_code.NewLabel();
        Conditions().JumpOnRelation(Relation::GreaterOrEqual, subject, value, false, outside);
        Conditions().JumpOnRelation(
            Relation::LessOrEqual, subject, Expressions().Evaluate(*test.Upper), true, body);
        m_code.Bind(outside);
    } else {
        const Relation relation =
            test.Kind == CaseTestKind::Value ? Relation::Equal : RelationOf(test.Comparison);
        Conditions().JumpOnRelation(relation, subject, value, true, body);
    }
    m_code.ReleaseTemporaries(mark);
}

void SelectCompiler::Compile(const SelectStatement& node, SourcePlace place) {
    std::vector<Label> bodies;
    const Label end = m_code.NewLabel();
    Label otherwise = end;
    for (const CaseClause& clause : node.Clauses) {
        bodies.push_back(m_code.NewLabel());
        if (clause.Tests.empty()) {
            otherwise = bodies.back();
        }
    }
    // Required: after an error in the expression no clause matches but Case Else.
    const Label again = m_code.Here();
    m_code.Mark(place.Line, again, otherwise);
    const std::size_t mark = m_code.TemporaryMark();
    Operand subject = Expressions().Evaluate(*node.Subject);
    if (!TrySwitch(node, subject, bodies, otherwise)) {
        Operand held = subject;
        held.Constant = nullptr;
        held.Slot = IsPlain(subject.Type) ? m_code.NewPlain() : m_code.NewGeneric();
        const bool isKept = IsPlain(subject.Type) || subject.Type.Kind == DeclaredKind::String;
        if (!isKept) {
            held.Type = {};
        }
        const bool isFreshText =
            subject.IsFresh && subject.Type.Kind == DeclaredKind::String && !subject.Type.IsArray;
        if (isFreshText) {
            m_code.Emit(Opcode::Move, held.Slot, Operands().SlotOf(subject), 0, kSelectSubject);
        } else {
            Operands().MoveInto(subject, held.Slot, held.Type);
        }
        for (std::size_t i = 0; i < node.Clauses.size(); ++i) {
            if (node.Clauses[i].Tests.empty()) {
                continue;
            }
            m_context.Place = node.Clauses[i].Place;
            m_code.Mark(m_context.Place.Line, again, otherwise);
            for (const CaseTest& test : node.Clauses[i].Tests) {
                CompileTest(test, held, bodies[i]);
            }
        }
        m_code.EmitJump(Opcode::Jump, otherwise);
    }
    m_code.ReleaseTemporaries(mark);
    for (std::size_t i = 0; i < node.Clauses.size(); ++i) {
        m_code.Bind(bodies[i]);
        Statements().CompileBlock(node.Clauses[i].Body);
        m_code.EmitJump(Opcode::Jump, end);
    }
    m_code.Bind(end);
}

}  // namespace dorvik::basic
