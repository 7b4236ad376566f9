#include "workstation/session/DialogDump.h"

#include "base/modText.h"
#include "modControlJson.h"
#include "workstation/dialogs/frmProgress.h"
#include "workstation/dialogs/frmReviewOptions.h"
#include "workstation/dialogs/frmReviewSummary.h"
#include "workstation/session/SessionJson.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string_view>

namespace dorvik::modDialogDump {

using modSessionJson::Array;
using modSessionJson::CountedArray;
using modSessionJson::Key;
using modSessionJson::Member;
using modSessionJson::Object;

namespace {

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

void WriteChecks(
    JsonWriter& writer,
    std::string_view key,
    const CheckList& list,
    std::string (*nameOf)(const CheckItem&)) {
    Key(writer, key);
    Object(writer, [&] {
        for (const CheckItem& item : list.Items()) {
            Member(writer, nameOf(item), item.Checked);
        }
    });
}

void WriteFields(
    JsonWriter& writer,
    std::string_view key,
    const std::array<Observable<std::string>, 6>& fields) {
    Key(writer, key);
    Object(writer, [&] {
        for (std::size_t place = 0; place < fields.size(); ++place) {
            Member(writer, std::to_string(place + 1), fields[place].Value());
        }
    });
}

void WriteNodes(
    JsonWriter& writer,
    std::string_view key,
    const std::vector<std::unique_ptr<CheckNode>>& nodes) {
    Array(writer, key, nodes, [&](const auto& node) {
        Object(writer, [&] {
            Member(writer, "tag", node->Tag);
            Member(writer, "text", node->Text);
            Member(writer, "image", node->Image);
            Member(writer, "checked", node->Checked);
            WriteNodes(writer, "items", node->Children);
        });
    });
}

/// The checks of the tree by the names of the fields "project" and "file".
void WriteProjectFields(JsonWriter& writer, const frmReviewOptions& form) {
    Key(writer, "project");
    Object(writer, [&] {
        for (const auto& project : form.tvwProjects.Roots()) {
            Member(writer, project->Text, project->Checked);
        }
    });
    Key(writer, "file");
    Object(writer, [&] {
        for (const auto& project : form.tvwProjects.Roots()) {
            for (const auto& type : project->Children) {
                for (const auto& file : type->Children) {
                    Member(writer, project->Text + "/" + file->Text, file->Checked);
                }
            }
        }
    });
}

std::string ColourText(const Colour& colour) {
    if (colour.Automatic) {
        return {};
    }
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02x%02x%02x", colour.Red, colour.Green, colour.Blue);
    return text.data();
}

void WriteRow(JsonWriter& writer, const ListRow& row) {
    Object(writer, [&] {
        Member(writer, "key", row.Key);
        Member(writer, "icon", row.Icon);
        Member(writer, "bold", !row.Cells.empty() && row.Cells.front().Bold);
        Array(writer, "cells", row.Cells, [&](const ListCell& cell) {
            Object(writer, [&] {
                Member(writer, "text", cell.Text);
                Member(writer, "colour", ColourText(cell.Colour));
                Member(writer, "bold", cell.Bold);
            });
        });
    });
}

/// What the progress window shows.
struct ShownProgress {
    std::string Caption;
    std::string Action;
    std::string Project;
    std::string ProjectName;
    std::string File;
    std::string FileName;
    std::int32_t ProjectBar = 0;
    std::int32_t FileBar = 0;
    std::string Complete;
    std::string Message;
    bool Visible = false;
};

ShownProgress ShownBy(const frmProgress& form) {
    return {
        form.Caption.Value(),
        form.lblAction.Value(),
        form.lblProject.Value(),
        form.lblProjectData.Value(),
        form.lblSourceFile.Value(),
        form.lblSourceFileData.Value(),
        form.prgProject.Value(),
        form.prgSourceFile.Value(),
        form.lblComplete.Value(),
        form.lblMessage.Value(),
        form.Visible.Value()};
}

}  // namespace

std::string Dump(const frmReviewOptions& form) {
    return modSessionJson::Dump("options", [&](JsonWriter& writer) {
        const bool isFilter = form.CurrentMode() == frmReviewOptions::Mode::Filter;
        Member(writer, "caption", form.Caption.Value());
        Member(writer, "mode", isFilter ? "filter" : "review");
        Member(writer, "rulebase", form.cboRulebase.Value());
        Member(writer, "title", form.txtTitle.Value());
        Member(writer, "background", form.chkBackground.Value());
        Member(writer, "clear-log", form.chkClearLog.Value());
        Member(writer, "project-results", form.chkResultsFolder.Value());
        Member(writer, "results", form.txtResultsFolder.Value());
        Member(writer, "project-reports", form.chkReportsFolder.Value());
        Member(writer, "reports", form.txtReportsFolder.Value());
        Member(writer, "report", form.optReports.Value());
        WriteProjectFields(writer, form);
        WriteChecks(writer, "convention", form.lvwConventions, ConventionName);
        WriteChecks(writer, "category", form.lvwCategories, CategoryName);
        WriteChecks(writer, "severity", form.lvwSeverities, SeverityName);
        WriteFields(writer, "count", form.txtCount);
        WriteFields(writer, "impact", form.txtImpact);
        Member(writer, "comments", form.txtComments.Value());
        Member(writer, "complexity", form.txtComplexity.Value());
        WriteNodes(writer, "tree", form.tvwProjects.Roots());
    });
}

std::string Dump(const frmReviewSummary& form) {
    return modSessionJson::Dump("summary", [&](JsonWriter& writer) {
        Member(writer, "caption", form.Caption.Value());
        Member(writer, "tab", form.CurrentTab());
        modControlJson::WriteColumns(writer, form.lvwReview);
        CountedArray(writer, "rows", form.lvwReview.Count(), [&](std::size_t row) {
            WriteRow(writer, form.lvwReview.Row(row));
        });
        if (form.SourceFilesVisible.Value()) {
            Key(writer, "files");
            Object(writer, [&] { modControlJson::WriteBox(writer, form.cboSourceFiles); });
        }
        Member(writer, "viewLog", form.ViewLogEnabled.Value());
        Member(writer, "viewReport", form.ViewReportEnabled.Value());
    });
}

std::string Dump(const frmProgress* form) {
    return modSessionJson::Dump("progress", [&](JsonWriter& writer) {
        const ShownProgress shown = form == nullptr ? ShownProgress() : ShownBy(*form);
        Member(writer, "caption", shown.Caption);
        Member(writer, "action", shown.Action);
        Member(writer, "project", shown.Project);
        Member(writer, "projectName", shown.ProjectName);
        Member(writer, "file", shown.File);
        Member(writer, "fileName", shown.FileName);
        Member(writer, "projectBar", shown.ProjectBar);
        Member(writer, "fileBar", shown.FileBar);
        Member(writer, "complete", shown.Complete);
        Member(writer, "message", shown.Message);
        Member(writer, "visible", shown.Visible);
    });
}

}  // namespace dorvik::modDialogDump
