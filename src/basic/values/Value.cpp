#include "basic/values/Value.h"

#include "basic/values/ArrayBody.h"
#include "basic/values/DecimalBody.h"
#include "basic/values/RecordBody.h"
#include "basic/values/RuntimeErrors.h"
#include "basic/values/ScriptObject.h"

#include <utility>
#include <vector>

namespace dorvik::basic {

namespace {

/// Arrays in arrays; each level takes stack in a copy.
constexpr int kDeepestNesting = 500;

thread_local int t_copyDepth = 0;

class CopyLevel {
public:
    CopyLevel() {
        if (t_copyDepth >= kDeepestNesting) {
            RaiseLimit(
                runtimeerror::kOutOfStackSpace,
                "the limit of " + std::to_string(kDeepestNesting) + " nested arrays was reached");
        }
        ++t_copyDepth;
    }
    CopyLevel(const CopyLevel&) = delete;
    CopyLevel& operator=(const CopyLevel&) = delete;
    ~CopyLevel() { --t_copyDepth; }
};

Ref<RecordBody> CopyOf(const RecordBody& record) {
    std::vector<Value> members;
    members.reserve(record.Members().size());
    for (const Value& member : record.Members()) {
        members.push_back(member.DeepCopy());
    }
    return MakeRef<RecordBody>(record.Type(), std::move(members));
}

}  // namespace

Value Value::Text(std::string_view text) {
    if (text.size() <= 1) {
        if (text.empty()) {
            return Text(Ref<StringBody>());
        }
        if (static_cast<unsigned char>(text.front()) < 0x80) {
            return Text(Ref<StringBody>(StringBody::OfCharacter(text.front())));
        }
    }
    return Text(StringBody::Of(text));
}

Value Value::Text(std::string&& text) {
    return text.size() <= 1 ? Text(std::string_view(text))
                            : Text(MakeRef<StringBody>(std::move(text)));
}

Value Value::OfBody(ValueType type, ReferenceCounted* body) noexcept {
    Value result;
    result.m_type = type;
    result.m_data.Body = body;
    return result;
}

Value Value::Decimal(Ref<DecimalBody> body) noexcept {
    return OfBody(ValueType::Decimal, body.Detach());
}

Value Value::Decimal(const DecimalNumber& number) {
    return Decimal(MakeRef<DecimalBody>(number));
}

Value Value::Object(Ref<ScriptObject> object) noexcept {
    return OfBody(ValueType::Object, object.Detach());
}

Value Value::Array(Ref<ArrayBody> body) noexcept {
    return OfBody(ValueType::Array, body.Detach());
}

Value Value::Record(Ref<RecordBody> body) noexcept {
    return OfBody(ValueType::Record, body.Detach());
}

void Value::Destroy(ReferenceCounted* body, ValueType type) noexcept {
    if (type == ValueType::String) {
        delete static_cast<StringBody*>(body);  // owns nothing, so there is no chain to watch
    } else {
        ReferenceCounted::Destroy(body);
    }
}

Value Value::DeepCopyBody() const {
    const CopyLevel level;
    if (m_type == ValueType::Array) {
        return Array(m_data.Array->Copy(m_data.Array->IsFixed()));
    }
    return Record(CopyOf(*m_data.Record));
}

}  // namespace dorvik::basic
