#pragma once

#include "foundation/text/OutputPlace.h"
#include "reports/classic/UnreadFile.h"

#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class ResultsDB;

/// What the modern report shows beside what the results database tells.
struct ModernReportFacts {
    /// The source files that the review could not read to their end, and why. What a finished database
    /// tells of them by itself need not stand here: it does not tell why.
    std::vector<UnreadFile> Unreviewed;
};

/// One self-contained HTML page about the review of one project: verdict and figures, charts, hotspots,
/// files and violations to sort and filter. Nothing in it refers to anything outside the page.
class ModernReport {
public:
    /// Module of the log lines.
    static constexpr std::string_view kModule = "ModernReport";

    /// The page of the review that `results` has open. Not changed in any way, neither its filter nor its
    /// sort fields; a filter that is set takes no part. Empty after a failure, which is logged.
    static std::string CreatePage(ResultsDB& results, const ModernReportFacts& facts);

    /// Where the page of a project lies: "Billing_Review.html" for "Billing.vbp", in `folder` or, where
    /// that is empty, in the folder "Dorvik\" beside the project file. The name is made by `modFileName`.
    static OutputPlace PlaceFor(std::string_view projectFile, std::string_view folder);

    /// Writes the page, in place of an earlier one; the folder is created if need be. A reader sees the old
    /// page or the new one, never a part. False after a failure, which is logged, with the sentence of an
    /// `OutputRefusal` in `refusal`; an earlier page is then untouched.
    static bool Save(
        ResultsDB& results,
        const ModernReportFacts& facts,
        const OutputPlace& place,
        std::string* refusal = nullptr);
};

}  // namespace dorvik
