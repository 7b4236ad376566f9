#include "rulebase/file/modRulebaseSchema.h"

#include "base/modText.h"

#include <utility>

namespace dorvik::modRulebaseSchema {

namespace {

/// Lenient, unlike every other number of the file: a part without a number is 0. Required: parts
/// beyond the sixth are stored after the places of the list.
/// An empty text has no parts, so that all places stay as they are.
void ReadTolerances(LongArrayList& list, const std::string& text) {
    if (text.empty()) {
        return;
    }
    std::int32_t place = 0;
    for (const std::string_view part : modText::Split(text, '|')) {
        ++place;
        list.SetItem(place, modText::LeadingLong(part));
    }
}

std::string WriteTolerances(const LongArrayList& list) {
    std::string text;
    for (std::int32_t place = 1; place <= ToleranceSettings::kPlaces; ++place) {
        text += (place > 1 ? "|" : "") + std::to_string(list.Item(place));
    }
    return text;
}

template <class Rule>
void ReadEvents(Rule& rule, const std::string& text) {
    if (text.empty()) {
        return;
    }
    for (const std::string_view part : modText::Split(text, '|')) {
        rule.AddParserEventID(modAttributeText::ToLong(part));
    }
}

// The attribute has a singular name and holds a list.
template <class Rule>
constexpr AttributeRow<Rule> kEvents{"ParserEventID", &ReadEvents<Rule>, [](const Rule& rule) {
                                         return rule.ParserEventList();
                                     }};

template <class Rule>
constexpr AttributeRow<Rule> kRuleID = Attribute<Rule, &Rule::RuleID, &Rule::SetRuleID>("RuleID");
template <class Rule>
constexpr AttributeRow<Rule>
    kActive = Attribute<Rule, &Rule::RuleActive, &Rule::SetRuleActive>("RuleActive");
template <class Rule>
constexpr AttributeRow<Rule> kTitle = Attribute<Rule, &Rule::Title, &Rule::SetTitle>("Title");
template <class Rule>
constexpr AttributeRow<Rule>
    kDescription = Attribute<Rule, &Rule::Description, &Rule::SetDescription>("Description");
template <class Rule>
constexpr AttributeRow<Rule>
    kCondition = Attribute<Rule, &Rule::Condition, &Rule::SetCondition>("Condition");

using R = Rulebase;
constexpr AttributeRow<R> kPropertyRows[] = {
    Attribute<R, &R::Title, &R::SetTitle>("Name"),
    Attribute<R, &R::Version, &R::SetVersion>("Version"),
    Attribute<R, &R::AutoIncrementVersion, &R::SetAutoIncrementVersion>("AutoIncrementVersion"),
    Attribute<R, &R::Description, &R::SetDescription>("Description"),
    Attribute<R, &R::UnknownControlViolation, &R::SetUnknownControlViolation>(
        "UnknownControlViolation"),
    Attribute<R, &R::UseCTagsAsDTTags, &R::SetUseCTagsAsDTTags>("UseCTagsAsDTTags"),
};
constexpr AttributeRow<R> kLastPropertyRows[] = {
    Attribute<R, &R::ArrayTag, &R::SetArrayTag>("ArrayTag"),
};

using T = ToleranceSettings;
constexpr AttributeRow<T> kToleranceRows[] = {
    {"ToleranceCount",
     [](T& owner, const std::string& text) { ReadTolerances(owner.Count, text); },
     [](const T& owner) {
         return WriteTolerances(owner.Count);
     }},
    {"ToleranceImpact",
     [](T& owner, const std::string& text) { ReadTolerances(owner.Impact, text); },
     [](const T& owner) {
         return WriteTolerances(owner.Impact);
     }},
    FieldAttribute<T, &T::PercentageComments>("TolerancePercentageComments"),
    FieldAttribute<T, &T::CyclomaticComplexity>("ToleranceCyclomaticComplexity"),
};

constexpr AttributeRow<TagItem> kTagValue =
    Attribute<TagItem, &TagItem::TagValue, &TagItem::SetTagValue>("TagValue");
constexpr AttributeRow<TagItem> kTagExample =
    Attribute<TagItem, &TagItem::TagExample, &TagItem::SetTagExample>("TagExample");
constexpr AttributeRow<TagItem> kControlTagRows[] = {
    kTagValue,
    Attribute<TagItem, &TagItem::TagDescription, &TagItem::SetTagDescription>("TagDescription"),
    kTagExample,
};
constexpr AttributeRow<TagItem> kOtherTagRows[] = {kTagValue, kTagExample};

using V = ViolationDefinition;
constexpr auto kAdvice = Attribute<V, &V::Advice, &V::SetAdvice>("Advice");
constexpr auto kCategory = Attribute<V, &V::CategoryID, &V::SetCategoryID>("CategoryID");
constexpr auto kImpact = Attribute<V, &V::Impact, &V::SetImpact>("Impact");
constexpr auto kSeverity = Attribute<V, &V::Severity, &V::SetSeverity>("SeverityLevel");
constexpr AttributeRow<V> kViolationItemRows[] = {
    kAdvice, kCategory, kDescription<V>, kImpact, kSeverity};
constexpr AttributeRow<V> kViolationRows[] = {
    Attribute<V, &V::Title, &V::SetTitle>("Name"),
    kDescription<V>,
    kSeverity,
    kImpact,
    kCategory,
    kAdvice,
};

using C = CategoryItem;
constexpr AttributeRow<C> kCategoryRows[] = {
    Attribute<C, &C::ID, &C::SetID>("ID"),
    kTitle<C>,
    kDescription<C>,
    Attribute<C, &C::Hidden, &C::SetHidden>("Hidden"),
};
constexpr AttributeRow<C> kCategoryTextRows[] = {kTitle<C>, kDescription<C>};

using S = SeverityItem;
constexpr auto kColour = Attribute<S, &S::Colour, &S::SetColour>("Colour");
constexpr auto kLevelImpact = Attribute<S, &S::Impact, &S::SetImpact>("Impact");
constexpr AttributeRow<S> kSeverityRows[] = {
    kColour,
    kDescription<S>,
    kLevelImpact,
    Attribute<S, &S::SeverityLevel, &S::SetSeverityLevel>("SeverityLevel"),
    Attribute<S, &S::SeverityLevelText, &S::SetSeverityLevelText>("SeverityLevelText"),
    kTitle<S>,
};
constexpr AttributeRow<S> kExistingSeverityRows[] = {
    kColour, kDescription<S>, kLevelImpact, kTitle<S>};

template <class Item>
constexpr AttributeRow<Item>
    kItemAdvice = Attribute<Item, &Item::Advice, &Item::SetAdvice>("Advice");
template <class Item>
constexpr AttributeRow<Item>
    kFilename = Attribute<Item, &Item::Filename, &Item::SetFilename>("Filename");
template <class Item>
constexpr AttributeRow<Item> kLibID = Attribute<Item, &Item::LibID, &Item::SetLibID>("LibID");
template <class Item>
constexpr AttributeRow<Item>
    kVersionList = Attribute<Item, &Item::VersionList, &Item::SetVersionList>("VersionList");
using AC = AuthorisedComponent;
constexpr AttributeRow<AC> kComponentRows[] = {
    kItemAdvice<AC>, kFilename<AC>, kLibID<AC>, kVersionList<AC>};
using AR = AuthorisedReference;
constexpr AttributeRow<AR> kReferenceRows[] = {
    kItemAdvice<AR>, kDescription<AR>, kFilename<AR>, kLibID<AR>, kVersionList<AR>};

using UK = UnauthorisedKeyword;
constexpr AttributeRow<UK> kKeywordRows[] = {
    kRuleID<UK>, kActive<UK>, kTitle<UK>, kDescription<UK>, kCondition<UK>, kEvents<UK>};

using CC = CodingConvention;
constexpr AttributeRow<CC> kCodingRows[] = {
    kRuleID<CC>,
    kActive<CC>,
    kTitle<CC>,
    kDescription<CC>,
    Attribute<CC, &CC::PendingViolation, &CC::SetPendingViolation>("PendingViolation"),
    Attribute<CC, &CC::EndEventID, &CC::SetEndEventID>("EndEventID"),
    kCondition<CC>,
    kEvents<CC>,
};

using NC = NamingConvention;
/// The rows of a prefix or a suffix.
template <const NameAffix& (NC::*affix)() const, NameAffix& (NC::*affixToWrite)()>
struct AffixRows {
    static constexpr AttributeRow<NC> Active(const char* name) {
        return Attribute<
            NC,
            [](const NC& rule) { return (rule.*affix)().Active(); },
            [](NC& rule, bool active) {
                (rule.*affixToWrite)().SetActive(active);
            }>(name);
    }
    static constexpr AttributeRow<NC> Advice(const char* name) {
        return Attribute<
            NC,
            [](const NC& rule) { return (rule.*affix)().Advice(); },
            [](NC& rule, std::string advice) {
                (rule.*affixToWrite)().SetAdvice(std::move(advice));
            }>(name);
    }
};
using PrefixRows = AffixRows<&NC::Prefix, &NC::Prefix>;
using SuffixRows = AffixRows<&NC::Suffix, &NC::Suffix>;
constexpr AttributeRow<NC> kNamingRows[] = {
    kRuleID<NC>,
    kActive<NC>,
    Attribute<NC, &NC::CaseSensitive, &NC::SetCaseSensitive>("CaseSensitive"),
    kTitle<NC>,
    kDescription<NC>,
    Attribute<NC, &NC::ObjectType, &NC::SetObjectType>("ObjectType"),
    Attribute<NC, &NC::PropertyType, &NC::SetPropertyType>("PropertyType"),
    Attribute<NC, &NC::PropertyName, &NC::SetPropertyName>("PropertyName"),
    kCondition<NC>,
    Attribute<NC, &NC::ExclusionList, &NC::SetExclusionList>("ExclusionList"),
    PrefixRows::Active("PrefixActive"),
    PrefixRows::Advice("PrefixAdvice"),
    Attribute<NC, &NC::BodyActive, &NC::SetBodyActive>("BodyActive"),
    Attribute<NC, &NC::BodyPattern, &NC::SetBodyPattern>("BodyPattern"),
    Attribute<NC, &NC::MaxBodyLength, &NC::SetMaxBodyLength>("BodyMaxLength"),
    Attribute<NC, &NC::MinBodyLength, &NC::SetMinBodyLength>("BodyMinLength"),
    Attribute<NC, &NC::BodyAdvice, &NC::SetBodyAdvice>("BodyAdvice"),
    SuffixRows::Active("SuffixActive"),
    SuffixRows::Advice("SuffixAdvice"),
};

using PS = PrefixSuffixItem;
constexpr AttributeRow<PS> kNameItemRows[] = {
    FieldAttribute<PS, &PS::PSType>("PSType"),
    FieldAttribute<PS, &PS::Value>("PSValue"),
};

using TI = TableItem;
constexpr AttributeRow<TI> kTableRows[] = {
    Attribute<TI, &TI::TableKey, &TI::SetTableKey>("TableKey"),
    Attribute<TI, &TI::TableText, &TI::SetTableText>("TableText"),
    Attribute<TI, &TI::TableTitle, &TI::SetTableTitle>("TableTitle"),
    Attribute<TI, &TI::TableType, &TI::SetTableType>("TableType"),
};

}  // namespace

// clang-format off
std::span<const AttributeRow<Rulebase>> Properties() { return kPropertyRows; }
std::span<const AttributeRow<ToleranceSettings>> Tolerances() { return kToleranceRows; }
std::span<const AttributeRow<Rulebase>> PropertiesBehindTolerances() { return kLastPropertyRows; }
std::span<const AttributeRow<TagItem>> ControlTag() { return kControlTagRows; }
std::span<const AttributeRow<TagItem>> OtherTag() { return kOtherTagRows; }
std::span<const AttributeRow<ViolationDefinition>> ViolationItem() { return kViolationItemRows; }
std::span<const AttributeRow<CategoryItem>> Category() { return kCategoryRows; }
std::span<const AttributeRow<CategoryItem>> CategoryTexts() { return kCategoryTextRows; }
std::span<const AttributeRow<SeverityItem>> Severity() { return kSeverityRows; }
std::span<const AttributeRow<SeverityItem>> ExistingSeverity() { return kExistingSeverityRows; }
std::span<const AttributeRow<AuthorisedComponent>> Component() { return kComponentRows; }
std::span<const AttributeRow<AuthorisedReference>> Reference() { return kReferenceRows; }
std::span<const AttributeRow<UnauthorisedKeyword>> Keyword() { return kKeywordRows; }
std::span<const AttributeRow<CodingConvention>> Coding() { return kCodingRows; }
std::span<const AttributeRow<NamingConvention>> Naming() { return kNamingRows; }
std::span<const AttributeRow<PrefixSuffixItem>> NameItem() { return kNameItemRows; }
std::span<const AttributeRow<ViolationDefinition>> Violation() { return kViolationRows; }
std::span<const AttributeRow<TableItem>> Table() { return kTableRows; }
// clang-format on

}  // namespace dorvik::modRulebaseSchema
