#include "foundation/lists/StringArrayList.h"

#include "base/modTextCase.h"

#include <algorithm>

namespace dorvik {

void StringArrayList::Sort() {
    Trap({"StringArrayList", "Sort"}, [this] {
        for (std::string* next = MutableBegin(); next != MutableEnd(); ++next) {
            std::string* const place =
                std::find_if(MutableBegin(), next, [&](const std::string& sorted) {
                    return modTextCase::Compare(sorted, *next) >= 0;
                });
            std::rotate(place, next, next + 1);
        }
    });
}

}  // namespace dorvik
