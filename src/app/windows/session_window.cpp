#include "app/windows/session_window.h"

#include <windows.h>

namespace velmora::windows {

namespace {

void (*noteEnd)() = nullptr;

LRESULT CALLBACK answer(HWND window, UINT message, WPARAM word, LPARAM more) {
    // A word of 0 tells that the session goes on after all.
    if (message == WM_ENDSESSION && word != 0) {
        noteEnd();
        Sleep(INFINITE);
    }
    if (message == WM_CLOSE) {
        noteEnd();
        return 0;
    }
    return DefWindowProcW(window, message, word, more);
}

// One for messages alone (HWND_MESSAGE) isn't told of a session.
HWND makeWindow() {
    WNDCLASSW kind{};
    kind.lpfnWndProc = answer;
    kind.hInstance = GetModuleHandleW(nullptr);
    kind.lpszClassName = L"VelmoraSession";
    RegisterClassW(&kind);
    return CreateWindowExW(0, kind.lpszClassName, L"Velmora", WS_POPUP, 0, 0, 0, 0, nullptr,
                           nullptr, kind.hInstance, nullptr);
}

// A window belongs to the thread that made it, which takes its messages.
DWORD WINAPI takeMessages(void*) {
    if (!makeWindow()) return 1;
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    return 0;
}

}  // namespace

void openSessionWindow(void (*note)()) {
    noteEnd = note;
    const HANDLE thread = CreateThread(nullptr, 0, takeMessages, nullptr, 0, nullptr);
    if (thread) CloseHandle(thread);
}

}  // namespace velmora::windows
