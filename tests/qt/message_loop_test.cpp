// During a long check, the window reacts.
#include <QStatusBar>
#include <algorithm>
#include <limits>

#include "qt/paint_counter.h"
#include "qt/window_test.h"

namespace velmora::tests {
namespace {

struct MessageLoopTest : WindowTest {
    MessageLoopTest() { start(); }

    void watch(int rows) {
        ListView& list = form1().ListView1;
        list.Clear();
        for (int i = 0; i < rows; ++i) list.Add("C:\\").setChecked(true);
        checkAtEachTick();
    }
    /// Lets each question of a check to its drive take so many microseconds.
    void slowDrives(int microseconds) {
        machine.onCall = [this, microseconds](const std::string& call) {
            if (!call.starts_with("IsReady")) return;
            if (++asked == clickAt)
                QMetaObject::invokeMethod(window(), onClick, Qt::QueuedConnection);
            QElapsedTimer timer;
            timer.start();
            while (timer.nsecsElapsed() < microseconds * 1000) {
            }
        };
    }
    int asked = 0;  // rows that a check has come to
    int clickAt = 0;
    std::function<void()> onClick;  // posted when the check has come to that row
};

TEST_F(MessageLoopTest, PauseTakesEffectBetweenTwoRowsInTheMiddleOfAPass) {
    watch(5000);
    slowDrives(100);
    click("Toolbar1(1)");  // starts
    ASSERT_EQ(form1().cmdPause.Caption(), "Pause Watch");
    int paused = 0;
    bool checking = false;
    form1().cmdPause.Click.connect([&] {
        paused = asked;
        checking = program->forms().globals.bChecking;
    });
    clickAt = 500;
    onClick = [this] {
        QTest::mouseClick(find<QAbstractButton>("Toolbar1(1)"), Qt::LeftButton);
        EXPECT_EQ(form1().Caption(), "Velmora - Watching Paused.");
        EXPECT_EQ(form1().cmdPause.Caption(), "Start Watch");
        EXPECT_TRUE(action("mnuPause") != nullptr && form1().mnuPause.Checked());
        EXPECT_FALSE(form1().Timer1.Enabled());
    };
    machine.advance(10'000);
    program->timers().fireDue();
    EXPECT_TRUE(checking);
    EXPECT_GE(paused, 500);
    EXPECT_LT(paused, 1500);
    EXPECT_EQ(asked, 5000);  // the pass goes on: pausing is for those to come
}

TEST_F(MessageLoopTest, CancelInTheProgressWindowStopsThePass) {
    watch(5000);
    slowDrives(100);
    form1().lstAct.setSelected(act::progressDialog, true);
    bool done = false;
    QTimer looks;
    QObject::connect(&looks, &QTimer::timeout, window(), [&] {
        auto* cancel = find<QPushButton>("cmdCancel", "Icon0");
        if (cancel == nullptr || !cancel->isVisible() || std::exchange(done, true)) return;
        QTest::mouseClick(cancel, Qt::LeftButton);
    });
    looks.start(0);
    machine.advance(10'000);
    program->timers().fireDue();
    EXPECT_TRUE(done);
    EXPECT_GT(asked, 0);
    EXPECT_LT(asked, 1000);
    settle();
    EXPECT_FALSE(program->window("Icon0")->isVisible());
}

// Between two frames no event is handled, so nothing can have changed a drive.
TEST_F(MessageLoopTest, ADriveIsMeasuredForManyRowsWhileNothingRuns) {
    watch(1000);
    machine.log.clear();
    machine.advance(10'000);
    program->timers().fireDue();
    EXPECT_EQ(form1().ListView1.Count(), 1000);
    EXPECT_GT(machine.log.countOf("GetDrive C:"), 0);
    EXPECT_LT(machine.log.countOf("GetDrive C:"), 500);
}

TEST_F(MessageLoopTest, ADriveIsMeasuredAnewWhenSomethingCanHaveRun) {
    watch(20);
    slowDrives(17'000);  // longer than a frame
    machine.log.clear();
    machine.advance(10'000);
    program->timers().fireDue();
    EXPECT_EQ(machine.log.countOf("GetDrive C:"), 20);
}

// No handler may run within a listing, so nothing of the event loop does.
TEST_F(MessageLoopTest, ALongListingIsSaidAndDrawnWhileNothingElseRuns) {
    auto* bar = window()->findChild<QStatusBar*>();
    ASSERT_NE(bar, nullptr);
    machine.folders.insert("c:\\data");
    machine.listings["C:\\data"].assign(500, {.cFileName = "a file"});
    ListView& list = form1().ListView1;
    list.Clear();
    list.Add("C:\\data").setChecked(true);
    form1().lstEvt.setSelected(evt::modification, true);
    checkAtEachTick();
    settle();
    PaintCounter paints(bar);
    bool ranBetween = false;
    QElapsedTimer sinceFirst;
    qint64 waited = 0;
    QString said;
    machine.onCall = [&](const std::string& call) {
        if (!call.starts_with("FindNextFileA") || !said.isEmpty()) return;
        if (!sinceFirst.isValid()) {
            QTimer::singleShot(0, window(), [&] { ranBetween = said.isEmpty(); });
            paints.count = 0;
            sinceFirst.start();
        }
        QElapsedTimer timer;
        timer.start();
        while (timer.nsecsElapsed() < 2'000'000) {  // as of a slow share
        }
        if (bar->currentMessage().isEmpty()) return;
        said = bar->currentMessage();
        waited = sinceFirst.elapsed();
        EXPECT_GT(paints.count, 0);
    };
    machine.advance(10'000);
    program->timers().fireDue();
    EXPECT_TRUE(said.startsWith("Listing C:\\data: ")) << said.toStdString();
    EXPECT_TRUE(said.endsWith(" entries so far")) << said.toStdString();
    EXPECT_GE(waited, 150);  // not at once: that would be a flicker at each check
    EXPECT_FALSE(ranBetween);
    QTRY_VERIFY(bar->currentMessage().isEmpty());
}

// The longest time that an event waited. Each posts the next, so that there is one waiting at any
// time.
struct WaitingEvents {
    WaitingEvents() {
        clock_.start();
        post();
    }
    void handle() {
        note();
        ++handled;
        QTimer::singleShot(3, &context_, [this] { post(); });
    }
    void post() {
        posted_ = clock_.elapsed();
        QMetaObject::invokeMethod(
            &context_, [this] { handle(); }, Qt::QueuedConnection);
    }
    void note() { longest = std::max(longest, clock_.elapsed() - posted_); }
    qint64 elapsed() const { return clock_.elapsed(); }

    qint64 longest = 0;
    int handled = 0;

  private:
    QObject context_;  // with it goes what is posted
    QElapsedTimer clock_;
    qint64 posted_ = 0;
};

TEST_F(MessageLoopTest, NoEventWaitsLongDuringACheckOfAThousandRows) {
    watch(1000);
    slowDrives(500);
    // Other programs may hold up one check.
    qint64 best = std::numeric_limits<qint64>::max();
    for (int attempt = 0; attempt < 3 && best > 100; ++attempt) {
        WaitingEvents events;
        machine.advance(10'000);
        program->timers().fireDue();
        events.note();
        const qint64 whole = events.elapsed();
        EXPECT_GE(whole, 500);
        EXPECT_GT(events.handled, whole / 100);
        best = std::min(best, events.longest);
    }
    EXPECT_LE(best, 100);
}

TEST_F(MessageLoopTest, TheRowsThatAreCheckedAreSeenWhileTheCheckGoesOn) {
    watch(1000);
    slowDrives(100);
    std::string seen;
    QTimer::singleShot(5, window(), [&] {
        seen = find("StatusBar1(2)")->property("text").toString().toStdString();
    });
    machine.advance(10'000);
    program->timers().fireDue();
    EXPECT_EQ(seen, "Checking: C:\\");
}

}  // namespace
}  // namespace velmora::tests
