#pragma once

#include "base/modTextCase.h"
#include "criteria/ReviewCriteria.h"
#include "rulebase/file/RulebaseManager.h"
#include "rulebase/model/Rulebase.h"
#include "rulebase/model/UnauthorisedKeyword.h"
#include "workstation/dialogs/DialogsFixture.h"

#include <memory>
#include <string>

namespace dorvik::test {

/// A project of a module, a class and two forms, a rulebase that flags "GoTo", and the criteria of the projects that are
/// open in the environment.
class ReviewedFiles : public DialogsFixture {
protected:
    ReviewedFiles() {
        m_criteria->SetReviewType(ReviewType_IDE);
        Write(
            "Demo\\Demo.vbp",
            "Type=Exe\nForm=frmMain.frm\nModule=modA; modA.bas\nClass=clsB; clsB.cls\n"
            "Form=frmMdi.frm\nName=\"Demo\"\n");
        Write(
            "Demo\\modA.bas",
            "Attribute VB_Name = \"modA\"\nPublic Sub Run()\n    GoTo Done\nDone:\nEnd Sub\n");
        Write("Demo\\clsB.cls", "Attribute VB_Name = \"clsB\"\nPublic Sub Go()\nEnd Sub\n");
        Write(
            "Demo\\frmMain.frm",
            "VERSION 5.00\nBegin VB.Form frmMain \nEnd\nAttribute VB_Name = \"frmMain\"\n");
        Write(
            "Demo\\frmMdi.frm",
            "VERSION 5.00\nBegin VB.MDIForm frmMdi \nEnd\nAttribute VB_Name = \"frmMdi\"\n");
        AddProject("Demo", "Demo\\Demo.vbp");
        SaveRules("Rules.dvk");
    }

    std::string Write(const std::string& name, const std::string& text) {
        return m_folder.Write(name, modTextCase::ReplaceAll(text, "\n", "\r\n"));
    }

    void AddProject(const std::string& name, const std::string& file) {
        const auto project = std::make_shared<VirtualProject>();
        project->SetName(name);
        project->SetFilename(m_folder.Path(file));
        project->SetProjectType("Exe");
        m_criteria->ProjectList().Add(name, project, true);
    }

    std::string SaveRules(const std::string& name) {
        Rulebase rulebase;
        rulebase.SetTitle("Demo rules");
        const auto rule = std::make_shared<UnauthorisedKeyword>();
        rule->SetTitle("Jump");
        rule->SetCondition("GoTo");
        for (const std::int32_t event : {10, 28, 30}) {
            rule->AddParserEventID(event);
        }
        rule->ViolationDefinition().SetTitle("Jump");
        rule->ViolationDefinition().SetSeverity(2);
        rule->ViolationDefinition().SetImpact(750);
        rule->ViolationDefinition().SetCategoryID(-1);
        rulebase.RuleLists().AddConvention(rule, true);
        for (const char* const title : {"Jumps", "Clarity"}) {
            const auto category = std::make_shared<CategoryItem>();
            category->SetTitle(title);
            category->SetDescription(std::string(title) + " of the code.");
            rulebase.CategoryList().Add(category, true);
        }
        rulebase.Tolerances().Count.SetItem(1, 0);
        rulebase.Tolerances().Count.SetItem(6, 40);
        rulebase.Tolerances().Impact.SetItem(2, 3000);
        rulebase.SetTolerancePercentageComments(10);
        const std::string path = m_folder.Path(name);
        RulebaseManager().Save(rulebase, path);
        return path;
    }

    /// Ready for a review without the dialog.
    void ChooseEverything() {
        m_criteria->LoadCriteria().SetRulebaseFile(m_folder.Path("Rules.dvk"));
        m_criteria->LoadCriteria().SetUnauthorisedKeywords(true);
        m_criteria->SetReportOption(0);
        for (std::int32_t level = 1; level <= 5; ++level) {
            m_criteria->LoadCriteria().SetSeverityLevel(level, true);
        }
        const auto& project = m_criteria->ProjectList().Item(1);
        project->LoadProject(project->Filename());
        for (std::int32_t index = 1; index <= project->SourceFiles().Count(); ++index) {
            project->SourceFiles().SetSelected(index, true);
        }
    }

    bool HasResults() const { return !m_folder.Read("Demo\\Dorvik\\Demo_DORVIK.mdb").empty(); }

    std::shared_ptr<ReviewCriteria> m_criteria = std::make_shared<ReviewCriteria>();
};

}  // namespace dorvik::test
