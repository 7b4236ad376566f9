#include "base/modTextCase.h"
#include "foundation/log/Trap.h"
#include "foundation/xml/KyXMLElement.h"
#include "modSectionReading.h"
#include "rulebase/file/RulebaseManager.h"
#include "rulebase/file/modRulebaseSchema.h"

#include <initializer_list>

namespace dorvik {

namespace schema = modRulebaseSchema;
using modSectionReading::Children;
using modSectionReading::Section;

namespace {

constexpr std::string_view kVersion60 = "6.0";
constexpr std::string_view kVersion61 = "6.1";
constexpr std::string_view kNoTolerance = "-1";
constexpr std::string_view kNoTolerances = "-1|-1|-1|-1|-1|-1";

struct NewAttribute {
    std::string_view Name;
    std::string_view Value;
};

void AddToChildren(
    const KyXMLElement& parent,
    std::string_view section,
    std::initializer_list<NewAttribute> attributes) {
    for (const auto& child : Children(*Section(parent, section))) {
        for (const NewAttribute& attribute : attributes) {
            child->AddAttribute(attribute.Name, attribute.Value);
        }
    }
}

}  // namespace

std::string RulebaseManager::UpdateSchema(KyXMLElement& root, std::string_view fromVersion) {
    const bool isFrom60 = modTextCase::Equal(fromVersion, kVersion60);
    if (!isFrom60 && !modTextCase::Equal(fromVersion, kVersion61)) {
        return {};
    }
    if (isFrom60) {
        Apply_6_1_SchemaUpdates(root);
    }
    Apply_6_2_SchemaUpdates(root);
    return std::string(schema::kVersion);
}

void RulebaseManager::Apply_6_1_SchemaUpdates(KyXMLElement& root) {
    Trap({"RulebaseManager", "Apply_6_1_SchemaUpdates"}, [&] {
        const auto properties = Section(root, schema::kProperties);
        properties->AddAttribute("ToleranceCount", kNoTolerances);
        properties->AddAttribute("ToleranceImpact", kNoTolerances);
        properties->AddAttribute("TolerancePercentageComments", kNoTolerance);
        properties->AddAttribute("ToleranceCyclomaticComplexity", kNoTolerance);
        root.AddElement(schema::kReport);
    });
}

void RulebaseManager::Apply_6_2_SchemaUpdates(KyXMLElement& root) {
    Trap({"RulebaseManager", "Apply_6_2_SchemaUpdates"}, [&] {
        AddToChildren(root, schema::kControlTags, {{"TagDescription", ""}, {"TagExample", ""}});
        AddToChildren(root, schema::kDataTypeTags, {{"TagExample", ""}});
        AddToChildren(root, schema::kScopeTags, {{"TagExample", ""}});
        // Required: a naming convention of that time becomes case-sensitive.
        AddToChildren(
            *Section(root, schema::kRules),
            schema::kNamingConventions,
            {{"ExclusionList", ""}, {"CaseSensitive", "True"}});
        Section(root, schema::kProperties)->AddAttribute("ArrayTag", "");
    });
}

}  // namespace dorvik
