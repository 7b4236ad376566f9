#pragma once

#include <cstdint>

// Which items of the menu, the toolbar and the popup are enabled, by their positions. Items of submenus keep what they
// have; only grouping by source file depends on something, which is whether all files are shown.
namespace dorvik::menustates {

enum class Bar : std::int32_t { Menu, Toolbar, ListPopup };

/// While no review runs.
enum class Idle : std::int32_t {
    Untouched,         // of use at any time
    ProjectsOpen,      // is about the open projects
    Results,           // is about what is shown
    ResultsInList,     // is about the violation list
    RulebaseDocument,  // the file exists
};

/// While a review runs in the background.
enum class Running : std::int32_t {
    Untouched,  // never disabled
    Off,        // is about results, which the review is about to replace
    On,         // cancels the review, or is of use at any time
};

struct Row {
    dorvik::menustates::Bar Bar;
    std::int32_t Position;
    dorvik::menustates::Idle Idle;
    dorvik::menustates::Running Running;
};

// clang-format off
inline constexpr Row kStates[] = {
    {Bar::Menu, 1, Idle::ProjectsOpen, Running::Off},               // Open Results
    {Bar::Menu, 2, Idle::Results, Running::Off},                    // Go To Source
    {Bar::Menu, 3, Idle::ProjectsOpen, Running::On},     // Review Project(s), then Cancel Review
    {Bar::Menu, 4, Idle::Untouched, Running::On},        // Show Dorvik Work Bench
    {Bar::Menu, 5, Idle::Results, Running::Off},                    // Review Summary
    {Bar::Menu, 6, Idle::ResultsInList, Running::Off},              // Filter
    {Bar::Menu, 7, Idle::ResultsInList, Running::Off},              // Group By
    {Bar::Menu, 8, Idle::RulebaseDocument, Running::Off},           // Rulebase Document
    {Bar::Menu, 9, Idle::Untouched, Running::On},        // Options
    {Bar::Menu, 10, Idle::Untouched, Running::On},       // Help
    {Bar::Toolbar, 1, Idle::Results, Running::Off},                 // Go To Source
    {Bar::Toolbar, 2, Idle::ProjectsOpen, Running::Untouched},      // Review Project(s), then Cancel Background Review
    {Bar::Toolbar, 3, Idle::Untouched, Running::Untouched},         // Show Dorvik Work Bench
    {Bar::Toolbar, 4, Idle::Results, Running::Off},                 // Review Summary
    {Bar::Toolbar, 5, Idle::ResultsInList, Running::Off},           // Filter Violations
    {Bar::ListPopup, 1, Idle::Results, Running::Off},               // Go To Source
    {Bar::ListPopup, 2, Idle::ProjectsOpen, Running::Untouched},    // Review Project(s), then Cancel Review
    {Bar::ListPopup, 3, Idle::ResultsInList, Running::Off},         // Filter
    {Bar::ListPopup, 4, Idle::ResultsInList, Running::Off},         // Show Group By Box
    {Bar::ListPopup, 5, Idle::ResultsInList, Running::Off},         // Group By
    {Bar::ListPopup, 6, Idle::ResultsInList, Running::Off},         // Expand All Groups
    {Bar::ListPopup, 7, Idle::ResultsInList, Running::Off},         // Collapse All Groups
};
// clang-format on

}  // namespace dorvik::menustates
