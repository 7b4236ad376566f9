#pragma once

#include "source/VirtualComponent.h"
#include "source/VirtualReference.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

/// Decodes single lines of a project file. A line that cannot be cut raises a BasicError: 9 for
/// missing elements, 5 for a cut of no valid length.
namespace dorvik::modProjectFileLine {

/// The value without its quotes: one that begins with a double quote loses its first and its last
/// character, whatever the last one is. A lone quote cannot be cut and raises 5.
std::string_view UnquotedValue(std::string_view value);

/// A record and the key under which its list holds it.
template <class Record>
struct Keyed {
    std::string Key;
    std::shared_ptr<Record> Item;
};

/// `Reference=*\G{GUID}#version#locale#file#description`, or `Reference=*\Afile` at design time.
Keyed<VirtualReference> ReferenceFromLine(std::string_view line);

/// `Object={GUID}#version#locale; file`, or `Object=*\Afile` at design time.
Keyed<VirtualComponent> ComponentFromLine(std::string_view line);

/// A hexadecimal locale as the reviewed language reads "&H" and the text: blanks and tabs skipped,
/// up to the first character that is not a digit, four digits giving a signed 16-bit number.
std::int32_t LocaleFromHexadecimal(std::string_view digits);

}  // namespace dorvik::modProjectFileLine
