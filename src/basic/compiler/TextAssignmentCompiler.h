#pragma once

#include "LValue.h"
#include "ProcedurePart.h"

namespace dorvik::basic {

/// Mid, LSet and RSet on the left of an assignment.
class TextAssignmentCompiler : private ProcedurePart {
public:
    explicit TextAssignmentCompiler(ProcedureContext& context) : ProcedurePart(context) {}

    /// `Mid(v, start, length) = s`, `LSet v = s`, `RSet v = s`: the text is taken out, changed and put back.
    /// Where no one else shares the text, Mid changes it in place.
    void Compile(const TextAssignStatement& node, SourcePlace place);

private:
    void CopyToRecord(const TextAssignStatement& node, const LValue& target, SourcePlace place);
};

}  // namespace dorvik::basic
