#include "workstation/window/modWindowSettings.h"

#include "foundation/log/Trap.h"
#include "settings/RegistryUtils.h"
#include "workstation/look/modQt.h"

#include <algorithm>

namespace dorvik::modWindowSettings {

namespace {

constexpr std::string_view kModule = "modWindowSettings";
constexpr std::string_view kTheme = "Theme";
constexpr std::string_view kZoom = "Zoom";
constexpr std::string_view kGeometry = "Geometry";
constexpr std::string_view kLayout = "Layout";

std::string Read(std::string_view name) {
    return Trapped({kModule, "Read"}, std::string(), [&] {
        return RegistryUtils::GetRegString(kKey, name, "", RegistryRoot::CurrentUser);
    });
}

void Write(const ISettingsStore::Values& values) {
    Trap({kModule, "Write"}, [&] {
        RegistryUtils::SetRegStrings(kKey, values, RegistryRoot::CurrentUser);
    });
}

QByteArray Bytes(std::string_view name) {
    return QByteArray::fromBase64(QByteArray::fromStdString(Read(name)));
}

}  // namespace

ThemeName Theme() {
    return modTheme::FromName(Read(kTheme));
}

void SetTheme(ThemeName theme) {
    Write({{std::string(kTheme), std::string(modTheme::NameOf(theme))}});
}

int Zoom() {
    bool isNumber = false;
    const int percent = modQt::Text(Read(kZoom)).toInt(&isNumber);
    return isNumber ? std::clamp(percent, kLeastZoom, kMostZoom) : kWholeSize;
}

void SetZoom(int percent) {
    Write({{std::string(kZoom), std::to_string(percent)}});
}

QByteArray Geometry() {
    return Bytes(kGeometry);
}

QByteArray Layout() {
    return Bytes(kLayout);
}

void SetLayout(const QByteArray& geometry, const QByteArray& layout) {
    Write(
        {{std::string(kGeometry), geometry.toBase64().toStdString()},
         {std::string(kLayout), layout.toBase64().toStdString()}});
}

}  // namespace dorvik::modWindowSettings
