#include "TypeLibraryText.h"

#include "base/modTextCase.h"
#include "cli/output/Console.h"
#include "cli/output/JsonOutput.h"
#include "cli/output/TablePrinter.h"
#include "platform/host/modFiles.h"
#include "typelib/TypeKinds.h"

#include <algorithm>
namespace dorvik::modTypeLibraryText {

namespace {

constexpr std::size_t kIndent = 2;

std::int64_t CountOf(const TypeLibraryContents& contents, std::int32_t kind) {
    return std::ranges::count(contents.Types, kind, &TypeLibraryContents::TypeEntry::Kind);
}

/// "2 classes, 1 enum"
std::string Counts(const TypeLibraryContents& contents) {
    std::string text;
    for (const TypeKindRow& row : kTypeKinds) {
        const std::int64_t count = CountOf(contents, row.Kind);
        if (count > 0) {
            text += (text.empty() ? "" : ", ") + std::to_string(count) + " ";
            text += count == 1 ? row.Word : row.Plural;
        }
    }
    return text.empty() ? "none listed" : text;
}

std::string PlaceOf(const KnownTypeLibrary& library) {
    if (!library.Place.empty()) {
        return library.Place;
    }
    return library.Number <= 1 ? library.File
                               : library.File + "\\" + std::to_string(library.Number);
}

std::string LanguageOf(const KnownTypeLibrary& library) {
    return library.Facts.Lcid == 0 ? "none" : std::to_string(library.Facts.Lcid);
}

void PrintFacts(const KnownTypeLibrary& library) {
    TablePrinter facts({{""}, {"", false, true}});
    facts.SetIndent(kIndent);
    const auto add = [&](std::string_view name, const std::string& text) {
        if (!text.empty()) {
            facts.AddRow({{name}, {text}});
        }
    };
    add("Description", library.Facts.Description);
    add("GUID", library.Facts.Guid);
    add("Language", LanguageOf(library));
    add("Found in", PlaceOf(library));
    add("Source", library.Source);
    add("Note", library.Note);
    add("Types", Counts(library.Facts.Contents));
    facts.Print();
}

}  // namespace

std::string Version(std::int32_t majorVersion, std::int32_t minorVersion) {
    return std::to_string(majorVersion) + "." + std::to_string(minorVersion);
}

std::string Sentence(std::string_view fault, std::string_view path, std::string_view shown) {
    std::string text = modTerminalText::Harmless(modTextCase::ReplaceAll(fault, path, shown));
    while (text.ends_with('.')) {
        text.pop_back();
    }
    return text;
}

void Print(const KnownTypeLibrary& library) {
    const TypeLibraryFacts& facts = library.Facts;
    const std::string heading = modTerminalText::Harmless(
        facts.Contents.Name + " " + Version(facts.MajorVersion, facts.MinorVersion));
    modConsole::Print(
        modTerminalText::Shaded(heading, Shade::Heading, modConsole::OutputIsColoured()) + "\n");
    PrintFacts(library);
    if (facts.Contents.Types.empty()) {
        return;
    }
    modConsole::Print("\n");
    TablePrinter types({{"Kind"}, {"Type", false, true}});
    types.SetIndent(kIndent);
    for (const TypeLibraryContents::TypeEntry& type : facts.Contents.Types) {
        types.AddRow({{TypeKindWord(type.Kind)}, {type.Name}});
    }
    types.Print();
}

void WriteAsJson(JsonOutput& json, const KnownTypeLibrary& library) {
    const TypeLibraryFacts& facts = library.Facts;
    json.BeginObject();
    json.Text("name", facts.Contents.Name);
    json.Text("guid", facts.Guid);
    json.Text("version", Version(facts.MajorVersion, facts.MinorVersion));
    json.Number("language", facts.Lcid);
    json.Text("description", facts.Description);
    json.Text("file", library.File);
    if (library.Number == 0) {
        json.Text("source", library.Source);
        json.Text("note", library.Note);
    } else {
        json.Number("number", library.Number);
    }
    json.BeginObject("counts");
    for (const TypeKindRow& row : kTypeKinds) {
        json.Number(row.Word, CountOf(facts.Contents, row.Kind));
    }
    json.EndObject();
    json.BeginArray("types");
    for (const TypeLibraryContents::TypeEntry& type : facts.Contents.Types) {
        json.BeginObject();
        json.Text("name", type.Name);
        json.Text("kind", TypeKindWord(type.Kind));
        json.EndObject();
    }
    json.EndArray();
    json.EndObject();
}

}  // namespace dorvik::modTypeLibraryText
