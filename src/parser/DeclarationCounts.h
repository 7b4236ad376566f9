#pragma once

#include "source/PropertyName.h"
#include "source/VirtualObject.h"

#include <string_view>

namespace dorvik {

/// The member counts of a file that go up with a declaration of one kind.
struct DeclarationCounts {
    std::string_view Public;
    std::string_view Private;
    std::string_view Total;

    void Count(VirtualObject& owner, bool isPublic) const;
};

inline constexpr DeclarationCounts kConstCounts{
    propertyname::kPublicConstCount, propertyname::kPrivateConstCount, propertyname::kConstCount};
inline constexpr DeclarationCounts kVariableCounts{
    propertyname::kPublicVariableCount,
    propertyname::kPrivateVariableCount,
    propertyname::kVariableCount};
inline constexpr DeclarationCounts kEnumCounts{
    propertyname::kPublicEnumCount, propertyname::kPrivateEnumCount, propertyname::kEnumCount};
inline constexpr DeclarationCounts kTypeCounts{
    propertyname::kPublicTypeCount, propertyname::kPrivateTypeCount, propertyname::kTypeCount};
inline constexpr DeclarationCounts kDeclareCounts{
    propertyname::kPublicDeclareCount,
    propertyname::kPrivateDeclareCount,
    propertyname::kDeclareCount};

/// Enums, types and declare statements are public without a scope word.
bool IsPublicWithoutScope(std::string_view scope);
/// Required: constants and variables are private without a scope word.
bool IsPublicOnlyByScope(std::string_view scope);

}  // namespace dorvik
