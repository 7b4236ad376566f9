#pragma once

#include "foundation/lists/KeyedArrayList.h"
#include "source/ItemType.h"
#include "source/SourceLineStatistics.h"
#include "source/ViolationStatistics.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace dorvik {

/// Whatever the parser recognises: a project, a file, a control, a variable. There is no class for
/// each of them; what an object is shows in its bag of properties and in the name under which it is
/// attached to the parser state. Shared, as one object can be in several scopes at once.
///
/// The four members held by pointers come into being at first use, so an object that only carries a
/// name costs little. Reading one that was never used gives an empty one, never an absence.
class VirtualObject {
public:
    VirtualObject() = default;
    VirtualObject(const VirtualObject&) = delete;
    VirtualObject& operator=(const VirtualObject&) = delete;

    /// The bag that rules read and the results database stores. Key: the property's name; value: a
    /// text, a number or a boolean.
    KeyedArrayList& Properties();
    const KeyedArrayList& Properties() const;

    /// Values that rule scripts keep here for later events.
    KeyedArrayList& Workfields();

    SourceLineStatistics& LineStats();
    const SourceLineStatistics& LineStats() const;
    ViolationStatistics& ViolationStats();
    const ViolationStatistics& ViolationStats() const;

    /// Sets the numeric property `name` to `value`, or adds 1 to it if `value` is 0 (a property that
    /// does not exist yet counts from 0). Required: a figure that happens to be 0 is therefore
    /// stored as 1 above what was there.
    void IncrementMemberCount(std::string_view name, std::int32_t value = 0);

    /// Violations are recorded for this object.
    bool HasVLIST() const { return m_hasVLIST; }
    void SetHasVLIST(bool has) { m_hasVLIST = has; }
    /// Line statistics are kept for this object. They can be read without, and are then all 0.
    bool HasLSTATS() const { return m_hasLSTATS; }
    void SetHasLSTATS(bool has) { m_hasLSTATS = has; }
    /// Name of the object in scope to which violations of this object belong ("File", "Procedure").
    const std::string& ParentViolations() const { return m_parentViolations; }
    void SetParentViolations(std::string_view name) { m_parentViolations = name; }
    /// Key of this object in the results database; 0 until stored.
    std::int32_t ObjectID() const { return m_objectID; }
    void SetObjectID(std::int32_t id) { m_objectID = id; }
    /// The type of its item in the results database; `None` until set.
    ItemType ObjectType() const { return m_objectType; }
    void SetObjectType(ItemType type) { m_objectType = type; }

private:
    mutable std::unique_ptr<KeyedArrayList> m_properties;
    std::unique_ptr<KeyedArrayList> m_workfields;
    mutable std::unique_ptr<SourceLineStatistics> m_lineStats;
    mutable std::unique_ptr<ViolationStatistics> m_violationStats;
    std::string m_parentViolations;
    std::int32_t m_objectID = 0;
    ItemType m_objectType = ItemType::None;
    bool m_hasVLIST = false;
    bool m_hasLSTATS = false;
};

}  // namespace dorvik
