#pragma once

#include "parser/ParserEvent.h"

namespace dorvik {

/// Receives the events of a file parser. Its owner implements it.
class IFileParserEvents {
public:
    virtual ~IFileParserEvents() = default;

    /// Called synchronously from inside `IFileParser::ReviewTick`, after the parser state has taken
    /// the event. The objects that the event promises are in scope during the call.
    virtual void ParserEvent(dorvik::ParserEvent event) = 0;
};

}  // namespace dorvik
