#include "foundation/text/StringBuilder.h"

#include "base/BasicError.h"
#include "foundation/log/Trap.h"

#include <algorithm>

namespace dorvik {

std::string StringBuilder::Text() const {
    return m_buffer.substr(0, static_cast<std::size_t>(m_position) - 1);
}

void StringBuilder::Initialise(std::int32_t initialSize, std::int32_t increment) {
    m_buffer.assign(static_cast<std::size_t>(initialSize), '\0');
    m_blockSize = increment;
}

void StringBuilder::Append(std::string_view text) {
    Trap({"StringBuilder", "Append"}, [&] {
        const std::size_t needed = text.size() + static_cast<std::size_t>(m_position);
        // Required: counted with the position, a text that just fits takes a block as well.
        if (needed > m_buffer.size()) {
            m_buffer.append(static_cast<std::size_t>(m_blockSize), '\0');
        }
        Overwrite(text);
        m_position += static_cast<std::int32_t>(text.size());
    });
}

void StringBuilder::Overwrite(std::string_view text) {
    const std::size_t begin = static_cast<std::size_t>(m_position) - 1;
    if (begin >= m_buffer.size()) {
        RaiseRuntimeError(runtimeerror::kInvalidProcedureCall);
    }
    const std::size_t size = std::min(text.size(), m_buffer.size() - begin);
    m_buffer.replace(begin, size, text.substr(0, size));
}

}  // namespace dorvik
