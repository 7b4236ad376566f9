#include "BenchmarkRules.h"

#include "foundation/text/modHtmlText.h"

#include <array>

namespace dorvik {

namespace {

using Kind = BenchmarkRule::Kind;

// Each script reads a property or two and leaves early, as scripts do that run at every statement.
constexpr std::string_view kStatementStart =
    "Sub Main()\n"
    "    Dim sLine As String\n"
    "    Dorvik.GetObjectProperty \"Source\", \"StrippedStatement\", sLine\n"
    "    If Left$(sLine, 9) = \"On Error \" Then\n"
    "        If InStr(sLine, \"GoTo #\") > 0 Then Dorvik.RaiseViolation\n"
    "    End If\n"
    "End Sub\n";
constexpr std::string_view kStatementSearch =
    "Sub Main()\n"
    "    Dim sLine As String\n"
    "    Dorvik.GetObjectProperty \"Source\", \"StrippedStatement\", sLine\n"
    "    If InStr(1, sLine, \"rs#.Open\", vbTextCompare) > 0 Then Dorvik.RaiseViolation\n"
    "End Sub\n";
constexpr std::string_view kStatementState =
    "Sub Main()\n"
    "    Dim sLine As String, vOpen As Variant\n"
    "    Dorvik.GetObjectProperty \"Source\", \"StrippedStatement\", sLine\n"
    "    Select Case Left$(sLine, 4)\n"
    "        Case \"For \", \"With\"\n"
    "            Dorvik.GetObjectWorkField \"Procedure\", \"Open#\", vOpen\n"
    "            Dorvik.SetObjectWorkField \"Procedure\", \"Open#\", Val(vOpen) + 1\n"
    "    End Select\n"
    "End Sub\n";
constexpr std::string_view kProcedureFacts =
    "Sub Main()\n"
    "    Dim nArguments As Long, sScope As String\n"
    "    Dorvik.GetObjectProperty \"Procedure\", \"ArgumentCount\", nArguments\n"
    "    If nArguments < 9# Then Exit Sub\n"
    "    Dorvik.GetObjectProperty \"Procedure\", \"Scope\", sScope\n"
    "    If sScope = \"Public\" Then Dorvik.RaiseViolation\n"
    "End Sub\n";
constexpr std::string_view kProcedureName =
    "Sub Main()\n"
    "    Dim sName As String\n"
    "    Dorvik.GetObjectProperty \"Procedure\", \"Name\", sName\n"
    "    If Len(sName) > 4# Then Dorvik.RaiseViolation\n"
    "End Sub\n";
constexpr std::string_view kDataType =
    "Sub Main()\n"
    "    Dim sType As String\n"
    "    Dorvik.GetObjectProperty \"{object}\", \"DataType\", sType\n"
    "    If StrComp(sType, \"Forbidden#\", vbTextCompare) = 0 Then Dorvik.RaiseViolation\n"
    "End Sub\n";
constexpr std::string_view kObjectName =
    "Sub Main()\n"
    "    Dim sName As String\n"
    "    Dorvik.GetObjectProperty \"{object}\", \"Name\", sName\n"
    "    If sName Like \"*Temp#x*\" Then Dorvik.RaiseViolation\n"
    "End Sub\n";

struct CodingFamily {
    std::string_view Place;
    int Event;
    std::string_view Object;
    std::string_view Script;
    int Count;
};
constexpr std::array<CodingFamily, 18> kCodingFamilies{{
    {"Procedure body", 30, "Source", kStatementStart, 6},
    {"Procedure body", 30, "Source", kStatementSearch, 5},
    {"Procedure body", 30, "Source", kStatementState, 3},
    {"Source line", 4, "Source", kStatementSearch, 1},
    {"Procedure begins", 28, "Procedure", kProcedureFacts, 5},
    {"Procedure begins", 28, "Procedure", kProcedureName, 5},
    {"Procedure ends", 34, "Procedure", kProcedureFacts, 4},
    {"Declaration", 10, "Source", kStatementSearch, 5},
    {"Module variable", 25, "Variable", kDataType, 3},
    {"Module variable", 25, "Variable", kObjectName, 2},
    {"Local variable", 33, "Variable", kDataType, 3},
    {"Local variable", 33, "Variable", kObjectName, 2},
    {"Argument", 29, "Argument", kDataType, 4},
    {"Declare", 12, "Declare", kObjectName, 3},
    {"Control", 7, "Control", kObjectName, 3},
    {"Constant", 11, "Const", kObjectName, 2},
    {"File begins", 3, "File", kObjectName, 2},
    {"File ends", 35, "File", kObjectName, 2},
}};

struct NamingFamily {
    std::string_view Place;
    int ObjectType;
    bool TypedPrefix;  // scope, array and data type, otherwise a body alone
    int Count;
};
constexpr std::array<NamingFamily, 13> kNamingFamilies{{
    {"Private variable", 30, true, 3},
    {"Public variable", 29, true, 2},
    {"Local variable", 31, true, 3},
    {"Argument of a procedure", 20, true, 3},
    {"Procedure", 17, false, 5},
    {"Function", 46, false, 3},
    {"Property", 45, false, 3},
    {"Constant", 26, false, 3},
    {"Enumeration", 9, false, 3},
    {"Enumeration element", 10, false, 3},
    {"Type element", 25, false, 3},
    {"Control", 6, false, 3},
    {"File", 12, false, 3},
}};

constexpr std::array<std::string_view, 10> kKeywordPatterns{
    R"(^GoSub{n}\b)",
    R"(\bResume{n}$)",
    R"(\bCallByName{n}\()",
    R"(^Erase{n}\s+\w+)",
    R"(^Set{n}\s.*\bNew)",
    R"(\bShell{n}\s*\()",
    R"(^Open{n}\s.+\sFor)",
    R"(\bCreateObject{n}\()",
    R"(^ReDim{n}\s)",
    R"((^|[^.\w])Format{n}\()",
};

std::string Replaced(std::string_view text, std::string_view what, std::string_view with) {
    std::string result(text);
    for (std::size_t at = 0; (at = result.find(what, at)) != std::string::npos; at += with.size()) {
        result.replace(at, what.size(), with);
    }
    return result;
}

std::string Definition(int number) {
    const std::string name = "Rule " + std::to_string(number);
    return "<ViolationDefinition Name=\"" + name +
           R"(" SeverityLevel="3" Impact="100" CategoryID="-1")" +
           R"( Description="%File.Name% line %Source.LineNumber%" Advice="Change it."/>)";
}

std::string Head(std::string_view element, int number) {
    const std::string text = std::to_string(number);
    return "<" + std::string(element) + " RuleID=\"" + text +
           R"(" RuleActive="True" Title="Rule )" + text + R"(" Description="")";
}

std::string Coding(const CodingFamily& family, int number, int variant) {
    std::string script = Replaced(family.Script, "#", std::to_string(variant));
    script = Replaced(script, "{object}", family.Object);
    return Head("CodingConvention", number) +
           R"( PendingViolation="False" EndEventID="-1" ParserEventID=")" +
           std::to_string(family.Event) + "\" Condition=\"" +
           Replaced(modHtmlText::Escape(script), "\n", "%CRLF%") + "\">" + Definition(number) +
           "</CodingConvention>\n";
}

std::string Naming(const NamingFamily& family, int number) {
    const std::string prefix = family.TypedPrefix ? "True" : "False";
    const std::string items =
        family.TypedPrefix
            ? R"(<PrefixItems><PrefixItem PSType="1" PSValue="[a-z_]*"/><PrefixItem PSType="6")"
              R"( PSValue=""/></PrefixItems>)"
            : "";
    return Head("NamingConvention", number) +
           R"( CaseSensitive="True" PropertyType="0" PropertyName="Name" Condition="" ExclusionList="Err;Main")" +
           " ObjectType=\"" + std::to_string(family.ObjectType) + "\" PrefixActive=\"" + prefix +
           R"(" PrefixAdvice="" BodyActive="True" BodyPattern="^[A-Za-z_0-9\(\)]*$" BodyMaxLength="60")" +
           R"( BodyMinLength="0" BodyAdvice="" SuffixActive="False" SuffixAdvice="">)" + items +
           Definition(number) + "</NamingConvention>\n";
}

std::string Keyword(std::string_view pattern, int number, int variant) {
    const std::string condition =
        Replaced(pattern, "{n}", variant == 0 ? std::string() : std::to_string(variant));
    return Head("UnauthorisedKeyword", number) + R"( ParserEventID="10|28|30" Condition=")" +
           modHtmlText::Escape(condition) + "\">" + Definition(number) + "</UnauthorisedKeyword>\n";
}

std::string RulesOf(
    Kind kind,
    const std::vector<BenchmarkRule>& rules,
    const std::function<bool(const BenchmarkRule&)>& isWanted) {
    std::string xml;
    for (const BenchmarkRule& rule : rules) {
        if (rule.RuleKind == kind && isWanted(rule)) {
            xml += rule.Xml;
        }
    }
    return xml;
}

}  // namespace

std::vector<BenchmarkRule> BenchmarkRules() {
    constexpr int kVariantsOfAKeyword = 5;
    int number = 5000;
    std::vector<BenchmarkRule> rules;
    for (const CodingFamily& family : kCodingFamilies) {
        for (int variant = 1; variant <= family.Count; ++variant) {
            rules.push_back(
                {Kind::Coding, std::string(family.Place), Coding(family, number++, variant)});
        }
    }
    for (const NamingFamily& family : kNamingFamilies) {
        for (int variant = 1; variant <= family.Count; ++variant) {
            rules.push_back({Kind::Naming, std::string(family.Place), Naming(family, number++)});
        }
    }
    for (const std::string_view pattern : kKeywordPatterns) {
        for (int variant = 0; variant < kVariantsOfAKeyword; ++variant) {
            rules.push_back(
                {Kind::Keyword, "Statements and first lines", Keyword(pattern, number++, variant)});
        }
    }
    return rules;
}

std::string BenchmarkRulebase(
    const std::string& emptyRulebase,
    const std::vector<BenchmarkRule>& rules,
    const std::function<bool(const BenchmarkRule&)>& isWanted) {
    constexpr std::array<std::pair<Kind, std::string_view>, 3> kLists{{
        {Kind::Keyword, "UnauthorisedKeywords"},
        {Kind::Coding, "CodingConventions"},
        {Kind::Naming, "NamingConventions"},
    }};
    std::string text = emptyRulebase;
    for (const auto& [kind, element] : kLists) {
        const std::string name(element);
        text = Replaced(
            text,
            "<" + name + "/>",
            "<" + name + ">\n" + RulesOf(kind, rules, isWanted) + "</" + name + ">");
    }
    return text;
}

}  // namespace dorvik
