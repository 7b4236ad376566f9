#include "reports/format/modPassRate.h"

#include "base/BasicError.h"
#include "reports/format/modReportFormat.h"

namespace dorvik::modPassRate {

namespace {

constexpr std::int32_t kDivisionByZero = 11;

}  // namespace

std::string Text(std::int32_t passed, std::int32_t failed, std::int32_t errors) {
    const std::int32_t all = passed + failed + errors;
    if (all == 0) {
        RaiseRuntimeError(kDivisionByZero);
    }
    return modReportFormat::FormatPercent(static_cast<double>(passed) / all);
}

}  // namespace dorvik::modPassRate
