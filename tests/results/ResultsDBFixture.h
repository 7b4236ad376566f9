#pragma once

#include "criteria/ReviewCriteria.h"
#include "platform/database/Database.h"
#include "platform/host/ScopedInstall.h"
#include "platform/host/modFiles.h"
#include "results/ResultsDB.h"
#include "results/modTolerances.h"
#include "rulebase/model/Rulebase.h"
#include "settings/DVKWorkData.h"
#include "source/VirtualObject.h"
#include "support/CapturedLog.h"
#include "support/FilesystemPaths.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik::test {

/// A clock that stands still.
class StoppedClock : public IClock {
public:
    DateTime Now() override { return Time; }
    DateTime Time{2026, 11, 21, 14, 5, 9};
};

/// An empty results database, copied from the template that the build made, and what a review needs.
class ResultsDBFixture : public testing::Test {
protected:
    void SetUp() override {
        modFiles::CopyFile(test::ProgramPath(DORVIK_RESULTS_TEMPLATE), m_path);
        m_criteria.LoadCriteria().SetDirty(false);
    }

    void Start() { ASSERT_TRUE(m_results.Writer().StartReview(m_path, m_rulebase, m_criteria)); }

    void AddCategory(std::int32_t id, std::string_view title) {
        auto category = std::make_shared<CategoryItem>();
        category->SetID(id);
        category->SetTitle(std::string(title));
        m_rulebase.CategoryList().Add(category, false);
    }

    static std::unique_ptr<VirtualObject> Named(std::string_view name) {
        auto object = std::make_unique<VirtualObject>();
        object->Properties().Add("Name", name);
        return object;
    }

    std::unique_ptr<VirtualObject> SetUpProject(std::string_view name = "Billing") {
        auto object = Named(name);
        object->Properties().Add("Path", "C:\\Src\\");
        object->Properties().Add("Filename", "Billing.vbp");
        object->Properties().Add("Type", "Exe");
        m_results.Writer().SetupVObjectResults("Project", *object);
        return object;
    }

    std::unique_ptr<VirtualObject>
    SetUpFile(std::string_view name, std::string_view kind = "File") {
        return SetUpTypedFile(name, "Module", std::string(name) + ".bas", kind);
    }

    std::unique_ptr<VirtualObject> SetUpTypedFile(
        std::string_view name,
        std::string_view type,
        std::string_view filename,
        std::string_view kind = "File") {
        auto object = Named(name);
        object->Properties().Add("Path", "C:\\Src\\");
        object->Properties().Add("Filename", filename);
        object->Properties().Add("Type", type);
        m_results.Writer().SetupVObjectResults(kind, *object);
        return object;
    }

    /// Stores what an object has come to: its properties and figures, its lines only where it has any.
    void StoreFigures(VirtualObject& object) {
        m_results.Writer().LogVirtualObjectProperties(object);
        m_results.Writer().LogVirtualObjectViolationStats(object);
        if (object.LineStats().TotalLines() > 0) {
            m_results.Writer().LogVirtualObjectLineStats(object);
        }
    }

    std::unique_ptr<VirtualObject> SetUpProcedure(
        std::string_view name, std::string_view type, std::string_view scope = "Public") {
        auto object = Named(name);
        object->Properties().Add("ProcedureType", type);
        object->Properties().Add("Scope", scope);
        object->Properties().Add("IsStatic", true);
        object->Properties().Add("DataType", "Long");
        m_results.Writer().SetupVObjectResults("Procedure", *object);
        return object;
    }

    static Violation
    Breach(std::int32_t severity, std::int32_t impact, std::int32_t categoryId = -1) {
        Violation violation;
        violation.Severity = severity;
        violation.Impact = static_cast<std::int16_t>(impact);
        violation.CategoryID = categoryId;
        violation.RuleID = 5000;
        violation.RuleType = 3;
        violation.Location = 4;
        violation.Title = "Title " + std::to_string(severity);
        violation.Description = "Description";
        violation.Advice = "Advice";
        violation.LocationMember = "Member";
        violation.SourceLineNumber = 12;
        violation.SourceLine = "    GoTo Failed";
        return violation;
    }

    /// The rows of a query on the database as it stands on disk, the values joined with "|".
    std::vector<std::string> Rows(std::string_view sql, int columns = 1) const {
        Database database;
        database.Open(m_path);
        std::vector<std::string> result;
        for (auto rows = database.OpenRecordset(sql, RecordsetType::Snapshot); !rows.EOF_();
             rows.MoveNext()) {
            std::string row = rows.Value(0).AsText();
            for (int column = 1; column < columns; ++column) {
                row += '|' + rows.Value(column).AsText();
            }
            result.push_back(std::move(row));
        }
        return result;
    }

    TemporaryFolder m_folder;
    std::string m_path = m_folder.Path("Billing_DORVIK.mdb");
    CapturedLog m_log;
    StoppedClock m_clock;
    HostFacts m_facts{"ann", {}, {}, {}};
    ScopedInstall<StoppedClock> m_clockInstalled{m_clock};
    ScopedInstall<HostFacts> m_factsInstalled{m_facts};
    Rulebase m_rulebase;
    ReviewCriteria m_criteria{DVKWorkData()};
    ResultsDB m_results;
};

}  // namespace dorvik::test
