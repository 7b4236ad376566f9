#include "rulebase/model/AuthorisedComponents.h"

#include "base/modTextCase.h"
#include "foundation/log/Trap.h"

#include <utility>

namespace dorvik {

std::shared_ptr<AuthorisedComponent> AuthorisedComponents::Add(
    std::string libID, std::string filename, std::string versionList, std::string advice) {
    auto item = std::make_shared<AuthorisedComponent>();
    Trap({"AuthorisedComponents", "Add"}, [&] {
        if (Contains(libID)) {
            return;
        }
        item->SetLibID(std::move(libID));
        item->SetFilename(std::move(filename));
        item->SetVersionList(std::move(versionList));
        item->SetAdvice(std::move(advice));
        AddUnderItsLibID(item);
    });
    return item;
}

bool AuthorisedComponents::AddComponent(const std::shared_ptr<AuthorisedComponent>& item) {
    return Trapped(
        {"AuthorisedComponents", "AddComponent"}, false, [&] { return AddUnderItsLibID(item); });
}

std::int32_t AuthorisedComponents::FindByFilename(std::string_view filename) const {
    return Trapped({"AuthorisedComponents", "FindByFilename"}, -1, [&] {
        std::int32_t index = 0;
        for (const auto& item : *this) {
            ++index;
            if (modTextCase::Equal(item->Filename(), filename)) {
                return index;
            }
        }
        return -1;
    });
}

}  // namespace dorvik
