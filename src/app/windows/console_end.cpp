#include "app/console_end.h"

#include <windows.h>

namespace velmora {

namespace {

void (*noteEnd)() = nullptr;

BOOL WINAPI take(DWORD event) {
    switch (event) {
        case CTRL_CLOSE_EVENT:
        case CTRL_SHUTDOWN_EVENT:
            noteEnd();
            Sleep(INFINITE);
            return TRUE;
        case CTRL_LOGOFF_EVENT:
            // Only what runs as a service hears of it, whoever has logged off.
            return TRUE;
        default:
            return FALSE;
    }
}

}  // namespace

void noteConsoleEnd(void (*note)()) {
    noteEnd = note;
    SetConsoleCtrlHandler(take, TRUE);
}

}  // namespace velmora
