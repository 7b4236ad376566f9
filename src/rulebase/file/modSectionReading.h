#pragma once

#include "foundation/xml/KyXMLElement.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

/// How the loader of rulebase files traverses its elements.
namespace dorvik::modSectionReading {

/// The first child of that name; raises `kObjectNotSet`, with the place, where there is none.
std::shared_ptr<KyXMLElement> Section(const KyXMLElement& parent, std::string_view name);

/// All children, in order.
std::vector<std::shared_ptr<KyXMLElement>> Children(const KyXMLElement& section);

}  // namespace dorvik::modSectionReading
