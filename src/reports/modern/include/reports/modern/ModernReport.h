#pragma once

#include "foundation/text/OutputPlace.h"
#include "reports/classic/UnreadFile.h"

#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class ResultsDB;

/// What the interactive page shows in addition to the results database.
struct ModernReportFacts {
    /// The source files that the review could not read to their end, and why. A finished database has these files
    /// too, but not the reasons, so a file may be omitted here.
    std::vector<UnreadFile> Unreviewed;
};

/// One self-contained HTML page about the review of one project: verdict and figures, charts, hotspots,
/// files and violations to sort and filter. Nothing on the page refers to another file.
class ModernReport {
public:
    /// Module of the log lines.
    static constexpr std::string_view kModule = "ModernReport";

    /// The page of the review that is open in `results`, whose filter does not apply and whose state is not changed.
    /// Empty after a failure, which is logged.
    static std::string CreatePage(ResultsDB& results, const ModernReportFacts& facts);

    /// Where the page of a project is stored: "Billing_Review.html" for "Billing.vbp", in `folder` or, if that is
    /// empty, in the folder "Dorvik\" beside the project file. The name is made by `modFileName`.
    static OutputPlace PlaceFor(std::string_view projectFile, std::string_view folder);

    /// Writes the page, in place of an earlier one; the folder is created if it does not exist. A reader sees the old
    /// page or the new one, never a part. False after a failure, which is logged; an earlier page is not changed
    /// then, and `refusal` receives the sentence of an `OutputRefusal`.
    static bool Save(
        ResultsDB& results,
        const ModernReportFacts& facts,
        const OutputPlace& place,
        std::string* refusal = nullptr);
};

}  // namespace dorvik
