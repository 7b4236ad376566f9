#include "workstation/desk/modFuzzySearch.h"

#include "base/modTextCase.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace dorvik::modFuzzySearch {

namespace {

constexpr int kWordStart = 8;
constexpr int kNeighbour = 6;
constexpr int kLetter = 1;
constexpr int kWholeText = 40;  // what is sought is there as it was typed
constexpr int kUnreached = -1;

bool IsLetter(char byte) {
    const auto value = static_cast<unsigned char>(byte);
    return value >= 0x80 || (value >= '0' && value <= '9') || (value >= 'a' && value <= 'z');
}

std::string Letters(std::string_view text) {
    std::string letters;
    std::ranges::copy_if(text, std::back_inserter(letters), IsLetter);
    return letters;
}

int WorthAt(std::string_view text, std::size_t place) {
    return place == 0 || !IsLetter(text[place - 1]) ? kLetter + kWordStart : kLetter;
}

/// The best sum over all ways to find the letters in their order.
int BestSum(std::string_view text, std::string_view letters) {
    std::vector<int> before(text.size(), 0);  // the best that ends at or before a place
    std::vector<int> endsBefore(text.size(), kUnreached);
    for (std::size_t letter = 0; letter < letters.size(); ++letter) {
        std::vector<int> best(text.size(), kUnreached);
        std::vector<int> ends(text.size(), kUnreached);
        for (std::size_t place = letter; place < text.size(); ++place) {
            if (text[place] == letters[letter]) {
                const int apart = letter == 0 ? 0 : before[place - 1];
                const int beside = letter == 0 || endsBefore[place - 1] == kUnreached
                                       ? kUnreached
                                       : endsBefore[place - 1] + kNeighbour;
                const int sum = std::max(apart, beside);
                ends[place] = sum == kUnreached ? kUnreached : sum + WorthAt(text, place);
            }
            best[place] = std::max(ends[place], place == 0 ? kUnreached : best[place - 1]);
        }
        before = std::move(best);
        endsBefore = std::move(ends);
    }
    return before.empty() ? kUnreached : before.back();
}

}  // namespace

std::optional<int> Score(std::string_view text, std::string_view sought) {
    const std::string lower = modTextCase::ToLower(text);
    const std::string lowerSought = modTextCase::ToLower(sought);
    const std::string letters = Letters(lowerSought);
    if (letters.empty()) {
        return 0;
    }
    const int sum = BestSum(lower, letters);
    if (sum == kUnreached) {
        return std::nullopt;
    }
    const bool isThere = lower.find(lowerSought) != std::string::npos;
    return isThere ? sum + kWholeText : sum;
}

std::vector<std::size_t> Find(const std::vector<std::string>& texts, std::string_view sought) {
    std::vector<std::pair<int, std::size_t>> found;
    for (std::size_t place = 0; place < texts.size(); ++place) {
        if (const std::optional<int> score = Score(texts[place], sought)) {
            found.emplace_back(*score, place);
        }
    }
    std::ranges::stable_sort(
        found, [](const auto& left, const auto& right) { return left.first > right.first; });
    std::vector<std::size_t> places;
    places.reserve(found.size());
    std::ranges::transform(
        found, std::back_inserter(places), [](const auto& item) { return item.second; });
    return places;
}

}  // namespace dorvik::modFuzzySearch
