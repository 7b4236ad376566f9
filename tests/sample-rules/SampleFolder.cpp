#include "SampleFolder.h"

#include "base/modTextCase.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace dorvik::test {

namespace {

namespace fs = std::filesystem;

struct SourceKind {
    const char* Extension;
    const char* ProjectLine;  // before the name of the module or the file
    const char* Head;         // for files without one
};

constexpr SourceKind kKinds[] = {
    {".bas", "Module=", "Attribute VB_Name = \"Sample\"\n"},
    {".cls",
     "Class=",
     "VERSION 1.0 CLASS\nBEGIN\n  MultiUse = -1  'True\nEND\nAttribute VB_Name = \"Sample\"\n"},
    {".frm", "Form=", ""},
    {".ctl", "UserControl=", ""},
    {".pag", "PropertyPage=", ""},
};

fs::path Root() {
    return fs::path(DORVIK_SAMPLE_RULES_FOLDER);
}

bool BeginsWith(const std::string& text, const char* start) {
    return text.rfind(start, 0) == 0;
}

bool IsSample(const std::string& name) {
    return BeginsWith(name, "flag") || BeginsWith(name, "pass");
}

/// With CR LF at the line ends, as Visual Basic writes its files.
std::string TextOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    return modTextCase::ReplaceAll(text, "\r\n", "\n");
}

std::string WithLineEnds(const std::string& text) {
    return modTextCase::ReplaceAll(text, "\n", "\r\n");
}

std::vector<fs::path> EntriesOf(const fs::path& folder) {
    std::vector<fs::path> entries(fs::directory_iterator(folder), fs::directory_iterator{});
    std::sort(entries.begin(), entries.end());
    return entries;
}

void CopyFiles(
    const fs::path& folder, const std::string& to, const TemporaryFolder& target, bool others) {
    for (const fs::path& entry : EntriesOf(folder)) {
        const std::string name = entry.filename().string();
        if (fs::is_regular_file(entry) && !(others && IsSample(name)) && name != "expected.txt") {
            target.Write(to + "\\" + name, WithLineEnds(TextOf(entry)));
        }
    }
}

/// What the project file says of a source: "Main; Main.bas" for modules and classes, else the file.
std::string ProjectEntry(const std::string& name, const std::string& text) {
    static const std::string kAttribute = "Attribute VB_Name = \"";
    const std::size_t start = text.find(kAttribute);
    if (!(name.ends_with(".bas") || name.ends_with(".cls")) || start == std::string::npos) {
        return name;
    }
    const std::size_t from = start + kAttribute.size();
    return text.substr(from, text.find('"', from) - from) + "; " + name;
}

std::string
WriteProjectAround(const fs::path& file, const SourceKind& kind, const TemporaryFolder& target) {
    const std::string name = file.filename().string();
    std::string text = TextOf(file);
    if (!BeginsWith(text, "Attribute VB_Name") && !BeginsWith(text, "VERSION ")) {
        text = kind.Head + text;
    }
    target.Write(name + "\\" + name, WithLineEnds(text));
    return target.Write(
        name + "\\Project.vbp",
        WithLineEnds(
            "Type=Exe\n" + std::string(kind.ProjectLine) + ProjectEntry(name, text) +
            "\nName=\"Sample\"\n"));
}

std::string WriteSource(const fs::path& entry, const TemporaryFolder& target) {
    const std::string name = entry.filename().string();
    if (fs::is_directory(entry)) {
        CopyFiles(entry, name, target, false);
        for (const fs::path& file : EntriesOf(entry)) {
            if (file.extension() == ".vbp") {
                return target.Path(name + "\\" + file.filename().string());
            }
        }
        throw std::runtime_error(entry.string() + " holds no project file");
    }
    if (entry.extension() == ".vbp") {
        CopyFiles(entry.parent_path(), name, target, true);
        return target.Write(name + "\\" + name, WithLineEnds(TextOf(entry)));
    }
    for (const SourceKind& kind : kKinds) {
        if (entry.extension() == kind.Extension) {
            return WriteProjectAround(entry, kind, target);
        }
    }
    throw std::runtime_error(entry.string() + " is no source file");
}

ExpectedFinding ExpectedOf(const std::string& line) {
    const std::size_t colon = line.find(':');
    if (colon == std::string::npos || line.find_first_of("0123456789", colon) != colon + 1) {
        throw std::runtime_error("expected.txt: not SOURCE:LINE but " + line);
    }
    ExpectedFinding finding{{line.substr(0, colon), std::stoi(line.substr(colon + 1))}, {}};
    const std::size_t second = line.find(':', colon + 1);
    if (second != std::string::npos) {
        finding.Piece = line.substr(line.find_first_not_of(' ', second + 1));
    }
    return finding;
}

}  // namespace

std::vector<std::string> SampleFolder::Names() {
    std::vector<std::string> names;
    for (const fs::path& entry : EntriesOf(Root())) {
        if (fs::is_directory(entry)) {
            names.push_back(entry.filename().string());
        }
    }
    return names;
}

std::int32_t SampleFolder::RuleID() const {
    const bool numbered = m_name.find_first_not_of("0123456789") == 4;
    return numbered ? std::stoi(m_name.substr(0, 4)) : 0;
}

std::vector<std::string> SampleFolder::SourceNames(const std::string& prefix) const {
    std::vector<std::string> names;
    for (const fs::path& entry : EntriesOf(Root() / m_name)) {
        const std::string name = entry.filename().string();
        if (BeginsWith(name, prefix.c_str())) {
            names.push_back(name);
        }
    }
    return names;
}

std::vector<ExpectedFinding> SampleFolder::Expected() const {
    std::vector<ExpectedFinding> findings;
    std::ifstream stream(Root() / m_name / "expected.txt");
    for (std::string line; std::getline(stream, line);) {
        if (!line.empty()) {
            findings.push_back(ExpectedOf(line));
        }
    }
    return findings;
}

std::vector<SampleSource> SampleFolder::WriteProjects(const TemporaryFolder& target) const {
    std::vector<SampleSource> sources;
    for (const char* prefix : {"flag", "pass"}) {
        for (const std::string& name : SourceNames(prefix)) {
            const std::string project = WriteSource(Root() / m_name / name, target);
            sources.push_back({name, project, std::string(prefix) == "flag"});
        }
    }
    return sources;
}

}  // namespace dorvik::test
