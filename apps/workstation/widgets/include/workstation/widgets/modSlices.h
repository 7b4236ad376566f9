#pragma once

#include <QString>

#include <cstddef>
#include <functional>

class QWidget;

/// Work on many things that must not hold up the user.
namespace dorvik::modSlices {

/// Calls `step` with each number below the count. Input is processed every few milliseconds, for all but the window of
/// the parent; work that takes longer is shown in a box with that text, which can cancel it. False where the user does.
bool Run(
    QWidget& parent,
    const QString& text,
    std::size_t count,
    const std::function<void(std::size_t)>& step);

}  // namespace dorvik::modSlices
