#include "reports/format/modSortIndex.h"

#include "base/modTextCase.h"
#include "foundation/text/modUtilFunctions.h"

#include <string>
#include <utility>

namespace dorvik::modSortIndex {

std::vector<std::int32_t> MakeSortIndex(const ObjectKeyedArrayList<VirtualProject>& projects) {
    std::vector<std::pair<std::string, std::int32_t>> sorted;
    for (std::int32_t position = 1; position <= projects.Count(); ++position) {
        std::string name =
            modUtilFunctions::FilenameFromFullPathName(projects.Item(position)->Filename());
        auto place = sorted.end();
        while (place != sorted.begin() && modTextCase::Compare((place - 1)->first, name) > 0) {
            --place;
        }
        sorted.emplace(place, std::move(name), position);
    }
    std::vector<std::int32_t> index;
    index.reserve(sorted.size());
    for (const auto& [name, position] : sorted) {
        index.push_back(position);
    }
    return index;
}

}  // namespace dorvik::modSortIndex
