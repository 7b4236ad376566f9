#include "rulebase/catalogue/modReadableProperties.h"

#include "rulebase/catalogue/ObjectCatalogue.h"
#include "rulebase/catalogue/ObjectHelper.h"

#include <gtest/gtest.h>

namespace dorvik {

using modReadableProperties::FindReading;
using modReadableProperties::Reading;

TEST(modReadableProperties, EveryListedPropertyButOneCanBeRead) {
    int seen = 0;
    for (const ObjectRow& row : modObjectCatalogue::Rows()) {
        StringArrayList names;
        LongArrayList numbers;
        ObjectHelper::GetPropertyList(1, static_cast<std::int32_t>(row.Type), names, numbers);
        for (std::int32_t index = 1; index <= names.Count() && row.Type == row.Root; ++index) {
            const bool never = row.Name == "Reference" && names.Item(index) == "FullFilename";
            EXPECT_EQ(
                FindReading(row.Name, names.Item(index)),
                never ? Reading::Never : Reading::Possible)
                << row.Name << "." << names.Item(index);
            ++seen;
        }
    }
    EXPECT_GT(seen, 200);
}

struct LookRow {
    const char* Object;
    const char* Property;
    Reading Expected;
};

TEST(modReadableProperties, KnowsWhatIsReadableWithoutBeingListed) {
    constexpr LookRow kRows[] = {
        {"File", "ReviewStatus", Reading::Possible},
        {"Source", "IsBlank", Reading::Possible},
        {"Reference", "Filename", Reading::Possible},
        {"VBP", "Name", Reading::Possible},
        {"vbp", "fullfilename", Reading::Possible},
        {"Project", "Keyword", Reading::Possible},
        {"Project", "AnyKeyOfAProjectFile", Reading::Possible},
        {"Component", "IsAuthorised", Reading::Possible},
        {"ControlProperties", "Caption", Reading::Possible},
        {"LayoutProperties", "ClientHeight", Reading::Possible},
        {"Procedure", "WF.count", Reading::Possible},
        {"Source", "WF.count", Reading::UnknownProperty},
        {"Procedure", "Nmae", Reading::UnknownProperty},
        {"Procedure", "", Reading::UnknownProperty},
        {"Project", "Nmae", Reading::UnknownProperty},
        {"Declarations", "Name", Reading::UnknownProperty},
        {"Control", "CodeLineCount", Reading::UnknownProperty},
        {"Procdure", "Name", Reading::UnknownObject},
        {"File (Form)", "Name", Reading::UnknownObject},
        {"", "Name", Reading::UnknownObject},
    };
    for (const LookRow& row : kRows) {
        EXPECT_EQ(FindReading(row.Object, row.Property), row.Expected)
            << row.Object << "." << row.Property;
    }
}

TEST(modReadableProperties, NamesTheNearestWhereOneIsNear) {
    EXPECT_EQ(modReadableProperties::NearestObject("Procdure"), "Procedure");
    EXPECT_EQ(modReadableProperties::NearestObject("Something"), "");
    EXPECT_EQ(modReadableProperties::NearestProperty("Procedure", "Nmae"), "Name");
    EXPECT_EQ(modReadableProperties::NearestProperty("Procedure", "Colour"), "");
    EXPECT_EQ(modReadableProperties::NearestProperty("Procedure", std::string(100000, 'x')), "");
}

}  // namespace dorvik
