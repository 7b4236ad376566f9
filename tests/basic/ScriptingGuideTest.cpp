#include "basic/ScriptRun.h"
#include "basic/library/BuiltinLookup.h"
#include "support/MarkdownBlocks.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>

namespace dorvik::basic {

namespace {

using dorvik::test::BlocksOf;
using dorvik::test::LinesOf;
using dorvik::test::MarkdownBlock;

std::string Guide() {
    const auto path =
        std::filesystem::path(DORVIK_BASIC_CASES) / ".." / ".." / "docs" / "scripting.md";
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// "Mid(String, Start[, Length])": how the guide shows a function.
std::string CallForm(const BuiltinFunction& function) {
    std::string text = std::string(function.Name) + "(";
    std::istringstream names{std::string(function.Parameters)};
    bool isFirst = true;
    for (std::string name; names >> name; isFirst = false) {
        const bool isOptional = name.starts_with('?');
        text += isOptional ? "[" : "";
        text += (isFirst ? "" : ", ") + name.substr(isOptional ? 1 : 0);
        text += isOptional ? "]" : "";
    }
    return text + ")";
}

/// The first cells of the rows in the tables of functions: `Mid(String, Start[, Length])`.
std::set<std::string> CallFormsIn(const std::string& guide) {
    constexpr std::string_view kHead = "| function |";
    std::set<std::string> forms;
    bool inside = false;
    for (const std::string& line : LinesOf(guide)) {
        inside = line.starts_with(kHead) || (inside && line.starts_with("|"));
        if (inside && line.starts_with("| `")) {
            forms.insert(line.substr(3, line.find('`', 3) - 3));
        }
    }
    return forms;
}

std::string RefusedSectionOf(const std::string& guide) {
    const std::size_t start = guide.find("\n## Refused\n");
    return guide.substr(start, guide.find("\n## ", start + 1) - start);
}

}  // namespace

TEST(ScriptingGuide, EachExampleDoesWhatTheGuideSays) {
    const std::vector<MarkdownBlock> blocks = BlocksOf(Guide());
    int examples = 0;
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        if (blocks[i].Language != "basic") {
            continue;
        }
        const std::string& text = blocks[i].Text;
        ASSERT_TRUE(i + 1 < blocks.size() && blocks[i + 1].Language == "text")
            << "An example without its output:\n"
            << text;
        const bool isModule = text.find("Sub Main") != std::string::npos;
        const ScriptRun run = isModule ? RunModule(text) : RunStatements(text);
        EXPECT_EQ(run.Output(), blocks[i + 1].Text) << text;
        ++examples;
    }
    EXPECT_GE(examples, 20);
}

TEST(ScriptingGuide, EachBuiltInFunctionStandsThereWithItsArguments) {
    const std::string guide = Guide();
    const std::set<std::string> forms = CallFormsIn(guide);
    const std::string refused = RefusedSectionOf(guide);
    for (const BuiltinFunction& function : AllBuiltins()) {
        const std::string name = "`" + std::string(function.Name) + "`";
        if (function.IsRefused) {
            EXPECT_NE(refused.find(name), std::string::npos) << function.Name;
        } else if (function.Name.ends_with('$')) {
            EXPECT_NE(guide.find("Also " + name), std::string::npos) << function.Name;
        } else {
            EXPECT_TRUE(forms.contains(CallForm(function))) << CallForm(function);
        }
    }
}

TEST(ScriptingGuide, EachFunctionOfItsTablesExists) {
    std::set<std::string> known;
    for (const BuiltinFunction& function : AllBuiltins()) {
        known.insert(CallForm(function));
    }
    const std::set<std::string> forms = CallFormsIn(Guide());
    EXPECT_GE(forms.size(), 100U);
    for (const std::string& form : forms) {
        EXPECT_TRUE(known.contains(form)) << form;
    }
}

}  // namespace dorvik::basic
