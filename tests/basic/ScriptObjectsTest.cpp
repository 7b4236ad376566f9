#include "BuiltinCalls.h"
#include "basic/library/ErrObject.h"
#include "basic/values/MemoryMeter.h"

#include <gtest/gtest.h>

#include <chrono>

namespace dorvik::basic {

using namespace sample;

namespace {

class ScriptObjects : public testing::Test {
protected:
    static Value New(ObjectClass which) { return NewScriptObject(which); }
    static Value ErrOfContext() { return Value::Object(MakeRef<ErrObject>()); }

    FixedContext m_context;
    RunningScope m_running{m_context};
};

class CollectionObjects : public ScriptObjects {};
class DictionaryObjects : public ScriptObjects {};
class RegExpObjects : public ScriptObjects {};
class ErrObjects : public ScriptObjects {};

}  // namespace

TEST_F(CollectionObjects, HoldsItemsByIndexAndByKey) {
    const Value list = New(ObjectClass::Collection);
    Use(list, "Add", {X("one"), X("First")});
    Use(list, "Add", {X("two")});
    Use(list, "ADD", {I(3), X("third")});
    EXPECT_EQ(Shown(Use(list, "Count")), "Long 3");
    EXPECT_EQ(Shown(Use(list, "Item", {I(1)})), "String one");
    EXPECT_EQ(Shown(Use(list, "Item", {D(2.4)})), "String two");
    EXPECT_EQ(Shown(Use(list, "Item", {X("THIRD")})), "Integer 3");
    EXPECT_EQ(
        Shown(list.AsObject()->Invoke(kDefaultMember, InvokeKind::Get, std::vector{X("first")})),
        "String one");
    EXPECT_EQ(Walked(list), "one two 3");
}

TEST_F(CollectionObjects, RaisesTheErrorsOfTheLanguage) {
    const Value list = New(ObjectClass::Collection);
    Use(list, "Add", {I(1), X("a")});
    EXPECT_EQ(ErrorOf([&] { Use(list, "Item", {I(0)}); }), 9);
    EXPECT_EQ(ErrorOf([&] { Use(list, "Item", {I(2)}); }), 9);
    EXPECT_EQ(ErrorOf([&] { Use(list, "Item", {X("b")}); }), 5);
    EXPECT_EQ(ErrorOf([&] { Use(list, "Remove", {X("b")}); }), 5);
    EXPECT_EQ(ErrorOf([&] { Use(list, "Remove", {I(2)}); }), 9);
    EXPECT_EQ(ErrorOf([&] { Use(list, "Add", {I(2), X("A")}); }), 457);
    EXPECT_EQ(ErrorOf([&] { Use(list, "Add", {I(2), I(5)}); }), 13);
    EXPECT_EQ(ErrorOf([&] { Use(list, "Add", {I(2), Missing(), I(1), I(1)}); }), 5);
    EXPECT_EQ(ErrorOf([&] { Use(list, "Add", {I(2), Missing(), I(9)}); }), 9);
    EXPECT_EQ(ErrorOf([&] { Use(list, "Item"); }), 450);
    EXPECT_EQ(ErrorOf([&] { Use(list, "Add"); }), 449);
    EXPECT_EQ(ErrorOf([&] { Use(list, "Count", {I(1)}); }), 450);
    EXPECT_EQ(ErrorOf([&] { Let(list, "Item", {I(1), I(2)}); }), 451);
    EXPECT_EQ(ErrorOf([&] { Use(list, "Nope"); }), 438);
    EXPECT_EQ(Shown(Use(list, "Count")), "Long 1");
}

TEST_F(CollectionObjects, InsertsBeforeAndAfterAndRemoves) {
    const Value list = New(ObjectClass::Collection);
    Use(list, "Add", {X("b"), X("kb")});
    Use(list, "Add", {X("a"), Missing(), I(1)});
    Use(list, "Add", {X("d"), X("kd"), Missing(), X("KB")});
    Use(list, "Add", {X("c"), Missing(), X("kd")});
    EXPECT_EQ(Walked(list), "a b c d");
    Use(list, "Remove", {X("KB")});
    Use(list, "Remove", {I(1)});
    EXPECT_EQ(Walked(list), "c d");
    Use(list, "Add", {X("e"), X("kb")});
    EXPECT_EQ(Walked(list), "c d e");
}

TEST_F(CollectionObjects, NamesOfParametersAreKnown) {
    const Value list = New(ObjectClass::Collection);
    const int add = list.AsObject()->FindMember("add");
    EXPECT_EQ(list.AsObject()->FindParameter(add, "Before"), 2);
    EXPECT_EQ(list.AsObject()->FindParameter(add, "KEY"), 1);
    EXPECT_EQ(list.AsObject()->FindParameter(add, "x"), -1);
    EXPECT_EQ(list.AsObject()->FindMember("x"), kNoMember);
    EXPECT_EQ(list.AsObject()->FindMember("Item"), kDefaultMember);
}

TEST_F(CollectionObjects, ALongChainOfCollectionsDiesWithoutTheStack) {
    const std::size_t before = MemoryMeter::Current().Used();
    Value chain = New(ObjectClass::Collection);
    for (int i = 0; i < 200'000; ++i) {
        Value next = New(ObjectClass::Collection);
        Use(next, "Add", {chain});
        chain = next;
    }
    chain = Value();
    EXPECT_EQ(MemoryMeter::Current().Used(), before);
}

TEST_F(DictionaryObjects, HoldsItemsByKeysInTheOrderOfInsertion) {
    const Value words = CreateScriptObject("scripting.DICTIONARY");
    Use(words, "Add", {X("b"), I(1)});
    Let(words, "Item", {X("a"), I(2)});
    Let(words, "Item", {X("b"), I(3)});
    EXPECT_EQ(Shown(Use(words, "Count")), "Long 2");
    EXPECT_EQ(ShownWhole(Use(words, "Keys")), "Variant()[b|a]");
    EXPECT_EQ(ShownWhole(Use(words, "Items")), "Variant()[3|2]");
    EXPECT_EQ(Shown(Use(words, "Keys", {I(1)})), "String a");
    EXPECT_EQ(ErrorOf([&] { Use(words, "Items", {I(2)}); }), 9);
    EXPECT_EQ(Shown(Use(words, "Exists", {X("a")})), "Boolean True");
    EXPECT_EQ(Shown(Use(words, "Exists", {X("A")})), "Boolean False");
    EXPECT_EQ(Walked(words), "b a");
}

TEST_F(DictionaryObjects, ReadingAnUnknownKeyAddsIt) {
    const Value words = New(ObjectClass::Dictionary);
    EXPECT_EQ(Shown(Use(words, "Item", {X("new")})), "Empty");
    EXPECT_EQ(Shown(Use(words, "Count")), "Long 1");
}

TEST_F(DictionaryObjects, RaisesTheErrorsOfTheLanguage) {
    const Value words = New(ObjectClass::Dictionary);
    Use(words, "Add", {X("a"), I(1)});
    EXPECT_EQ(ErrorOf([&] { Use(words, "Add", {X("a"), I(1)}); }), 457);
    EXPECT_EQ(ErrorOf([&] { Use(words, "Remove", {X("b")}); }), 32811);
    EXPECT_EQ(ErrorOf([&] { Let(words, "Key", {X("b"), X("c")}); }), 32811);
    EXPECT_EQ(ErrorOf([&] { Use(words, "Add", {A({}), I(1)}); }), 13);
    EXPECT_EQ(ErrorOf([&] { Use(words, "Add", {X("x")}); }), 449);
    EXPECT_EQ(ErrorOf([&] { Use(words, "Item"); }), 450);
    EXPECT_EQ(ErrorOf([&] { Let(words, "Count", {I(1)}); }), 451);
    EXPECT_EQ(ErrorOf([&] { Let(words, "CompareMode", {I(1)}); }), 5);
    EXPECT_EQ(ErrorOf([&] { Let(words, "CompareMode", {I(2)}); }), 5);
}

TEST_F(DictionaryObjects, KeysOfAnySimpleType) {
    const Value table = New(ObjectClass::Dictionary);
    const std::vector<Value> keys = {
        I(1), X("1"), D(1.5), T(3), E(), N(), X(""), table, Value::Error(7)};
    for (std::size_t i = 0; i < keys.size(); ++i) {
        Use(table, "Add", {keys[i], I(static_cast<int>(i))});
    }
    for (std::size_t i = 0; i < keys.size(); ++i) {
        EXPECT_EQ(Use(table, "Item", {keys[i]}).AsLong(), static_cast<int>(i));
    }
    EXPECT_EQ(Shown(Use(table, "Item", {L(1)})), "Integer 0");
    EXPECT_EQ(Shown(Use(table, "Item", {D(1)})), "Integer 0");
    EXPECT_EQ(Shown(Use(table, "Item", {M("1.50")})), "Integer 2");
    EXPECT_EQ(Shown(Use(table, "Exists", {Value::Error(8)})), "Boolean False");
    Use(table, "RemoveAll");
}

TEST_F(DictionaryObjects, CompareModeIgnoresCase) {
    const Value words = New(ObjectClass::Dictionary);
    EXPECT_EQ(Shown(Use(words, "CompareMode")), "Long 0");
    Let(words, "CompareMode", {I(1)});
    Use(words, "Add", {X("Name\u00c4"), I(1)});
    EXPECT_EQ(Shown(Use(words, "Item", {X("nAME\u00e4")})), "Integer 1");
    EXPECT_EQ(Shown(Use(words, "CompareMode")), "Long 1");
}

TEST_F(DictionaryObjects, AKeyCanBeRenamedAndKeepsItsPlace) {
    const Value words = New(ObjectClass::Dictionary);
    for (const std::string_view key : {"a", "b", "c"}) {
        Use(words, "Add", {X(key), X(key)});
    }
    Let(words, "Key", {X("b"), X("x")});
    EXPECT_EQ(Walked(words), "a x c");
    EXPECT_EQ(Shown(Use(words, "Item", {X("x")})), "String b");
    EXPECT_EQ(Shown(Use(words, "Exists", {X("b")})), "Boolean False");
    EXPECT_EQ(ErrorOf([&] { Let(words, "Key", {X("x"), X("a")}); }), 457);
    EXPECT_EQ(ErrorOf([&] { Use(words, "Key", {X("x")}); }), 450);
    for (int i = 0; i < 100; ++i) {
        Let(words, "Key", {X(i % 2 == 0 ? "x" : "y"), X(i % 2 == 0 ? "y" : "x")});
    }
    EXPECT_EQ(Walked(words), "a x c");
}

TEST_F(DictionaryObjects, ManyKeysComeAndGo) {
    const Value table = New(ObjectClass::Dictionary);
    for (int round = 0; round < 3; ++round) {
        for (int i = 0; i < 5000; ++i) {
            Let(table, "Item", {L(i), L(i * 2)});
        }
        for (int i = 0; i < 5000; i += 2) {
            Use(table, "Remove", {L(i)});
        }
        EXPECT_EQ(Shown(Use(table, "Count")), "Long 2500");
    }
    for (int i = 0; i < 5000; ++i) {
        EXPECT_EQ(Use(table, "Exists", {L(i)}).AsBoolean(), i % 2 == 1);
    }
    EXPECT_EQ(Use(table, "Item", {L(4999)}).AsLong(), 9998);
    Use(table, "RemoveAll");
    EXPECT_EQ(Shown(Use(table, "Count")), "Long 0");
}

TEST_F(DictionaryObjects, NumbersThatAreMultiplesOfEachOtherDoNotCrowd) {
    const Value table = New(ObjectClass::Dictionary);
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 400'000; ++i) {
        Let(table, "Item", {L(i), L(i)});
        Let(table, "Item", {D(i * 1024 + 0.5), L(i)});
    }
    EXPECT_EQ(Shown(Use(table, "Count")), "Long 800000");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
}

TEST_F(DictionaryObjects, AWalkSurvivesChanges) {
    const Value table = New(ObjectClass::Dictionary);
    for (int i = 0; i < 10; ++i) {
        Let(table, "Item", {L(i), L(i)});
    }
    const auto walker = table.AsObject()->Iterate();
    std::string seen;
    for (Value key; walker->Next(key);) {
        seen += ToText(key) + " ";
        if (key.AsLong() == 2) {
            Use(table, "Remove", {L(2)});
            Use(table, "Remove", {L(4)});
            for (int i = 100; i < 110; ++i) {
                Let(table, "Item", {L(i), L(i)});
            }
        }
    }
    EXPECT_EQ(seen, "0 1 2 3 5 6 7 8 9 100 101 102 103 104 105 106 107 108 109 ");
    const auto second = table.AsObject()->Iterate();
    Value key;
    EXPECT_TRUE(second->Next(key));
    Use(table, "RemoveAll");
    EXPECT_FALSE(second->Next(key));
}

TEST_F(DictionaryObjects, StopsAtTheMemoryLimit) {
    MemoryMeter& meter = MemoryMeter::Current();
    const std::size_t limit = meter.Limit();
    const Value table = New(ObjectClass::Dictionary);
    meter.SetLimit(meter.Used() + 1'000'000);
    const std::int32_t error = ErrorOf([&] {
        for (int i = 0; i < 1'000'000; ++i) {
            Let(table, "Item", {L(i), L(i)});
        }
    });
    meter.SetLimit(limit);
    EXPECT_EQ(error, 7);
    const std::int32_t count = Use(table, "Count").AsLong();
    EXPECT_GT(count, 1000);
    EXPECT_EQ(Use(table, "Item", {L(count - 1)}).AsLong(), count - 1);
}

TEST_F(RegExpObjects, TestsAndExecutes) {
    const Value expression = CreateScriptObject("vbscript.regexp");
    Let(expression, "Pattern", {X("(\\w)(\\d+)?")});
    EXPECT_EQ(Shown(Use(expression, "Pattern")), "String (\\w)(\\d+)?");
    EXPECT_EQ(Shown(Use(expression, "Test", {X("--a1")})), "Boolean True");
    EXPECT_EQ(Shown(Use(expression, "Test", {X("--")})), "Boolean False");
    Let(expression, "Global", {B(true)});
    const Value matches = Use(expression, "Execute", {X("\u00e4 a12 b")});
    EXPECT_EQ(Shown(Use(matches, "Count")), "Long 2");
    const Value first = Use(matches, "Item", {I(0)});
    EXPECT_EQ(Shown(LetValue(first)), "String a12");
    EXPECT_EQ(Shown(Use(first, "FirstIndex")), "Long 2");
    EXPECT_EQ(Shown(Use(first, "Length")), "Long 3");
    const Value groups = Use(first, "SubMatches");
    EXPECT_EQ(Shown(Use(groups, "Count")), "Long 2");
    EXPECT_EQ(Walked(groups), "a 12");
    EXPECT_EQ(Shown(Use(first, "SubMatches", {I(1)})), "String 12");
    EXPECT_EQ(Shown(Use(Use(matches, "Item", {I(1)}), "SubMatches", {I(1)})), "Empty");
    EXPECT_EQ(ErrorOf([&] { Use(matches, "Item", {I(2)}); }), 5);
    EXPECT_EQ(ErrorOf([&] { Use(groups, "Item", {I(2)}); }), 5);
    EXPECT_EQ(TypeNameOf(matches), "IMatchCollection2");
    EXPECT_EQ(Walked(matches), "a12 b");
}

TEST_F(RegExpObjects, Options) {
    const Value expression = New(ObjectClass::RegExp);
    for (const std::string_view option : {"IgnoreCase", "Global", "Multiline"}) {
        EXPECT_EQ(Shown(Use(expression, option)), "Boolean False");
        Let(expression, option, {I(1)});
        EXPECT_EQ(Shown(Use(expression, option)), "Boolean True");
    }
    Let(expression, "Pattern", {X("^b$")});
    EXPECT_EQ(Shown(Use(Use(expression, "Execute", {X("a\nB\nb")}), "Count")), "Long 2");
}

TEST_F(RegExpObjects, Replaces) {
    const Value expression = New(ObjectClass::RegExp);
    Let(expression, "Pattern", {X("(\\w)(\\d)")});
    EXPECT_EQ(Shown(Use(expression, "Replace", {X("a1 b2"), X("$2$1-$&$$")})), "String 1a-a1$ b2");
    Let(expression, "Global", {B(true)});
    EXPECT_EQ(Shown(Use(expression, "Replace", {X("a1 b2"), X("$2")})), "String 1 2");
}

TEST_F(RegExpObjects, ABadPatternRaisesWhenItIsUsed) {
    struct Row {
        std::string_view Pattern;
        std::int32_t Number;
    };
    const Value expression = New(ObjectClass::RegExp);
    for (const Row& row : {Row{"a)", 5017}, Row{"*a", 5018}, Row{"[a", 5019}, Row{"(a", 5020}}) {
        Let(expression, "Pattern", {X(row.Pattern)});
        EXPECT_EQ(ErrorOf([&] { Use(expression, "Test", {X("a")}); }), row.Number) << row.Pattern;
    }
}

TEST_F(RegExpObjects, HasNoDefaultMember) {
    const Value expression = New(ObjectClass::RegExp);
    EXPECT_EQ(ErrorOf([&] { LetValue(expression); }), 438);
    EXPECT_EQ(
        ErrorOf([&] { expression.AsObject()->Invoke(kDefaultMember, InvokeKind::Get, {}); }), 438);
    EXPECT_EQ(expression.AsObject()->FindMember(""), kNoMember);
}

TEST_F(RegExpObjects, ManyMatchesAndLongReplacementsMeetTheLimits) {
    const Value expression = New(ObjectClass::RegExp);
    Let(expression, "Pattern", {X(".")});
    Let(expression, "Global", {B(true)});
    const Value text = CallBuiltin("String", {L(4'000'000), X("a")});
    EXPECT_EQ(ErrorOf([&] { Use(expression, "Execute", {text}); }), 7);
    EXPECT_EQ(
        ErrorOf([&] {
            Use(expression, "Replace", {text, CallBuiltin("String", {L(1000), X("b")})});
        }),
        14);
    EXPECT_EQ(ErrorOf([&] { Use(expression, "Replace", {text, X("$`")}); }), 14);
    EXPECT_GT(m_context.Breaths, 10);
}

TEST_F(ErrObjects, ReadsAndWritesTheStateOfTheContext) {
    const Value err = ErrOfContext();
    m_context.Error = {5, "Bad", "Module1", "a.hlp", 12};
    EXPECT_EQ(Shown(LetValue(err)), "Long 5");
    EXPECT_EQ(Shown(Use(err, "Number")), "Long 5");
    EXPECT_EQ(Shown(Use(err, "description")), "String Bad");
    EXPECT_EQ(Shown(Use(err, "Source")), "String Module1");
    EXPECT_EQ(Shown(Use(err, "HelpFile")), "String a.hlp");
    EXPECT_EQ(Shown(Use(err, "HelpContext")), "Long 12");
    EXPECT_EQ(Shown(Use(err, "LastDllError")), "Long 0");
    Let(err, "Number", {I(9)});
    Let(err, "Description", {X("Worse")});
    EXPECT_EQ(m_context.Error.Number, 9);
    EXPECT_EQ(m_context.Error.Description, "Worse");
    Use(err, "Clear", {}, InvokeKind::Call);
    EXPECT_EQ(m_context.Error.Number, 0);
    EXPECT_EQ(m_context.Error.Description, "");
    EXPECT_EQ(ErrorOf([&] { Let(err, "LastDllError", {I(1)}); }), 451);
}

TEST_F(ErrObjects, RaisesErrors) {
    const Value err = ErrOfContext();
    const auto raised = [&](std::vector<Value> arguments) -> std::string {
        try {
            Use(err, "Raise", std::move(arguments), InvokeKind::Call);
        } catch (const BasicError& error) {
            return std::to_string(error.Number()) + "|" + error.Source() + "|" + error.what();
        }
        return "nothing";
    };
    EXPECT_EQ(raised({I(11)}), "11||Division by zero");
    EXPECT_EQ(raised({I(1000)}), "1000||Application-defined or object-defined error");
    EXPECT_EQ(raised({I(1000), X("Mine"), X("Text")}), "1000|Mine|Text");
    EXPECT_EQ(
        raised({L(-2147221504 + 7), Missing(), X("Text"), X("a.hlp"), I(3)}), "-2147221497||Text");
    try {
        Use(err, "Raise", {I(7), Missing(), X("Text"), X("a.hlp"), I(3)}, InvokeKind::Call);
        ADD_FAILURE() << "nothing was raised";
    } catch (const RaisedError& error) {
        EXPECT_EQ(error.HelpFile, "a.hlp");
        EXPECT_EQ(error.HelpContext, 3);
    }
    EXPECT_EQ(raised({I(0)}).substr(0, 2), "5|");
    EXPECT_EQ(raised({}).substr(0, 4), "449|");
}

}  // namespace dorvik::basic
