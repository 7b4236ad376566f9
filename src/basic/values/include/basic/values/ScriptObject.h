#pragma once

#include "basic/values/Value.h"

#include <memory>
#include <span>
#include <string_view>

namespace dorvik::basic {

/// How a member is used.
enum class InvokeKind : std::uint8_t { Get, Let, Set, Call };

/// Traverses a collection for `For Each`.
class ScriptIterator {
public:
    virtual ~ScriptIterator() = default;
    /// False at the end; otherwise `element` is the next one.
    virtual bool Next(Value& element) = 0;
};

inline constexpr int kNoMember = -1;
inline constexpr int kDefaultMember = 0;

/// An object that a script can hold: `Collection`, `Scripting.Dictionary`, `VBScript.RegExp` and what it
/// gives, `Err`. Members are numbered by each class; number 0 is the default member where there is one.
class ScriptObject : public ReferenceCounted {
public:
    ObjectClass Class() const { return m_class; }
    virtual std::string_view ClassName() const = 0;  // as TypeName gives it
    /// The number of a member, its name in any case, or `kNoMember`. Depends on the class only.
    virtual int FindMember(std::string_view name) const = 0;
    virtual bool HasDefaultMember() const { return true; }
    /// The position of an argument by its name (`Key:=`), or -1.
    virtual int FindParameter(int member, std::string_view name) const = 0;
    /// Uses a member. For Let and Set the last argument is the new value. An argument left out is
    /// `Missing`. Raises 438, 450, 449, 451 and whatever the member raises.
    virtual Value Invoke(int member, InvokeKind kind, std::span<const Value> arguments) = 0;
    /// Null for an object that is not a collection (438).
    virtual std::unique_ptr<ScriptIterator> Iterate() { return nullptr; }

protected:
    explicit ScriptObject(ObjectClass which) : m_class(which) {}

private:
    ObjectClass m_class;  // no virtual function: the machine tests it at each use of an item
};

}  // namespace dorvik::basic
