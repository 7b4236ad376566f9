#include "base/modText.h"
#include "workstation/dialogs/frmReviewSummary.h"
#include "workstation/session/DialogDump.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace dorvik::modDialogDump {

namespace {

bool IsNumber(std::string_view word) {
    return modText::WholeNumber(word).has_value();
}

/// The position from 0 of one that is counted from 1; nothing where there is none.
std::optional<std::size_t> PositionOf(const std::string& word, std::size_t count) {
    const std::int32_t number = modText::WholeNumber(word).value_or(0);
    if (number < 1 || static_cast<std::size_t>(number) > count) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(number) - 1;
}

Refusal ChooseFile(const std::string& key, frmReviewSummary& form) {
    const auto index = form.cboSourceFiles.Find(key);
    if (!form.SourceFilesVisible.Value() || !index) {
        return "The page has no file '" + key + "'.";
    }
    form.cboSourceFiles.Choose(*index);
    return std::nullopt;
}

Refusal ClickColumn(const std::string& number, frmReviewSummary& form) {
    const auto column = PositionOf(number, form.lvwReview.Columns().size());
    if (!column) {
        return "The page has no column " + number + ".";
    }
    form.lvwReview.ClickColumn(*column);
    return std::nullopt;
}

Refusal DoubleClickRow(const std::string& number, frmReviewSummary& form) {
    const auto row = PositionOf(number, form.lvwReview.Count());
    if (!row) {
        return "The page has no row " + number + ".";
    }
    form.lvwReview.DoubleClick(*row);
    return std::nullopt;
}

Refusal
Press(const Observable<bool>& enabled, void (frmReviewSummary::*action)(), frmReviewSummary& form) {
    if (!enabled.Value()) {
        return "The button is disabled.";
    }
    (form.*action)();
    return std::nullopt;
}

Refusal ShowPage(const std::string& number, frmReviewSummary& form) {
    if (!PositionOf(number, static_cast<std::size_t>(form.tbsReview.Count()))) {
        return "There is no page " + number + ".";
    }
    form.SwitchTab(static_cast<std::int16_t>(*modText::WholeNumber(number)));
    return std::nullopt;
}

}  // namespace

bool IsSummaryCommand(const Words& words) {
    if (words.size() == 1) {
        return words[0] == "next" || words[0] == "log" || words[0] == "report" ||
               words[0] == "close" || IsNumber(words[0]);
    }
    if (words.size() != 2) {
        return false;
    }
    return words[0] == "file" ||
           ((words[0] == "column" || words[0] == "double") && IsNumber(words[1]));
}

Refusal Apply(const Words& words, frmReviewSummary& form) {
    const std::string& command = words[0];
    if (command == "next") {
        form.NextTab();
        return std::nullopt;
    }
    if (command == "close") {
        form.Close();
        return std::nullopt;
    }
    if (command == "log") {
        return Press(form.ViewLogEnabled, &frmReviewSummary::ViewLog, form);
    }
    if (command == "report") {
        return Press(form.ViewReportEnabled, &frmReviewSummary::ViewReport, form);
    }
    if (command == "file") {
        return ChooseFile(words[1], form);
    }
    if (command == "column") {
        return ClickColumn(words[1], form);
    }
    return command == "double" ? DoubleClickRow(words[1], form) : ShowPage(command, form);
}

}  // namespace dorvik::modDialogDump
