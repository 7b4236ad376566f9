#include "modSectionReading.h"

#include "base/BasicError.h"

#include <new>
#include <utility>

namespace dorvik::modSectionReading {

std::shared_ptr<KyXMLElement> Section(const KyXMLElement& parent, std::string_view name) {
    std::shared_ptr<KyXMLElement> section = parent.ElementByName(name);
    if (section == nullptr) {
        throw BasicError(
            runtimeerror::kObjectNotSet,
            RuntimeErrorText(runtimeerror::kObjectNotSet) + ": " + parent.PlaceText() +
                " has no element " + std::string(name));
    }
    return section;
}

std::vector<std::shared_ptr<KyXMLElement>> Children(const KyXMLElement& section) {
    std::vector<std::shared_ptr<KyXMLElement>> children;
    const std::int32_t count = section.ElementCount();
    children.reserve(static_cast<std::size_t>(count));
    for (std::int32_t position = 0; position < count; ++position) {
        std::shared_ptr<KyXMLElement> child = section.ElementAtPosition(position);
        if (child == nullptr) {  // it is there, but there was no memory to name it
            throw std::bad_alloc();
        }
        children.push_back(std::move(child));
    }
    return children;
}

}  // namespace dorvik::modSectionReading
