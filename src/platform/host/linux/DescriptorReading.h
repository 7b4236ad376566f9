#pragma once

#include <cerrno>
#include <cstddef>
#include <string>

namespace dorvik::modDescriptor {

/// Calls again what a signal has cut off.
template <class Call>
auto Repeated(const Call& call) {
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

enum class Reading { Done, Failed, TooLong };  // failed: errno says why

/// Reads to the end. `expected` bytes are read without growing the buffer.
Reading ReadToEnd(int descriptor, std::size_t expected, std::size_t most, std::string& bytes);

}  // namespace dorvik::modDescriptor
