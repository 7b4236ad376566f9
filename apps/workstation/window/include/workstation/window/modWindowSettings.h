#pragma once

#include "workstation/look/modTheme.h"

#include <QByteArray>

#include <string>
#include <string_view>

namespace dorvik {

/// What the window keeps between runs, in the store of the user's settings under a key of its own. What cannot be read is
/// as if it had never been stored.
namespace modWindowSettings {

inline constexpr std::string_view kKey = "Software\\Lumbrook\\Dorvik\\6.2\\Desktop";
inline constexpr int kLeastZoom = 50;  // per cent
inline constexpr int kMostZoom = 300;
inline constexpr int kZoomStep = 10;
inline constexpr int kWholeSize = 100;

ThemeName Theme();
void SetTheme(ThemeName theme);
/// The size of all texts, in per cent.
int Zoom();
void SetZoom(int percent);
/// Place and size of the window, and of its panes and bars, in Qt's own form.
QByteArray Geometry();
QByteArray Layout();
void SetLayout(const QByteArray& geometry, const QByteArray& layout);

}  // namespace modWindowSettings

}  // namespace dorvik
