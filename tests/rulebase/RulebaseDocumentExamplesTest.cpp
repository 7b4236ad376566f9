#include "foundation/lists/StringArrayList.h"
#include "parser/ParserEventTable.h"
#include "platform/host/modFiles.h"
#include "rulebase/catalogue/ObjectCatalogue.h"
#include "rulebase/catalogue/PropertyDescriptions.h"
#include "rulebase/catalogue/modEventScope.h"
#include "rulebase/check/RulebaseCheck.h"
#include "rulebase/file/RulebaseManager.h"
#include "support/CapturedLog.h"
#include "support/MarkdownBlocks.h"
#include "support/RecordingMessageBox.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace dorvik {

namespace {

using ::testing::HasSubstr;

/// The guide for rule authors, as it stands in the source tree.
std::string Guide() {
    std::ifstream stream(
        std::filesystem::path(DORVIK_DOCS_FOLDER) / "rulebase.md", std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// A text as a cell of a table shows it.
std::string Cell(std::string_view text) {
    std::string cell;
    for (const char character : text) {
        switch (character) {
            case '&': cell += "&amp;"; break;
            case '<': cell += "&lt;"; break;
            case '>': cell += "&gt;"; break;
            case '|': cell += "\\|"; break;
            default: cell += character;
        }
    }
    return cell;
}

std::string Line(std::initializer_list<std::string> cells) {
    std::string line = "\n|";
    for (const std::string& cell : cells) {
        line += " " + cell + " |";
    }
    return line + "\n";
}

std::string Code(std::string_view name) {
    return "`" + std::string(name) + "`";
}

/// The part of the guide under a heading, up to the next of that level.
std::string Part(const std::string& guide, const std::string& heading) {
    const std::size_t start = guide.find("\n" + heading + "\n");
    EXPECT_NE(start, std::string::npos) << heading;
    const std::string mark = "\n" + heading.substr(0, heading.find(' ') + 1);
    return guide.substr(start, guide.find(mark, start + heading.size()) - start) + "\n";
}

std::size_t RowsIn(const std::string& part) {
    std::size_t rows = 0;
    for (const std::string& line : test::LinesOf(part)) {
        rows += line.starts_with("| ") ? 1 : 0;
    }
    return rows - 2;  // the head and its rule
}

}  // namespace

TEST(RulebaseGuide, EveryExampleLoadsAndPassesTheCheck) {
    const test::CapturedLog log;
    test::RecordingMessageBox box;
    const test::TemporaryFolder folder;
    const std::vector<std::string> examples = test::ExampleRulebases(Guide());
    ASSERT_GE(examples.size(), 7U);
    for (const std::string& example : examples) {
        const std::string path = folder.Write("example.dvk", example);
        RulebaseCheck check;
        ASSERT_TRUE(check.Run(path)) << check.Problem() << example;
        for (const RulebaseFault& fault : check.Faults()) {
            ADD_FAILURE() << fault.Text();
        }
        RulebaseLoadCriteria criteria;
        criteria.SetRulebaseFile(path);
        criteria.SetLoadForEdit(true);
        const auto rulebase = RulebaseManager("Test", folder.Path()).LoadRulebase(criteria);
        ASSERT_NE(rulebase, nullptr);
        EXPECT_EQ(
            rulebase->RuleLists().AllConventions().Count(),
            criteria.NumUnauthKeywords + criteria.NumCodingConventions +
                criteria.NumNamingConventions);
        EXPECT_GE(rulebase->RuleLists().AllConventions().Count(), 1);
    }
    EXPECT_TRUE(box.Messages.empty());
    EXPECT_TRUE(log.Lines().empty()) << log.Lines().front();
}

TEST(RulebaseGuide, EachPieceIsInItsExample) {
    const std::vector<std::string> examples = test::ExampleRulebases(Guide());
    for (std::size_t index = 1; index < examples.size(); ++index) {
        EXPECT_NE(examples[index], examples.front()) << index;
    }
}

TEST(RulebaseGuide, TheTableOfEventsIsThatOfTheCatalogue) {
    const std::string part = Part(Guide(), "## Events");
    EXPECT_EQ(RowsIn(part), kParserEvents.size());
    for (const ParserEventRow& row : kParserEvents) {
        const auto event = static_cast<std::int32_t>(row.Event);
        std::string scope;
        for (const std::string_view name : modEventScope::DocumentedScope(event)) {
            scope += (scope.empty() ? "" : ", ") + std::string(name);
        }
        EXPECT_THAT(
            part, HasSubstr(Line({std::to_string(event), Cell(row.Text), Cell(row.Fired), scope})));
    }
}

TEST(RulebaseGuide, TheTableOfObjectsIsThatOfTheCatalogue) {
    const std::string part = Part(Guide(), "## Objects");
    EXPECT_EQ(RowsIn(part), modObjectCatalogue::Rows().size());
    for (const ObjectRow& row : modObjectCatalogue::Rows()) {
        const std::string root(modObjectCatalogue::Find(static_cast<std::int32_t>(row.Root))->Name);
        const std::size_t colon = row.Description.find(": ");
        const std::string what = row.Description.empty() ? "a refinement of " + Code(root)
                                                         : Cell(row.Description.substr(colon + 2));
        EXPECT_THAT(
            part,
            HasSubstr(Line(
                {std::to_string(static_cast<std::int32_t>(row.Type)),
                 Cell(row.Name),
                 Code(root),
                 what})));
    }
}

TEST(RulebaseGuide, TheTablesOfPropertiesAreThoseOfTheCatalogue) {
    const std::string guide = Guide();
    for (const ObjectPropertyList& list : modPropertyDescriptions::Lists()) {
        const std::string name(
            modObjectCatalogue::Find(static_cast<std::int32_t>(list.Object))->Name);
        const std::string part = Part(guide, "### " + name);
        EXPECT_EQ(RowsIn(part), list.Properties.size()) << name;
        for (const PropertyDescription& property : list.Properties) {
            const PropertyRow& row =
                *modPropertyCatalogue::Find(static_cast<std::int32_t>(property.Number));
            const std::string type(modPropertyCatalogue::TypeText(
                property.Type == PropertyType::None ? row.Type : property.Type));
            EXPECT_THAT(
                part,
                HasSubstr(Line(
                    {Code(row.Name), type.empty() ? "any" : Cell(type), Cell(property.Sentence)})));
        }
    }
}

}  // namespace dorvik
