#include "enforcement/AuthorisationEnforcement.h"

#include "enforcement/ResultsManager.h"
#include "rulebase/model/Rulebase.h"
#include "source/VirtualReference.h"

#include <gtest/gtest.h>

namespace dorvik {

namespace {

const std::string kGuid = "{11111111-2222-3333-4444-555555555555}";

/// The result of the list is the same whether the check is enabled or not.
class FindReferenceTest : public testing::Test {
protected:
    AuthorisationEnforcement::Verdict Find(const std::string& version, bool designTime = false) {
        m_reference.GUID = kGuid;
        m_reference.Version = version;
        m_reference.DesignTime = designTime;
        m_reference.AuthorisedVersions = "as it was";
        return AuthorisationEnforcement(m_rulebase, m_results.ParserState(), m_results.Violations())
            .FindReference(m_reference);
    }

    void List(const std::string& versions, const std::string& advice = "") {
        m_rulebase.AuthorisedReferences().Add(kGuid, "The Thing", "", versions, advice);
    }

    Rulebase m_rulebase;
    ResultsManager m_results;
    VirtualReference m_reference;
};

TEST_F(FindReferenceTest, AListedVersionIsAuthorisedAndTheListIsKept) {
    List("1.2;3.0");
    const auto verdict = Find("3.0");
    EXPECT_TRUE(verdict.Found);
    EXPECT_TRUE(verdict.Authorised);
    EXPECT_EQ(m_reference.AuthorisedVersions, "1.2;3.0");
}

TEST_F(FindReferenceTest, ABlankListAuthorisesEveryVersionAndLeavesTheVersionsAsTheyWere) {
    List("  ");
    const auto verdict = Find("7.5");
    EXPECT_TRUE(verdict.Found);
    EXPECT_TRUE(verdict.Authorised);
    EXPECT_EQ(m_reference.AuthorisedVersions, "as it was");
}

TEST_F(FindReferenceTest, AnotherVersionIsFoundAndNotAuthorised) {
    List("1.2", "Take 1.2.");
    const auto verdict = Find("2.0");
    EXPECT_TRUE(verdict.Found);
    EXPECT_FALSE(verdict.Authorised);
    EXPECT_EQ(verdict.Advice, "Take 1.2.");
}

TEST_F(FindReferenceTest, OneOfTheDesignEnvironmentIsNeverLookedUp) {
    List("");
    const auto verdict = Find("1.2", /*designTime=*/true);
    EXPECT_FALSE(verdict.Found);
    EXPECT_FALSE(verdict.Authorised);
}

TEST_F(FindReferenceTest, OneThatIsNotListedIsNotFound) {
    EXPECT_FALSE(Find("1.2").Found);
}

}  // namespace

}  // namespace dorvik
