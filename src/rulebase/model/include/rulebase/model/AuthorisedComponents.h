#pragma once

#include "rulebase/model/AuthorisedItem.h"
#include "rulebase/model/AuthorisedItemList.h"

namespace dorvik {

/// The components that projects may use.
class AuthorisedComponents final : public AuthorisedItemList<AuthorisedComponent> {
public:
    AuthorisedComponents() : AuthorisedItemList("AuthorisedComponents") {}

    /// Required: for a `LibID` already present the new item comes back empty and outside the list.
    std::shared_ptr<AuthorisedComponent>
    Add(std::string libID, std::string filename, std::string versionList, std::string advice);
    /// False, and nothing changed, if the item's `LibID` is present.
    bool AddComponent(const std::shared_ptr<AuthorisedComponent>& item);
    /// The first position with that file name, compared without case; -1 if absent.
    std::int32_t FindByFilename(std::string_view filename) const;
};

}  // namespace dorvik
