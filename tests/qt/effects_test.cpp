// Translucency and its colour key on the window itself.
#include "qt/surface/qt_user32.h"
#include "qt/window_test.h"

namespace velmora::tests {
namespace {

constexpr double opacityStep = 0.5 / 255;

/// A patch of the key colour.
class Patch : public QWidget {
  public:
    explicit Patch(QWidget* parent) : QWidget(parent) {
        setAutoFillBackground(true);
        setPalette(QPalette(QColor(255, 0, 255)));
    }
    bool painted = false;

  protected:
    void paintEvent(QPaintEvent*) override { painted = true; }
};

struct EffectsTest : WindowTest {
    EffectsTest() { start(); }
    bool hidden(int x, int y) {
        return !window()->mask().isEmpty() && !window()->mask().contains(QPoint(x, y));
    }
    static bool becomes(const std::function<bool()>& condition) {
        return QTest::qWaitFor(condition, 5000);
    }
    /// The opacity of a level's alpha.
    static double opacity(int alpha) { return alpha / 255.0; }
};

TEST_F(EffectsTest, ALevelOutOfRangeChangesNothing) {
    Forms forms;
    qt::WindowsByName names;
    QWidget frame;
    names.add("Form1", &frame);
    qt::QtUser32 user32(names);
    WindowEffects effects(forms.form1, forms.globals, user32);
    EXPECT_TRUE(effects.SetTranslucency(forms.form1, 20));
    EXPECT_NEAR(frame.windowOpacity(), opacity(51), opacityStep);
    for (const int level : {19, 101, 0, -1, 255}) {
        EXPECT_FALSE(effects.SetTranslucency(forms.form1, level)) << level;
        EXPECT_NEAR(frame.windowOpacity(), opacity(51), opacityStep) << level;
    }
}

TEST_F(EffectsTest, AWindowsStyleIsReadAsItWasSet) {
    qt::WindowsByName names;
    QWidget frame;
    names.add("Form1", &frame);
    qt::QtUser32 user32(names);
    constexpr std::int32_t style = velmora::window::extendedStyle;
    EXPECT_EQ(user32.SetWindowLongA("Form1", style, 8), 0);
    EXPECT_EQ(user32.SetWindowLongA("Form1", style, 9), 8);
    EXPECT_EQ(user32.GetWindowLongA("Form1", style), 9);
    EXPECT_EQ(user32.GetWindowLongA("Form1", style + 1), 0);
    EXPECT_EQ(user32.SetWindowLongA("Form1", style + 1, 7), 0);
    EXPECT_EQ(user32.GetWindowLongA("Form1", style), 9);
    EXPECT_EQ(user32.SetWindowLongA("none", style, 7), 0);
    EXPECT_EQ(user32.GetWindowLongA("none", style), 0);
}

TEST_F(EffectsTest, AnotherProgramsWindowIsNotThisOnes) {
    qt::WindowsByName names;
    QWidget frame;
    names.add("Form1", &frame);
    frame.show();
    qt::QtUser32 user32(names);
    window()->activateWindow();
    settle();
    ASSERT_TRUE(window()->isActiveWindow());
    std::uint32_t own = 0;
    user32.GetWindowThreadProcessId("Form1", own);
    user32.AppActivate(own + 1);
    settle();
    EXPECT_TRUE(window()->isActiveWindow());
    user32.AppActivate(own);
    EXPECT_TRUE(becomes([&] { return frame.isActiveWindow(); }));
}

TEST_F(EffectsTest, OnlyTheNewestHookHearsOfANewWindow) {
    qt::WindowsByName names;
    qt::QtUser32 user32(names);
    user32.windowCreated("nobody listens");
    std::vector<std::string> older;
    std::vector<std::string> newer;
    const auto into = [](std::vector<std::string>& heard) {
        return [&heard](std::uint32_t message, const std::string& window) {
            EXPECT_EQ(message, velmora::window::create);
            heard.push_back(window);
        };
    };
    EXPECT_NE(user32.SetWindowsHookExA(velmora::window::callWindowProcedure, into(older)), 0);
    const HookHandle hook =
        user32.SetWindowsHookExA(velmora::window::callWindowProcedure, into(newer));
    user32.windowCreated("one");
    EXPECT_TRUE(user32.UnhookWindowsHookEx(hook));
    user32.windowCreated("two");
    EXPECT_EQ(newer, std::vector<std::string>{"one"});
    EXPECT_EQ(older, std::vector<std::string>{"two"});
}

TEST_F(EffectsTest, TheMenusLevelsEndAtAnOpaqueWindow) {
    chooseFunction("mnuFadeH");
    EXPECT_NEAR(window()->windowOpacity(), opacity(166), opacityStep);  // 65 % of 255 is 165.75
    chooseFunction("mnuFadeP");
    EXPECT_NEAR(window()->windowOpacity(), opacity(204), opacityStep);
    chooseFunction("mnuFadeN");
    EXPECT_DOUBLE_EQ(window()->windowOpacity(), 1);
}

TEST_F(EffectsTest, TheButtonPressedTwiceReturnsToOpaque) {
    click("Command9");
    EXPECT_NEAR(window()->windowOpacity(), opacity(128),
                opacityStep);  // 127.5, halves to the even number
    click("Command9");
    EXPECT_DOUBLE_EQ(window()->windowOpacity(), 1);
}

TEST_F(EffectsTest, MagentaPlacesAreTransparentAtAnyLevel) {
    Patch patch(window());
    patch.setGeometry(200, 200, 40, 30);
    patch.show();
    settle();
    EXPECT_TRUE(window()->mask().isEmpty());
    for (const char* level : {"mnuFadeH", "mnuFadeP", "mnuFadeN"}) {
        chooseFunction(level);
        EXPECT_TRUE(becomes([&] { return hidden(220, 215); })) << level;
        EXPECT_FALSE(hidden(100, 215)) << level;
        EXPECT_FALSE(hidden(241, 215)) << level;
        // Also after a painting with its new mask.
        for (int look = 0; look < 2; ++look) {
            patch.painted = false;
            window()->update();
            EXPECT_TRUE(becomes([&] { return patch.painted; })) << level;
            settle();
            EXPECT_TRUE(hidden(220, 215)) << level;
            EXPECT_FALSE(hidden(100, 215)) << level;
        }
    }
    patch.move(300, 300);
    EXPECT_TRUE(becomes([&] { return hidden(320, 315) && !hidden(220, 215); }));
    patch.move(0, 0);
    EXPECT_TRUE(becomes([&] { return hidden(20, 15) && !hidden(320, 315); }));
    for (const int x : {0, 39}) EXPECT_TRUE(hidden(x, 0) && hidden(x, 29)) << x;
    EXPECT_FALSE(hidden(40, 15) || hidden(20, 30));
    patch.hide();
    find("lblTab(1)")->update();  // each painting makes the mask again
    EXPECT_TRUE(becomes([&] { return window()->mask().isEmpty(); }));
}

TEST_F(EffectsTest, StayOnTopIsTickedInBothPlacesAndKeepsTheWindowWhereItIs) {
    const QRect place = window()->geometry();
    chooseFunction("mnuStayOnTop");
    EXPECT_TRUE(window()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(window()->isVisible());
    EXPECT_EQ(window()->geometry(), place);
    EXPECT_TRUE(action("mnuStayOnTop")->isChecked());
    EXPECT_TRUE(find<QAbstractButton>("chkOnTop")->isChecked());
    click("lblTab(3)");
    click("chkOnTop");
    EXPECT_FALSE(window()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_FALSE(action("mnuStayOnTop")->isChecked());
}

}  // namespace
}  // namespace velmora::tests
