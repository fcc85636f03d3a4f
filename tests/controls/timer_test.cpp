#include "controls/timer.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "controls/control_properties.h"
#include "controls/form.h"

namespace velmora::tests {
namespace {

struct TimerTest : testing::Test {
    Form form{"Form1"};
    Timer timer{form, "Timer1", 5000, false};
    Count<Notice<>> restarts{timer.Restarted};
};

TEST_F(TimerTest, BeginsAsDesigned) {
    EXPECT_EQ(timer.Interval(), 5000);
    EXPECT_FALSE(timer.Enabled());
    EXPECT_TRUE(Timer(form, "Timer2", 1, true).Enabled());
}

TEST_F(TimerTest, RestartsWithANewIntervalAndWithThePresentOne) {
    timer.setInterval(10000);
    timer.setInterval(10000);
    EXPECT_EQ(timer.Interval(), 10000);
    EXPECT_EQ(restarts, 2);
}

TEST_F(TimerTest, RestartsWhenItIsSwitched) {
    timer.setEnabled(false);
    EXPECT_EQ(restarts, 0);
    timer.setEnabled(true);
    timer.setEnabled(true);
    EXPECT_EQ(restarts, 1);
}

TEST_F(TimerTest, IsOnAgainAfterAFailedHandlerThatSwitchedItOff) {
    timer.setEnabled(true);
    timer.Tick.connect([this] {
        timer.setEnabled(false);
        throw RuntimeError(error::diskFull);
    });
    EXPECT_EQ(errorOf([&] { timer.fire(); }), error::diskFull);
    EXPECT_TRUE(timer.Enabled());
}

TEST_F(TimerTest, IsLeftAsTheHandlerLeftItOtherwise) {
    timer.Tick.connect([this] { timer.setEnabled(false); });
    timer.setEnabled(true);
    timer.fire();
    EXPECT_FALSE(timer.Enabled());
    timer.Tick.connect([] { throw RuntimeError(error::diskFull); });
    EXPECT_EQ(errorOf([&] { timer.fire(); }), error::diskFull);
    EXPECT_FALSE(timer.Enabled()) << "it was off when the handler began";
}

TEST_F(TimerTest, TakesNoNegativeInterval) {
    EXPECT_EQ(errorOf([&] { timer.setInterval(-1); }), error::invalidPropertyValue);
    timer.setInterval(0);
    EXPECT_EQ(timer.Interval(), 0);
}

TEST_F(TimerTest, ShowsItsPropertiesForReadingOnly) {
    EXPECT_EQ(get(timer, "Enabled"), "false");
    EXPECT_EQ(get(timer, "Interval"), "5000");
    EXPECT_TRUE(readOnly(timer, "Enabled"));
    EXPECT_TRUE(readOnly(timer, "Interval"));
    EXPECT_EQ(timer.mainProperty(), "Enabled");
}

}  // namespace
}  // namespace velmora::tests
