#pragma once

#include "workstation/screen/FileRequest.h"

#include <optional>
#include <string>
#include <string_view>

class QString;
class QWidget;

namespace dorvik::modFileChoice {

/// Nothing where the user cancels.
std::optional<std::string> File(const FileRequest& request, QWidget* owner);
std::optional<std::string> Folder(std::string_view title, std::string_view startAt, QWidget* owner);

/// The form of a dialog: "Text (*.x *.y)" of "Text (*.x, *.y)|*.x;*.y". All files are all here, also those without a dot.
QString FilterOf(std::string_view filter);

}  // namespace dorvik::modFileChoice
