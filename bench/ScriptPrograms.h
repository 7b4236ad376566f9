#pragma once

#include <span>
#include <string>
#include <string_view>

/// One algorithm in both languages. `Main` prints, or returns, a result that both must come to.
struct ScriptProgram {
    std::string_view Name;
    std::string_view Basic;
    std::string_view Lua;
};
extern const std::span<const ScriptProgram> kScriptPrograms;
/// What authors of rules write every day: `TextPrograms.cpp`, `EverydayPrograms.cpp`.
extern const std::span<const ScriptProgram> kTextPrograms;
extern const std::span<const ScriptProgram> kEverydayPrograms;

inline constexpr int kDispatcherCases = 150;

/// A `RunScript(Number)` with a case for each number, each of which reads two properties and compares
/// them; `Direct`, which does that work `calls` times in a loop; `Reset` and `Hits` for the result.
std::string DispatcherInBasic(int calls);
std::string DispatcherInLua(int calls);
