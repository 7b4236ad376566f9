#include "review/ProjectTraversal.h"

#include "base/modTextCase.h"
#include "criteria/ReviewCriteria.h"
#include "review/IProjectEventListener.h"
#include "settings/DVKWorkData.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace dorvik {

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class RecordingListener final : public IProjectEventListener {
public:
    struct Record {
        int Event;
        std::string File;  // empty at the project's own events
        std::vector<std::string> Scope;
        std::string Authorised;  // of the reference in scope
    };

    void EventFired(
        ParserEvent event, const VB6ParserState& state, const VirtualSourceFile* file) override {
        Record record{
            static_cast<int>(event),
            file == nullptr ? std::string() : file->Name(),
            state.ScopeNames(),
            {}};
        if (const auto reference = state.GetVirtualObject("Reference")) {
            record.Authorised = reference->Properties().Item("IsAuthorised").AsText();
        }
        EXPECT_EQ(state.ParserEvent(), event);
        if (event == ParserEvent::EndProject) {
            const KeyedArrayList& bag = state.FindVirtualObject("VBP")->Properties();
            for (std::int32_t index = bag.FindIndexByKey("Extension") + 1; index <= bag.Count();
                 ++index) {
                ProjectFileAtEnd += bag.Key(index) + "=" + bag.Item(index).AsText() + " ";
            }
        }
        Records.push_back(std::move(record));
    }
    void FileFailed(const VirtualSourceFile& file) override {
        Failed.push_back(file.Name());
        FailedStatus.push_back(file.ReviewStatus());
    }
    void LayoutCut(const VirtualSourceFile& file, const LayoutFault& fault) override {
        Cut.push_back(file.Name() + " " + fault.Clause());
    }
    bool StopRequested() override { return ++Lines == StopAtLine; }

    /// The numbers of the events of one file, or with an empty name those of the project itself.
    std::vector<int> Of(const std::string& file) const {
        std::vector<int> events;
        for (const Record& record : Records) {
            if (record.File == file) {
                events.push_back(record.Event);
            }
        }
        return events;
    }

    std::vector<Record> Records;
    std::vector<std::string> Failed;
    std::vector<SourceFileStatus> FailedStatus;
    std::vector<std::string> Cut;
    std::string
        ProjectFileAtEnd;  // the properties of the project file at end Project, after its own
    int Lines = 0;
    int StopAtLine = -1;
};

/// A loaded project of the two modules modA and modB.
class ProjectTraversalTest : public testing::Test {
protected:
    void Load(const std::string& lines = "") {
        Write("modA.bas", "Attribute VB_Name = \"modA\"\nSub Work()\nEnd Sub\n");
        Write("modB.bas", "Attribute VB_Name = \"modB\"\nOption Explicit\n");
        Write("P.vbp", "Module=modA; modA.bas\nModule=modB; modB.bas\nName=\"P\"\n" + lines);
        ASSERT_EQ(m_project.LoadProject(m_folder.Path("P.vbp")), ProjectLoadStatus::Good);
    }
    void Write(const std::string& name, const std::string& text) {
        m_folder.Write(name, modTextCase::ReplaceAll(text, "\n", "\r\n"));
    }
    bool Run() { return ProjectTraversal(m_project, m_criteria, m_listener).Run(); }

    test::TemporaryFolder m_folder;
    VirtualProject m_project;
    ReviewCriteria m_criteria{DVKWorkData()};
    RecordingListener m_listener;
};

TEST_F(ProjectTraversalTest, ProjectEventsStandAroundThoseOfTheFiles) {
    Load();
    m_project.References().Clear();
    EXPECT_TRUE(Run());
    EXPECT_THAT(m_listener.Of(""), ElementsAre(1, 2, 36, 37));
    for (const char* const name : {"modA", "modB"}) {
        const std::vector<int> events = m_listener.Of(name);
        ASSERT_FALSE(events.empty()) << name;
        EXPECT_EQ(events.front(), 3) << name;
        EXPECT_EQ(events.back(), 35) << name;
    }
    EXPECT_EQ(m_listener.Records[2].File, "modA");
    EXPECT_THAT(m_listener.Failed, IsEmpty());
}

TEST_F(ProjectTraversalTest, FilesAreTraversedWhetherSelectedOrNot) {
    Load();
    m_project.SourceFiles().SetSelected(2, true);
    Run();
    EXPECT_FALSE(m_listener.Of("modA").empty());
    EXPECT_FALSE(m_listener.Of("modB").empty());
}

TEST_F(ProjectTraversalTest, EachReferenceHasItsEventAndNoneIsAuthorised) {
    Load("Reference=*\\G{11111111-1111-1111-1111-111111111111}#1.0#0#stock.tlb#Stock\n");
    const auto references = static_cast<std::size_t>(m_project.References().Count());
    ASSERT_GT(references, 0U);
    Run();
    std::vector<std::string> authorised;
    for (const RecordingListener::Record& record : m_listener.Records) {
        if (record.Event == 26) {
            EXPECT_THAT(record.Scope, ElementsAre("Project", "VBP", "Reference"));
            authorised.push_back(record.Authorised);
        }
    }
    EXPECT_THAT(authorised, SizeIs(references));
    EXPECT_THAT(authorised, Each(std::string("False")));
}

TEST_F(ProjectTraversalTest, ProjectIsInScopeFromItsFirstEventToItsLast) {
    Load();
    Run();
    EXPECT_THAT(m_listener.Records.front().Scope, ElementsAre("Project", "VBP"));
    EXPECT_THAT(m_listener.Records.back().Scope, ElementsAre("Project", "VBP"));
}

TEST_F(ProjectTraversalTest, EndOfTheProjectShowsWhatTheProjectFileIsMeasuredBy) {
    Load();
    Run();
    EXPECT_EQ(
        m_listener.ProjectFileAtEnd, "PC=0 PCLimit=0 PCPass=True CC=0 CCLimit=0 CCPass=True ");
}

TEST_F(ProjectTraversalTest, WhatAFileLeavesAttachedIsGoneInTheNextOne) {
    Load();
    Write("modA.bas", "Attribute VB_Name = \"modA\"\nSub Work()\n");
    Write("modB.bas", "Attribute VB_Name = \"modB\"\nSub Work()\nEnd Sub\n");
    EXPECT_TRUE(Run());
    EXPECT_THAT(m_listener.Failed, IsEmpty());
    EXPECT_EQ(m_listener.Of("modB").back(), 35);
}

TEST_F(ProjectTraversalTest, KnownFaultThatIsKeptFailsTheNextFile) {
    Load();
    Write("modA.bas", "Attribute VB_Name = \"modA\"\nSub Work()\n");
    Write("modB.bas", "Attribute VB_Name = \"modB\"\nSub Work()\nEnd Sub\n");
    m_criteria.SetKeepsKnownFaults(true);
    EXPECT_TRUE(Run());
    EXPECT_THAT(m_listener.Failed, ElementsAre("modB"));
}

TEST_F(ProjectTraversalTest, LayoutThatEndsTooEarlyIsReported) {
    Load("Form=frmC; frmC.frm\n");
    Write(
        "frmC.frm",
        "Begin VB.Form frmC\n   Begin VB.Label L\n      Tag = 1\n      Tag = 2\n   End\nEnd\n");
    EXPECT_TRUE(Run());
    EXPECT_THAT(m_listener.Failed, IsEmpty());
    EXPECT_THAT(
        m_listener.Cut, ElementsAre("frmC in line 4 the property 'Tag' of 'L' is set twice"));
}

TEST_F(ProjectTraversalTest, FileThatCannotBeOpenedIsReportedAndTheNextOneFollows) {
    Load();
    m_project.SourceFiles().Item(1)->SetFilename(m_folder.Path("modGone.bas"));
    EXPECT_TRUE(Run());
    EXPECT_THAT(m_listener.Failed, ElementsAre("modA"));
    EXPECT_THAT(m_listener.FailedStatus, ElementsAre(SourceFileStatus::NotFound));
    EXPECT_THAT(m_listener.Of("modA"), IsEmpty());
    ASSERT_FALSE(m_listener.Of("modB").empty());
    EXPECT_EQ(m_listener.Of("modB").back(), 35);
}

TEST_F(ProjectTraversalTest, ListenerCanEndTheTraversalInTheMiddleOfAFile) {
    Load();
    m_listener.StopAtLine = 2;
    EXPECT_FALSE(Run());
    EXPECT_EQ(m_listener.Lines, 2);
    EXPECT_THAT(m_listener.Of("modB"), IsEmpty());
    EXPECT_EQ(
        std::count_if(
            m_listener.Records.begin(),
            m_listener.Records.end(),
            [](const RecordingListener::Record& record) { return record.Event >= 35; }),
        0);
    EXPECT_THAT(m_listener.Failed, IsEmpty());
}

}  // namespace

}  // namespace dorvik
