#pragma once

#include "ReportLegend.h"
#include "ReportOutput.h"
#include "ReportProgress.h"

namespace dorvik {

/// What all pages share. REQUIRES: what is referred to outlives the pages.
struct ReportContext {
    const ReportLegend& Legend;
    ReportOutput& Output;
    ReportProgress& Progress;
};

}  // namespace dorvik
