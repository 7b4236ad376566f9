#include "workstation/session/DialogDump.h"

#include "base/modText.h"
#include "base/modUtf8.h"
#include "workstation/dialogs/frmProgress.h"
#include "workstation/dialogs/frmReviewOptions.h"
#include "workstation/dialogs/frmReviewSummary.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string_view>
#include <utility>

namespace dorvik::modDialogDump {

namespace {

using Value = rapidjson::Value;

/// Builds the members of one dump; values belong to its document.
class Dumping {
public:
    explicit Dumping(std::string_view what) {
        m_document.SetObject();
        Add(m_document, "dump", Text(what));
    }

    rapidjson::Document Take() { return std::move(m_document); }
    Value& Root() { return m_document; }

    /// U+FFFD stands for every byte that belongs to no character.
    Value Text(std::string_view text) {
        std::string valid;
        for (std::size_t position = 0; position < text.size();) {
            const modUtf8::Character character = modUtf8::Decode(text, position);
            modUtf8::Append(valid, character.CodePoint);
            position += character.Size;
        }
        return Value(
            valid.data(),
            static_cast<rapidjson::SizeType>(valid.size()),
            m_document.GetAllocator());
    }

    void Add(Value& object, std::string_view name, Value value) {
        object.AddMember(Text(name), value, m_document.GetAllocator());
    }
    void AddText(Value& object, std::string_view name, std::string_view text) {
        Add(object, name, Text(text));
    }
    void AddFlag(Value& object, std::string_view name, bool flag) {
        Add(object, name, Value(flag));
    }
    void AddNumber(Value& object, std::string_view name, std::int32_t number) {
        Add(object, name, Value(number));
    }
    void Append(Value& array, Value value) { array.PushBack(value, m_document.GetAllocator()); }

private:
    rapidjson::Document m_document;
};

Value NewObject() {
    return Value(rapidjson::kObjectType);
}

Value NewArray() {
    return Value(rapidjson::kArrayType);
}

std::string LeadingDigits(std::string_view key) {
    return std::to_string(modText::RoundToLong(modText::LeadingNumber(key)));
}

std::string ConventionName(const CheckItem& item) {
    return item.Key;
}

/// The category of the rules without one is 0 in a session.
std::string CategoryName(const CheckItem& item) {
    return item.Key == frmReviewOptions::kUnallocatedCategory ? "0" : LeadingDigits(item.Key);
}

std::string SeverityName(const CheckItem& item) {
    return LeadingDigits(item.Key);
}

Value DumpChecks(Dumping& dump, const CheckList& list, std::string (*nameOf)(const CheckItem&)) {
    Value checks = NewObject();
    for (const CheckItem& item : list.Items()) {
        dump.AddFlag(checks, nameOf(item), item.Checked);
    }
    return checks;
}

Value DumpBoxes(Dumping& dump, const std::array<Observable<std::string>, 6>& boxes) {
    Value texts = NewObject();
    for (std::size_t place = 0; place < boxes.size(); ++place) {
        dump.AddText(texts, std::to_string(place + 1), boxes[place].Value());
    }
    return texts;
}

Value DumpNodes(Dumping& dump, const std::vector<std::unique_ptr<CheckNode>>& nodes) {
    Value items = NewArray();
    for (const auto& node : nodes) {
        Value item = NewObject();
        dump.AddText(item, "tag", node->Tag);
        dump.AddText(item, "text", node->Text);
        dump.AddText(item, "image", node->Image);
        dump.AddFlag(item, "checked", node->Checked);
        dump.Add(item, "items", DumpNodes(dump, node->Children));
        dump.Append(items, std::move(item));
    }
    return items;
}

void DumpProjectFields(Dumping& dump, const frmReviewOptions& form) {
    Value projects = NewObject();
    Value files = NewObject();
    for (const auto& project : form.tvwProjects.Roots()) {
        dump.AddFlag(projects, project->Text, project->Checked);
        for (const auto& type : project->Children) {
            for (const auto& file : type->Children) {
                dump.AddFlag(files, project->Text + "/" + file->Text, file->Checked);
            }
        }
    }
    dump.Add(dump.Root(), "project", std::move(projects));
    dump.Add(dump.Root(), "file", std::move(files));
}

std::string ColourText(const Colour& colour) {
    if (colour.Automatic) {
        return {};
    }
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02x%02x%02x", colour.Red, colour.Green, colour.Blue);
    return text.data();
}

Value DumpColumns(Dumping& dump, const ListTable& list) {
    Value columns = NewArray();
    for (const ListColumn& column : list.Columns()) {
        Value shown = NewObject();
        dump.AddText(shown, "text", column.Text);
        dump.AddText(shown, "align", column.Alignment == ColumnAlignment::Right ? "right" : "left");
        dump.AddText(shown, "icon", column.SortIcon);
        dump.Append(columns, std::move(shown));
    }
    return columns;
}

Value DumpRows(Dumping& dump, const ListTable& list) {
    Value rows = NewArray();
    for (std::size_t index = 0; index < list.Count(); ++index) {
        const ListRow& row = list.Row(index);
        Value cells = NewArray();
        for (const ListCell& cell : row.Cells) {
            Value shown = NewObject();
            dump.AddText(shown, "text", cell.Text);
            dump.AddText(shown, "colour", ColourText(cell.Colour));
            dump.AddFlag(shown, "bold", cell.Bold);
            dump.Append(cells, std::move(shown));
        }
        Value shown = NewObject();
        dump.AddText(shown, "key", row.Key);
        dump.AddText(shown, "icon", row.Icon);
        dump.AddFlag(shown, "bold", !row.Cells.empty() && row.Cells.front().Bold);
        dump.Add(shown, "cells", std::move(cells));
        dump.Append(rows, std::move(shown));
    }
    return rows;
}

Value DumpBox(Dumping& dump, const ComboBox& box) {
    Value items = NewArray();
    for (const ComboItem& item : box.Items()) {
        Value shown = NewObject();
        dump.AddText(shown, "key", item.Key);
        dump.AddText(shown, "tag", item.Tag);
        dump.AddText(shown, "text", item.Text);
        dump.AddText(shown, "image", item.Image);
        dump.Append(items, std::move(shown));
    }
    const ComboItem* const selected = box.SelectedItem();
    Value files = NewObject();
    dump.Add(files, "items", std::move(items));
    dump.AddText(files, "selected", selected != nullptr ? selected->Key : std::string());
    return files;
}

void DumpTexts(Dumping& dump, const frmProgress& form) {
    Value& root = dump.Root();
    dump.AddText(root, "caption", form.Caption.Value());
    dump.AddText(root, "action", form.lblAction.Value());
    dump.AddText(root, "project", form.lblProject.Value());
    dump.AddText(root, "projectName", form.lblProjectData.Value());
    dump.AddText(root, "file", form.lblSourceFile.Value());
    dump.AddText(root, "fileName", form.lblSourceFileData.Value());
    dump.AddNumber(root, "projectBar", form.prgProject.Value());
    dump.AddNumber(root, "fileBar", form.prgSourceFile.Value());
    dump.AddText(root, "complete", form.lblComplete.Value());
    dump.AddText(root, "message", form.lblMessage.Value());
    dump.AddFlag(root, "visible", form.Visible.Value());
}

}  // namespace

rapidjson::Document Dump(const frmReviewOptions& form) {
    Dumping dump("options");
    Value& root = dump.Root();
    const bool isFilter = form.CurrentMode() == frmReviewOptions::Mode::Filter;
    dump.AddText(root, "caption", form.Caption.Value());
    dump.AddText(root, "mode", isFilter ? "filter" : "review");
    dump.AddText(root, "rulebase", form.cboRulebase.Value());
    dump.AddText(root, "title", form.txtTitle.Value());
    dump.AddFlag(root, "background", form.chkBackground.Value());
    dump.AddFlag(root, "clear-log", form.chkClearLog.Value());
    dump.AddFlag(root, "project-results", form.chkResultsFolder.Value());
    dump.AddText(root, "results", form.txtResultsFolder.Value());
    dump.AddFlag(root, "project-reports", form.chkReportsFolder.Value());
    dump.AddText(root, "reports", form.txtReportsFolder.Value());
    dump.AddNumber(root, "report", form.optReports.Value());
    DumpProjectFields(dump, form);
    dump.Add(root, "convention", DumpChecks(dump, form.lvwConventions, ConventionName));
    dump.Add(root, "category", DumpChecks(dump, form.lvwCategories, CategoryName));
    dump.Add(root, "severity", DumpChecks(dump, form.lvwSeverities, SeverityName));
    dump.Add(root, "count", DumpBoxes(dump, form.txtCount));
    dump.Add(root, "impact", DumpBoxes(dump, form.txtImpact));
    dump.AddText(root, "comments", form.txtComments.Value());
    dump.AddText(root, "complexity", form.txtComplexity.Value());
    dump.Add(root, "tree", DumpNodes(dump, form.tvwProjects.Roots()));
    return dump.Take();
}

rapidjson::Document Dump(const frmReviewSummary& form) {
    Dumping dump("summary");
    Value& root = dump.Root();
    dump.AddText(root, "caption", form.Caption.Value());
    dump.AddNumber(root, "tab", form.CurrentTab());
    dump.Add(root, "columns", DumpColumns(dump, form.lvwReview));
    dump.Add(root, "rows", DumpRows(dump, form.lvwReview));
    if (form.SourceFilesVisible.Value()) {
        dump.Add(root, "files", DumpBox(dump, form.cboSourceFiles));
    }
    dump.AddFlag(root, "viewLog", form.ViewLogEnabled.Value());
    dump.AddFlag(root, "viewReport", form.ViewReportEnabled.Value());
    return dump.Take();
}

rapidjson::Document Dump(const frmProgress* form) {
    Dumping dump("progress");
    if (form != nullptr) {
        DumpTexts(dump, *form);
        return dump.Take();
    }
    for (const char* const name :
         {"caption", "action", "project", "projectName", "file", "fileName"}) {
        dump.AddText(dump.Root(), name, {});
    }
    dump.AddNumber(dump.Root(), "projectBar", 0);
    dump.AddNumber(dump.Root(), "fileBar", 0);
    dump.AddText(dump.Root(), "complete", {});
    dump.AddText(dump.Root(), "message", {});
    dump.AddFlag(dump.Root(), "visible", false);
    return dump.Take();
}

}  // namespace dorvik::modDialogDump
