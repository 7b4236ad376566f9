#pragma once

#include "ReviewRun.h"
#include "rulebase/catalogue/ObjectType.h"
#include "rulebase/model/CodingConvention.h"
#include "rulebase/model/NamingConvention.h"
#include "rulebase/model/Rulebase.h"
#include "rulebase/model/UnauthorisedKeyword.h"

#include <string>
#include <vector>

namespace dorvik::test {

/// A whole review of one project with a rulebase that the test fills in. All kinds of rule are on.
class RulesInReview {
public:
    RulesInReview();

    ReviewRun& Review() { return m_run; }
    dorvik::Rulebase& Rules() { return m_rulebase; }

    /// A coding convention for those events; its number is 5000 and up.
    CodingConvention& AddCoding(
        const std::string& title,
        const std::vector<std::int32_t>& events,
        const std::string& script,
        std::int32_t endEvent = -1);
    /// A naming convention on "Name" for that kind of object.
    NamingConvention& AddNaming(const std::string& title, ObjectType object);
    /// The same with a body of at least so many characters; with enough of them each object of the kind is reported.
    NamingConvention&
    AddLeastLength(const std::string& title, ObjectType object, std::int16_t length);

    /// An unauthorised keyword.
    UnauthorisedKeyword& AddKeyword(
        const std::string& title,
        const std::string& pattern,
        const std::vector<std::int32_t>& events = {10, 28, 30});

    /// Reviews the modules, given as "name=text", in their order.
    SliceResult Run(const std::vector<std::string>& modules);
    /// The same for a project file of the test's own, named P.
    SliceResult RunProject(const std::string& projectLines);

    std::vector<std::string> Titles() { return m_run.Query("P", "SELECT Title FROM Violations"); }
    std::vector<std::string> Query(const std::string& sql) { return m_run.Query("P", sql); }
    std::vector<std::string> Log() { return m_run.Log("P"); }

private:
    ReviewRun m_run;
    dorvik::Rulebase m_rulebase;
};

/// A script whose main procedure has these lines.
std::string Script(const std::string& body);

/// A part of the prefix or suffix of a naming convention.
PrefixSuffixItem Item(PrefixSuffixType type, std::string value = {});

/// Makes the prefix or suffix active, with these parts.
void Fill(NameAffix& affix, const std::vector<PrefixSuffixItem>& items);

/// Gives the row of a table of tags its value; a row that is not there is added.
void SetTag(TagTable& tags, const std::string& row, const std::string& value);

/// Reviews a project P of one form, frmA.
void RunForm(RulesInReview& review, const std::string& text);

/// The advice of all violations.
std::vector<std::string> AdviceOf(RulesInReview& review);

}  // namespace dorvik::test
