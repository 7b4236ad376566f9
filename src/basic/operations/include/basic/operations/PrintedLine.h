#pragma once

#include "basic/program/ScriptHost.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace dorvik::basic {

/// The line that `Debug.Print` is writing; the host gets it when it ends.
class PrintedLine {
public:
    /// REQUIRES: the host outlives this.
    explicit PrintedLine(IScriptHost& host) : m_host(host) {}

    bool IsEmpty() const { return m_text.empty(); }
    std::size_t Column() const { return m_column; }  // in characters, from 0
    /// Raises 14 when the line would pass the limit of a string.
    void Append(std::string_view text);
    void End();

private:
    IScriptHost& m_host;
    std::string m_text;
    std::size_t m_column = 0;
};

}  // namespace dorvik::basic
