#include "basic/program/BuiltinFunction.h"

#include <algorithm>

namespace dorvik::basic {

namespace {

/// The next name of a list of parameters, cut from its front.
std::string_view TakeName(std::string_view& parameters) {
    const std::size_t end = std::min(parameters.find(' '), parameters.size());
    const std::string_view name = parameters.substr(0, end);
    parameters.remove_prefix(std::min(end + 1, parameters.size()));
    return name;
}

constexpr std::string_view kAnyNumber = "...";

}  // namespace

int BuiltinFunction::LeastArguments() const {
    int least = 0;
    for (std::string_view rest = Parameters; !rest.empty();) {
        const std::string_view name = TakeName(rest);
        if (name.front() == '?' || name == kAnyNumber) {
            break;
        }
        ++least;
    }
    return least;
}

int BuiltinFunction::MostArguments() const {
    int most = 0;
    for (std::string_view rest = Parameters; !rest.empty(); ++most) {
        if (TakeName(rest) == kAnyNumber) {
            return -1;
        }
    }
    return most;
}

}  // namespace dorvik::basic
