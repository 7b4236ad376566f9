#include "base/modText.h"
#include "support/RecordingMessageBox.h"
#include "workstation/filehost/FileHost.h"
#include "workstation/host/modViolationSearch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <rapidjson/document.h>
#include <string>

namespace dorvik {

namespace {

/// The lines of violations as a review stored them, of a dump of its database.
struct StoredLine {
    std::string File;
    modViolationSearch::StoredPlace Place;
};

class StoredLines {
public:
    explicit StoredLines(const std::string& dump) {
        std::ifstream file(dump, std::ios::binary);
        for (std::string line; std::getline(file, line);) {
            if (!line.starts_with(' ')) {
                m_table = line.substr(0, line.find(':'));
                continue;
            }
            rapidjson::Document row;
            row.Parse(line.c_str(), line.size());
            if (row.IsObject()) {
                TakeRow(row);
            }
        }
    }

    std::vector<StoredLine> Lines;

private:
    void TakeRow(const rapidjson::Document& row) {
        if (m_table == "SourceFiles") {
            m_files[row["SourceID"].GetInt()] = row["Name"].GetString();
        } else if (m_table == "Procedures") {
            m_procedures[row["ProcID"].GetInt()] = row["SourceID"].GetInt();
        } else if (m_table == "Violations" && row["SourceLine"].GetStringLength() > 0) {
            constexpr int kProcedure = 3;
            const int item = row["ItemID"].GetInt();
            StoredLine line;
            line.File = m_files[row["ItemType"].GetInt() == kProcedure ? m_procedures[item] : item];
            line.Place.SourceLine = row["SourceLine"].GetString();
            line.Place.SourceLineNumber = row["LineNum"].GetInt();
            line.Place.Location = row["Loc"].GetInt();
            line.Place.LocationMember = row["LocMember"].GetString();
            Lines.push_back(std::move(line));
        }
    }

    std::string m_table;
    std::map<int, std::string> m_files;
    std::map<int, int> m_procedures;
};

/// Whether the environment's code window does not show the line: rules may find fault with the header, too.
bool IsHidden(const FileCodeModule& module, const std::string& text) {
    const std::vector<std::string>& head = module.File().HeadLines();
    return text.starts_with("Attribute ") || std::ranges::find(head, text) != head.end();
}

/// Checks that each stored line is where it was stored, whole.
void CheckProject(const std::string& dump, const std::string& project, std::size_t least) {
    const StoredLines stored(dump);
    std::size_t shown = 0;
    FileHost host;
    ASSERT_TRUE(host.Open(project));
    for (const StoredLine& line : stored.Lines) {
        const FileCodeModule& module = host.Project(1).Component(line.File).CodeModule();
        const std::string& text = line.Place.SourceLine;
        if (IsHidden(module, text)) {
            continue;
        }
        ++shown;
        const auto breaks = std::count(text.begin(), text.end(), '\n');
        EXPECT_EQ(
            module.Lines(line.Place.SourceLineNumber, static_cast<std::int32_t>(breaks) + 1), text)
            << line.File << " " << line.Place.SourceLineNumber;
        EXPECT_EQ(
            modViolationSearch::Find(module, line.Place),
            (modViolationSearch::Result{
                line.Place.SourceLineNumber, modViolationSearch::Failure::None}));
    }
    EXPECT_GE(shown, least);
}

std::string SamplePath(const std::string& name) {
    std::string path = DORVIK_SOURCE_DIR "/samples/" + name;
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

}  // namespace

TEST(StoredLines, OfTheSamplesAreAtTheirLinesInTheModules) {
    test::RecordingMessageBox box;
    const std::string golden = DORVIK_SOURCE_DIR "/tests/golden/";
    CheckProject(golden + "Billing.results.expected", SamplePath("Billing/Billing.vbp"), 40);
    CheckProject(golden + "Clinic.results.expected", SamplePath("Clinic/Clinic.vbp"), 20);
    CheckProject(golden + "Warehouse.results.expected", SamplePath("Warehouse/Warehouse.vbp"), 20);
}

}  // namespace dorvik
