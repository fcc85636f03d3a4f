// The animation beside the list.
#include "monitor/check_rig.h"
#include "monitor/space_statistics.h"

namespace velmora::tests {
namespace {

constexpr const char* spin = "C:\\Program Files\\Velmora\\spin.avi";
constexpr const char* alert = "C:\\Program Files\\Velmora\\alert.avi";

struct AnimationRig : Rig {
    Animation& animation = form1.Animation1;

    AnimationRig() {
        for (const char* clip : {spin, alert}) machine.files[clip] = "clip";
    }
};

TEST(Animation, TheFirstNumberChoosesTheClip) {
    AnimationRig rig;
    rig.statistics.prcSrvAnimation(0, 0);
    EXPECT_EQ(rig.animation.File(), spin);
    rig.statistics.prcSrvAnimation(1, 0);
    EXPECT_EQ(rig.animation.File(), alert);
}

TEST(Animation, OtherNumbersOpenNothing) {
    AnimationRig rig;
    for (const float clip : {-1.0F, 0.5F, 2.0F, 1.001F}) {
        rig.statistics.prcSrvAnimation(clip, 1);
        EXPECT_EQ(rig.animation.File(), "") << clip;
    }
    EXPECT_EQ(rig.machine.log.count(), 0);
    EXPECT_TRUE(rig.animation.Playing());
}

TEST(Animation, AClipThatIsMissingIsNotOpened) {
    AnimationRig rig;
    rig.statistics.prcSrvAnimation(0, 1);
    rig.machine.files.erase(alert);
    rig.statistics.prcSrvAnimation(1, 1);
    EXPECT_EQ(rig.animation.File(), spin);
    EXPECT_TRUE(rig.animation.Playing());
    EXPECT_EQ(rig.machine.log.calls().back(), std::string("FileExists ") + alert);
}

TEST(Animation, AClipIsLookedForOnce) {
    AnimationRig rig;
    for (int row = 0; row < 100; ++row) rig.statistics.prcSrvAnimation(1, 0);
    EXPECT_EQ(rig.machine.log.countOf("FileExists"), 1);
    rig.statistics.prcSrvAnimation(0, 0);
    rig.statistics.prcSrvAnimation(1, 0);
    EXPECT_EQ(rig.machine.log.countOf("FileExists"), 2);
    EXPECT_EQ(rig.animation.File(), alert);
}

TEST(Animation, TheSecondNumberPlaysOrStops) {
    AnimationRig rig;
    rig.statistics.prcSrvAnimation(1, 1);
    EXPECT_TRUE(rig.animation.Playing());
    rig.statistics.prcSrvAnimation(1, 2);
    EXPECT_TRUE(rig.animation.Playing());
    rig.statistics.prcSrvAnimation(0, 0);
    EXPECT_FALSE(rig.animation.Playing());
    rig.statistics.prcSrvAnimation(0, -1);
    EXPECT_FALSE(rig.animation.Playing());
}

TEST(Animation, ACheckPlaysTheAlertClipOnAShortageAndStopsOnTheOtherClip) {
    AnimationRig rig;
    rig.load();
    rig.drive("C:", 5, 100);
    rig.row("C:\\");
    rig.form1.txtSpace.setText("50");
    bool played = false;
    rig.form1.Animation1.Changed.connect(
        [&] { played = played || (rig.animation.Playing() && rig.animation.File() == alert); });
    rig.check();
    EXPECT_TRUE(played);
    EXPECT_FALSE(rig.animation.Playing());
    EXPECT_EQ(rig.animation.File(), spin);
}

}  // namespace
}  // namespace velmora::tests
