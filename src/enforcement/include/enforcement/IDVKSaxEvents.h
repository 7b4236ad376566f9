#pragma once

#include "basic/values/Value.h"

#include <string>
#include <string_view>

namespace dorvik {

/// Receives the calls of rule scripts with the prefix "Dorvik.". The operations have the names that scripts use. An
/// operation may raise a `BasicError`, which the script can trap.
class IDVKSaxEvents {
public:
    virtual ~IDVKSaxEvents() = default;

    virtual void ApplyConvention() = 0;
    virtual void CancelPendingViolation() = 0;
    virtual void RaiseViolation() = 0;
    virtual void DebugPrint(std::string_view text) = 0;
    virtual void DumpObject(std::string_view objectName) = 0;
    /// `value` becomes the property's value, or the empty text if there is no such property. Returns true if the
    /// value is valid until the next event, so that it may be cached.
    virtual bool GetObjectProperty(
        std::string_view objectName, std::string_view propertyName, basic::Value& value) = 0;
    virtual basic::Value GetParserEvent() = 0;  // its name, a text
    /// Leaves `value` unchanged if the object is not in scope.
    virtual void GetObjectWorkField(
        std::string_view objectName, std::string_view workfieldName, basic::Value& value) = 0;
    virtual bool IsClassName(std::string_view name) = 0;
    virtual bool IsFormName(std::string_view name) = 0;
    virtual bool ObjectHasProperty(std::string_view objectName, std::string_view propertyName) = 0;
    virtual bool
    ObjectHasWorkfield(std::string_view objectName, std::string_view workfieldName) = 0;
    virtual void SetObjectWorkField(
        std::string_view objectName, std::string_view workfieldName, const basic::Value& value) = 0;
};

}  // namespace dorvik
