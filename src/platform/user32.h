// Windows as the system knows them. The surface (console, window) provides these operations, since
// the windows are its own; a window is named by its form.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace velmora {

/// A hook's procedure gets the number of a message and the window that it is for.
using HookProcedure = std::function<void(std::uint32_t message, const std::string& window)>;
/// A hook that is set; 0 for none.
using HookHandle = std::uint64_t;

namespace window {
inline constexpr std::int32_t extendedStyle = -20;      ///< GWL_EXSTYLE
inline constexpr std::int32_t layered = 0x80000;        ///< WS_EX_LAYERED
inline constexpr std::uint32_t colourKey = 1;           ///< LWA_COLORKEY
inline constexpr std::uint32_t alpha = 2;               ///< LWA_ALPHA
inline constexpr std::int32_t topmost = -1;             ///< HWND_TOPMOST
inline constexpr std::int32_t notTopmost = -2;          ///< HWND_NOTOPMOST
inline constexpr std::uint32_t noMoveNoSize = 3;        ///< SWP_NOMOVE and SWP_NOSIZE
inline constexpr std::int32_t callWindowProcedure = 4;  ///< WH_CALLWNDPROC
inline constexpr std::uint32_t create = 1;              ///< WM_CREATE
}  // namespace window

class User32 {
  public:
    virtual ~User32() = default;
    /// 0 on a failure.
    virtual std::int32_t GetWindowLongA(const std::string& window, std::int32_t index) = 0;
    virtual std::int32_t SetWindowLongA(const std::string& window, std::int32_t index,
                                        std::int32_t value) = 0;
    /// `key` is a colour 0x00BBGGRR whose places are not shown, `alpha` 0 to 255 for opaque.
    virtual bool SetLayeredWindowAttributes(const std::string& window, std::uint32_t key,
                                            std::uint8_t alpha, std::uint32_t flags) = 0;
    /// Measures in pixels.
    virtual bool SetWindowPos(const std::string& window, std::int32_t after, int left, int top,
                              int width, int height, std::uint32_t flags) = 0;
    /// Writes the identifier of the window's process; returns that of its thread.
    virtual std::uint32_t GetWindowThreadProcessId(const std::string& window,
                                                   std::uint32_t& process) = 0;
    /// Brings the windows of a process to the front.
    virtual void AppActivate(std::uint32_t process) = 0;
    virtual bool SetForegroundWindow(const std::string& window) = 0;
    /// A hook on the own thread. `type` 4 hears of every message of a window.
    virtual HookHandle SetWindowsHookExA(std::int32_t type, HookProcedure procedure) = 0;
    /// Passes a message on to the next hook.
    virtual void CallNextHookEx(HookHandle hook, std::uint32_t message,
                                const std::string& window) = 0;
    virtual bool UnhookWindowsHookEx(HookHandle hook) = 0;
    /// Stops a timer of a window, which is given by its handle.
    virtual bool KillTimer(std::uint32_t window, std::uint64_t timer) = 0;
    virtual bool DestroyWindow(std::uint32_t window) = 0;
    /// Name of the window in front, if it is one of the program's; empty otherwise.
    virtual std::string GetActiveWindow() = 0;
};

}  // namespace velmora
