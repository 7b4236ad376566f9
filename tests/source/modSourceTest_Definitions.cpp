#include "RandomText.h"
#include "base/modTextCase.h"
#include "source/modSource.h"
#include "support/CapturedLog.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace dorvik {

namespace {

struct Recogniser {
    std::string_view Name;
    bool (*Recognises)(std::string_view line);
    std::vector<std::string_view> Prefixes;
};

const std::vector<Recogniser>& Recognisers() {
    static const std::vector<Recogniser> rows = {
        {"IsSubDef",
         modSource::IsSubDef,
         {"PRIVATE STATIC SUB ",
          "FRIEND STATIC SUB ",
          "PUBLIC STATIC SUB ",
          "PRIVATE SUB ",
          "STATIC SUB ",
          "FRIEND SUB ",
          "PUBLIC SUB ",
          "SUB "}},
        {"IsFunctionDef",
         modSource::IsFunctionDef,
         {"PRIVATE STATIC FUNCTION ",
          "FRIEND STATIC FUNCTION ",
          "PUBLIC STATIC FUNCTION ",
          "PRIVATE FUNCTION ",
          "STATIC FUNCTION ",
          "FRIEND FUNCTION ",
          "PUBLIC FUNCTION ",
          "FUNCTION "}},
        {"IsPropertyDef",
         modSource::IsPropertyDef,
         {"PRIVATE STATIC PROPERTY ",
          "FRIEND STATIC PROPERTY ",
          "PUBLIC STATIC PROPERTY ",
          "PRIVATE PROPERTY ",
          "STATIC PROPERTY ",
          "FRIEND PROPERTY ",
          "PUBLIC PROPERTY ",
          "PROPERTY "}},
        {"IsProcedureDefinitionEnd",
         modSource::IsProcedureDefinitionEnd,
         {"END PROPERTY", "END FUNCTION", "END SUB"}},
        {"IsEnumDefEnd", modSource::IsEnumDefEnd, {"END ENUM"}},
        {"IsTypeDefEnd", modSource::IsTypeDefEnd, {"END TYPE"}},
        {"IsConstDef",
         modSource::IsConstDef,
         {"PRIVATE CONST ", "GLOBAL CONST ", "PUBLIC CONST ", "CONST "}},
        {"IsVariableDef",
         modSource::IsVariableDef,
         {"PRIVATE ", "GLOBAL ", "PUBLIC ", "STATIC ", "DIM "}},
        {"IsEventDef",
         [](std::string_view line) { return modSource::IsEventDef(line).has_value(); },
         {"PUBLIC EVENT ", "EVENT "}},
        {"IsEnumDef",
         [](std::string_view line) { return modSource::IsEnumDef(line).has_value(); },
         {"PRIVATE ENUM ", "PUBLIC ENUM ", "ENUM "}},
        {"IsTypeDef",
         [](std::string_view line) { return modSource::IsTypeDef(line).has_value(); },
         {"PRIVATE TYPE ", "PUBLIC TYPE ", "TYPE "}},
        {"IsImplementsStatement",
         [](std::string_view line) { return modSource::IsImplementsStatement(line).has_value(); },
         {"IMPLEMENTS "}},
    };
    return rows;
}

/// The keyword test in its plain form.
bool BeginsWithOneOf(std::string_view line, const std::vector<std::string_view>& prefixes) {
    const std::string text = modTextCase::ToUpper(modSource::StripTabsAndComment(line));
    bool begins = false;
    for (const std::string_view prefix : prefixes) {
        begins = begins || modTextCase::StartsWith(text, prefix);
    }
    return begins;
}

std::string ProcedureText(std::string_view line) {
    const auto procedure = modSource::IsProcedureDefinition(line);
    if (!procedure) {
        return "none";
    }
    return procedure->ProcedureType + "|" + procedure->Name + "|" + procedure->Scope + "|" +
           (procedure->IsStatic ? "static" : "");
}

std::string DeclareText(std::string_view line) {
    const auto declared = modSource::IsDeclareStatement(line);
    if (!declared) {
        return "none";
    }
    return declared->Scope + "|" + declared->ProcedureType + "|" + declared->Name + "|" +
           declared->Library + "|" + declared->Alias;
}

std::string ArgumentText(std::string_view definition) {
    modSource::ArgumentInfo info{"as", 77, "it was"};
    modSource::ExtractArgumentInfoFromDef(definition, info);
    return info.ArgumentList + "|" + std::to_string(info.ArgumentCount) + "|" + info.ReturnType;
}

struct DefinitionRow {
    std::string_view Line;
    std::string_view Expected;
};

}  // namespace

TEST(modSourceDefinitions, EachTextOfEachKeywordTableIsRecognised) {
    for (const Recogniser& recogniser : Recognisers()) {
        for (const std::string_view prefix : recogniser.Prefixes) {
            SCOPED_TRACE(std::string(recogniser.Name) + ": " + std::string(prefix));
            const std::string line = std::string(prefix) + "x";
            EXPECT_TRUE(recogniser.Recognises(line));
            EXPECT_TRUE(recogniser.Recognises(modTextCase::ToLower(line)));
            EXPECT_TRUE(recogniser.Recognises(" \t " + line + " ' note"));
            EXPECT_FALSE(recogniser.Recognises("x" + line));
            EXPECT_FALSE(recogniser.Recognises(" \t \t" + line));
            const bool endsInBlank = prefix.back() == ' ';
            EXPECT_EQ(recogniser.Recognises(prefix), !endsInBlank);
            EXPECT_EQ(recogniser.Recognises(std::string(prefix) + "' note"), !endsInBlank);
        }
    }
}

TEST(modSourceDefinitions, RecognisersAgreeWithTheirPlainFormOnLinesOfChance) {
    RandomText random;
    for (int i = 0; i < 30000; ++i) {
        const std::string line = i % 8 == 0 ? random.Bytes(random.Number(30))
                                            : random.Pieces(kSourcePieces, random.Number(9));
        for (const Recogniser& recogniser : Recognisers()) {
            EXPECT_EQ(recogniser.Recognises(line), BeginsWithOneOf(line, recogniser.Prefixes))
                << recogniser.Name << ": " << line;
        }
        ProcedureText(line);
    }
}

TEST(modSourceDefinitions, DefinitionsOfChanceAreCutWithoutHarm) {
    const test::CapturedLog log;
    RandomText random;
    for (int i = 0; i < 400; ++i) {
        const std::string line =
            "Declare " + (i % 4 == 0 ? random.Bytes(random.Number(30))
                                     : random.Pieces(kSourcePieces, random.Number(12)));
        DeclareText(line);
        ArgumentText(line);
        modSource::ScopeFromDef(line);
    }
}

TEST(modSourceDefinitions, TruncatedDefinitionsAreCutWithoutHarm) {
    const test::CapturedLog log;
    const std::string line =
        "Public Declare Function F Lib \"k\" Alias \"G\" (ByVal a As Long) As Long()";
    for (std::size_t length = 0; length <= line.size(); ++length) {
        DeclareText(line.substr(0, length));
        ArgumentText(line.substr(0, length));
    }
    EXPECT_EQ(DeclareText(line), "Public|Function|F|k|G");
    EXPECT_EQ(ArgumentText(line), "ByVal a As Long|1|Long()");
}

TEST(modSourceDefinitions, ProcedureDefinitionGivesItsParts) {
    const std::vector<DefinitionRow> rows = {
        {"Sub F()", "Sub|F||"},
        {"Public Sub F(a)", "Sub|F|Public|"},
        {"Private Static Sub F()", "Sub|F|Private|static"},
        {"Static Function F() As Long", "Function|F||static"},
        {"Friend Function F$(a, b)", "Function|F$|Friend|"},
        {"friend property SET F(o)", "property SET|F|Friend|"},
        {"Property Let F(v As Long)", "Property Let|F||"},
        {"Sub Static_F()", "Sub|Static_F||"},
        {"Sub F", "Sub|F||"},
        {"Sub F ' note",
         "Sub|F ' note|"
         "|"},
        {"Sub \xC3\x89tat()", "Sub|\xC3\x89tat||"},
        {"\tSub F ()", "Sub|F||"},
        {"Dim F()", "none"},
        {"End Sub", "none"},
    };
    for (const DefinitionRow& row : rows) {
        EXPECT_EQ(ProcedureText(row.Line), row.Expected) << row.Line;
    }
}

TEST(modSourceDefinitions, PropertyGetHasItsTypeAndName) {
    EXPECT_EQ(ProcedureText("Property Get Value() As Long"), "Property Get|Value||");
}

TEST(modSourceDefinitions, FirstSubInTheLineIsTheKeyword) {
    EXPECT_EQ(ProcedureText("Private Sub Submit()"), "Sub|Submit|Private|");
}

TEST(modSourceDefinitions, KeywordWithNothingBehindIsNoDefinition) {
    EXPECT_EQ(ProcedureText("Public Sub"), "none");
    EXPECT_EQ(ProcedureText("Public Sub "), "none");
    EXPECT_EQ(ProcedureText("Public Sub ' note"), "none");
}

TEST(modSourceDefinitions, EndIsRecognisedByItsFirstCharactersOnly) {
    EXPECT_TRUE(modSource::IsProcedureDefinitionEnd("End Subroutine"));
    EXPECT_TRUE(modSource::IsProcedureDefinitionEnd("End Sub' note"));
    EXPECT_FALSE(modSource::IsProcedureDefinitionEnd("End  Sub"));
}

TEST(modSourceDefinitions, VariableTestTakesEveryScopeWordButFriend) {
    EXPECT_TRUE(modSource::IsVariableDef("Private Enum E"));
    EXPECT_TRUE(modSource::IsVariableDef("Public Sub F()"));
    EXPECT_FALSE(modSource::IsVariableDef("Friend x As Long"));
}

TEST(modSourceDefinitions, ScopeIsTheFirstWord) {
    const std::vector<DefinitionRow> rows = {
        {"Private x", "Private"},
        {"PUBLIC x", "Public"},
        {"\t global x", "Global"},
        {"friend sub x()", "Friend"},
        {"Static Sub x()", ""},
        {"Sub x()", ""},
        {"Privately x", ""},
    };
    for (const DefinitionRow& row : rows) {
        EXPECT_EQ(modSource::ScopeFromDef(row.Line), row.Expected) << row.Line;
    }
}

TEST(modSourceDefinitions, ScopeOfATextWithoutABlankIsLoggedAndEmpty) {
    test::CapturedLog log;
    EXPECT_EQ(modSource::ScopeFromDef("Private"), "");
    ASSERT_EQ(log.Lines().size(), 1U);
    EXPECT_NE(log.Lines()[0].find("C_Source::ScopeFromDef"), std::string::npos) << log.Lines()[0];
}

TEST(modSourceDefinitions, EventHasNameAndScope) {
    const auto plain = modSource::IsEventDef("Event Changed(ByVal x As Long)");
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain->Name, "Changed");
    EXPECT_EQ(plain->Scope, "");
    const auto open = modSource::IsEventDef("Public Event Changed ");
    ASSERT_TRUE(open);
    EXPECT_EQ(open->Name, "Changed");
    EXPECT_EQ(open->Scope, "Public");
    EXPECT_FALSE(modSource::IsEventDef("Private Event Changed()"));
}

TEST(modSourceDefinitions, EnumAndTypeNamesAreTheRestOfTheLine) {
    const auto enumeration = modSource::IsEnumDef("Private Enum E ' note");
    ASSERT_TRUE(enumeration);
    EXPECT_EQ(enumeration->Name, "E");
    EXPECT_EQ(enumeration->Scope, "Private");
    const auto type = modSource::IsTypeDef("  Type T and more");
    ASSERT_TRUE(type);
    EXPECT_EQ(type->Name, "T and more");
    EXPECT_EQ(type->Scope, "");
}

TEST(modSourceDefinitions, DeclareStatementIsCutFromTheLeft) {
    const std::vector<DefinitionRow> rows = {
        {"Declare Sub S Lib \"k32\" ()", "|Sub|S|k32|"},
        {"Private Declare Function F Lib \"k32\" Alias \"G\" (a) As Long",
         "Private|Function|F|k32|G"},
        {"Public declare function F lib \"k32\" alias \"G\" ()", "Public|function|F|k32|G"},
        {"Declare Sub Lib Lib \"k32\" ()", "|Sub|Lib|k32|"},
        {"Declare Sub S Lib \"my k32\" ()", "|Sub|S|m|"},
        {"Dim S", "none"},
    };
    for (const DefinitionRow& row : rows) {
        EXPECT_EQ(DeclareText(row.Line), row.Expected) << row.Line;
    }
}

TEST(modSourceDefinitions, DeclareStatementThatCannotBeCutIsLoggedAndIsNone) {
    const std::vector<std::string_view> lines = {
        "Declare Sub",
        "Declare Sub S",
        "Declare Sub S ()",
        "Declare Sub S Lib",
        "Declare Sub S Lib \"k32\"",
        "Declare Sub S Lib   ()",
        "Declare Sub S Lib \"k32\" Alias \"G\"",
    };
    for (const std::string_view line : lines) {
        test::CapturedLog log;
        EXPECT_EQ(DeclareText(line), "none") << line;
        ASSERT_EQ(log.Lines().size(), 1U) << line;
        EXPECT_NE(log.Lines()[0].find("C_Source::IsDeclareStatement"), std::string::npos);
    }
}

TEST(modSourceDefinitions, ImplementsStatementIsDividedAtItsPoint) {
    const auto qualified = modSource::IsImplementsStatement("Implements Lib.IFace ' note");
    ASSERT_TRUE(qualified);
    EXPECT_EQ(qualified->Library, "Lib");
    EXPECT_EQ(qualified->Interface, "IFace");
    const auto plain = modSource::IsImplementsStatement("\tImplements IFace");
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain->Library, "");
    EXPECT_EQ(plain->Interface, "IFace");
}

TEST(modSourceDefinitions, ArgumentInfoGivesListCountAndReturnType) {
    const std::vector<DefinitionRow> rows = {
        {"Sub F()", "|0|"},
        {"Sub F( )", "|0|"},
        {"Sub F(a)", "a|1|"},
        {"Sub F(ByVal a As Long, b())", "ByVal a As Long, b()|2|"},
        {"Sub F(a, v())", "a, v()|2|"},
        {"Function F() As Long", "|0|Long"},
        {"Function F(a, b) as  Long ' note (x)", "a, b|2| Long"},
        {"Function F(v()) As Foo.Bar", "v()|1|Foo.Bar"},
        {"Function F(v()) As Long()", "v()|1|Long()"},
        {"Function F%()", "|0|%"},
        {"Sub F(a As String)  ", "a As String|1|"},
        {"Sub F(a", "a|1|"},
        {"(a, b)", "a, b|2|"},
        {"Sub F(Optional s = \"a)\") As X", "Optional s = \"a)\"|1|X"},
    };
    for (const DefinitionRow& row : rows) {
        EXPECT_EQ(ArgumentText(row.Line), row.Expected) << row.Line;
    }
}

TEST(modSourceDefinitions, ReturnTypeThatIsAnArrayKeepsItsBrackets) {
    EXPECT_EQ(ArgumentText("Public Function Foo() As Long()"), "|0|Long()");
}

TEST(modSourceDefinitions, TypeSuffixInFrontOfTheBracketIsTheReturnType) {
    EXPECT_EQ(ArgumentText("Function Foo$(a, b)"), "a, b|2|$");
}

TEST(modSourceDefinitions, CommaInADefaultValueIsNotCounted) {
    EXPECT_EQ(ArgumentText("Sub F(s = \"a, b\", t)"), "s = \"a, b\", t|2|");
}

TEST(modSourceDefinitions, DefinitionWithoutABracketIsLoggedAndLeavesTheOutputs) {
    test::CapturedLog log;
    EXPECT_EQ(ArgumentText("Event Changed"), "as|77|it was");
    ASSERT_EQ(log.Lines().size(), 1U);
    EXPECT_NE(log.Lines()[0].find("C_Source::ExtractArgumentInfoFromDef"), std::string::npos);
}

TEST(modSourceDefinitions, LettersOutsideAsciiFoldInKeywordsToo) {
    EXPECT_TRUE(modSource::IsVariableDef("D\xC4\xB0M x"));  // a capital I with a dot folds to "i"
    EXPECT_FALSE(modSource::IsVariableDef("D\xC3\x8DM x"));
}

}  // namespace dorvik
