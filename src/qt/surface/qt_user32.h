// Windows by the system's operations: layered styles, place in front, hooks.
#pragma once

#include <map>
#include <vector>

#include "platform/user32.h"
#include "qt/surface/windows_by_name.h"

namespace velmora::qt {

class QtUser32 final : public User32 {
  public:
    explicit QtUser32(WindowsByName& windows) : windows_(windows) {}

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
    /// False: timers and windows of the system's own, known by handles, aren't made here.
    bool KillTimer(std::uint32_t, std::uint64_t) override { return false; }
    bool DestroyWindow(std::uint32_t) override { return false; }
    std::string GetActiveWindow() override;

    /// Reports to the newest hook that a window of that name was created.
    void windowCreated(const std::string& window);

  private:
    struct Hook {
        HookHandle handle;
        HookProcedure procedure;
    };

    WindowsByName& windows_;
    std::map<std::string, std::int32_t> extendedStyles_;
    std::vector<Hook> hooks_;
    HookHandle lastHook_ = 0;
};

}  // namespace velmora::qt
