#pragma once

#include "rulebase/model/AuthorisedItem.h"
#include "rulebase/model/AuthorisedItemList.h"

namespace dorvik {

/// The type libraries that projects may reference.
class AuthorisedReferences final : public AuthorisedItemList<AuthorisedReference> {
public:
    AuthorisedReferences() : AuthorisedItemList("AuthorisedReferences") {}

    /// Required: for a `LibID` already present the new item comes back empty and outside the list.
    std::shared_ptr<AuthorisedReference>
    Add(std::string libID,
        std::string description,
        std::string filename,
        std::string versionList,
        std::string advice);
    /// False, and nothing changed, if the item's `LibID` is present.
    bool AddReference(const std::shared_ptr<AuthorisedReference>& item);
};

}  // namespace dorvik
