// Tells a running console program of its end, as Windows does it:
//   end_console NAME close          the console's window is closed
//   end_console NAME logoff         somebody has logged off, told as to a service
//   end_console NAME session-stays  its user logs off, and then takes that back
//   end_console NAME session-ends   its user logs off
//   end_console NAME windows        its windows are asked to close
// NAME is that of the program's file; only one such program may run. The status is 0 when the
// program goes on after `logoff` and `session-stays`, has ended by itself before it was done with
// `close` and `session-ends`, and ends after `windows`; else 1.
#include <windows.h>
// After the one above, which it needs.
#include <tlhelp32.h>

#include <cstdint>
#include <string>
#include <vector>

namespace {

constexpr DWORD longestWait = 40'000;

std::vector<DWORD> processesOf(const std::string& name) {
    std::vector<DWORD> found;
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    const std::wstring wanted(name.begin(), name.end());
    for (BOOL any = Process32FirstW(snapshot, &entry); any;
         any = Process32NextW(snapshot, &entry)) {
        if (wanted == entry.szExeFile) found.push_back(entry.th32ProcessID);
    }
    CloseHandle(snapshot);
    return found;
}

// What the system starts in a console program to call its handlers lies at one place in all of
// them.
LPTHREAD_START_ROUTINE callerOfHandlers() {
    const HMODULE module = GetModuleHandleW(L"kernelbase.dll");
    return reinterpret_cast<LPTHREAD_START_ROUTINE>(
        reinterpret_cast<void*>(GetProcAddress(module, "CtrlRoutine")));
}

// Whether the program has ended before its thread was done. One that ends takes the status of its
// program, which is 0 when it ends well; one that is done has another, under Wine.
bool hasEndedFirst(HANDLE process, HANDLE thread) {
    DWORD status = 1;
    GetExitCodeThread(thread, &status);
    return status == 0 && WaitForSingleObject(process, longestWait) == WAIT_OBJECT_0;
}

// Whether the program goes on after an event that is none of its business, or ends by itself.
bool tellAsConsole(HANDLE process, DWORD event, bool ends) {
    const LPTHREAD_START_ROUTINE routine = callerOfHandlers();
    if (!routine) return false;
    const HANDLE thread = CreateRemoteThread(
        process, nullptr, 0, routine, reinterpret_cast<void*>(std::uintptr_t{event}), 0, nullptr);
    if (!thread || WaitForSingleObject(thread, longestWait) != WAIT_OBJECT_0) return false;
    if (!ends) return WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
    if (hasEndedFirst(process, thread)) return true;
    // As the system does it.
    TerminateProcess(process, 3);
    return false;
}

bool isClosed(HANDLE process) {
    return tellAsConsole(process, CTRL_CLOSE_EVENT, true);
}

bool staysAfterALogoff(HANDLE process) {
    return tellAsConsole(process, CTRL_LOGOFF_EVENT, false);
}

BOOL CALLBACK addWindow(HWND window, LPARAM list) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

bool isOfSession(HWND window) {
    wchar_t name[64]{};
    GetClassNameW(window, name, 64);
    return std::wstring(name) == L"VelmoraSession";
}

// Its own among those that the system tells of the end of a session, seen or not.
std::vector<HWND> windowsOf(HANDLE process) {
    std::vector<HWND> all;
    EnumWindows(addWindow, reinterpret_cast<LPARAM>(&all));
    std::vector<HWND> found;
    for (HWND window : all) {
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        if (owner == GetProcessId(process) && isOfSession(window)) found.push_back(window);
    }
    return found;
}

// Whether there are windows, and each answers yes in time.
bool answerAll(HANDLE process, UINT message, WPARAM word) {
    const std::vector<HWND> windows = windowsOf(process);
    bool areAll = !windows.empty();
    for (HWND window : windows) {
        DWORD_PTR answer = 0;
        const bool isAnswered =
            SendMessageTimeoutW(window, message, word, static_cast<LPARAM>(ENDSESSION_LOGOFF),
                                SMTO_ABORTIFHUNG, longestWait, &answer);
        areAll = areAll && isAnswered && answer != 0;
    }
    return areAll;
}

bool staysAfterASessionThatGoesOn(HANDLE process) {
    if (!answerAll(process, WM_QUERYENDSESSION, 0)) return false;
    answerAll(process, WM_ENDSESSION, FALSE);
    return WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
}

// A window that answers has let the system go on, and its program may be ended at once.
bool endsWithItsSession(HANDLE process) {
    if (!answerAll(process, WM_QUERYENDSESSION, 0)) return false;
    for (HWND window : windowsOf(process)) {
        if (SendMessageTimeoutW(window, WM_ENDSESSION, TRUE, static_cast<LPARAM>(ENDSESSION_LOGOFF),
                                SMTO_NORMAL, longestWait, nullptr))
            return false;
    }
    return WaitForSingleObject(process, longestWait) == WAIT_OBJECT_0;
}

bool endsWhenItsWindowsAreClosed(HANDLE process) {
    for (HWND window : windowsOf(process)) PostMessageW(window, WM_CLOSE, 0, 0);
    return WaitForSingleObject(process, longestWait) == WAIT_OBJECT_0;
}

struct Way {
    const char* name;
    bool (*tell)(HANDLE process);
};
constexpr Way ways[] = {{"close", isClosed},
                        {"logoff", staysAfterALogoff},
                        {"session-stays", staysAfterASessionThatGoesOn},
                        {"session-ends", endsWithItsSession},
                        {"windows", endsWhenItsWindowsAreClosed}};

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) return 1;
    const std::vector<DWORD> processes = processesOf(arguments[1]);
    if (processes.size() != 1) return 1;
    const HANDLE process = OpenProcess(PROCESS_ALL_ACCESS, FALSE, processes.front());
    for (const Way& way : ways) {
        if (process && std::string(arguments[2]) == way.name) return way.tell(process) ? 0 : 1;
    }
    return 1;
}
