#pragma once

#include "ReportLegend.h"
#include "ReportOutput.h"
#include "ReportProgress.h"

namespace dorvik {

/// What every page is made with. What it refers to outlives the pages.
struct ReportContext {
    const ReportLegend& Legend;
    ReportOutput& Output;
    ReportProgress& Progress;
};

}  // namespace dorvik
