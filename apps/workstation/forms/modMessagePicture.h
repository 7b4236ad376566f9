#pragma once

#include "platform/host/MessageText.h"

#include <QPixmap>

#include <string_view>

class QWidget;

/// The picture beside the text of a message.
namespace dorvik::modMessagePicture {

/// In the colours of the theme and as large as some lines of the widget's text. Empty for no icon.
QPixmap Picture(MessageIcon icon, const QWidget& widget);
/// For who does not see it.
std::string_view Spoken(MessageIcon icon);

}  // namespace dorvik::modMessagePicture
