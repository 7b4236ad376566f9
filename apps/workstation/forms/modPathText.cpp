#include "modPathText.h"

#include "platform/host/modHostPath.h"
#include "workstation/look/modQt.h"

#include <QFile>

namespace dorvik::modPathText {

QString Shown(std::string_view path) {
    const std::string shown = modHostPath::Shown(modHostPath::FromProgram(path));
    return modQt::Text(shown.empty() ? path : std::string_view(shown));
}

std::string Typed(const QString& text) {
    return text.isEmpty() ? std::string()
                          : modHostPath::ToProgram(modHostPath::FromUserRelative(
                                QFile::encodeName(text).toStdString()));
}

}  // namespace dorvik::modPathText
