#include "source/modProjectFileLine.h"

#include "base/BasicError.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

namespace dorvik {
namespace {

/// The number of the BasicError that the body raises; 0 for none.
std::int32_t ErrorOf(const std::function<void()>& body) {
    try {
        body();
    } catch (const BasicError& error) {
        return error.Number();
    }
    return 0;
}

TEST(modProjectFileLine, AQuotedValueLosesItsFirstAndLastCharacterWhateverTheLastIs) {
    using modProjectFileLine::UnquotedValue;
    EXPECT_EQ(UnquotedValue("\"Billing\""), "Billing");
    EXPECT_EQ(UnquotedValue("\"Billing"), "Billin");
    EXPECT_EQ(UnquotedValue("\"Caf\xC3\xA9"), "Caf");  // the last character has two bytes
    EXPECT_EQ(UnquotedValue("\"\""), "");
    EXPECT_EQ(UnquotedValue("Billing\""), "Billing\"");
    EXPECT_EQ(UnquotedValue(" \"Billing\""), " \"Billing\"");
    EXPECT_EQ(UnquotedValue(""), "");
}

TEST(modProjectFileLine, AValueOfOneLoneQuoteCannotBeCut) {
    EXPECT_EQ(ErrorOf([] { modProjectFileLine::UnquotedValue("\""); }), 5);
}

TEST(modProjectFileLine, ATypeLibraryReferenceIsCutAtItsMarks) {
    const auto reference = modProjectFileLine::ReferenceFromLine(
        "Reference=*\\G{00020430-0000-0000-C000-000000000046}#2.0#409#..\\stdole2.tlb#OLE "
        "Automation");
    EXPECT_EQ(reference.Key, "{00020430-0000-0000-C000-000000000046}");
    EXPECT_EQ(reference.Item->GUID, reference.Key);
    EXPECT_EQ(reference.Item->Version, "2.0");
    EXPECT_EQ(reference.Item->LCID, 0x409);
    EXPECT_EQ(reference.Item->Filename, "..\\stdole2.tlb");
    EXPECT_EQ(reference.Item->Description, "OLE Automation");
    EXPECT_FALSE(reference.Item->DesignTime);
    EXPECT_FALSE(reference.Item->IsAuthorised);
    EXPECT_EQ(reference.Item->AuthorisedVersions, "");
}

TEST(modProjectFileLine, AReferenceWithFewerThanFiveElementsIsASubscriptFailure) {
    for (const char* line :
         {"Reference=*\\G{A}#2.0#0#", "Reference=*\\G{A}#2.0#0#x.tlb", "Reference=*\\G{A", "x={"}) {
        EXPECT_EQ(ErrorOf([&] { modProjectFileLine::ReferenceFromLine(line); }), 9) << line;
    }
}

TEST(modProjectFileLine, ADesignTimeReferenceKeepsTheLetterBehindTheBackslash) {
    const auto reference =
        modProjectFileLine::ReferenceFromLine("Reference=*\\A..\\Tools\\Tools.vbp");
    EXPECT_TRUE(reference.Item->DesignTime);
    EXPECT_EQ(reference.Item->Filename, "A..\\Tools\\Tools.vbp");
    EXPECT_EQ(reference.Key, reference.Item->Filename);
    EXPECT_EQ(reference.Item->GUID, "");
}

TEST(modProjectFileLine, ADesignTimeReferenceWithoutABackslashIsTakenWhole) {
    EXPECT_EQ(modProjectFileLine::ReferenceFromLine("Reference=x").Key, "Reference=x");
}

TEST(modProjectFileLine, AComponentIsCutAtItsSemicolonAndItsMarks) {
    const auto component = modProjectFileLine::ComponentFromLine(
        "Object={831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0; \"MSCOMCTL.OCX\"");
    EXPECT_EQ(component.Key, "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}");
    EXPECT_EQ(component.Item->GUID, component.Key);
    EXPECT_EQ(component.Item->Version, "2.0");
    EXPECT_EQ(component.Item->LCID, 0);
    EXPECT_EQ(component.Item->Filename, "MSCOMCTL.OCX");
    EXPECT_FALSE(component.Item->DesignTime);
}

TEST(modProjectFileLine, ADesignTimeComponentNamesItsFile) {
    const auto component = modProjectFileLine::ComponentFromLine("Object=*\\AGrid.vbp");
    EXPECT_TRUE(component.Item->DesignTime);
    EXPECT_EQ(component.Item->Filename, "AGrid.vbp");
    EXPECT_EQ(component.Key, "AGrid.vbp");
}

TEST(modProjectFileLine, AComponentThatCannotBeCutRaises) {
    EXPECT_EQ(ErrorOf([] { modProjectFileLine::ComponentFromLine("Object={A}#2.0#0"); }), 5);
    EXPECT_EQ(ErrorOf([] { modProjectFileLine::ComponentFromLine("Object={A}#2.0; x.ocx"); }), 9);
}

TEST(modProjectFileLine, ALocaleIsReadAsAHexadecimalNumber) {
    const std::pair<const char*, std::int32_t> rows[] = {
        {"0", 0},
        {"9", 9},
        {"409", 0x409},
        {"0C0a", 0xC0A},
        {" 4 0 7", 0x407},
        {"409xyz1", 0x409},
        {"", 0},
        {"xyz", 0},
        {"FFFF", -1},
        {"FFFF&", 65535},
        {"10000", 65536},
        {"FFFFFFFF", -1},
    };
    for (const auto& [text, expected] : rows) {
        EXPECT_EQ(modProjectFileLine::LocaleFromHexadecimal(text), expected) << text;
    }
    EXPECT_EQ(ErrorOf([] { modProjectFileLine::LocaleFromHexadecimal("100000000"); }), 6);
}

}  // namespace
}  // namespace dorvik
