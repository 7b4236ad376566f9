#include "cli/commands/rulebase/RulebaseFile.h"

#include "base/BasicError.h"
#include "base/Quoted.h"
#include "base/modTextCase.h"
#include "cli/output/Console.h"
#include "cli/output/TablePrinter.h"
#include "cli/output/modCommandPath.h"
#include "foundation/log/Trap.h"
#include "foundation/xml/KyXMLDoc.h"
#include "platform/host/ScopedInstall.h"
#include "platform/host/modFiles.h"
#include "rulebase/check/RulebaseCheck.h"
#include "rulebase/file/RulebaseManager.h"

#include <algorithm>
namespace dorvik::modRulebaseFile {

namespace {

/// The commands are a rule author's tools: they see hidden categories, as the administrator does,
/// and so keep them when they save.
constexpr const char* kAuthorsProgram = "DVKAdmin";

RulebaseManager Manager() {
    return {kAuthorsProgram, ""};
}

std::string WithoutPoint(std::string sentence) {
    while (!sentence.empty() && (sentence.back() == '.' || sentence.back() == '\n')) {
        sentence.pop_back();
    }
    std::replace(sentence.begin(), sentence.end(), '\n', ' ');
    return sentence;
}

/// Why a rulebase was not loaded; the load itself only says that it was not.
std::string Problem(const std::string& path, const std::string& message) {
    RulebaseCheck check;
    if (!check.Run(path)) {
        return check.Problem();
    }
    return message.empty() ? "parts of it are missing (see 'dorvik rulebase check')" : message;
}

}  // namespace

std::string CannotBeRead(const std::string& hostPath, const std::string& problem) {
    // The engine names the file in its own form; the sentence has it already.
    const std::string reason = modTextCase::ReplaceAll(
        modTerminalText::Harmless(WithoutPoint(problem)),
        " of " + modCommandPath::Inner(hostPath),
        "");
    return "the rulebase " + Quoted(hostPath) + " cannot be read" +
           (reason.empty() ? "" : ": " + reason);
}

bool Exists(const std::string& hostPath) {
    const std::string path = modCommandPath::Inner(hostPath);
    if (modFiles::FileExists(path)) {
        return true;
    }
    modConsole::PrintError(
        "the rulebase " + Quoted(hostPath) +
        (modFiles::FolderExists(path) ? " is a folder" : " does not exist"));
    return false;
}

std::unique_ptr<Rulebase> Load(const std::string& hostPath) {
    if (!Exists(hostPath)) {
        return nullptr;
    }
    RulebaseLoadCriteria criteria;
    criteria.SetRulebaseFile(modCommandPath::Inner(hostPath));
    criteria.SetLoadForEdit(true);
    KeptMessage message;
    const ScopedInstall<IMessageBox> installed(message);
    std::unique_ptr<Rulebase> rulebase = Manager().LoadRulebase(criteria);
    if (rulebase == nullptr) {
        modConsole::PrintError(
            CannotBeRead(hostPath, Problem(criteria.RulebaseFile(), message.Text())));
    }
    return rulebase;
}

std::size_t ReportUnreadable(const std::string& hostPath) {
    RulebaseCheck check;
    check.Run(modCommandPath::Inner(hostPath));
    const auto count = static_cast<std::size_t>(
        std::count_if(check.Faults().begin(), check.Faults().end(), [](const RulebaseFault& fault) {
            return fault.Kind == FaultKind::Unreadable ||
                   (fault.Kind == FaultKind::Duplicate && fault.Attribute == "RuleID");
        }));
    if (count > 0) {
        modConsole::PrintError(
            "note: " + std::to_string(count) + (count == 1 ? " part of " : " parts of ") +
            Quoted(hostPath) + " cannot be read, and what depends on " +
            (count == 1 ? "it" : "them") + " is missing (see 'dorvik rulebase check')");
    }
    return count;
}

bool Save(Rulebase& rulebase, const std::string& hostPath) {
    KeptMessage message;
    const ScopedInstall<IMessageBox> installed(message);
    if (Manager().Save(rulebase, modCommandPath::Inner(hostPath))) {
        return true;
    }
    std::string reason = WithoutPoint(message.Text());
    if (const std::size_t colon = reason.find(": "); colon != std::string::npos) {
        reason.erase(0, colon + 2);
    }
    modConsole::PrintError(
        "the rulebase " + Quoted(hostPath) + " cannot be written" +
        (reason.empty() ? "" : ": " + reason));
    return false;
}

bool Write(const std::string& text, const std::string& hostPath) {
    std::string reason;
    const bool written = Trap(
        {"modRulebaseFile", "Write"},
        [&] { modFiles::WriteBytesAtomically(modCommandPath::Inner(hostPath), text); },
        [&](const BasicError& failure) {
            reason = RuntimeErrorText(failure.Number());
            return true;
        });
    if (written && reason.empty()) {
        return true;
    }
    modConsole::PrintError(
        "the file " + Quoted(hostPath) + " cannot be written" +
        (reason.empty() ? "" : ": " + WithoutPoint(reason)));
    return false;
}

}  // namespace dorvik::modRulebaseFile
