#pragma once

#include "base/Variant.h"
#include "criteria/ProgressInfo.h"
#include "criteria/ReviewCriteria.h"
#include "enforcement/RuleEngine.h"
#include "platform/host/HostFacts.h"
#include "platform/host/IClock.h"
#include "platform/host/ScopedInstall.h"
#include "review/ReviewManager.h"
#include "support/TemporaryFolder.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik::test {

/// A clock that is stopped at 21 November 2026, 14:05:09.
class StandingClock final : public IClock {
public:
    DateTime Now() override { return {2026, 11, 21, 14, 5, 9}; }
};

/// A keyword rule of a rulebase made for a test.
struct KeywordRule {
    std::string Title;
    std::string Pattern;
    std::vector<std::int32_t> Events{10, 28, 30};
    std::int32_t Severity = 3;
    std::string Description{};
    std::string Advice{};
};

/// A whole review in a folder of its own: sources, a rulebase of keyword rules, criteria of a batch
/// review with keywords only and without pages, and afterwards the results database and the review log. The template
/// database is the one that the build lays beside the program.
class ReviewRun {
public:
    ReviewRun();
    ~ReviewRun();

    TemporaryFolder& Folder() { return m_folder; }
    ReviewCriteria& Criteria() { return *m_criteria; }
    const std::shared_ptr<ReviewCriteria>& SharedCriteria() { return m_criteria; }

    /// Writes a project file of those lines and adds it to the review. Lone line feeds become CR LF
    /// here and in `AddFile`.
    void AddProject(const std::string& name, const std::string& lines);
    void AddFile(const std::string& name, const std::string& text);
    void SetRules(const std::vector<KeywordRule>& rules);

    /// The limits of the scripts of the review; the usual ones by default.
    void SetScriptLimits(const basic::ScriptLimits& limits) { m_limits = limits; }
    /// Where the review takes type libraries from; by default there are none. REQUIRES: it outlives this object.
    void SetTypeLibraries(ITypeLibrarySource& typeLibraries) { m_typeLibraries = &typeLibraries; }
    /// Runs the whole review.
    SliceResult Run(ReviewManager::ProgressHandler handler = {});

    /// The first column of the rows of a query on the results of the project "<name>.vbp", as text.
    std::vector<std::string> Query(const std::string& project, const std::string& sql);
    /// The lines of its review log.
    std::vector<std::string> Log(const std::string& project);
    bool HasResults(const std::string& project);

private:
    std::string ResultsPath(const std::string& project, const char* extension);

    TemporaryFolder m_folder;
    HostFacts m_facts;
    ScopedInstall<const HostFacts> m_installedFacts;
    StandingClock m_clock;
    ScopedInstall<IClock> m_installedClock;
    std::shared_ptr<ReviewCriteria> m_criteria;
    basic::ScriptLimits m_limits;
    ITypeLibrarySource* m_typeLibraries = nullptr;
};

/// A module with one procedure of those body lines.
std::string ModuleWith(const std::string& name, const std::string& body);

}  // namespace dorvik::test
