#include "qt/surface/qt_user32.h"

#include <QApplication>
#include <QTimer>
#include <algorithm>

#include "qt/system/layered_window.h"

namespace velmora::qt {

namespace {

constexpr std::uint32_t mainThread = 1;

void bringToFront(QWidget* window) {
    window->raise();
    window->activateWindow();
}

}  // namespace

std::int32_t QtUser32::GetWindowLongA(const std::string& window, std::int32_t index) {
    if (index != velmora::window::extendedStyle || windows_.find(window) == nullptr) return 0;
    return extendedStyles_[window];
}

std::int32_t QtUser32::SetWindowLongA(const std::string& window, std::int32_t index,
                                      std::int32_t value) {
    if (index != velmora::window::extendedStyle || windows_.find(window) == nullptr) return 0;
    return std::exchange(extendedStyles_[window], value);
}

bool QtUser32::SetLayeredWindowAttributes(const std::string& window, std::uint32_t key,
                                          std::uint8_t alpha, std::uint32_t flags) {
    QWidget* target = windows_.find(window);
    // As with the system's own windows, the window has to be layered first.
    if (target == nullptr || (extendedStyles_[window] & velmora::window::layered) == 0)
        return false;
    const bool byAlpha = (flags & velmora::window::alpha) != 0;
    const bool byKey = (flags & velmora::window::colourKey) != 0;
    showLayered(target, byAlpha ? alpha : 255, byKey ? std::optional(key) : std::nullopt);
    return true;
}

bool QtUser32::SetWindowPos(const std::string& window, std::int32_t after, int left, int top,
                            int width, int height, std::uint32_t flags) {
    QWidget* target = windows_.find(window);
    if (target == nullptr) return false;
    if (flags != velmora::window::noMoveNoSize) target->setGeometry(left, top, width, height);
    stayOnTop(target, after == velmora::window::topmost);
    return true;
}

std::uint32_t QtUser32::GetWindowThreadProcessId(const std::string& window,
                                                 std::uint32_t& process) {
    process = 0;
    if (windows_.find(window) == nullptr) return 0;
    process = static_cast<std::uint32_t>(QCoreApplication::applicationPid());
    return mainThread;
}

void QtUser32::AppActivate(std::uint32_t process) {
    if (process != static_cast<std::uint32_t>(QCoreApplication::applicationPid())) return;
    // After the windows have been updated from their forms: a window about to be hidden must not
    // come to the front.
    QTimer::singleShot(0, QCoreApplication::instance(), [this] {
        QWidget* window = windows_.find("Form1");
        if (window != nullptr && window->isVisible()) bringToFront(window);
    });
}

bool QtUser32::SetForegroundWindow(const std::string& window) {
    if (QWidget* popUp = QApplication::activePopupWidget()) {
        popUp->activateWindow();
        return true;
    }
    QWidget* target = windows_.find(window);
    if (target == nullptr) return false;
    bringToFront(target);
    return true;
}

HookHandle QtUser32::SetWindowsHookExA(std::int32_t type, HookProcedure procedure) {
    if (type != velmora::window::callWindowProcedure) return 0;
    hooks_.push_back({++lastHook_, std::move(procedure)});
    return lastHook_;
}

// Every hook passes messages on to the one that was set before it.
void QtUser32::CallNextHookEx(HookHandle hook, std::uint32_t message, const std::string& window) {
    const auto here = std::find_if(hooks_.rbegin(), hooks_.rend(),
                                   [hook](const Hook& each) { return each.handle == hook; });
    if (here == hooks_.rend() || std::next(here) == hooks_.rend()) return;
    const HookProcedure next = std::next(here)->procedure;
    next(message, window);
}

bool QtUser32::UnhookWindowsHookEx(HookHandle hook) {
    return std::erase_if(hooks_, [hook](const Hook& each) { return each.handle == hook; }) > 0;
}

void QtUser32::windowCreated(const std::string& window) {
    if (hooks_.empty()) return;
    // A copy: the procedure removes its own hook.
    const HookProcedure newest = hooks_.back().procedure;
    newest(velmora::window::create, window);
}

std::string QtUser32::GetActiveWindow() {
    return windows_.nameOf(QApplication::activeWindow());
}

}  // namespace velmora::qt
