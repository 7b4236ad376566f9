#include "foundation/text/VersionNumber.h"

#include "base/BasicError.h"
#include "support/CapturedLog.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace dorvik {
namespace {

TEST(VersionNumber, NewVersionIsAllZeros) {
    const VersionNumber version;
    EXPECT_EQ(version.Version(), "0.0.0000");
}

TEST(VersionNumber, RevisionHasAtLeastFourDigits) {
    VersionNumber version;
    version.SetMajor(1);
    EXPECT_EQ(version.Version(), "1.0.0000");
    version.SetRevision(12345);
    EXPECT_EQ(version.RevisionString(), "12345");
    version.SetRevision(-7);
    EXPECT_EQ(version.RevisionString(), "-0007");
}

struct IncrementCase {
    std::string Before;
    std::string After;
};

TEST(VersionNumber, IncrementCarriesBeyond9999) {
    const IncrementCase cases[] = {
        {"6.2.0001", "6.2.0002"},
        {"6.2.9999", "6.3.0000"},
        {"6.9999.9999", "7.0.0000"},
        {"6.2.32767", "6.3.0000"},
        {"9999.9999.9999", "10000.0.0000"},
    };
    for (const IncrementCase& row : cases) {
        VersionNumber version;
        version.SetVersion(row.Before);
        version.Increment();
        EXPECT_EQ(version.Version(), row.After) << row.Before;
    }
}

TEST(VersionNumber, TextOfTwoPartsSetsThemAndLogsTheFailure) {
    const test::CapturedLog log;
    VersionNumber version;
    version.SetVersion("6.2.0005");
    version.SetVersion("1.0");
    EXPECT_EQ(version.Major(), 1);
    EXPECT_EQ(version.Minor(), 0);
    EXPECT_EQ(version.Revision(), 5);
    EXPECT_EQ(
        log.Entries(),
        std::vector<std::string>{"Error #9 - Subscript out of range#VersionNumber::Version"});
}

TEST(VersionNumber, PartThatIsNoNumberIsLoggedAndTheOthersBeforeItStay) {
    const test::CapturedLog log;
    VersionNumber version;
    version.SetVersion("6.x.1");
    version.SetVersion("7.40000.1");
    version.SetVersion("");
    EXPECT_EQ(version.Version(), "7.0.0000");
    EXPECT_EQ(log.Lines().size(), 3U);
    EXPECT_TRUE(log.Contains("13 - Type mismatch#VersionNumber::Version"));
    EXPECT_TRUE(log.Contains("6 - Overflow#VersionNumber::Version"));
}

TEST(VersionNumber, PartsBehindTheThirdAreIgnored) {
    VersionNumber version;
    version.SetVersion("1.2.3.4");
    EXPECT_EQ(version.Version(), "1.2.0003");
}

TEST(VersionNumber, SingleTextsSetTheirNumberAndAnEmptyTextSetsZero) {
    VersionNumber version;
    version.SetMajorString("6");
    version.SetMinorString("02");
    version.SetRevisionString("17");
    EXPECT_EQ(version.MajorString(), "6");
    EXPECT_EQ(version.MinorString(), "2");
    EXPECT_EQ(version.RevisionString(), "0017");
    version.SetMajorString("");
    version.SetMinorString("");
    version.SetRevisionString("");
    EXPECT_EQ(version.Version(), "0.0.0000");
    EXPECT_THROW(version.SetMajorString("x"), BasicError);
    EXPECT_THROW(version.SetMinorString("32768"), BasicError);
}

}  // namespace
}  // namespace dorvik
