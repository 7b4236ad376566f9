#pragma once

#include "Operand.h"
#include "ProcedurePart.h"

#include <string>
#include <vector>

namespace dorvik::basic {

/// Stores a computed value to whatever is on the left of an assignment: a name, an element, a member.
class StoreCompiler : private ProcedurePart {
public:
    explicit StoreCompiler(ProcedureContext& context) : ProcedurePart(context) {}

    /// Stores to any expression; an error if nothing can be stored there.
    void StoreTo(const Expression& target, const Operand& value, bool isSet, SourcePlace place);
    /// What is assigned without `Set` to a variable, an element or a member that holds an object: a value already.
    void LetDefaultMember(const Operand& object, const Operand& value);
    /// Whether a dynamic array can be assigned the value: another of its type, or to bytes a text.
    bool TakesArray(const DeclaredType& type, const Operand& value) const;

private:
    void StoreRecordMember(
        const Operand& record,
        int number,
        const MemberNode& node,
        const Operand& value,
        bool isSet);
    void
    StoreName(const Expression& target, const NameNode& node, const Operand& value, bool isSet);
    void StoreProperty(
        const Symbol& symbol,
        const std::string& name,
        const std::vector<Argument>& arguments,
        const Operand& value,
        bool isSet,
        SourcePlace place);
    void StoreElement(
        const Expression& target,
        const IndexNode& node,
        const Operand& value,
        bool isSet,
        SourcePlace place);
    void StoreArrayElement(
        const Operand& array,
        const std::vector<Argument>& arguments,
        const Operand& value,
        bool isSet,
        SourcePlace place);
    void StoreMember(
        const MemberNode& node,
        const std::vector<Argument>* arguments,
        const Operand& value,
        bool isSet,
        SourcePlace place);
};

}  // namespace dorvik::basic
