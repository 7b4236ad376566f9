#pragma once

#include "enforcement/DVKSaxInterface.h"

namespace dorvik {

/// The callbacks under "Dorvik." for the compiler: their names and arguments, without an implementation.
class DVKSaxOutline final : public basic::IScriptExtension {
public:
    std::span<const basic::ExtensionMember> Members() const override {
        return DVKSaxInterface::MemberTable();
    }
    void Call(std::size_t, std::span<basic::Value>) override {}
};

}  // namespace dorvik
