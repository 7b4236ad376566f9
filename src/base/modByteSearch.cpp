#include "base/modByteSearch.h"

#include <array>
#include <cstring>

namespace dorvik::modByteSearch {

namespace {

/// The bytes of source code from the most common one on, as counted in 618,000 lines. Those that are not among them
/// are the rarest.
constexpr std::string_view kByCommonness = " etnaorisl\ndcuhmgpfPIATSyLECbB,D=._)(FwvRMVx\"*NO'"
                                           "0GWHkU12-&z3X5Y/4><+6jK8:q7#9QZ!;J$\\[]%?|@^{}~`";

constexpr std::array<std::uint8_t, 256> MakeCommonness() {
    std::array<std::uint8_t, 256> table{};
    for (std::size_t i = 0; i < kByCommonness.size(); ++i) {
        table[static_cast<unsigned char>(kByCommonness[i])] =
            static_cast<std::uint8_t>(kByCommonness.size() - i);
    }
    return table;
}

constexpr std::array<std::uint8_t, 256> kCommonness = MakeCommonness();

std::size_t PlaceOfRarest(std::string_view sought) {
    std::size_t rarest = 0;
    for (std::size_t place = 1; place < sought.size(); ++place) {
        if (Commonness(sought[place]) < Commonness(sought[rarest])) {
            rarest = place;
        }
    }
    return rarest;
}

}  // namespace

std::uint8_t Commonness(char byte) {
    return kCommonness[static_cast<unsigned char>(byte)];
}

std::size_t Find(std::string_view text, std::string_view sought, std::size_t from) {
    if (from > text.size() || sought.size() > text.size() - from) {
        return std::string_view::npos;
    }
    const std::size_t rarest = PlaceOfRarest(sought);
    const char* const end = text.data() + text.size() - (sought.size() - 1 - rarest);
    for (const char* at = text.data() + from + rarest; at < end; ++at) {
        at = static_cast<const char*>(
            std::memchr(at, sought[rarest], static_cast<std::size_t>(end - at)));
        if (at == nullptr) {
            break;
        }
        if (std::memcmp(at - rarest, sought.data(), sought.size()) == 0) {
            return static_cast<std::size_t>(at - rarest - text.data());
        }
    }
    return std::string_view::npos;
}

}  // namespace dorvik::modByteSearch
