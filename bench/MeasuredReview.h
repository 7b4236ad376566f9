#pragma once

#include <memory>
#include <string>

namespace dorvik {

class ReviewCriteria;

/// Of the review of one project with all kinds of rule that the rulebase has, results beside the project. Needs the objects of
/// `modGlobal`.
std::shared_ptr<ReviewCriteria>
CriteriaOf(const std::string& projectFile, const std::string& rulebaseFile);

/// Such a review. For use in a process of its own, since it makes the objects of the process.
bool ReviewProject(const std::string& projectFile, const std::string& rulebaseFile);

/// The rulebase that is installed with the program.
std::string InstalledRulebase();

}  // namespace dorvik
