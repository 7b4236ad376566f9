#include "review/modProjectScope.h"

#include "parser/ScopeName.h"
#include "support/CapturedLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace dorvik {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> Bag(const VirtualObject& object) {
    std::vector<std::string> lines;
    const KeyedArrayList& properties = object.Properties();
    for (std::int32_t index = 1; index <= properties.Count(); ++index) {
        lines.push_back(properties.Key(index) + "=" + properties.Item(index).AsText());
    }
    return lines;
}

class ProjectScopeTest : public testing::Test {
protected:
    VB6ParserState m_state;
};

TEST_F(ProjectScopeTest, ProjectIsAttachedBeforeItsFileAndKeepsLineCounts) {
    VirtualProject project;
    project.SetName("Billing");
    project.SetFilename("C:\\Src\\Billing.vbp");
    modProjectScope::AttachProject(m_state, project);
    EXPECT_THAT(m_state.ScopeNames(), ElementsAre("Project", "VBP"));
    EXPECT_EQ(m_state.GetVirtualObject("Project"), project.ProjectStats());
    EXPECT_TRUE(project.ProjectStats()->HasLSTATS());
    EXPECT_GT(project.ProjectStats()->Properties().Count(), 0);
}

TEST_F(ProjectScopeTest, ProjectFileHasNameAndTypeBeforeItsFileNames) {
    VirtualProject project;
    project.SetName("Billing");
    project.SetFilename("C:\\Src\\Billing.vbp");
    modProjectScope::AttachProject(m_state, project);
    const auto file = m_state.GetVirtualObject("VBP");
    const std::vector<std::string> bag = Bag(*file);
    ASSERT_GT(bag.size(), 2U);
    EXPECT_EQ(bag[0], "Name=Billing");
    EXPECT_EQ(bag[1], "Type=Project");
    EXPECT_EQ(file->Properties().Item("Filename").AsText(), "Billing.vbp");
    EXPECT_EQ(file->Properties().Item("Path").AsText(), "C:\\Src\\");
    EXPECT_EQ(file->ParentViolations(), "Project");
    EXPECT_TRUE(file->HasVLIST());
    EXPECT_FALSE(file->HasLSTATS());
}

TEST_F(ProjectScopeTest, ProjectAndItsFileGoTogether) {
    VirtualProject project;
    modProjectScope::AttachProject(m_state, project);
    modProjectScope::DetachProject(m_state);
    EXPECT_THAT(m_state.ScopeNames(), IsEmpty());
}

TEST_F(ProjectScopeTest, ReferenceHasItsPropertiesInOrderAndCountsOnTheProjectFile) {
    VirtualReference reference;
    reference.GUID = "{G}";
    reference.AuthorisedVersions = "2.0;2.1";
    reference.Description = "Stock";
    reference.DesignTime = false;
    reference.Filename = "stock.tlb";
    reference.Version = "2.1";
    modProjectScope::AttachReference(m_state, reference, true);
    const auto object = m_state.GetVirtualObject("Reference");
    EXPECT_THAT(
        Bag(*object),
        ElementsAre(
            "GUID={G}",
            "AuthorisedVersions=2.0;2.1",
            "Description=Stock",
            "DesignTime=False",
            "Filename=stock.tlb",
            "IsAuthorised=True",
            "Version=2.1"));
    EXPECT_EQ(object->ParentViolations(), "VBP");
    modProjectScope::DetachReference(m_state);
    EXPECT_THAT(m_state.ScopeNames(), IsEmpty());
}

TEST_F(ProjectScopeTest, FileKeepsLineCountsAndViolationsAndCountsOnTheProject) {
    VirtualSourceFile file;
    modProjectScope::AttachFile(m_state, file);
    EXPECT_EQ(m_state.GetVirtualObject("File"), file.FileStats());
    EXPECT_TRUE(file.FileStats()->HasLSTATS());
    EXPECT_TRUE(file.FileStats()->HasVLIST());
    EXPECT_EQ(file.FileStats()->ParentViolations(), "Project");
    EXPECT_GT(file.FileStats()->Properties().Count(), 0);
}

TEST_F(ProjectScopeTest, WhatACompleteFileLeftIsDetachedAndNamed) {
    const test::CapturedLog log;
    for (const char* const name :
         {"Project", "VBP", "File", "Declarations", "Control", "Procedure"}) {
        m_state.Attach(std::make_shared<VirtualObject>(), name);
    }
    EXPECT_EQ(modProjectScope::DetachRemainingObjects(m_state), "Control, Procedure");
    EXPECT_THAT(m_state.ScopeNames(), ElementsAre("Project", "VBP", "File", "Declarations"));
    EXPECT_EQ(modProjectScope::DetachRemainingObjects(m_state), "");
    EXPECT_THAT(log.Lines(), IsEmpty());
}

TEST_F(ProjectScopeTest, EverythingInAFileThatEndedTooEarlyIsDetachedAndNothingElse) {
    const std::string names[] = {
        "Project",     "VBP",        "File",        "Declarations",     "Layout",
        "Component",   "Control",    "Enum",        "LayoutProperties", "ControlProperties",
        "EnumElement", "Type",       "TypeElement", "Declare",          "Event",
        "Argument",    "Implements", "LineLabel",   "Procedure",        "Const",
        "Variable"};
    for (const std::string& name : names) {
        m_state.Attach(std::make_shared<VirtualObject>(), name);
    }
    modProjectScope::DetachOpenObjects(m_state);
    EXPECT_THAT(m_state.ScopeNames(), ElementsAre("Project", "VBP", "File", "Declarations"));
}

}  // namespace

}  // namespace dorvik
