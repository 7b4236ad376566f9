#pragma once

#include "workstation/controls/BarPlace.h"
#include "workstation/controls/Event.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

enum class CommandKind : std::int32_t { Button, Popup };

/// What a control of a command bar shows.
struct CommandLook {
    std::string Caption = {};
    std::string Tag = {};   // its key
    std::string Face = {};  // name of a picture, empty for none
    bool Enabled = true;
    bool Checked = false;
    bool BeginGroup = false;  // a line in front of it
};

/// A control of a command bar: a button, or a popup with controls of its own. A bar is a popup as well. Its parent owns
/// it. Items are numbered from 1, as the environment does.
class CommandControl {
public:
    CommandControl(CommandKind kind, CommandLook look, std::int32_t id = 0)
        : m_kind(kind), m_id(id), m_look(std::move(look)) {}
    CommandControl(const CommandControl&) = delete;
    CommandControl& operator=(const CommandControl&) = delete;

    CommandKind Kind() const { return m_kind; }
    /// The environment's number of one of its own controls; 0 for those of an add-in.
    std::int32_t Id() const { return m_id; }
    const CommandLook& Look() const { return m_look; }
    void SetCaption(std::string caption);
    void SetFace(std::string face);
    void SetEnabled(bool enabled);
    void SetChecked(bool checked);
    /// Of a bar.
    const BarPlace& Place() const { return m_place; }
    void SetPlace(const BarPlace& place);

    std::int32_t Count() const { return static_cast<std::int32_t>(m_items.size()); }
    /// Raises `kSubscriptOutOfRange`.
    CommandControl& Item(std::int32_t index) const;
    const std::vector<std::unique_ptr<CommandControl>>& Items() const { return m_items; }
    /// At the end, or before the item with that number.
    CommandControl&
    Add(CommandKind kind, CommandLook look, std::int32_t before = 0, std::int32_t id = 0);
    void Remove(const CommandControl& item);
    /// The position among the items of its parent; 0 if it is not one of this control's items.
    std::int32_t IndexOf(const CommandControl& item) const;

    /// This control or one below it; null where there is none.
    CommandControl* FindTag(std::string_view tag);
    CommandControl* FindId(std::int32_t id);
    CommandControl* FindCaption(std::string_view caption);

    /// What the user does; a control that is disabled does nothing. A popup is opened by it.
    void Click();

    Event<> Clicked;
    Event<> Changed;  // look, place or items

private:
    template <typename Value>
    void Change(Value& kept, Value value);

    CommandKind m_kind;
    std::int32_t m_id;
    CommandLook m_look;
    BarPlace m_place;
    std::vector<std::unique_ptr<CommandControl>> m_items;
};

}  // namespace dorvik
