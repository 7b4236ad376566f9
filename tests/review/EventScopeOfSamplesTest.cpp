#include "criteria/ReviewCriteria.h"
#include "parser/ScopeName.h"
#include "parser/VB6ParserState.h"
#include "review/IProjectEventListener.h"
#include "review/ProjectTraversal.h"
#include "rulebase/catalogue/modEventScope.h"
#include "settings/DVKWorkData.h"
#include "support/FilesystemPaths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>

namespace dorvik {

namespace {

/// Compares the objects that the catalogue promises to rule authors with those that the parser has in scope.
class ScopeListener final : public IProjectEventListener {
public:
    void EventFired(
        dorvik::ParserEvent event,
        const VB6ParserState& state,
        const VirtualSourceFile* /*file*/) override {
        const auto number = static_cast<std::int32_t>(event);
        Seen.insert(number);
        for (const std::string_view name : modEventScope::DocumentedScope(number)) {
            if (name != scopename::kSource && state.FindVirtualObject(name) == nullptr) {
                Missing.insert(modEventScope::Describe(number) + ": " + std::string(name));
            }
        }
        for (const std::string& name : state.ScopeNames()) {
            if (!modEventScope::MayBeInScope(number, name)) {
                Surplus.insert(modEventScope::Describe(number) + ": " + name);
            }
        }
    }
    void FileFailed(const VirtualSourceFile& /*file*/) override { ++FailedFiles; }
    void LayoutCut(const VirtualSourceFile& /*file*/, const LayoutFault& /*fault*/) override {
        ++FailedFiles;
    }
    bool StopRequested() override { return false; }

    std::set<std::int32_t> Seen;
    std::set<std::string> Missing;
    std::set<std::string> Surplus;
    int FailedFiles = 0;
};

}  // namespace

TEST(EventScopeOfSamples, WhatIsPromisedIsThere) {
    ScopeListener listener;
    for (const char* name : {"Billing", "Clinic", "Warehouse"}) {
        VirtualProject project;
        const std::filesystem::path file =
            std::filesystem::path(DORVIK_SAMPLES_FOLDER) / name / (std::string(name) + ".vbp");
        ASSERT_EQ(project.LoadProject(test::ProgramPath(file)), ProjectLoadStatus::Good);
        EXPECT_TRUE(ProjectTraversal(project, ReviewCriteria(DVKWorkData()), listener).Run());
    }
    EXPECT_EQ(listener.FailedFiles, 0);
    EXPECT_EQ(listener.Seen.size(), 37U);
    EXPECT_EQ(listener.Missing, std::set<std::string>{});
    // The layout is there from the first component line on, and a part of a file may stay open; no
    // rule can count on those.
    for (const std::string& surplus : listener.Surplus) {
        EXPECT_TRUE(surplus.starts_with("event 5 (")) << surplus;
    }
}

}  // namespace dorvik
