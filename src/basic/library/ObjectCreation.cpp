#include "Arguments.h"
#include "RegExpObject.h"
#include "base/modTextCase.h"
#include "basic/library/BuiltinLookup.h"
#include "basic/library/CollectionObject.h"
#include "basic/library/DictionaryObject.h"

namespace dorvik::basic {

namespace {

struct ProgramRow {
    std::string_view Id;
    ObjectClass Class;
};

constexpr ProgramRow kPrograms[] = {
    {"Scripting.Dictionary", ObjectClass::Dictionary},
    {"VBScript.RegExp", ObjectClass::RegExp},
};

const ProgramRow* FindProgram(std::string_view programId) {
    for (const ProgramRow& row : kPrograms) {
        if (modTextCase::Equal(programId, row.Id)) {
            return &row;
        }
    }
    return nullptr;
}

}  // namespace

bool IsScriptObject(std::string_view programId) {
    return FindProgram(programId) != nullptr;
}

Value CreateScriptObject(std::string_view programId) {
    if (const ProgramRow* row = FindProgram(programId)) {
        return NewScriptObject(row->Class);
    }
    RaiseError(runtimeerror::kCannotCreateObject);
}

Value NewScriptObject(ObjectClass which) {
    switch (which) {
        case ObjectClass::Collection: return Value::Object(MakeRef<CollectionObject>());
        case ObjectClass::Dictionary: return Value::Object(MakeRef<DictionaryObject>());
        case ObjectClass::RegExp: return Value::Object(MakeRef<RegExpObject>());
        case ObjectClass::Any:
        case ObjectClass::Match:
        case ObjectClass::Matches:
        case ObjectClass::SubMatches:
        case ObjectClass::Err: break;
    }
    return Value();
}

}  // namespace dorvik::basic
