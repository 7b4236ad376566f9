#include "workstation/controls/CommandControl.h"

#include "base/BasicError.h"
#include "base/modTextCase.h"

#include <algorithm>
#include <utility>

namespace dorvik {

namespace {

/// The control itself or the first one below it for which `fits` holds, a parent before its items.
template <typename Fits>
CommandControl* FindControl(CommandControl& control, const Fits& fits) {
    if (fits(control)) {
        return &control;
    }
    for (const auto& item : control.Items()) {
        if (CommandControl* const found = FindControl(*item, fits)) {
            return found;
        }
    }
    return nullptr;
}

}  // namespace

template <typename Value>
void CommandControl::Change(Value& kept, Value value) {
    if (!(kept == value)) {
        kept = std::move(value);
        Changed.Raise();
    }
}

void CommandControl::SetCaption(std::string caption) {
    Change(m_look.Caption, std::move(caption));
}

void CommandControl::SetFace(std::string face) {
    Change(m_look.Face, std::move(face));
}

void CommandControl::SetEnabled(bool enabled) {
    Change(m_look.Enabled, enabled);
}

void CommandControl::SetChecked(bool checked) {
    Change(m_look.Checked, checked);
}

void CommandControl::SetPlace(const BarPlace& place) {
    Change(m_place, place);
}

CommandControl& CommandControl::Item(std::int32_t index) const {
    if (index < 1 || index > Count()) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
    }
    return *m_items[static_cast<std::size_t>(index) - 1];
}

CommandControl&
CommandControl::Add(CommandKind kind, CommandLook look, std::int32_t before, std::int32_t id) {
    const auto place =
        before < 1 || before > Count() ? m_items.end() : m_items.begin() + (before - 1);
    CommandControl& added =
        **m_items.insert(place, std::make_unique<CommandControl>(kind, std::move(look), id));
    Changed.Raise();
    return added;
}

void CommandControl::Remove(const CommandControl& item) {
    std::erase_if(m_items, [&item](const auto& kept) { return kept.get() == &item; });
    Changed.Raise();
}

std::int32_t CommandControl::IndexOf(const CommandControl& item) const {
    const auto found = std::find_if(
        m_items.begin(), m_items.end(), [&item](const auto& kept) { return kept.get() == &item; });
    return found == m_items.end() ? 0 : static_cast<std::int32_t>(found - m_items.begin()) + 1;
}

CommandControl* CommandControl::FindTag(std::string_view tag) {
    return FindControl(*this, [tag](const CommandControl& control) {
        return modTextCase::Equal(control.Look().Tag, tag);
    });
}

CommandControl* CommandControl::FindId(std::int32_t id) {
    return FindControl(*this, [id](const CommandControl& control) { return control.Id() == id; });
}

CommandControl* CommandControl::FindCaption(std::string_view caption) {
    return FindControl(*this, [caption](const CommandControl& control) {
        return modTextCase::Equal(control.Look().Caption, caption);
    });
}

void CommandControl::Click() {
    if (m_look.Enabled) {
        Clicked.Raise();
    }
}

}  // namespace dorvik
