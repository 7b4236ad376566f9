#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace dorvik {

class VB6ParserState;
class Variant;

/// Writes the lines of the review log that are about the current event, rule and objects. The log itself is opened
/// and closed by the `ResultsManager`.
class ReviewLog {
public:
    /// REQUIRES: the state outlives this object.
    explicit ReviewLog(const VB6ParserState& state) : m_state(state) {}

    /// Writes a line, with the current event and rule as a prefix on request.
    void DumpDebugPrint(std::string_view message, bool withPrefix) const;
    /// Writes all properties and workfields of an object in scope.
    void DumpVirtualObject(std::string_view objectName) const;

    /// A property of an object in scope. If there is none, returns nothing and logs the reason.
    std::optional<Variant>
    FindProperty(std::string_view objectName, std::string_view propertyName) const;
    /// The same as a text, which is empty if there is none.
    std::string PropertyText(std::string_view objectName, std::string_view propertyName) const;

private:
    const VB6ParserState& m_state;
};

}  // namespace dorvik
