#include "qt/system/layered_window.h"

#include <windows.h>

namespace velmora::qt {

namespace {

HWND handleOf(QWidget* window) {
    return reinterpret_cast<HWND>(window->winId());
}

}  // namespace

void showLayered(QWidget* window, std::uint8_t alpha, std::optional<std::uint32_t> key) {
    const HWND handle = handleOf(window);
    ::SetWindowLongPtrW(handle, GWL_EXSTYLE,
                        ::GetWindowLongPtrW(handle, GWL_EXSTYLE) | WS_EX_LAYERED);
    const DWORD flags = (key ? LWA_COLORKEY : 0U) | (alpha < 255 || !key ? LWA_ALPHA : 0U);
    ::SetLayeredWindowAttributes(handle, key.value_or(0), alpha, flags);
}

void stayOnTop(QWidget* window, bool on) {
    ::SetWindowPos(handleOf(window), on ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                   SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

}  // namespace velmora::qt
