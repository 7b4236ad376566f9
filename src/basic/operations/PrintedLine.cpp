#include "basic/operations/PrintedLine.h"

#include "basic/values/Characters.h"
#include "basic/values/MemoryMeter.h"

#include <utility>

namespace dorvik::basic {

void PrintedLine::Append(std::string_view text) {
    MemoryMeter::Current().CheckString(m_text.size() + text.size());
    m_text += text;
    const std::size_t lineEnd = text.rfind('\n');
    if (lineEnd == std::string_view::npos) {
        m_column += modCharacters::Count(text);
    } else {
        m_column = modCharacters::Count(text.substr(lineEnd + 1));
    }
}

void PrintedLine::End() {
    const std::string line = std::exchange(m_text, {});
    m_column = 0;
    m_host.OnDebugPrint(line);
}

}  // namespace dorvik::basic
