#include "foundation/lists/StringArrayList.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace dorvik {
namespace {

StringArrayList ListOf(const std::vector<std::string>& texts) {
    StringArrayList list;
    for (const std::string& text : texts) {
        list.Add(text);
    }
    return list;
}

std::vector<std::string> Items(const StringArrayList& list) {
    std::vector<std::string> items;
    for (std::int32_t index = 1; index <= list.Count(); ++index) {
        items.push_back(list.Item(index));
    }
    return items;
}

TEST(StringArrayList, SortOrdersWithoutRegardToCaseAndLeavesFlagsAtTheirPositions) {
    StringArrayList list = ListOf({"b", "A", "c"});
    list.SetSelected(1, true);
    list.SetDirty(false);
    list.Sort();
    EXPECT_EQ(Items(list), (std::vector<std::string>{"A", "b", "c"}));
    EXPECT_TRUE(list.Selected(1));
    EXPECT_EQ(list.SelectedCount(), 1);
    EXPECT_FALSE(list.Dirty());
}

TEST(StringArrayList, SortPutsTheLaterOfEqualTextsFirst) {
    StringArrayList list = ListOf({"b", "a", "B", "A"});
    list.Sort();
    EXPECT_EQ(Items(list), (std::vector<std::string>{"A", "a", "B", "b"}));
}

TEST(StringArrayList, SortOfAnEmptyListDoesNothing) {
    StringArrayList list;
    list.Sort();
    EXPECT_EQ(list.Count(), 0);
}

struct SearchCase {
    std::string Element;
    std::string Sought;
    bool IsFound;
};

TEST(StringArrayList, SearchIgnoresTheCaseOfAllLetters) {
    const SearchCase cases[] = {
        {"Name", "nAME", true},
        {"Name", "Nam", false},
        {"Name", "Fame", false},
        {"Name", "Nase", false},
        {"", "", true},
        {"", "a", false},
        {"a", "", false},
        {"\xC3\x84nderung", "\xC3\xA4nderung", true},  // the letter A with diaeresis
        {"Stra\xC3\x9F"
         "e",
         "Strasse",
         false},
        {"@", "`", false},  // apart by the bit that tells upper from lower case letters
        {"[", "{", false},
    };
    for (const SearchCase& row : cases) {
        const StringArrayList list = ListOf({row.Element});
        EXPECT_EQ(list.ContainsValue(row.Sought), row.IsFound) << row.Element << " " << row.Sought;
    }
}

}  // namespace
}  // namespace dorvik
