#include "base/modKyErrors.h"

#include "base/BasicError.h"

namespace dorvik::modKyErrors {

namespace {

struct ErrorRow {
    std::int32_t Number;
    std::string_view Text;
};

constexpr ErrorRow kErrors[] = {
    {kyErrNoSuchItem, "No such item."},
    {kyErrKeyInUse, "The item cannot be added, because the key '%KEY%' is already in use."},
    {kyErrNoFilename, "No filename has been specified."},
    {kyErrRegistryType, "Registry data type does not match the type requested."},
    {kyErrRegistryKey, "An invalid registry key handle was supplied."},
};

constexpr std::string_view kKeyMark = "%KEY%";

}  // namespace

std::string_view ErrorText(std::int32_t number) {
    for (const ErrorRow& row : kErrors) {
        if (row.Number == number) {
            return row.Text;
        }
    }
    return {};
}

void RaiseError(std::int32_t number, std::string_view source, std::string_view key) {
    std::string text(ErrorText(number));
    if (const std::size_t mark = text.find(kKeyMark); mark != std::string::npos) {
        text.replace(mark, kKeyMark.size(), key);
    }
    throw BasicError(number, text, std::string(source));
}

}  // namespace dorvik::modKyErrors
