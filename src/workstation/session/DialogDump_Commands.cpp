#include "base/modText.h"
#include "platform/host/modHostPath.h"
#include "workstation/dialogs/frmOptions.h"
#include "workstation/dialogs/frmReviewOptions.h"
#include "workstation/session/DialogDump.h"
#include "workstation/session/ISessionHands.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

namespace dorvik::modDialogDump {

namespace {

using ReviewForm = frmReviewOptions;

bool IsSwitch(std::string_view word) {
    return word == "on" || word == "off";
}

bool IsNumber(std::string_view word) {
    return modText::WholeNumber(word).has_value();
}

bool IsText(std::string_view) {
    return true;
}

bool IsPlace(std::string_view word) {
    const auto number = modText::WholeNumber(word);
    return number && *number >= 1 && *number <= 6;
}

bool IsReport(std::string_view word) {
    const auto number = modText::WholeNumber(word);
    return number && *number >= 0 && *number <= 2;
}

std::int32_t NumberOf(std::string_view word) {
    return modText::WholeNumber(word).value_or(0);
}

/// The bench's own path of one that is written in a session.
std::string PathOf(const std::string& word) {
    return word.empty() ? word : modHostPath::ToProgram(modHostPath::FromUser(word));
}

// ---- the fields of the review options ----

Refusal Check(CheckList& list, const std::string& key, std::string_view value) {
    const auto index = list.Find(key);
    if (!index) {
        return "The list has no item '" + key + "'.";
    }
    list.SetChecked(*index, value == "on");
    return std::nullopt;
}

Refusal Check(CheckTree& tree, CheckNode* node, const std::string& name, std::string_view value) {
    if (node == nullptr) {
        return "The tree has no node '" + name + "'.";
    }
    tree.Check(*node, value == "on");
    return std::nullopt;
}

Refusal SetTitle(const Words& words, ReviewForm& form) {
    if (!form.TitleIsOffered.Value()) {
        return "Only a batch has a title.";
    }
    form.txtTitle.Set(words[1]);
    return std::nullopt;
}

Refusal SetBackground(const Words& words, ReviewForm& form) {
    if (!form.BackgroundEnabled.Value()) {
        return "A batch has no background review.";
    }
    form.chkBackground.Set(words[1] == "on");
    return std::nullopt;
}

Refusal SetFile(const Words& words, ReviewForm& form) {
    const std::size_t slash = words[1].find('/');
    CheckNode* const node = slash == std::string::npos
                                ? nullptr
                                : form.Projects().FindSourceFileNode(
                                      std::string_view(words[1]).substr(0, slash),
                                      std::string_view(words[1]).substr(slash + 1));
    return Check(form.tvwProjects, node, words[1], words[2]);
}

Refusal SetCategory(const Words& words, ReviewForm& form) {
    const std::string key = words[1] == "0" ? std::string(ReviewForm::kUnallocatedCategory)
                                            : CategoryList::CategoryIDToKey(NumberOf(words[1]));
    return Check(form.lvwCategories, key, words[2]);
}

struct FieldRow {
    std::string_view Name;
    bool (*IsKey)(std::string_view);    // null for a field without a key
    bool (*IsValue)(std::string_view);  // null for a command without a value
    bool IsInFilter;
    Refusal (*Set)(const Words& words, ReviewForm& form);
};

template <auto Field>
Refusal SetSwitch(const Words& words, ReviewForm& form) {
    (form.*Field).Set(words[1] == "on");
    return std::nullopt;
}

template <auto Field>
Refusal SetText(const Words& words, ReviewForm& form) {
    (form.*Field).Set(words[1]);
    return std::nullopt;
}

template <auto Field>
Refusal SetPath(const Words& words, ReviewForm& form) {
    (form.*Field).Set(PathOf(words[1]));
    return std::nullopt;
}

template <auto Boxes>
Refusal SetBox(const Words& words, ReviewForm& form) {
    (form.*Boxes)[static_cast<std::size_t>(NumberOf(words[1])) - 1].Set(words[2]);
    return std::nullopt;
}

constexpr FieldRow kFields[] = {
    {"rulebase", nullptr, IsText, false, SetPath<&ReviewForm::cboRulebase>},
    {"title", nullptr, IsText, false, SetTitle},
    {"background", nullptr, IsSwitch, false, SetBackground},
    {"clear-log", nullptr, IsSwitch, false, SetSwitch<&ReviewForm::chkClearLog>},
    {"project-results", nullptr, IsSwitch, false, SetSwitch<&ReviewForm::chkResultsFolder>},
    {"results", nullptr, IsText, false, SetPath<&ReviewForm::txtResultsFolder>},
    {"project-reports", nullptr, IsSwitch, false, SetSwitch<&ReviewForm::chkReportsFolder>},
    {"reports", nullptr, IsText, false, SetPath<&ReviewForm::txtReportsFolder>},
    {"report",
     nullptr,
     IsReport,
     false,
     [](const Words& words, ReviewForm& form) -> Refusal {
         form.optReports.Set(NumberOf(words[1]));
         return std::nullopt;
     }},
    {"project",
     IsText,
     IsSwitch,
     false,
     [](const Words& words, ReviewForm& form) {
         return Check(
             form.tvwProjects, form.Projects().FindProjectNode(words[1]), words[1], words[2]);
     }},
    {"file", IsText, IsSwitch, false, SetFile},
    {"convention",
     IsText,
     IsSwitch,
     true,
     [](const Words& words, ReviewForm& form) {
         return Check(form.lvwConventions, words[1], words[2]);
     }},
    {"category", IsNumber, IsSwitch, true, SetCategory},
    {"severity",
     IsNumber,
     IsSwitch,
     true,
     [](const Words& words, ReviewForm& form) {
         return Check(form.lvwSeverities, SeverityKeyOf(NumberOf(words[1])), words[2]);
     }},
    {"count", IsPlace, IsText, false, SetBox<&ReviewForm::txtCount>},
    {"impact", IsPlace, IsText, false, SetBox<&ReviewForm::txtImpact>},
    {"comments", nullptr, IsText, false, SetText<&ReviewForm::txtComments>},
    {"complexity", nullptr, IsText, false, SetText<&ReviewForm::txtComplexity>},
    {"reset",
     nullptr,
     nullptr,
     true,
     [](const Words&, ReviewForm& form) -> Refusal {
         form.Reset();
         return std::nullopt;
     }},
};

const FieldRow* FieldOf(std::string_view name) {
    for (const FieldRow& row : kFields) {
        if (row.Name == name) {
            return &row;
        }
    }
    return nullptr;
}

bool Fits(const Words& words, const FieldRow& row) {
    std::size_t next = 1;
    if (row.IsKey != nullptr && (next >= words.size() || !row.IsKey(words[next++]))) {
        return false;
    }
    if (row.IsValue != nullptr && (next >= words.size() || !row.IsValue(words[next++]))) {
        return false;
    }
    return next == words.size();
}

// ---- the controls of the options ----

template <auto Control>
Refusal SetOptionSwitch(const std::string& value, frmOptions& form) {
    (form.*Control).Set(value == "on");
    return std::nullopt;
}

/// 1 is ascending.
template <auto Control>
Refusal SetOrder(const std::string& value, frmOptions& form) {
    (form.*Control).Set(NumberOf(value) == 1);
    return std::nullopt;
}

template <auto Control>
Refusal SetSelection(const std::string& value, frmOptions& form) {
    const auto index = (form.*Control).Find(value);
    if (!index) {
        return "The list has no item '" + value + "'.";
    }
    (form.*Control).Choose(*index);
    return std::nullopt;
}

template <auto Control, auto Enabled>
Refusal SetFolder(const std::string& value, frmOptions& form) {
    if (!(form.*Enabled).Value()) {
        return "The box is disabled.";
    }
    (form.*Control).Set(PathOf(value));
    return std::nullopt;
}

struct ControlRow {
    std::string_view Name;
    bool (*IsValue)(std::string_view);
    Refusal (*Set)(const std::string& value, frmOptions& form);
};

constexpr ControlRow kControls[] = {
    {"chkShowWorkbench", IsSwitch, SetOptionSwitch<&frmOptions::chkShowWorkbench>},
    {"chkShowSummary", IsSwitch, SetOptionSwitch<&frmOptions::chkShowSummary>},
    {"chkResultsFolder", IsSwitch, SetOptionSwitch<&frmOptions::chkResultsFolder>},
    {"txtResultsFolder",
     IsText,
     SetFolder<&frmOptions::txtResultsFolder, &frmOptions::ResultsFolderEnabled>},
    {"chkReportsFolder", IsSwitch, SetOptionSwitch<&frmOptions::chkReportsFolder>},
    {"txtReportsFolder",
     IsText,
     SetFolder<&frmOptions::txtReportsFolder, &frmOptions::ReportsFolderEnabled>},
    {"cboReports", IsReport, SetSelection<&frmOptions::cboReports>},
    {"optCompleted",
     IsNumber,
     [](const std::string& value, frmOptions& form) -> Refusal {
         const std::int32_t button = NumberOf(value);
         if (button != 1 && button != 2) {
             return "There is no button " + value + ".";
         }
         form.optCompleted.Set(button);
         return std::nullopt;
     }},
    {"chkSynchronise", IsSwitch, SetOptionSwitch<&frmOptions::chkSynchronise>},
    {"lstProjectMember", IsNumber, SetSelection<&frmOptions::lstProjectMember>},
    {"optPMOrder", IsNumber, SetOrder<&frmOptions::optPMOrder>},
    {"chkPMZero", IsSwitch, SetOptionSwitch<&frmOptions::chkPMZero>},
    {"lstFileMember", IsNumber, SetSelection<&frmOptions::lstFileMember>},
    {"optFMOrder", IsNumber, SetOrder<&frmOptions::optFMOrder>},
    {"chkFMZero", IsSwitch, SetOptionSwitch<&frmOptions::chkFMZero>},
    {"chkClearLog", IsSwitch, SetOptionSwitch<&frmOptions::chkClearLog>},
    {"chkBackground", IsSwitch, SetOptionSwitch<&frmOptions::chkBackground>},
    {"txtTickCount",
     IsText,
     [](const std::string& value, frmOptions& form) -> Refusal {
         form.TypeTickCount(value);
         return std::nullopt;
     }},
    {"txtRBDoc",
     IsText,
     [](const std::string& value, frmOptions& form) -> Refusal {
         form.txtRBDoc.Set(PathOf(value));
         return std::nullopt;
     }},
};

const ControlRow* ControlOf(std::string_view name) {
    for (const ControlRow& row : kControls) {
        if (row.Name == name) {
            return &row;
        }
    }
    return nullptr;
}

template <typename Form>
bool EndsForm(const Words& words, Form& form) {
    if (words[0] == "ok") {
        form.Ok();
        return true;
    }
    if (words[0] == "cancel") {
        form.Cancel();
        return true;
    }
    return false;
}

template <typename Form>
std::vector<DialogRefusal>
PlayForm(std::deque<DialogCommand>& queue, Form& form, ISessionHands* hands) {
    std::vector<DialogRefusal> refusals;
    while (!form.IsClosed()) {
        DialogCommand command{.Command = {"cancel"}};
        if (!queue.empty()) {
            command = std::move(queue.front());
            queue.pop_front();
        }
        Refusal refusal;
        if (hands == nullptr || !hands->Step(command.Command, form, refusal)) {
            refusal = Apply(command.Command, form);
        }
        if (refusal) {
            refusals.push_back({command.Line, *refusal});
        }
    }
    return refusals;
}

}  // namespace

bool IsDialogCommand(const Words& words) {
    if (words.empty()) {
        return false;
    }
    if (words[0] == "ok" || words[0] == "cancel") {
        return words.size() == 1;
    }
    if (words[0] == "set") {
        const ControlRow* const control = words.size() == 3 ? ControlOf(words[1]) : nullptr;
        return control != nullptr && control->IsValue(words[2]);
    }
    const FieldRow* const field = FieldOf(words[0]);
    return field != nullptr && Fits(words, *field);
}

Refusal Apply(const Words& words, frmReviewOptions& form) {
    if (EndsForm(words, form)) {
        return std::nullopt;
    }
    const FieldRow* const field = FieldOf(words[0]);
    const bool isOffered =
        field != nullptr &&
        (field->IsInFilter || form.CurrentMode() == frmReviewOptions::Mode::Review);
    return isOffered ? field->Set(words, form)
                     : Refusal("The dialog has no field '" + words[0] + "'.");
}

Refusal Apply(const Words& words, frmOptions& form) {
    if (EndsForm(words, form)) {
        return std::nullopt;
    }
    return words[0] == "set" ? ControlOf(words[1])->Set(words[2], form)
                             : Refusal("The dialog has no field '" + words[0] + "'.");
}

std::vector<DialogRefusal>
Play(std::deque<DialogCommand>& queue, frmReviewOptions& form, ISessionHands* hands) {
    return PlayForm(queue, form, hands);
}

std::vector<DialogRefusal>
Play(std::deque<DialogCommand>& queue, frmOptions& form, ISessionHands* hands) {
    return PlayForm(queue, form, hands);
}

}  // namespace dorvik::modDialogDump
