#include "enforcement/VirtualNameTable.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace dorvik {

namespace {

/// Names of three modules: an enumeration and a type of each scope, and a class.
class VirtualNameTableTest : public testing::Test {
protected:
    VirtualNameTableTest() {
        m_table.AddName("Invoice", NameKind::ClassFile, "", "");
        m_table.AddName("Colours", NameKind::Enumeration, "modA", "Public");
        m_table.AddName("Secrets", NameKind::Enumeration, "modA", "Private");
        m_table.AddName("Address", NameKind::UserDefinedType, "modB", "Public");
        m_table.AddName("Hidden", NameKind::UserDefinedType, "modB", "Private");
    }

    std::optional<NameKind> Find(std::string_view typeName, std::string_view module) const {
        return m_table.FindName(typeName, module);
    }

    VirtualNameTable m_table;
};

TEST(VirtualNameTable, NumbersOfTheKindsAreThoseThatOthersCountOn) {
    const std::vector<NameKind> kinds{
        NameKind::ClassFile,
        NameKind::DesignerFile,
        NameKind::Enumeration,
        NameKind::FormFile,
        NameKind::MDIFormFile,
        NameKind::ModuleFile,
        NameKind::PropertyPageFile,
        NameKind::UserDefinedType,
        NameKind::UserControlFile,
        NameKind::UserDocumentFile};
    int number = 0;
    for (const NameKind kind : kinds) {
        EXPECT_EQ(static_cast<int>(kind), ++number);
    }
}

TEST(VirtualNameTable, AnEmptyTableFindsNothing) {
    EXPECT_EQ(VirtualNameTable().FindName("Long", "modA"), std::nullopt);
    EXPECT_EQ(VirtualNameTable().FindName("", ""), std::nullopt);
}

TEST_F(VirtualNameTableTest, PublicNamesAreFoundFromEveryModuleAlsoQualifiedByTheirOwn) {
    EXPECT_EQ(Find("Colours", "modA"), NameKind::Enumeration);
    EXPECT_EQ(Find("Colours", "modC"), NameKind::Enumeration);
    EXPECT_EQ(Find("modA.Colours", "modC"), NameKind::Enumeration);
    EXPECT_EQ(Find("Address", "modC"), NameKind::UserDefinedType);
    EXPECT_EQ(Find("modB.Address", "modC"), NameKind::UserDefinedType);
}

TEST_F(VirtualNameTableTest, PublicNamesAreNotFoundUnderAnotherQualifier) {
    EXPECT_EQ(Find("modB.Colours", "modA"), std::nullopt);
    EXPECT_EQ(Find("modA.Address", "modB"), std::nullopt);
}

TEST_F(VirtualNameTableTest, PrivateNamesAreFoundOnlyFromTheirOwnModule) {
    EXPECT_EQ(Find("Secrets", "modA"), NameKind::Enumeration);
    EXPECT_EQ(Find("Secrets", "modB"), std::nullopt);
    EXPECT_EQ(Find("modA.Secrets", "modB"), std::nullopt);
    EXPECT_EQ(Find("Hidden", "modB"), NameKind::UserDefinedType);
    EXPECT_EQ(Find("Hidden", "modA"), std::nullopt);
}

TEST_F(VirtualNameTableTest, QualifierOfAPrivateNameIsNotLookedAt) {
    EXPECT_EQ(Find("modX.Secrets", "modA"), NameKind::Enumeration);
}

TEST_F(VirtualNameTableTest, NamesAndModulesCompareWithoutRegardToCase) {
    EXPECT_EQ(Find("COLOURS", "x"), NameKind::Enumeration);
    EXPECT_EQ(Find("MODa.colours", "x"), NameKind::Enumeration);
    EXPECT_EQ(Find("secrets", "MODA"), NameKind::Enumeration);
    EXPECT_EQ(Find("invoice", "x"), NameKind::ClassFile);
}

TEST_F(VirtualNameTableTest, FileIsFoundByItsBareNameOnly) {
    EXPECT_EQ(Find("Invoice", "modA"), NameKind::ClassFile);
    EXPECT_EQ(Find("Billing.Invoice", "modA"), std::nullopt);
}

TEST_F(VirtualNameTableTest, FileComesBeforeAnEnumerationOfItsName) {
    m_table.AddName("Colours", NameKind::FormFile, "", "");
    EXPECT_EQ(Find("Colours", "modA"), NameKind::FormFile);
    EXPECT_EQ(Find("modA.Colours", "modA"), NameKind::Enumeration);
}

TEST_F(VirtualNameTableTest, PrivateNameComesBeforeAPublicOneOfAnotherModule) {
    m_table.AddName("Colours", NameKind::UserDefinedType, "modC", "Private");
    EXPECT_EQ(Find("Colours", "modC"), NameKind::UserDefinedType);
    EXPECT_EQ(Find("Colours", "modB"), NameKind::Enumeration);
}

TEST_F(VirtualNameTableTest, OnlyTheScopePrivateMakesANamePrivate) {
    m_table.AddName("Loud", NameKind::Enumeration, "modA", "PRIVATE");
    m_table.AddName("Plain", NameKind::Enumeration, "modA", "");
    EXPECT_EQ(Find("Loud", "modB"), std::nullopt);
    EXPECT_EQ(Find("Plain", "modB"), NameKind::Enumeration);
}

TEST_F(VirtualNameTableTest, TheNameBeginsAfterTheFirstDot) {
    m_table.AddName("B.Odd", NameKind::Enumeration, "A", "Public");
    EXPECT_EQ(Find("A.B.Odd", "x"), NameKind::Enumeration);
}

TEST_F(VirtualNameTableTest, NameAfterALeadingDotHasNoQualifier) {
    EXPECT_EQ(Find(".Colours", "x"), NameKind::Enumeration);
    EXPECT_EQ(Find(".Invoice", "x"), std::nullopt);  // no file is called so
}

TEST_F(VirtualNameTableTest, ModuleWithoutANameHasPrivateNamesOfItsOwn) {
    m_table.AddName("Nameless", NameKind::Enumeration, "", "Private");
    EXPECT_EQ(Find("Nameless", ""), NameKind::Enumeration);
    EXPECT_EQ(Find("Nameless", "modA"), std::nullopt);
    EXPECT_EQ(Find("Secrets", ""), std::nullopt);
}

}  // namespace

}  // namespace dorvik
