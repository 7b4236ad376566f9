#include "rulebase/catalogue/ObjectHelper.h"

#include "base/modText.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/modLog.h"
#include "rulebase/catalogue/ObjectCatalogue.h"
#include "rulebase/catalogue/PropertyCatalogue.h"
#include "rulebase/catalogue/PropertyDescriptions.h"

#include <algorithm>

namespace dorvik {

namespace {

constexpr std::int32_t kNamesOnly = 3;

/// A type and the modes in which a list shows it. Those of every mode come first.
struct ObjectListRow {
    ObjectType Type;
    std::string_view Modes;  // a digit for each; empty for any mode
};

constexpr ObjectListRow kObjectList[] = {
    {ObjectType::File, {}},
    {ObjectType::Procedure, {}},
    {ObjectType::Enum, {}},
    {ObjectType::Type, {}},
    {ObjectType::Argument, {}},
    {ObjectType::Const, {}},
    {ObjectType::Declare, {}},
    {ObjectType::EnumElement, {}},
    {ObjectType::Event, {}},
    {ObjectType::LineLabel, {}},
    {ObjectType::TypeElement, {}},
    {ObjectType::Variable, {}},
    {ObjectType::Implements, "124"},
    {ObjectType::Control, "123"},
    {ObjectType::Project, "123"},
    {ObjectType::Component, "12"},
    {ObjectType::Reference, "12"},
    {ObjectType::Source, "12"},
    {ObjectType::Layout, "12"},
    {ObjectType::LayoutProperties, "12"},
    {ObjectType::ControlProperties, "12"},
    {ObjectType::NamingConvention, "1"},
};

bool IsListed(const ObjectListRow& row, std::int32_t mode) {
    return row.Modes.empty() || (mode >= 1 && mode <= 9 &&
                                 row.Modes.find(static_cast<char>('0' + mode)) != row.Modes.npos);
}

void LogMissing(const std::string& message, std::string_view procedure) {
    modLog::Log().LogDebugTrace(message, procedure, "ObjectHelper");
}

std::string ObjectTypeWords(std::int32_t objectType) {
    return "Object type " + std::to_string(objectType);
}

std::string PropertyWords(std::int32_t propertyNumber) {
    return "property number " + std::to_string(propertyNumber);
}

/// Null, and logged, for a number that is not an object type.
const ObjectRow* FindObject(std::int32_t objectType, std::string_view procedure) {
    const ObjectRow* row = modObjectCatalogue::Find(objectType);
    if (row == nullptr) {
        LogMissing(ObjectTypeWords(objectType) + " is not in the catalogue.", procedure);
    }
    return row;
}

/// Null, and logged, for a number that is not a property.
const PropertyRow* FindProperty(std::int32_t propertyNumber, std::string_view procedure) {
    const PropertyRow* row = modPropertyCatalogue::Find(propertyNumber);
    if (row == nullptr) {
        LogMissing(
            "There is no " + PropertyWords(propertyNumber) + " in the catalogue.", procedure);
    }
    return row;
}

/// A text that not every object type has. Empty, and logged, where there is none.
std::string_view ObjectColumn(
    std::int32_t objectType, std::string_view ObjectRow::*column, std::string_view procedure) {
    const ObjectRow* row = FindObject(objectType, procedure);
    if (row == nullptr) {
        return {};
    }
    const std::string_view text = row->*column;
    if (text.empty()) {
        LogMissing(ObjectTypeWords(objectType) + " has no such text in the catalogue.", procedure);
    }
    return text;
}

}  // namespace

void ObjectHelper::GetObjectList(
    std::int32_t mode, StringArrayList& names, LongArrayList& objectTypes) {
    names.Clear();
    objectTypes.Clear();
    for (const ObjectListRow& row : kObjectList) {
        if (IsListed(row, mode)) {
            const auto type = static_cast<std::int32_t>(row.Type);
            names.Add(std::string(ObjectName(type)));
            objectTypes.Add(type);
        }
    }
}

void ObjectHelper::GetPropertyList(
    std::int32_t mode,
    std::int32_t objectType,
    StringArrayList& names,
    LongArrayList& propertyNumbers) {
    names.Clear();
    propertyNumbers.Clear();
    const ObjectRow* object = FindObject(objectType, "GetPropertyList");
    const ObjectPropertyList* list =
        object == nullptr ? nullptr : modPropertyDescriptions::FindList(object->Root);
    if (list == nullptr) {
        return;
    }
    bool isListed = mode != kNamesOnly;
    for (const PropertyDescription& property : list->Properties) {
        isListed = isListed || property.Number == list->FirstName;
        if (isListed &&
            !(mode == kNamesOnly && modPropertyDescriptions::IsLineStatistic(property.Number))) {
            const auto number = static_cast<std::int32_t>(property.Number);
            names.Add(std::string(PropertyName(number)));
            propertyNumbers.Add(number);
        }
    }
}

std::string
ObjectHelper::ObjectPropertyDescription(std::int32_t objectType, std::int32_t propertyNumber) {
    constexpr std::string_view kProcedure = "ObjectPropertyDescription";
    const ObjectRow* object = FindObject(objectType, kProcedure);
    const PropertyRow* property = FindProperty(propertyNumber, kProcedure);
    if (object == nullptr || property == nullptr) {
        return {};
    }
    const PropertyDescription* description =
        modPropertyDescriptions::Find(object->Root, property->Number);
    if (description == nullptr) {
        LogMissing(
            ObjectTypeWords(objectType) + " has no " + PropertyWords(propertyNumber) + ".",
            kProcedure);
        return {};
    }
    const PropertyType type =
        description->Type == PropertyType::None ? property->Type : description->Type;
    std::string text(property->Name);
    return text.append(" As ")
        .append(modPropertyCatalogue::TypeText(type))
        .append(modText::kLineEnd)
        .append(description->Sentence);
}

std::int32_t ObjectHelper::NumObjects() {
    return kLastObjectType;
}

std::string_view ObjectHelper::ObjectName(std::int32_t objectType) {
    return ObjectColumn(objectType, &ObjectRow::Name, "ObjectName");
}

std::string_view ObjectHelper::PropertyName(std::int32_t propertyNumber) {
    const PropertyRow* row = FindProperty(propertyNumber, "PropertyName");
    return row == nullptr ? std::string_view() : row->Name;
}

std::string_view ObjectHelper::ObjectDescription(std::int32_t objectType) {
    return ObjectColumn(objectType, &ObjectRow::Description, "ObjectDescription");
}

std::string_view ObjectHelper::ObjectIcon(std::int32_t objectType) {
    return ObjectColumn(objectType, &ObjectRow::Icon, "ObjectIcon");
}

std::string_view ObjectHelper::PropertyIcon(std::int32_t propertyNumber) {
    const PropertyRow* row = FindProperty(propertyNumber, "PropertyIcon");
    return row == nullptr ? std::string_view() : row->Icon;
}

std::string ObjectHelper::ObjectKey(std::int32_t objectType) {
    return std::to_string(objectType) + "Key";
}

std::string_view ObjectHelper::ObjectText(std::int32_t objectType) {
    return ObjectColumn(objectType, &ObjectRow::Text, "ObjectText");
}

std::string_view ObjectHelper::ObjectTreeIcon(std::int32_t objectType) {
    return ObjectColumn(objectType, &ObjectRow::TreeIcon, "ObjectTreeIcon");
}

bool ObjectHelper::ObjectHasWorkfields(std::int32_t objectType) {
    const ObjectRow* row = FindObject(objectType, "ObjectHasWorkfields");
    return row != nullptr && row->HasWorkfields;
}

}  // namespace dorvik
