#include "workstation/forms/EventLoopInput.h"

#include <QEventLoop>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace dorvik::test {
namespace {

void WaitForInput(EventLoopInput& input) {
    while (!input.InputIsWaiting()) {
        QTest::qSleep(1);
    }
}

TEST(EventLoopInput, InputIsProcessedOnlyFromTimeToTime) {
    EventLoopInput input;
    WaitForInput(input);
    int events = 0;
    QTimer::singleShot(0, qApp, [&] { ++events; });
    input.ProcessInput();
    EXPECT_EQ(events, 1);
    EXPECT_FALSE(input.InputIsWaiting());
    WaitForInput(input);
}

TEST(EventLoopInput, ATurnInsideATurnDoesNothing) {
    EventLoopInput input;
    int inner = 0;
    QTimer::singleShot(0, qApp, [&] {
        QTimer::singleShot(0, qApp, [&] { ++inner; });
        WaitForInput(input);
        input.ProcessInput();
        EXPECT_EQ(inner, 0);
        EXPECT_FALSE(input.InputIsWaiting());
    });
    input.ProcessInput();
    input.ProcessInput();
    EXPECT_EQ(inner, 1);
}

TEST(EventLoopInput, AModalWindowThatIsOpenedInATurnHasTurnsOfItsOwn) {
    EventLoopInput input;
    int inner = 0;
    QTimer::singleShot(0, qApp, [&] {
        QEventLoop modal;
        QTimer::singleShot(0, &modal, [&] {
            QTimer::singleShot(0, qApp, [&] { ++inner; });
            input.ProcessInput();
            EXPECT_EQ(inner, 1);
            modal.quit();
        });
        modal.exec();
    });
    input.ProcessInput();
    EXPECT_EQ(inner, 1);
}

}  // namespace
}  // namespace dorvik::test
