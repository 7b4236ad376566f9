#include "IndexedObject.h"

#include "Arguments.h"
#include "ObjectMembers.h"

namespace dorvik::basic {

namespace {

enum class Member : std::uint8_t { Item, Count };

constexpr ObjectMember kMembers[] = {
    {"Item", "Index", 1},
    {"Count", ""},
};

class IndexedIterator final : public ScriptIterator {
public:
    explicit IndexedIterator(Ref<IndexedObject> all) : m_all(std::move(all)) {}

    bool Next(Value& element) override {
        if (m_next == m_all->Count()) {
            return false;
        }
        element = m_all->At(m_next++);
        return true;
    }

private:
    Ref<IndexedObject> m_all;
    std::size_t m_next = 0;
};

}  // namespace

int IndexedObject::FindMember(std::string_view name) const {
    return FindMemberIn(kMembers, name);
}

int IndexedObject::FindParameter(int member, std::string_view name) const {
    return FindParameterIn(kMembers, member, name);
}

Value IndexedObject::Invoke(int member, InvokeKind kind, std::span<const Value> arguments) {
    CheckUse(kMembers, member, kind, arguments);
    switch (static_cast<Member>(member)) {
        case Member::Item: {
            const std::int32_t index = LongAt(arguments, 0);
            if (index < 0 || static_cast<std::size_t>(index) >= Count()) {
                RaiseError(runtimeerror::kInvalidProcedureCall);
            }
            return At(static_cast<std::size_t>(index));
        }
        case Member::Count: return Value::Long(static_cast<std::int32_t>(Count()));
    }
    return Value();
}

std::unique_ptr<ScriptIterator> IndexedObject::Iterate() {
    return std::make_unique<IndexedIterator>(Ref<IndexedObject>(this));
}

}  // namespace dorvik::basic
