#pragma once

#include "workstation/controls/Event.h"

#include <QColor>

#include <array>
#include <cstdint>
#include <string_view>

namespace dorvik {

enum class ThemeName : std::int32_t {
    System,  // light or dark, as the desktop has it at the start
    Light,
    Dark,
    HighContrast
};

/// The colours that Qt's own palette has no role for. Each text has a contrast of at least 4.5 to 1 against the surface that
/// it is drawn on, in the theme of high contrast 7 to 1.
struct ThemeColours {
    bool IsDark = false;

    QColor Code;  // the surface of a code pane
    QColor CodeText;
    QColor Keyword;
    QColor Comment;
    QColor String;
    QColor Number;
    QColor Margin;  // beside the code: surface and line numbers
    QColor MarginText;
    QColor CurrentLine;
    QColor FoundText;  // the surface under what was searched for

    QColor GroupRow;  // of a grid
    QColor Hint;      // texts of less weight
    QColor Link;
    QColor Pass;
    QColor Fail;

    /// By severity from 1, critical, to 5, information. 0: none.
    std::array<QColor, 6> Severity;
};

/// The colours of the whole program.
namespace modTheme {

/// Sets palette and style of the application, and raises `Changed`.
void Apply(ThemeName theme);
ThemeName Current();
const ThemeColours& Colours();
/// After another theme was applied.
Event<>& Changed();

/// "System", "Light", "Dark", "High contrast": as they are shown and stored.
std::string_view NameOf(ThemeName theme);
/// `System` for a name that there is none of.
ThemeName FromName(std::string_view name);

}  // namespace modTheme

}  // namespace dorvik
