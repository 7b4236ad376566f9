#pragma once

#include <string_view>

/// How the bytes of a file hold its text, found from the bytes alone.
///
/// A byte order mark decides: UTF-8, UTF-16, or UTF-32 where every unit after the mark is a character (the
/// mark of UTF-32 begins like one of UTF-16). Without a mark the bytes are looked at as follows; NUL and
/// Ctrl-Z (0x1A) at the very end are padding and tell nothing, however many there are.
///
/// - UTF-32: there is a NUL before the padding, every unit of four bytes is a character, and one in twenty
///   at most a control character or one that is none by itself (U+007F to U+009F, U+FFF0 to U+FFFF).
/// - UTF-16: there is such a NUL, and the NULs are in one half of the units of two bytes (the upper half
///   of every ASCII character), at least 32 times as often as in the other. They make up an eighth of the
///   units or more, half of them where there are fewer than 16 NULs; so a few stray ones that happen to
///   be at even or odd places prove nothing. One unit in twenty at most is such a character as above or
///   half a surrogate pair.
/// - Binary: more than one byte in twenty, and at least eight, are NULs or control characters that no text
///   has (all below 0x20 but backspace, tab, line feed, vertical tab, form feed, carriage return, Ctrl-Z and
///   escape). Of data without a pattern it is one in ten. A run of NULs, such as a block that a disk lost,
///   counts as one byte. A file of nothing but NULs is binary, too.
/// - Everything else is text in some code page, whatever stray bytes it holds. No code page in use has
///   control characters among its letters, neither as a byte of its own nor as half of a double byte.
namespace dorvik::modTextForm {

enum class TextForm {
    Bytes,  // in a code page, or UTF-8 with or without a mark
    Utf16Little,
    Utf16Big,
    Utf32,
    Binary,
};

TextForm Recognise(std::string_view bytes);

/// What is to be said of a file that is `Utf32` or `Binary`, to be put after its name; empty for a form that
/// can be read.
std::string_view WhyUnreadable(TextForm form);

}  // namespace dorvik::modTextForm
