#include "enforcement/ViolationLog.h"

#include "base/BasicError.h"
#include "base/modUtf8.h"
#include "enforcement/ReviewLog.h"
#include "foundation/log/Trap.h"
#include "parser/ParserEventTable.h"
#include "parser/ScopeName.h"
#include "parser/VB6ParserState.h"
#include "results/ResultsDB.h"
#include "results/Violation.h"
#include "rulebase/check/modTextTags.h"
#include "rulebase/model/IRule.h"
#include "source/VirtualObject.h"

#include <memory>

namespace dorvik {

namespace {

// The log names these operations as those of the class through which the review reaches them.
constexpr std::string_view kModule = "C_ResultsManager";
constexpr std::string_view kTruncationMark = " ...";

/// The object that owns the violations of a location; empty for a location without one.
std::string_view OwnerName(Location location) {
    switch (location) {
        case Location::File: return scopename::kProjectFile;
        case Location::Layout:
        case Location::Control: return scopename::kLayout;
        case Location::Declarations: return scopename::kDeclarations;
        case Location::Procedure:
        case Location::PropertyGet:
        case Location::PropertyLet:
        case Location::PropertySet: return scopename::kProcedure;
        case Location::None: return {};
    }
    return {};
}

/// Project, layout and control have no source line of their own.
bool HasSourceLine(Location location) {
    const std::string_view owner = OwnerName(location);
    return owner == scopename::kDeclarations || owner == scopename::kProcedure;
}

/// Truncates a text of more characters than that, and marks it.
void Truncate(std::string& text, std::size_t longest) {
    if (text.size() > longest && modUtf8::Left(text, longest).size() < text.size()) {
        text.resize(modUtf8::Left(text, ViolationLog::kTruncatedLength).size());
        text += kTruncationMark;
    }
}

/// True if the text exceeds its largest size with the value of the tag.
bool IsTooLarge(const std::string& text, const std::string& tag, const std::string& value) {
    return value.size() > tag.size() &&
           text.size() + modTextTags::CountPlaces(text, tag) * (value.size() - tag.size()) >
               modTextTags::kLargestText;
}

std::string TagValue(std::string_view tag, const ReviewLog& log) {
    const std::size_t dot = tag.find('.');
    return log.PropertyText(tag.substr(1, dot - 1), tag.substr(dot + 1, tag.size() - dot - 2));
}

}  // namespace

Violation ViolationLog::MakeViolation(
    const ViolationDefinition& definition, const ViolationOrigin& origin) const {
    Violation violation;
    violation.Location = static_cast<std::int32_t>(origin.Location);
    violation.LocationMember = origin.LocationMember;
    violation.Title = definition.Title();
    violation.Impact = definition.Impact();
    violation.Severity = definition.Severity();
    violation.CategoryID = definition.CategoryID();
    violation.RuleID = origin.RuleID;
    violation.RuleType = static_cast<std::int32_t>(origin.RuleType);
    return violation;
}

void ViolationLog::RaiseViolation(
    const ViolationDefinition& definition, const ViolationOrigin& origin, std::string_view advice) {
    const bool raised = Trap({kModule, "RaiseViolation"}, [&] {
        Violation violation = MakeViolation(definition, origin);
        if (HasSourceLine(origin.Location)) {
            violation.SourceLineNumber = m_state.SourceLineNumber();
            violation.SourceLine = m_state.PhysicalSourceLine();
        }
        // The marks show in the log in which of the texts a tag failed.
        MarkCurrentRule(origin.RuleID, " - Violation");
        violation.Description = ChangeTagsToValues(definition.Description());
        MarkCurrentRule(origin.RuleID, " - Advice");
        violation.Advice =
            ChangeTagsToValues(advice.empty() ? std::string_view(definition.Advice()) : advice);
        MarkCurrentRule(origin.RuleID, "");
        LimitTexts(violation);
        LogViolation(violation);
    });
    RecordIfLost(raised);
}

void ViolationLog::RecordIfLost(bool isStored) {
    if (!isStored) {
        m_results->NoteLoss("a violation could not be raised, see the log");
    }
}

/// Each violation stores its line, and a text may quote it, so the space for a long line with many violations would
/// grow with the square of its length.
void ViolationLog::LimitTexts(Violation& violation) {
    if (violation.SourceLine.empty()) {
        return;
    }
    const std::shared_ptr<VirtualObject> file = m_state.GetVirtualObject(scopename::kFile);
    if (const std::int32_t fileId = file ? file->ObjectID() : 0; fileId != m_countedFile) {
        m_countedFile = fileId;
        m_violationsOfLines.clear();
    }
    if (++m_violationsOfLines[violation.SourceLineNumber] > kUntruncatedPerLine) {
        Truncate(violation.SourceLine, kTruncatedLength);
        Truncate(violation.Description, kTruncatedLength);
        Truncate(violation.Advice, kTruncatedLength);
    } else {
        Truncate(violation.SourceLine, kLongestSourceLine);
    }
}

void ViolationLog::MarkCurrentRule(std::int32_t ruleId, std::string_view mark) {
    if (ruleId > 0) {
        m_state.SetCurrentRuleID(std::to_string(ruleId).append(mark));
    }
}

void ViolationLog::RaiseEndEventViolation(
    const ViolationDefinition& definition, const ViolationOrigin& origin, ParserEvent event) {
    const bool raised = Trap({kModule, "RaiseEndEventViolation"}, [&] {
        Violation violation = MakeViolation(definition, origin);
        SetEndEventLine(violation, event);
        violation.Description = ChangeTagsToValues(definition.Description());
        violation.Advice = ChangeTagsToValues(definition.Advice());
        LimitTexts(violation);
        LogViolation(violation);
    });
    RecordIfLost(raised);
}

void ViolationLog::SetEndEventLine(Violation& violation, ParserEvent event) const {
    switch (RowOf(event).Rules.ViolationLine) {
        case EndEventLine::ObjectStart:
            violation.SourceLineNumber = m_state.ObjectStartLineNumber();
            violation.SourceLine = m_state.ObjectStartSourceLine();
            break;
        case EndEventLine::FileStart: violation.SourceLineNumber = 1; break;
        case EndEventLine::None: break;
    }
}

void ViolationLog::RaiseAtEvent(const IRule& rule, const EventLocation& location) {
    if (RowOf(location.Event).Rules.ViolationLine == EndEventLine::None) {
        RaiseViolation(rule.ViolationDefinition(), location.OriginOf(rule), "");
    } else {
        RaiseEndEventViolation(rule.ViolationDefinition(), location.OriginOf(rule), location.Event);
    }
}

void ViolationLog::LogViolation(const Violation& violation) {
    const bool logged = Trap({kModule, "LogViolation"}, [&] {
        std::shared_ptr<VirtualObject> object =
            m_state.GetVirtualObject(OwnerName(static_cast<Location>(violation.Location)));
        if (!object) {
            RaiseRuntimeError(runtimeerror::kObjectNotSet);
        }
        m_results->Writer().LogViolation(object->ObjectID(), object->ObjectType(), violation);
        while (true) {
            object->ViolationStats().IncrementCount(violation.Severity, violation.Impact);
            if (object->ParentViolations().empty()) {
                return;
            }
            object = m_state.GetVirtualObject(object->ParentViolations());
            if (!object) {
                RaiseRuntimeError(runtimeerror::kObjectNotSet);
            }
        }
    });
    RecordIfLost(logged);
}

std::string ViolationLog::ChangeTagsToValues(std::string_view text) const {
    constexpr char kMark = '%';
    std::string working(text);
    std::string result(text);
    for (std::size_t tags = 0;; ++tags) {
        const std::size_t first = working.find(kMark);
        const std::size_t second =
            first == std::string::npos ? first : working.find(kMark, first + 1);
        if (second == std::string::npos) {
            return result;
        }
        const std::string tag = working.substr(first, second - first + 1);
        const std::size_t dot = tag.find('.');
        // Required: a malformed tag ends the expansion; the text after it is left unchanged.
        if (tag.find(' ') != std::string::npos || dot == std::string::npos || dot < 2) {
            return result;
        }
        if (tags == modTextTags::kMostTags) {
            m_log.DumpDebugPrint(
                "More than " + std::to_string(tags) + " different tags; " + tag +
                    " and any after it are left unchanged.",
                true);
            return result;
        }
        const std::string value = TagValue(tag, m_log);
        // The search runs on a copy in which each handled tag is replaced by a text without "%", so that a percent
        // sign inside a value is never taken for a tag.
        working = modTextTags::FillIn(working, tag, "@");
        if (IsTooLarge(result, tag, value)) {
            m_log.DumpDebugPrint("The text gets too large; " + tag + " is left unchanged.", true);
        } else {
            result = modTextTags::FillIn(result, tag, value);
        }
    }
}

}  // namespace dorvik
