#include "workstation/widgets/modSlices.h"

#include <QProgressDialog>
#include <QThread>
#include <QTimer>
#include <gtest/gtest.h>

namespace dorvik::test {

namespace {

TEST(Slices, ShortWorkShowsNoBox) {
    QWidget window;
    std::size_t sum = 0;
    EXPECT_TRUE(modSlices::Run(window, {}, 5, [&](std::size_t number) { sum += number; }));
    EXPECT_EQ(sum, 10U);
    EXPECT_TRUE(window.findChildren<QProgressDialog*>().isEmpty());
}

TEST(Slices, InputIsProcessedWhileLongWorkRuns) {
    QWidget window;
    window.show();
    bool isProcessed = false;
    QTimer::singleShot(0, &window, [&] { isProcessed = true; });
    std::size_t steps = 0;
    EXPECT_TRUE(modSlices::Run(window, {}, 30, [&](std::size_t) {
        QThread::msleep(5);
        ++steps;
    }));
    EXPECT_EQ(steps, 30U);
    EXPECT_TRUE(isProcessed);
}

TEST(Slices, TheUserCancels) {
    QWidget window;
    window.show();
    QTimer cancel;
    QObject::connect(&cancel, &QTimer::timeout, &window, [&window] {
        for (QProgressDialog* const box : window.findChildren<QProgressDialog*>()) {
            box->cancel();
        }
    });
    cancel.start(0);
    std::size_t steps = 0;
    EXPECT_FALSE(modSlices::Run(window, {}, 1000, [&](std::size_t) {
        QThread::msleep(5);
        ++steps;
    }));
    EXPECT_LT(steps, 1000U);
    EXPECT_TRUE(window.findChildren<QProgressDialog*>().isEmpty());
}

}  // namespace

}  // namespace dorvik::test
