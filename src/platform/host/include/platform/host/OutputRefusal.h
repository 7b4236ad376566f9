#pragma once

#include "base/BasicError.h"
#include "platform/host/HostPath.h"

#include <string>
#include <string_view>

namespace dorvik {

/// Something is in the way of a file of this program's making: a link, a pipe, a folder where a file is
/// wanted. Number 75; the description is a whole sentence for a person, with the place and the remedy.
class OutputRefusal final : public BasicError {
public:
    /// `what` is wrong with the place, after its path: "is a link, and nothing is written through links".
    OutputRefusal(const HostPath& place, std::string_view what);

    /// The sentence of such a failure; empty for any other.
    static std::string SentenceIn(const BasicError& failure);
};

/// Checks what is where this program is about to write, without opening it: a pipe would block, a device
/// might act, and a link leads to a place that no one chose.
namespace modObstacles {

/// Raises an `OutputRefusal` unless nothing is there, or an ordinary file that is no link.
void NeedFile(const HostPath& place);
/// The same for a folder.
void NeedFolder(const HostPath& place);

}  // namespace modObstacles

}  // namespace dorvik
