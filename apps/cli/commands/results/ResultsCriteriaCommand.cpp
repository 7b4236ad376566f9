#include "ResultsCriteriaCommand.h"

#include "cli/commands/results/ResultsFile.h"
#include "cli/commands/results/ResultsFilter.h"
#include "cli/commands/results/ToleranceLimits.h"
#include "cli/output/Console.h"
#include "cli/output/FigureText.h"
#include "cli/output/JsonOutput.h"
#include "cli/output/SeverityNames.h"
#include "cli/output/TablePrinter.h"
#include "results/ResultsDB.h"
#include "results/modTolerances.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace dorvik {

namespace {

constexpr std::size_t kIndent = 2;

struct KindRow {
    bool (RulebaseLoadCriteria::*IsTaken)() const;
    std::int32_t RulebaseLoadCriteria::*
        Listed;  // elements of the rulebase, whether they took part or not
};

/// By the number of the kind, from 1.
constexpr std::array<KindRow, 6> kKinds = {{
    {&RulebaseLoadCriteria::AuthorisedComponents, &RulebaseLoadCriteria::NumAuthComps},
    {&RulebaseLoadCriteria::AuthorisedReferences, &RulebaseLoadCriteria::NumAuthRefs},
    {&RulebaseLoadCriteria::UnauthorisedKeywords, &RulebaseLoadCriteria::NumUnauthKeywords},
    {&RulebaseLoadCriteria::CodingConventions, &RulebaseLoadCriteria::NumCodingConventions},
    {&RulebaseLoadCriteria::NamingConventions, &RulebaseLoadCriteria::NumNamingConventions},
    {&RulebaseLoadCriteria::DocumentationConventions, &RulebaseLoadCriteria::NumDocConventions},
}};

/// "2026-11-21 14:05:09"; empty for no date.
std::string TimeText(const DateTime& time) {
    if (time.IsZero()) {
        return {};
    }
    std::array<char, 80> text{};
    std::snprintf(
        text.data(),
        text.size(),
        "%04d-%02d-%02d %02d:%02d:%02d",
        time.Year,
        time.Month,
        time.Day,
        time.Hour,
        time.Minute,
        time.Second);
    return text.data();
}

/// Everything that the review row and its lists tell, part by part.
struct Criteria {
    explicit Criteria(ResultsDB& database);

    ResultsRecords Kinds{{"kind", "included", "listed"}};
    ResultsRecords Severities{{"level", "title", "included"}};
    ResultsRecords Categories{{"id", "title"}};
    ResultsRecords Tolerances{{"measure", "description", "limit"}};
    /// The same in one table, for a format that has no parts.
    ResultsRecords Flat{{"part", "name", "value", "included"}};
    ReviewData Review;
    StoredReviewCriteria Stored;

    std::int32_t RulesThatTookPart() const;

private:
    void AddReview();
    void AddKinds();
    void AddLists();
    void AddTolerances();
};

Criteria::Criteria(ResultsDB& database)
    : Review(database.Review().GetReviewData()), Stored(database.Review().GetReviewCriteria()) {
    AddReview();
    AddKinds();
    AddLists();
    AddTolerances();
}

/// What is stored counts the authorised items that were loaded as well. They are not rules, and are loaded all
/// or not at all.
std::int32_t Criteria::RulesThatTookPart() const {
    const RulebaseLoadCriteria& load = Stored.LoadCriteria;
    return std::max(
        Review.ActiveRules - (load.AuthorisedComponents() ? load.NumAuthComps : 0) -
            (load.AuthorisedReferences() ? load.NumAuthRefs : 0),
        0);
}

void Criteria::AddReview() {
    const auto add = [this](const char* name, RecordValue value) {
        Flat.Add({"review", name, std::move(value), RecordValue()});
    };
    add("rulebase", Review.RulebaseTitle);
    add("rulebaseVersion", Review.RulebaseVersion);
    add("reviewer", Review.Reviewer);
    add("start", TimeText(Review.Start));
    add("end", TimeText(Review.End));
    add("activeRules", RulesThatTookPart());
    add("ruleExecutions", Review.RuleExecutions);
}

void Criteria::AddKinds() {
    std::int32_t number = 0;
    for (const KindRow& row : kKinds) {
        const std::string key(modRuleKinds::Key(++number));
        const bool included = (Stored.LoadCriteria.*row.IsTaken)();
        const std::int32_t listed = Stored.LoadCriteria.*row.Listed;
        Kinds.Add({key, included, listed});
        Flat.Add({"kind", key, listed, included});
    }
}

void Criteria::AddLists() {
    const SeverityTable& severities = Stored.Lists.Severities;
    for (std::int32_t index = 1; index <= severities.Count(); ++index) {
        const SeverityItem& severity = *severities.Item(index);
        const bool included = severities.Selected(index);
        Severities.Add({severity.SeverityLevel(), severity.Title(), included});
        Flat.Add({"severity", severity.Title(), severity.SeverityLevel(), included});
    }
    const CategoryList& categories = Stored.Lists.Categories;
    for (const auto& category : categories) {
        Categories.Add({category->ID(), category->Title()});
        Flat.Add({"category", category->Title(), category->ID(), RecordValue()});
    }
}

void Criteria::AddTolerances() {
    for (std::size_t place = 0; place < modTolerances::kMeasures.size(); ++place) {
        const std::int32_t limit = modToleranceLimits::Limit(Stored.Tolerances, place);
        if (limit != ToleranceSettings::kNotSet) {
            const auto& measure = modTolerances::kMeasures.at(place);
            Tolerances.Add({std::string(measure.Name), std::string(measure.Description), limit});
            Flat.Add({"tolerance", std::string(measure.Name), limit, RecordValue()});
        }
    }
}

void PrintAsJson(const Criteria& criteria, ResultsDB& database) {
    const ReviewData& review = criteria.Review;
    JsonOutput json;
    json.BeginObject();
    WriteResultsHead(json, database);
    json.Text("rulebase", review.RulebaseTitle);
    json.Text("rulebaseVersion", review.RulebaseVersion);
    json.Text("reviewer", review.Reviewer);
    json.Text("start", TimeText(review.Start));
    json.Text("end", TimeText(review.End));
    json.Number("activeRules", criteria.RulesThatTookPart());
    json.Number("ruleExecutions", review.RuleExecutions);
    criteria.Kinds.WriteTo(json, "kinds");
    criteria.Severities.WriteTo(json, "severities");
    criteria.Categories.WriteTo(json, "categories");
    criteria.Tolerances.WriteTo(json, "tolerances");
    json.EndObject();
    json.Print();
}

// ---- for a person ----

void PrintHeading(const char* title) {
    modConsole::Print(
        "\n" + modTerminalText::Shaded(title, Shade::Heading, modConsole::OutputIsColoured()) +
        "\n");
}

void PrintReview(const Criteria& criteria, ResultsDB& database) {
    const ReviewData& review = criteria.Review;
    TablePrinter table({{""}, {"", false, true}});
    const auto add = [&table](const char* label, const std::string& text) {
        if (!text.empty()) {
            table.AddRow({{label, Shade::Dim}, {text}});
        }
    };
    add("Project", database.Items().GetProjectData("Name"));
    add("Rulebase", review.RulebaseTitle);
    add("Version", review.RulebaseVersion);
    add("Reviewed by", review.Reviewer);
    add("Start", TimeText(review.Start));
    add("End", review.End.IsZero() ? "none: the review did not finish" : TimeText(review.End));
    add("Active rules", modFigureText::Grouped(criteria.RulesThatTookPart()));
    add("Executions", modFigureText::Grouped(review.RuleExecutions));
    table.Print();
}

TableCell YesOrNo(bool yes) {
    return yes ? TableCell("yes") : TableCell("no", Shade::Dim);
}

void PrintKinds(const Criteria& criteria) {
    PrintHeading("Kinds of rule");
    TablePrinter table({{"Kind"}, {"Reviewed"}, {"Listed", true}});
    table.SetIndent(kIndent);
    std::int32_t number = 0;
    for (const KindRow& row : kKinds) {
        table.AddRow(
            {modRuleKinds::Key(++number),
             YesOrNo((criteria.Stored.LoadCriteria.*row.IsTaken)()),
             modFigureText::Grouped(criteria.Stored.LoadCriteria.*row.Listed)});
    }
    table.Print();
}

void PrintLists(const CategorySeverityLists& lists) {
    PrintHeading("Severities");
    TablePrinter severities({{"Level", true}, {"Title", false, true}, {"Reviewed"}});
    severities.SetIndent(kIndent);
    for (std::int32_t index = 1; index <= lists.Severities.Count(); ++index) {
        const SeverityItem& severity = *lists.Severities.Item(index);
        severities.AddRow(
            {{severity.SeverityLevel()},
             {severity.Title(), modSeverityNames::ShadeOf(severity.SeverityLevel())},
             YesOrNo(lists.Severities.Selected(index))});
    }
    severities.Print();
    if (lists.Categories.Count() > 0) {
        PrintHeading("Categories");
        TablePrinter categories({{"ID", true}, {"Title", false, true}});
        categories.SetIndent(kIndent);
        for (const auto& category : lists.Categories) {
            categories.AddRow({{category->ID()}, {category->Title()}});
        }
        categories.Print();
    }
}

void PrintTolerances(const ToleranceSettings& tolerances) {
    TablePrinter table({{"Measure"}, {"Description", false, true}, {"Limit"}});
    table.SetIndent(kIndent);
    for (std::size_t place = 0; place < modTolerances::kMeasures.size(); ++place) {
        const auto& measure = modTolerances::kMeasures.at(place);
        const std::int32_t limit = modToleranceLimits::Limit(tolerances, place);
        if (limit != ToleranceSettings::kNotSet) {
            table.AddRow(
                {measure.Name, measure.Description, modToleranceLimits::Words(place, limit)});
        }
    }
    if (table.RowCount() > 0) {
        PrintHeading("Tolerances");
        table.Print();
    }
}

}  // namespace

ExitCode RunResultsCriteria(const std::string& database, const ResultsForm& form) {
    return modResultsFile::Read(database, [&](ResultsDB& results) {
        const Criteria criteria(results);
        if (form.Json) {
            PrintAsJson(criteria, results);
        } else if (form.Csv) {
            criteria.Flat.PrintAsCsv();
        } else {
            PrintReview(criteria, results);
            PrintKinds(criteria);
            PrintLists(criteria.Stored.Lists);
            PrintTolerances(criteria.Stored.Tolerances);
        }
        return ExitCode::Passed;
    });
}

}  // namespace dorvik
