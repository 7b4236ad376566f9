#pragma once

#include "Operand.h"
#include "ProcedurePart.h"

#include <string>
#include <vector>

namespace dorvik::basic {

/// Reads what follows a name: elements in parentheses, members after a point or an exclamation mark.
class MemberCompiler : private ProcedurePart {
public:
    explicit MemberCompiler(ProcedureContext& context) : ProcedurePart(context) {}

    /// `target(arguments)`; the target itself without arguments.
    Operand
    ElementOf(const Operand& target, const std::vector<Argument>& arguments, SourcePlace place);
    /// A member of an object, a record, an enum or an extension. `arguments` may be null.
    Operand EvaluateMember(
        const Expression& expression,
        const MemberNode& node,
        const std::vector<Argument>* arguments,
        bool wantsResult = true);
    Operand EvaluateBang(const BangNode& node, SourcePlace place);
    /// The object or record before a point; in a With, the With's.
    Operand TargetOf(const Expression* target, SourcePlace place);
    /// A member of a record; an error if there is none of that name.
    Operand RecordMemberOf(const Operand& record, const std::string& name, SourcePlace place);
    /// A member of an object, or with an empty name its default member or an element of an array.
    Operand Invoke(
        const Operand& object,
        const std::string& name,
        InvokeKind kind,
        const std::vector<Argument>& arguments,
        const Operand* value,
        bool wantsResult);
    /// The number of a member, or -1.
    int FindRecordMember(std::int32_t record, const std::string& name) const;

private:
    Operand
    ArrayElement(const Operand& target, const std::vector<Argument>& arguments, SourcePlace place);
    Operand CreatedElement(const Operand& array, const std::vector<Argument>& arguments);
};

}  // namespace dorvik::basic
