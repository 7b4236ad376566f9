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
    bool added = false;
    Trap({"AuthorisedComponents", "AddComponent"}, [&] { added = AddUnderItsLibID(item); });
    return added;
}

std::int32_t AuthorisedComponents::FindByFilename(std::string_view filename) const {
    std::int32_t found = -1;
    Trap({"AuthorisedComponents", "FindByFilename"}, [&] {
        for (std::int32_t index = 1; index <= Count() && found == -1; ++index) {
            if (modTextCase::Equal(Item(index)->Filename(), filename)) {
                found = index;
            }
        }
    });
    return found;
}

}  // namespace dorvik
