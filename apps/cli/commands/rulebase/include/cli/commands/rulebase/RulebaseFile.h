#pragma once

#include "rulebase/model/Rulebase.h"

#include <memory>
#include <string>

namespace dorvik {

/// Rulebase files as the commands for rule authors name them: by paths of this machine. What goes
/// wrong is printed as one sentence that names the file.
namespace modRulebaseFile {

/// "the rulebase 'x' cannot be read: ...", for a problem that the engine reported for that file.
std::string CannotBeRead(const std::string& hostPath, const std::string& problem);

/// False, and a sentence, if there is no file of that name.
bool Exists(const std::string& hostPath);

/// All of the rulebase: unfiltered, hidden categories and report definition included. Null, and a
/// sentence, if it cannot be read.
std::unique_ptr<Rulebase> Load(const std::string& hostPath);

/// How many places of the file a load leaves out; says so if there are any.
std::size_t ReportUnreadable(const std::string& hostPath);

/// False, and a sentence, if the rulebase cannot be written there.
bool Save(Rulebase& rulebase, const std::string& hostPath);

/// The same for a text.
bool Write(const std::string& text, const std::string& hostPath);

}  // namespace modRulebaseFile

}  // namespace dorvik
