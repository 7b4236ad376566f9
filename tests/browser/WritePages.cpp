// Writes the pages that the browser tests open:
//   dorvik_browser_pages FOLDER    gives Hostile_Review.html and Large_Review.html there
#include "foundation/text/modUtilFunctions.h"
#include "reports/ModernReportSamples.h"
#include "reports/modern/ModernReport.h"
#include "support/FilesystemPaths.h"

#include <iostream>
#include <string>

using namespace dorvik;

namespace {

constexpr int kViolationsOfLarge = 5000;

template <typename Fill>
bool WritePage(const std::string& folder, const std::string& name, Fill fill) {
    test::ReviewedProject project(folder + name + "_DORVIK.mdb");
    fill(project);
    return ModernReport::Save(project.Results(), {}, {folder, "", name + "_Review.html"});
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "usage: dorvik_browser_pages FOLDER\n";
        return 2;
    }
    const std::string folder = modUtilFunctions::AddBackslash(test::ProgramPath(arguments[1]));
    const bool written = WritePage(folder, "Hostile", test::FillHostileProject) &&
                         WritePage(folder, "Large", [](test::ReviewedProject& project) {
                             test::FillLargeProject(project, kViolationsOfLarge);
                         });
    return written ? 0 : 1;
}
