// The variables of a declaration and the elements of a type, which are traversed alike.

#include "DeclarationTokens.h"
#include "base/BasicError.h"
#include "base/modText.h"
#include "base/modTextCase.h"
#include "base/modUtf8.h"
#include "foundation/log/Trap.h"
#include "source/PropertyName.h"
#include "source/VirtualObject.h"
#include "source/modKeyword.h"
#include "source/modSource.h"
#include "source/modVOSource.h"

namespace dorvik::modVOSource {

namespace {

enum class Mode { Name, DataType };
enum class Walk { Variables, TypeElement };

struct Variable {
    std::string Name;
    std::string ArraySize;
    std::string DataType;
    bool IsArray = false;
    bool IsAsNew = false;
    bool HasWrittenType = false;
    Mode CurrentMode = Mode::Name;
};

struct Declaration {
    std::string_view Scope;
    bool IsStatic = false;
    bool IsWithEvents = false;
    bool IsLocal = false;
    bool IsMultiItem = false;  // stays once it is set, so the last of several has it too
};

std::shared_ptr<VirtualObject>
MakeObject(const Variable& variable, const Declaration& declaration) {
    auto object = std::make_shared<VirtualObject>();
    KeyedArrayList& properties = object->Properties();
    properties.Add(propertyname::kScope, declaration.Scope);
    properties.Add(propertyname::kIsStatic, declaration.IsStatic);
    properties.Add(propertyname::kIsWithEvents, declaration.IsWithEvents);
    properties.Add(propertyname::kName, variable.Name);
    properties.Add(propertyname::kIsArray, variable.IsArray);
    properties.Add(propertyname::kIsMultiItem, declaration.IsMultiItem);
    properties.Add(propertyname::kArraySize, variable.ArraySize);
    properties.Add(propertyname::kDataType, variable.DataType);
    properties.Add(propertyname::kIsLocal, declaration.IsLocal);
    properties.Add(propertyname::kIsAsNew, variable.IsAsNew);
    return object;
}

/// Reads on to the token that holds the closing bracket. True if a comma ends the variable there.
bool TakeArraySize(std::string_view behindBracket, DeclarationTokens& tokens, Variable& variable) {
    std::string size(behindBracket);
    std::size_t closing = size.find(')');
    DeclarationTokens::Token token;
    while (closing == std::string::npos) {
        if (!tokens.Next(token)) {
            RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
        }
        size += ' ';
        closing = token.Text.find(')');
        closing = closing == std::string_view::npos ? closing : closing + size.size();
        size += token.Text;
    }
    const bool complete = size.ends_with(',');
    size.resize(closing);
    variable.ArraySize = std::move(size);
    return complete;
}

bool TakeName(std::string_view token, Walk walk, DeclarationTokens& tokens, Variable& variable) {
    bool complete = false;
    const std::size_t bracket = token.find('(');
    std::string_view name = token.substr(0, bracket);
    if (bracket != std::string_view::npos) {
        variable.IsArray = true;
        complete = TakeArraySize(token.substr(bracket + 1), tokens, variable);
    }
    if (walk == Walk::Variables) {
        complete = DropTrailingComma(name) || complete;
    }
    variable.Name = name;
    if (const std::string_view suffix = TypeSuffix(name); !suffix.empty()) {
        variable.DataType = suffix;
    }
    return complete && walk == Walk::Variables;
}

/// True if the token completes the variable.
bool TakeToken(std::string_view token, Walk walk, DeclarationTokens& tokens, Variable& variable) {
    if (token.empty()) {
        return false;
    }
    if (walk == Walk::Variables && modKeyword::Equal(token, "New")) {
        variable.IsAsNew = true;
        return false;
    }
    if (modKeyword::Equal(token, "As")) {
        variable.CurrentMode = Mode::DataType;
        return false;
    }
    if (token == "*") {
        variable.DataType += " * ";
        variable.CurrentMode = Mode::DataType;
        variable.HasWrittenType = true;
        return false;
    }
    if (variable.CurrentMode == Mode::Name) {
        return TakeName(token, walk, tokens, variable);
    }
    const bool complete = walk == Walk::Variables && DropTrailingComma(token);
    if (!variable.HasWrittenType) {
        variable.DataType.clear();  // a suffix gives way to the type that is written
        variable.HasWrittenType = true;
    }
    // Required: a token after the data type is appended to it, also after a second "As".
    variable.DataType += token;
    return complete;
}

bool DropPrefix(std::string_view& text, std::string_view prefix) {
    const std::size_t matched = modKeyword::Match(text, prefix);
    text.remove_prefix(matched);
    return matched != 0;
}

/// Takes the words in front of the first name off the text.
Declaration TakeDeclaration(std::string_view& text, std::string_view parent) {
    Declaration declaration;
    declaration.Scope = modSource::ScopeFromDef(text);
    if (!declaration.Scope.empty()) {
        // Required: a `Static` after the scope word stays and is read as a name.
        text = modUtf8::Mid(text, declaration.Scope.size() + 2);
    } else if (!DropPrefix(text, "Dim ")) {
        declaration.IsStatic = DropPrefix(text, "Static ");
    }
    declaration.IsWithEvents = DropPrefix(text, "WithEvents ");
    declaration.IsLocal = modTextCase::Equal(parent, "Procedure");
    return declaration;
}

void WalkVariables(std::string_view statement, std::string_view parent, VirtualObjects& objects) {
    Declaration declaration = TakeDeclaration(statement, parent);
    const std::string text = std::string(statement) + ',';
    DeclarationTokens tokens(text, DeclarationTokens::Strings::Kept);
    DeclarationTokens::Token token;
    Variable variable;
    while (tokens.Next(token)) {
        if (TakeToken(token.Text, Walk::Variables, tokens, variable)) {
            declaration.IsMultiItem = declaration.IsMultiItem || !tokens.AtEnd();
            objects.push_back(MakeObject(variable, declaration));
            variable = Variable();
        }
    }
}

void WalkTypeElement(std::string_view text, VirtualObject& element) {
    DeclarationTokens tokens(text, DeclarationTokens::Strings::Kept);
    DeclarationTokens::Token token;
    Variable variable;
    while (tokens.Next(token)) {
        TakeToken(token.Text, Walk::TypeElement, tokens, variable);
    }
    KeyedArrayList& properties = element.Properties();
    properties.Add(propertyname::kName, variable.Name);
    properties.Add(propertyname::kIsArray, variable.IsArray);
    properties.Add(propertyname::kArraySize, variable.ArraySize);
    properties.Add(propertyname::kDataType, variable.DataType);
}

std::string_view TextToWalk(std::string_view statement) {
    return modText::Trim(modSource::StripInLineComment(statement));
}

}  // namespace

bool ExtractVariablesFromDeclaration(
    std::string_view declaration, std::string_view parent, VirtualObjects& objects) {
    return Trap({"C_VOSource", "ExtractVariablesFromDeclaration"}, [&] {
        WalkVariables(TextToWalk(declaration), parent, objects);
    });
}

bool ExtractTypeElementFromDeclaration(std::string_view text, VirtualObject& element) {
    return Trap({"C_VOSource", "ExtractTypeElementFromDeclaration"}, [&] {
        WalkTypeElement(TextToWalk(text), element);
    });
}

}  // namespace dorvik::modVOSource
