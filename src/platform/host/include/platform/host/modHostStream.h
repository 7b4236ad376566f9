#pragma once

#include "platform/host/HostPath.h"

#include <cstddef>
#include <string>
#include <string_view>

/// What is read from begin to end, once, wherever it comes from: an ordinary file, a pipe, a terminal. Reading waits until
/// there is something to read.
namespace dorvik::modHostStream {

constexpr std::size_t kMostBytes = 64 * 1024 * 1024;

/// `path` is what the descriptions of failures name. Raises 75 for a folder, `HostFailure::TooLong` after `kMostBytes`, and
/// as `HostFile` does otherwise.
std::string ReadAll(const HostPath& host, std::string_view path);
/// The stream that the program was started with.
std::string ReadInput();

}  // namespace dorvik::modHostStream
