#include "enforcement/ResultsManager.h"

#include "base/BasicError.h"
#include "base/DateTime.h"
#include "base/modUtf8.h"
#include "criteria/ReviewCriteria.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/Trap.h"
#include "foundation/log/modLog.h"
#include "foundation/text/modUtilFunctions.h"
#include "parser/ScopeName.h"
#include "parser/VBParserEvents.h"
#include "platform/database/Database.h"
#include "platform/host/FileInUse.h"
#include "platform/host/FileInUseMark.h"
#include "platform/host/HostError.h"
#include "platform/host/OutputRefusal.h"
#include "platform/host/modFiles.h"
#include "platform/host/modHost.h"
#include "results/modResultsFilename.h"
#include "rulebase/check/modTextTags.h"
#include "rulebase/model/ViolationDefinition.h"
#include "settings/DorvikData.h"
#include "settings/modGlobal.h"
#include "source/VirtualProject.h"
#include "source/VirtualSourceFile.h"

#include <exception>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "C_ResultsManager";
constexpr std::string_view kCutMark = " ...";

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

/// A text of more characters than that is cut, and marked.
void Cut(std::string& text, std::size_t longest) {
    if (text.size() > longest && modUtf8::Left(text, longest).size() < text.size()) {
        text.resize(modUtf8::Left(text, ResultsManager::kCutLine).size());
        text += kCutMark;
    }
}

/// True where filling in a tag takes a text beyond the size that it may have.
bool IsTooLarge(const std::string& text, const std::string& tag, const std::string& value) {
    return value.size() > tag.size() &&
           text.size() + modTextTags::CountPlaces(text, tag) * (value.size() - tag.size()) >
               modTextTags::kLargestText;
}

/// A person reads these: paths are those of this machine.
std::string ShownPath(const std::string& path) {
    return modFiles::HostPath(path).string();
}

/// Who is reviewing, behind the number of the process.
std::string Holder() {
    const DateTime now = modHost::Now();
    return " of user '" + modHost::LogonName() + "', since " + modDateText::LongTime(now) + " on " +
           modDateText::LongDate(now);
}

/// Who has the place of the results, and what to do then.
std::string
InUseText(const FileInUse& failure, std::string_view projectFile, const std::string& database) {
    if (failure.Holder().empty()) {
        return "Unable to replace the existing results database '" + ShownPath(database) +
               "', because it is locked by another process.";
    }
    return "'" + ShownPath(std::string(projectFile)) + "' is in another review (" +
           failure.Holder() + "): wait for its end, or choose another folder for the results";
}

}  // namespace

ResultsManager::ResultsManager() : m_resultsDB(std::make_unique<dorvik::ResultsDB>()) {}

ResultsManager::~ResultsManager() {
    modLog::Log().CloseReview();
}

bool ResultsManager::BeginReview(
    std::string_view projectFile, const ReviewCriteria& criteria, const Rulebase& rulebase) {
    bool started = false;
    const std::string folder =
        criteria.UseProjectFolderResults() ? std::string() : criteria.FixedFolderResults();
    const std::string target = modDorvikUtils::CreateResultsFilename(projectFile, folder);
    const auto start = [&] {
        m_resultsDB = std::make_unique<dorvik::ResultsDB>();
        m_reservation.reset();
        if (target.empty()) {
            RaiseRuntimeError(runtimeerror::kPathNotFound, std::string(projectFile));
        }
        const std::string log = modDorvikUtils::CreateProjectLogFilename(projectFile, folder);
        ReservePlace(modDorvikUtils::ResultsPlace(projectFile, folder), log);
        modLog::Log().SetReviewLog(log, criteria.ClearLogBeforeReview());
        started =
            PrepareResultsFile(target) && m_resultsDB->StartReview(target, rulebase, criteria);
    };
    Trap({kModule, "BeginReview"}, start, [&](const BasicError& failure) {
        const std::string reason = ReasonIn(failure, projectFile, target);
        if (reason.empty()) {
            return false;
        }
        modHost::ShowMessage({MessageIcon::Exclamation, "Dorvik", reason});
        modLog::Log().LogEvent(reason, "BeginReview", kModule);
        return true;
    });
    return started;
}

/// Nothing is touched before it is certain that all of it is this review's to write.
void ResultsManager::ReservePlace(const OutputPlace& place, const std::string& log) {
    place.MakeFolder();
    Database::NeedRoom(place.Path());
    modObstacles::NeedFile(modFiles::HostPath(log));
    m_reservation = Database::Reserve(place.Path(), Holder());
}

/// Why the review cannot begin, for a person who can do something about it; empty for a failure that only
/// the log is told.
std::string ResultsManager::ReasonIn(
    const BasicError& failure, std::string_view projectFile, const std::string& database) const {
    if (std::string refusal = OutputRefusal::SentenceIn(failure); !refusal.empty()) {
        return refusal;
    }
    if (const auto* const inUse = dynamic_cast<const FileInUse*>(&failure)) {
        return InUseText(*inUse, projectFile, database);
    }
    if (dynamic_cast<const HostError*>(&failure) != nullptr) {
        return "Nothing can be written to '" +
               ShownPath(modUtilFunctions::PathFromFilename(database)) +
               "': " + RuntimeErrorText(failure.Number());
    }
    return {};
}

bool ResultsManager::PrepareResultsFile(const std::string& target) {
    const std::string& templateFile = modGlobal::Data().ProjectResultsDB();
    Database::DeleteFile(target);
    if (!modFiles::FileExists(templateFile)) {
        modLog::Log().LogSetupError(
            "Template results database file '" + templateFile + "' not found.",
            "BeginReview",
            kModule);
        return false;
    }
    m_unfinished.emplace(target);
    Database::CopyFile(templateFile, target);
    return true;
}

void ResultsManager::EndReview(std::int32_t ruleExecutionCount) {
    m_resultsDB->EndReview(ruleExecutionCount);
    m_unfinished.reset();
    modLog::Log().CloseReview();
}

void ResultsManager::AbortReview() {
    m_resultsDB->AbortReview();
    m_unfinished.reset();
    modLog::Log().CloseReview();
    m_reservation.reset();
}

Violation
ResultsManager::MakeViolation(const ViolationDefinition& definition, const Origin& origin) const {
    Violation violation;
    violation.Location = static_cast<std::int32_t>(origin.Place);
    violation.LocationMember = origin.LocationMember;
    violation.Title = definition.Title();
    violation.Impact = definition.Impact();
    violation.Severity = definition.Severity();
    violation.CategoryID = definition.CategoryID();
    violation.RuleID = origin.RuleID;
    violation.RuleType = static_cast<std::int32_t>(origin.RuleType);
    return violation;
}

void ResultsManager::RaiseViolation(
    const ViolationDefinition& definition, const Origin& origin, std::string_view advice) {
    const bool raised = Trap({kModule, "RaiseViolation"}, [&] {
        Violation violation = MakeViolation(definition, origin);
        if (HasSourceLine(origin.Place)) {
            violation.SourceLineNumber = m_parserState.SourceLineNumber();
            violation.SourceLine = m_parserState.PhysicalSourceLine();
        }
        // The marks make a failed tag in the log say which text it stood in.
        MarkCurrentRule(origin.RuleID, " - Violation");
        violation.Description = ChangeTagsToValues(definition.Description());
        MarkCurrentRule(origin.RuleID, " - Advice");
        violation.Advice =
            ChangeTagsToValues(advice.empty() ? std::string_view(definition.Advice()) : advice);
        MarkCurrentRule(origin.RuleID, "");
        LimitTexts(violation);
        LogViolation(violation);
    });
    NoteViolation(raised);
}

void ResultsManager::NoteViolation(bool isStored) {
    if (!isStored) {
        m_resultsDB->NoteLoss("a violation could not be raised, as the log tells");
    }
}

/// Each violation stores its line, and a text may quote it, so a long line with many violations would cost the
/// square of its length.
void ResultsManager::LimitTexts(Violation& violation) {
    if (violation.SourceLine.empty()) {
        return;
    }
    const std::shared_ptr<VirtualObject> file = m_parserState.GetVirtualObject(scopename::kFile);
    if (const std::int32_t fileId = file ? file->ObjectID() : 0; fileId != m_countedFile) {
        m_countedFile = fileId;
        m_violationsOfLines.clear();
    }
    if (++m_violationsOfLines[violation.SourceLineNumber] > kWholeLines) {
        Cut(violation.SourceLine, kCutLine);
        Cut(violation.Description, kCutLine);
        Cut(violation.Advice, kCutLine);
    } else {
        Cut(violation.SourceLine, kLongestWholeLine);
    }
}

void ResultsManager::MarkCurrentRule(std::int32_t ruleId, std::string_view mark) {
    if (ruleId > 0) {
        m_parserState.SetCurrentRuleID(std::to_string(ruleId).append(mark));
    }
}

void ResultsManager::RaiseEndEventViolation(
    const ViolationDefinition& definition, const Origin& origin, ParserEvent event) {
    const bool raised = Trap({kModule, "RaiseEndEventViolation"}, [&] {
        Violation violation = MakeViolation(definition, origin);
        if (event == ParserEvent::EndEnum || event == ParserEvent::EndType ||
            event == ParserEvent::EndProcedure) {
            violation.SourceLineNumber = m_parserState.ObjectStartLineNumber();
            violation.SourceLine = m_parserState.ObjectStartSourceLine();
        } else if (event == ParserEvent::EndDeclarations) {
            violation.SourceLineNumber = 1;
        }
        violation.Description = ChangeTagsToValues(definition.Description());
        violation.Advice = ChangeTagsToValues(definition.Advice());
        LimitTexts(violation);
        LogViolation(violation);
    });
    NoteViolation(raised);
}

void ResultsManager::LogViolation(const Violation& violation) {
    const bool logged = Trap({kModule, "LogViolation"}, [&] {
        std::shared_ptr<VirtualObject> object =
            m_parserState.GetVirtualObject(OwnerName(static_cast<Location>(violation.Location)));
        if (!object) {
            RaiseRuntimeError(runtimeerror::kObjectNotSet);
        }
        m_resultsDB->LogViolation(object->ObjectID(), object->ObjectType(), violation);
        while (true) {
            object->ViolationStats().IncrementCount(violation.Severity, violation.Impact);
            if (object->ParentViolations().empty()) {
                return;
            }
            object = m_parserState.GetVirtualObject(object->ParentViolations());
            if (!object) {
                RaiseRuntimeError(runtimeerror::kObjectNotSet);
            }
        }
    });
    NoteViolation(logged);
}

std::string ResultsManager::ChangeTagsToValues(std::string_view text) {
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
        // Required: a malformed tag ends the expansion; whatever stands behind it stays as it is.
        if (tag.find(' ') != std::string::npos || dot == std::string::npos || dot < 2) {
            return result;
        }
        if (tags == modTextTags::kMostTags) {
            DumpDebugPrint(
                "More than " + std::to_string(tags) + " different tags; " + tag +
                    " and any behind it stay as they stand.",
                true);
            return result;
        }
        const std::string value = TagValue(tag);
        // The search runs on a copy in which a handled tag leaves no "%", so that a percent sign
        // inside a value is never taken for a tag.
        working = modTextTags::FillIn(working, tag, "@");
        if (IsTooLarge(result, tag, value)) {
            DumpDebugPrint("The text gets too large; " + tag + " stays as it stands.", true);
        } else {
            result = modTextTags::FillIn(result, tag, value);
        }
    }
}

std::string ResultsManager::TagValue(std::string_view tag) {
    const std::size_t dot = tag.find('.');
    const std::string_view object = tag.substr(1, dot - 1);
    const std::string_view property = tag.substr(dot + 1, tag.size() - dot - 2);
    bool found = false;
    std::string errorText;
    const Variant value = m_parserState.GetObjectProperty(object, property, found, errorText);
    if (!found) {
        DumpDebugPrint(errorText, true);
    }
    return value.AsText();
}

void ResultsManager::LogVirtualObjectResults(std::string_view objectName) {
    const bool logged = Trap({kModule, "LogVirtualObjectResults"}, [&] {
        const std::shared_ptr<VirtualObject> object = m_parserState.GetVirtualObject(objectName);
        if (!object || object->ObjectID() == 0) {
            return;
        }
        m_resultsDB->LogVirtualObjectProperties(*object);
        m_resultsDB->LogVirtualObjectViolationStats(*object);
        if (object->HasLSTATS()) {
            m_resultsDB->LogVirtualObjectLineStats(*object);
        }
    });
    if (!logged) {
        m_resultsDB->NoteLoss("figures could not be stored, as the log tells");
    }
}

void ResultsManager::DumpDebugPrint(std::string_view message, bool withPrefix) {
    std::string line;
    if (withPrefix) {
        line = "[Event:" + GetParserEvent() + "]";
        if (!m_parserState.CurrentRuleID().empty()) {
            line += "[Rule:" + m_parserState.CurrentRuleID() + "] ";
        }
    }
    modLog::Log().LogMessage(line.append(message));
}

void ResultsManager::DumpVirtualObject(std::string_view objectName) {
    Trap({kModule, "DumpVirtualObject"}, [&] {
        LogFile& log = modLog::Log();
        const std::string name(objectName);
        const auto dump = [&log](KeyedArrayList& values) {
            for (std::int32_t index = 1; index <= values.Count(); ++index) {
                log.LogMessage("   " + values.Key(index) + "=" + values.Item(index).AsText());
            }
        };
        log.LogMessage(
            "[Event:" + GetParserEvent() + "][Rule:" + m_parserState.CurrentRuleID() +
            "][Object:" + name + "]");
        log.LogMessage("=== " + name + " Properties ===");
        const std::shared_ptr<VirtualObject> object = m_parserState.GetVirtualObject(objectName);
        if (!object) {
            RaiseRuntimeError(runtimeerror::kObjectNotSet);
        }
        dump(object->Properties());
        if (object->Workfields().Count() > 0) {
            log.LogMessage("=== " + name + " Workfields ===");
            dump(object->Workfields());
        }
        log.LogMessage("===");
    });
}

std::string ResultsManager::GetParserEvent() const {
    return std::string(
        VBParserEvents::ParserEventText(static_cast<std::int32_t>(m_parserState.ParserEvent())));
}

bool ResultsManager::IsClassName(std::string_view name) const {
    const auto* file = m_project->SourceFiles().Find(name);
    return file != nullptr && (*file)->FileType() == FileType::Class;
}

bool ResultsManager::IsFormName(std::string_view name) const {
    const auto* file = m_project->SourceFiles().Find(name);
    return file != nullptr &&
           ((*file)->FileType() == FileType::Form || (*file)->FileType() == FileType::MDIForm);
}

}  // namespace dorvik
