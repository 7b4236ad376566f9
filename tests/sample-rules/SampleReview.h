#pragma once

#include "SampleFolder.h"
#include "platform/host/HostFacts.h"
#include "platform/host/ScopedInstall.h"
#include "support/TemporaryFolder.h"

#include <memory>
#include <string>
#include <vector>

namespace dorvik {
class Rulebase;
}

namespace dorvik::test {

/// What a rule raised.
struct SampleFinding {
    SamplePlace Place;
    std::string Texts;  // description and advice, with a blank between them
};

/// A review of the sources of one folder with the whole sample rulebase, in which one rule is switched
/// on whatever the rulebase says.
class SampleReview {
public:
    /// The rulebase that is tried: data/Sample.dvk, or what DORVIK_SAMPLE_RULEBASE names.
    static std::string RulebaseFile();

    SampleReview();
    ~SampleReview();
    SampleReview(const SampleReview&) = delete;
    SampleReview& operator=(const SampleReview&) = delete;

    /// All rules of the rulebase, for editing; null if it cannot be read.
    std::unique_ptr<dorvik::Rulebase> Load();
    /// False if the rulebase has no such rule.
    bool Run(const SampleFolder& folder, std::int32_t ruleID);

    const std::vector<SampleSource>& Sources() const { return m_sources; }
    /// What the rule of `Run` raised in that source.
    std::vector<SampleFinding> Findings(const SampleSource& source) const;
    /// The lines of the review log of that source that tell of something wrong with a rule.
    static std::vector<std::string> RuleErrors(const SampleSource& source);

private:
    TemporaryFolder m_folder;
    HostFacts m_facts;
    ScopedInstall<const HostFacts> m_installedFacts;
    std::vector<SampleSource> m_sources;
    std::int32_t m_ruleID = 0;
};

}  // namespace dorvik::test
