#pragma once

#include "results/ResultsDBFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik::test {

/// What is counted of one object.
struct Lines {
    std::int32_t Code = 0;
    std::int32_t Comment = 0;
    std::int32_t InLine = 0;
    std::int32_t Blank = 0;
    std::int32_t Total = 0;
};

/// A review whose objects a test writes: `Start`, objects, `Finish`. The critical violation count has
/// the tolerance 0. The severities have the colours red, magenta, yellow, olive and none.
class SmallReviewFixture : public ResultsDBFixture {
protected:
    void SetUp() override {
        ResultsDBFixture::SetUp();
        AddSeverity(1, "Critical", 14);
        AddSeverity(2, "High", 13);
        AddSeverity(3, "Medium", 16);
        AddSeverity(4, "Low", 10);
        AddSeverity(5, "Information", 0);
        AddCategory(7, "Jumps");
        AddCategory(8, "Clarity");
        m_criteria.SetToleranceCount(1, 0);
        Start();
        m_project = SetUpProject();
    }

    void AddSeverity(std::int32_t level, std::string title, std::int32_t colour) {
        auto item = std::make_shared<SeverityItem>();
        item->SetSeverityLevel(level);
        item->SetKey(SeverityKeyOf(level));
        item->SetTitle(std::move(title));
        item->SetColour(colour);
        m_rulebase.SeverityList().Add(item->Key(), item, true, false);
    }

    /// A file begins; the sections and procedures that follow are its own.
    std::unique_ptr<VirtualObject>
    BeginFile(std::string_view name, std::string_view filename, std::string_view type) {
        auto object = Named(name);
        object->Properties().Add("Path", "C:\\Src\\");
        object->Properties().Add("Filename", filename);
        object->Properties().Add("Type", type);
        m_results.Writer().SetupVObjectResults("File", *object);
        return object;
    }

    std::unique_ptr<VirtualObject> BeginSection(std::string_view kind) {
        auto section = std::make_unique<VirtualObject>();
        m_results.Writer().SetupVObjectResults(kind, *section);
        return section;
    }

    /// Logs a violation of a procedure or section, or of a project file.
    void Raise(VirtualObject& object, const Violation& violation) {
        m_results.Writer().LogViolation(object.ObjectID(), object.ObjectType(), violation);
        object.ViolationStats().IncrementCount(violation.Severity, violation.Impact);
    }

    void EndObject(VirtualObject& object, const Lines& lines, std::int32_t complexity = 0) {
        SourceLineStatistics& stats = object.LineStats();
        stats.SetCodeLines(lines.Code);
        stats.SetCommentOnlyLines(lines.Comment);
        stats.SetInLineCommentLines(lines.InLine);
        stats.SetBlankLines(lines.Blank);
        stats.SetTotalLines(lines.Total);
        object.Properties().Add("CyclomaticComplexity", complexity);
        m_results.Writer().LogVirtualObjectProperties(object);
        m_results.Writer().LogVirtualObjectViolationStats(object);
        m_results.Writer().LogVirtualObjectLineStats(object);
    }

    void EndFile(VirtualObject& file, const Lines& lines, std::int32_t averageComplexity = 0) {
        file.Properties().Add("AverageCyclomatic", averageComplexity);
        modTolerances::SetTolerancePassValue(file, m_criteria, false);
        EndObject(file, lines);
    }

    void Finish() {
        m_results.Writer().EndReview(12);
        ASSERT_TRUE(m_results.OpenReview(m_path));
        ASSERT_THAT(m_log.Entries(), testing::IsEmpty());
    }

    static Violation Raised(
        std::int32_t severity,
        std::int16_t impact,
        std::int32_t categoryId,
        std::int32_t ruleId,
        std::string title) {
        Violation violation;
        violation.Severity = severity;
        violation.Impact = impact;
        violation.CategoryID = categoryId;
        violation.RuleID = ruleId;
        violation.Title = std::move(title);
        return violation;
    }

    std::unique_ptr<VirtualObject> m_project;
};

}  // namespace dorvik::test
