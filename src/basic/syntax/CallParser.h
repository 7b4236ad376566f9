#pragma once

#include "StatementPart.h"

namespace dorvik::basic {

/// Calls, with and without the word Call.
class CallParser : private StatementPart {
public:
    explicit CallParser(StatementContext& context) : StatementPart(context) {}

    void ParseCall();
    void ParseCallStatement(SourcePlace place, ExpressionPointer target);

private:
    void ParseCallWithIndex(SourcePlace place, IndexNode& index);
    std::size_t LastParenthesis() const;
    void AddCall(SourcePlace place, CallStatement call);
};

}  // namespace dorvik::basic
