#pragma once

#include "ErrorList.h"
#include "basic/syntax/Ast.h"

#include <array>
#include <string>
#include <vector>

namespace dorvik::basic {

enum class BlockKind : std::uint8_t { If, LineIf, Select, For, ForEach, Do, While, With };
inline constexpr std::size_t kBlockKinds = static_cast<std::size_t>(BlockKind::With) + 1;

/// A block that has begun and not ended.
struct OpenBlock {
    BlockKind Kind;
    SourcePlace Place;
    Statement Node;        // with the bodies that are complete so far
    bool SawElse = false;  // `Else`, or `Case Else`
    std::string Variable;  // of a For with a plain variable, in lower case
};

/// The open blocks of a procedure, the innermost on top. A block goes into the body around it when it
/// ends; one that is deeper than `kDeepestNesting` is dropped, so that no tree grows too deep.
class BlockStack {
public:
    explicit BlockStack(ErrorList& errors) : m_errors(errors) {}

    /// Forgets what was left open; statements go to `body` while no block is open.
    void Begin(Block& body);
    void Push(OpenBlock block);
    /// Ends the innermost block.
    void Pop();
    bool IsEmpty() const { return m_blocks.empty(); }
    OpenBlock& Top() { return m_blocks.back(); }
    bool TopIs(BlockKind kind) const { return !m_blocks.empty() && m_blocks.back().Kind == kind; }
    bool Contains(BlockKind kind) const { return m_counts[static_cast<std::size_t>(kind)] > 0; }
    /// The open For, or For Each, of that variable (in lower case); null if there is none.
    const OpenBlock* FindVariable(const std::string& variable) const;
    /// Where a statement goes that comes now.
    void Append(Statement statement);

    /// Makes the innermost block one of these kinds, so that `found` can close or continue it: blocks
    /// within it that were left open are reported where they begin. False if no such block is open, or
    /// none that began on this line where a single-line If comes before.
    bool Expose(BlockKind kind, BlockKind otherKind, std::string_view found, SourcePlace place);
    /// Takes note of one closing word whose block was reported as left open.
    bool TakeOrphan(BlockKind kind);
    bool HasOrphan(BlockKind kind) const { return m_orphans[static_cast<std::size_t>(kind)] > 0; }
    /// Ends the single-line Ifs of a line, and reports blocks that began after one and did not end.
    void EndLine();
    /// Reports every open block: the procedure ends with `found`.
    void EndProcedure(std::string_view found, SourcePlace place);

private:
    Block& CurrentBody();
    void ReportTop(std::string_view found, SourcePlace place);
    static std::string_view ClosingOf(BlockKind kind);

    ErrorList& m_errors;
    Block* m_body = nullptr;
    std::vector<OpenBlock> m_blocks;
    std::array<std::int32_t, kBlockKinds> m_counts{};
    std::array<std::int32_t, kBlockKinds> m_orphans{};
    bool m_reportedDepth = false;
};

}  // namespace dorvik::basic
