// Report pages of the samples to the byte. On purpose the goldens are read and changed by hand:
// with DORVIK_REPORTS_NOW=FOLDER in the environment the tests also write there what the pages are now.

#include "base/modTextCase.h"
#include "cli/CommandLineFixture.h"
#include "criteria/ReviewCriteria.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/modLog.h"
#include "platform/host/ScopedInstall.h"
#include "platform/host/modHost.h"
#include "reports/classic/ReportsEngine.h"
#include "review/ReviewManager.h"
#include "settings/ComponentVersion.h"
#include "settings/modGlobal.h"
#include "support/FilesystemPaths.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace dorvik::test {

namespace {

namespace fs = std::filesystem;

class StandingClock final : public IClock {
public:
    DateTime Now() override { return {2026, 11, 21, 14, 5, 9}; }
};

/// Reviews samples within this process, where the clock and the user can be told.
class ReportGolden : public CommandLineFixture {
protected:
    ReportGolden() : m_factsInstalled(m_facts), m_clockInstalled(m_clock) {
        modGlobal::CreateGlobalObjects();
        modLog::Log().SetQuiet(true);
        m_criteria = std::make_shared<ReviewCriteria>();
        RulebaseLoadCriteria& load = m_criteria->LoadCriteria();
        load.SetRulebaseFile(test::ProgramPath(DORVIK_RULEBASE));
        load.SetAuthorisedComponents(true);
        load.SetAuthorisedReferences(true);
        load.SetCodingConventions(true);
        load.SetUnauthorisedKeywords(true);
        for (std::int32_t level = 1; level <= 4; ++level) {
            load.SetSeverityLevel(level, true);
        }
        m_criteria->SetUseProjectFolderResults(true);
        m_criteria->SetUseProjectFolderReports(false);
        m_criteria->SetFixedFolderReports(InnerPath("pages"));
        m_criteria->SetReviewStarted({2026, 11, 21, 14, 4, 0});
    }
    ~ReportGolden() override { modGlobal::DestroyGlobalObjects(); }

    std::string InnerPath(const std::string& name) const { return test::ProgramPath(Work(name)); }

    void AddSample(const std::string& name) {
        CopySample(name);
        const auto project = std::make_shared<VirtualProject>();
        project->SetFilename(InnerPath(name + "/" + name + ".vbp"));
        m_criteria->ProjectList().Add(name, project, true, true);
    }

    void Review() {
        ReviewManager manager;
        manager.InitialiseReview(m_criteria);
        ASSERT_EQ(manager.ReviewTimeSlice(kWholeReview), SliceResult::Complete);
    }

    /// The page with the places of this machine and the version taken out.
    std::string Masked(const std::string& page) const {
        std::string text = Bytes("pages/" + page);
        text = modTextCase::ReplaceAll(text, Work("Billing").parent_path().string(), "$FOLDER");
        text = modTextCase::ReplaceAll(text, DORVIK_RULEBASE, "$RULEBASE");
        text = modTextCase::ReplaceAll(text, DORVIK_GOLDEN_RULEBASE, "$RULEBASE");
        return modTextCase::ReplaceAll(text, ComponentVersion(), "$VERSION");
    }

    void ExpectGolden(const std::string& page, const std::string& golden) const {
        const std::string now = Masked(page);
        if (const char* const folder = std::getenv("DORVIK_REPORTS_NOW")) {
            std::ofstream(fs::path(folder) / golden, std::ios::binary) << now;
        }
        std::ifstream stream(fs::path(DORVIK_REPORTS_GOLDEN) / golden, std::ios::binary);
        const std::string expected{std::istreambuf_iterator<char>(stream), {}};
        const auto differ = std::mismatch(now.begin(), now.end(), expected.begin(), expected.end());
        const auto place = static_cast<std::size_t>(differ.first - now.begin());
        const std::size_t start = place < 100 ? 0 : place - 100;
        EXPECT_TRUE(now == expected) << golden << " differs at byte " << place << "; now:\n"
                                     << now.substr(start, 200) << "\ngolden:\n"
                                     << expected.substr(std::min(start, expected.size()), 200);
    }

    std::shared_ptr<ReviewCriteria> m_criteria;

private:
    HostFacts Facts() const {
        HostFacts facts;
        facts.LogonName = "reviewer";
        facts.ProgramFolder = test::ProgramPath(fs::path(DORVIK_PROGRAM).parent_path()) + "\\";
        facts.UserDataFolder = InnerPath("user") + "\\";
        return facts;
    }

    HostFacts m_facts = Facts();
    StandingClock m_clock;
    ScopedInstall<const HostFacts> m_factsInstalled;
    ScopedInstall<IClock> m_clockInstalled;
};

}  // namespace

TEST_F(ReportGolden, WithTolerancesAndAPageForEachFileAndOfTheBatch) {
    AddSample("Billing");
    m_criteria->SetReportOption(ReportsEngine::kDetailed);
    m_criteria->SetBatchTitle("Night");
    m_criteria->SetBatchFilename(InnerPath("Night.batch"));
    m_criteria->SetToleranceCount(1, 0);
    m_criteria->SetToleranceCount(6, 12);
    m_criteria->SetToleranceImpact(6, 100000);
    m_criteria->SetTolerancePercentageComments(5);
    Review();
    ExpectGolden("Billing_Dorvik.html", "Tolerances.project.html");
    ExpectGolden("Billing_Billing_Detail.html", "Tolerances.projectfile.html");
    ExpectGolden("modPricing_modPricing_Detail.html", "Tolerances.file.html");
    ExpectGolden("Night_batch_BatchSummary.html", "Tolerances.batch.html");
}

TEST_F(ReportGolden, WithoutTolerancesAndOnePage) {
    AddSample("Billing");
    m_criteria->SetReportOption(1);
    fs::remove(Work("Billing/modPricing.bas"));
    Review();
    ExpectGolden("Billing_Dorvik.html", "NoTolerances.project.html");
}

TEST_F(ReportGolden, WithAllKindsOfRulesOfAFormAPropertyPageAndTheirProjects) {
    AddSample("Warehouse");
    AddSample("Clinic");
    RulebaseLoadCriteria& load = m_criteria->LoadCriteria();
    load.SetRulebaseFile(test::ProgramPath(DORVIK_GOLDEN_RULEBASE));
    load.SetNamingConventions(true);
    load.SetSeverityLevel(5, true);
    m_criteria->SetReportOption(ReportsEngine::kDetailed);
    m_criteria->SetBatchTitle("All kinds");
    m_criteria->SetBatchFilename(InnerPath("Kinds.batch"));
    m_criteria->SetToleranceCount(1, 40);
    m_criteria->SetToleranceImpact(3, 3000);
    m_criteria->SetToleranceCyclomaticComplexity(6);
    Review();
    ExpectGolden("Warehouse_Dorvik.html", "Kinds.Warehouse.project.html");
    ExpectGolden("frmCount_frmCount_Detail.html", "Kinds.Warehouse.form.html");
    ExpectGolden("Clinic_Dorvik.html", "Kinds.Clinic.project.html");
    ExpectGolden("pagPulse_pagPulse_Detail.html", "Kinds.Clinic.propertypage.html");
    ExpectGolden("Clinic_Clinic_Detail.html", "Kinds.Clinic.projectfile.html");
    ExpectGolden("Kinds_batch_BatchSummary.html", "Kinds.batch.html");
}

}  // namespace dorvik::test
