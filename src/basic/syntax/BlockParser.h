#pragma once

#include "StatementPart.h"

namespace dorvik::basic {

/// If, Select Case, With and End.
class BlockParser : private StatementPart {
public:
    explicit BlockParser(StatementContext& context) : StatementPart(context) {}

    void ParseIf();
    void ParseElse();
    void ParseElseIf();
    void ParseEndIf();
    void ParseSelect();
    void ParseCase();
    void ParseWith();
    void ParseEnd();

private:
    void RecoverIf(SourcePlace place);
    void TakeLineJump();
    void CloseIf(SourcePlace place);
    CaseTest ParseCaseTest();
};

}  // namespace dorvik::basic
