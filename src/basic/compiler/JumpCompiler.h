#pragma once

#include "ProcedurePart.h"

#include <string>
#include <unordered_map>

namespace dorvik::basic {

/// Labels, jumps to them, and the Exit statements.
class JumpCompiler : private ProcedurePart {
public:
    explicit JumpCompiler(ProcedureContext& context) : ProcedurePart(context) {}

    void Compile(const ExitStatement& node, SourcePlace place);
    void EmitReturn();
    void CollectLabels(const Block& block);
    /// An error if the procedure has no such label.
    Label LabelOf(const std::string& name, SourcePlace place);
    /// A jump lets go of the arrays that the blocks it leaves keep locked.
    void LeaveBlocksFor(const std::string& label);
    void LeaveBlock(const HeldBlock& block);
    void Compile(const LabelStatement& node, SourcePlace place);
    void Compile(const GoToStatement& node, SourcePlace place);
    void Compile(const GoSubStatement& node, SourcePlace place);
    void Compile(const ReturnStatement& node, SourcePlace place);
    void Compile(const OnJumpStatement& node, SourcePlace place);
    void WarnOfUnusedLabels();
    /// True if a jump may enter a block without its head: its end must check that it was begun.
    /// REQUIRES: the labels have been collected.
    bool MayEnterBlocks() const { return m_mayEnterBlocks; }

private:
    struct LabelEntry {
        basic::Label Label = 0;
        SourcePlace Place;
        bool IsUsed = false;
        std::string Name;
        const void* Around = nullptr;  // the innermost For Each or With that the label is in
    };

    void CollectLabelsIn(const void* node, const Block& body);

    std::unordered_map<std::string, LabelEntry> m_labels;  // by the lower-case name
    /// Of a For Each or a With: the next one around.
    std::unordered_map<const void*, const void*> m_outer;
    const void* m_around = nullptr;  // while labels are collected
    bool m_mayEnterBlocks = false;
};

}  // namespace dorvik::basic
