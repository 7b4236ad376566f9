#include "SampleReview.h"

#include "criteria/ReviewCriteria.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/modLog.h"
#include "platform/database/Database.h"
#include "platform/host/modFiles.h"
#include "results/modResultsFilename.h"
#include "review/ReviewManager.h"
#include "rulebase/file/RulebaseManager.h"
#include "rulebase/model/IRule.h"
#include "rulebase/model/Rulebase.h"
#include "settings/modGlobal.h"
#include "support/FilesystemPaths.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace dorvik::test {

namespace {

/// What a review log holds when all went well, and when libraries or files are not there.
constexpr const char* kUsualLines[] = {
    "Project: ",
    "Review",
    "Failed to load ",
    " successfully reviewed.",
    "Unexpected error(s) encountered",
    "error(s) loading ",
    "ile not found",
    "could not be",
    "Data type '",
};

HostFacts FactsIn(const TemporaryFolder& folder) {
    HostFacts facts;
    facts.LogonName = "reviewer";
    facts.ProgramFolder = test::ProgramPath(DORVIK_PROGRAM_FOLDER) + "\\";
    facts.UserDataFolder = folder.Path("user\\");
    return facts;
}

std::shared_ptr<ReviewCriteria> MakeCriteria(const std::string& rulebaseFile) {
    auto criteria = std::make_shared<ReviewCriteria>();
    criteria->SetReportOption(0);
    criteria->SetWritesBatchReport(false);
    criteria->SetUseProjectFolderResults(true);
    RulebaseLoadCriteria& load = criteria->LoadCriteria();
    load.SetRulebaseFile(rulebaseFile);
    load.SetUnauthorisedKeywords(true);
    load.SetCodingConventions(true);
    load.SetNamingConventions(true);
    for (std::int32_t level = 1; level <= 5; ++level) {
        load.SetSeverityLevel(level, true);
    }
    return criteria;
}

std::string ResultsFile(const SampleSource& source) {
    return modDorvikUtils::CreateResultsFilename(source.ProjectFile, "");
}

std::string LastPartOf(const std::string& path) {
    return path.substr(path.find_last_of('\\') + 1);
}

/// "flag.bas" for the only file of a source, "flag/Main.bas" for one of a folder.
std::string FileIn(const SampleSource& source, const std::string& file) {
    return file == source.Name || file == "Project.vbp" ? source.Name : source.Name + "/" + file;
}

}  // namespace

std::string SampleReview::RulebaseFile() {
    const char* const named = std::getenv("DORVIK_SAMPLE_RULEBASE");
    return test::ProgramPath(named != nullptr ? named : DORVIK_SAMPLE_RULEBASE);
}

SampleReview::SampleReview() : m_facts(FactsIn(m_folder)), m_installedFacts(m_facts) {
    modGlobal::CreateGlobalObjects();
    modLog::Log().SetQuiet(true);
    m_folder.Write("user\\.keep", "");
}

SampleReview::~SampleReview() {
    modGlobal::DestroyGlobalObjects();
}

std::unique_ptr<Rulebase> SampleReview::Load() {
    RulebaseLoadCriteria load;
    load.SetRulebaseFile(RulebaseFile());
    load.SetLoadForEdit(true);
    return RulebaseManager().LoadRulebase(load);
}

bool SampleReview::Run(const SampleFolder& folder, std::int32_t ruleID) {
    const std::unique_ptr<Rulebase> rulebase = Load();
    if (rulebase == nullptr ||
        !rulebase->RuleLists().AllConventions().Contains(RuleKeyOf(ruleID))) {
        return false;
    }
    m_ruleID = ruleID;
    rulebase->RuleLists().AllConventions().Item(RuleKeyOf(ruleID))->SetRuleActive(true);
    const std::string tried = m_folder.Path("Tried.dvk");
    RulebaseManager().Save(*rulebase, tried);

    m_sources = folder.WriteProjects(m_folder);
    const std::shared_ptr<ReviewCriteria> criteria = MakeCriteria(tried);
    for (const SampleSource& source : m_sources) {
        const auto project = std::make_shared<VirtualProject>();
        project->SetFilename(source.ProjectFile);
        criteria->ProjectList().Add(source.ProjectFile, project, true, true);
    }
    ReviewManager manager;
    manager.InitialiseReview(criteria);
    manager.ReviewTimeSlice(kWholeReview);
    return true;
}

std::vector<SampleFinding> SampleReview::Findings(const SampleSource& source) const {
    std::vector<SampleFinding> findings;
    Database database;
    database.Open(ResultsFile(source));
    const std::string sql =
        "SELECT v.LineNum, v.Description, v.Advice, s.Filename FROM Violations v "
        "LEFT JOIN Procedures p ON v.ItemType = 3 AND p.ProcID = v.ItemID "
        "LEFT JOIN SourceFiles s ON s.SourceID = p.SourceID WHERE v.RuleID = " +
        std::to_string(m_ruleID);
    for (Recordset rows = database.OpenRecordset(sql, RecordsetType::Snapshot); !rows.EOF_();
         rows.MoveNext()) {
        const std::string file = rows.Value(3).AsText();
        SampleFinding finding;
        finding.Place.File =
            FileIn(source, file.empty() ? LastPartOf(source.ProjectFile) : LastPartOf(file));
        finding.Place.Line = std::atoi(rows.Value(0).AsText().c_str());
        finding.Texts = rows.Value(1).AsText() + " " + rows.Value(2).AsText();
        findings.push_back(finding);
    }
    database.Close();
    return findings;
}

std::vector<std::string> SampleReview::RuleErrors(const SampleSource& source) {
    std::string log = ResultsFile(source);
    log.replace(log.size() - 4, 4, ".txt");
    const std::string text = modFiles::ReadBytes(log);
    std::vector<std::string> errors;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find("\r\n", start), text.size());
        const std::string line = text.substr(start, end - start);
        const bool usual =
            std::any_of(std::begin(kUsualLines), std::end(kUsualLines), [&](const char* piece) {
                return line.find(piece) != std::string::npos;
            });
        if (!usual && !line.empty()) {
            errors.push_back(line);
        }
        start = end + 2;
    }
    return errors;
}

}  // namespace dorvik::test
