#include "workstation/controls/Splitter.h"

#include <cmath>

namespace dorvik {

void Splitter::Resize(std::int32_t containerWidth, std::int32_t height) {
    m_containerWidth = containerWidth;
    Height.Set(height);
    SetFraction(m_fraction);
}

void Splitter::SetFraction(double fraction) {
    m_fraction = fraction;
    Left.Set(static_cast<std::int32_t>(std::lround(fraction * m_containerWidth)));
}

void Splitter::Enter() const {
    if (Enabled.Value()) {
        InSplitArea.Raise();
    }
}

void Splitter::Release(std::int32_t position) {
    if (!Enabled.Value() || position < kLeast || position > m_containerWidth - kLeast) {
        return;
    }
    if (m_containerWidth > 0) {
        m_fraction = static_cast<double>(position) / m_containerWidth;
    }
    Left.Set(position);
    SplitterMoved.Raise(position);
}

}  // namespace dorvik
