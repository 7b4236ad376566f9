#include "BlockStack.h"

#include "basic/syntax/Parser.h"

#include <algorithm>
#include <utility>

namespace dorvik::basic {

namespace {

struct ClosingRow {
    std::string_view Closing;
    std::int32_t Number;
};
constexpr ClosingRow kClosings[kBlockKinds] = {
    // in the order of BlockKind
    {"End If", parseerror::kExpectedEnd},
    {"End If", parseerror::kExpectedEnd},
    {"End Select", parseerror::kExpectedEnd},
    {"Next", parseerror::kExpectedNext},
    {"Next", parseerror::kExpectedNext},
    {"Loop", parseerror::kExpectedLoop},
    {"Wend", parseerror::kExpectedWend},
    {"End With", parseerror::kExpectedEnd},
};

std::size_t IndexOf(BlockKind kind) {
    return static_cast<std::size_t>(kind);
}

}  // namespace

void BlockStack::Begin(Block& body) {
    m_body = &body;
    m_blocks.clear();
    m_counts = {};
    m_orphans = {};
    m_reportedDepth = false;
}

void BlockStack::Push(OpenBlock block) {
    if (m_blocks.size() == static_cast<std::size_t>(kDeepestNesting) && !m_reportedDepth) {
        m_reportedDepth = true;
        m_errors.AddText(
            parseerror::kSyntax,
            block.Place,
            "Blocks are nested more than " + std::to_string(kDeepestNesting) + " levels deep");
    }
    ++m_counts[IndexOf(block.Kind)];
    m_blocks.push_back(std::move(block));
}

void BlockStack::Pop() {
    OpenBlock block = std::move(m_blocks.back());
    m_blocks.pop_back();
    --m_counts[IndexOf(block.Kind)];
    if (m_blocks.size() < static_cast<std::size_t>(kDeepestNesting)) {
        CurrentBody().push_back(std::move(block.Node));
    }
}

void BlockStack::Append(Statement statement) {
    CurrentBody().push_back(std::move(statement));
}

Block& BlockStack::CurrentBody() {
    if (m_blocks.empty()) {
        return *m_body;
    }
    OpenBlock& top = m_blocks.back();
    auto& node = top.Node.Node;
    if (auto* branches = std::get_if<IfStatement>(&node)) {
        return top.SawElse ? branches->ElseBody : branches->Branches.back().Body;
    }
    if (auto* select = std::get_if<SelectStatement>(&node)) {
        if (select->Clauses.empty()) {
            select->Clauses.emplace_back();  // after an error: a statement before the first Case
        }
        return select->Clauses.back().Body;
    }
    if (auto* loop = std::get_if<ForStatement>(&node)) {
        return loop->Body;
    }
    if (auto* each = std::get_if<ForEachStatement>(&node)) {
        return each->Body;
    }
    if (auto* loop = std::get_if<LoopStatement>(&node)) {
        return loop->Body;
    }
    return std::get<WithStatement>(node).Body;
}

const OpenBlock* BlockStack::FindVariable(const std::string& variable) const {
    if (!Contains(BlockKind::For) && !Contains(BlockKind::ForEach)) {
        return nullptr;
    }
    // Deeper blocks are an error anyway, and need not be searched.
    const std::size_t count = std::min(m_blocks.size(), static_cast<std::size_t>(kDeepestNesting));
    for (std::size_t i = 0; i < count; ++i) {
        if (m_blocks[i].Variable == variable) {
            return &m_blocks[i];
        }
    }
    return nullptr;
}

std::string_view BlockStack::ClosingOf(BlockKind kind) {
    return kClosings[IndexOf(kind)].Closing;
}

void BlockStack::ReportTop(std::string_view found, SourcePlace place) {
    const OpenBlock& top = m_blocks.back();
    std::string text = "Expected '" + std::string(ClosingOf(top.Kind)) + "': ";
    text += found.empty() ? "the text ends"
                          : "'" + std::string(found) + "' in line " + std::to_string(place.Line) +
                                " comes before it";
    m_errors.AddText(kClosings[IndexOf(top.Kind)].Number, top.Place, std::move(text));
}

bool BlockStack::Expose(
    BlockKind kind, BlockKind otherKind, std::string_view found, SourcePlace place) {
    if (!Contains(kind) && !Contains(otherKind)) {
        return false;
    }
    const auto isWanted = [&](const OpenBlock& block) {
        return block.Kind == kind || block.Kind == otherKind;
    };
    if (Contains(BlockKind::LineIf) && kind != BlockKind::LineIf) {
        // What began before the line's If cannot end after it.
        auto block = m_blocks.rbegin();
        while (block != m_blocks.rend() && !isWanted(*block)) {
            if ((block++)->Kind == BlockKind::LineIf) {
                return false;
            }
        }
    }
    while (!isWanted(m_blocks.back())) {
        ReportTop(found, place);
        ++m_orphans[IndexOf(m_blocks.back().Kind)];
        Pop();
    }
    return true;
}

bool BlockStack::TakeOrphan(BlockKind kind) {
    std::int32_t& orphans = m_orphans[IndexOf(kind)];
    if (orphans == 0) {
        return false;
    }
    --orphans;
    return true;
}

void BlockStack::EndLine() {
    while (Contains(BlockKind::LineIf)) {
        OpenBlock& top = m_blocks.back();
        if (top.Kind != BlockKind::LineIf) {
            m_errors.AddText(
                kClosings[IndexOf(top.Kind)].Number,
                top.Place,
                "Expected '" + std::string(ClosingOf(top.Kind)) +
                    "' on the same line: the block began after a single-line 'If'");
            ++m_orphans[IndexOf(top.Kind)];
        }
        Pop();
    }
}

void BlockStack::EndProcedure(std::string_view found, SourcePlace place) {
    while (!m_blocks.empty()) {
        if (m_blocks.back().Kind != BlockKind::LineIf) {
            ReportTop(found, place);
        }
        Pop();
    }
}

}  // namespace dorvik::basic
