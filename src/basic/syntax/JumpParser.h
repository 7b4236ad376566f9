#pragma once

#include "StatementPart.h"

namespace dorvik::basic {

/// GoTo, GoSub, Return, On, Resume and Exit.
class JumpParser : private StatementPart {
public:
    explicit JumpParser(StatementContext& context) : StatementPart(context) {}

    void ParseGoTo();
    void ParseGoSub();
    void ParseReturn();
    void ParseOn();
    void ParseResume();
    void ParseExit();

private:
    void ParseOnError(SourcePlace place);
};

}  // namespace dorvik::basic
