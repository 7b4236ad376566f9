#include "RulesInReview.h"
#include "platform/host/ITypeLibrarySource.h"
#include "platform/host/modFiles.h"
#include "rulebase/model/TagItem.h"
#include "support/FilesystemPaths.h"
#include "typelib/TypeLibraryStore.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace dorvik {

namespace {

using test::Fill;
using test::RulesInReview;
using test::SetTag;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// One library under one GUID, for every project; notes which folders asked.
class OneLibrarySource final : public ITypeLibrarySource {
public:
    std::unique_ptr<ITypeLibraries> ForProject(std::string_view projectFolder) override {
        Folders.emplace_back(projectFolder);
        return std::make_unique<Libraries>();
    }

    std::vector<std::string> Folders;

private:
    class Libraries final : public ITypeLibraries {
    public:
        std::optional<TypeLibraryContents>
        Open(std::string_view guid, std::int32_t, std::int32_t, std::int32_t) const override {
            if (guid != "{1}") {
                return std::nullopt;
            }
            return TypeLibraryContents{"Stock", {{"Shelf", 5}, {"Size", 1}, {"Colour", 0}}};
        }
    };
};

/// Every variable begins with the tag of its type.
void AddTypeTagRule(RulesInReview& review) {
    NamingConvention& rule = review.AddNaming("Type tag", ObjectType::Variable);
    Fill(rule.Prefix(), {{static_cast<std::int32_t>(psDataTypeTag), ""}});
    TagTable& tags = review.Rules().DataTypeTags();
    SetTag(tags, "(Classes)", "c");
    SetTag(tags, "(Controls)", "ctl");
    SetTag(tags, "(Enumerations)", "e");
    SetTag(tags, "(User-Defined Types)", "u");
}

/// The names that break the rule, as the source lines that hold them.
std::vector<std::string> BadLines(RulesInReview& review) {
    return review.Query("SELECT SourceLine FROM Violations");
}

std::string Project(const std::string& libraries) {
    return libraries + "Module=modA; modA.bas\n";
}

void AddModule(RulesInReview& review, const std::string& text) {
    review.Review().AddFile("modA.bas", "Attribute VB_Name = \"modA\"\n" + text);
}

}  // namespace

TEST(TypeLibraryReview, SourceIsAskedForTheFolderOfTheProject) {
    OneLibrarySource source;
    RulesInReview review;
    review.Review().SetTypeLibraries(source);
    AddTypeTagRule(review);
    review.Run({"modA=Private cShelf As Shelf\n"});
    EXPECT_THAT(source.Folders, ElementsAre(review.Review().Folder().Path()));
}

TEST(TypeLibraryReview, WithoutNamingConventionsNoLibraryIsOpened) {
    OneLibrarySource source;
    RulesInReview review;
    review.Review().SetTypeLibraries(source);
    review.Review().Criteria().LoadCriteria().SetNamingConventions(false);
    review.Run({"modA=Private cShelf As Shelf\n"});
    EXPECT_THAT(source.Folders, IsEmpty());
}

TEST(TypeLibraryReview, TypesOfAReferenceHaveTheTagOfTheirKind) {
    OneLibrarySource source;
    RulesInReview review;
    review.Review().SetTypeLibraries(source);
    AddTypeTagRule(review);
    AddModule(
        review,
        "Private cShelf As Shelf\nPrivate xShelf As Stock.Shelf\nPrivate uSize As Size\n"
        "Private xSize As Size\nPrivate eColour As Stock.Colour\nPrivate xColour As Colour\n");
    review.RunProject(Project("Reference=*\\G{1}#1.0#0#Stock.dll#Stock\n"));
    EXPECT_THAT(
        BadLines(review),
        ElementsAre(
            "Private xShelf As Stock.Shelf", "Private xSize As Size", "Private xColour As Colour"));
    EXPECT_THAT(review.Log(), Contains("Successfully loaded reference 'Stock'"));
}

TEST(TypeLibraryReview, ClassesOfAComponentAreControls) {
    OneLibrarySource source;
    RulesInReview review;
    review.Review().SetTypeLibraries(source);
    AddTypeTagRule(review);
    AddModule(review, "Private ctlShelf As Shelf\nPrivate cShelf As Shelf\n");
    review.RunProject(Project("Object={1}#1.0#0; Stock.ocx\n"));
    EXPECT_THAT(BadLines(review), ElementsAre("Private cShelf As Shelf"));
    EXPECT_THAT(review.Log(), Contains("Successfully loaded component 'Stock.ocx'"));
}

TEST(TypeLibraryReview, ClassOfTheProjectIsAskedBeforeThatOfALibrary) {
    OneLibrarySource source;
    RulesInReview review;
    review.Review().SetTypeLibraries(source);
    AddTypeTagRule(review);
    AddModule(review, "Private Type Shelf\n  Width As Long\nEnd Type\nPrivate uShelf As Shelf\n");
    review.RunProject(Project("Reference=*\\G{1}#1.0#0#Stock.dll#Stock\n"));
    EXPECT_THAT(BadLines(review), Not(Contains("Private uShelf As Shelf")));
}

TEST(TypeLibraryReview, DesignTimeReferenceGivesNoLibraryAndIsCounted) {
    OneLibrarySource source;
    RulesInReview review;
    review.Review().SetTypeLibraries(source);
    AddTypeTagRule(review);
    AddModule(review, "Private cShelf As Shelf\n");
    review.RunProject(
        Project("Reference=*\\AOther.vbp\nReference=*\\G{1}#1.0#0#Stock.dll#Stock\n"));
    EXPECT_THAT(review.Log(), Contains("Failed to load reference ''"));
    // The three that every project refers to are not known here either.
    EXPECT_THAT(review.Log(), Contains("4 error(s) loading references."));
    EXPECT_THAT(review.Log(), Contains("Successfully loaded reference 'Stock'"));
}

TEST(TypeLibraryReview, LibraryThatCannotBeHadIsCountedAndItsTypesAreUndefined) {
    OneLibrarySource source;
    RulesInReview review;
    review.Review().SetTypeLibraries(source);
    AddTypeTagRule(review);
    AddModule(review, "Private cRack As Rack\n");
    review.RunProject(Project("Object={2}#1.0#0; Other.ocx\n"));
    EXPECT_THAT(review.Log(), Contains("Failed to load component 'Other.ocx'"));
    EXPECT_THAT(review.Log(), Contains("1 error(s) loading components."));
    EXPECT_THAT(review.Log(), Contains(HasSubstr("Data type 'Rack' undefined.")));
}

TEST(TypeLibraryReview, LibraryWhoseNameIsTakenIsCountedAndLogged) {
    OneLibrarySource source;
    RulesInReview review;
    review.Review().SetTypeLibraries(source);
    AddTypeTagRule(review);
    AddModule(review, "Private cShelf As Shelf\n");
    review.RunProject(Project("Reference=*\\G{1}#1.0#0#Stock.dll#Stock\n"
                              "Object={1}#1.0#0; Stock.ocx\n"));
    const std::vector<std::string> log = review.Log();
    EXPECT_THAT(log, Contains("Successfully loaded reference 'Stock'"));
    EXPECT_THAT(log, Contains("Failed to load component 'Stock.ocx'"));
    EXPECT_THAT(log, Contains("1 error(s) loading components."));
    EXPECT_THAT(log, Contains(HasSubstr("'Stock' is already in use.#C_NCHelper::AddTypeLibrary")));
    EXPECT_EQ(review.Review().Criteria().ProjectList().Item(1)->Outcome().ComponentErrors, 1);
    EXPECT_THAT(BadLines(review), IsEmpty()) << "the library that came first stays";
}

TEST(TypeLibraryReview, CatalogueOfTheProgramKnowsTheTypesOfVisualBasicItself) {
    TypeLibraryStore store(
        {{}, {test::ProgramPath(DORVIK_PROGRAM_FOLDER) + "\\Data\\type-catalogue"}, ""});
    RulesInReview review;
    review.Review().SetTypeLibraries(store);
    AddTypeTagRule(review);
    AddModule(
        review,
        "Private ctlName As Label\nPrivate xName As VB.Label\nPrivate cItems As Collection\n"
        "Private xItems As VBA.Collection\nPrivate eAnswer As VbMsgBoxResult\n"
        "Private xAnswer As VbMsgBoxResult\nPrivate cFont As StdFont\nPrivate xFont As StdFont\n"
        "Private cBag As PropertyBag\nPrivate xBag As PropertyBag\n");
    review.RunProject(
        Project("Reference=*\\G{00020430-0000-0000-C000-000000000046}#2.0#0#stdole2.tlb#OLE "
                "Automation\n"));
    EXPECT_THAT(review.Log(), Not(Contains(HasSubstr("Failed to load"))));
    EXPECT_THAT(review.Log(), Not(Contains(HasSubstr("undefined"))));
    EXPECT_THAT(
        BadLines(review),
        ElementsAre(
            "Private xName As VB.Label",
            "Private xItems As VBA.Collection",
            "Private xAnswer As VbMsgBoxResult",
            "Private xFont As StdFont",
            "Private xBag As PropertyBag"));
}

}  // namespace dorvik
