// The surface of a program without a window: no window and no icon is there to work on, and alerts
// are placed as on a small screen.
#pragma once

#include <cstdint>
#include <string>

#include "platform/shell_icons.h"
#include "platform/user32.h"
#include "platform/work_area.h"

namespace velmora::console {

/// Every operation fails, as it does for a window that isn't there.
class ConsoleUser32 final : public User32 {
  public:
    std::int32_t GetWindowLongA(const std::string&, std::int32_t) override { return 0; }
    std::int32_t SetWindowLongA(const std::string&, std::int32_t, std::int32_t) override {
        return 0;
    }
    bool SetLayeredWindowAttributes(const std::string&, std::uint32_t, std::uint8_t,
                                    std::uint32_t) override {
        return false;
    }
    bool SetWindowPos(const std::string&, std::int32_t, int, int, int, int,
                      std::uint32_t) override {
        return false;
    }
    std::uint32_t GetWindowThreadProcessId(const std::string&, std::uint32_t& process) override {
        process = 0;
        return 0;
    }
    void AppActivate(std::uint32_t) override {}
    bool SetForegroundWindow(const std::string&) override { return false; }
    HookHandle SetWindowsHookExA(std::int32_t, HookProcedure) override { return 0; }
    void CallNextHookEx(HookHandle, std::uint32_t, const std::string&) override {}
    bool UnhookWindowsHookEx(HookHandle) override { return false; }
    bool KillTimer(std::uint32_t, std::uint64_t) override { return false; }
    bool DestroyWindow(std::uint32_t) override { return false; }
    std::string GetActiveWindow() override { return {}; }
};

/// Knows no icon.
class ConsoleShellIcons final : public ShellIcons {
  public:
    std::uint64_t SHGetFileInfoA(const std::string&, std::uint32_t, ShellFileInfo&, std::uint32_t,
                                 std::uint32_t) override {
        return 0;
    }
    bool ImageList_Draw(std::uint64_t, int, std::string&, int, int, std::uint32_t) override {
        return false;
    }
};

/// A screen of 1024 by 768 pixels.
class ConsoleWorkArea final : public WorkArea {
  public:
    int Width() override { return 1024 * 15; }
    int Height() override { return 768 * 15; }
};

}  // namespace velmora::console
