// What a program without a window gives its surface's callers.
#include "console/console_surface.h"

#include <gtest/gtest.h>

namespace velmora::console {
namespace {

TEST(ConsoleSurface, ItsScreenIsASmallOne) {
    ConsoleWorkArea screen;
    EXPECT_EQ(screen.Width(), 1024 * 15);
    EXPECT_EQ(screen.Height(), 768 * 15);
}

TEST(ConsoleSurface, NoWindowIsThereToWorkOn) {
    ConsoleUser32 user32;
    EXPECT_EQ(user32.GetWindowLongA("Form1", window::extendedStyle), 0);
    EXPECT_EQ(user32.SetWindowLongA("Form1", window::extendedStyle, window::layered), 0);
    EXPECT_FALSE(user32.SetLayeredWindowAttributes("Form1", 0, 255, window::alpha));
    EXPECT_FALSE(user32.SetWindowPos("Form1", window::topmost, 0, 0, 1, 1, window::noMoveNoSize));
    std::uint32_t process = 1;
    EXPECT_EQ(user32.GetWindowThreadProcessId("Form1", process), 0u);
    EXPECT_EQ(process, 0u);
    EXPECT_FALSE(user32.SetForegroundWindow("Form1"));
    EXPECT_EQ(user32.SetWindowsHookExA(window::callWindowProcedure, {}), 0u);
    EXPECT_FALSE(user32.UnhookWindowsHookEx(1));
    EXPECT_FALSE(user32.KillTimer(1, 1));
    EXPECT_FALSE(user32.DestroyWindow(1));
    EXPECT_EQ(user32.GetActiveWindow(), "");
}

TEST(ConsoleSurface, NoFileHasAnIcon) {
    ConsoleShellIcons icons;
    ShellFileInfo info;
    std::string picture = "as before";
    EXPECT_EQ(icons.SHGetFileInfoA("C:\\", 0, info, 352, 26117), 0u);
    EXPECT_FALSE(icons.ImageList_Draw(1, 0, picture, 0, 0, 1));
    EXPECT_EQ(picture, "as before");
}

}  // namespace
}  // namespace velmora::console
