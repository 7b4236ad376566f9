#include "LoopState.h"

#include "basic/values/RuntimeErrors.h"

namespace dorvik::basic {

Value MachineObject::Invoke(int, InvokeKind, std::span<const Value>) {
    RaiseError(runtimeerror::kNoSuchMember);
}

LoopState::LoopState(Ref<ArrayBody> array) : m_array(std::move(array)) {
    m_array->Lock();
    m_isLocked = true;
}

LoopState::LoopState(Ref<ScriptObject> collection, std::unique_ptr<ScriptIterator> iterator)
    : m_collection(std::move(collection)), m_iterator(std::move(iterator)) {}

LoopState::~LoopState() {
    Leave();
}

void LoopState::Leave() {
    if (m_isLocked) {
        m_array->Unlock();
    }
    m_isLocked = false;
}

bool LoopState::Next(Value& element) {
    if (!m_array) {
        const bool isMore = m_iterator->Next(element);
        if (isMore && element.Type() == ValueType::Array && element.AsArray()->IsShared()) {
            element = element.DeepCopy();
        }
        return isMore;
    }
    if (!m_isLocked) {
        m_array->Lock();
    }
    m_isLocked = true;
    if (m_position >= m_array->Elements().size()) {
        return false;
    }
    element = m_array->Elements()[m_position++].DeepCopy();
    return true;
}

}  // namespace dorvik::basic
