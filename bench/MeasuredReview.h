#pragma once

#include <string>

namespace dorvik {

/// Reviews one project with all kinds of rule that the rulebase has, results beside the project. For
/// use in a process of its own, since it makes the objects of the process.
bool ReviewProject(const std::string& projectFile, const std::string& rulebaseFile);

/// The rulebase that is installed with the program.
std::string InstalledRulebase();

}  // namespace dorvik
