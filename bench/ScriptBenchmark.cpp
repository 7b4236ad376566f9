// The script engine beside Lua 5.4's interpreter: the same algorithms in one run, the two taking turns.
// Each figure is the best CPU time of five rounds; both must come to the same result.
//
// usage: ScriptBenchmark [NAME-PART]

#include "ScriptPrograms.h"
#include "basic/engine/ScriptEngine.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <limits>
#include <lua.hpp>
#include <memory>
#include <string>
#include <string_view>

namespace {

using dorvik::basic::ExtensionMember;
using dorvik::basic::IScriptExtension;
using dorvik::basic::IScriptHost;
using dorvik::basic::ScriptEngine;
using dorvik::basic::ScriptHandler;
using dorvik::basic::ScriptLimits;
using dorvik::basic::Value;

constexpr int kRounds = 5;
constexpr int kDispatcherCalls = 1'000'000;

double CpuSeconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double SecondsOf(const std::function<void()>& run) {
    const double start = CpuSeconds();
    run();
    return CpuSeconds() - start;
}

[[noreturn]] void Fail(const std::string& text) {
    std::fprintf(stderr, "%s\n", text.c_str());
    std::exit(1);
}

/// What scripts of both languages ask: the properties of a statement that is being reviewed.
struct Property {
    std::string Name;
    std::string Text;
};
const std::array<Property, 4> kProperties = {{
    {"Type", "Assignment"},
    {"Name", "strCustomerName"},
    {"Scope", "Private"},
    {"DataType", "String"},
}};

const std::string* FindProperty(std::string_view name) {
    for (const Property& property : kProperties) {
        if (property.Name == name) {
            return &property.Text;
        }
    }
    return nullptr;
}

class Facts : public IScriptExtension {
public:
    std::span<const ExtensionMember> Members() const override {
        static constexpr ExtensionMember kMembers[] = {{"GetProperty", 2, 2}};
        return kMembers;
    }
    void Call(std::size_t, std::span<Value> arguments) override {
        const std::string* text = FindProperty(arguments[0].AsText());
        arguments[1] = text != nullptr ? Value::Text(*text) : Value();
    }
};

class BenchmarkHost : public IScriptHost {
public:
    void OnErrorAlert(const dorvik::basic::ErrorAlert& alert) override {
        Fail("line " + std::to_string(alert.Line) + ": " + alert.Description);
    }
    void OnDebugPrint(std::string_view line) override { Printed = line; }
    std::string Printed;
};

/// One module, loaded and ready.
class BasicScript {
public:
    explicit BasicScript(const std::string& text) : m_engine(m_host) {
        ScriptLimits limits;
        limits.Instructions = 0;
        limits.Milliseconds = 0;
        m_engine.SetLimits(limits);
        m_engine.AddExtension("Dorvik.", m_facts);
        m_engine.SetAcceptsModules(true);
        if (!m_engine.LoadText("Benchmark.dvs", text)) {
            Fail(m_engine.ErrorText());
        }
        m_engine.SetReady(true);
    }
    std::string Run(std::string_view name) {
        m_host.Printed.clear();
        m_engine.RunSub(name);
        return m_host.Printed;
    }
    ScriptHandler Handler(std::string_view prototype) { return m_engine.CreateHandler(prototype); }

private:
    BenchmarkHost m_host;
    Facts m_facts;
    ScriptEngine m_engine;
};

int GetPropertyForLua(lua_State* lua) {
    std::size_t size = 0;
    const char* name = luaL_checklstring(lua, 1, &size);
    if (const std::string* text = FindProperty({name, size})) {
        lua_pushlstring(lua, text->data(), text->size());
    } else {
        lua_pushnil(lua);
    }
    return 1;
}

class LuaScript {
public:
    explicit LuaScript(const std::string& text) : m_lua(luaL_newstate(), lua_close) {
        luaL_openlibs(m_lua.get());
        lua_newtable(m_lua.get());
        lua_pushcfunction(m_lua.get(), GetPropertyForLua);
        lua_setfield(m_lua.get(), -2, "GetProperty");
        lua_setglobal(m_lua.get(), "Dorvik");
        Check(luaL_loadbuffer(m_lua.get(), text.data(), text.size(), "benchmark"));
        Check(lua_pcall(m_lua.get(), 0, 0, 0));
    }
    std::string Run(const char* name) {
        lua_getglobal(m_lua.get(), name);
        Check(lua_pcall(m_lua.get(), 0, 1, 0));
        const std::string result = luaL_tolstring(m_lua.get(), -1, nullptr);
        lua_settop(m_lua.get(), 0);
        return result;
    }
    void CallWithNumber(const char* name, int number) {
        lua_getglobal(m_lua.get(), name);
        lua_pushinteger(m_lua.get(), number);
        Check(lua_pcall(m_lua.get(), 1, 0, 0));
    }

private:
    void Check(int status) {
        if (status != LUA_OK) {
            Fail(lua_tostring(m_lua.get(), -1));
        }
    }
    std::unique_ptr<lua_State, void (*)(lua_State*)> m_lua;
};

std::string WithoutBlanks(std::string text) {
    std::erase(text, ' ');
    return text;
}

/// The best seconds of both sides, which take turns.
struct Pair {
    double Ours = std::numeric_limits<double>::max();
    double Lua = std::numeric_limits<double>::max();

    void Add(double ours, double lua) {
        Ours = std::min(Ours, ours);
        Lua = std::min(Lua, lua);
    }
};

void Print(std::string_view name, const Pair& seconds) {
    std::printf(
        "%-40.*s %8.3f %8.3f %8.2f\n",
        static_cast<int>(name.size()),
        name.data(),
        seconds.Ours,
        seconds.Lua,
        seconds.Ours / seconds.Lua);
    std::fflush(stdout);
}

void Compare(const ScriptProgram& program) {
    BasicScript ours{std::string(program.Basic)};
    LuaScript lua{std::string(program.Lua)};
    Pair best;
    for (int round = 0; round < kRounds; ++round) {
        std::string ourResult;
        std::string luaResult;
        const double ourSeconds = SecondsOf([&] { ourResult = ours.Run("Main"); });
        const double luaSeconds = SecondsOf([&] { luaResult = lua.Run("Main"); });
        if (WithoutBlanks(ourResult) != luaResult) {
            Fail(std::string(program.Name) + ": " + ourResult + " is not " + luaResult);
        }
        best.Add(ourSeconds, luaSeconds);
    }
    Print(program.Name, best);
}

/// One million calls from the host of a dispatcher with 150 cases; beside it the same work in a loop of
/// the script without a dispatcher, so that the difference is what a dispatched call costs.
void CompareDispatchers() {
    const std::string ourText = DispatcherInBasic(kDispatcherCalls);
    const std::string luaText = DispatcherInLua(kDispatcherCalls);
    BasicScript ours(ourText);
    LuaScript lua(luaText);
    ScriptHandler handler = ours.Handler("Sub RunScript(ByVal Number As Long)");
    if (!handler.IsReady()) {
        Fail("the dispatcher was not found");
    }
    Pair dispatched;
    Pair direct;
    const auto numberOf = [](int call) {
        return call % kDispatcherCases + 1;
    };
    for (int round = 0; round < kRounds; ++round) {
        ours.Run("Reset");
        lua.Run("Reset");
        dispatched.Add(
            SecondsOf([&] {
                for (int call = 0; call < kDispatcherCalls; ++call) {
                    const Value number = Value::Long(numberOf(call));
                    handler.Call({&number, 1});
                }
            }),
            SecondsOf([&] {
                for (int call = 0; call < kDispatcherCalls; ++call) {
                    lua.CallWithNumber("RunScript", numberOf(call));
                }
            }));
        if (WithoutBlanks(ours.Run("Hits")) != lua.Run("Hits")) {
            Fail("the dispatchers do not agree");
        }
        direct.Add(SecondsOf([&] { ours.Run("Direct"); }), SecondsOf([&] { lua.Run("Direct"); }));
    }
    Print("RunScript, 1,000,000 calls", dispatched);
    Print("the same work without a dispatcher", direct);
    const auto cost = [](double with, double without) {
        return (with - without) / kDispatcherCalls * 1e9;
    };
    std::printf(
        "a call of the dispatcher beyond the script's own work: %.0f ns (Lua: %.0f ns)\n",
        cost(dispatched.Ours, direct.Ours),
        cost(dispatched.Lua, direct.Lua));
}

}  // namespace

int main(int argumentCount, char** arguments) {
    const std::string_view wanted = argumentCount > 1 ? arguments[1] : "";
    std::printf("%-40s %8s %8s %8s\n", "CPU seconds, best of five", "Dorvik", "Lua", "ratio");
    for (const auto programs : {kScriptPrograms, kTextPrograms, kEverydayPrograms}) {
        for (const ScriptProgram& program : programs) {
            if (program.Name.find(wanted) != std::string_view::npos) {
                Compare(program);
            }
        }
    }
    if (std::string_view("RunScript").find(wanted) != std::string_view::npos) {
        CompareDispatchers();
    }
}
