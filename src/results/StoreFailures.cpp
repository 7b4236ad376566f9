#include "results/StoreFailures.h"

#include "base/BasicError.h"
#include "platform/database/Database.h"
#include "platform/host/OutputRefusal.h"

#include <algorithm>
#include <array>

namespace dorvik {

namespace {

struct ReasonRow {
    std::int32_t Number;
    std::string_view Reason;
};

constexpr std::array<ReasonRow, 8> kReasons = {{
    {databaseerror::kFileNotFound, "it does not exist any more"},
    {runtimeerror::kDiskFull, "no room is left on the disk"},
    {runtimeerror::kPermissionDenied, "the system does not allow to open it"},
    {databaseerror::kLocked, "another program has it locked"},
    {databaseerror::kReadOnly, "the file, or the folder that it is in, is read-only"},
    {databaseerror::kNotADatabase, "the file is damaged"},
    {databaseerror::kSyntax, "a name or a path has a quote in it"},
    {databaseerror::kStoreFailed, "the system reports an error while it reads or writes the file"},
}};

constexpr std::string_view kOtherReason = "an unexpected error; the log has its details";

}  // namespace

void StoreFailures::NoteReason(std::int32_t number) {
    if (m_reason.empty()) {
        const auto known =
            std::find_if(kReasons.begin(), kReasons.end(), [number](const auto& row) {
                return row.Number == number;
            });
        m_firstNumber = number;
        m_reason = known != kReasons.end() ? known->Reason : kOtherReason;
    }
}

void StoreFailures::NoteReason(const BasicError& failure) {
    const std::string refusal = OutputRefusal::SentenceIn(failure);
    if (m_reason.empty() && !refusal.empty()) {
        m_firstNumber = failure.Number();
        m_reason = refusal;
    }
    NoteReason(failure.Number());
}

void StoreFailures::NoteReason(std::string_view reason) {
    if (m_reason.empty()) {
        m_reason = reason;
    }
}

}  // namespace dorvik
