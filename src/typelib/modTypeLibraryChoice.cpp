#include "typelib/modTypeLibraryChoice.h"

#include "base/modTextCase.h"

#include <utility>

namespace dorvik::modTypeLibraryChoice {

namespace {

/// The lower bits of an LCID tell the language, those above them the country.
constexpr std::int32_t kPrimaryLanguage = 0x3FF;

/// How well something fits; less is better.
using Rank = std::int64_t;
constexpr Rank kUnfit = -1;

Rank RankOfLanguage(std::int32_t offered, std::int32_t wanted) {
    if (offered == wanted) {
        return 0;
    }
    if (offered == (wanted & kPrimaryLanguage)) {
        return 1;
    }
    return offered == 0 ? 2 : 3;
}

Rank RankAsRegistered(std::int32_t offered, std::int32_t wanted) {
    constexpr Rank kHighest = 0x1'0000'0000;
    if (offered < wanted) {
        return kUnfit;
    }
    return offered == wanted ? 0 : kHighest - offered;
}

Rank RankByDistance(std::int32_t offered, std::int32_t wanted) {
    constexpr Rank kBelow = 0x1'0000'0000;
    const Rank distance = Rank{offered} - wanted;
    return distance >= 0 ? distance : kBelow - distance;
}

template <class RankOfMinor>
std::optional<std::size_t> Choose(
    const std::vector<TypeLibraryOffer>& offers,
    const TypeLibraryWish& wish,
    RankOfMinor rankOfMinor) {
    std::optional<std::size_t> chosen;
    std::pair<Rank, Rank> best;
    for (std::size_t index = 0; index < offers.size(); ++index) {
        const TypeLibraryOffer& offer = offers[index];
        const Rank minor = rankOfMinor(offer.MinorVersion, wish.MinorVersion);
        if (offer.MajorVersion != wish.MajorVersion || minor == kUnfit ||
            !modTextCase::Equal(offer.Guid, wish.Guid)) {
            continue;
        }
        const std::pair<Rank, Rank> rank(minor, RankOfLanguage(offer.Lcid, wish.Lcid));
        if (!chosen || rank < best) {
            chosen = index;
            best = rank;
        }
    }
    return chosen;
}

}  // namespace

std::optional<std::size_t>
Registered(const std::vector<TypeLibraryOffer>& offers, const TypeLibraryWish& wish) {
    return Choose(offers, wish, RankAsRegistered);
}

std::optional<std::size_t>
Nearest(const std::vector<TypeLibraryOffer>& offers, const TypeLibraryWish& wish) {
    return Choose(offers, wish, RankByDistance);
}

}  // namespace dorvik::modTypeLibraryChoice
