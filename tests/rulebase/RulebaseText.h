#pragma once

#include <string>

namespace dorvik::test {

/// The text of a small rulebase file, section by section, for tests that change one of them.
struct RulebaseText {
    std::string SchemaVersion = "6.2";
    std::string Properties =
        R"(<RulebaseProperties Name="Team rules" Version="1.0.0003" AutoIncrementVersion="True" Description="" UnknownControlViolation="False" UseCTagsAsDTTags="False" ToleranceCount="-1|-1|-1|-1|-1|-1" ToleranceImpact="-1|-1|-1|-1|-1|-1" TolerancePercentageComments="-1" ToleranceCyclomaticComplexity="-1" ArrayTag="a"/>)";
    std::string ControlTags = "<ControlTags/>";
    std::string DataTypeTags = "<DataTypeTags/>";
    std::string ScopeTags = "<ScopeTags/>";
    std::string DefaultViolations =
        R"(<DefaultViolations><ViolationItem Advice="" CategoryID="-1" Description="" Impact="900" SeverityLevel="1"/></DefaultViolations>)";
    std::string Categories =
        R"(<CategoryList LastID="1"><CategoryItem ID="1" Title="Layout" Description="" Hidden="False"/></CategoryList>)";
    std::string Severities =
        R"(<SeverityList><SeverityItem Colour="255" Description="" Impact="900" SeverityLevel="1" SeverityLevelText="Top" Title="Fatal"/></SeverityList>)";
    std::string Components = "<AuthorisedComponents/>";
    std::string References = "<AuthorisedReferences/>";
    std::string Keywords = "<UnauthorisedKeywords/>";
    std::string LastRuleID = "5000";
    std::string Coding = "<CodingConventions/>";
    std::string Naming = "<NamingConventions/>";
    std::string Report = "<Report/>";

    std::string Text() const {
        return "<Dorvik_Rulebase SchemaVersion=\"" + SchemaVersion + "\">\n" + Properties +
               ControlTags + DataTypeTags + ScopeTags + DefaultViolations + Categories +
               Severities + Components + References + Keywords + "\n<Rules LastRuleID=\"" +
               LastRuleID + "\">" + Coding + Naming + "</Rules>" + Report +
               "\n</Dorvik_Rulebase>\n";
    }
};

/// The child that every rule has.
inline std::string ViolationElement(int severity = 3, int category = 1) {
    return R"(<ViolationDefinition Name="Bad" Description="Text" SeverityLevel=")" +
           std::to_string(severity) + R"(" Impact="500" CategoryID=")" + std::to_string(category) +
           R"(" Advice="Change it."/>)";
}

inline std::string KeywordElement(
    const std::string& ruleID,
    int severity = 3,
    int category = 1,
    const std::string& events = "30",
    const std::string& active = "True") {
    return R"(<UnauthorisedKeyword RuleID=")" + ruleID + R"(" RuleActive=")" + active +
           R"(" Title="No Stop" Description="" Condition="\bStop\b" ParserEventID=")" + events +
           "\">" + ViolationElement(severity, category) + "</UnauthorisedKeyword>";
}

inline std::string CodingElement(const std::string& ruleID, int severity = 3) {
    return R"(<CodingConvention RuleID=")" + ruleID +
           R"(" RuleActive="True" Title="Coding" Description="" PendingViolation="True" EndEventID="34" Condition="a = 1%CRLF%b = 2" ParserEventID="28|30">)" +
           ViolationElement(severity) + "</CodingConvention>";
}

/// `prefixItems` are the elements in `PrefixItems`.
inline std::string NamingElement(
    const std::string& ruleID, const std::string& prefixItems, const std::string& prefixActive) {
    return R"(<NamingConvention RuleID=")" + ruleID +
           R"(" RuleActive="True" CaseSensitive="False" Title="Text boxes" Description="" ObjectType="6" PropertyType="2" PropertyName="Name" Condition="" ExclusionList=" Main;Test " PrefixActive=")" +
           prefixActive +
           R"(" PrefixAdvice="p" BodyActive="True" BodyPattern="[A-Z].*" BodyMaxLength="30" BodyMinLength="3" BodyAdvice="b" SuffixActive="False" SuffixAdvice="s">)" +
           "<PrefixItems>" + prefixItems + "</PrefixItems>" + ViolationElement() +
           "</NamingConvention>";
}

/// A file with something in every section, one element a line. All of its numbers and flags are
/// such that only the rows meant to be numbers and flags look like them.
inline RulebaseText FullRulebaseText() {
    RulebaseText text;
    text.ControlTags =
        "<ControlTags>\n"
        R"(<ControlTag TagName="My.Grid" TagValue="grd" TagDescription="d" TagExample="e"/>)"
        "\n</ControlTags>\n";
    text.DataTypeTags = "<DataTypeTags>\n"
                        R"(<DataTypeTag TagName="String" TagValue="str" TagExample="e"/>)"
                        "\n</DataTypeTags>\n";
    text.ScopeTags = "<ScopeTags>\n"
                     R"(<ScopeTag TagName="Local" TagValue="l" TagExample="e"/>)"
                     "\n</ScopeTags>\n";
    text.Severities =
        "<SeverityList>\n"
        R"(<SeverityItem Colour="255" Description="" Impact="900" SeverityLevel="6" SeverityLevelText="Top" Title="Fatal"/>)"
        "\n</SeverityList>\n";
    text.Components =
        "<AuthorisedComponents>\n"
        R"(<AuthorisedComponent Advice="a" Filename="a.ocx" LibID="{A}" VersionList="1.0"/>)"
        "\n</AuthorisedComponents>\n";
    text.References =
        "<AuthorisedReferences>\n"
        R"(<AuthorisedReference Advice="a" Description="d" Filename="b.dll" LibID="{B}" VersionList="2.0"/>)"
        "\n</AuthorisedReferences>\n";
    text.Keywords =
        "<UnauthorisedKeywords>\n" + KeywordElement("5000") + "\n</UnauthorisedKeywords>\n";
    text.LastRuleID = "5002";
    text.Coding = "<CodingConventions>\n" + CodingElement("5001") + "\n</CodingConventions>\n";
    text.Naming = "<NamingConventions>\n" +
                  NamingElement("5002", R"(<PrefixItem PSType="1" PSValue="txt"/>)", "True") +
                  "\n</NamingConventions>\n";
    text.Report =
        "<Report>\n"
        R"(<Section SectionType="Category" CategoryID="1" CategoryRuleList="5000|5001"/>)"
        "\n"
        R"(<Section SectionType="Table" TableKey="k" TableText="t" TableTitle="h" TableType="3"/>)"
        "\n</Report>\n";
    return text;
}

}  // namespace dorvik::test
