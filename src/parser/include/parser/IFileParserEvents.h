#pragma once

#include "parser/ParserEvent.h"

namespace dorvik {

/// What the owner of a file parser offers it: the place where parser events arrive.
class IFileParserEvents {
public:
    virtual ~IFileParserEvents() = default;

    /// Called synchronously from inside `IFileParser::ReviewTick`, after the parser state has taken
    /// the event. The objects that the event promises are in scope during the call.
    virtual void ParserEvent(dorvik::ParserEvent event) = 0;
};

}  // namespace dorvik
