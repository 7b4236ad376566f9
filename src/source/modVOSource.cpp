#include "source/modVOSource.h"

#include "base/BasicError.h"
#include "base/modUtf8.h"
#include "foundation/log/Trap.h"
#include "foundation/text/modUtilFunctions.h"
#include "source/LayoutReader.h"
#include "source/PropertyName.h"
#include "source/VirtualObject.h"
#include "source/modKeyword.h"

namespace dorvik::modVOSource {

namespace {

constexpr std::string_view kModule = "C_VOSource";

/// The text before `character`. Raises where there is none.
std::string_view TextBefore(std::string_view text, char character) {
    const std::size_t found = text.find(character);
    if (found == std::string_view::npos) {
        RaiseRuntimeError(runtimeerror::kInvalidProcedureCall);
    }
    return text.substr(0, found);
}

/// The text without the quote at its end. Raises where there is no text.
std::string_view TextBeforeLastQuote(std::string_view text) {
    if (text.empty()) {
        RaiseRuntimeError(runtimeerror::kInvalidProcedureCall);
    }
    return modUtf8::WithoutLast(text, 1);
}

void AddComponentProperties(std::string_view line, KeyedArrayList& properties) {
    // A project of the environment in place of a compiled component.
    if (modKeyword::StartsWith(line, "Object = \"*\\")) {
        properties.Add(propertyname::kDesignTime, true);
        properties.Add(propertyname::kFilename, TextBeforeLastQuote(modUtf8::Mid(line, 13)));
        return;
    }
    // By columns: `Object = "{GUID}#version#locale"; "filename"`.
    properties.Add(propertyname::kDesignTime, false);
    properties.Add(propertyname::kGUID, modUtf8::Mid(line, 11, 38));
    properties.Add(propertyname::kVersion, TextBefore(modUtf8::Mid(line, 50), '#'));
    const std::string_view behind = line.substr(TextBefore(line, ';').size());
    properties.Add(propertyname::kFilename, TextBeforeLastQuote(modUtf8::Mid(behind, 4)));
}

}  // namespace

bool ComponentFromObjectDefinition(std::string_view line, VirtualObject& component) {
    return Trap({kModule, "ComponentFromObjectDefinition"}, [&] {
        AddComponentProperties(line, component.Properties());
    });
}

bool ExtractControlFromLayout(
    std::span<const std::string> lines,
    VirtualObject& object,
    std::int32_t ordinal,
    LayoutControl& control) {
    return LayoutReader(lines).Extract(ordinal, object, control);
}

void AddFilenameRelatedProperties(VirtualObject& object, std::string_view filename) {
    const std::string name = modUtilFunctions::FilenameFromFullPathName(filename);
    const std::size_t point = name.rfind('.');
    KeyedArrayList& properties = object.Properties();
    properties.Add(propertyname::kFullFilename, filename);
    properties.Add(propertyname::kPath, modUtilFunctions::PathFromFilename(filename));
    properties.Add(propertyname::kFilename, name);
    properties.Add(
        propertyname::kExtension, point == std::string::npos ? std::string() : name.substr(point));
}

}  // namespace dorvik::modVOSource
