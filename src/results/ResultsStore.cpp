#include "results/ResultsStore.h"

#include "base/modTextCase.h"

namespace dorvik {

namespace {

/// Without rows the calling operation fails too, and is logged under its own name.
Recordset RequireOpened(std::optional<Recordset> rows) {
    if (!rows) {
        RaiseRuntimeError(runtimeerror::kObjectNotSet);
    }
    return std::move(*rows);
}

}  // namespace

bool ResultsStore::OpenDatabase(const std::string& filename, std::chrono::milliseconds patience) {
    m_filename = filename;
    m_failures = {};
    m_foundVersion.reset();
    Trap({kModule, "OpenDatabase"}, [&] {
        m_database.Open(filename, patience);
        m_isOpen = true;
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

void ResultsStore::CloseDatabase() {
    m_database.Close();
    m_isOpen = false;
}

void ResultsStore::DeleteDatabase() {
    CloseDatabase();
    if (!m_filename.empty()) {
        Database::DeleteFile(m_filename);
    }
}

/// To build them once at the end costs little; to maintain them during the review would delay every row. The first
/// one covers filtered counts, and keeps the violations of an item in the order in which they were raised.
void ResultsStore::AddIndexes() {
    // `dorvik::Trap`, which does not count a failure: nothing of the review is lost without indexes.
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

// ---- statements ----

std::optional<Recordset>
ResultsStore::GetEditableRecordset(std::string_view sql, SqlValues values) {
    return Trapped({kModule, "GetEditableRecordset"}, std::nullopt, [&] {
        return std::optional(OpenRows(sql, RecordsetType::Dynaset, std::move(values)));
    });
}

std::optional<Recordset>
ResultsStore::GetReadOnlyRecordset(std::string_view sql, SqlValues values) {
    return Trapped({kModule, "GetReadOnlyRecordset"}, std::nullopt, [&] {
        return std::optional(OpenRows(sql, RecordsetType::Snapshot, std::move(values)));
    });
}

Recordset ResultsStore::OpenRows(std::string_view sql, RecordsetType type, SqlValues values) {
    RaiseKnownFault(values);
    return m_database.OpenRecordset(sql, type, std::move(values));
}

Recordset ResultsStore::RequireEditableRows(std::string_view sql, SqlValues values) {
    return RequireOpened(GetEditableRecordset(sql, std::move(values)));
}

Recordset ResultsStore::RequireRows(std::string_view sql, SqlValues values) {
    return RequireOpened(GetReadOnlyRecordset(sql, std::move(values)));
}

std::string ResultsStore::FirstText(std::string_view sql) {
    auto rows = RequireRows(sql);
    return rows.EOF_() ? std::string() : rows.Value(0).AsText();
}

void ResultsStore::Execute(std::string_view sql, SqlValues values) {
    RaiseKnownFault(values);
    m_database.Execute(sql, std::move(values));
}

// ---- failures ----

void ResultsStore::KeepKnownFaults(bool keep) {
    m_keepsKnownFaults = keep;
    m_knownFaults = 0;
}

/// Results as they were before values became parameters: a quote in a value broke the statement.
void ResultsStore::RaiseKnownFault(const SqlValues& values) {
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

void ResultsStore::CountFailure() {
    m_failures.AddCount();
    m_failures.NoteReason(databaseerror::kStoreFailed);  // unless there is a reason already
    m_knownFaults += std::exchange(m_isKnownFault, false) ? 1 : 0;
    if (m_isOpen && m_failures.FirstNumber() == databaseerror::kLocked) {
        // The verdict is lost already, so later rows need not wait for the same lock.
        SetPatience(std::chrono::milliseconds(0));
    }
}

void ResultsStore::NoteLoss(std::string_view reason) {
    m_failures.NoteReason(reason);
    m_failures.AddCount();
}

}  // namespace dorvik
