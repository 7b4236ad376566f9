#pragma once

#include "cli/CommandLineFixture.h"
#include "rulebase/RulebaseText.h"

#include <string>

namespace dorvik::test {

/// For the commands of rule authors: a small rulebase "team.dvk" with one rule of each kind.
class RulebaseCommandFixture : public CommandLineFixture {
protected:
    RulebaseCommandFixture() { WriteBytes("team.dvk", Team().Text()); }

    static RulebaseText Team() {
        RulebaseText text;
        text.LastRuleID = "5002";
        text.Keywords =
            "<UnauthorisedKeywords>" + KeywordElement("5000", 2) + "</UnauthorisedKeywords>";
        text.Coding =
            R"(<CodingConventions><CodingConvention RuleID="5001" RuleActive="False" Title="Has a script" Description="" PendingViolation="True" EndEventID="34" Condition="Sub Main()%CRLF%%TAB%x = 1%CRLF%%CRLF%End Sub" ParserEventID="28|30"><ViolationDefinition Name="C" Description="%Procedure.Name%" SeverityLevel="3" Impact="1" CategoryID="-1" Advice=""/></CodingConvention></CodingConventions>)";
        text.Naming =
            R"(<NamingConventions><NamingConvention RuleID="5002" RuleActive="True" CaseSensitive="False" Title="Text boxes" Description="" ObjectType="6" PropertyType="0" PropertyName="Name" Condition="" ExclusionList="Main;Test" PrefixActive="True" PrefixAdvice="p" BodyActive="True" BodyPattern="^[A-Z]" BodyMaxLength="30" BodyMinLength="3" BodyAdvice="b" SuffixActive="False" SuffixAdvice="s"><PrefixItems><PrefixItem PSType="2" PSValue=""/><PrefixItem PSType="1" PSValue="_?"/></PrefixItems>)" +
            ViolationElement(4) + "</NamingConvention></NamingConventions>";
        return text;
    }
};

}  // namespace dorvik::test
