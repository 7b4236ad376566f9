#pragma once

#include "parser/IImageCombo.h"
#include "parser/ParserEvent.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

/// The texts and icons of the parser events by their numbers, as windows show them. Stateless; every number is
/// accepted.
class VBParserEvents {
public:
    /// The number followed by "Key", as in "26Key".
    static std::string ParserEventKey(std::int32_t eventNumber);
    /// "Unknown Event" for a number outside 1 to 37.
    static std::string_view ParserEventText(std::int32_t eventNumber);
    /// When the event is fired, an empty line, and what is in scope then. "Unknown Parser Event" for
    /// a number outside 1 to 37.
    static std::string ParserEventHelp(std::int32_t eventNumber);
    /// "Event" for a number outside 1 to 37.
    static std::string_view ParserEventIcon(std::int32_t eventNumber);

    /// Clears the list and adds all events to which a coding convention can be attached.
    static void PopulateCCEventsImageCombo(IImageCombo& combo);
    /// Clears the list and adds the events that can close the scope of a coding convention.
    static void PopulateCCEndEventsImageCombo(IImageCombo& combo);

private:
    static void AddImageComboItem(IImageCombo& combo, ParserEvent event, std::int32_t level);
};

}  // namespace dorvik
