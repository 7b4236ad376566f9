#include "results/ResultsDB.h"

#include "base/BasicError.h"
#include "base/DateTime.h"
#include "base/modTextCase.h"
#include "criteria/ReviewCriteria.h"
#include "foundation/log/Trap.h"
#include "platform/host/modHost.h"
#include "rulebase/model/Rulebase.h"
#include "settings/DVKWorkData.h"
#include "settings/modGlobal.h"

namespace dorvik {

namespace {

constexpr std::int32_t kLastTolerance = 6;

void SetConventions(Recordset& rows, const RulebaseLoadCriteria& criteria) {
    rows.SetValue("CodingConventions", criteria.CodingConventions());
    rows.SetValue("NamingConventions", criteria.NamingConventions());
    rows.SetValue("DocumentationConventions", criteria.DocumentationConventions());
    rows.SetValue("AuthorisedComponents", criteria.AuthorisedComponents());
    rows.SetValue("AuthorisedReferences", criteria.AuthorisedReferences());
    rows.SetValue("UnauthorisedKeywords", criteria.UnauthorisedKeywords());
    rows.SetValue("NumCodingConventions", criteria.NumCodingConventions);
    rows.SetValue("NumNamingConventions", criteria.NumNamingConventions);
    rows.SetValue("NumDocConventions", criteria.NumDocConventions);
    rows.SetValue("NumAuthComps", criteria.NumAuthComps);
    rows.SetValue("NumAuthRefs", criteria.NumAuthRefs);
    rows.SetValue("NumUnauthKeywords", criteria.NumUnauthKeywords);
}

void SetTolerances(Recordset& rows, const ReviewCriteria& criteria) {
    for (std::int32_t index = 1; index <= kLastTolerance; ++index) {
        const std::string number = std::to_string(index);
        rows.SetValue("ToleranceCount" + number, criteria.ToleranceCount(index));
        rows.SetValue("ToleranceImpact" + number, criteria.ToleranceImpact(index));
    }
    rows.SetValue("ToleranceCyclomaticComplexity", criteria.ToleranceCyclomaticComplexity());
    rows.SetValue("TolerancePercentageComments", criteria.TolerancePercentageComments());
}

}  // namespace

ResultsDB::ResultsDB(DVKWorkData& settings) : m_ownSettings(&settings) {
    LoadSortFields();
}

ResultsDB::ResultsDB() {
    LoadSortFields();
}

ResultsDB::~ResultsDB() {
    CloseDatabase();
    StoreSortFields();
}

const DVKWorkData& ResultsDB::Settings() const {
    static const DVKWorkData kDefaults;
    if (m_ownSettings != nullptr) {
        return *m_ownSettings;
    }
    return modGlobal::IsInUse() ? modGlobal::WorkData() : kDefaults;
}

void ResultsDB::LoadSortFields() {
    const DVKWorkData& settings = Settings();
    m_fileSortKey = settings.RVFileSortKey();
    m_fileSortAscending = settings.RVFileSortAscending();
    m_procSortKey = settings.RVProcSortKey();
    m_procSortAscending = settings.RVProcSortAscending();
}

void ResultsDB::StoreSortFields() {
    if (m_ownSettings == nullptr && !modGlobal::IsInUse()) {
        return;
    }
    DVKWorkData& settings = m_ownSettings != nullptr ? *m_ownSettings : modGlobal::WorkData();
    settings.SetRVFileSortKey(m_fileSortKey);
    settings.SetRVFileSortAscending(m_fileSortAscending);
    settings.SetRVProcSortKey(m_procSortKey);
    settings.SetRVProcSortAscending(m_procSortAscending);
}

bool ResultsDB::OpenDatabase(const std::string& filename) {
    m_failures = {};
    m_foundVersion.reset();
    Trap({kModule, "OpenDatabase"}, [&] {
        m_database.Open(filename);
        m_databaseOpen = true;
        if (auto rows = GetReadOnlyRecordset("SELECT Version FROM SystemInfo");
            rows && !rows->EOF_()) {
            m_foundVersion = rows->Value("Version").AsText();
        }
    });
    const bool isRightVersion =
        m_foundVersion && modTextCase::Equal(*m_foundVersion, kSchemaVersion);
    if (!isRightVersion) {
        m_database.CloseUntouched();
        CloseDatabase();
    }
    return isRightVersion;
}

void ResultsDB::CloseDatabase() {
    m_isNewReview = false;
    m_database.Close();
    m_databaseOpen = false;
}

std::optional<Recordset> ResultsDB::GetEditableRecordset(std::string_view sql, SqlValues values) {
    std::optional<Recordset> rows;
    Trap({kModule, "GetEditableRecordset"}, [&] {
        RefuseKnownFault(values);
        rows = m_database.OpenRecordset(sql, RecordsetType::Dynaset, std::move(values));
    });
    return rows;
}

std::optional<Recordset> ResultsDB::GetReadOnlyRecordset(std::string_view sql, SqlValues values) {
    std::optional<Recordset> rows;
    Trap({kModule, "GetReadOnlyRecordset"}, [&] {
        RefuseKnownFault(values);
        rows = m_database.OpenRecordset(sql, RecordsetType::Snapshot, std::move(values));
    });
    return rows;
}

void ResultsDB::Execute(std::string_view sql, SqlValues values) {
    RefuseKnownFault(values);
    m_database.Execute(sql, std::move(values));
}

/// Values used to stand in the texts as they are, where a quote in one broke the statement.
void ResultsDB::RefuseKnownFault(const SqlValues& values) {
    if (!m_keepsKnownFaults) {
        return;
    }
    for (const SqlLiteral& value : values) {
        const auto* const text = std::get_if<std::string>(&value);
        if (text != nullptr && text->find('\'') != std::string::npos) {
            m_isKnownFault = true;
            throw BasicError(databaseerror::kSyntax, "A value has a quote in it: " + *text);
        }
    }
}

void ResultsDB::CountFailure() {
    m_failures.AddCount();
    m_failures.NoteReason(databaseerror::kStoreFailed);  // unless one was told
    m_knownFaults += std::exchange(m_isKnownFault, false) ? 1 : 0;
    if (m_databaseOpen && m_failures.FirstNumber() == databaseerror::kLocked) {
        // There is no verdict any more; let not every other row wait as long for the same lock.
        SetPatience(std::chrono::milliseconds(0));
    }
}

void ResultsDB::NoteLoss(std::string_view reason) {
    m_failures.NoteReason(reason);
    m_failures.AddCount();
}

/// Goes on with the rows, or fails in the calling operation's name too.
Recordset ResultsDB::NeedRows(std::optional<Recordset> rows) {
    if (!rows) {
        RaiseRuntimeError(runtimeerror::kObjectNotSet);
    }
    return std::move(*rows);
}

// ---- the review itself ----

bool ResultsDB::StartReview(
    const std::string& filename, const Rulebase& rulebase, const ReviewCriteria& criteria) {
    bool started = false;
    Trap({kModule, "StartReview"}, [&] {
        m_filename = filename;
        m_keepsKnownFaults = criteria.KeepsKnownFaults();
        m_knownFaults = 0;
        if (!OpenDatabase(filename)) {
            return;
        }
        m_sourceFiles.clear();
        m_isNewReview = HasNoSourceFiles();
        WriteReview(rulebase, criteria);
        WriteCategoryList(rulebase, criteria);
        WriteSeverityList(rulebase, criteria);
        started = true;
    });
    return started;
}

bool ResultsDB::HasNoSourceFiles() {
    return NeedRows(GetReadOnlyRecordset("SELECT SourceID FROM SourceFiles")).EOF_();
}

void ResultsDB::WriteReview(const Rulebase& rulebase, const ReviewCriteria& criteria) {
    auto rows = NeedRows(GetEditableRecordset("SELECT * FROM Review WHERE ReviewID = 0"));
    rows.AddNew();
    rows.SetValue("Start", modDateText::DatabaseStamp(modHost::Now()));
    rows.SetValue("Type", static_cast<std::int32_t>(criteria.ReviewType()));
    rows.SetValue("RulebaseTitle", rulebase.Title());
    rows.SetValue("RulebaseVersion", rulebase.Version());
    rows.SetValue("Reviewer", modHost::LogonName());
    rows.SetValue("ActiveRules", rulebase.RuleCount());
    SetConventions(rows, criteria.LoadCriteria());
    SetTolerances(rows, criteria);
    rows.Update();
    rows.MoveFirst();
    m_reviewId = rows.Value("ReviewID").AsLong();
}

void ResultsDB::WriteCategoryList(const Rulebase& rulebase, const ReviewCriteria& criteria) {
    auto rows =
        NeedRows(GetEditableRecordset("SELECT * FROM CategoryList WHERE CategoryListID = 0"));
    const auto& categories = rulebase.CategoryList();
    for (std::int32_t index = 1; index <= categories.Count(); ++index) {
        const auto& category = *categories.Item(index);
        if (criteria.LoadCriteria().IsExcludedCategoryID(category.ID())) {
            continue;
        }
        rows.AddNew();
        rows.SetValue("ReviewID", m_reviewId);
        rows.SetValue("CategoryID", category.ID());
        rows.SetValue("Category", category.Title());
        rows.Update();
    }
}

/// Required: a level that is left out of the review has its row too.
void ResultsDB::WriteSeverityList(const Rulebase& rulebase, const ReviewCriteria& criteria) {
    auto rows =
        NeedRows(GetEditableRecordset("SELECT * FROM SeverityList WHERE SeverityRecordID = 0"));
    const auto& severities = rulebase.SeverityList();
    for (std::int32_t index = 1; index <= severities.Count(); ++index) {
        const auto& severity = *severities.Item(index);
        rows.AddNew();
        rows.SetValue("ReviewID", m_reviewId);
        rows.SetValue("SeverityColour", severity.Colour());
        rows.SetValue("SeverityLevel", severity.SeverityLevel());
        rows.SetValue("SeverityText", severity.Title());
        rows.SetValue("Included", criteria.LoadCriteria().SeverityLevel(severity.SeverityLevel()));
        rows.Update();
    }
}

void ResultsDB::EndReview(std::int32_t ruleExecutions) {
    // Rows that known faults cost were asked for.
    if (m_failures.Count() > m_knownFaults) {
        return;
    }
    Trap({kModule, "EndReview"}, [&] {
        auto rows = NeedRows(GetEditableRecordset(
            "SELECT RuleExecutions, [End] FROM Review WHERE ReviewID = " +
            std::to_string(m_reviewId)));
        if (rows.EOF_()) {
            return;
        }
        rows.MoveFirst();
        rows.Edit();
        rows.SetValue("End", modDateText::DatabaseStamp(modHost::Now()));
        rows.SetValue("RuleExecutions", ruleExecutions);
        rows.Update();
    });
    if (m_failures.Count() == m_knownFaults) {
        AddIndexes();
    }
}

/// Made at the end in one go they cost little, while kept up to date they would slow every row down. The
/// first one holds all that a filtered count needs, and keeps the violations of an item in their order of
/// raising.
void ResultsDB::AddIndexes() {
    // Without them nothing is lost but time.
    dorvik::Trap({kModule, "AddIndexes"}, [&] {
        m_database.EnsureIndex(
            "ViolationsByItem",
            "Violations",
            {"ItemID", "ItemType", "ViolationID", "CategoryID", "Severity", "RuleType", "Impact"});
        m_database.EnsureIndex("ViolationsByCategory", "Violations", {"CategoryID", "Severity"});
        m_database.EnsureIndex("ViolationStatsByItem", "ViolationStats", {"ItemID", "ItemType"});
        m_database.EnsureIndex("LineCountStatsByItem", "LineCountStats", {"ItemID", "ItemType"});
        m_database.AnalyseIndexes();
    });
}

void ResultsDB::AbortReview() {
    Trap({kModule, "AbortReview"}, [&] {
        CloseDatabase();
        if (!m_filename.empty()) {
            Database::DeleteFile(m_filename);
        }
    });
}

}  // namespace dorvik
