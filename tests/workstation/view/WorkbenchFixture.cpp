#include "WorkbenchFixture.h"

#include "platform/host/modFiles.h"
#include "results/modTolerances.h"
#include "rulebase/model/Rulebase.h"
#include "source/VirtualObject.h"
#include "source/VirtualProject.h"
#include "support/FilesystemPaths.h"

#include <sqlite3.h>

#include <filesystem>

namespace dorvik::test {

namespace {

struct Figures {
    std::int32_t Violations = 0;
    std::int32_t Impact = 0;
    std::int32_t Lines = 0;
    std::int32_t Comments = 0;
    std::int32_t Complexity = 0;
};

/// Writes the results that the fixture describes.
class ResultsWriter {
public:
    explicit ResultsWriter(std::string_view project) : m_project(project) {}

    void Write(const std::string& file) {
        AddCategory(7, "Jumps");
        AddCategory(8, "clarity");
        AddCategory(9, "3rd party");
        TakeAll(m_criteria.LoadCriteria());
        ASSERT_TRUE(m_results.Writer().StartReview(file, m_rulebase, m_criteria));
        WriteProject();
        WriteModule();
        WriteForm();
        Object("File", "clsC", "Class", "clsC.cls", {0, 0, 3, 1, 0});
        WriteViolations();
        m_results.Writer().EndReview(12);
    }

private:
    static void TakeAll(RulebaseLoadCriteria& criteria) {
        criteria.SetAuthorisedComponents(true);
        criteria.SetAuthorisedReferences(true);
        criteria.SetCodingConventions(true);
        criteria.SetNamingConventions(true);
        criteria.SetUnauthorisedKeywords(true);
        for (std::int32_t level = 1; level <= 5; ++level) {
            criteria.SetSeverityLevel(level, true);
        }
    }

    void AddCategory(std::int32_t id, std::string_view title) {
        auto category = std::make_shared<CategoryItem>();
        category->SetID(id);
        category->SetTitle(std::string(title));
        m_rulebase.CategoryList().Add(category, false);
    }

    void Finish(VirtualObject& object, const Figures& figures) {
        object.ViolationStats().SetTotalViolations(figures.Violations);
        object.ViolationStats().SetTotalImpact(figures.Impact);
        object.LineStats().SetTotalLines(figures.Lines);
        object.LineStats().SetCodeLines(figures.Lines - figures.Comments);
        object.LineStats().SetCommentOnlyLines(figures.Comments);
        object.Properties().Add("AverageCyclomatic", figures.Complexity);
        object.Properties().Add("CyclomaticComplexity", figures.Complexity);
        m_results.Writer().LogVirtualObjectProperties(object);
        m_results.Writer().LogVirtualObjectViolationStats(object);
        if (figures.Lines > 0) {
            m_results.Writer().LogVirtualObjectLineStats(object);
        }
    }

    void Object(
        std::string_view kind,
        std::string_view name,
        std::string_view type,
        std::string_view filename,
        const Figures& figures) {
        VirtualObject object;
        object.Properties().Add("Name", name);
        object.Properties().Add("Path", "C:\\Src\\");
        object.Properties().Add("Filename", filename);
        object.Properties().Add("Type", type);
        m_results.Writer().SetupVObjectResults(kind, object);
        Finish(object, figures);
    }

    void Section(std::string_view kind, const Figures& figures) {
        VirtualObject section;
        m_results.Writer().SetupVObjectResults(kind, section);
        Finish(section, figures);
    }

    void Procedure(
        std::string_view name,
        std::string_view type,
        std::string_view scope,
        const Figures& figures) {
        VirtualObject procedure;
        procedure.Properties().Add("Name", name);
        procedure.Properties().Add("ProcedureType", type);
        procedure.Properties().Add("Scope", scope);
        procedure.Properties().Add("IsStatic", false);
        procedure.Properties().Add("DataType", "");
        m_results.Writer().SetupVObjectResults("Procedure", procedure);
        Finish(procedure, figures);
    }

    void WriteProject() {
        Object("Project", m_project, "OleDll", m_project + ".vbp", {8, 3360, 0, 0, 0});
        Object("VBP", m_project, "Project", m_project + ".vbp", {1, 900, 0, 0, 0});
    }

    void WriteModule() {
        Object("File", "modA", "Module", "modA.bas", {5, 2380, 100, 20, 9});
        Section("Declarations", {1, 500, 0, 0, 0});
        Procedure("Total", "Function", "Public", {2, 1850, 20, 4, 9});
        Procedure("Rate", "Property Get", "Friend", {1, 20, 1200, 6, 12});
        Procedure("Rate", "Property Let", "", {0, 0, 8, 1, 1});
    }

    void WriteForm() {
        Object("File", "frmB", "Form", "frmB.frm", {1, 30, 0, 0, 0});
        Section("Layout", {1, 30, 0, 0, 0});
        Procedure("Form_Load", "Sub", "Private", {0, 0, 0, 0, 0});
    }

    void
    Log(std::int32_t itemId,
        ItemType itemType,
        std::int32_t severity,
        std::int16_t impact,
        std::int32_t categoryId,
        std::string_view title) {
        Violation& violation = m_violation;
        violation.Severity = severity;
        violation.Impact = impact;
        violation.CategoryID = categoryId;
        violation.Title = title;
        violation.Description = "About " + violation.Title;
        violation.Advice = "Mend it";
        m_results.Writer().LogViolation(itemId, itemType, violation);
    }

    void Place(std::int32_t location, std::string_view member, std::string_view line) {
        m_violation.Location = location;
        m_violation.LocationMember = member;
        m_violation.SourceLine = line;
        m_violation.SourceLineNumber = line.empty() ? 0 : 12;
    }

    void WriteViolations() {
        m_violation.RuleType = 4;
        Place(1, "(Reference)", "");
        Log(1, ItemType::Project, 4, 50, -1, "Reference");
        Place(1, "(Project)", "");
        Log(1, ItemType::File, 1, 900, -1, "Setting");
        m_violation.RuleID = 7;
        Place(3, "(Declarations)", "Dim x");
        Log(1, ItemType::Procedure, 3, 500, 8, "Too long");
        m_violation.RuleID = 5012;
        m_violation.RuleType = 3;
        Place(4, "Total", "    GoTo Failed");
        Log(2, ItemType::Procedure, 2, 750, 7, "goto used");
        Log(2, ItemType::Procedure, 2, 1100, 7, "GoTo used");
        m_violation.RuleType = 4;
        Place(3, "(Declarations)", "");
        Log(2, ItemType::File, 5, 10, 9, "No header");
        Place(6, "Rate", "x = 1");
        Log(3, ItemType::Procedure, 4, 20, 8, "Too long");
        m_violation.RuleType = 5;
        Place(5, "Text1(3)", "");
        Log(5, ItemType::Procedure, 2, 30, 8, "Name");
    }

    std::string m_project;
    Rulebase m_rulebase;
    DVKWorkData m_settings;
    ReviewCriteria m_criteria{m_settings};
    ResultsDB m_results{m_settings};
    Violation m_violation;
};

}  // namespace

WorkbenchFixture::WorkbenchFixture() {
    m_view.Initialise();
}

void WorkbenchFixture::AddProject(std::string_view name) {
    auto project = std::make_shared<VirtualProject>();
    project->SetName(name);
    project->SetFilename(ProjectFile(name));
    project->SetProjectType("OleDll");
    m_criteria->ProjectList().Add(name, project, true);
}

void WorkbenchFixture::WriteResults(std::string_view name) const {
    const std::string file = DatabaseFile(name);
    std::filesystem::create_directories(m_folder.HostPath() / "Dorvik");
    modFiles::CopyFile(ProgramPath(DORVIK_RESULTS_TEMPLATE), file);
    ResultsWriter(name).Write(file);
}

void WorkbenchFixture::ChangeResults(std::string_view name, const std::string& sql) const {
    sqlite3* database = nullptr;
    ASSERT_EQ(
        sqlite3_open(FilesystemPath(DatabaseFile(name)).string().c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database);
    sqlite3_close(database);
}

void WorkbenchFixture::OpenBench() {
    AddProject("Billing");
    WriteResults("Billing");
    m_view.SetWorkbenchVisible(true);
    m_view.PopulateResults(m_criteria, /*afterReview=*/false);
    ASSERT_TRUE(m_view.ResultsAvailable());
    ASSERT_THAT(m_log.Entries(), testing::IsEmpty());
}

void WorkbenchFixture::ChooseFile(std::string_view key) {
    m_controls.Files.Choose(m_controls.Files.Find(key).value());
}

void WorkbenchFixture::ChooseProcedure(std::string_view key) {
    m_controls.Procedures.Choose(m_controls.Procedures.Find(key).value());
}

void WorkbenchFixture::ChooseViolation(std::int32_t id) {
    for (std::size_t row = 0; row < m_controls.List.DataRowCount(); ++row) {
        if (m_controls.List.KeyOfDataRow(row) == id) {
            m_controls.List.ChooseDataRow(row);
            return;
        }
    }
    FAIL() << "no such violation: " << id;
}

std::vector<std::string> WorkbenchFixture::Texts(const ComboBox& box) {
    std::vector<std::string> texts;
    for (const ComboItem& item : box.Items()) {
        texts.push_back(item.Text);
    }
    return texts;
}

std::vector<std::string> WorkbenchFixture::Keys(const ComboBox& box) {
    std::vector<std::string> keys;
    for (const ComboItem& item : box.Items()) {
        keys.push_back(item.Key);
    }
    return keys;
}

std::string WorkbenchFixture::SelectedKey(const ComboBox& box) {
    const ComboItem* const item = box.SelectedItem();
    return item != nullptr ? item->Key : std::string();
}

std::vector<std::int32_t> WorkbenchFixture::Violations() const {
    std::vector<std::int32_t> ids;
    for (std::size_t row = 0; row < m_controls.List.DataRowCount(); ++row) {
        ids.push_back(m_controls.List.KeyOfDataRow(row));
    }
    return ids;
}

std::vector<std::string> WorkbenchFixture::GroupTexts() {
    std::vector<std::string> texts;
    for (std::size_t row = 0; row < m_controls.List.RowCount(); ++row) {
        if (m_controls.List.GroupRow(row)) {
            texts.push_back(m_controls.List.GroupText(row));
        }
    }
    return texts;
}

std::vector<std::string> WorkbenchFixture::Hotspots(std::size_t column) const {
    std::vector<std::string> texts;
    for (std::size_t row = 0; row < m_controls.Hotspots.Count(); ++row) {
        const std::string& text = m_controls.Hotspots.Row(row).Cells.at(column).Text;
        const std::size_t begin = text.find_first_not_of(' ');
        texts.push_back(begin == std::string::npos ? std::string() : text.substr(begin));
    }
    return texts;
}

}  // namespace dorvik::test
