#include "rulebase/model/AuthorisedReferences.h"

#include "foundation/log/Trap.h"

#include <utility>

namespace dorvik {

std::shared_ptr<AuthorisedReference> AuthorisedReferences::Add(
    std::string libID,
    std::string description,
    std::string filename,
    std::string versionList,
    std::string advice) {
    auto item = std::make_shared<AuthorisedReference>();
    Trap({"AuthorisedReferences", "Add"}, [&] {
        if (Contains(libID)) {
            return;
        }
        item->SetLibID(std::move(libID));
        item->SetDescription(std::move(description));
        item->SetFilename(std::move(filename));
        item->SetVersionList(std::move(versionList));
        item->SetAdvice(std::move(advice));
        AddUnderItsLibID(item);
    });
    return item;
}

bool AuthorisedReferences::AddReference(const std::shared_ptr<AuthorisedReference>& item) {
    return Trapped(
        {"AuthorisedReferences", "AddReference"}, false, [&] { return AddUnderItsLibID(item); });
}

}  // namespace dorvik
