#pragma once

#include "results/Violation.h"

#include <string>
#include <string_view>

/// The documentation of a violation.
namespace dorvik::modViolationDocument {

/// What the pane shows; nothing in the texts is escaped.
std::string
ViolationDocument(const Violation& violation, std::string_view category, std::string_view severity);

}  // namespace dorvik::modViolationDocument
