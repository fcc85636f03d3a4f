#include "app/console_end.h"

#include <windows.h>

#include <utility>

#include "app/windows/session_window.h"

namespace velmora {

namespace {

void (*noteEnd)() = nullptr;

// By the system's documentation a program that has loaded user32, as this one has, hears of the
// first of these events alone, and of the others by its window. Where it hears of them here, the
// signals would take them wrongly.
BOOL WINAPI take(DWORD event) {
    switch (event) {
        case CTRL_CLOSE_EVENT:
        case CTRL_SHUTDOWN_EVENT:
            noteEnd();
            Sleep(INFINITE);
            return TRUE;
        case CTRL_LOGOFF_EVENT:
            // Here only a service hears of it, whoever has logged off.
            return TRUE;
        default:
            return FALSE;
    }
}

}  // namespace

void noteConsoleEnd(void (*note)()) {
    if (std::exchange(noteEnd, note)) return;
    SetConsoleCtrlHandler(take, TRUE);
    windows::openSessionWindow(note);
}

}  // namespace velmora
