// A surface in memory: windows, the system's icons, the notification area and the user. Every call
// is recorded in order, and the n-th one can fail by its result, as the system's calls do.
//
// A call is recorded as the operation's name and its arguments, with a blank between them:
// "SetWindowPos Form1 -1 0 0 100 80 3", "CallNextHookEx 1 1 menu". A type of a hook, a style and a
// handle are decimal numbers.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "fake/fake_host.h"
#include "fake/fake_machine.h"
#include "platform/surface.h"

namespace velmora::fake {

/// Records calls in order and can make a later one fail.
class FailingCalls {
  public:
    std::vector<std::string> calls;

    /// How many recorded calls begin with `prefix`.
    int countOf(const std::string& prefix) const;
    /// The n-th call from now (from 1) fails, once.
    void failCall(int n) { failAt_ = n; }

  protected:
    /// Records the call; false if this is the call that should fail.
    bool record(std::string call);

  private:
    int failAt_ = 0;
};

class FakeUser32 : public User32, public FailingCalls {
  public:
    std::int32_t GetWindowLongA(const std::string& window, std::int32_t index) override;
    std::int32_t SetWindowLongA(const std::string& window, std::int32_t index,
                                std::int32_t value) override;
    bool SetLayeredWindowAttributes(const std::string& window, std::uint32_t key,
                                    std::uint8_t alpha, std::uint32_t flags) override;
    bool SetWindowPos(const std::string& window, std::int32_t after, int left, int top, int width,
                      int height, std::uint32_t flags) override;
    std::uint32_t GetWindowThreadProcessId(const std::string& window,
                                           std::uint32_t& process) override;
    void AppActivate(std::uint32_t process) override;
    bool SetForegroundWindow(const std::string& window) override;
    HookHandle SetWindowsHookExA(std::int32_t type, HookProcedure procedure) override;
    void CallNextHookEx(HookHandle hook, std::uint32_t message, const std::string& window) override;
    bool UnhookWindowsHookEx(HookHandle hook) override;
    bool KillTimer(std::uint32_t window, std::uint64_t timer) override;
    bool DestroyWindow(std::uint32_t window) override;
    std::string GetActiveWindow() override;

    /// Runs the procedures of the hooks that are set, as a message to that window does.
    void send(std::uint32_t message, const std::string& window);

    std::map<std::string, std::int32_t> extendedStyle;  ///< by window; 0 for those not named
    std::map<HookHandle, HookProcedure> hooks;          ///< those that are set
    std::uint32_t process = 4711;
    std::string activeWindow;

  private:
    HookHandle lastHook_ = 0;
};

class FakeShellIcons final : public ShellIcons, public FailingCalls {
  public:
    std::uint64_t SHGetFileInfoA(const std::string& path, std::uint32_t attributes,
                                 ShellFileInfo& info, std::uint32_t size,
                                 std::uint32_t flags) override;
    /// The picture becomes "image N" with the number of the image.
    bool ImageList_Draw(std::uint64_t imageList, int index, std::string& picture, int left, int top,
                        std::uint32_t style) override;

    std::uint64_t imageList = 77;
    std::map<std::string, int> iconOf;  ///< place in the image list by path; 0 for those not named
};

/// A small screen.
class FakeWorkArea final : public WorkArea {
  public:
    int Width() override { return 1024 * 15; }
    int Height() override { return 768 * 15; }
};

/// All of a surface.
struct FakeSurface {
    FakeHost host;
    FakeNotifyArea notifyArea;
    FakeUser32 user32;
    FakeShellIcons shellIcons;
    FakeWorkArea workArea;

    Surface all() {
        return {.host = host,
                .notifyArea = notifyArea,
                .user32 = user32,
                .shellIcons = shellIcons,
                .workArea = workArea};
    }
};

}  // namespace velmora::fake
