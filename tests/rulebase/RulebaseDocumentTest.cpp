#include "rulebase/document/RulebaseDocument.h"

#include "rulebase/model/CategoryItem.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>

namespace dorvik {

namespace {

using ::testing::HasSubstr;
using ::testing::Not;

constexpr std::string_view kHostile = "</h3><script>alert('x')</script>\" onload=\"y & z";

std::shared_ptr<CategoryItem> Category(std::int32_t id, const std::string& title) {
    auto category = std::make_shared<CategoryItem>();
    category->SetID(id);
    category->SetTitle(title);
    return category;
}

std::shared_ptr<UnauthorisedKeyword>
Keyword(const std::string& title, std::int32_t category, std::int32_t severity = 3) {
    auto rule = std::make_shared<UnauthorisedKeyword>();
    rule->SetTitle(title);
    rule->SetCondition("^Stop$");
    rule->AddParserEventID(30);
    rule->SetCategoryID(category);
    rule->ViolationDefinition().SetSeverity(severity);
    return rule;
}

std::string PageOf(const Rulebase& rulebase) {
    return RulebaseDocument(rulebase).Write();
}

std::size_t PlaceOf(const std::string& page, std::string_view text) {
    const std::size_t place = page.find(text);
    EXPECT_NE(place, std::string::npos) << text;
    return place;
}

}  // namespace

TEST(RulebaseDocument, HasEveryCategoryWithItsRulesWorstFirst) {
    Rulebase rulebase;
    rulebase.CategoryList().Add(Category(1, "Control flow"), false);
    rulebase.CategoryList().Add(Category(2, "Names"), false);
    rulebase.RuleLists().AddConvention(Keyword("A mild one", 1, 4), true);
    rulebase.RuleLists().AddConvention(Keyword("B bad one", 1, 1), true);
    rulebase.RuleLists().AddConvention(Keyword("Homeless", -1), true);
    const std::string page = PageOf(rulebase);
    EXPECT_LT(PlaceOf(page, "<h2>Control flow</h2>"), PlaceOf(page, "B bad one"));
    EXPECT_LT(PlaceOf(page, "<h3>B bad one</h3>"), PlaceOf(page, "<h3>A mild one</h3>"));
    EXPECT_LT(PlaceOf(page, "<h2>Names</h2>"), PlaceOf(page, "No rules."));
    EXPECT_LT(PlaceOf(page, "<h2>Without a category</h2>"), PlaceOf(page, "<h3>Homeless</h3>"));
    EXPECT_THAT(page, HasSubstr("<code>^Stop$</code>"));
    EXPECT_THAT(page, HasSubstr("30 Procedure &lt;body&gt;"));
}

TEST(RulebaseDocument, AHiddenCategoryStaysHidden) {
    Rulebase rulebase;
    const auto hidden = Category(1, "Secret");
    hidden->SetHidden(true);
    rulebase.CategoryList().Add(hidden, false);
    rulebase.RuleLists().AddConvention(Keyword("Whispered", 1), true);
    EXPECT_THAT(PageOf(rulebase), Not(HasSubstr("Secret")));
    EXPECT_THAT(PageOf(rulebase), Not(HasSubstr("Whispered")));
}

TEST(RulebaseDocument, HasTheTablesOfTagsAndAuthorisedItems) {
    Rulebase rulebase;
    rulebase.AuthorisedComponents().Add("{A}", "comdlg32.ocx", "1.2", "Use it.");
    rulebase.AuthorisedReferences().Add("{B}", "Scripting runtime", "scrrun.dll", "1.0", "");
    const std::string page = PageOf(rulebase);
    EXPECT_THAT(page, HasSubstr("<td>VB.TextBox</td><td>txt</td>"));
    EXPECT_THAT(page, HasSubstr("<td>comdlg32.ocx</td><td>1.2</td><td>{A}</td><td>Use it.</td>"));
    EXPECT_THAT(page, HasSubstr("<td>Scripting runtime</td><td>scrrun.dll</td>"));
    // A column in which no row says anything is left out.
    EXPECT_THAT(page, Not(HasSubstr("<th scope=\"col\">Example</th>")));
}

TEST(RulebaseDocument, ADefinedReportHasExactlyItsSectionsInTheirOrder) {
    Rulebase rulebase;
    rulebase.CategoryList().Add(Category(1, "Control flow"), false);
    const auto shown = Keyword("Shown", 1);
    rulebase.RuleLists().AddConvention(shown, true);
    rulebase.RuleLists().AddConvention(Keyword("Left out", 1), true);
    const auto table = std::make_shared<TableItem>();
    table->SetTableKey("controltags");
    table->SetTableTitle("Our prefixes");
    table->SetTableText("Use them.");
    rulebase.Report().Sections().Add(table);
    const auto section = Category(1, "Control flow");
    section->CategoryRules().Add(shown);
    rulebase.Report().Sections().Add(section);
    const auto words = std::make_shared<TableItem>();
    words->SetTableKey("anything");
    words->SetTableTitle("Closing words");
    rulebase.Report().Sections().Add(words);

    const std::string page = PageOf(rulebase);
    EXPECT_LT(PlaceOf(page, "<h2>Our prefixes</h2>"), PlaceOf(page, "VB.TextBox"));
    EXPECT_LT(PlaceOf(page, "VB.TextBox"), PlaceOf(page, "<h2>Control flow</h2>"));
    EXPECT_LT(PlaceOf(page, "<h3>Shown</h3>"), PlaceOf(page, "<h2>Closing words</h2>"));
    EXPECT_THAT(page, Not(HasSubstr("Left out")));
    EXPECT_THAT(page, Not(HasSubstr("<h2>Severities</h2>")));
}

TEST(RulebaseDocument, EveryTextIsEscaped) {
    const std::string hostile(kHostile);
    Rulebase rulebase;
    rulebase.SetTitle(hostile);
    rulebase.SetVersion(hostile);
    rulebase.SetDescription(hostile);
    const auto category = Category(1, hostile);
    category->SetDescription(hostile);
    rulebase.CategoryList().Add(category, false);
    const auto keyword = Keyword(hostile, 1);
    keyword->SetDescription(hostile);
    keyword->SetCondition(hostile);
    keyword->ViolationDefinition().SetTitle(hostile + "1");
    keyword->ViolationDefinition().SetDescription(hostile);
    keyword->ViolationDefinition().SetAdvice(hostile);
    rulebase.RuleLists().AddConvention(keyword, true);
    const auto coding = std::make_shared<CodingConvention>();
    coding->SetTitle("Coding");
    coding->SetCondition(hostile);
    rulebase.RuleLists().AddConvention(coding, true);
    const auto naming = std::make_shared<NamingConvention>();
    naming->SetPropertyName(hostile);
    naming->SetExclusionList(hostile);
    naming->Prefix().SetActive(true);
    naming->Prefix().SetAdvice(hostile);
    naming->Prefix().Items().Item(1)->PSType = static_cast<std::int32_t>(psText);
    naming->Prefix().Items().Item(1)->Value = hostile;
    naming->SetBodyActive(true);
    naming->SetBodyPattern(hostile);
    naming->SetBodyAdvice(hostile);
    naming->Suffix().SetActive(true);
    naming->Suffix().SetAdvice(hostile);
    rulebase.RuleLists().AddConvention(naming, true);
    rulebase.ControlTags().Item(1)->SetTagValue(hostile);
    rulebase.ControlTags().Item(1)->SetTagDescription(hostile);
    rulebase.SeverityList().Item(3)->SetTitle(hostile);
    rulebase.SeverityList().Item(3)->SetDescription(hostile);
    rulebase.AuthorisedComponents().Add(hostile, hostile, hostile, hostile);
    rulebase.AuthorisedReferences().Add(hostile, hostile, hostile, hostile, hostile);

    const std::string page = PageOf(rulebase);
    EXPECT_THAT(page, Not(HasSubstr("<script")));
    EXPECT_THAT(page, Not(HasSubstr("onload=\"")));
    EXPECT_THAT(page, HasSubstr("&lt;script&gt;alert(&#39;x&#39;)&lt;/script&gt;"));
}

TEST(RulebaseDocument, NothingIsFetchedFromOutside) {
    const std::string page = PageOf(Rulebase());
    EXPECT_THAT(
        page, HasSubstr("http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'"));
    for (const char* outside :
         {"http://", "https://", "<link", "<img", "src=\"", "@import", "url("}) {
        EXPECT_THAT(page, Not(HasSubstr(outside)));
    }
}

TEST(RulebaseDocument, TheSameRulebaseGivesTheSameBytes) {
    const Rulebase rulebase;
    RulebaseDocument document(rulebase);
    const std::string first = document.Write();
    EXPECT_EQ(document.Write(), first);
    EXPECT_EQ(PageOf(Rulebase()), first);
}

}  // namespace dorvik
