// What the progress window costs a foreground review: the review of the project that the command line names, results beside
// it, with nothing on the screen and with the window, its input processed meanwhile. Each is a process of its own, in turns.
#include "EmptyScreen.h"
#include "MeasuredProcess.h"
#include "MeasuredReview.h"
#include "criteria/ProgressInfo.h"
#include "criteria/ReviewCriteria.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/modLog.h"
#include "platform/host/ScopedInstall.h"
#include "platform/host/modHostPath.h"
#include "workstation/dialogs/frmProgress.h"
#include "workstation/forms/EventLoopInput.h"
#include "workstation/forms/QtScreen.h"

#include <QApplication>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace dorvik {

namespace {

constexpr int kRounds = 5;

/// The longest time that the event loop was kept waiting.
class Pulse {
public:
    Pulse() {
        m_timer.setInterval(5);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
            const auto now = Clock::now();
            m_longest = std::max(m_longest, now - m_last);
            m_last = now;
        });
        m_timer.start();
    }
    double LongestMilliseconds() const {
        return std::chrono::duration<double, std::milli>(m_longest).count();
    }

private:
    using Clock = std::chrono::steady_clock;

    QTimer m_timer;
    Clock::time_point m_last = Clock::now();
    Clock::duration m_longest{};
};

bool Review(IScreen& screen, const std::string& project, const std::string& rulebase) {
    modLog::Log().SetQuiet(true);
    const auto criteria = CriteriaOf(project, rulebase);
    frmProgress form(screen);
    std::int32_t percentage = 0;
    const Subscription heard = form.ProgressShown.Subscribe([&](const ProgressInfo& progress) {
        percentage = std::max<std::int32_t>(percentage, progress.ReviewPercentage());
    });
    form.CommenceReview(criteria);
    return form.IsClosed() && percentage == 100;
}

QApplication& OffscreenApplication() {
    static int count = 1;
    static char name[] = "ProgressWindowBenchmark";
    static char* arguments[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication application(count, arguments);
    return application;
}

bool ReviewWithoutWindow(const std::string& project, const std::string& rulebase) {
    OffscreenApplication();
    EmptyScreen screen;
    return Review(screen, project, rulebase);
}

bool ReviewInWindow(const std::string& project, const std::string& rulebase) {
    OffscreenApplication();
    QtScreen screen;
    EventLoopInput input;
    const ScopedInstall<IHostInput> installed(input);
    const Pulse pulse;
    const bool isDone = Review(screen, project, rulebase);
    std::printf("    the event loop waited %.0f ms at most\n", pulse.LongestMilliseconds());
    std::fflush(stdout);
    return isDone;
}

double Median(std::vector<double> figures) {
    std::sort(figures.begin(), figures.end());
    return figures[figures.size() / 2];
}

int Measure(const std::string& project) {
    const std::string rulebase = InstalledRulebase();
    std::vector<double> bare;
    std::vector<double> shown;
    for (int round = 0; round < kRounds; ++round) {
        const Measurement without =
            MeasureWork([&] { return ReviewWithoutWindow(project, rulebase); });
        const Measurement with = MeasureWork([&] { return ReviewInWindow(project, rulebase); });
        if (!without.Succeeded || !with.Succeeded) {
            std::puts("The review failed.");
            return 1;
        }
        bare.push_back(without.CpuSeconds);
        shown.push_back(with.CpuSeconds);
    }
    std::printf(
        "CPU s, median of %d: %.3f without a window, %.3f with it: %+.1f %%\n",
        kRounds,
        Median(bare),
        Median(shown),
        (Median(shown) / Median(bare) - 1) * 100);
    return 0;
}

}  // namespace

}  // namespace dorvik

int main(int argc, char* argv[]) {
    if (argc != 2) {
        std::puts("ProgressWindowBenchmark PROJECT.vbp");
        return 2;
    }
    return dorvik::Measure(dorvik::modHostPath::ToProgram(dorvik::modHostPath::FromUser(argv[1])));
}
