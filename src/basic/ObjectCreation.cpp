#include "base/modTextCase.h"
#include "basic/Arguments.h"
#include "basic/BuiltinFunction.h"
#include "basic/CollectionObject.h"
#include "basic/DictionaryObject.h"
#include "basic/RegExpObject.h"

namespace dorvik::basic {

Value CreateScriptObject(std::string_view programId) {
    if (modTextCase::Equal(programId, "Scripting.Dictionary")) {
        return NewScriptObject(ObjectClass::Dictionary);
    }
    if (modTextCase::Equal(programId, "VBScript.RegExp")) {
        return NewScriptObject(ObjectClass::RegExp);
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
