#pragma once

#include "StatementPart.h"

namespace dorvik::basic {

/// For, For Each, Do and While.
class LoopParser : private StatementPart {
public:
    explicit LoopParser(StatementContext& context) : StatementPart(context) {}

    void ParseFor();
    void ParseNext();
    void ParseDo();
    void ParseLoop();
    void ParseWhile();
    void ParseWend();

private:
    ExpressionPointer ParseLoopVariable(std::string& name);
    void ParseForEach(SourcePlace place);
    bool CloseLoopOf(const Token& next, const ExpressionPointer& variable);
    LoopTest TakeLoopTest();
};

}  // namespace dorvik::basic
