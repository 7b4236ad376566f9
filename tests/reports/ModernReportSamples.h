#pragma once

#include "reports/ReviewedProject.h"

#include <array>
#include <string>

namespace dorvik::test {

/// Lines of source that would do harm in a page that took them for markup.
inline constexpr std::array<std::string_view, 5> kHostileLines = {
    "    s = \"</script><script>window.harm = 1; alert(1)</script>\"",
    "    s = \"<img src=x onerror=window.harm=2>\" ' <b>bold</b>",
    "    <!-- <script> ' opens a comment and a script",
    "    s = \"&lt;i&gt; &amp; \\u003c\" & \"]]>\"",
    "    s = \"'\"\"><svg onload=alert(3)>\"",
};

/// A small project in which every text holds markup, with violations of every severity and every kind of
/// owner. Its one tolerance, no critical violation in a file, is missed by "frmMain.frm".
inline void FillHostileProject(ReviewedProject& project) {
    project.AddCategory(1, "Errors <script>alert(4)</script>");
    project.AddCategory(2, "Naming & \"style\"");
    project.Criteria().SetToleranceCount(1, 0);
    project.Begin("Billing <i>& Co</i>");
    Violation ofProject = Breach(0, 2, 300, "Component is not authorised");
    ofProject.RuleType = 1;
    project.Raise(ofProject);
    project.BeginFile({"Billing", ".vbp", "Project"});
    project.Raise(Breach(0, 4, 20, "Reference is not authorised"));
    project.EndFile();

    project.BeginFile({"frmMain", ".frm", "Form", 240, 12});
    project.BeginSection("Declarations");
    Violation inSection = Breach(5030, 3, 40, "Variable <b>without</b> type");
    inSection.CategoryID = 2;
    inSection.SourceLineNumber = 7;
    inSection.SourceLine = "Dim x";
    project.Raise(inSection);
    project.EndProcedure();
    project.BeginProcedure("cmdPay_Click", "Sub", 24);
    for (std::size_t place = 0; place < kHostileLines.size(); ++place) {
        Violation violation = Breach(5001, 1, 900, "Markup in a <u>text</u>");
        violation.CategoryID = 1;
        violation.SourceLineNumber = static_cast<std::int32_t>(100 + place);
        violation.SourceLine = kHostileLines.at(place);
        violation.Description = "Line " + std::to_string(place) + " holds </script><b>markup</b>.";
        violation.Advice = "Write it out & <em>escape</em> it.\r\nAlways.";
        project.Raise(violation);
    }
    project.EndProcedure();
    project.EndFile();

    project.BeginFile({"modTotals", ".bas", "Module", 1200, 300});
    project.BeginProcedure("Rate", "Property Get", 4);
    for (std::int32_t count = 1; count <= 120; ++count) {
        Violation violation = Breach(5010, 5, 0, "Mind the magic number");
        violation.CategoryID = 2;
        violation.SourceLineNumber = count * 3;
        violation.SourceLine = "    total = total + " + std::to_string(count * 17);
        violation.Description = "The number " + std::to_string(count * 17) + " has no name.";
        project.Raise(violation);
    }
    project.EndProcedure();
    project.EndFile();
    project.BeginFile({"clsÄrger", ".cls", "Class", 60, 60});
    project.EndFile();
    project.End();
}

/// A project of that many violations, worded and spread as those of real projects are: a few dozen rules,
/// descriptions that name things, lines of code of usual lengths.
inline void FillLargeProject(ReviewedProject& project, int violations) {
    constexpr int kFiles = 100;
    constexpr int kProcedures = 10;
    constexpr int kRules = 30;
    for (std::int32_t id = 1; id <= 7; ++id) {
        project.AddCategory(id, "Category number " + std::to_string(id));
    }
    project.Begin("Large");
    int raised = 0;
    for (int file = 0; file < kFiles; ++file) {
        project.BeginFile({"modModule" + std::to_string(file), ".bas", "Module", 900, 90});
        for (int procedure = 0; procedure < kProcedures; ++procedure) {
            const std::string name = "CalculateSomething" + std::to_string(procedure);
            project.BeginProcedure(name, "Function", 1 + (file + procedure) % 60);
            for (;
                 raised * kFiles * kProcedures < violations * (file * kProcedures + procedure + 1);
                 ++raised) {
                const int rule = raised % kRules;
                const std::string number = std::to_string(raised);
                Violation violation = Breach(
                    5000 + rule,
                    1 + rule % 5,
                    static_cast<std::int16_t>(10 * rule),
                    "Rule of the house number " + std::to_string(rule));
                violation.CategoryID = 1 + rule % 7;
                violation.SourceLineNumber = raised % 900;
                violation.SourceLine = "        lngResult" + number +
                                       " = lngResult + CLng(varAmounts(intIndex)) * dblRate";
                violation.Description = "The variable 'lngResult" + number +
                                        "' of the procedure '" + name + "' holds a Variant.";
                violation.Advice =
                    "Give the variable a type of its own, so that the compiler can check what is "
                    "done with it. See the rules of the house for the exceptions.";
                project.Raise(violation);
            }
            project.EndProcedure();
        }
        project.EndFile();
    }
    project.End();
}

}  // namespace dorvik::test
