// Translucency and staying on top.
#include "shell/window_effects.h"

#include <gtest/gtest.h>

#include "shell/surface_rig.h"

namespace velmora::tests {
namespace {

// RGB(255, 0, 255), as the system numbers it.
constexpr int magenta = 255 + 255 * 65536;

std::string attributes(int alpha, int flags) {
    return "SetLayeredWindowAttributes Form1 " + std::to_string(magenta) + ' ' +
           std::to_string(alpha) + ' ' + std::to_string(flags);
}

struct WindowEffectsTest : testing::Test, SurfaceRig {
    /// The alpha that a level sets, followed by the flags, as in the last call.
    std::string lastAttributes() { return windowCalls.empty() ? "" : windowCalls.back(); }

    WindowEffects effects{forms.form1, forms.globals, surface.user32};
};

TEST_F(WindowEffectsTest, ALevelReadsTheStyleAddsTheLayerAndSetsColourAndAlpha) {
    surface.user32.extendedStyle["Form1"] = 0x100;
    EXPECT_TRUE(effects.SetTranslucency(form1, 65));
    // 65 * 2.55 = 165.75; 0x80100 = 524544.
    EXPECT_EQ(windowCalls, (Texts{"GetWindowLongA Form1 -20", "SetWindowLongA Form1 -20 524544",
                                  attributes(166, 3)}));
    EXPECT_EQ(surface.user32.extendedStyle["Form1"], 0x80100);
}

TEST_F(WindowEffectsTest, ALevelIsAppliedToTheFormItNames) {
    effects.SetTranslucency(forms.frmAbout, 50);
    EXPECT_EQ(surface.user32.countOf("GetWindowLongA frmAbout"), 1);
    EXPECT_EQ(surface.user32.extendedStyle["frmAbout"], 0x80000);
}

TEST_F(WindowEffectsTest, LevelsOutside20To100ChangeNothing) {
    for (const int level : {19, 101, 0, -1, 1000, -2147483647}) {
        EXPECT_FALSE(effects.SetTranslucency(form1, level)) << level;
    }
    EXPECT_TRUE(windowCalls.empty());
}

TEST_F(WindowEffectsTest, TheLeastLevelIs20) {
    EXPECT_TRUE(effects.SetTranslucency(form1, 20));
    EXPECT_EQ(lastAttributes(), attributes(51, 3));
}

TEST_F(WindowEffectsTest, Level100IsOpaqueWithTheKeyColourOnly) {
    EXPECT_TRUE(effects.SetTranslucency(form1, 100));
    EXPECT_EQ(lastAttributes(), attributes(255, 1));
    effects.SetTranslucency(form1, 99);
    // 252.45
    EXPECT_EQ(lastAttributes(), attributes(252, 3));
}

TEST_F(WindowEffectsTest, HalvesOfAlphaGoToTheEvenNumber) {
    effects.SetTranslucency(form1, 50);  // 127.5
    EXPECT_EQ(lastAttributes(), attributes(128, 3));
    effects.SetTranslucency(form1, 30);  // 76.5
    EXPECT_EQ(lastAttributes(), attributes(76, 3));
}

TEST_F(WindowEffectsTest, PureMagentaIsTheKeyAtEachLevel) {
    for (int level = 20; level <= 100; ++level) {
        effects.SetTranslucency(form1, level);
        const std::string& call = lastAttributes();
        EXPECT_TRUE(call.starts_with("SetLayeredWindowAttributes Form1 16711935 ")) << call;
        const int flags = call.back() - '0';
        EXPECT_EQ(flags & 1, 1) << call;
    }
}

TEST_F(WindowEffectsTest, TheButtonTogglesBetweenHalfAndOpaque) {
    form1.Command9.userClick();
    EXPECT_EQ(globals.iTranslucency, 50);
    EXPECT_EQ(lastAttributes(), attributes(128, 3));
    form1.Command9.userClick();
    EXPECT_EQ(globals.iTranslucency, 100);
    EXPECT_EQ(lastAttributes(), attributes(255, 1));
}

TEST_F(WindowEffectsTest, TheButtonGoesToHalfFromEveryOtherLevel) {
    globals.iTranslucency = 80;
    form1.Command9.userClick();
    EXPECT_EQ(globals.iTranslucency, 50);
}

TEST_F(WindowEffectsTest, TheMenusApplyTheirLevelsAndStoreNothing) {
    globals.iTranslucency = 50;
    form1.mnuFadeH.userClick();
    EXPECT_EQ(lastAttributes(), attributes(166, 3));
    form1.mnuFadeP.userClick();
    EXPECT_EQ(lastAttributes(), attributes(204, 3));
    form1.mnuFadeN.userClick();
    EXPECT_EQ(lastAttributes(), attributes(255, 1));
    EXPECT_EQ(globals.iTranslucency, 50);
}

TEST_F(WindowEffectsTest, TheCheckBoxKeepsTheWindowOnTopWithItsPlaceInPixels) {
    form1.moveTo(150, 300);
    form1.setSize(1500, 3000);
    form1.chkOnTop.userClick();
    EXPECT_EQ(windowCalls, Texts{"SetWindowPos Form1 -1 10 20 100 200 3"});
    EXPECT_TRUE(form1.mnuStayOnTop.Checked());
    form1.chkOnTop.userClick();
    EXPECT_EQ(windowCalls.back(), "SetWindowPos Form1 -2 10 20 100 200 3");
    EXPECT_EQ(windowCalls.size(), 2u);
    EXPECT_FALSE(form1.mnuStayOnTop.Checked());
}

TEST_F(WindowEffectsTest, TheMenuSetsTheCheckBoxAndItsOwnMark) {
    form1.mnuStayOnTop.userClick();
    EXPECT_TRUE(form1.chkOnTop.ticked());
    EXPECT_TRUE(form1.mnuStayOnTop.Checked());
    EXPECT_EQ(windowCalls, Texts{"SetWindowPos Form1 -1 0 0 0 0 3"});
    form1.mnuStayOnTop.userClick();
    EXPECT_FALSE(form1.chkOnTop.ticked());
    EXPECT_FALSE(form1.mnuStayOnTop.Checked());
    EXPECT_EQ(windowCalls.back(), "SetWindowPos Form1 -2 0 0 0 0 3");
    EXPECT_EQ(windowCalls.size(), 2u);
}

TEST_F(WindowEffectsTest, AQuestionDropsTheWindowAndRestoresItOnlyWhenItStaysOnTop) {
    effects.drop();
    effects.restore();
    EXPECT_EQ(windowCalls, Texts{"SetWindowPos Form1 -2 0 0 0 0 3"});
    form1.chkOnTop.setValue(1);
    windowCalls.clear();
    effects.drop();
    EXPECT_TRUE(form1.chkOnTop.ticked());
    effects.restore();
    EXPECT_EQ(windowCalls,
              (Texts{"SetWindowPos Form1 -2 0 0 0 0 3", "SetWindowPos Form1 -1 0 0 0 0 3"}));
}

TEST_F(WindowEffectsTest, AnyFailedCallIsIgnoredAndTheRestIsStillDone) {
    constexpr int callsOfARound = 4;
    for (int n = 1; n <= callsOfARound; ++n) {
        windowCalls.clear();
        globals.iTranslucency = 100;
        form1.chkOnTop.setDesignValue(0);
        surface.user32.failCall(n);
        EXPECT_NO_THROW({
            form1.Command9.userClick();
            form1.chkOnTop.userClick();
        }) << n;
        EXPECT_EQ(windowCalls.size(), 4u) << n;
        EXPECT_EQ(globals.iTranslucency, 50) << n;
        EXPECT_TRUE(form1.chkOnTop.ticked()) << n;
        EXPECT_TRUE(host.boxes.empty()) << n;
    }
}

}  // namespace
}  // namespace velmora::tests
