#include "rulebase/modSectionReading.h"

#include "rulebase/AttributeRow.h"

namespace dorvik::modSectionReading {

std::shared_ptr<KyXMLElement> Section(const KyXMLElement& parent, std::string_view name) {
    std::shared_ptr<KyXMLElement> section = parent.ElementByName(name);
    ExistingElement(section);
    return section;
}

std::vector<std::shared_ptr<KyXMLElement>> Children(const KyXMLElement& section) {
    std::vector<std::shared_ptr<KyXMLElement>> children;
    const std::int32_t count = section.ElementCount();
    children.reserve(static_cast<std::size_t>(count));
    for (std::int32_t position = 0; position < count; ++position) {
        children.push_back(section.ElementAtPosition(position));
    }
    return children;
}

std::int32_t LongAttribute(const KyXMLElement& element, std::string_view name) {
    return modAttributeText::ToLong(element.AttributeValueByName(name));
}

}  // namespace dorvik::modSectionReading
