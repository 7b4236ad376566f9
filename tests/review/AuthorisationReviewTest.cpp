#include "RulesInReview.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace dorvik {

namespace {

using test::RulesInReview;
using test::Script;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string kGuid = "{11111111-2222-3333-4444-555555555555}";
const std::string kOther = "{99999999-2222-3333-4444-555555555555}";

/// Every project refers to these, whether its file says so or not.
constexpr const char* kAlwaysThere[] = {
    "{000204EF-0000-0000-C000-000000000046}",
    "{EA544A21-C82D-11D1-A3E4-00A0C90AEA82}",
    "{FCFB3D2E-A0FA-1068-A738-08002B3371B5}"};

/// A review that checks references and allows those of every project.
class ReferenceReview : public RulesInReview {
public:
    ReferenceReview() {
        Review().Criteria().LoadCriteria().SetAuthorisedReferences(true);
        for (const char* guid : kAlwaysThere) {
            Rules().AuthorisedReferences().Add(guid, "", "", "", "");
        }
    }
};

/// A project with one reference of that version.
std::string ProjectWithReference(const std::string& version) {
    return "Type=Exe\nReference=*\\G" + kGuid + "#" + version +
           "#0#C:\\Lib\\Thing.dll#The Thing\nName=\"P\"\n";
}

/// A project with one form that uses one component of that version.
void AddFormWithComponent(RulesInReview& review, const std::string& version) {
    review.Review().AddFile(
        "frmA.frm",
        "VERSION 5.00\nObject = \"" + kGuid + "#" + version +
            "#0\"; \"THING.OCX\"\nBegin VB.Form frmA\nEnd\nAttribute VB_Name = \"frmA\"\n");
}

const std::string kFormProject = "Type=Exe\nName=\"P\"\nForm=frmA.frm\n";

/// Lets a script tell the log what the object in scope says.
void AddAsker(RulesInReview& review, std::int32_t event, const std::string& object) {
    review.AddCoding(
        "Reads",
        {event},
        Script(
            "Dim a, v\r\nDorvik.GetObjectProperty \"" + object +
            "\", \"IsAuthorised\", a\r\n"
            "Dorvik.GetObjectProperty \"" +
            object +
            "\", \"AuthorisedVersions\", v\r\n"
            "Dorvik.DebugPrint \"asked \" & a & \" [\" & v & \"]\""));
}

std::string DefaultTitle(RulesInReview& review, std::int32_t number) {
    return review.Rules().DefaultViolations().Item(number).Title();
}

TEST(AuthorisationReview, AnUnlistedReferenceIsAViolationOfTheProjectFile) {
    ReferenceReview review;
    review.RunProject(ProjectWithReference("1.2"));
    EXPECT_THAT(review.Titles(), ElementsAre("Unauthorised Reference"));
    EXPECT_THAT(review.Query("SELECT RuleType FROM Violations"), ElementsAre("2"));
    EXPECT_THAT(review.Query("SELECT RuleID FROM Violations"), ElementsAre("0"));
    EXPECT_THAT(review.Query("SELECT Loc FROM Violations"), ElementsAre("1"));
    EXPECT_THAT(review.Query("SELECT LocMember FROM Violations"), ElementsAre("(Reference)"));
    EXPECT_THAT(review.Query("SELECT LineNum FROM Violations"), ElementsAre("0"));
}

TEST(AuthorisationReview, AListedReferenceWithABlankVersionListIsAuthorisedInEveryVersion) {
    ReferenceReview review;
    review.Rules().AuthorisedReferences().Add(kGuid, "The Thing", "", "  ", "");
    AddAsker(review, 26, "Reference");
    review.RunProject(ProjectWithReference("7.5"));
    EXPECT_THAT(review.Titles(), IsEmpty());
    EXPECT_THAT(review.Log(), Contains(HasSubstr("asked True []")));
}

TEST(AuthorisationReview, AVersionThatIsNotListedIsAViolationWithTheAdviceOfTheEntry) {
    ReferenceReview review;
    review.Rules().AuthorisedReferences().Add(kGuid, "The Thing", "", "2.0;3.0", "Take 3.0.");
    review.RunProject(ProjectWithReference("1.2"));
    EXPECT_THAT(review.Titles(), ElementsAre("Unauthorised Reference Version"));
    EXPECT_THAT(review.Query("SELECT Advice FROM Violations"), ElementsAre("Take 3.0."));
}

TEST(AuthorisationReview, AVersionCountsAsListedWhereverItsTextOccursInTheList) {
    ReferenceReview review;
    review.Rules().AuthorisedReferences().Add(kGuid, "The Thing", "", "11.2;3.0", "");
    review.RunProject(ProjectWithReference("1.2"));
    EXPECT_THAT(review.Titles(), IsEmpty());
}

TEST(AuthorisationReview, AnEmptyVersionOccursInEveryList) {
    ReferenceReview review;
    review.Review().Criteria().LoadCriteria().SetAuthorisedComponents(true);
    review.Rules().AuthorisedReferences().Add(kGuid, "The Thing", "", "2.0;3.0", "");
    review.Rules().AuthorisedComponents().Add(kGuid, "THING.OCX", "2.0", "");
    AddFormWithComponent(review, "");
    AddAsker(review, 5, "Component");
    review.RunProject(ProjectWithReference("") + "Form=frmA.frm\n");
    EXPECT_THAT(review.Titles(), IsEmpty());
    EXPECT_THAT(review.Log(), Contains(HasSubstr("asked True [2.0]")));
}

TEST(AuthorisationReview, ABlankAdviceOfAnEntryLeavesThatOfTheViolation) {
    ReferenceReview review;
    review.Rules().AuthorisedReferences().Add(kGuid, "The Thing", "", "2.0;3.0", "  ");
    review.Rules().DefaultViolations().Item(4).SetAdvice("Ask %Reference.Filename%.");
    review.RunProject(ProjectWithReference("1.2"));
    EXPECT_THAT(
        review.Query("SELECT Advice FROM Violations"), ElementsAre("Ask C:\\Lib\\Thing.dll."));
}

TEST(AuthorisationReview, WithTheCheckDisabledAReferenceStillHasTheResultOfTheList) {
    RulesInReview review;
    AddAsker(review, 26, "Reference");
    review.RunProject(ProjectWithReference("1.2"));
    EXPECT_THAT(review.Titles(), IsEmpty());
    EXPECT_THAT(review.Log(), Contains(HasSubstr("asked False []")));
}

TEST(AuthorisationReview, TheReferencesOfEveryProjectAreCheckedToo) {
    RulesInReview review;
    review.Review().Criteria().LoadCriteria().SetAuthorisedReferences(true);
    review.RunProject("Type=Exe\nName=\"P\"\n");
    EXPECT_EQ(review.Titles().size(), std::size(kAlwaysThere));
}

TEST(AuthorisationReview, AReferenceOfTheDesignEnvironmentIsNeverListed) {
    ReferenceReview review;
    review.RunProject("Type=Exe\nReference=*\\AOther.vbp\nName=\"P\"\n");
    EXPECT_THAT(review.Titles(), ElementsAre("Unauthorised Reference"));
}

TEST(AuthorisationReview, AnUnlistedComponentIsAViolationOfTheLayout) {
    RulesInReview review;
    review.Review().Criteria().LoadCriteria().SetAuthorisedComponents(true);
    AddFormWithComponent(review, "1.2");
    review.RunProject(kFormProject);
    EXPECT_THAT(review.Titles(), ElementsAre("Unauthorised Component"));
    EXPECT_THAT(review.Query("SELECT RuleType FROM Violations"), ElementsAre("1"));
    EXPECT_THAT(review.Query("SELECT Loc FROM Violations"), ElementsAre("2"));
    EXPECT_THAT(review.Query("SELECT LocMember FROM Violations"), ElementsAre("(Component)"));
}

TEST(AuthorisationReview, AComponentIsFoundByItsFileNameIfItsLibraryIsNotListed) {
    RulesInReview review;
    review.Review().Criteria().LoadCriteria().SetAuthorisedComponents(true);
    review.Rules().AuthorisedComponents().Add(kOther, "thing.ocx", "2.0", "Take 2.0.");
    AddFormWithComponent(review, "1.2");
    AddAsker(review, 5, "Component");
    review.RunProject(kFormProject);
    EXPECT_THAT(review.Titles(), ElementsAre("Unauthorised Component Version"));
    EXPECT_THAT(review.Query("SELECT Advice FROM Violations"), ElementsAre("Take 2.0."));
    EXPECT_THAT(review.Log(), Contains(HasSubstr("asked False [2.0]")));
}

TEST(AuthorisationReview, AListedComponentIsAuthorisedAndHasTheProperty) {
    RulesInReview review;
    review.Review().Criteria().LoadCriteria().SetAuthorisedComponents(true);
    review.Rules().AuthorisedComponents().Add(kGuid, "", "", "");
    AddFormWithComponent(review, "1.2");
    AddAsker(review, 5, "Component");
    review.RunProject(kFormProject);
    EXPECT_THAT(review.Titles(), IsEmpty());
    EXPECT_THAT(review.Log(), Contains(HasSubstr("asked True []")));
}

TEST(AuthorisationReview, WithTheCheckOffAComponentHasNoSuchProperties) {
    RulesInReview review;
    AddFormWithComponent(review, "1.2");
    AddAsker(review, 5, "Component");
    review.RunProject(kFormProject);
    EXPECT_THAT(review.Titles(), IsEmpty());
    EXPECT_THAT(
        review.Log(),
        Contains(HasSubstr("Virtual object property 'Component.IsAuthorised' not found.")));
}

TEST(AuthorisationReview, WithTheCheckOffTheTagOfAComponentFindsNoSuchProperty) {
    RulesInReview review;
    AddFormWithComponent(review, "1.2");
    review.AddCoding("Prints", {5}, Script("Dorvik.RaiseViolation"))
        .ViolationDefinition()
        .SetDescription("[%Component.IsAuthorised%] %Component.Version%");
    review.RunProject(kFormProject);
    EXPECT_THAT(review.Query("SELECT Description FROM Violations"), ElementsAre("[] 1.2"));
    EXPECT_THAT(
        review.Log(),
        Contains("[Event:Component][Rule:5000 - Violation] Virtual object property "
                 "'Component.IsAuthorised' not found."));
}

TEST(AuthorisationReview, AtAComponentOnlyCodingConventionsRunIfTheCheckIsOff) {
    RulesInReview review;
    AddFormWithComponent(review, "1.2");
    review.AddCoding("Script", {5}, Script("Dorvik.RaiseViolation"));
    review.AddKeyword("Keyword", ".", {5});
    for (std::int32_t type = kFirstObjectType; type <= kLastObjectType; ++type) {
        NamingConvention& rule = review.AddNaming("Name", static_cast<ObjectType>(type));
        rule.SetPropertyName("Filename");  // which a component has
        rule.SetCondition(Script("Dim e\r\nDorvik.GetParserEvent e\r\n"
                                 "If e = \"Component\" Then Dorvik.ApplyConvention"));
        rule.SetBodyActive(true);
        rule.SetMinBodyLength(90);
    }
    review.RunProject(kFormProject);
    EXPECT_THAT(review.Titles(), ElementsAre("Script"));
}

TEST(AuthorisationReview, TheFourViolationsAreTheDefaultOnesByNumber) {
    RulesInReview review;
    EXPECT_EQ(DefaultTitle(review, 1), "Unauthorised Component");
    EXPECT_EQ(DefaultTitle(review, 2), "Unauthorised Component Version");
    EXPECT_EQ(DefaultTitle(review, 3), "Unauthorised Reference");
    EXPECT_EQ(DefaultTitle(review, 4), "Unauthorised Reference Version");
}

}  // namespace

}  // namespace dorvik
