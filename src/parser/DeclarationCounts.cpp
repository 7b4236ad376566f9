#include "DeclarationCounts.h"

#include "base/modTextCase.h"

namespace dorvik {

void DeclarationCounts::Count(VirtualObject& owner, bool isPublic) const {
    owner.IncrementMemberCount(isPublic ? Public : Private);
    owner.IncrementMemberCount(Total);
}

bool IsPublicWithoutScope(std::string_view scope) {
    return scope.empty() || modTextCase::Equal(scope, "Public");
}

bool IsPublicOnlyByScope(std::string_view scope) {
    return modTextCase::Equal(scope, "Public") || modTextCase::Equal(scope, "Global");
}

}  // namespace dorvik
