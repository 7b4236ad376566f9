#include "ReviewRun.h"

#include "base/modTextCase.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/modLog.h"
#include "platform/database/Database.h"
#include "platform/host/modFiles.h"
#include "rulebase/file/RulebaseManager.h"
#include "rulebase/model/Rulebase.h"
#include "rulebase/model/UnauthorisedKeyword.h"
#include "settings/modGlobal.h"
#include "support/FilesystemPaths.h"

namespace dorvik::test {

namespace {

std::string WithLineEnds(const std::string& text) {
    return modTextCase::ReplaceAll(text, "\n", "\r\n");
}

HostFacts FactsIn(const TemporaryFolder& folder) {
    HostFacts facts;
    facts.LogonName = "reviewer";
    facts.ProgramFolder = test::ProgramPath(DORVIK_PROGRAM_FOLDER) + "\\";
    facts.UserDataFolder = folder.Path("user\\");
    return facts;
}

}  // namespace

ReviewRun::ReviewRun()
    : m_facts(FactsIn(m_folder)), m_installedFacts(m_facts), m_installedClock(m_clock) {
    modGlobal::CreateGlobalObjects();
    modLog::Log().SetQuiet(true);
    m_folder.Write("user\\.keep", "");
    m_criteria = std::make_shared<ReviewCriteria>();
    m_criteria->SetReportOption(0);
    m_criteria->SetWritesBatchReport(false);
    m_criteria->SetUseProjectFolderResults(true);
    m_criteria->LoadCriteria().SetRulebaseFile(m_folder.Path("Rules.dvk"));
    m_criteria->LoadCriteria().SetUnauthorisedKeywords(true);
    for (std::int32_t level = 1; level <= 5; ++level) {
        m_criteria->LoadCriteria().SetSeverityLevel(level, true);
    }
    SetRules({});
}

ReviewRun::~ReviewRun() {
    modGlobal::DestroyGlobalObjects();
}

void ReviewRun::AddProject(const std::string& name, const std::string& lines) {
    const std::string filename = m_folder.Write(name, WithLineEnds(lines));
    const auto project = std::make_shared<VirtualProject>();
    project->SetFilename(filename);
    m_criteria->ProjectList().Add(filename, project, true, true);
}

void ReviewRun::AddFile(const std::string& name, const std::string& text) {
    m_folder.Write(name, WithLineEnds(text));
}

void ReviewRun::SetRules(const std::vector<KeywordRule>& rules) {
    Rulebase rulebase;
    rulebase.SetTitle("Test rules");
    for (const KeywordRule& row : rules) {
        const auto rule = std::make_shared<UnauthorisedKeyword>();
        rule->SetTitle(row.Title);
        rule->SetCondition(row.Pattern);
        for (const std::int32_t event : row.Events) {
            rule->AddParserEventID(event);
        }
        ViolationDefinition& definition = rule->ViolationDefinition();
        definition.SetTitle(row.Title);
        definition.SetDescription(row.Description);
        definition.SetAdvice(row.Advice);
        definition.SetSeverity(row.Severity);
        definition.SetImpact(500);
        rulebase.RuleLists().AddConvention(rule, true);
    }
    RulebaseManager().Save(rulebase, m_folder.Path("Rules.dvk"));
}

SliceResult ReviewRun::Run(ReviewManager::ProgressHandler handler) {
    ReviewManager manager;
    manager.SetProgressHandler(std::move(handler));
    manager.RuleEngine().SetLimits(m_limits);
    manager.SetTypeLibraries(m_typeLibraries);
    manager.InitialiseReview(m_criteria);
    return manager.ReviewTimeSlice(kWholeReview);
}

std::string ReviewRun::ResultsPath(const std::string& project, const char* extension) {
    return m_folder.Path("Dorvik\\" + project + "_DORVIK" + extension);
}

bool ReviewRun::HasResults(const std::string& project) {
    return modFiles::FileExists(ResultsPath(project, ".mdb"));
}

std::vector<std::string> ReviewRun::Query(const std::string& project, const std::string& sql) {
    std::vector<std::string> values;
    Database database;
    database.Open(ResultsPath(project, ".mdb"));
    for (Recordset rows = database.OpenRecordset(sql, RecordsetType::Snapshot); !rows.EOF_();
         rows.MoveNext()) {
        values.push_back(rows.Value(0).AsText());
    }
    database.Close();
    return values;
}

std::vector<std::string> ReviewRun::Log(const std::string& project) {
    std::vector<std::string> lines;
    const std::string text = modFiles::ReadBytes(ResultsPath(project, ".txt"));
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = text.find("\r\n", start);
        lines.push_back(text.substr(start, end - start));
        start = end == std::string::npos ? text.size() : end + 2;
    }
    return lines;
}

std::string ModuleWith(const std::string& name, const std::string& body) {
    return "Attribute VB_Name = \"" + name + "\"\nOption Explicit\nPublic Sub Work()\n" + body +
           "End Sub\n";
}

}  // namespace dorvik::test
