#pragma once

#include "workstation/controls/Observable.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace dorvik {

/// The tabs of a form, numbered from 1. `Shown` is the tab in front, 0 before the first is.
class TabStrip {
public:
    explicit TabStrip(std::vector<std::string> captions) : m_captions(std::move(captions)) {}

    std::int16_t Count() const { return static_cast<std::int16_t>(m_captions.size()); }
    const std::vector<std::string>& Captions() const { return m_captions; }
    /// The tab after the one in front; after the last one the first.
    std::int16_t Next() const {
        return Shown.Value() >= Count() ? std::int16_t{1}
                                        : static_cast<std::int16_t>(Shown.Value() + 1);
    }

    Observable<std::int16_t> Shown;

private:
    std::vector<std::string> m_captions;
};

}  // namespace dorvik
