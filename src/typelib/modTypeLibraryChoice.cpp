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

Rank RankOfLanguage(std::int32_t candidate, std::int32_t wanted) {
    if (candidate == wanted) {
        return 0;
    }
    if (candidate == (wanted & kPrimaryLanguage)) {
        return 1;
    }
    return candidate == 0 ? 2 : 3;
}

Rank RankAsRegistered(std::int32_t candidate, std::int32_t wanted) {
    constexpr Rank kHighest = 0x1'0000'0000;
    if (candidate < wanted) {
        return kUnfit;
    }
    return candidate == wanted ? 0 : kHighest - candidate;
}

Rank RankByDistance(std::int32_t candidate, std::int32_t wanted) {
    constexpr Rank kBelow = 0x1'0000'0000;
    const Rank distance = Rank{candidate} - wanted;
    return distance >= 0 ? distance : kBelow - distance;
}

template <class RankOfMinor>
std::optional<std::size_t> Choose(
    const std::vector<AvailableTypeLibrary>& candidates,
    const TypeLibraryRequest& request,
    RankOfMinor rankOfMinor) {
    std::optional<std::size_t> chosen;
    std::pair<Rank, Rank> best;
    for (std::size_t index = 0; index < candidates.size(); ++index) {
        const AvailableTypeLibrary& candidate = candidates[index];
        const Rank minor = rankOfMinor(candidate.MinorVersion, request.MinorVersion);
        if (candidate.MajorVersion != request.MajorVersion || minor == kUnfit ||
            !modTextCase::Equal(candidate.Guid, request.Guid)) {
            continue;
        }
        const std::pair<Rank, Rank> rank(minor, RankOfLanguage(candidate.Lcid, request.Lcid));
        if (!chosen || rank < best) {
            chosen = index;
            best = rank;
        }
    }
    return chosen;
}

}  // namespace

std::optional<std::size_t>
Registered(const std::vector<AvailableTypeLibrary>& candidates, const TypeLibraryRequest& request) {
    return Choose(candidates, request, RankAsRegistered);
}

std::optional<std::size_t>
Nearest(const std::vector<AvailableTypeLibrary>& candidates, const TypeLibraryRequest& request) {
    return Choose(candidates, request, RankByDistance);
}

}  // namespace dorvik::modTypeLibraryChoice
