#pragma once

#include "rulebase/file/AttributeRow.h"
#include "rulebase/model/Rulebase.h"
#include "rulebase/model/TableItem.h"

#include <span>
#include <string_view>

/// The elements of a rulebase file: their names, and the attributes of each in the order in which
/// they are written. All data of a file is in attributes.
namespace dorvik::modRulebaseSchema {

inline constexpr std::string_view kVersion = "6.2";
inline constexpr std::string_view kVersionAttribute = "SchemaVersion";

inline constexpr std::string_view kRoot = "Dorvik_Rulebase";
inline constexpr std::string_view kProperties = "RulebaseProperties";
inline constexpr std::string_view kControlTags = "ControlTags";
inline constexpr std::string_view kControlTag = "ControlTag";
inline constexpr std::string_view kDataTypeTags = "DataTypeTags";
inline constexpr std::string_view kDataTypeTag = "DataTypeTag";
inline constexpr std::string_view kScopeTags = "ScopeTags";
inline constexpr std::string_view kScopeTag = "ScopeTag";
inline constexpr std::string_view kDefaultViolations = "DefaultViolations";
inline constexpr std::string_view kViolationItem = "ViolationItem";
inline constexpr std::string_view kCategoryList = "CategoryList";
inline constexpr std::string_view kCategoryItem = "CategoryItem";
inline constexpr std::string_view kSeverityList = "SeverityList";
inline constexpr std::string_view kSeverityItem = "SeverityItem";
inline constexpr std::string_view kAuthorisedComponents = "AuthorisedComponents";
inline constexpr std::string_view kAuthorisedComponent = "AuthorisedComponent";
inline constexpr std::string_view kAuthorisedReferences = "AuthorisedReferences";
inline constexpr std::string_view kAuthorisedReference = "AuthorisedReference";
inline constexpr std::string_view kUnauthorisedKeywords = "UnauthorisedKeywords";
inline constexpr std::string_view kUnauthorisedKeyword = "UnauthorisedKeyword";
inline constexpr std::string_view kRules = "Rules";
inline constexpr std::string_view kCodingConventions = "CodingConventions";
inline constexpr std::string_view kCodingConvention = "CodingConvention";
inline constexpr std::string_view kNamingConventions = "NamingConventions";
inline constexpr std::string_view kNamingConvention = "NamingConvention";
inline constexpr std::string_view kPrefixItems = "PrefixItems";
inline constexpr std::string_view kPrefixItem = "PrefixItem";
inline constexpr std::string_view kSuffixItems = "SuffixItems";
inline constexpr std::string_view kSuffixItem = "SuffixItem";
inline constexpr std::string_view kViolationDefinition = "ViolationDefinition";
inline constexpr std::string_view kReport = "Report";
inline constexpr std::string_view kSection = "Section";

/// Attributes that the code reads or writes by themselves.
inline constexpr std::string_view kTagName = "TagName";
inline constexpr std::string_view kID = "ID";
inline constexpr std::string_view kHidden = "Hidden";
inline constexpr std::string_view kLastID = "LastID";
inline constexpr std::string_view kLastRuleID = "LastRuleID";
inline constexpr std::string_view kSeverityLevel = "SeverityLevel";
inline constexpr std::string_view kRuleActive = "RuleActive";
inline constexpr std::string_view kCategoryID = "CategoryID";
inline constexpr std::string_view kSectionType = "SectionType";
inline constexpr std::string_view kCategoryRuleList = "CategoryRuleList";

/// Values of `SectionType`.
inline constexpr std::string_view kCategorySection = "Category";
inline constexpr std::string_view kTableSection = "Table";

/// The tables of `RulebaseProperties`, which follow each other in the element.
std::span<const AttributeRow<Rulebase>> Properties();
std::span<const AttributeRow<ToleranceSettings>> Tolerances();
std::span<const AttributeRow<Rulebase>> PropertiesBehindTolerances();

/// What a tag element holds after its `TagName`.
std::span<const AttributeRow<TagItem>> ControlTag();
std::span<const AttributeRow<TagItem>> OtherTag();

std::span<const AttributeRow<ViolationDefinition>> ViolationItem();
std::span<const AttributeRow<CategoryItem>> Category();
/// What a file holds of a category besides its ID and whether it is hidden.
std::span<const AttributeRow<CategoryItem>> CategoryTexts();
std::span<const AttributeRow<SeverityItem>> Severity();
/// Required: what a file can change of a level that is there already; its level text is not in it.
std::span<const AttributeRow<SeverityItem>> ExistingSeverity();
std::span<const AttributeRow<AuthorisedComponent>> Component();
std::span<const AttributeRow<AuthorisedReference>> Reference();
std::span<const AttributeRow<UnauthorisedKeyword>> Keyword();
std::span<const AttributeRow<CodingConvention>> Coding();
std::span<const AttributeRow<NamingConvention>> Naming();
std::span<const AttributeRow<PrefixSuffixItem>> NameItem();
std::span<const AttributeRow<ViolationDefinition>> Violation();
/// What a section of a report definition holds after its `SectionType` if it is a table.
std::span<const AttributeRow<TableItem>> Table();

}  // namespace dorvik::modRulebaseSchema
