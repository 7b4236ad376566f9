#include "platform/host/HostError.h"

#include <cerrno>
#include <span>

namespace dorvik {

namespace {

constexpr std::int32_t Code(std::uint32_t code) {
    return static_cast<std::int32_t>(code);
}
constexpr std::int32_t kAccessDenied = Code(0x80070005);
constexpr std::int32_t kWriteProtected = Code(0x80070013);
constexpr std::int32_t kNotReady = Code(0x80070015);
constexpr std::int32_t kNoSpace = Code(0x80070070);

struct CodeRow {
    int Number;
    std::int32_t Code;
};

// What the run-time errors do not distinguish.
constexpr CodeRow kByErrorOfHost[] = {
    {EROFS, kWriteProtected},
    {ENXIO, kNotReady},
    {ENODEV, kNotReady},
    {ENOMEDIUM, kNotReady},
    {EIO, kNotReady},
    {ESTALE, kNotReady},
    {EFBIG, kNoSpace},
};

constexpr CodeRow kByNumber[] = {
    {runtimeerror::kFileNotFound, Code(0x80070002)},
    {runtimeerror::kPathNotFound, Code(0x80070003)},
    {runtimeerror::kDiskFull, kNoSpace},
};

const CodeRow* Find(std::span<const CodeRow> rows, int number) {
    for (const CodeRow& row : rows) {
        if (row.Number == number) {
            return &row;
        }
    }
    return nullptr;
}

}  // namespace

std::int32_t HostError::SystemCode() const {
    const CodeRow* row = Find(kByErrorOfHost, m_errorOfHost);
    if (row == nullptr) {
        row = Find(kByNumber, Number());
    }
    return row == nullptr ? kAccessDenied : row->Code;
}

}  // namespace dorvik
