// The arguments of a procedure, an event or a declared procedure.

#include "DeclarationTokens.h"
#include "base/modText.h"
#include "foundation/log/Trap.h"
#include "source/PropertyName.h"
#include "source/VirtualObject.h"
#include "source/modKeyword.h"
#include "source/modVOSource.h"

namespace dorvik::modVOSource {

namespace {

enum class Mode { Name, DataType, DefaultValue };

constexpr std::string_view kEmptiedString = "\"\"";

struct Argument {
    std::string Name;
    std::string DefaultValue;
    std::string DataType;
    std::string PassBy;
    bool IsOptional = false;
    bool IsParamArray = false;
    Mode CurrentMode = Mode::Name;
};

bool IsArrayName(std::string_view name) {
    return name.ends_with("()");
}

std::shared_ptr<VirtualObject>
MakeObject(const Argument& argument, std::string_view parent, std::int32_t index) {
    auto object = std::make_shared<VirtualObject>();
    KeyedArrayList& properties = object->Properties();
    properties.Add(propertyname::kName, argument.Name);
    properties.Add(propertyname::kDefaultValue, argument.DefaultValue);
    properties.Add(propertyname::kDataType, argument.DataType);
    properties.Add(propertyname::kIsOptional, argument.IsOptional);
    properties.Add(propertyname::kIsParamArray, argument.IsParamArray);
    properties.Add(propertyname::kIsArray, IsArrayName(argument.Name));
    properties.Add(propertyname::kParentObject, parent);
    properties.Add(propertyname::kPassBy, argument.PassBy);
    properties.Add(propertyname::kIndex, index);
    return object;
}

bool TakeName(std::string_view token, Argument& argument) {
    const bool complete = DropTrailingComma(token);
    argument.Name = token;
    const bool isArray = IsArrayName(token);
    const std::string_view suffix = TypeSuffix(isArray ? token.substr(0, token.size() - 2) : token);
    if (!suffix.empty()) {
        argument.DataType = suffix;
    }
    return complete;
}

bool TakeDefaultValue(const DeclarationTokens::Token& token, Argument& argument) {
    std::string_view text = token.Text;
    std::string_view written = token.Written;
    const bool complete = DropTrailingComma(text);
    if (!argument.DefaultValue.empty()) {
        argument.DefaultValue += ' ';
    }
    argument.DefaultValue += text;
    // A value that is a single string is taken as written; any other keeps its strings emptied.
    if (argument.DefaultValue == kEmptiedString) {
        DropTrailingComma(written);
        argument.DefaultValue = written;
    }
    return complete;
}

/// A word that has a meaning of its own in every mode; false if the token is none.
bool TakeKeyword(std::string_view token, Argument& argument) {
    if (modKeyword::Equal(token, "Optional")) {
        argument.IsOptional = true;
    } else if (modKeyword::Equal(token, "ByRef") || modKeyword::Equal(token, "ByVal")) {
        argument.PassBy = token;
    } else if (token == "=") {
        argument.CurrentMode = Mode::DefaultValue;
        argument.DefaultValue.clear();
    } else if (modKeyword::Equal(token, "As")) {
        argument.CurrentMode = Mode::DataType;
    } else if (modKeyword::Equal(token, "ParamArray")) {
        argument.IsParamArray = true;
    } else {
        return false;
    }
    return true;
}

/// True if the token completes the argument.
bool TakeToken(const DeclarationTokens::Token& token, Argument& argument) {
    std::string_view text = token.Text;
    if (text.empty() || TakeKeyword(text, argument)) {
        return false;
    }
    if (text == ",") {
        return true;
    }
    switch (argument.CurrentMode) {
        case Mode::Name: return TakeName(text, argument);
        case Mode::DefaultValue: return TakeDefaultValue(token, argument);
        case Mode::DataType: break;
    }
    const bool complete = DropTrailingComma(text);
    argument.DataType = text;
    return complete;
}

void WalkArguments(std::string_view list, std::string_view parent, VirtualObjects& arguments) {
    const std::string text = std::string(modText::Trim(list)) + ',';
    DeclarationTokens tokens(text, DeclarationTokens::Strings::Emptied);
    DeclarationTokens::Token token;
    Argument argument;
    std::int32_t index = 0;
    while (tokens.Next(token)) {
        if (TakeToken(token, argument)) {
            arguments.push_back(MakeObject(argument, parent, ++index));
            argument = Argument();
        }
    }
}

}  // namespace

bool ExtractArgsFromArgumentList(
    std::string_view list, std::string_view parent, VirtualObjects& arguments) {
    return Trap({"C_VOSource", "ExtractArgsFromArgumentList"}, [&] {
        WalkArguments(list, parent, arguments);
    });
}

}  // namespace dorvik::modVOSource
