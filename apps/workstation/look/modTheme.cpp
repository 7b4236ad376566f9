#include "workstation/look/modTheme.h"

#include "ThemeStyle.h"

#include <QApplication>
#include <QPalette>
#include <QToolTip>

#include <memory>

namespace dorvik::modTheme {

namespace {

constexpr std::array<std::string_view, 4> kNames = {"System", "Light", "Dark", "High contrast"};

/// The roles of Qt's palette.
struct Surfaces {
    QRgb Window;
    QRgb WindowText;
    QRgb Base;
    QRgb AlternateBase;
    QRgb Button;
    QRgb Highlight;
    QRgb HighlightedText;
    QRgb Disabled;
    QRgb Placeholder;
    QRgb Tip;
    QRgb Mid;  // lines between surfaces
};

struct Theme {
    dorvik::ThemeColours Colours;
    Surfaces Roles;
};

Theme LightTheme() {
    return {
        {.IsDark = false,
         .Code = QColor(0xFFFFFF),
         .CodeText = QColor(0x1F2328),
         .Keyword = QColor(0x0033B3),
         .Comment = QColor(0x3B7A3B),
         .String = QColor(0xA31515),
         .Number = QColor(0x9A5B00),
         .Margin = QColor(0xF3F4F6),
         .MarginText = QColor(0x656D76),
         .CurrentLine = QColor(0xF1F6FF),
         .FoundText = QColor(0xFFE08A),
         .GroupRow = QColor(0xE9EDF3),
         .Hint = QColor(0x5A636E),
         .Link = QColor(0x0550AE),
         .Pass = QColor(0x1A7F37),
         .Fail = QColor(0xC1121F),
         .Severity =
             {QColor(0x5A636E),
              QColor(0xB3001B),
              QColor(0xC2410C),
              QColor(0x8A6100),
              QColor(0x1D6FA5),
              QColor(0x5A636E)}},
        {0xF3F4F6,
         0x1F2328,
         0xFFFFFF,
         0xF8F9FB,
         0xEBEDF0,
         0x1F5FBF,
         0xFFFFFF,
         0x8C949E,
         0x6E7781,
         0xFFFFF2,
         0xC8CDD3}};
}

Theme DarkTheme() {
    return {
        {.IsDark = true,
         .Code = QColor(0x1B1E23),
         .CodeText = QColor(0xDCE1E8),
         .Keyword = QColor(0x7FB4FF),
         .Comment = QColor(0x7FB77E),
         .String = QColor(0xE8A07C),
         .Number = QColor(0xE3C27A),
         .Margin = QColor(0x23272E),
         .MarginText = QColor(0x98A2AF),
         .CurrentLine = QColor(0x262C35),
         .FoundText = QColor(0x6B5416),
         .GroupRow = QColor(0x2F3640),
         .Hint = QColor(0xA4AEBB),
         .Link = QColor(0x82B6FF),
         .Pass = QColor(0x6FCF83),
         .Fail = QColor(0xFF8A80),
         .Severity =
             {QColor(0xA4AEBB),
              QColor(0xFF7B72),
              QColor(0xFFA657),
              QColor(0xE3C54A),
              QColor(0x79C0FF),
              QColor(0xA4AEBB)}},
        {0x23272E,
         0xDCE1E8,
         0x1B1E23,
         0x20242A,
         0x2E343D,
         0x2F6FD0,
         0xFFFFFF,
         0x7A8491,
         0x8F99A6,
         0x2E343D,
         0x3D4550}};
}

Theme HighContrastTheme() {
    return {
        {.IsDark = true,
         .Code = QColor(QRgb(0x000000)),
         .CodeText = QColor(0xFFFFFF),
         .Keyword = QColor(0x66D9FF),
         .Comment = QColor(0x7CFF7C),
         .String = QColor(0xFFB870),
         .Number = QColor(0xFFFF66),
         .Margin = QColor(QRgb(0x000000)),
         .MarginText = QColor(0xFFFFFF),
         .CurrentLine = QColor(0x202020),
         .FoundText = QColor(0x705000),
         .GroupRow = QColor(0x1A1A40),
         .Hint = QColor(0xE0E0E0),
         .Link = QColor(0x80C8FF),
         .Pass = QColor(0x7CFF7C),
         .Fail = QColor(0xFF9090),
         .Severity =
             {QColor(0xFFFFFF),
              QColor(0xFF8080),
              QColor(0xFFB060),
              QColor(0xFFFF66),
              QColor(0x80D0FF),
              QColor(0xFFFFFF)}},
        {0x000000,
         0xFFFFFF,
         0x000000,
         0x101010,
         0x000000,
         0xFFFF00,
         0x000000,
         0xB0B0B0,
         0xC0C0C0,
         0x000000,
         0xFFFFFF}};
}

bool DesktopIsDark() {
    static const bool isDark = QApplication::palette().color(QPalette::Window).lightness() < 128;
    return isDark;
}

Theme ThemeOf(ThemeName theme) {
    switch (theme) {
        case ThemeName::System: return DesktopIsDark() ? DarkTheme() : LightTheme();
        case ThemeName::Light: return LightTheme();
        case ThemeName::Dark: return DarkTheme();
        case ThemeName::HighContrast: return HighContrastTheme();
    }
    return LightTheme();
}

QPalette PaletteOf(const Theme& theme) {
    const Surfaces& roles = theme.Roles;
    QPalette palette(QColor(roles.Button), QColor(roles.Window));
    const QColor text(roles.WindowText);
    palette.setColor(QPalette::Window, QColor(roles.Window));
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, QColor(roles.Base));
    palette.setColor(QPalette::AlternateBase, QColor(roles.AlternateBase));
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Button, QColor(roles.Button));
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::BrightText, theme.Colours.Fail);
    palette.setColor(QPalette::Highlight, QColor(roles.Highlight));
    palette.setColor(QPalette::HighlightedText, QColor(roles.HighlightedText));
    palette.setColor(QPalette::PlaceholderText, QColor(roles.Placeholder));
    palette.setColor(QPalette::ToolTipBase, QColor(roles.Tip));
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::Link, theme.Colours.Link);
    palette.setColor(QPalette::LinkVisited, theme.Colours.Link);
    palette.setColor(QPalette::Mid, QColor(roles.Mid));
    palette.setColor(QPalette::Dark, QColor(roles.Mid));
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, QColor(roles.Disabled));
    }
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(roles.Window));
    return palette;
}

struct State {
    ThemeName Name = ThemeName::Light;
    ThemeColours Colours = LightTheme().Colours;
    Event<> Changed;
};

State& Applied() {
    static State state;
    return state;
}

}  // namespace

void Apply(ThemeName theme) {
    const Theme chosen = ThemeOf(theme);
    Applied().Name = theme;
    Applied().Colours = chosen.Colours;
    QApplication::setStyle(std::make_unique<ThemeStyle>().release());
    QApplication::setPalette(PaletteOf(chosen));
    QToolTip::setPalette(QApplication::palette());
    Applied().Changed.Raise();
}

ThemeName Current() {
    return Applied().Name;
}

const ThemeColours& Colours() {
    return Applied().Colours;
}

Event<>& Changed() {
    return Applied().Changed;
}

std::string_view NameOf(ThemeName theme) {
    return kNames.at(static_cast<std::size_t>(theme));
}

ThemeName FromName(std::string_view name) {
    for (std::size_t i = 0; i < kNames.size(); ++i) {
        if (kNames[i] == name) {
            return static_cast<ThemeName>(i);
        }
    }
    return ThemeName::System;
}

}  // namespace dorvik::modTheme
