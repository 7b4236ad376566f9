#include "rulebase/model/Rulebase.h"

#include "base/BasicError.h"
#include "base/modKyErrors.h"
#include "rulebase/model/CategoryListView.h"

#include <gtest/gtest.h>

#include <memory>

namespace dorvik {
namespace {

TEST(Rulebase, ANewOneIsCompleteAndClean) {
    const Rulebase rulebase;
    EXPECT_EQ(rulebase.Title(), "Untitled");
    EXPECT_EQ(rulebase.Version(), "1.0.0");
    EXPECT_EQ(rulebase.FileTitle(), "[Untitled]");
    EXPECT_FALSE(rulebase.Dirty());
    EXPECT_EQ(rulebase.RuleCount(), 0);
    EXPECT_EQ(rulebase.ControlTags().Count(), 23);
    EXPECT_EQ(rulebase.DataTypeTags().Count(), 25);
    EXPECT_EQ(rulebase.ScopeTags().Count(), 7);
    EXPECT_EQ(rulebase.SeverityList().Count(), 5);
    EXPECT_TRUE(rulebase.AutoIncrementVersion());
    EXPECT_FALSE(rulebase.UnknownControlViolation());
}

TEST(Rulebase, SeveritiesAreFoundByKeyAndByPosition) {
    const Rulebase rulebase;
    EXPECT_EQ(rulebase.SeverityList().Item("1Key")->Title(), "Critical");
    EXPECT_EQ(rulebase.SeverityList().Item(5)->Title(), "Info");
    EXPECT_EQ(rulebase.SeverityList().Item(2)->Impact(), 750);
    EXPECT_EQ(rulebase.SeverityList().Item(3)->Colour(), 2);
    EXPECT_EQ(rulebase.SeverityList().Item(5)->SeverityLevelText(), "Information");
    EXPECT_EQ(rulebase.SeverityList().SelectedCount(), 5);
}

TEST(Rulebase, TheDefaultSeverityTextsKeepTheirMisspellings) {
    const Rulebase rulebase;
    EXPECT_NE(rulebase.SeverityList().Item(1)->Description().find("'Critcial'"), std::string::npos);
    EXPECT_NE(
        rulebase.SeverityList().Item(4)->Description().find("maintainenance"), std::string::npos);
}

TEST(Rulebase, TolerancesAreNotSetAtFirst) {
    const Rulebase rulebase;
    for (std::int32_t place = 1; place <= 6; ++place) {
        EXPECT_EQ(rulebase.Tolerances().Count.Item(place), -1);
        EXPECT_EQ(rulebase.Tolerances().Impact.Item(place), -1);
    }
    EXPECT_EQ(rulebase.Tolerances().PercentageComments, -1);
    EXPECT_EQ(rulebase.Tolerances().CyclomaticComplexity, -1);
}

TEST(Rulebase, AChangedTagMakesItDirtyAndWritingDirtyClearsTheTag) {
    Rulebase rulebase;
    rulebase.ControlTags().Item("vb.textbox")->SetTagValue("tb");
    EXPECT_TRUE(rulebase.Dirty());
    rulebase.SetDirty(false);
    EXPECT_FALSE(rulebase.Dirty());
    EXPECT_FALSE(rulebase.ControlTags().Item("VB.TextBox")->Dirty());
}

TEST(Rulebase, AnyPartCanMakeItDirty) {
    const auto changes = {
        +[](Rulebase& r) { r.SetTitle("t"); },
        +[](Rulebase& r) { r.SetVersion("v"); },
        +[](Rulebase& r) { r.SetDescription("d"); },
        +[](Rulebase& r) { r.SetAutoIncrementVersion(true); },
        +[](Rulebase& r) { r.SetUnknownControlViolation(true); },
        +[](Rulebase& r) { r.SetUseCTagsAsDTTags(true); },
        +[](Rulebase& r) { r.SetArrayTag("a"); },
        +[](Rulebase& r) { r.SetTolerancePercentageComments(1); },
        +[](Rulebase& r) { r.SetToleranceCyclomaticComplexity(1); },
        +[](Rulebase& r) { r.Tolerances().Count.SetItem(6, 0); },
        +[](Rulebase& r) { r.Tolerances().Impact.SetItem(1, 0); },
        +[](Rulebase& r) { r.AuthorisedComponents().SetDirty(true); },
        +[](Rulebase& r) { r.AuthorisedReferences().SetDirty(true); },
        +[](Rulebase& r) { r.RuleLists().SetLastID(1); },
        +[](Rulebase& r) { r.CategoryList().SetDirty(true); },
        +[](Rulebase& r) { r.SeverityList().SetDirty(true); },
        +[](Rulebase& r) { r.ScopeTags().Item(7)->SetTagExample("e"); },
    };
    for (const auto change : changes) {
        Rulebase rulebase;
        change(rulebase);
        EXPECT_TRUE(rulebase.Dirty());
        rulebase.SetDirty(false);
        EXPECT_FALSE(rulebase.Dirty());
    }
}

TEST(Rulebase, AFileNameAndAChangedDefaultViolationDoNotMakeItDirty) {
    Rulebase rulebase;
    rulebase.SetFilename("C:\\rules\\team.dvk");
    rulebase.DefaultViolations().Item(1).SetAdvice("a");
    EXPECT_FALSE(rulebase.Dirty());
    EXPECT_EQ(rulebase.FileTitle(), "team.dvk");
    rulebase.SetDirty(false);
    EXPECT_FALSE(rulebase.DefaultViolations().Dirty());
}

TEST(Rulebase, RuleCountTakesItemsAndRulesTogether) {
    Rulebase rulebase;
    rulebase.AuthorisedComponents().Add("{1}", "", "", "");
    rulebase.AuthorisedReferences().Add("{1}", "", "", "", "");
    rulebase.RuleLists().AddConvention(std::make_shared<UnauthorisedKeyword>(), true);
    EXPECT_EQ(rulebase.RuleCount(), 3);
}

TEST(Rulebase, DefaultTagsAreLockedAndKeyedByName) {
    const Rulebase rulebase;
    EXPECT_EQ(rulebase.ControlTags().Item(1)->TagName(), "(Unknown ProgID)");
    EXPECT_EQ(rulebase.ControlTags().Item(23)->TagValue(), "vsb");
    EXPECT_EQ(rulebase.ControlTags().Item("VB.Menu")->TagDescription(), "VB Menu Control");
    EXPECT_EQ(rulebase.DataTypeTags().Item(25)->TagName(), "Variant");
    EXPECT_EQ(rulebase.DataTypeTags().Item("Any")->TagValue(), "");
    EXPECT_EQ(rulebase.ScopeTags().Item(7)->TagName(), "ByRef Argument");
    EXPECT_TRUE(rulebase.ScopeTags().Item(1)->Locked());
}

TEST(TagItem, LockedDoesNotMarkIt) {
    TagItem item;
    item.SetLocked(true);
    EXPECT_FALSE(item.Dirty());
    item.SetTagDescription("d");
    EXPECT_TRUE(item.Dirty());
}

TEST(DefaultViolations, AreFiveAndATypeOutsideGivesNone) {
    DefaultViolations violations;
    EXPECT_EQ(violations.Count(), 5);
    EXPECT_EQ(violations.ItemByType(6), nullptr);
    EXPECT_EQ(violations.ItemByType(0), nullptr);
    ASSERT_NE(violations.ItemByType(5), nullptr);
    EXPECT_EQ(violations.ItemByType(5)->Title(), "Unknown Control");
    EXPECT_THROW(violations.Item(6), BasicError);
}

TEST(DefaultViolations, BeginCriticalWithoutACategory) {
    const DefaultViolations violations;
    for (std::int32_t type = 1; type <= 5; ++type) {
        EXPECT_EQ(violations.Item(type).Severity(), 1);
        EXPECT_EQ(violations.Item(type).Impact(), 900);
        EXPECT_EQ(violations.Item(type).CategoryID(), -1);
        EXPECT_FALSE(violations.Item(type).ViolationDescription().empty());
    }
    EXPECT_FALSE(violations.Dirty());
    EXPECT_EQ(
        violations.Item(3).Advice(),
        "The ActiveX component library '%Reference.Description%' must be authorised before it can "
        "be utilised by a project.");
}

std::shared_ptr<CategoryItem> Category(const char* title, std::int32_t id = 0) {
    auto item = std::make_shared<CategoryItem>();
    item->SetID(id);
    item->SetTitle(title);
    return item;
}

TEST(CategoryList, ANewItemGetsTheNextNumberAndItsKey) {
    CategoryList list;
    list.SetLastID(4);
    const auto item = Category("Layout");
    list.Add(item, true);
    EXPECT_EQ(item->ID(), 5);
    EXPECT_EQ(item->Key(), "5K");
    EXPECT_EQ(list.LastID(), 5);
    list.Add(Category("Names", 9), false);
    EXPECT_EQ(list.LastID(), 5);
    EXPECT_TRUE(list.ContainsID(9));
    EXPECT_TRUE(list.Contains("9k"));
    EXPECT_FALSE(list.Selected(1));
}

TEST(CategoryList, ASecondItemOfOneKeyIsRefused) {
    CategoryList list;
    list.Add(Category("Layout", 1), false);
    try {
        list.Add(Category("Other", 1), false);
        FAIL() << "nothing was raised";
    } catch (const BasicError& error) {
        EXPECT_EQ(error.Number(), modKyErrors::kyErrKeyInUse);
    }
    EXPECT_EQ(list.Count(), 1);
}

TEST(CategoryList, TheKeyOfAPositionIsAlwaysEmpty) {
    CategoryList list;
    list.Add(Category("Layout", 1), false);
    EXPECT_EQ(list.Key(1), "");
    EXPECT_EQ(CategoryListView(list).Key(1), "");
}

TEST(CategoryList, SortingGoesByTitleWithoutCaseAndKeysGoWithTheirItems) {
    CategoryList list;
    list.Add(Category("beta", 1), false);
    list.Add(Category("Gamma", 2), false);
    list.Add(Category("ALPHA", 3), false);
    list.Add(Category("Beta", 4), false);
    list.Sort();
    EXPECT_EQ(list.Item(1)->Title(), "ALPHA");
    EXPECT_EQ(list.Item(2)->Title(), "Beta") << "of equal titles the later one comes first";
    EXPECT_EQ(list.Item(3)->Title(), "beta");
    EXPECT_EQ(list.Item(4)->Title(), "Gamma");
    EXPECT_EQ(list.Item("3K")->Title(), "ALPHA");
    EXPECT_EQ(list.Item("2K")->Title(), "Gamma");
}

TEST(CategoryListView, ShowsTheItemsToGenericCode) {
    CategoryList list;
    CategoryListView view(list);
    view.Add(Category("Layout"), true);
    ASSERT_EQ(view.Count(), 1);
    EXPECT_EQ(view.Item(1)->Key(), "1K");
    EXPECT_EQ(view.Item("1K")->Title(), "Layout");
    EXPECT_EQ(view.SelectedCount(), 0);
    view.Remove("1K");
    EXPECT_EQ(list.Count(), 0);
}

TEST(CategoryListView, RefusesAnItemOfAnotherClass) {
    CategoryList list;
    CategoryListView view(list);
    for (const std::shared_ptr<IListItem>& item :
         {std::shared_ptr<IListItem>(std::make_shared<SeverityItem>()),
          std::shared_ptr<IListItem>()}) {
        for (const bool newItem : {true, false}) {
            try {
                view.Add(item, newItem);
                ADD_FAILURE() << "the item is not a category";
            } catch (const BasicError& failure) {
                EXPECT_EQ(failure.Number(), runtimeerror::kTypeMismatch);
            }
        }
    }
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list.LastID(), 0);
}

TEST(CategoryItem, ItsRulesAreCreatedWhenFirstRead) {
    CategoryItem item;
    EXPECT_EQ(item.CategoryRules().Count(), 0);
    item.CategoryRules().Add(std::make_shared<UnauthorisedKeyword>());
    EXPECT_EQ(item.CategoryRules().Count(), 1);
    EXPECT_FALSE(item.Hidden());
}

}  // namespace
}  // namespace dorvik
