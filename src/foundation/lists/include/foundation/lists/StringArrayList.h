#pragma once

#include "foundation/lists/PlainList.h"

#include <string>

namespace dorvik {

/// A list of texts; `IndexOfValue` compares without regard to case.
class StringArrayList : public PlainList<std::string> {
public:
    /// Sorts ascending without regard to case. Of texts that compare equal, the one that was
    /// later comes first.
    // Required: only the texts move. Selected flags stay at their positions, Dirty is not set.
    void Sort();
};

}  // namespace dorvik
