#include "parser/IFileParserEvents.h"
#include "parser/ScopeName.h"
#include "parser/VB6Parser.h"
#include "parser/VB6ParserState.h"
#include "rulebase/catalogue/ObjectCatalogue.h"
#include "rulebase/catalogue/ObjectHelper.h"
#include "rulebase/catalogue/PropertyCatalogue.h"
#include "source/VirtualObject.h"
#include "source/VirtualProject.h"
#include "source/VirtualSourceFile.h"
#include "source/modMemberStats.h"
#include "support/FilesystemPaths.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

namespace {

using Names = std::set<std::string>;

/// What the parser shows of the sample projects, against what the catalogue says.
class SampleWalk : public IFileParserEvents {
public:
    SampleWalk() {
        for (const ObjectRow& row : modObjectCatalogue::Rows()) {
            if (row.Type == row.Root) {
                LongArrayList numbers;
                ObjectHelper::GetPropertyList(
                    1,
                    static_cast<std::int32_t>(row.Type),
                    m_listed[std::string(row.Name)],
                    numbers);
            }
        }
        for (const PropertyRow& row : modPropertyCatalogue::Rows()) {
            m_catalogued.emplace(row.Name);
        }
    }

    void Walk(const std::filesystem::path& projectFile) {
        VB6ParserState state;
        m_state = &state;
        VirtualProject project;
        ASSERT_EQ(project.LoadProject(test::ProgramPath(projectFile)), ProjectLoadStatus::Good);
        project.ProjectStats()->SetHasLSTATS(true);
        state.Attach(project.ProjectStats(), scopename::kProject);
        modMemberStats::InitialiseProjectMemberStats(project);
        for (std::int32_t i = 1; i <= project.SourceFiles().Count(); ++i) {
            WalkFile(*project.SourceFiles().Item(i));
        }
    }

    void ParserEvent(dorvik::ParserEvent /*event*/) override {
        ++m_events;
        for (const std::string& name : m_state->ScopeNames()) {
            LookThrough(name, *m_state->FindVirtualObject(name));
            Read(name);
        }
        Read(scopename::kSource);
        Read(scopename::kNamingConvention);
    }

    int Events() const { return m_events; }
    /// "Object.Property" of what is in a bag and in no row of the catalogue.
    const Names& NotCatalogued() const { return m_notCatalogued; }
    /// "Object.Property" of what is in a bag, but not in the object's list.
    const Names& NotListed() const { return m_notListed; }
    /// "Object.Property" of what a list shows and a rule could never read.
    Names NeverRead() const {
        Names names;
        for (const auto& [object, list] : m_listed) {
            for (std::int32_t i = 1; i <= list.Count(); ++i) {
                const std::string name = object + "." + list.Item(i);
                if (!m_read.contains(name)) {
                    names.insert(name);
                }
            }
        }
        return names;
    }

private:
    void WalkFile(VirtualSourceFile& file) {
        file.FileStats()->SetHasLSTATS(true);
        m_state->Attach(file.FileStats(), scopename::kFile);
        modMemberStats::InitialiseFileMemberStats(*file.FileStats());
        ASSERT_EQ(file.Connect(), SourceFileStatus::Good);
        VB6Parser parser;
        parser.InitialiseSourceFileReview(file, *m_state);
        parser.HookupCallback(*this);
        auto result = TickResult::Continue;
        while (result == TickResult::Continue) {
            std::int32_t characters = 0;
            parser.ReviewTick(characters, result);
        }
        EXPECT_EQ(result, TickResult::EndOfFile);
        m_state->Detach(scopename::kDeclarations);
        m_state->Detach(scopename::kFile);
        file.Disconnect();
    }

    /// The properties of these depend on the control.
    static bool DependsOnControl(std::string_view object) {
        return object == scopename::kControlProperties || object == scopename::kLayoutProperties;
    }

    void LookThrough(const std::string& object, VirtualObject& bag) {
        for (std::int32_t i = 1; i <= bag.Properties().Count() && !DependsOnControl(object); ++i) {
            const std::string& property = bag.Properties().Key(i);
            if (!m_catalogued.contains(property)) {
                m_notCatalogued.insert(object + "." + property);
            }
            if (!m_listed[object].ContainsValue(property)) {
                m_notListed.insert(object + "." + property);
            }
        }
    }

    void Read(std::string_view object) {
        const std::string name(object);
        const StringArrayList& list = m_listed[name];
        for (std::int32_t i = 1; i <= list.Count(); ++i) {
            const std::string property = name + "." + list.Item(i);
            if (!m_read.contains(property)) {
                bool ok = false;
                std::string errorText;
                m_state->GetObjectProperty(object, list.Item(i), ok, errorText);
                if (ok) {
                    m_read.insert(property);
                }
            }
        }
    }

    VB6ParserState* m_state = nullptr;
    int m_events = 0;
    std::map<std::string, StringArrayList> m_listed;
    Names m_catalogued;
    Names m_notCatalogued;
    Names m_notListed;
    Names m_read;
};

class CatalogueOfSamples : public testing::Test {
protected:
    static void SetUpTestSuite() {
        s_walk = std::make_unique<SampleWalk>();
        const std::filesystem::path samples(DORVIK_SAMPLES_FOLDER);
        for (const char* project :
             {"Billing/Billing.vbp", "Clinic/Clinic.vbp", "Warehouse/Warehouse.vbp"}) {
            s_walk->Walk(samples / project);
        }
    }
    static void TearDownTestSuite() { s_walk.reset(); }

    static std::unique_ptr<SampleWalk> s_walk;
};

std::unique_ptr<SampleWalk> CatalogueOfSamples::s_walk;

}  // namespace

TEST_F(CatalogueOfSamples, EveryPropertyThatTheParserSetsHasANumberButTheReviewStatus) {
    EXPECT_GT(s_walk->Events(), 500);
    EXPECT_EQ(s_walk->NotCatalogued(), Names{"File.ReviewStatus"});
}

TEST_F(CatalogueOfSamples, EveryPropertyThatTheParserSetsIsInTheListOfItsObject) {
    EXPECT_EQ(s_walk->NotListed(), Names{"File.ReviewStatus"});
}

TEST_F(CatalogueOfSamples, EveryListedPropertyOfASourceFileCanBeRead) {
    Names unread;
    for (const std::string& name : s_walk->NeverRead()) {
        // The project review attaches references, and a key that no project file has is no property.
        if (!name.starts_with("Reference.") && !name.starts_with("Project.")) {
            unread.insert(name);
        }
    }
    // The check of authorised components adds these two.
    EXPECT_EQ(unread, (Names{"Component.AuthorisedVersions", "Component.IsAuthorised"}));
}

TEST_F(CatalogueOfSamples, ProjectFilesHaveTheKeysThatTheListShows) {
    Names missing;
    for (const std::string& name : s_walk->NeverRead()) {
        if (name.starts_with("Project.")) {
            missing.insert(name);
        }
    }
    EXPECT_EQ(
        missing,
        (Names{
            "Project.DebugStartupComponent",
            "Project.DebugStartupOption",
            "Project.DllBaseAddress",
            "Project.NoControlUpgrade",
            "Project.RemoveUnusedControlInfo",
            "Project.RequireLicenseKey",
            "Project.UseExistingBrowser",
            "Project.VersionFileDescription",
            "Project.VersionLegalTrademarks",
            "Project.VersionProductName"}));
}

}  // namespace dorvik
