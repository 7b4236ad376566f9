#pragma once

#include "enforcement/EventLocation.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace dorvik {

class ResultsDB;
class ReviewLog;
class VB6ParserState;
class ViolationDefinition;
struct Violation;

/// Raises violations for rules: fills in the tags in the texts of the definition from the objects in scope,
/// stores the violation at once and counts it on the chain of owning objects. One per project review.
///
/// A violation that cannot be stored is logged and counted as a loss of the results; the review continues.
class ViolationLog {
public:
    /// REQUIRES: both outlive this object.
    ViolationLog(VB6ParserState& state, ReviewLog& log) : m_state(state), m_log(log) {}

    /// Where violations are stored from now on. REQUIRES: it outlives its use here.
    void SetResults(ResultsDB& results) { m_results = &results; }

    /// The first `kUntruncatedPerLine` violations of a source line store all of it, up to `kLongestSourceLine`
    /// characters. Further violations, and those of a longer line, store its first `kTruncatedLength` characters
    /// followed by " ..."; further violations also truncate their other texts.
    static constexpr std::int32_t kUntruncatedPerLine = 63;
    static constexpr std::size_t kLongestSourceLine = 32'768;
    static constexpr std::size_t kTruncatedLength = 1000;

    /// Raises a violation at the current source line. `advice` replaces the definition's unless empty.
    void RaiseViolation(
        const ViolationDefinition& definition,
        const ViolationOrigin& origin,
        std::string_view advice);
    /// Raises a violation at the end event of an object, at the line that `ParserEventTable` has for it.
    void RaiseEndEventViolation(
        const ViolationDefinition& definition, const ViolationOrigin& origin, ParserEvent event);
    /// Raises the violation of a rule at an event: at the line of the object that ends, if it has one, otherwise
    /// at the current source line.
    void RaiseAtEvent(const IRule& rule, const EventLocation& location);

    /// Replaces each "%Object.Property%" by the value of that property. Stops at the first malformed tag, and
    /// at the bounds of `modTextTags`, which the review log reports.
    std::string ChangeTagsToValues(std::string_view text) const;

private:
    Violation
    MakeViolation(const ViolationDefinition& definition, const ViolationOrigin& origin) const;
    void SetEndEventLine(Violation& violation, ParserEvent event) const;
    void MarkCurrentRule(std::int32_t ruleId, std::string_view mark);
    void LimitTexts(Violation& violation);
    void LogViolation(const Violation& violation);
    /// Records a loss of the results if a violation could not be stored.
    void RecordIfLost(bool isStored);

    VB6ParserState& m_state;
    ReviewLog& m_log;
    ResultsDB* m_results = nullptr;
    std::int32_t m_countedFile = 0;  // the `ObjectID` of the file whose lines these are
    std::unordered_map<std::int32_t, std::int32_t> m_violationsOfLines;
};

}  // namespace dorvik
