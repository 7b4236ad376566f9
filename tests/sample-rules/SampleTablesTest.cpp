#include "SampleReview.h"
#include "rulebase/model/Rulebase.h"
#include "rulebase/model/TagItem.h"

#include <gtest/gtest.h>

using namespace dorvik;
using namespace dorvik::test;

namespace {

/// The tables are read under the settings of a review, and outlive it.
std::unique_ptr<Rulebase> Sample() {
    SampleReview review;
    return review.Load();
}

std::string TagOf(const TagTable& table, const std::string& name) {
    for (std::int32_t i = 1; i <= table.Count(); ++i) {
        if (table.Item(i)->TagName() == name) {
            return table.Item(i)->TagValue();
        }
    }
    return "(none)";
}

}  // namespace

TEST(SampleTables, HoldAtLeastEightyControlTags) {
    EXPECT_GE(Sample()->ControlTags().Count(), 80);
}

TEST(SampleTables, HoldATagForEachIntrinsicDataType) {
    const std::unique_ptr<Rulebase> sample = Sample();
    for (const char* type :
         {"Byte",
          "Boolean",
          "Currency",
          "Date",
          "Double",
          "Integer",
          "Long",
          "Object",
          "Single",
          "String",
          "Variant",
          "(Classes)",
          "(Forms)",
          "(Enumerations)",
          "(User-Defined Types)"}) {
        const std::string tag = TagOf(sample->DataTypeTags(), type);
        EXPECT_NE(tag, "(none)") << type;
        EXPECT_NE(tag, "") << type;
    }
}

TEST(SampleTables, AllowTheLibrariesOfTheRuntimeItself) {
    const std::unique_ptr<Rulebase> sample = Sample();
    for (const char* library :
         {"{000204EF-0000-0000-C000-000000000046}",
          "{EA544A21-C82D-11D1-A3E4-00A0C90AEA82}",
          "{FCFB3D2E-A0FA-1068-A738-08002B3371B5}",
          "{00020430-0000-0000-C000-000000000046}"}) {
        EXPECT_TRUE(sample->AuthorisedReferences().Contains(library)) << library;
    }
    EXPECT_TRUE(sample->AuthorisedComponents().Contains("{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}"));
}

TEST(SampleTables, OfferSeveralTagsWhereTeamsDiffer) {
    EXPECT_EQ(TagOf(Sample()->ControlTags(), "VB.ComboBox"), "cbo|cmb");
}
