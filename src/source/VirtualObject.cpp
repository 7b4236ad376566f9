#include "source/VirtualObject.h"

namespace dorvik {

namespace {

template <class Member>
Member& AtFirstUse(std::unique_ptr<Member>& member) {
    if (!member) {
        member = std::make_unique<Member>();
    }
    return *member;
}

}  // namespace

KeyedArrayList& VirtualObject::Properties() {
    return AtFirstUse(m_properties);
}

const KeyedArrayList& VirtualObject::Properties() const {
    return AtFirstUse(m_properties);
}

KeyedArrayList& VirtualObject::Workfields() {
    return AtFirstUse(m_workfields);
}

SourceLineStatistics& VirtualObject::LineStats() {
    return AtFirstUse(m_lineStats);
}

const SourceLineStatistics& VirtualObject::LineStats() const {
    return AtFirstUse(m_lineStats);
}

ViolationStatistics& VirtualObject::ViolationStats() {
    return AtFirstUse(m_violationStats);
}

const ViolationStatistics& VirtualObject::ViolationStats() const {
    return AtFirstUse(m_violationStats);
}

void VirtualObject::IncrementMemberCount(std::string_view name, std::int32_t value) {
    KeyedArrayList& properties = Properties();
    const std::int32_t index = properties.FindIndexByKey(name);
    if (index < 1) {
        properties.Add(name, Variant(value == 0 ? std::int32_t{1} : value), false);
        return;
    }
    const std::int32_t current = value == 0 ? properties.Item(index).AsLong() + 1 : value;
    properties.SetItem(index, Variant(current));
}

}  // namespace dorvik
