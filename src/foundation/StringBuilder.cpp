#include "foundation/StringBuilder.h"

#include <algorithm>

#include "base/BasicError.h"
#include "foundation/Trap.h"

namespace dorvik {

std::string StringBuilder::Text() const {
    return m_buffer.substr(0, m_position - 1);
}

void StringBuilder::Initialise(std::int32_t initialSize, std::int32_t increment) {
    m_buffer.assign(static_cast<std::size_t>(std::max(initialSize, 0)), '\0');
    m_blockSize = increment;
}

void StringBuilder::Append(std::string_view text) {
    Trap({"StringBuilder", "Append"}, [&] { Overwrite(text); });
}

void StringBuilder::Overwrite(std::string_view text) {
    if (text.size() + m_position > m_buffer.size()) {
        m_buffer.append(static_cast<std::size_t>(std::max(m_blockSize, 0)), '\0');
    }
    if (text.empty()) {
        return;
    }
    if (m_position > m_buffer.size()) {
        RaiseRuntimeError(runtimeerror::kInvalidProcedureCall);
    }
    const std::size_t written = std::min(text.size(), m_buffer.size() - (m_position - 1));
    m_buffer.replace(m_position - 1, written, text.substr(0, written));
    m_position += text.size();
}

}  // namespace dorvik
