#include "modSourceItems.h"

#include "base/modTextCase.h"
#include "source/modDorvikUtils.h"
#include "workstation/dialogs/modAllItems.h"
#include "workstation/dialogs/modItemIcons.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace dorvik::modSourceItems {

namespace {

constexpr std::string_view kFileKeyEnd = "SFKey";
constexpr std::string_view kProcedureKeyEnd = "PRKey";
constexpr std::string_view kFigureBegin = " [";
constexpr std::size_t kPropertyKindLength = 3;  // "Let", "Get", "Set"

std::string KeyOf(std::int32_t id, std::string_view end) {
    return std::to_string(id).append(end);
}

bool IsProperty(std::string_view type) {
    constexpr std::array<std::string_view, 3> kTypes{
        "Property Let", "Property Get", "Property Set"};
    return std::any_of(kTypes.begin(), kTypes.end(), [type](std::string_view property) {
        return modTextCase::Equal(type, property);
    });
}

}  // namespace

ComboItem AllProceduresItem(std::int32_t sourceId) {
    return {
        KeyOf(sourceId, kFileKeyEnd),
        std::string(kBlankItemTag),
        "(All Items)",
        std::string(modAllItems::kImage)};
}

ComboItem
FileItem(const BasicObject& file, std::string_view projectName, std::string_view projectType) {
    const std::string key = KeyOf(file.ObjectID, kFileKeyEnd);
    if (modDorvikUtils::IsVBPFile(file.Filename)) {
        return {
            key,
            std::string(kProjectFileTag),
            std::string(projectName),
            std::string(modItemIcons::ProjectIconKeyFromType(projectType))};
    }
    return {key, std::string(kSourceFileTag), file.Name, file.ObjectType};
}

ComboItem ProcedureItem(const BasicObject& procedure) {
    ComboItem item{
        KeyOf(procedure.ObjectID, kProcedureKeyEnd),
        std::string(kProcedureTag),
        procedure.Name,
        procedure.Name};
    if (IsSection(procedure)) {
        item.Text = "(" + procedure.Name + ")";
        return item;
    }
    const bool isProperty = IsProperty(procedure.ObjectType);
    if (isProperty) {
        const std::string& type = procedure.ObjectType;
        item.Text += " (" + type.substr(type.size() - kPropertyKindLength) + ")";
    }
    item.Image = procedure.Scope.empty() ? "Public" : procedure.Scope;
    item.Image += isProperty ? "Property" : "Method";
    return item;
}

bool IsSection(const BasicObject& procedure) {
    return procedure.ObjectType.empty() && (modTextCase::Equal(procedure.Name, "Declarations") ||
                                            modTextCase::Equal(procedure.Name, "Layout"));
}

std::string FigureText(const Variant& figure) {
    return figure.IsEmpty() || figure.AsLong() <= 0
               ? std::string()
               : std::string(kFigureBegin) + figure.AsText() + "]";
}

std::string WithName(std::string_view text, std::string_view name) {
    const std::size_t figure = text.find(kFigureBegin);
    return std::string(name).append(
        figure == std::string_view::npos ? std::string_view() : text.substr(figure));
}

bool IsNamed(std::string_view text, std::string_view name) {
    return modTextCase::StartsWith(text, name) &&
           (text.size() == name.size() || text[name.size()] == ' ');
}

std::int32_t IdOfKey(std::string_view key) {
    std::int32_t id = 0;
    std::from_chars(key.data(), key.data() + key.size(), id);
    return id;
}

bool IsAllFiles(const ComboItem& item) {
    return item.Key == modAllItems::kKey;
}

bool IsWhole(const ComboItem& item) {
    return IsAllFiles(item) || item.Tag == kProjectFileTag;
}

}  // namespace dorvik::modSourceItems
