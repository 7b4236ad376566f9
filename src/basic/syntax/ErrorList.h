#pragma once

#include "ParseErrorNumber.h"
#include "basic/syntax/CompileError.h"

#include <string>
#include <string_view>
#include <vector>

namespace dorvik::basic {

/// The compile errors of a module, at most one for a line: the first that was found there.
class ErrorList {
public:
    /// `detail` follows the number's own text, after ": ".
    void Add(std::int32_t number, SourcePlace place, std::string_view detail = {});
    /// With a text of its own.
    void AddText(std::int32_t number, SourcePlace place, std::string text);
    bool IsEmpty() const { return m_errors.empty(); }
    /// In the order of the text; the list is empty then.
    std::vector<CompileError> Take();

private:
    std::vector<CompileError> m_errors;
};

}  // namespace dorvik::basic
