#include "reports/format/modReportLinks.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

using namespace modReportLinks;

TEST(modReportLinks, AnOrdinaryNameStandsAsItIs) {
    EXPECT_EQ(HrefOfFile("Billing_Dorvik.html"), "Billing_Dorvik.html");
    EXPECT_EQ(HrefOfFile("My Project_Dorvik.html"), "My Project_Dorvik.html");
    EXPECT_EQ(HrefOfFile("K\xc3\xb6ln_Dorvik.html"), "K\xc3\xb6ln_Dorvik.html");
}

TEST(modReportLinks, WhatWouldEndThePathIsPercentEncoded) {
    EXPECT_EQ(HrefOfFile("100%_C#?.html"), "100%25_C%23%3F.html");
    EXPECT_EQ(HrefOfFile("R&copy.html"), "R%26copy.html");
    EXPECT_EQ(HrefOfFile("c:x\"y'<z>.html"), "c%3Ax%22y%27%3Cz%3E.html");
    EXPECT_EQ(HrefOfFile("a\tb\x7f.html"), "a%09b%7F.html");
    EXPECT_EQ(HrefOfFile(" a b "), "%20a b%20");
}

TEST(modReportLinks, APathIsThatOfThisMachine) {
    EXPECT_EQ(HrefOfPath("\\no where\\50%\\a.html"), "/no where/50%25/a.html");
}

TEST(modReportLinks, APathThatIsNoneOfThisMachineLeadsThereWhereItIsOne) {
    EXPECT_EQ(HrefOfPath("C:\\My Src\\50%\\a.txt"), "file:///C:/My Src/50%25/a.txt");
    EXPECT_EQ(HrefOfPath("\\\\server\\src\\#a.txt"), "file://server/src/%23a.txt");
    EXPECT_EQ(HrefOfPath("C:"), "C%3A");
    EXPECT_EQ(HrefOfPath(std::string_view("\\a\0b", 4)), "%5Ca%00b") << "no path anywhere";
    EXPECT_EQ(HrefOfPath(""), "");
}

TEST(modReportLinks, BytesThatAreNoTextKeepTheirLink) {
    EXPECT_EQ(HrefOfFile("K\xf6ln \xff\xc3.html"), "K%F6ln %FF%C3.html");
}

TEST(modReportLinks, TheTextOfAPathHasSlashesWhereItIsOneOfThisMachine) {
    EXPECT_EQ(PathText("\\home\\ann\\a.bas"), "/home/ann/a.bas");
    EXPECT_EQ(PathText("C:\\Src\\a.bas"), "C:\\Src\\a.bas");
    EXPECT_EQ(PathText("\\\\server\\src\\a.bas"), "\\\\server\\src\\a.bas");
    EXPECT_EQ(PathText("a.bas"), "a.bas");
    EXPECT_EQ(PathText(""), "");
}

}  // namespace
}  // namespace dorvik
