#pragma once

#include "workstation/controls/Event.h"
#include "workstation/controls/Observable.h"

#include <cstdint>

namespace dorvik {

/// A bar between two parts of a container, which the user moves. Lengths in twips.
class Splitter {
public:
    static constexpr std::int32_t kWidth = 30;
    /// How close it comes to either end of its container.
    static constexpr std::int32_t kLeast = 1000;

    std::int32_t Width() const { return kWidth; }
    std::int32_t ContainerWidth() const { return m_containerWidth; }
    /// The container has another size; the bar keeps its part of the width.
    void Resize(std::int32_t containerWidth, std::int32_t height);
    /// Where the bar is to be, as part of the container's width.
    void SetFraction(double fraction);
    /// The position as part of the container's width; nothing is known while that is 0.
    double Fraction() const { return m_fraction; }

    // What the user does; a bar that is disabled does nothing.
    void Enter() const;
    /// Lets go of the bar at a position; one that is too close to an end is not taken.
    void Release(std::int32_t position);

    Observable<std::int32_t> Left;
    Observable<std::int32_t> Top;
    Observable<std::int32_t> Height;
    Observable<bool> Enabled{true};
    Event<> InSplitArea;
    Event<std::int32_t> SplitterMoved;  // the position that was taken

private:
    std::int32_t m_containerWidth = 0;
    double m_fraction = 0;
};

}  // namespace dorvik
