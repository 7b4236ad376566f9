// Whether what must grow with the size of its input only does so: the CPU time of an input and that of
// one eight times as large, in the same run. Ends with 1 if anything grows faster, or gives a wrong result.
//
// usage: GrowthBenchmark

#include "ProgramPath.h"
#include "basic/library/TextSearch.h"
#include "basic/syntax/Parser.h"
#include "basic/values/ScriptContext.h"
#include "foundation/lists/KeyedArrayList.h"
#include "foundation/xml/KyXMLDoc.h"
#include "platform/host/TextFileReader.h"
#include "rulebase/model/RuleLists.h"
#include "source/LayoutReader.h"
#include "source/VirtualObject.h"
#include "source/VirtualProjectGroup.h"
#include "source/VirtualSourceFile.h"
#include "source/modSource.h"
#include "source/modVOSource.h"
#include "workstation/filehost/CodeFile.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace dorvik {
namespace {

constexpr std::size_t kFactor = 8;
/// What is linear takes 8 times as long, a little more where the memory outgrows the caches; a square
/// takes 64 times as long.
constexpr double kMost = 20;
constexpr int kRuns = 3;
constexpr double kLongRun = 1000;  // milliseconds; what takes as long is measured once

/// What is measured; false where the result is wrong.
using Work = std::function<bool()>;

struct Row {
    const char* Name;
    std::size_t Size;                       // of the smaller input
    std::function<Work(std::size_t)> Make;  // prepares an input of that size
};

std::string Repeated(std::string_view piece, std::size_t times) {
    std::string text;
    text.reserve(piece.size() * times);
    for (std::size_t count = 0; count < times; ++count) {
        text += piece;
    }
    return text;
}

// ---- lists ----

Work KeyedAdditions(std::size_t size) {
    return [size] {
        KeyedArrayList bag;
        for (std::size_t number = 0; number < size; ++number) {
            bag.Add("Property" + std::to_string(number), static_cast<std::int32_t>(number));
        }
        return bag.Contains("property" + std::to_string(size - 1)) && !bag.Contains("Property");
    };
}

Work RuleAdditions(std::size_t size) {
    return [size] {
        RuleLists lists;
        for (std::size_t id = 1; id <= size; ++id) {
            const auto rule = std::make_shared<UnauthorisedKeyword>();
            rule->SetRuleID(static_cast<std::int32_t>(id));
            rule->AddParserEventID(30);
            lists.AddConvention(rule, false);
        }
        return lists.ParserEventUKList(30, false)->Count() == static_cast<std::int32_t>(size);
    };
}

Work EventsOfARule(std::size_t size) {
    return [size] {
        UnauthorisedKeyword rule;
        for (std::size_t event = 1; event <= size; ++event) {
            rule.AddParserEventID(static_cast<std::int32_t>(event));
        }
        return rule.EventCount() == static_cast<std::int32_t>(size);
    };
}

Work EventItems(std::size_t size) {
    return [size] {
        VirtualSourceFile file;
        for (std::size_t number = 0; number < size; ++number) {
            file.AddEventItem("control" + std::to_string(number));
        }
        return file.HasEventItem("Control" + std::to_string(size - 1));
    };
}

// ---- XML ----

Work ElementsByPosition(std::size_t size) {
    const auto document = std::make_shared<KyXMLDoc>();
    document->LoadFromString("<r>" + Repeated("<a/>", size) + "</r>");
    return [document, size] {
        const auto root = document->RootElement();
        std::size_t length = 0;
        for (std::size_t position = 0; position < size; ++position) {
            length +=
                root->ElementAtPosition(static_cast<std::int32_t>(position))->ElementName().size();
        }
        return length == size;
    };
}

Work ElementsAddedAtTheEnd(std::size_t size) {
    return [size] {
        KyXMLDoc document;
        document.NewDoc("r");
        const auto root = document.RootElement();
        for (std::size_t number = 0; number < size; ++number) {
            root->AddElement("a")->AddAttribute("n", std::to_string(number));
        }
        return root->ElementCount() == static_cast<std::int32_t>(size);
    };
}

// ---- source lines ----

Work ConstantsOfADeclaration(std::size_t size) {
    const std::string text = "Const A = 1" + Repeated(", A = \"x, y\"", size - 1);
    return [text, size] {
        modVOSource::VirtualObjects objects;
        return modVOSource::ExtractConstantsFromDeclaration(text, "File", objects) &&
               objects.size() == size;
    };
}

Work BoundsOfAnArray(std::size_t size) {
    const std::string text = "Dim a(1" + Repeated(" To", size) + ") As Long";
    return [text] {
        modVOSource::VirtualObjects objects;
        return modVOSource::ExtractVariablesFromDeclaration(text, "File", objects) &&
               objects.size() == 1;
    };
}

Work LongStringOfALine(std::size_t size) {
    const std::string line = "x = \"" + Repeated("a: b \"\" '", size) + '"';
    return [line] {
        return modSource::SourceLineType(line) == LineType::Code &&
               !modSource::IsMultiStatementLine(line);
    };
}

Work StatementsOfALine(std::size_t size) {
    const std::string line = Repeated("x = 1: ", size);
    return [line, size] {
        std::string_view rest = line;
        std::size_t count = 0;
        bool more = true;
        for (;;) {
            modSource::NextStatementFromSourceLine(rest, more);
            if (!more) {
                return count == size;
            }
            ++count;
        }
    };
}

Work ControlsOfALayout(std::size_t size) {
    const auto lines = std::make_shared<std::vector<std::string>>();
    lines->emplace_back("Begin VB.Form F");
    for (std::size_t number = 0; number < size; ++number) {
        lines->emplace_back("   Begin VB.Label lbl ");
        lines->emplace_back("      Index  =  " + std::to_string(number));
        lines->emplace_back("   End");
    }
    lines->emplace_back("End");
    return [lines, size] {
        LayoutReader reader(*lines);
        for (std::size_t ordinal = 2; ordinal <= size + 1; ++ordinal) {
            VirtualObject object;
            modVOSource::LayoutControl control;
            if (!reader.Extract(static_cast<std::int32_t>(ordinal), object, control) ||
                control.Index != std::to_string(ordinal - 2)) {
                return false;
            }
        }
        return true;
    };
}

/// A file that is removed at the end of the program's work with it.
std::shared_ptr<const std::filesystem::path>
TemporaryFile(std::size_t size, std::string_view text) {
    std::shared_ptr<const std::filesystem::path> path(
        new std::filesystem::path(
            std::filesystem::temp_directory_path() / ("GrowthBenchmark." + std::to_string(size))),
        [](const std::filesystem::path* file) {
            std::filesystem::remove(*file);
            delete file;
        });
    std::ofstream(*path, std::ios::binary) << text;
    return path;
}

Work LinesOfAFile(std::size_t size, std::string_view lineEnd) {
    const auto path = TemporaryFile(size, Repeated("x" + std::string(lineEnd), size));
    return [path, size] {
        TextFileReader reader(ProgramPath(*path), 1252);
        std::size_t count = 0;
        for (; !reader.AtEnd(); ++count) {
            reader.ReadLine();
        }
        return count == size;
    };
}

/// A group whose projects are nowhere.
Work ProjectsOfAGroup(std::size_t size) {
    std::string text;
    for (std::size_t number = 0; number < size; ++number) {
        text += "Project=p" + std::to_string(number) + ".vbp\r\n";
    }
    const auto path = TemporaryFile(size, text);
    return [path, size] {
        const VirtualProjectGroup read(ProgramPath(*path), 1252);
        return read.ProjectFilenames().size() == size;
    };
}

/// One line that the environment shows, and attributes of it.
Work AttributesOfALine(std::size_t size) {
    const std::string text = "Dim x\r\n" + Repeated("Attribute x.VB_VarHelpID = -1\r\n", size);
    const auto path = TemporaryFile(size, text);
    return [path, text] {
        const CodeFile file(ProgramPath(*path), 1252, FileType::Module);
        return file.Texts().size() == 1 && file.Encoded().Bytes == text;
    };
}

// ---- scripts ----

Work ScriptOf(std::size_t size, std::string_view line, bool fails) {
    const std::string source = "Sub Main()\n" + Repeated(line, size) + "End Sub\n";
    return [source, size, fails] {
        return basic::ParseModule(source).Errors.size() == (fails ? size : 0);
    };
}

class NobodyRuns final : public basic::ScriptContext {
public:
    bool ComparesText() const override { return false; }
    basic::ErrorState& CurrentError() override { return m_error; }
    void Breathe() override {}
    void CountText(std::size_t) override {}
    std::uint32_t& RandomState() override { return m_random; }
    double NowInDays() override { return 0; }
    std::int32_t LastLineNumber() const override { return 0; }
    void Refuse(std::string_view) override { std::terminate(); }

private:
    basic::ErrorState m_error;
    std::uint32_t m_random = 0;
};

Work NearMisses(std::size_t size, bool ignoresCase) {
    const std::string text(size, 'a');
    const std::string sought = std::string(size / 20, 'a') + 'b';
    return [text, sought, ignoresCase] {
        NobodyRuns context;
        const auto first = basic::TextSearch::First(context, text, sought, ignoresCase, 0);
        const auto last = basic::TextSearch::Last(context, text, sought, ignoresCase, text.size());
        return !first.IsFound() && !last.IsFound();
    };
}

const std::vector<Row>& Rows() {
    using std::placeholders::_1;
    static const std::vector<Row> rows{
        {"additions of tested keys", 3'000, KeyedAdditions},
        {"additions of rules", 4'000, RuleAdditions},
        {"events of a rule", 10'000, EventsOfARule},
        {"event items of a file", 10'000, EventItems},
        {"XML elements by position", 10'000, ElementsByPosition},
        {"XML elements added at the end", 10'000, ElementsAddedAtTheEnd},
        {"constants of a declaration", 5'000, ConstantsOfADeclaration},
        {"bounds of an array", 20'000, BoundsOfAnArray},
        {"a long string of a line", 300'000, LongStringOfALine},
        {"statements of a line", 300'000, StatementsOfALine},
        {"controls of a layout", 2'000, ControlsOfALayout},
        {"lines of a file, CR", 200'000, std::bind(LinesOfAFile, _1, "\r")},
        {"lines of a file, LF", 200'000, std::bind(LinesOfAFile, _1, "\n")},
        {"projects of a group", 5'000, ProjectsOfAGroup},
        {"attributes of a shown line", 12'500, AttributesOfALine},
        {"script: calls", 5'000, std::bind(ScriptOf, _1, "x = y + foo(1)\n", false)},
        {"script: If lines", 5'000, std::bind(ScriptOf, _1, "If a Then x Else y\n", false)},
        {"script: wrong expressions", 5'000, std::bind(ScriptOf, _1, "x = )\n", true)},
        {"script: Next without For", 5'000, std::bind(ScriptOf, _1, "Next\n", true)},
        {"search with near misses", 500'000, std::bind(NearMisses, _1, false)},
        {"the same in any case", 500'000, std::bind(NearMisses, _1, true)}};
    return rows;
}

/// The least CPU time of some runs, in milliseconds.
double Milliseconds(const Work& work, bool& isRight) {
    double least = 1e9;
    for (int run = 0; run < kRuns && (run == 0 || least < kLongRun); ++run) {
        const std::clock_t start = std::clock();
        isRight = work() && isRight;
        least = std::min(least, 1e3 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
    }
    return least;
}

bool AllAreLinear() {
    bool allAreLinear = true;
    std::printf("%-32s %10s %12s %12s %8s\n", "", "size", "CPU", "8 x size", "times");
    for (const Row& row : Rows()) {
        std::printf("%-32s %10zu ", row.Name, row.Size);
        std::fflush(stdout);  // a row that is not linear may take very long
        bool isRight = true;
        const double few = Milliseconds(row.Make(row.Size), isRight);
        const double many = Milliseconds(row.Make(row.Size * kFactor), isRight);
        const double times = many / few;
        const bool isLinear = isRight && times < kMost;
        allAreLinear = allAreLinear && isLinear;
        std::printf(
            "%9.2f ms %9.2f ms %8.1f%s\n",
            few,
            many,
            times,
            !isRight   ? "  WRONG RESULT"
            : isLinear ? ""
                       : "  NOT LINEAR");
    }
    return allAreLinear;
}

}  // namespace
}  // namespace dorvik

int main() {
    return dorvik::AllAreLinear() ? 0 : 1;
}
