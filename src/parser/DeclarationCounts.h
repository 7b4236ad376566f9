#pragma once

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
    "PublicConstCount", "PrivateConstCount", "ConstCount"};
inline constexpr DeclarationCounts kVariableCounts{
    "PublicVariableCount", "PrivateVariableCount", "VariableCount"};
inline constexpr DeclarationCounts kEnumCounts{"PublicEnumCount", "PrivateEnumCount", "EnumCount"};
inline constexpr DeclarationCounts kTypeCounts{"PublicTypeCount", "PrivateTypeCount", "TypeCount"};
inline constexpr DeclarationCounts kDeclareCounts{
    "PublicDeclareCount", "PrivateDeclareCount", "DeclareCount"};

/// Enums, types and declare statements are public without a scope word.
bool IsPublicWithoutScope(std::string_view scope);
/// Required: constants and variables are private without a scope word.
bool IsPublicOnlyByScope(std::string_view scope);

}  // namespace dorvik
