#include "workstation/widgets/modSlices.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProgressDialog>

#include <memory>

namespace dorvik::modSlices {

namespace {

constexpr int kMillisecondsBetweenInput = 40;
constexpr int kMillisecondsUntilShown = 200;

std::unique_ptr<QProgressDialog> MakeBox(QWidget& parent, const QString& text, std::size_t count) {
    auto box = std::make_unique<QProgressDialog>(
        text, QStringLiteral("Cancel"), 0, static_cast<int>(count), &parent);
    box->setWindowTitle(QStringLiteral("Dorvik Workstation"));
    box->setWindowModality(Qt::WindowModal);
    box->setMinimumDuration(kMillisecondsUntilShown);
    return box;
}

}  // namespace

bool Run(
    QWidget& parent,
    const QString& text,
    std::size_t count,
    const std::function<void(std::size_t)>& step) {
    std::unique_ptr<QProgressDialog> box;
    QElapsedTimer sinceInput;
    sinceInput.start();
    for (std::size_t number = 0; number < count; ++number) {
        step(number);
        if (sinceInput.elapsed() < kMillisecondsBetweenInput) {
            continue;
        }
        if (!box) {
            box = MakeBox(parent, text, count);
        }
        box->setValue(static_cast<int>(number));
        if (!box->isVisible()) {  // the window would take input that the box keeps from it
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        }
        if (box->wasCanceled()) {
            return false;
        }
        sinceInput.restart();
    }
    return true;
}

}  // namespace dorvik::modSlices
