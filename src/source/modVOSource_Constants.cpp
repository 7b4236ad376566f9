// The constants of a declaration.

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

enum class Mode { Name, DataType, Value };

struct Constant {
    std::string Name;
    std::string Value;
    std::string DataType;
    Mode CurrentMode = Mode::Name;
};

struct Declaration {
    std::string_view Scope;
    bool IsLocal = false;
    bool IsMultiItem = false;  // stays once it is set, so the last of several has it too
};

std::shared_ptr<VirtualObject>
MakeObject(const Constant& constant, const Declaration& declaration) {
    auto object = std::make_shared<VirtualObject>();
    KeyedArrayList& properties = object->Properties();
    properties.Add(propertyname::kName, constant.Name);
    properties.Add(propertyname::kScope, declaration.Scope);
    properties.Add(propertyname::kValue, constant.Value);
    properties.Add(propertyname::kIsMultiItem, declaration.IsMultiItem);
    properties.Add(propertyname::kDataType, constant.DataType);
    properties.Add(propertyname::kIsLocal, declaration.IsLocal);
    return object;
}

/// Takes the value that begins at the token and leaves the cursor after it.
void TakeValue(
    std::string_view text, std::size_t start, DeclarationTokens& tokens, Constant& constant) {
    const std::string_view rest = text.substr(start);
    const std::size_t comma = modSource::IntelligentSeek(rest, ',', false);
    const std::string_view value = rest.substr(0, comma == 0 ? 0 : comma - 1);
    // The statement has lost its comment, but a single quote in front of a ": Rem " is still there.
    if (comma == 0 || modSource::IntelligentSeek(value, '\'', false) != 0) {
        RaiseRuntimeError(runtimeerror::kInvalidProcedureCall);
    }
    constant.Value = modSource::RemoveQuotes(value);
    // One character is between the comma and the next name.
    const std::size_t behind = start + comma;
    tokens.GoOnFrom(behind < text.size() ? behind + modUtf8::CharacterSize(text, behind) : behind);
}

bool TakeToken(
    std::string_view text,
    const DeclarationTokens::Token& token,
    DeclarationTokens& tokens,
    Constant& constant) {
    std::string_view word = token.Text;
    if (word.empty()) {
        return false;
    }
    if (word == "=") {
        constant.CurrentMode = Mode::Value;
        return false;
    }
    if (modKeyword::Equal(word, "As")) {
        constant.CurrentMode = Mode::DataType;
        return false;
    }
    if (constant.CurrentMode == Mode::Value) {
        TakeValue(text, token.Start, tokens, constant);
        return true;
    }
    const bool complete = DropTrailingComma(word);
    if (constant.CurrentMode == Mode::DataType) {
        constant.DataType = word;
        return complete;
    }
    constant.Name = word;
    if (const std::string_view suffix = TypeSuffix(word); !suffix.empty()) {
        constant.DataType = suffix;
    }
    return complete;
}

void WalkConstants(std::string_view statement, std::string_view parent, VirtualObjects& objects) {
    constexpr std::string_view kConst = "Const ";
    const std::size_t found = modTextCase::Find(statement, kConst);
    if (found == std::string_view::npos) {
        RaiseRuntimeError(runtimeerror::kInvalidProcedureCall);
    }
    const std::string text = std::string(statement.substr(found + kConst.size())) + ',';
    Declaration declaration{
        modSource::ScopeFromDef(statement), modTextCase::Equal(parent, "Procedure")};
    DeclarationTokens tokens(text, DeclarationTokens::Strings::Emptied);
    DeclarationTokens::Token token;
    Constant constant;
    while (tokens.Next(token)) {
        if (TakeToken(text, token, tokens, constant)) {
            declaration.IsMultiItem = declaration.IsMultiItem || !tokens.AtEnd();
            objects.push_back(MakeObject(constant, declaration));
            constant = Constant();
        }
    }
}

}  // namespace

bool ExtractConstantsFromDeclaration(
    std::string_view declaration, std::string_view parent, VirtualObjects& objects) {
    return Trap({"C_VOSource", "ExtractConstantsFromDeclaration"}, [&] {
        WalkConstants(modText::Trim(modSource::StripInLineComment(declaration)), parent, objects);
    });
}

}  // namespace dorvik::modVOSource
